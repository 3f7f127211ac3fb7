#pragma once

#include "krv/platform/value.h"

#include <cstdint>
#include <span>
#include <string>

namespace krv::providers::sqlite {

// What a stored value is in a column of a type. SQLite keeps any value in any column: one that the
// column's type cannot mean comes out as what it is, with its own type.

platform::ValueView whole_value(std::int64_t value, std::int16_t type);

platform::ValueView real_value(double value, std::int16_t type);

/// \param bytes    the result may be a view of them
/// \param storage  may take the result's text
platform::ValueView
blob_value(std::span<const std::byte> bytes, std::int16_t type, std::string& storage);

} // namespace krv::providers::sqlite
