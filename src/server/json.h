#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace krv::server {

using Json = nlohmann::json;

/// Levels of arrays and objects that a message may have.
inline constexpr std::size_t deepest_json = 200;

/// One message.
/// \throws RpcError -32700 for what is no JSON, no UTF-8, or nested deeper than `deepest_json`
Json parse_message(std::string_view text);

/// On one line; bytes that are no UTF-8 become the replacement character.
std::string to_text(const Json& json);

} // namespace krv::server
