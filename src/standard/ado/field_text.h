#pragma once

#include "krv/platform/value.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace krv::standard {

// What a text or bytes mean in a column of a type. What the type cannot mean stays what it is.

/// \param type     data-type code of the column
/// \param text     UTF-8, well-formed; the result may be a view of it
/// \param storage  may take the result's text
platform::ValueView field_value(std::string_view text, std::int16_t type, std::string& storage);

/// Sixteen bytes in the order of a GUID's text as that text, other counts as bytes.
/// \param storage  may take the result's text
platform::ValueView guid_value(std::span<const std::byte> bytes, std::string& storage);

} // namespace krv::standard
