#pragma once

#include "krv/platform/error.h"

namespace krv::standard {

// The errors of value conversions, with the run time's own texts.

[[noreturn]] inline void fail_overflow() {
    throw platform::RuntimeError(platform::error_number::overflow, "Overflow", "krvList3");
}

[[noreturn]] inline void fail_type_mismatch() {
    throw platform::RuntimeError(
        platform::error_number::type_mismatch, "Type mismatch", "krvList3");
}

[[noreturn]] inline void fail_invalid_use_of_null() {
    throw platform::RuntimeError(
        platform::error_number::invalid_use_of_null, "Invalid use of Null", "krvList3");
}

} // namespace krv::standard
