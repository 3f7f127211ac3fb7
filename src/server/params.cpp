#include "server/params.h"

#include "server/rpc_error.h"

#include <cmath>
#include <limits>

namespace krv::server {

void fail_parameter(std::string_view name, std::string_view what) {
    throw RpcError(RpcError::invalid_params, std::string(name) + ": " + std::string(what));
}

bool Params::has(std::string_view name) const {
    const auto found = object_.find(name);
    return found != object_.end() && !found->is_null();
}

const Json& Params::any(std::string_view name) const {
    const auto found = object_.find(name);
    if (found == object_.end()) {
        fail_parameter(name, "missing");
    }
    return *found;
}

const std::string& Params::text(std::string_view name) const {
    const Json& value = any(name);
    if (!value.is_string()) {
        fail_parameter(name, "no text");
    }
    return value.get_ref<const std::string&>();
}

bool Params::boolean(std::string_view name) const {
    const Json& value = any(name);
    if (!value.is_boolean()) {
        fail_parameter(name, "neither true nor false");
    }
    return value.get<bool>();
}

std::int16_t Params::integer(std::string_view name) const {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(whole(name, Limits::min(), Limits::max()));
}

std::int32_t Params::long_integer(std::string_view name) const {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(whole(name, Limits::min(), Limits::max()));
}

float Params::single(std::string_view name) const {
    const Json& value = any(name);
    if (!value.is_number()) {
        fail_parameter(name, "no number");
    }
    const auto number = value.get<double>();
    if (!(std::abs(number) <= std::numeric_limits<float>::max())) {
        fail_parameter(name, "out of range");
    }
    return static_cast<float>(number);
}

const Json& Params::array(std::string_view name) const {
    const Json& value = any(name);
    if (!value.is_array()) {
        fail_parameter(name, "no array");
    }
    return value;
}

const Json& Params::object(std::string_view name) const {
    const Json& value = any(name);
    if (!value.is_object()) {
        fail_parameter(name, "no object");
    }
    return value;
}

std::int64_t Params::whole(std::string_view name, std::int64_t least, std::int64_t most) const {
    const Json& value = any(name);
    const double number = value.is_number() ? value.get<double>() : 0.5;
    if (number != std::floor(number)) {
        fail_parameter(name, "no whole number");
    }
    if (number < static_cast<double>(least) || number > static_cast<double>(most)) {
        fail_parameter(name, "out of range");
    }
    return static_cast<std::int64_t>(number);
}

} // namespace krv::server
