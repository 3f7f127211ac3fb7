#include "providers/sqlite_fixture.h"

#include <unistd.h>

namespace krv::providers {
namespace {

using krv::testing::error_number_of;
using krv::testing::OtherProcess;
using krv::testing::read_file;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

class SqliteFile : public SqliteTest {
protected:
    std::int32_t open_error(const std::string& connection_string) {
        return error_number_of(
            [&] { access.CreateConnection()->Open(connection_string, "", "", -1); });
    }

    std::string text_of_error(const std::string& connection_string) {
        try {
            access.CreateConnection()->Open(connection_string, "", "", -1);
        } catch (const standard::DataError& error) {
            return error.description();
        }
        return {};
    }

    std::string string_for(const std::string& name) {
        return "Provider=SQLite;Data Source=" + path(name);
    }

    Texts files() {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
};

TEST_F(SqliteFile, the_Jet_string_opens_an_SQLite_file_of_any_name) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1)", "dati.mdb");
    auto connection = access.CreateConnection();
    connection->Open(
        "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=" + path("dati.mdb") + ";", "", "", -1);
    EXPECT_EQ(shown(open("t", connection)->Fields().Item("a").Value()), "Long 1");
}

TEST_F(SqliteFile, a_missing_file_is_never_created) {
    EXPECT_EQ(open_error(string_for("manca.db")), -2147467259);
    EXPECT_EQ(open_error(string_for("manca.db") + ";Mode=Read"), -2147467259);
    EXPECT_EQ(open_error("Provider=SQLite;Data Source=" + path("manca/manca.db")), -2147467259);
    EXPECT_THAT(files(), ElementsAre());
}

TEST_F(SqliteFile, SQLites_special_names_are_names_of_files_that_are_missing) {
    for (const std::string& name : {std::string(":memory:"),
                                    "file:" + path("neu.db") + "?mode=rwc",
                                    std::string(),
                                    std::string("file::memory:")}) {
        EXPECT_EQ(open_error("Provider=SQLite;Data Source=" + name), -2147467259) << name;
    }
    EXPECT_THAT(files(), ElementsAre());
}

TEST_F(SqliteFile, what_is_no_database_fails_in_Open_and_stays_as_it_is) {
    const std::string text = "just a text that is longer than a header of SQLite";
    folder.write("text.mdb", text);
    EXPECT_EQ(open_error(string_for("text.mdb")), -2147467259);
    EXPECT_THAT(text_of_error(string_for("text.mdb")), HasSubstr("no SQLite database"));
    EXPECT_EQ(read_file(path("text.mdb")), text);
    EXPECT_THAT(text_of_error("Provider=SQLite;Data Source=" + folder.path().string()),
                HasSubstr("directory"));
    EXPECT_THAT(files(), ElementsAre("text.mdb"));
}

TEST_F(SqliteFile, a_right_header_before_nonsense_fails_in_Open) {
    const std::string bytes = std::string("SQLite format 3\0", 16) + std::string(2000, 'x');
    folder.write("falso.db", bytes);
    EXPECT_EQ(open_error(string_for("falso.db")), -2147467259);
    EXPECT_EQ(read_file(path("falso.db")), bytes);
}

TEST_F(SqliteFile, an_empty_file_is_a_database_without_tables_to_SQLite_alone) {
    folder.write("vuoto.db", "");
    auto connection = connect("", "vuoto.db");
    EXPECT_EQ(error_number_of([&] { open("t", connection); }), -2147217865);
    EXPECT_EQ(open_error("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path("vuoto.db")),
              -2147467259);
    EXPECT_EQ(read_file(path("vuoto.db")), "");
}

TEST_F(SqliteFile, reading_never_writes_the_file_and_leaves_no_other) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1), (2), (3)");
    const auto old = std::filesystem::last_write_time(path()) - std::chrono::hours(1);
    std::filesystem::last_write_time(path(), old);
    const auto before = read_file(path());
    cells("t");
    cells("select * from t order by a desc");
    EXPECT_EQ(read_file(path()), before);
    EXPECT_TRUE(std::filesystem::last_write_time(path()) == old);
    EXPECT_THAT(files(), ElementsAre("dati.db"));
}

TEST_F(SqliteFile, reading_a_database_with_a_write_ahead_log_leaves_no_other_file) {
    make("PRAGMA journal_mode = WAL; CREATE TABLE t (a); INSERT INTO t VALUES (1)");
    const auto before = read_file(path());
    EXPECT_THAT(cells("t"), ElementsAre("Long 1"));
    EXPECT_EQ(read_file(path()), before);
    EXPECT_THAT(files(), ElementsAre("dati.db"));
}

