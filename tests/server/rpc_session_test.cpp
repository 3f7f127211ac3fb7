#include "server/rpc_session.h"

#include "server/rpc_error.h"

#include "krv/platform/error.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace krv::server {

namespace {

/// Lines from a script; what the session writes is kept, and may put further lines into the script.
class ScriptedChannel final : public Channel {
public:
    std::optional<Line> read(Waiting /*waiting*/) override {
        if (ended || script.empty()) {
            return std::nullopt;
        }
        current_ = script.front();
        script.pop_front();
        return Line{current_, current_ == too_long};
    }

    void write(std::string text) override {
        written.push_back(text);
        if (on_write) {
            on_write(Json::parse(text));
        }
    }

    void end() override { ended = true; }

    static constexpr std::string_view too_long = "(too long)";

    std::deque<std::string> script;
    std::vector<std::string> written;
    std::function<void(const Json&)> on_write;
    bool ended = false;

private:
    std::string current_;
};

class RpcSessionTest : public ::testing::Test {
protected:
    /// Carries the script out. \return what was written
    std::vector<std::string> run(std::deque<std::string> script) {
        channel.script = std::move(script);
        channel.written.clear();
        session.run();
        return channel.written;
    }

    /// Code of the only thing written.
    int code_of(const std::string& line) {
        ScriptedChannel own;
        RpcSession fresh(own, [](const std::string&, const Json&) { return Json(); });
        own.script = {line};
        fresh.run();
        EXPECT_EQ(own.written.size(), 1U) << line;
        const Json answer = Json::parse(own.written.at(0));
        return answer.contains("error") ? answer["error"]["code"].get<int>() : 0;
    }

    ScriptedChannel channel;
    std::function<Json(const std::string&, const Json&)> handler =
        [](const std::string&, const Json& params) { return params; };
    RpcSession session{channel, [this](const std::string& method, const Json& params) {
                           return handler(method, params);
                       }};
};

using Lines = std::vector<std::string>;

TEST_F(RpcSessionTest, answers_requests_in_their_order_under_their_ids) {
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"a","params":{"x":1}})",
                   R"({"jsonrpc":"2.0","id":"due","method":"b"})",
                   R"({"jsonrpc":"2.0","id":null,"method":"c","params":{}})"}),
              (Lines{R"({"jsonrpc":"2.0","id":1,"result":{"x":1}})",
                     R"({"jsonrpc":"2.0","id":"due","result":{}})",
                     R"({"jsonrpc":"2.0","id":null,"result":{}})"}));
}

TEST_F(RpcSessionTest, answers_no_notification) {
    std::string seen;
    handler = [&](const std::string& method, const Json&) -> Json {
        seen += method;
        throw RpcError(RpcError::unknown_method, "x");
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","method":"a"})"}), Lines{});
    EXPECT_EQ(seen, "a");
}

TEST_F(RpcSessionTest, refuses_what_is_no_request) {
    for (const char* const line : {"[]",
                                   R"([{"jsonrpc":"2.0","id":1,"method":"a"}])",
                                   "1",
                                   "null",
                                   "\"a\"",
                                   "{}",
                                   R"({"id":1,"method":"a"})",
                                   R"({"jsonrpc":2.0,"id":1,"method":"a"})",
                                   R"({"jsonrpc":"1.0","id":1,"method":"a"})",
                                   R"({"jsonrpc":"2.0","id":1})",
                                   R"({"jsonrpc":"2.0","id":1,"method":3})",
                                   R"({"jsonrpc":"2.0","id":{},"method":"a"})",
                                   R"({"jsonrpc":"2.0","id":true,"method":"a"})"}) {
        EXPECT_EQ(code_of(line), RpcError::invalid_request) << line;
    }
    EXPECT_EQ(code_of(std::string(ScriptedChannel::too_long)), RpcError::invalid_request);
    EXPECT_EQ(code_of("{"), RpcError::parse_error);
    EXPECT_EQ(code_of(R"({"jsonrpc":"2.0","id":1,"method":"a","params":[1]})"),
              RpcError::invalid_params);
    EXPECT_EQ(code_of(R"({"jsonrpc":"2.0","id":1,"method":"a","params":null})"),
              RpcError::invalid_params);
}

TEST_F(RpcSessionTest, answers_errors_with_number_text_and_source) {
    handler = [](const std::string& method, const Json&) -> Json {
        if (method == "run time") {
            throw platform::RuntimeError(9, "Subscript out of range", "krvList3");
        }
        if (method == "memory") {
            throw std::bad_alloc();
        }
        throw std::runtime_error("other");
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"run time"})",
                   R"({"jsonrpc":"2.0","id":2,"method":"memory"})",
                   R"({"jsonrpc":"2.0","id":3,"method":"x"})"}),
              (Lines{R"({"jsonrpc":"2.0","id":1,"error":{"code":-32000,"data":{"Description":)"
                     R"("Subscript out of range","Number":9,"Source":"krvList3"},)"
                     R"("message":"Subscript out of range"}})",
                     R"({"jsonrpc":"2.0","id":2,"error":{"code":-32000,"data":{"Description":)"
                     R"("Out of memory","Number":7,"Source":"krvList3"},)"
                     R"("message":"Out of memory"}})",
                     R"({"jsonrpc":"2.0","id":3,"error":{"code":-32603,"message":"other"}})"}));
}

