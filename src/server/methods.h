#pragma once

#include "server/json.h"
#include "server/params.h"
#include "server/server_state.h"

#include <span>
#include <string_view>

namespace krv::server {

/// A request of the client by its name.
struct Method {
    std::string_view name;
    /// \throws RpcError -32602, platform::RuntimeError
    Json (*run)(ServerState& state, const Params& params);
};

// The requests, by what they are about.

std::span<const Method> session_methods(); ///< initialize, describe, shutdown
std::span<const Method> control_methods(); ///< control.*
std::span<const Method> member_methods();  ///< get, put, putref, call, listen
std::span<const Method> host_methods();    ///< host.*, answer
std::span<const Method> input_methods();   ///< input.*
std::span<const Method> part_methods();    ///< part, cells, geometry
std::span<const Method> data_methods();    ///< data.*
std::span<const Method> value_methods();   ///< value.convert
std::span<const Method> page_methods();    ///< page.*

} // namespace krv::server
