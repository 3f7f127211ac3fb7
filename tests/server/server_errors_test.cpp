#include "server/server_fixture.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace krv::server {

namespace {

using testing::ServerTest;

Json member(const char* name, Json args = Json::array()) {
    return {{"id", "L1"}, {"name", name}, {"args", std::move(args)}};
}

Json member_put(const char* name, Json value, Json args = Json::array()) {
    Json params = member(name, std::move(args));
    params["value"] = std::move(value);
    return params;
}

TEST_F(ServerTest, unknown_methods_are_refused) {
    EXPECT_EQ(error_of("control.nothing"), -32601);
    EXPECT_EQ(error_of(""), -32601);
    EXPECT_EQ(error_of("Initialize"), -32601);
}

TEST_F(ServerTest, parameters_that_are_missing_or_of_another_kind_change_nothing) {
    make_control();
    const std::vector<std::pair<std::string, Json>> requests = {
        {"control.new", Json::object()},
        {"control.new", {{"id", 5}}},
        {"control.delete", {{"id", "L9"}}},
        {"get", {{"id", "L9"}, {"name", "Cols"}, {"args", Json::array()}}},
        {"get", {{"id", "L1"}, {"args", Json::array()}}},
        {"get", {{"id", "L1"}, {"name", "Cols"}}},
        {"get", {{"id", "L1"}, {"name", "Cols"}, {"args", 0}}},
        {"put", member("Cols")},
        {"putref", member("Recordset")},
        {"call", {{"id", "L1"}, {"name", 1}, {"args", Json::array()}}},
        {"listen", {{"id", "L1"}}},
        {"host.title", {{"value", 1}}},
        {"host.resize", {{"id", "L1"}, {"width", "1"}, {"height", 1}}},
        {"host.focus", {{"id", "L1"}, {"part", "btnNone"}}},
        {"host.focus", {{"id", "L9"}, {"part", "outside"}}},
        {"host.focus", {{"part", "Grid"}}},
        {"host.object", {{"name", "uno"}, {"focusable", 1}}},
        {"input.key", {{"id", "L1"}, {"code", 65.5}, {"shift", 0}}},
        {"input.key", {{"id", "L1"}, {"code", 65536}, {"shift", 0}}},
        {"input.key", {{"id", "L1"}, {"code", 65}}},
        {"input.key", {{"id", "L1"}, {"code", 65}, {"shift", 0}, {"part", "control"}}},
        {"input.text", {{"id", "L1"}, {"text", 5}}},
        {"input.mouse",
         {{"id", "L1"},
          {"part", "Grid"},
          {"action", "tap"},
          {"button", 1},
          {"shift", 0},
          {"x", 1},
          {"y", 1}}},
        {"part", {{"id", "L1"}, {"name", "grid"}}},
        {"data.state", Json::object()},
        {"data.read", {{"object", 5}, {"max", 1}}},
        {"data.execute", {{"connect", "x"}, {"sql", "y"}, {"params", {Json::array()}}}},
    };
    for (const auto& [method, params] : requests) {
        EXPECT_EQ(error_of(method, params), -32602) << method << params;
    }
    EXPECT_EQ(client.log, std::vector<std::string>{});
    EXPECT_EQ(get("Cols"), 1);
}

TEST_F(ServerTest, members_are_checked_before_their_values) {
    make_control();
    const Json unknown_object = {{"object", "nobody"}};
    EXPECT_EQ(error_of("get", member("Nonesiste", {unknown_object})), 438);
    EXPECT_EQ(error_of("get", member("Refresh")), 438);
    EXPECT_EQ(error_of("call", member("Cols")), 438);
    EXPECT_EQ(error_of("get", member("Caption")), 450);
    EXPECT_EQ(error_of("get", member("Cols", {unknown_object})), 450);
    EXPECT_EQ(error_of("put", member_put("Adding", unknown_object)), 383);
    EXPECT_EQ(error_of("put", member_put("Recordset", nullptr)), 383);
    EXPECT_EQ(error_of("putref", member_put("Cols", unknown_object)), 438);
    EXPECT_EQ(error_of("put", member_put("Cols", unknown_object)), 424);
    EXPECT_EQ(error_of("putref", member_put("GiveFocusTo", unknown_object)), 424);
    EXPECT_EQ(error_of("put", member_put("Cols", Json::array({1}))), 13);
    EXPECT_EQ(error_of("put", member_put("Cols", Json::object())), 13);
    EXPECT_EQ(error_of("put", member_put("Cols", nullptr)), 13);
    EXPECT_EQ(error_of("put", member_put("Cols", 1e10)), 6);
    EXPECT_EQ(error_of("put", member_put("ColFieldLength", 40000, {0})), 6);
    EXPECT_EQ(error_of("get", member("ColFormat", {1})), 9);
    EXPECT_EQ(client.log, std::vector<std::string>{});
}

TEST_F(ServerTest, a_second_control_of_an_id_fails_with_457) {
    make_control();
    EXPECT_EQ(error_of("control.new", {{"id", "L1"}}), 457);
}

TEST_F(ServerTest, unknown_data_is_refused_as_the_data_layer_does) {
    EXPECT_EQ(error_of("data.state", {{"object", "rs1"}}), 424);
    request("host.object", {{"name", "uno"}, {"focusable", false}});
    EXPECT_EQ(error_of("data.state", {{"object", "uno"}}), 13);
    EXPECT_EQ(error_of("data.open",
                       {{"connect", "Provider=None"}, {"source", "t"}, {"cursor", 0}, {"lock", 1}}),
              3706);
}

TEST_F(ServerTest, requests_nested_deeper_than_64_fail_with_28) {
    make_control();
    int depth = 0;
    std::vector<int> errors;
    client.handlers["KeyDown"] = [&](const Json&) {
        if (++depth < 1000) {
            const int error = error_of("call", member("SendKeys", {65, 0}));
            if (error != 0) {
                errors.push_back(error);
            }
        }
        return Json();
    };
    call("SendKeys", {65, 0});
    EXPECT_EQ(depth, 64);
    EXPECT_EQ(errors, std::vector<int>{28});
    EXPECT_EQ(get("Cols"), 1);
}

// --- Noise ---------------------------------------------------------------------------------------

/// Lines that were requests before somebody fell over them.
std::string damaged(const std::string& line, std::mt19937& random) {
    const auto below = [&](std::size_t limit) {
        return static_cast<std::size_t>(random() % limit);
    };
    std::string text = line;
    for (std::size_t i = 0; i <= below(4); ++i) {
        const std::size_t at = below(text.size());
        switch (below(4)) {
        case 0:
            text.erase(at, 1 + below(5));
            break;
        case 1:
            text.insert(at, 1, static_cast<char>(random()));
            break;
        case 2:
            text[at] = static_cast<char>(random());
            break;
        default:
            text.insert(at, text.substr(below(text.size()), below(20)));
        }
        text += ' ';
    }
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

TEST_F(ServerTest, damaged_lines_never_stop_it) {
    make_control();
    constexpr std::array<std::string_view, 6> lines = {
        R"({"jsonrpc":"2.0","id":7,"method":"get","params":{"id":"L1","name":"Cols","args":[]}})",
        R"({"jsonrpc":"2.0","id":7,"method":"put","params":{"id":"L1","name":"Caption","args":[0],"value":"x"}})",
        R"({"jsonrpc":"2.0","id":7,"method":"call","params":{"id":"L1","name":"Svuota","args":[true]}})",
        R"({"jsonrpc":"2.0","id":7,"method":"cells","params":{"id":"L1","part":"Grid","from":0,"to":0}})",
        R"({"jsonrpc":"2.0","id":7,"method":"value.convert","params":{"function":"Format","value":{"kind":"Double","value":"1.5"},"pattern":"0.00"}})",
        R"({"jsonrpc":"2.0","id":7,"method":"part","params":{"id":"L1","name":"Grid"}})",
    };
    std::mt19937 random(20240507);
    for (int round = 0; round < 2000; ++round) {
        client.send_line(damaged(std::string(lines.at(random() % lines.size())), random));
        // A line may have become a notification or an answer to nothing; this one is answered.
        client.send({{"jsonrpc", "2.0"}, {"id", "mark"}, {"method", "initialize"}});
        while (client.receive().value("id", Json()).dump() != R"("mark")") {
        }
    }
    request("put", member_put("LineNumberColumn", 3));
    EXPECT_EQ(get("LineNumberColumn"), 3);
}

TEST_F(ServerTest, goes_on_after_lines_without_end_and_depths_without_end) {
    client.send_line(std::string(100'000'000, '['));
    EXPECT_EQ(client.receive().at("error").at("code"), -32600);
    client.send_line(std::string(10'000'000, '['));
    EXPECT_EQ(client.receive().at("error").at("code"), -32700);
    client.send_line(R"({"jsonrpc":"2.0","id":1,"method":"x","params":)" + std::string(1000, '[') +
                     std::string(1000, ']') + "}");
    EXPECT_EQ(client.receive().at("error").at("code"), -32700);
    EXPECT_EQ(request("initialize").at("name"), "krvList3");
}

} // namespace

} // namespace krv::server
