#pragma once

#include "krv/platform/formatter.h"

#include <cstdint>
#include <string>

namespace krv::propertypage {

/// The number that a text begins with, 0 for none, rounded half to even.
/// \throws RuntimeError 6 when it does not fit 16 bits
inline std::int16_t whole_number(const platform::Formatter& formatter, const std::string& text) {
    return formatter.CInt(platform::ValueView::double_float(formatter.Val(text)));
}

} // namespace krv::propertypage
