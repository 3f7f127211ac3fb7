#pragma once

#include "server/channel.h"
#include "server/form.h"
#include "server/methods.h"
#include "server/rpc_session.h"
#include "server/server_state.h"

#include "krv/platform/data_access.h"
#include "krv/standard/regional_settings.h"

#include <memory>
#include <string_view>
#include <unordered_map>

namespace krv::server {

/// The automation server: controls on one form, driven by the requests of one client.
class Server {
public:
    /// \param data     where controls and client find their databases
    /// \param channel  outlives the server
    Server(std::unique_ptr<Form> form,
           std::shared_ptr<platform::DataAccess> data,
           standard::RegionalSettings region,
           Channel& channel);

    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Carries out requests until the client shuts the server down or its input ends.
    void run() { session_.run(); }

private:
    void add(std::span<const Method> methods);
    Json carry_out(const std::string& name, const Json& params);

    std::unordered_map<std::string_view, decltype(Method::run)> methods_;
    std::unique_ptr<Form> form_;
    RpcSession session_;
    ServerState state_;
};

} // namespace krv::server
