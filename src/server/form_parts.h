#pragma once

#include "server/form.h"
#include "server/params.h"

#include <string>

namespace krv::server {

/// \throws RpcError -32602 when the control has no such part
inline platform::Part& part_named(FormControl& control, const std::string& name) {
    platform::Part* const part = control.part(name);
    if (part == nullptr) {
        fail_parameter("part", "the control has no " + name);
    }
    return *part;
}

} // namespace krv::server
