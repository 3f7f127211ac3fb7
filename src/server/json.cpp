#include "server/json.h"

#include "server/rpc_error.h"

namespace krv::server {

namespace {

/// Levels of brackets outside strings. Looked at before the text is parsed, so that a depth without
/// end costs nothing; of a text that is no JSON the answer means nothing.
bool is_deeper_than(std::string_view text, std::size_t limit) {
    std::size_t depth = 0;
    bool in_string = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (in_string) {
            i += c == '\\' ? 1 : 0;
            in_string = c != '"';
        } else if (c == '"') {
            in_string = true;
        } else if (c == '[' || c == '{') {
            if (++depth > limit) {
                return true;
            }
        } else if ((c == ']' || c == '}') && depth > 0) {
            --depth;
        }
    }
    return false;
}

} // namespace

Json parse_message(std::string_view text) {
    if (is_deeper_than(text, deepest_json)) {
        throw RpcError(RpcError::parse_error, "nested too deep");
    }
    Json message = Json::parse(text, nullptr, false);
    if (message.is_discarded()) {
        throw RpcError(RpcError::parse_error, "not JSON");
    }
    return message;
}

std::string to_text(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace krv::server
