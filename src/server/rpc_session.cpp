#include "server/rpc_session.h"

#include "server/log.h"
#include "server/rpc_error.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <new>
#include <utility>

namespace krv::server {

namespace {

constexpr std::int32_t out_of_stack_space = 28;

bool is_id(const Json& id) {
    return id.is_string() || id.is_number() || id.is_null();
}

/// The id as far as there is one to answer to.
Json id_of(const Json& message) {
    const auto id = message.find("id");
    return id != message.end() && is_id(*id) ? *id : Json();
}

/// The second half of an answer: `"result": ...` or `"error": ...`, so that a result is written
/// without being copied.
std::string error_text(int code, std::string_view message, const Json* data = nullptr) {
    Json error = {{"code", code}, {"message", message}};
    if (data != nullptr) {
        error["data"] = *data;
    }
    return "\"error\":" + to_text(error);
}

std::string error_text(const platform::RuntimeError& error) {
    const Json data = {{"Number", error.number()},
                       {"Description", error.description()},
                       {"Source", error.source()}};
    return error_text(RpcError::run_time_error, error.description(), &data);
}

std::string answer_text(const Json& id, std::string_view half) {
    std::string text = R"({"jsonrpc":"2.0","id":)" + to_text(id) + ',';
    return text.append(half) + '}';
}

/// One more request under way as long as this stands.
class Counted {
public:
    explicit Counted(int& count)
        : count_(count) {
        ++count_;
    }

    ~Counted() { --count_; }

    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& count_;
};

} // namespace

/// Keeps a question among those that wait for their answers.
class RpcSession::Asking {
public:
    Asking(std::vector<Question*>& questions, Question& question)
        : questions_(questions) {
        questions_.push_back(&question);
    }

    ~Asking() { questions_.pop_back(); }

    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

private:
    std::vector<Question*>& questions_;
};

void RpcSession::run() {
    try {
        for (;;) {
            take_next(Waiting::for_a_request);
        }
    } catch (const SessionEnded&) {
        return;
    }
}

void RpcSession::end() {
    ended_ = true;
    channel_.end();
}

Json RpcSession::ask(std::string_view method, const Json& params) {
    if (ended_) {
        throw SessionEnded{};
    }
    Question question{++last_question_, std::nullopt};
    const Asking asking(questions_, question);
    channel_.write(R"({"jsonrpc":"2.0","id":)" + std::to_string(question.id) + R"(,"method":")" +
                   std::string(method) + R"(","params":)" + to_text(params) + '}');
    while (!question.answer) {
        take_next(Waiting::for_an_answer);
    }
    if (const auto error = question.answer->find("error"); error != question.answer->end()) {
        throw ClientError(std::move(*error));
    }
    return std::move(question.answer->at("result"));
}

void RpcSession::notify(std::string_view method, const Json& params) {
    if (!ended_) {
        channel_.write(R"({"jsonrpc":"2.0","method":")" + std::string(method) + R"(","params":)" +
                       to_text(params) + '}');
    }
}

void RpcSession::take_next(Waiting waiting) {
    const auto line = ended_ ? std::nullopt : channel_.read(waiting);
    if (!line) {
        ended_ = true;
        throw SessionEnded{};
    }
    take(*line);
    if (ended_) {
        throw SessionEnded{};
    }
}

void RpcSession::take(const Line& line) {
    if (line.too_long) {
        refuse({}, RpcError::invalid_request, "line too long");
        return;
    }
    Json message;
    try {
        message = parse_message(line.text);
    } catch (const RpcError& error) {
        refuse({}, error.code(), error.what());
        return;
    }
    take_message(message);
}

void RpcSession::take_message(const Json& message) {
    if (!message.is_object()) {
        refuse({}, RpcError::invalid_request, message.is_array() ? "no batches" : "no request");
        return;
    }
    const auto version = message.find("jsonrpc");
    const auto id = message.find("id");
    if (version == message.end() || *version != "2.0") {
        refuse(id_of(message), RpcError::invalid_request, "jsonrpc is not \"2.0\"");
    } else if (id != message.end() && !is_id(*id)) {
        refuse({}, RpcError::invalid_request, "an id is a text, a number or null");
    } else if (message.contains("method")) {
        take_request(message);
    } else if (message.contains("result") || message.contains("error")) {
        take_answer(message);
    } else {
        refuse(id_of(message), RpcError::invalid_request, "neither method nor result");
    }
}

void RpcSession::take_answer(const Json& message) {
    const Json id = id_of(message);
    const auto asked = std::find_if(questions_.begin(), questions_.end(), [&](const Question* q) {
        return !q->answer && id.is_number_integer() && id == q->id;
    });
    if (asked == questions_.end()) {
        log("an answer to nothing that was asked is ignored");
        return;
    }
    (*asked)->answer = message;
}

void RpcSession::take_request(const Json& message) {
    const Json& method = message.at("method");
    const Json id = id_of(message);
    if (!method.is_string()) {
        refuse(id, RpcError::invalid_request, "method is no text");
        return;
    }
    static const Json no_params = Json::object();
    const auto given = message.find("params");
    const Json& params = given == message.end() ? no_params : *given;
    const std::string half = carry_out(method.get_ref<const std::string&>(), params);
    if (message.contains("id")) {
        channel_.write(answer_text(id, half));
    }
}

std::string RpcSession::carry_out(const std::string& method, const Json& params) {
    try {
        if (requests_ >= deepest_nesting) {
            throw platform::RuntimeError(out_of_stack_space, "Out of stack space", "krvList3");
        }
        const Counted counted(requests_);
        if (!params.is_object()) {
            throw RpcError(RpcError::invalid_params, "params is no object");
        }
        return "\"result\":" + to_text(handler_(method, params));
    } catch (const RpcError& error) {
        return error_text(error.code(), error.what());
    } catch (const platform::RuntimeError& error) {
        return error_text(error);
    } catch (const std::bad_alloc&) {
        return error_text(platform::RuntimeError(
            platform::error_number::out_of_memory, "Out of memory", "krvList3"));
    } catch (const std::exception& error) {
        return error_text(RpcError::internal_error, error.what());
    }
}

void RpcSession::refuse(const Json& id, int code, std::string_view message) {
    channel_.write(answer_text(id, error_text(code, message)));
}

} // namespace krv::server