TEST_F(SqliteFile, Mode_Read_forbids_the_host_to_write) {
    make("CREATE TABLE t (a)");
    for (const char* mode : {"Mode=Read", "mode=Share Deny None | read"}) {
        auto connection = connect(mode);
        EXPECT_EQ(error_number_of([&] { connection->Execute("INSERT INTO t VALUES (1)", {}); }),
                  -2147467259)
            << mode;
    }
    connect("Mode=ReadWrite")->Execute("INSERT INTO t VALUES (1)", {});
    EXPECT_THAT(cells("t"), ElementsAre("Long 1"));
}

TEST_F(SqliteFile, a_file_that_may_only_be_read_opens_for_reading) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1)");
    if (geteuid() == 0) {
        GTEST_SKIP() << "the superuser may write every file, so there is nothing to see";
    }
    std::filesystem::permissions(path(), std::filesystem::perms::owner_read);
    EXPECT_THAT(cells("t"), ElementsAre("Long 1"));
}

TEST_F(SqliteFile, a_lock_of_others_is_waited_for_and_then_an_error) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1)");
    auto connection = connect("Busy Timeout=20");
    OtherProcess other(path());
    other.run("BEGIN EXCLUSIVE");
    EXPECT_EQ(error_number_of([&] { open("t", connection); }), -2147467259);
    EXPECT_EQ(open_error(string_for("dati.db") + ";Busy Timeout=20"), -2147467259);
    try {
        open("select * from t", connection);
        FAIL();
    } catch (const standard::DataError& error) {
        EXPECT_EQ(error.native_code() & 0xFF, SQLITE_BUSY);
        EXPECT_THAT(error.description(), HasSubstr("locked"));
    }
    other.run("COMMIT");
    EXPECT_EQ(shown(open("t", connection)->Fields().Item(0).Value()), "Long 1");
}

TEST_F(SqliteFile, a_busy_timeout_that_is_no_number_is_malformed) {
    make("CREATE TABLE t (a)");
    for (const char* value : {"x", "-1", "1.5", "99999999999"}) {
        EXPECT_EQ(open_error(string_for("dati.db") + ";Busy Timeout=" + value), -2147217805)
            << value;
    }
    EXPECT_EQ(open_error(string_for("dati.db") + ";Busy Timeout=0"), 0);
}

TEST_F(SqliteFile, a_recordset_at_its_end_no_longer_holds_a_writer_off) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1), (2)");
    auto records = open("t");
    OtherProcess other(path());
    EXPECT_THROW(other.run("BEGIN EXCLUSIVE"), std::runtime_error);
    records->MoveNext();
    records->MoveNext();
    EXPECT_TRUE(records->Eof());
    other.run("BEGIN EXCLUSIVE; DELETE FROM t; COMMIT");
    EXPECT_EQ(records->State(), 1);
}

TEST_F(SqliteFile, a_recordset_closed_half_way_no_longer_holds_a_writer_off) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1), (2)");
    auto records = open("t");
    records->Close();
    OtherProcess(path()).run("BEGIN EXCLUSIVE; DELETE FROM t; COMMIT");
    EXPECT_THAT(cells("t"), ElementsAre());
}

TEST_F(SqliteFile, a_database_that_breaks_off_half_way_is_an_error_and_no_short_list) {
    make("PRAGMA page_size = 512; CREATE TABLE t (a TEXT);"
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
         "INSERT INTO t SELECT 'some text to fill the page ' || i FROM n");
    std::string bytes = read_file(path());
    for (std::size_t at = bytes.size() / 2; at < bytes.size(); ++at) {
        bytes[at] = '\x5A';
    }
    folder.write("dati.db", bytes);
    auto records = open("t");
    const auto number = error_number_of([&] {
        while (!records->Eof()) {
            records->MoveNext();
        }
    });
    EXPECT_EQ(number, -2147467259);
    EXPECT_FALSE(records->Eof());
    records->Close();
}

TEST_F(SqliteFile, two_recordsets_read_at_the_same_time) {
    make("CREATE TABLE t (a); INSERT INTO t VALUES (1), (2)");
    const auto connection = connect();
    auto first = open("t", connection);
    auto second = open("t", connection);
    first->MoveNext();
    EXPECT_EQ(shown(first->Fields().Item(0).Value()), "Long 2");
    EXPECT_EQ(shown(second->Fields().Item(0).Value()), "Long 1");
}

TEST_F(SqliteFile, a_view_of_a_hostile_file_cannot_use_dangerous_functions) {
    make("CREATE TABLE t (a); CREATE VIEW v AS SELECT load_extension('x') FROM t");
    EXPECT_EQ(source_error("v"), -2147217900);
}

} // namespace
} // namespace krv::providers
