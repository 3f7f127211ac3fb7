#pragma once

#include "server/headless_form.h"
#include "server/line_channel.h"
#include "server/rpc_client.h"
#include "server/server.h"

#include "krv/standard/ado.h"
#ifdef KRV_HAS_SQLITE
#include "krv/providers/sqlite.h"
#endif

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include <unistd.h>

namespace krv::server::testing {

/// A pipe whose ends somebody else closes.
inline std::array<int, 2> make_pipe() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    return ends;
}

inline std::shared_ptr<platform::DataAccess> make_data_access() {
    standard::ProviderRegistry::Providers providers;
#ifdef KRV_HAS_SQLITE
    providers.sqlite = providers::make_sqlite_provider();
#endif
    return std::make_shared<standard::AdoDataAccess>(
        std::make_shared<const standard::ProviderRegistry>(std::move(providers)));
}

/// The server without a screen in a thread of this process, Italian settings, and its client.
class ServerTest : public ::testing::Test {
protected:
    ServerTest()
        : to_server_(make_pipe())
        , to_client_(make_pipe())
        , client(to_client_[0], to_server_[1])
        , thread_([this] { serve(); }) {}

    ~ServerTest() override {
        client.hang_up();
        if (thread_.joinable()) {
            thread_.join();
        }
        close(to_server_[0]);
    }

    /// Ends the input; returns when the server has ended.
    void end() {
        client.hang_up();
        thread_.join();
    }

    Json request(const std::string& method, Json params = Json::object()) {
        return client.request(method, std::move(params));
    }

    int error_of(const std::string& method, Json params = Json::object()) {
        return client.error_of(method, std::move(params));
    }

    /// A newly placed control that tells all its events.
    void make_control(const std::string& id = "L1") {
        request("control.new", {{"id", id}});
        request("listen", {{"id", id}, {"events", "*"}});
        client.log.clear();
    }

    Json get(const std::string& name, Json args = Json::array()) {
        return request("get", {{"id", "L1"}, {"name", name}, {"args", std::move(args)}})
            .at("value");
    }

    void put(const std::string& name, Json value, Json args = Json::array()) {
        request("put", {{"id", "L1"}, {"name", name}, {"args", std::move(args)}, {"value", value}});
    }

    Json call(const std::string& name, Json args = Json::array()) {
        return request("call", {{"id", "L1"}, {"name", name}, {"args", std::move(args)}});
    }

private:
    void serve() {
        {
            PollWaiter waiter(to_server_[0]);
            LineChannel channel(to_server_[0], to_client_[1], waiter);
            Server server(make_headless_form(),
                          make_data_access(),
                          standard::regional_settings("it-IT"),
                          channel);
            server.run();
        }
        close(to_client_[1]);
    }

    std::array<int, 2> to_server_;
    std::array<int, 2> to_client_;

protected:
    RpcClient client;

private:
    std::thread thread_;
};

} // namespace krv::server::testing
