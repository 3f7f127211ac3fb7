#include "server/server_fixture.h"

#include "krv/control/automation.h"

#include <string>
#include <vector>

namespace krv::server {

namespace {

using testing::Fault;
using testing::Refusal;
using testing::ServerTest;

using Lines = std::vector<std::string>;

const Json key_65 = Json::array({65, 0});

TEST_F(ServerTest, says_what_it_is) {
    const Json answer = request("initialize");
    EXPECT_EQ(answer.at("name"), "krvList3");
    EXPECT_EQ(answer.at("backend"), "headless");
    EXPECT_FALSE(answer.at("version").get<std::string>().empty());
}

TEST_F(ServerTest, describes_the_whole_interface_in_its_order) {
    const Json answer = request("describe");
    ASSERT_EQ(answer.at("members").size(), automation::members().size());
    ASSERT_EQ(answer.at("events").size(), automation::events().size());
    std::vector<std::string> names;
    for (const Json& member : answer.at("members")) {
        names.push_back(member.at("name"));
    }
    std::vector<std::string> expected;
    for (const automation::Member& member : automation::members()) {
        expected.emplace_back(member.name);
    }
    EXPECT_EQ(names, expected);
}

TEST_F(ServerTest, describes_a_member_and_an_event_by_their_parameters) {
    const Json answer = request("describe");
    const auto named = [&](const char* list, const char* name) {
        for (const Json& entry : answer.at(list)) {
            if (entry.at("name") == name) {
                return entry;
            }
        }
        return Json();
    };
    EXPECT_EQ(named("members", "ColWidth"),
              Json::parse(R"({"name": "ColWidth", "kind": "property", "type": "Long",
                  "params": [{"name": "Index", "type": "Long", "byref": true, "optional": false}],
                  "get": true, "put": true, "putref": false})"));
    EXPECT_EQ(named("members", "Svuota"),
              Json::parse(R"({"name": "Svuota", "kind": "method", "type": null,
                  "params": [{"name": "NeverAdd", "type": "Boolean", "byref": true,
                              "optional": true}],
                  "get": false, "put": false, "putref": false})"));
    EXPECT_EQ(named("events", "KeyDown"), Json::parse(R"({"id": 1, "name": "KeyDown", "params": [
                  {"name": "KeyCode", "type": "Integer", "byref": true, "optional": false},
                  {"name": "Shift", "type": "Integer", "byref": true, "optional": false},
                  {"name": "Col", "type": "Long", "byref": false, "optional": false}]})"));
    EXPECT_EQ(answer.at("enums"),
              Json::parse(R"({"krvAlignment": {"krvauto": 0, "krvleft": 1, "krvcenter": 4,
                                               "krvright": 7},
                              "krvListRecords": {"krvListRecord": 0, "krvRec1": 1,
                                                 "krvRec2": 2}})"));
}

TEST_F(ServerTest, the_start_of_a_control_tells_nothing) {
    request("control.new", {{"id", "L1"}});
    EXPECT_EQ(client.log, Lines{});
}

TEST_F(ServerTest, gets_and_puts_members_by_name) {
    make_control();
    put("Cols", 3);
    put("Caption", "Nome", {1});
    put("ColWidth", "1200", {"1"});
    EXPECT_EQ(get("Cols"), 3);
    EXPECT_EQ(get("Caption", {1}), "Nome");
    EXPECT_EQ(get("ColWidth", {1}), 1200);
    EXPECT_EQ(get("BackColor"), 0x8000000FU);
    EXPECT_EQ(get("AutoAdd"), true);
    EXPECT_EQ(get("Recordset"), Json());
    EXPECT_EQ(client.log, (Lines{"=Cols", "=Caption", "=ColWidth"}));
}

TEST_F(ServerTest, calls_hand_back_as_many_arguments_as_they_got) {
    make_control();
    EXPECT_EQ(call("Svuota"), Json({{"value", nullptr}, {"args", Json::array()}}));
    EXPECT_EQ(call("Svuota", {1}), Json({{"value", nullptr}, {"args", {true}}}));
    EXPECT_EQ(call("SendKeys", {"65", 0}), Json({{"value", nullptr}, {"args", {"65", 0}}}));
}

// --- Events --------------------------------------------------------------------------------------

