#pragma once

#include "server/channel.h"
#include "server/client.h"
#include "server/json.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace krv::server {

/// JSON-RPC 2.0 in both directions over one channel, requests nested in requests.
///
/// Everything that can be wrong with a message is answered here; batches are refused. Answers to
/// nothing that was asked are ignored.
class RpcSession final : public Client {
public:
    /// Requests that may be under way within each other.
    static constexpr int deepest_nesting = 64;

    /// Carries a request out. `params` is an object.
    /// \throws RpcError, platform::RuntimeError, SessionEnded
    using Handler = std::function<Json(const std::string& method, const Json& params)>;

    /// \param channel  outlives the session
    RpcSession(Channel& channel, Handler handler)
        : channel_(channel)
        , handler_(std::move(handler)) {}

    /// Carries out requests until the input ends or `end` was called.
    void run();

    /// The request under way is answered yet, everything else is left as it is.
    void end();

    Json ask(std::string_view method, const Json& params) override;
    void notify(std::string_view method, const Json& params) override;

    /// Requests of both sides that are under way.
    int under_way() const noexcept { return requests_ + static_cast<int>(questions_.size()); }

private:
    struct Question {
        std::int64_t id;
        std::optional<Json> answer; ///< the whole message
    };

    class Asking;

    void take_next(Waiting waiting);
    void take(const Line& line);
    void take_message(const Json& message);
    void take_answer(const Json& message);
    void take_request(const Json& message);
    std::string carry_out(const std::string& method, const Json& params);
    void refuse(const Json& id, int code, std::string_view message);

    Channel& channel_;
    Handler handler_;
    std::vector<Question*> questions_; ///< oldest first
    std::int64_t last_question_ = 0;
    int requests_ = 0;
    bool ended_ = false;
};

} // namespace krv::server
