#pragma once

#include "server/json.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::server {

/// The parameters of a request. A member that is asked for and missing, or of another kind, is
/// RpcError -32602.
class Params {
public:
    /// \param object  outlives this
    explicit Params(const Json& object)
        : object_(object) {}

    /// There, and not null.
    bool has(std::string_view name) const;

    /// Of any kind, null included.
    const Json& any(std::string_view name) const;
    const std::string& text(std::string_view name) const;
    bool boolean(std::string_view name) const;
    std::int16_t integer(std::string_view name) const;
    std::int32_t long_integer(std::string_view name) const;
    float single(std::string_view name) const;
    const Json& array(std::string_view name) const;
    const Json& object(std::string_view name) const;

private:
    std::int64_t whole(std::string_view name, std::int64_t least, std::int64_t most) const;

    const Json& object_;
};

/// \throws RpcError -32602
[[noreturn]] void fail_parameter(std::string_view name, std::string_view what);

} // namespace krv::server