TEST_F(ServerTest, sends_only_events_that_are_listened_to) {
    request("control.new", {{"id", "L1"}});
    call("SendKeys", key_65);
    EXPECT_EQ(client.log, Lines{});
    request("listen", {{"id", "L1"}, {"events", {"RowSelect", "KeyDown"}}});
    call("SendKeys", key_65);
    EXPECT_EQ(client.log, Lines{R"(KeyDown {"Col":-1,"KeyCode":65,"Shift":0})"});
    request("listen", {{"id", "L1"}, {"events", {"RowSelect"}}});
    call("SendKeys", key_65);
    EXPECT_EQ(client.log.size(), 1U);
    EXPECT_EQ(error_of("listen", {{"id", "L1"}, {"events", {"KeyDown", "NoEvent"}}}), -32602);
    EXPECT_EQ(error_of("listen", {{"id", "L1"}, {"events", "KeyDown"}}), -32602);
    call("SendKeys", key_65);
    EXPECT_EQ(client.log.size(), 1U);
}

TEST_F(ServerTest, an_event_reaches_the_client_in_the_middle_of_its_request) {
    make_control();
    client.handlers["KeyDown"] = [this](const Json&) {
        put("Cols", 5);
        return Json({{"KeyCode", "0"}, {"Col", "by value"}, {"Other", Json::array()}});
    };
    call("SendKeys", key_65);
    EXPECT_EQ(get("Cols"), 5);
    EXPECT_EQ(client.log, (Lines{R"(KeyDown {"Col":-1,"KeyCode":65,"Shift":0})", "=Cols"}));
}

TEST_F(ServerTest, an_answer_that_is_no_object_changes_nothing) {
    make_control();
    for (const Json& answer : {Json(), Json(5), Json("x"), Json::array({1})}) {
        client.handlers["KeyDown"] = [&](const Json&) { return answer; };
        EXPECT_EQ(error_of("call", {{"id", "L1"}, {"name", "SendKeys"}, {"args", key_65}}), 0);
    }
}

TEST_F(ServerTest, a_value_that_does_not_convert_is_error_13_in_the_handler) {
    make_control();
    for (const Json& value :
         {Json(), Json("abc"), Json(70000), Json::array(), Json{{"object", "nobody"}}}) {
        client.handlers["KeyDown"] = [&](const Json&) { return Json({{"KeyCode", value}}); };
        EXPECT_EQ(error_of("call", {{"id", "L1"}, {"name", "SendKeys"}, {"args", key_65}}), 13)
            << value;
    }
}

TEST_F(ServerTest, an_error_of_the_handler_comes_out_of_the_request) {
    make_control();
    const auto fault = [this](const Json& error) {
        client.handlers["KeyDown"] = [error](const Json&) -> Json { throw Refusal{error}; };
        try {
            call("SendKeys", key_65);
        } catch (const Fault& caught) {
            return caught.error.at("data");
        }
        return Json();
    };
    EXPECT_EQ(fault({{"code", -32000},
                     {"message", "m"},
                     {"data", {{"Number", 1000}, {"Description", "d"}, {"Source", "s"}}}}),
              Json({{"Number", 1000}, {"Description", "d"}, {"Source", "s"}}));
    EXPECT_EQ(fault({{"code", -32000}, {"message", "m"}}),
              Json({{"Number", 440}, {"Description", "m"}, {"Source", "host"}}));
    EXPECT_EQ(fault({{"data", {{"Number", 1e20}, {"Description", 5}}}}),
              Json({{"Number", 440}, {"Description", "Automation error"}, {"Source", "host"}}));
    EXPECT_EQ(fault("nonsense").at("Number"), 440);
    EXPECT_EQ(fault({{"data", {{"Number", 7.0}}}}).at("Number"), 7);
    EXPECT_EQ(fault({{"data", {{"Number", 0}}}}).at("Number"), 440);
    EXPECT_EQ(get("Cols"), 1);
}

TEST_F(ServerTest, a_control_may_be_deleted_inside_its_own_event) {
    make_control();
    client.handlers["KeyDown"] = [this](const Json&) {
        request("control.delete", {{"id", "L1"}});
        make_control();
        return Json({{"KeyCode", 0}});
    };
    EXPECT_EQ(call("SendKeys", key_65).at("value"), Json());
    EXPECT_EQ(get("Cols"), 1);
    client.handlers.clear();
    call("SendKeys", key_65);
    EXPECT_EQ(client.log.size(), 1U);
}

