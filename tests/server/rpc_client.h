#pragma once

#include "server/json.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <poll.h>
#include <unistd.h>

namespace krv::server::testing {

/// The server answered a request with an error.
class Fault : public std::runtime_error {
public:
    explicit Fault(Json its_error)
        : std::runtime_error(its_error.dump())
        , error(std::move(its_error)) {}

    int code() const { return error.at("code"); }

    int number() const { return error.contains("data") ? error["data"]["Number"].get<int>() : 0; }

    Json error;
};

/// Thrown by a handler of an event: this is answered as the error.
struct Refusal {
    Json error;
};

/// The server said no more.
class Silence : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A client of the server over two descriptors, which it owns. Serves what the server asks while it
/// waits for its own answers.
class RpcClient {
public:
    RpcClient(int from_server, int to_server)
        : in_(from_server)
        , out_(to_server) {}

    ~RpcClient() {
        hang_up();
        stop_listening();
    }

    RpcClient(const RpcClient&) = delete;
    RpcClient& operator=(const RpcClient&) = delete;

    /// No more requests.
    void hang_up() {
        if (out_ >= 0) {
            close(out_);
            out_ = -1;
        }
    }

    /// Nothing that the server says is heard any more.
    void stop_listening() {
        if (in_ >= 0) {
            close(in_);
            in_ = -1;
        }
    }

    void send_line(std::string line) {
        line += '\n';
        for (std::string_view rest = line; !rest.empty();) {
            const ssize_t count = write(out_, rest.data(), rest.size());
            if (count < 0) {
                throw Silence("the server reads no more");
            }
            rest.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void send(const Json& message) { send_line(message.dump()); }

    /// The next message. \throws Silence at the end, and when nothing comes for half a minute
    Json receive() {
        for (;;) {
            const auto end = buffer_.find('\n');
            if (end != std::string::npos) {
                const std::string line = buffer_.substr(0, end);
                buffer_.erase(0, end + 1);
                return Json::parse(line);
            }
            fill();
        }
    }

    /// \throws Fault
    Json request(const std::string& method, Json params = Json::object()) {
        const int id = ++last_id_;
        send({{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", std::move(params)}});
        for (;;) {
            Json message = receive();
            if (message.contains("method")) {
                serve(message);
            } else if (message.at("id") != id) {
                throw std::logic_error("answer to something else: " + message.dump());
            } else if (message.contains("error")) {
                throw Fault(message["error"]);
            } else {
                return message.at("result");
            }
        }
    }

    /// Error number of a request, its code when it has none, 0 when it succeeds.
    int error_of(const std::string& method, Json params = Json::object()) {
        try {
            request(method, std::move(params));
            return 0;
        } catch (const Fault& fault) {
            return fault.number() != 0 ? fault.number() : fault.code();
        }
    }

    void answer(const Json& question, const Json& result) {
        send({{"jsonrpc", "2.0"}, {"id", question.at("id")}, {"result", result}});
    }

    // What the server asked and told, in order: events as `name {args}`, boxes as their text,
    // notifications as `=property`.
    std::vector<std::string> log;
    /// Answers to events, by name; none changes nothing.
    std::map<std::string, std::function<Json(const Json&)>> handlers;
    /// Answers message boxes.
    std::function<Json(const Json&)> on_message = [](const Json&) { return Json("ok"); };
    /// Answers file dialogs.
    std::function<Json(const Json&)> on_file = [](const Json&) { return Json(); };

private:
    void fill() {
        pollfd waiting{in_, POLLIN, 0};
        if (poll(&waiting, 1, 30000) <= 0) {
            throw Silence("nothing comes");
        }
        char chunk[65536];
        const ssize_t count = read(in_, chunk, sizeof chunk);
        if (count <= 0) {
            throw Silence("the server has ended");
        }
        buffer_.append(chunk, static_cast<std::size_t>(count));
    }

    void serve(const Json& message) {
        const std::string method = message.at("method");
        const Json& params = message.at("params");
        if (method == "propertyChanged") {
            log.push_back("=" + params.at("name").get<std::string>());
            return;
        }
        if (method == "pageChanged") {
            log.push_back("=page");
            return;
        }
        if (method == "openfile") {
            log.push_back(params.dump());
            answer(message, on_file(params));
            return;
        }
        if (method == "message") {
            log.push_back(params.at("text"));
            answer(message, on_message(params));
            return;
        }
        const std::string name = params.at("name");
        log.push_back(name + " " + params.at("args").dump());
        const auto handler = handlers.find(name);
        try {
            const auto act = handler == handlers.end() ? nullptr : handler->second;
            answer(message, act ? act(params.at("args")) : Json::object());
        } catch (const Refusal& refusal) {
            send({{"jsonrpc", "2.0"}, {"id", message.at("id")}, {"error", refusal.error}});
        }
    }

    int in_;
    int out_;
    int last_id_ = 0;
    std::string buffer_;
};

} // namespace krv::server::testing
