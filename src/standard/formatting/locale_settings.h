#pragma once

#include "krv/standard/regional_settings.h"

#include <locale>
#include <string_view>

namespace krv::standard {

/// The regional settings that the facets of a C++ locale describe (numbers, money, dates).
RegionalSettings settings_of_locale(const std::locale& locale, std::string_view name);

} // namespace krv::standard