TEST_F(ServerTest, a_control_may_be_deleted_inside_the_event_of_a_persons_key) {
    make_control();
    client.handlers["KeyDown"] = [this](const Json&) {
        request("control.delete", {{"id", "L1"}});
        return Json();
    };
    request("input.key", {{"id", "L1"}, {"code", 65}, {"shift", 0}, {"part", "Grid"}});
    EXPECT_EQ(error_of("get", {{"id", "L1"}, {"name", "Cols"}, {"args", Json::array()}}), -32602);
}

TEST_F(ServerTest, ends_while_an_event_is_unanswered) {
    make_control();
    client.send({{"jsonrpc", "2.0"},
                 {"id", 1},
                 {"method", "call"},
                 {"params", {{"id", "L1"}, {"name", "SendKeys"}, {"args", key_65}}}});
    EXPECT_EQ(client.receive().at("method"), "event");
    end();
}

TEST_F(ServerTest, shuts_down_inside_an_event) {
    make_control();
    client.handlers["KeyDown"] = [this](const Json&) { return request("shutdown"); };
    EXPECT_THROW(call("SendKeys", key_65), testing::Silence);
}

// --- Message boxes -------------------------------------------------------------------------------

TEST_F(ServerTest, shows_message_boxes_to_the_client) {
    make_control();
    Json shown;
    client.on_message = [&](const Json& message) {
        shown = message;
        return Json("ok");
    };
    put("KeyAdd", 50);
    EXPECT_EQ(shown.at("buttons"), "ok");
    EXPECT_EQ(shown.at("title"), "Rolda");
    EXPECT_EQ(client.log.size(), 1U);
}

TEST_F(ServerTest, standing_answers_keep_boxes_from_the_client) {
    make_control();
    for (const char* const text : {"*", "another"}) {
        request("answer", {{"text", text}, {"reply", "ok"}});
    }
    put("KeyAdd", 50);
    EXPECT_EQ(client.log, Lines{});
    request("answer", {{"text", "*"}, {"reply", nullptr}});
    put("KeyAdd", 50);
    EXPECT_EQ(client.log.size(), 1U);
    EXPECT_EQ(error_of("answer", {{"text", "*"}, {"reply", "maybe"}}), -32602);
    EXPECT_EQ(error_of("answer", {{"text", "*"}}), -32602);
}

TEST_F(ServerTest, nonsense_closes_a_box) {
    make_control();
    client.on_message = [](const Json&) { return Json::array({"ok"}); };
    put("KeyAdd", 50);
    EXPECT_EQ(get("KeyAdd"), 116);
}

// --- Host, parts, input --------------------------------------------------------------------------

TEST_F(ServerTest, objects_of_the_host_come_back_under_their_names) {
    make_control();
    EXPECT_EQ(request("host.object", {{"name", "uno"}, {"focusable", true}}),
              Json({{"object", "uno"}}));
    request("putref",
            {{"id", "L1"},
             {"name", "GiveFocusTo"},
             {"args", Json::array()},
             {"value", {{"object", "uno"}}}});
    EXPECT_EQ(get("GiveFocusTo"), Json({{"object", "uno"}}));
}

TEST_F(ServerTest, the_title_is_read_and_set) {
    EXPECT_EQ(request("host.title", {{"value", "Magazzino"}}), Json({{"value", "Magazzino"}}));
    EXPECT_EQ(request("host.title"), Json({{"value", "Magazzino"}}));
    make_control();
    EXPECT_EQ(request("host.title"), Json({{"value", "Rolda"}}));
}

TEST_F(ServerTest, the_region_holds_for_what_is_made_from_then_on) {
    make_control();
    request("host.region", {{"value", "en-US"}});
    request("control.new", {{"id", "L2"}});
    put("LineNumberColumn", "12,6");
    request(
        "put",
        {{"id", "L2"}, {"name", "LineNumberColumn"}, {"args", Json::array()}, {"value", "12,6"}});
    EXPECT_EQ(get("LineNumberColumn"), 13);
    EXPECT_EQ(request("get", {{"id", "L2"}, {"name", "LineNumberColumn"}, {"args", Json::array()}}),
              Json({{"value", 126}}));
    EXPECT_EQ(error_of("host.region", {{"value", "xx-YY"}}), -32602);
}

