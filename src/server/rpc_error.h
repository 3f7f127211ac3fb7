#pragma once

#include <exception>
#include <string>
#include <utility>

namespace krv::server {

/// A fault of a message, not of what it asks for.
class RpcError : public std::exception {
public:
    static constexpr int parse_error = -32700;
    static constexpr int invalid_request = -32600;
    static constexpr int unknown_method = -32601;
    static constexpr int invalid_params = -32602;
    static constexpr int internal_error = -32603;
    /// The code under which run-time errors travel.
    static constexpr int run_time_error = -32000;

    RpcError(int code, std::string message)
        : code_(code)
        , message_(std::move(message)) {}

    int code() const noexcept { return code_; }

    const char* what() const noexcept override { return message_.c_str(); }

private:
    int code_;
    std::string message_;
};

/// Thrown through everything that is under way when the session is over. Deliberate: no
/// `std::exception`, so that nobody takes it for an error of a host's handler.
struct SessionEnded {};

} // namespace krv::server
