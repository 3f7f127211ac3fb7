#pragma once

#include "krv/platform/error.h"

#include <cstdint>
#include <string>

namespace krv::testing {

/// Number of the run-time error that the call raises, 0 when it raises none.
template <class Call>
std::int32_t error_number_of(Call call) {
    try {
        call();
    } catch (const platform::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

/// Source of the run-time error that the call raises, empty when it raises none.
template <class Call>
std::string error_source_of(Call call) {
    try {
        call();
    } catch (const platform::RuntimeError& error) {
        return error.source();
    }
    return {};
}

} // namespace krv::testing