TEST_F(ServerTest, parts_show_their_own_members) {
    make_control();
    const auto names = [this](const char* part) {
        Lines result;
        const Json members = request("part", {{"id", "L1"}, {"name", part}});
        for (const auto& member : members.items()) {
            result.push_back(member.key());
        }
        return result;
    };
    EXPECT_EQ(names("control"), (Lines{"BackColor", "Focused", "FontSize", "Height", "Width"}));
    EXPECT_EQ(names("Grid"),
              (Lines{"Col",
                     "ColSel",
                     "Cols",
                     "Enabled",
                     "Focused",
                     "FontSize",
                     "Height",
                     "Left",
                     "Row",
                     "RowSel",
                     "Rows",
                     "TabStop",
                     "Top",
                     "TopRow",
                     "Visible",
                     "Width"}));
    EXPECT_EQ(names("InpFld"),
              (Lines{"Enabled",
                     "Focused",
                     "FontSize",
                     "Height",
                     "Left",
                     "MaxLength",
                     "SelLength",
                     "SelStart",
                     "TabStop",
                     "Text",
                     "Top",
                     "Visible",
                     "Width"}));
    EXPECT_EQ(names("btnAdd"),
              (Lines{"BackColor",
                     "Caption",
                     "Enabled",
                     "Focused",
                     "FontSize",
                     "Height",
                     "Left",
                     "TabStop",
                     "Top",
                     "Visible",
                     "Width"}));
    EXPECT_EQ(names("Line1"),
              (Lines{"Enabled",
                     "Focused",
                     "FontSize",
                     "Height",
                     "Left",
                     "Top",
                     "Visible",
                     "Width",
                     "X1",
                     "X2",
                     "Y1",
                     "Y2"}));
}

TEST_F(ServerTest, the_focus_moves_in_and_out) {
    make_control();
    const auto focused = [this](const char* part) {
        return request("part", {{"id", "L1"}, {"name", part}}).at("Focused");
    };
    request("host.focus", {{"id", "L1"}, {"part", "Grid"}});
    EXPECT_EQ(focused("Grid"), true);
    EXPECT_EQ(focused("control"), true);
    request("host.focus", {{"id", "L1"}, {"part", "outside"}});
    EXPECT_EQ(focused("Grid"), false);
    EXPECT_EQ(focused("control"), false);
    EXPECT_EQ(error_of("host.focus", {{"id", "L1"}, {"part", "Line1"}}), 5);
    EXPECT_EQ(error_of("host.focus", {{"id", "L1"}, {"part", "control"}}), -32602);
}

TEST_F(ServerTest, cells_come_by_raw_rows) {
    make_control();
    put("Cols", 2);
    put("Rows", 2);
    put("TextMatrix", "a", {0, 0});
    put("TextMatrix", "d", {1, 1});
    const auto rows = [this](int from, int to) {
        return request("cells", {{"id", "L1"}, {"part", "Grid"}, {"from", from}, {"to", to}})
            .at("rows");
    };
    EXPECT_EQ(rows(1, 2), Json::parse(R"([["a", ""], ["", "d"]])"));
    EXPECT_EQ(rows(2, 2), Json::parse(R"([["", "d"]])"));
    EXPECT_EQ(rows(3, 2), Json::array());
    for (const auto& [from, to] : {std::pair(0, 3), std::pair(-1, 0), std::pair(0, 2147483647)}) {
        EXPECT_EQ(error_of("cells", {{"id", "L1"}, {"part", "Grid"}, {"from", from}, {"to", to}}),
                  381);
    }
    EXPECT_EQ(error_of("cells", {{"id", "L1"}, {"part", "btnAdd"}, {"from", 0}, {"to", 0}}),
              -32602);
}

