#pragma once

#include "krv/platform/value.h"
#include "providers/odbc/block.h"

#include <cstdint>
#include <string>

namespace krv::providers::odbc {

/// What the driver wrote, as a value of the column's type; what the type cannot mean stays a text.
/// \param storage  takes the texts and bytes of the result, which views nothing else
platform::ValueView column_value(RawCell cell, Form form, std::int16_t type, std::string& storage);

} // namespace krv::providers::odbc
