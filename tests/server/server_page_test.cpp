#include "server/server_fixture.h"

#include <algorithm>
#include <string>
#include <vector>

namespace krv::server {

namespace {

using testing::ServerTest;
using Lines = std::vector<std::string>;

const std::string erase = "this will erase some of the existing columns. confirm?";

class ServerPageTest : public ServerTest {
protected:
    /// The page on a control of so many columns.
    void open(int cols = 3) {
        make_control();
        put("Cols", cols);
        request("page.open", {{"ids", {"L1"}}});
        client.log.clear();
    }

    void type(const std::string& name, const std::string& text) {
        request("page.text", {{"name", name}, {"text", text}});
    }

    Json part(const std::string& name) { return request("page.part", {{"name", name}}); }

    /// Sends the request without waiting for its end; the question that comes of it.
    Json ask(const std::string& method, Json params) {
        client.send({{"jsonrpc", "2.0"},
                     {"id", "open"},
                     {"method", method},
                     {"params", std::move(params)}});
        for (;;) {
            Json message = client.receive();
            if (message.contains("id")) {
                return message;
            }
        }
    }
};

TEST_F(ServerPageTest, without_an_open_page_everything_is_error_91) {
    make_control();
    const Json named = {{"name", "txtCols"}, {"text", "1"}, {"index", 1}};
    for (const char* const method : {"page.part",
                                     "page.state",
                                     "page.enter",
                                     "page.leave",
                                     "page.text",
                                     "page.click",
                                     "page.dblclick",
                                     "page.apply"}) {
        EXPECT_EQ(error_of(method, named), 91) << method;
    }
    EXPECT_EQ(error_of("page.select", {{"ids", {"L1"}}}), 91);
    EXPECT_EQ(error_of("page.open", {{"ids", {"L2"}}}), -32602);
    EXPECT_EQ(error_of("page.state"), 91);
    EXPECT_EQ(client.log, Lines{});
}

TEST_F(ServerPageTest, a_page_that_is_opened_on_nothing_stays_open) {
    EXPECT_EQ(error_of("page.open", {{"ids", Json::array()}}), 9);
    EXPECT_EQ(
        part("TabStrip1"),
        (Json{
            {"Tabs", Json::array()}, {"SelectedItem", 0}, {"Enabled", true}, {"Focused", false}}));
}

TEST_F(ServerPageTest, describes_every_kind_of_editor) {
    open(2);
    put("Caption", "Nome", {0});
    request("page.select", {{"ids", {"L1"}}});
    request("page.enter", {{"name", "txtCaption"}});
    EXPECT_EQ(part("txtCaption"), (Json{{"Text", "Nome"}, {"Enabled", true}, {"Focused", true}}));
    EXPECT_EQ(part("chkAutoAdd"), (Json{{"Value", 1}, {"Enabled", true}, {"Focused", false}}));
    EXPECT_EQ(part("cmbAlignment"),
              (Json{{"Text", "Auto align"},
                    {"ListIndex", 0},
                    {"List", {"Auto align", "Left align", "Right align", "Center align"}},
                    {"ItemData", {0, 0, 0, 0}},
                    {"Enabled", true},
                    {"Focused", false}}));
    EXPECT_EQ(part("TabStrip1"),
              (Json{{"Tabs", {"col0", "col1"}},
                    {"SelectedItem", 1},
                    {"Enabled", true},
                    {"Focused", false}}));
}

TEST_F(ServerPageTest, holds_the_nine_arrays) {
    open(2);
    put("ColEditable", false, {0});
    put("ColEditable", true, {1});
    put("ColAlignment", 7, {1});
    put("Caption", "Nome", {1});
    request("page.select", {{"ids", {"L1"}}});
    const Json state = request("page.state");
    EXPECT_EQ(state.at("Changed"), false);
    EXPECT_EQ(state.at("pageDataOpen"), false);
    const int width = get("ColWidth", {0});
    EXPECT_EQ(state.at("arrays"),
              (Json{{"colWidths", {width, width}},
                    {"colAlignments", {0, 7}},
                    {"colCaptions", {"", "Nome"}},
                    {"colEditable", {false, true}},
                    {"colDataFields", {"", ""}},
                    {"colFieldTypes", {0, 0}},
                    {"colNecessary", {false, false}},
                    {"colFormats", {"", ""}},
                    {"colFieldLengths", {0, 0}}}));
}

TEST_F(ServerPageTest, tells_whenever_the_page_marks_itself) {
    open();
    type("txtRows", "4");
    type("txtRows", "5");
    EXPECT_EQ(client.log, (Lines{"=page", "=page"}));
    EXPECT_EQ(request("page.state").at("Changed"), true);
}

TEST_F(ServerPageTest, asks_for_the_file) {
    open();
    client.on_file = [](const Json&) { return Json{{"file", "c:\\db.mdb"}}; };
    request("page.dblclick", {{"name", "txtDataBaseName"}});
    EXPECT_EQ(
        client.log,
        (Lines{R"({"filter":"*.mdb","folder":"c:\\","title":"Selezione DataBase"})", "=page"}));
    EXPECT_EQ(part("txtDataBaseName").at("Text"), "c:\\db.mdb");
}

TEST_F(ServerPageTest, an_answer_without_a_file_cancels_the_dialog) {
    open();
    type("txtDataBaseName", "old.mdb");
    for (const Json& answer :
         {Json(), Json::object(), Json("x"), Json{{"file", nullptr}}, Json{{"file", 3}}}) {
        client.on_file = [&](const Json&) { return answer; };
        request("page.dblclick", {{"name", "txtDataBaseName"}});
        EXPECT_EQ(part("txtDataBaseName").at("Text"), "old.mdb") << answer;
    }
}

TEST_F(ServerPageTest, a_request_about_the_page_gives_a_turn) {
    open(2);
    put("AutoStartInputOnClick", false);
    put("OkVisible", false);
    put("AutoAdd", false);
    put("Rows", 9);
    put("Row", 8);
    client.log.clear();
    put("Rows", 6); // the current row is clamped; that waits
    const auto events = [&] {
        return std::count_if(client.log.begin(), client.log.end(), [](const std::string& line) {
            return line.starts_with("RowSelect");
        });
    };
    EXPECT_EQ(events(), 0);
    part("txtCols");
    EXPECT_EQ(events(), 1);
    put("Rows", 3);
    request("page.state");
    EXPECT_EQ(events(), 2);
}

TEST_F(ServerPageTest, ends_while_a_question_of_the_page_is_unanswered) {
    open();
    type("txtCols", "1");
    EXPECT_EQ(ask("page.click", {{"name", "TabStrip1"}, {"index", 2}}).at("params").at("text"),
              erase);
    end();
}

TEST_F(ServerPageTest, ends_while_a_file_is_asked_for) {
    open();
    EXPECT_EQ(ask("page.dblclick", {{"name", "txtDataBaseName"}}).at("method"), "openfile");
    end();
}

TEST_F(ServerPageTest, shuts_down_inside_a_question_of_the_page) {
    open();
    type("txtCols", "1");
    client.on_message = [this](const Json&) { return request("shutdown"); };
    EXPECT_THROW(request("page.apply"), testing::Silence);
}

TEST_F(ServerPageTest, ends_with_a_page_whose_control_is_gone) {
    open();
    request("control.delete", {{"id", "L1"}});
    EXPECT_EQ(error_of("page.apply"), 91);
    end();
}

} // namespace

} // namespace krv::server