TEST_F(ServerTest, geometry_comes_by_columns_or_rows) {
    make_control();
    put("Cols", 2);
    put("Rows", 1);
    const Json grid = {{"id", "L1"}, {"part", "Grid"}};
    const auto with = [&](const char* name, const Json& value) {
        Json params = grid;
        params[name] = value;
        return params;
    };
    EXPECT_EQ(request("geometry", with("cols", true)),
              Json::parse(R"({"ColWidth": [960, 960], "ColAlignment": [9, 9],
                              "ColPos": [0, 960]})"));
    EXPECT_EQ(request("geometry", with("rows", {0, 1})),
              Json::parse(R"({"RowHeight": [240, 240], "RowPos": [0, 240]})"));
    EXPECT_EQ(error_of("geometry", with("rows", {0, 2})), 30009);
    for (const Json& rows : {Json::array({1}), Json::array({0, "1"}), Json(5)}) {
        EXPECT_EQ(error_of("geometry", with("rows", rows)), -32602) << rows;
    }
    EXPECT_EQ(error_of("geometry", with("cols", false)), -32602);
    EXPECT_EQ(error_of("geometry", grid), -32602);
}

TEST_F(ServerTest, a_click_is_a_persons) {
    make_control();
    for (const char* const action : {"press", "move", "release", "click", "dblclick"}) {
        EXPECT_EQ(error_of("input.mouse",
                           {{"id", "L1"},
                            {"part", "Grid"},
                            {"action", action},
                            {"button", 1},
                            {"shift", 0},
                            {"x", 10},
                            {"y", 10.5}}),
                  0);
    }
    EXPECT_EQ(request("part", {{"id", "L1"}, {"name", "Grid"}}).at("Focused"), true);
}

TEST_F(ServerTest, the_form_resizes_the_control) {
    make_control();
    request("host.resize", {{"id", "L1"}, {"width", 8000}, {"height", 4000.5}});
    const Json surface = request("part", {{"id", "L1"}, {"name", "control"}});
    EXPECT_EQ(surface.at("Width"), 8000);
    EXPECT_EQ(surface.at("Height"), 4000.5);
    EXPECT_EQ(error_of("host.resize", {{"id", "L1"}, {"width", 1e39}, {"height", 1}}), -32602);
}

// --- Values --------------------------------------------------------------------------------------

TEST_F(ServerTest, converts_values_as_the_control_does) {
    const auto converted = [this](const char* function,
                                  const char* kind,
                                  const Json& value,
                                  const Json& pattern = Json()) {
        return request("value.convert",
                       {{"function", function},
                        {"value", {{"kind", kind}, {"value", value}}},
                        {"pattern", pattern}});
    };
    EXPECT_EQ(converted("Format", "Double", "1234.5", "#,##0.00"), Json({{"text", "1.234,50"}}));
    EXPECT_EQ(converted("Format", "Double", "1234.5"), Json({{"text", "1234,5"}}));
    EXPECT_EQ(converted("CStr", "Boolean", "true"), Json({{"text", "True"}}));
    EXPECT_EQ(converted("Str", "Double", "0.5"), Json({{"text", " .5"}}));
    EXPECT_EQ(converted("Val", "String", "1,5"), Json({{"number", 1.0}}));
    EXPECT_EQ(converted("Val", "Double", "1.5"), Json({{"number", 1.0}}));
    EXPECT_EQ(converted("CInt", "String", "12,5"), Json({{"number", 12}}));
    EXPECT_EQ(converted("CLng", "Double", "1.5"), Json({{"number", 2}}));
    EXPECT_EQ(converted("CDbl", "Currency", "1.2345"), Json({{"number", 1.2345}}));
    EXPECT_EQ(converted("CCur", "String", "1,23455"), Json({{"number", 1.2346}}));
    EXPECT_EQ(converted("CDate", "Double", "36526.75"), Json({{"date", "2000-01-01 18:00:00"}}));
}

TEST_F(ServerTest, refuses_values_that_do_not_convert) {
    const auto error = [this](const char* function, const Json& value) {
        return error_of("value.convert", {{"function", function}, {"value", value}});
    };
    EXPECT_EQ(error("CInt", {{"kind", "Null"}}), 94);
    EXPECT_EQ(error("CInt", {{"kind", "Long"}, {"value", "32768"}}), 6);
    EXPECT_EQ(error("CInt", {{"kind", "String"}, {"value", "abc"}}), 13);
    EXPECT_EQ(error("CInt", {{"kind", "Long"}}), -32602);
    EXPECT_EQ(error("CInt", {{"kind", "Long"}, {"value", "x"}}), -32602);
    EXPECT_EQ(error("CInt", "5"), -32602);
    EXPECT_EQ(error("CVar", {{"kind", "Null"}}), -32602);
}

} // namespace

} // namespace krv::server
