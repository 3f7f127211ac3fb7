#include "server/server_fixture.h"
#include "support/sqlite_file.h"
#include "support/temporary_folder.h"

#include <string>

namespace krv::server {

namespace {

/// A file with the table `persone` of three rows.
class ServerDataTest : public testing::ServerTest {
protected:
    ServerDataTest() {
        krv::testing::OtherProcess(path_).run(
            "CREATE TABLE persone (id INTEGER, nome TEXT, nato DATE, quota DECIMAL(10,2), foto "
            "BLOB);"
            "INSERT INTO persone VALUES (1, 'Anna', '1980-05-01', 1.5, x'00ff'),"
            " (2, 'Bo', NULL, NULL, NULL), (9007199254740993, '', NULL, NULL, NULL);");
    }

    Json open(const std::string& source = "persone", int cursor = 2, int lock = 2) {
        return request(
            "data.open",
            {{"connect", connect}, {"source", source}, {"cursor", cursor}, {"lock", lock}});
    }

    Json execute(const std::string& sql, Json params = Json::array()) {
        return request("data.execute",
                       {{"connect", connect}, {"sql", sql}, {"params", std::move(params)}});
    }

private:
    krv::testing::TemporaryFolder folder_;
    std::string path_ = folder_.file("persone.db");

protected:
    std::string connect = "Provider=SQLite;Data Source=" + path_;
};

TEST_F(ServerDataTest, recordsets_are_named_in_their_order) {
    EXPECT_EQ(open(), Json({{"object", "rs1"}}));
    EXPECT_EQ(open(), Json({{"object", "rs2"}}));
}

TEST_F(ServerDataTest, state_shows_what_was_asked_for) {
    const Json state = request("data.state", open("SELECT id, nome FROM persone"));
    EXPECT_EQ(state.at("State"), 1);
    EXPECT_EQ(state.at("EOF"), false);
    EXPECT_EQ(state.at("Source"), "SELECT id, nome FROM persone");
    EXPECT_EQ(state.at("CursorType"), 2);
    EXPECT_EQ(state.at("LockType"), 2);
    ASSERT_EQ(state.at("Fields").size(), 2U);
    EXPECT_EQ(state.at("Fields")[1].at("Name"), "nome");
    EXPECT_EQ(state.at("Fields")[1].at("Value"), "Anna");
}

TEST_F(ServerDataTest, a_closed_recordset_is_at_its_end) {
    make_control();
    Json params = open();
    request("putref",
            {{"id", "L1"}, {"name", "Recordset"}, {"args", Json::array()}, {"value", params}});
    request("call", {{"id", "L1"}, {"name", "CloseAll"}, {"args", Json::array()}});
    EXPECT_EQ(request("data.state", params).at("EOF"), true);
    params["max"] = 5;
    EXPECT_EQ(request("data.read", params), Json({{"rows", Json::array()}, {"EOF", true}}));
}

TEST_F(ServerDataTest, reads_typed_rows_bit_by_bit) {
    Json params = open();
    params["max"] = 1;
    const Json first = request("data.read", params);
    EXPECT_EQ(first.at("rows"),
              Json::parse(R"([[1, "Anna", {"date": "1980-05-01 00:00:00"}, {"decimal": "1.5"},
                               {"hex": "00ff"}]])"));
    EXPECT_EQ(first.at("EOF"), false);
    params["max"] = 0;
    EXPECT_EQ(request("data.read", params), Json({{"rows", Json::array()}, {"EOF", false}}));
    params["max"] = 10;
    const Json rest = request("data.read", params);
    EXPECT_EQ(rest.at("rows"), Json::parse(R"([[2, "Bo", null, null, null],
                              [{"decimal": "9007199254740993"}, "", null, null, null]])"));
    EXPECT_EQ(rest.at("EOF"), true);
    const Json state = request("data.state", params);
    EXPECT_EQ(state.at("EOF"), true);
    EXPECT_EQ(state.at("Fields")[0].at("Value"), Json());
}

TEST_F(ServerDataTest, executes_with_parameters_bound) {
    EXPECT_EQ(execute("SELECT nome FROM persone WHERE nome = ?", {"Anna' OR 1=1 --"}),
              Json({{"affected", 0}, {"rows", Json::array()}}));
    EXPECT_EQ(execute("UPDATE persone SET nome = ? WHERE id < ?", {"x", 3}),
              Json({{"affected", 2}, {"rows", Json::array()}}));
    EXPECT_EQ(execute("SELECT nome FROM persone WHERE id = ?", {{{"decimal", "9007199254740993"}}})
                  .at("rows"),
              Json::parse(R"([[""]])"));
    EXPECT_EQ(execute("SELECT id FROM persone WHERE foto = ?", {{{"hex", "00ff"}}}).at("rows"),
              Json::parse("[[1]]"));
}

TEST_F(ServerDataTest, errors_of_the_data_layer_keep_their_numbers) {
    const Json wanted = {{"connect", connect}, {"source", "niente"}, {"cursor", 0}, {"lock", 1}};
    EXPECT_EQ(error_of("data.open", wanted), -2147217865);
    EXPECT_EQ(error_of("data.execute",
                       {{"connect", connect}, {"sql", "SELEC"}, {"params", Json::array()}}),
              -2147217900);
    EXPECT_EQ(error_of("data.open",
                       {{"connect", connect}, {"source", "persone"}, {"cursor", 9}, {"lock", 1}}),
              3001);
    Json params = {{"object", "rs1"}, {"max", 1}};
    EXPECT_EQ(error_of("data.read", params), 424);
}

TEST_F(ServerDataTest, the_controls_recordset_has_a_name_of_its_own) {
    make_control();
    const Json own = open();
    put("Connect", connect);
    put("Recordsource", "persone");
    put("ColDataField", "nome", {0});
    call("Refresh");
    const Json recordset = get("Recordset");
    EXPECT_NE(recordset, own);
    EXPECT_EQ(get("Recordset"), recordset);
    EXPECT_EQ(request("data.state", recordset).at("LockType"), 2);
    EXPECT_EQ(request("cells", {{"id", "L1"}, {"part", "Grid"}, {"from", 1}, {"to", 3}}).at("rows"),
              Json::parse(R"([["Anna"], ["Bo"], [""]])"));
    call("CloseAll");
    const Json closed = request("data.state", recordset);
    EXPECT_EQ(closed.at("State"), 0);
    EXPECT_EQ(closed.at("EOF"), true);
    EXPECT_FALSE(closed.contains("Fields"));
}

TEST_F(ServerDataTest, a_control_takes_the_hosts_recordset) {
    make_control();
    const Json own = open();
    request("putref",
            {{"id", "L1"}, {"name", "Recordset"}, {"args", Json::array()}, {"value", own}});
    EXPECT_EQ(get("Recordset"), own);
    EXPECT_EQ(error_of("host.object", {{"name", "rs1"}, {"focusable", true}}), 457);
}

} // namespace

} // namespace krv::server
