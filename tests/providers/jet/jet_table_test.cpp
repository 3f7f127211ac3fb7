#include "big_table.h"
#include "jet_fixture.h"
#include "jet_writer.h"

namespace krv::providers {
namespace {

using standard::TableName;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::unique_ptr<standard::ProviderCursor> open_table(standard::ProviderConnection& connection,
                                                     const std::string& name) {
    return connection.open_table({name});
}

TEST_F(JetTest, types_and_sizes_are_those_of_the_classic_provider) {
    const auto connection = open(sample());
    EXPECT_THAT(fields(*open_table(*connection, "Tipi")),
                ElementsAre("fByte 17 1",
                            "fInteger 2 2",
                            "fLong 3 4",
                            "fSingle 4 4",
                            "fDouble 5 8",
                            "fCurrency 6 8",
                            "fDecimal 131 19",
                            "fDate 7 8",
                            "fText50 202 50",
                            "fText255 202 255",
                            "fMemo 203 536870910",
                            "fYesNo 11 2",
                            "fGuid 72 16",
                            "fBinary 204 32",
                            "fOle 205 2147483647"));
}

TEST_F(JetTest, every_type_is_exact_at_its_limits) {
    const auto connection = open(sample());
    const auto found = rows(*open_table(*connection, "Tipi"));
    ASSERT_EQ(found.size(), 5U);
    EXPECT_EQ(Texts(found[0].begin(), found[0].begin() + 9),
              (Texts{"Byte 255",
                     "Integer -32768",
                     "Long -2147483648",
                     "Single -1.5",
                     "Double 0.10000000000000001",
                     "Currency -9223372036854775808",
                     "Decimal 66926059:7888470979807495445e-10",
                     "Date 0",
                     "''"}));
    EXPECT_EQ(found[1][3], "Single 3.40282347e+38");
    EXPECT_EQ(found[1][4], "Double 1.7976931348623157e+308");
    EXPECT_EQ(found[1][5], "Currency 9223372036854775807");
    EXPECT_EQ(found[1][6], "Decimal -0:1e-10");
    EXPECT_EQ(found[1][8], "'L'été d'Émile'");
    EXPECT_EQ(found[1][9], "'Ā一😀'");
    EXPECT_EQ(found[1][10], "'" + std::string(40'000, 'm') + "'");
    EXPECT_EQ(found[1][12], "'{12345678-9ABC-DEF0-1234-56789ABCDEF0}'");
    EXPECT_EQ(found[1][14].size(), std::string("bytes").size() + 10'000 * 2);
    EXPECT_EQ(found[2],
              (Texts{"Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "Null",
                     "False",
                     "Null",
                     "Null",
                     "Null"}));
}

TEST_F(JetTest, before_the_first_day_the_time_still_counts_forward) {
    const auto connection = open(sample());
    const auto found = rows(*open_table(*connection, "Tipi"));
    EXPECT_EQ(found[3][7], "Date -115859.25"); // 14 October 1582, 6:00
    EXPECT_EQ(found[4][7], "Date -1.75");
}

TEST_F(JetTest, the_empty_text_is_not_Null) {
    const auto connection = open(sample());
    const auto found = rows(*open_table(*connection, "Tipi"));
    EXPECT_EQ(found[0][10], "''");
    EXPECT_EQ(found[2][10], "Null");
    EXPECT_EQ(found[3][13], "bytes");
    EXPECT_EQ(found[4][13], "Null");
}

TEST_F(JetTest, a_table_with_a_blank_in_its_name_is_read_in_its_order) {
    const auto connection = open(sample());
    const auto found = rows(*open_table(*connection, "Order Lines"));
    ASSERT_EQ(found.size(), 120U);
    EXPECT_THAT(found[0],
                ElementsAre("Long 1000", "Byte 1", "Long 1", "Single 0.25", "Decimal -0:125e-4"));
    EXPECT_THAT(found[119],
                ElementsAre("Long 1029", "Byte 4", "Long 30", "Single 4.25", "Decimal -0:125e-4"));
}

TEST_F(JetTest, an_empty_table_has_columns_and_no_rows) {
    const auto connection = open(sample());
    const auto cursor = open_table(*connection, "Vuota");
    EXPECT_THAT(fields(*cursor), ElementsAre("ID 3 4", "Nome 202 50"));
    EXPECT_FALSE(cursor->step());
}

TEST_F(JetTest, a_table_is_found_exactly_or_without_letter_case_when_it_is_the_only_one) {
    jet_sample::JetWriter writer;
    for (const char* name : {"Città", "CITTÀ", "Order Lines"}) {
        writer.add_table(name, {{"n", jet_sample::JetType::long_integer}}, 0, {});
    }
    const auto connection = open(write(writer.file()));
    EXPECT_EQ(connection->find_table({"Città"}), TableName{"Città"});
    EXPECT_EQ(connection->find_table({"CITTÀ"}), TableName{"CITTÀ"});
    EXPECT_EQ(connection->find_table({"città"}), std::nullopt);
    EXPECT_EQ(connection->find_table({"order lines"}), TableName{"Order Lines"});
    EXPECT_EQ(connection->find_table({"Order"}), std::nullopt);
    EXPECT_EQ(connection->find_table({"dbo", "Città"}), std::nullopt);
    EXPECT_EQ(connection->find_table({"MSysObjects"}), std::nullopt);
}

TEST_F(JetTest, a_table_that_is_not_there_is_an_error_of_its_own) {
    const auto connection = open(sample());
    EXPECT_THAT(error_of([&] { open_table(*connection, "Niente"); }),
                StartsWith("-2147217865: no such table: Niente"));
    EXPECT_THAT(error_of([&] { open_table(*connection, "MSysObjects"); }),
                StartsWith("-2147217865"));
    EXPECT_EQ(rows(*open_table(*connection, "Order Lines")).size(), 120U);
}

TEST_F(JetTest, a_password_is_asked_for_and_never_shown) {
    jet_sample::JetWriter writer;
    writer.add_table("t", {{"n", jet_sample::JetType::long_integer}}, 0, {});
    writer.set_password("Segreto1");
    const std::string path = write(writer.file());
    EXPECT_EQ(error_of([&] { open(path); }), "-2147217843: Not a valid password.");
    const std::string error =
        error_of([&] { open(path, "Jet OLEDB:Database Password=indovinato"); });
    EXPECT_EQ(error, "-2147217843: Not a valid password.");
    EXPECT_EQ(error_of([&] { open(path, "Jet OLEDB:Database Password=Segreto1"); }), "");
}

TEST_F(JetTest, nothing_is_written_and_there_are_no_transactions) {
    const auto connection = open(sample());
    for (const char* sql : {"DELETE FROM Vuota", "INSERT INTO Vuota VALUES (1, 'a')", "garbage"}) {
        EXPECT_THAT(error_of([&] { connection->execute(sql, {}); }), StartsWith("3251: ")) << sql;
    }
    EXPECT_THAT(error_of([&] { connection->begin(); }), StartsWith("3251: "));
    EXPECT_THAT(error_of([&] { connection->commit(); }), StartsWith("3251: "));
    EXPECT_THAT(error_of([&] { connection->rollback(); }), StartsWith("3251: "));
    EXPECT_FALSE(connection->in_transaction());
}

TEST_F(JetTest, execute_hands_out_the_rows_of_a_select) {
    const auto connection = open(sample());
    const auto outcome = connection->execute("SELECT Count(*) AS n FROM [Order Lines]", {});
    EXPECT_EQ(outcome.affected, 0);
    EXPECT_EQ(rows(*outcome.cursor), std::vector<Texts>{{"Long 120"}});
}

TEST_F(JetTest, two_tables_can_be_read_side_by_side) {
    const auto connection = open(write(big_file(20'000)));
    const auto left = open_table(*connection, "Grande");
    const auto right = open_table(*connection, "Grande");
    std::size_t count = 0;
    while (left->step()) {
        ASSERT_TRUE(right->step());
        ASSERT_EQ(left->value(0).as_whole(), static_cast<std::int64_t>(count));
        ASSERT_EQ(right->value(0).as_whole(), static_cast<std::int64_t>(count));
        ++count;
    }
    EXPECT_EQ(count, 20'000U);
    EXPECT_FALSE(right->step());
}

TEST_F(JetTest, a_cursor_that_is_left_half_way_holds_nothing_up) {
    const auto connection = open(write(big_file(20'000)));
    for (int i = 0; i < 3; ++i) {
        const auto cursor = open_table(*connection, "Grande");
        ASSERT_TRUE(cursor->step());
        cursor->release();
        cursor->release();
        EXPECT_EQ(cursor->columns().size(), big_columns().size());
    }
    EXPECT_EQ(rows(*open_table(*connection, "Grande")).size(), 20'000U);
}

TEST_F(JetTest, a_long_statement_goes_through_while_rows_wait_to_be_fetched) {
    const auto connection = open(write(big_file(20'000)));
    std::vector<std::unique_ptr<standard::ProviderCursor>> waiting;
    for (int i = 0; i < 8; ++i) {
        waiting.push_back(open_table(*connection, "Grande"));
    }
    const std::string sql = "SELECT Len('" + std::string(900'000, 'x') + "') AS n";
    EXPECT_EQ(rows(*connection->open_query(sql)), std::vector<Texts>{{"Long 900000"}});
    EXPECT_EQ(rows(*waiting.back()).size(), 20'000U);
}

TEST_F(JetTest, a_cursor_outlives_its_connection) {
    auto connection = open(sample());
    const auto cursor = open_table(*connection, "Order Lines");
    connection.reset();
    EXPECT_EQ(rows(*cursor).size(), 120U);
}

TEST_F(JetTest, what_is_no_Jet_database_is_refused_by_name) {
    const std::string text = folder.write("testo.mdb", "only a text, nothing else");
    EXPECT_THAT(error_of([&] { open(text); }), HasSubstr("is no Jet database"));
    EXPECT_THAT(error_of([&] { open(folder.file("manca.mdb")); }), StartsWith("-2147467259: "));
    EXPECT_FALSE(std::filesystem::exists(folder.file("manca.mdb")));
    EXPECT_THAT(error_of([&] { open(folder.path().string()); }), HasSubstr("is a directory"));
}

TEST_F(JetTest, the_timeout_is_a_number_of_seconds) {
    const std::string path = sample();
    EXPECT_EQ(error_of([&] { open(path, "General Timeout=30"); }), "");
    EXPECT_EQ(error_of([&] { open(path, "General Timeout=0"); }), "");
    for (const char* wrong : {"soon", "-1", "1.5"}) {
        EXPECT_THAT(error_of([&] { open(path, std::string("General Timeout=") + wrong); }),
                    StartsWith("-2147217805: "));
    }
}

TEST_F(JetTest, the_registry_knows_a_Jet_file_by_its_content) {
    const std::string path = write(jet_sample::sample_file(), "dati.db");
    standard::ProviderRegistry::Providers providers;
    providers.jet = make_jet_provider(options);
    standard::AdoDataAccess access(
        std::make_shared<standard::ProviderRegistry>(std::move(providers)));
    const auto connection = access.CreateConnection();
    connection->Open("Provider= Microsoft.Jet.OLEDB.4.0; Data Source=" + path + ";", "", "", -1);
    const auto records = access.CreateRecordset();
    records->Open("order lines", connection, 2, 2, -1);
    std::size_t count = 0;
    for (; !records->Eof(); records->MoveNext()) {
        ++count;
    }
    EXPECT_EQ(count, 120U);
}

TEST_F(JetTest, nothing_is_left_of_a_reader) {
    const std::string path = sample();
    const std::size_t before = open_descriptors();
    for (int i = 0; i < 5; ++i) {
        const auto connection = open(path);
        EXPECT_EQ(rows(*open_table(*connection, "Articoli")).size(), 40U);
        EXPECT_TRUE(has_children());
    }
    EXPECT_FALSE(has_children());
    EXPECT_EQ(open_descriptors(), before);
}

} // namespace
} // namespace krv::providers