TEST_F(RpcSessionTest, carries_requests_out_while_it_waits_for_an_answer) {
    handler = [this](const std::string& method, const Json&) -> Json {
        return method == "outer" ? session.ask("event", {{"n", 1}}) : Json("inner");
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"outer"})",
                   R"({"jsonrpc":"2.0","id":2,"method":"inner"})",
                   R"({"jsonrpc":"2.0","id":1,"result":"answer"})"}),
              (Lines{R"({"jsonrpc":"2.0","id":1,"method":"event","params":{"n":1}})",
                     R"({"jsonrpc":"2.0","id":2,"result":"inner"})",
                     R"({"jsonrpc":"2.0","id":1,"result":"answer"})"}));
}

TEST_F(RpcSessionTest, waits_through_nonsense_for_the_answer) {
    handler = [this](const std::string&, const Json&) { return session.ask("event", Json()); };
    const Lines written = run({R"({"jsonrpc":"2.0","id":1,"method":"outer"})",
                               R"({"jsonrpc":"2.0","id":99,"result":"to nothing"})",
                               R"({"jsonrpc":"2.0","id":"1","result":"a text"})",
                               "nonsense",
                               R"({"jsonrpc":"2.0","id":1})",
                               R"({"jsonrpc":"2.0","id":1,"result":5})",
                               R"({"jsonrpc":"2.0","id":1,"result":6})"});
    ASSERT_EQ(written.size(), 4U);
    EXPECT_EQ(Json::parse(written[1])["error"]["code"], RpcError::parse_error);
    EXPECT_EQ(Json::parse(written[2])["error"]["code"], RpcError::invalid_request);
    EXPECT_EQ(written[3], R"({"jsonrpc":"2.0","id":1,"result":5})");
}

TEST_F(RpcSessionTest, keeps_an_answer_that_comes_while_a_later_one_is_awaited) {
    handler = [this](const std::string& method, const Json&) {
        return session.ask("event", method);
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"outer"})",
                   R"({"jsonrpc":"2.0","id":2,"method":"inner"})",
                   R"({"jsonrpc":"2.0","id":1,"result":"first"})",
                   R"({"jsonrpc":"2.0","id":2,"result":"second"})"}),
              (Lines{R"({"jsonrpc":"2.0","id":1,"method":"event","params":"outer"})",
                     R"({"jsonrpc":"2.0","id":2,"method":"event","params":"inner"})",
                     R"({"jsonrpc":"2.0","id":2,"result":"second"})",
                     R"({"jsonrpc":"2.0","id":1,"result":"first"})"}));
}

TEST_F(RpcSessionTest, hands_on_an_error_as_the_answer) {
    handler = [this](const std::string&, const Json&) -> Json {
        try {
            return session.ask("event", Json());
        } catch (const ClientError& error) {
            return error.error();
        }
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"outer"})",
                   R"({"jsonrpc":"2.0","id":1,"error":{"code":5}})"})
                  .back(),
              R"({"jsonrpc":"2.0","id":1,"result":{"code":5}})");
}

TEST_F(RpcSessionTest, nests_64_requests_and_refuses_the_next_1000) {
    int answered = 0;
    int asked = 0;
    handler = [&](const std::string&, const Json&) { return session.ask("event", Json()); };
    channel.on_write = [&](const Json& message) {
        if (message.contains("method") && ++asked < 1000) {
            channel.script.push_front(R"({"jsonrpc":"2.0","id":7,"method":"again"})");
        }
        if (message.contains("error")) {
            EXPECT_EQ(message["error"]["data"]["Number"], 28);
            if (++answered < 936) {
                channel.script.push_front(R"({"jsonrpc":"2.0","id":7,"method":"again"})");
            } else {
                for (int i = 1; i <= asked; ++i) {
                    channel.script.push_back(R"({"jsonrpc":"2.0","result":0,"id":)" +
                                             std::to_string(i) + "}");
                }
            }
        }
    };
    const Lines written = run({R"({"jsonrpc":"2.0","id":7,"method":"first"})"});
    EXPECT_EQ(asked, 64);
    EXPECT_EQ(answered, 936);
    EXPECT_EQ(written.size(), 64U + 936U + 64U);
    EXPECT_EQ(session.under_way(), 0);
}

TEST_F(RpcSessionTest, unwinds_when_the_input_ends_in_the_middle) {
    bool unwound = false;
    handler = [&](const std::string&, const Json&) -> Json {
        try {
            return session.ask("event", Json());
        } catch (const std::exception&) {
            ADD_FAILURE() << "the end is no error";
            throw;
        } catch (...) {
            unwound = true;
            EXPECT_THROW(session.ask("message", Json()), SessionEnded);
            throw;
        }
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"outer"})"}).size(), 1U);
    EXPECT_TRUE(unwound);
    EXPECT_EQ(session.under_way(), 0);
}

TEST_F(RpcSessionTest, answers_the_request_that_ends_it_and_nothing_else) {
    handler = [&](const std::string& method, const Json&) -> Json {
        if (method == "outer") {
            return session.ask("event", Json());
        }
        session.end();
        return {};
    };
    EXPECT_EQ(run({R"({"jsonrpc":"2.0","id":1,"method":"outer"})",
                   R"({"jsonrpc":"2.0","id":2,"method":"end"})",
                   R"({"jsonrpc":"2.0","id":1,"result":null})"}),
              (Lines{R"({"jsonrpc":"2.0","id":1,"method":"event","params":null})",
                     R"({"jsonrpc":"2.0","id":2,"result":null})"}));
    EXPECT_TRUE(channel.ended);
}

TEST_F(RpcSessionTest, tells_without_waiting) {
    session.notify("changed", {{"name", "Cols"}});
    EXPECT_EQ(channel.written,
              Lines{R"({"jsonrpc":"2.0","method":"changed","params":{"name":"Cols"}})"});
}

} // namespace

} // namespace krv::server
