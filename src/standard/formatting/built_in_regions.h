#pragma once

#include "krv/standard/regional_settings.h"

#include <span>

namespace krv::standard {

/// The regions that need no locale of the system. Made once, at the first call.
std::span<const RegionalSettings> built_in_regions();

/// "C": English names, ISO dates, no currency symbol.
const RegionalSettings& invariant_region();

} // namespace krv::standard
