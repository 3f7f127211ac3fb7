#pragma once

#include "krv/platform/error.h"

#include <cstdint>
#include <limits>

namespace krv {

[[noreturn]] inline void fail_overflow() {
    throw platform::RuntimeError(platform::error_number::overflow, "Overflow", "krvList3");
}

[[noreturn]] inline void fail_subscript() {
    throw platform::RuntimeError(
        platform::error_number::subscript_out_of_range, "Subscript out of range", "krvList3");
}

/// \throws RuntimeError 6 when the value does not fit
template <class Narrow>
Narrow narrow(std::int64_t value) {
    if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max()) {
        fail_overflow();
    }
    return static_cast<Narrow>(value);
}

/// a + b in 32 bits. \throws RuntimeError 6 when the sum does not fit
inline std::int32_t add_long(std::int32_t a, std::int32_t b) {
    return narrow<std::int32_t>(std::int64_t{a} + b);
}

} // namespace krv
