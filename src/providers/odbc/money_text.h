#pragma once

#include "krv/platform/value.h"

#include <optional>
#include <string_view>

namespace krv::providers::odbc {

/// An amount as PostgreSQL writes it by the customs of its server: `$1,234.50`, `-1.234,50 €`,
/// `($5.00)`. Nothing when it cannot be told what separates the decimals.
std::optional<platform::Currency> currency_from_money_text(std::string_view text);

} // namespace krv::providers::odbc
