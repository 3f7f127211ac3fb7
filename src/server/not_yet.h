#pragma once

#include "krv/platform/error.h"

namespace krv::server {

/// For requests whose work the control cannot do yet.
[[noreturn]] inline void fail_not_yet() {
    constexpr std::int32_t no_such_action = 445;
    throw platform::RuntimeError(no_such_action, "not yet", "krvList3");
}

} // namespace krv::server
