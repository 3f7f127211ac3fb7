#pragma once

#include "server/json.h"

#include <exception>
#include <string_view>
#include <utility>

namespace krv::server {

/// The client answered with an error.
class ClientError : public std::exception {
public:
    explicit ClientError(Json error)
        : error_(std::move(error)) {}

    /// The member `error` of the answer, whatever the client put there.
    const Json& error() const noexcept { return error_; }

    const char* what() const noexcept override { return "the client answered with an error"; }

private:
    Json error_;
};

/// The other end: it is asked and told things in the middle of the server's work.
class Client {
public:
    /// Waits for the result; what the client asks for meanwhile is carried out first.
    /// \throws ClientError, SessionEnded
    virtual Json ask(std::string_view method, const Json& params) = 0;

    /// Waits for nothing.
    virtual void notify(std::string_view method, const Json& params) = 0;

protected:
    ~Client() = default;
};

} // namespace krv::server
