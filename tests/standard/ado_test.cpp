#include "krv/standard/ado.h"

#include "standard/fake_provider.h"
#include "support/errors.h"

#include <gmock/gmock.h>

namespace krv::standard {
namespace {

using krv::testing::error_number_of;
using krv::testing::error_source_of;
using krv::testing::FakeEngine;
using krv::testing::FakeProvider;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

platform::Value whole(std::int32_t value) {
    return platform::Value(platform::ValueView::long_integer(value));
}

class Ado : public ::testing::Test {
protected:
    Ado() {
        engine.tables = {{"persone"}, {"a.b"}, {"s", "t"}, {"due parole"}};
        engine.rows = {{whole(1), platform::Value::text("Anna")},
                       {whole(2), platform::Value(platform::ValueView::null())}};
    }

    std::shared_ptr<platform::Connection> connected() {
        auto made = access.CreateConnection();
        made->Open("Provider=SQLite", "", "", -1);
        engine.trace.clear();
        return made;
    }

    void open(platform::Recordset& records,
              std::string_view source = "persone",
              std::int32_t options = -1) {
        records.Open(source, connection, -1, -1, options);
    }

    std::shared_ptr<platform::Recordset> opened() {
        auto records = access.CreateRecordset();
        open(*records);
        engine.trace.clear();
        return records;
    }

    std::vector<std::string> trace_of_source(std::string_view source, std::int32_t options = -1) {
        engine.trace.clear();
        auto records = access.CreateRecordset();
        try {
            open(*records, source, options);
        } catch (const platform::RuntimeError& error) {
            engine.trace.push_back(std::to_string(error.number()));
        }
        auto result = engine.trace;
        std::erase_if(result, [](const auto& line) { return line.starts_with("step"); });
        return result;
    }

    std::int32_t open_error(std::int32_t cursor, std::int32_t lock, std::int32_t options) {
        auto records = access.CreateRecordset();
        const auto number =
            error_number_of([&] { records->Open("persone", connection, cursor, lock, options); });
        EXPECT_EQ(records->State(), number == 0 ? 1 : 0);
        return number;
    }

    FakeEngine engine;
    AdoDataAccess access{std::make_shared<ProviderRegistry>(
        ProviderRegistry::Providers{std::make_shared<FakeProvider>(engine), nullptr, nullptr})};
    std::shared_ptr<platform::Connection> connection = connected();
};

using AdoConnectionTest = Ado;
using AdoRecordsetTest = Ado;
using AdoFieldsTest = Ado;

TEST_F(AdoConnectionTest, Open_hands_the_settings_over_the_login_last) {
    auto other = access.CreateConnection();
    EXPECT_EQ(other->State(), 0);
    other->Open("Provider=SQLite;User ID=a;Mode=Read", "carla", "pw", -1);
    EXPECT_EQ(other->State(), 1);
    EXPECT_THAT(engine.trace,
                ElementsAre("open Provider=SQLite Mode=Read User ID=carla Password=pw"));
}

TEST_F(AdoConnectionTest, a_second_Open_is_3705) {
    EXPECT_EQ(error_number_of([&] { connection->Open("Provider=SQLite", "", "", -1); }), 3705);
    EXPECT_EQ(connection->State(), 1);
}

TEST_F(AdoConnectionTest, a_failed_Open_leaves_it_closed_and_it_may_be_opened_again) {
    auto other = access.CreateConnection();
    engine.fail_open = true;
    EXPECT_EQ(error_number_of([&] { other->Open("Provider=SQLite", "", "", -1); }), -2147217843);
    EXPECT_EQ(other->State(), 0);
    engine.fail_open = false;
    other->Open("Provider=SQLite", "", "", -1);
    EXPECT_EQ(other->State(), 1);
}

TEST_F(AdoConnectionTest, options_are_checked_before_anything_is_opened) {
    auto other = access.CreateConnection();
    EXPECT_EQ(error_number_of([&] { other->Open("Provider=SQLite", "", "", 16); }), 3251);
    EXPECT_EQ(error_number_of([&] { other->Open("Provider=SQLite", "", "", 1); }), 3001);
    EXPECT_THAT(engine.trace, IsEmpty());
}

TEST_F(AdoConnectionTest, every_call_on_a_closed_connection_is_3704) {
    connection->Close();
    EXPECT_EQ(connection->State(), 0);
    EXPECT_EQ(error_number_of([&] { connection->Close(); }), 3704);
    EXPECT_EQ(error_number_of([&] { connection->Execute("x", {}); }), 3704);
    EXPECT_EQ(error_number_of([&] { connection->BeginTrans(); }), 3704);
    EXPECT_EQ(error_number_of([&] { connection->CommitTrans(); }), 3704);
    EXPECT_EQ(error_number_of([&] { connection->RollbackTrans(); }), 3704);
    EXPECT_EQ(error_source_of([&] { connection->Close(); }), "ADODB.Connection");
}

TEST_F(AdoConnectionTest, Close_closes_its_recordsets_and_may_be_followed_by_Open) {
    auto first = opened();
    auto second = opened();
    connection->Close();
    EXPECT_EQ(first->State(), 0);
    EXPECT_EQ(second->State(), 0);
    EXPECT_EQ(engine.open_cursors, 0);
    EXPECT_EQ(engine.open_connections, 0);
    connection->Open("Provider=SQLite", "", "", -1);
    open(*first);
    EXPECT_EQ(first->State(), 1);
}

TEST_F(AdoConnectionTest, objects_may_be_released_in_any_order) {
    auto records = opened();
    connection.reset();
    EXPECT_EQ(engine.open_connections, 1);
    records->MoveNext();
    EXPECT_EQ(records->Fields().Item("id").Value().as_whole(), 2);
    records->Close();
    EXPECT_EQ(engine.open_connections, 0);

    connection = connected();
    records = opened();
    records.reset();
    EXPECT_EQ(engine.open_cursors, 0);
    connection->Close();
}

TEST_F(AdoConnectionTest, a_driver_error_keeps_its_codes_and_loses_the_secrets) {
    auto other = access.CreateConnection();
    engine.fail_open = true;
    engine.driver_text = "cannot open PWD={zq1}";
    try {
        other->Open("Provider=SQLite;PWD=zq1", "", "", -1);
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.description(), "cannot open PWD={***}");
        EXPECT_EQ(error.source(), "Fake");
        EXPECT_EQ(error.native_code(), 77);
        EXPECT_EQ(error.sql_state(), "HY000");
    }
}

TEST_F(AdoConnectionTest, an_error_of_a_value_loses_the_secrets_too) {
    auto other = access.CreateConnection();
    other->Open("Provider=SQLite;PWD=zq1", "", "", -1);
    auto records = access.CreateRecordset();
    records->Open("persone", other, -1, -1, -1);
    engine.fail_value = true;
    engine.driver_text = "cannot read with PWD={zq1}";
    try {
        records->Fields().Item("id").Value();
        FAIL();
    } catch (const DataError& error) {
        EXPECT_EQ(error.description(), "cannot read with PWD={***}");
        EXPECT_EQ(error.number(), data_error_number::unspecified);
        EXPECT_EQ(error.native_code(), 77);
    }
    EXPECT_FALSE(records->Eof());
}

TEST_F(AdoConnectionTest, Execute_hands_parameters_over_and_tells_the_rows_changed) {
    const platform::Value parameters[] = {whole(1), whole(2)};
    const auto result = connection->Execute("UPDATE x", parameters);
    EXPECT_EQ(result.affected, 7);
    EXPECT_EQ(result.records, nullptr);
    EXPECT_THAT(engine.trace, ElementsAre("execute UPDATE x 2"));
}

TEST_F(AdoConnectionTest, Execute_opens_a_recordset_on_the_rows_that_a_statement_yields) {
    engine.yields_rows = true;
    const auto result = connection->Execute("SELECT ?", {});
    ASSERT_NE(result.records, nullptr);
    EXPECT_EQ(result.records->Fields().Item("Nome").Value().as_text(), "Anna");
    EXPECT_EQ(result.records->Source(), "SELECT ?");
    connection->Close();
    EXPECT_EQ(result.records->State(), 0);
}

TEST_F(AdoConnectionTest, transactions_do_not_nest) {
    EXPECT_EQ(error_number_of([&] { connection->CommitTrans(); }), 3251);
    EXPECT_EQ(error_number_of([&] { connection->RollbackTrans(); }), 3251);
    connection->BeginTrans();
    EXPECT_EQ(error_number_of([&] { connection->BeginTrans(); }), 3251);
    connection->CommitTrans();
    connection->BeginTrans();
    connection->RollbackTrans();
    EXPECT_THAT(engine.trace, ElementsAre("begin", "commit", "begin", "rollback"));
}

TEST_F(AdoRecordsetTest, a_name_in_the_catalog_is_a_table_blanks_and_dots_included) {
    EXPECT_THAT(trace_of_source(" persone ; "), ElementsAre("find <persone>", "table <persone>"));
    EXPECT_THAT(trace_of_source("due parole"),
                ElementsAre("find <due parole>", "table <due parole>"));
    EXPECT_THAT(trace_of_source("a.b"), ElementsAre("find <a.b>", "table <a.b>"));
    EXPECT_THAT(trace_of_source("[s].\"t\""),
                ElementsAre("find <[s].\"t\">", "find <s><t>", "table <s><t>"));
}

TEST_F(AdoRecordsetTest, another_lone_identifier_is_a_missing_table) {
    EXPECT_THAT(trace_of_source("manca"), ElementsAre("find <manca>", "-2147217865"));
    EXPECT_THAT(trace_of_source("[x y]"), ElementsAre("find <[x y]>", "find <x y>", "-2147217865"));
}

TEST_F(AdoRecordsetTest, anything_else_is_a_command) {
    EXPECT_THAT(trace_of_source("values(1)"), ElementsAre("find <values(1)>", "query values(1)"));
    EXPECT_THAT(trace_of_source("select 1;", 8), ElementsAre("find <select 1>", "query select 1"));
}

TEST_F(AdoRecordsetTest, options_1_2_and_512_settle_what_the_source_is) {
    EXPECT_THAT(trace_of_source("persone", 1), ElementsAre("query persone"));
    EXPECT_THAT(trace_of_source("persone", 2), ElementsAre("find <persone>", "table <persone>"));
    EXPECT_THAT(trace_of_source("persone", 512), ElementsAre("find <persone>", "table <persone>"));
    EXPECT_THAT(trace_of_source("select 1", 2), ElementsAre("find <select 1>", "-2147217865"));
}

TEST_F(AdoRecordsetTest, an_empty_source_and_a_NUL_are_refused_before_the_engine_sees_them) {
    using namespace std::string_view_literals;
    for (const std::string_view source : {""sv, " "sv, ";"sv, "select 1\0;drop"sv}) {
        EXPECT_THAT(trace_of_source(source), ElementsAre("-2147217900"));
    }
    EXPECT_THAT(trace_of_source("a\0b"sv, 2), ElementsAre("-2147217865"));
}

TEST_F(AdoRecordsetTest, cursor_and_lock_numbers_are_checked) {
    for (const std::int32_t cursor : {-1, 0, 1, 2, 3}) {
        EXPECT_EQ(open_error(cursor, -1, -1), 0) << cursor;
    }
    for (const std::int32_t lock : {-1, 1, 2, 3, 4}) {
        EXPECT_EQ(open_error(-1, lock, -1), 0) << lock;
    }
    EXPECT_EQ(open_error(-2, -1, -1), 3001);
    EXPECT_EQ(open_error(4, -1, -1), 3001);
    EXPECT_EQ(open_error(-1, 0, -1), 3001);
    EXPECT_EQ(open_error(-1, 5, -1), 3001);
    EXPECT_EQ(open_error(-1, -2, -1), 3001);
}

TEST_F(AdoRecordsetTest, options_that_are_not_done_are_3251_unknown_ones_3001) {
    for (const std::int32_t options : {4, 256, 16, 32, 64, 128, 1 + 16, 2 + 32, 4 + 16}) {
        EXPECT_EQ(open_error(-1, -1, options), 3251) << options;
    }
    for (const std::int32_t options : {0, -2, 3, 5, 1024, 3 + 16}) {
        EXPECT_EQ(open_error(-1, -1, options), 3001) << options;
    }
}

TEST_F(AdoRecordsetTest, the_cursor_is_forward_only_the_lock_and_source_as_asked) {
    auto records = access.CreateRecordset();
    EXPECT_EQ(records->Source(), "");
    records->Open(" persone ;", connection, 2, 2, -1);
    EXPECT_EQ(records->CursorType(), 0);
    EXPECT_EQ(records->LockType(), 2);
    EXPECT_EQ(records->Source(), " persone ;");
}

TEST_F(AdoRecordsetTest, a_closed_or_missing_connection_is_3709) {
    auto records = access.CreateRecordset();
    connection->Close();
    EXPECT_EQ(error_number_of([&] { open(*records); }), 3709);
    EXPECT_EQ(error_number_of([&] { records->Open("persone", nullptr, -1, -1, -1); }), 3709);
    EXPECT_EQ(records->State(), 0);
}

TEST_F(AdoRecordsetTest, a_second_Open_is_3705) {
    auto records = opened();
    EXPECT_EQ(error_number_of([&] { open(*records); }), 3705);
    EXPECT_EQ(records->State(), 1);
}

TEST_F(AdoRecordsetTest, what_needs_it_open_is_3704_on_a_closed_one) {
    auto records = access.CreateRecordset();
    EXPECT_EQ(error_number_of([&] { static_cast<void>(records->Eof()); }), 3704);
    EXPECT_EQ(error_number_of([&] { records->MoveNext(); }), 3704);
    EXPECT_EQ(error_number_of([&] { records->Close(); }), 3704);
    EXPECT_EQ(error_source_of([&] { records->Close(); }), "ADODB.Recordset");
}

TEST_F(AdoRecordsetTest, it_reads_forward_to_the_end) {
    auto records = opened();
    std::vector<std::int64_t> ids;
    while (!records->Eof()) {
        ids.push_back(records->Fields().Item("id").Value().as_whole());
        records->MoveNext();
    }
    EXPECT_THAT(ids, ElementsAre(1, 2));
}

TEST_F(AdoRecordsetTest, at_the_end_the_cursor_is_given_back_and_the_names_stay) {
    auto records = opened();
    records->MoveNext();
    records->MoveNext();
    EXPECT_EQ(engine.open_cursors, 0);
    EXPECT_EQ(records->State(), 1);
    EXPECT_TRUE(records->Eof());
    EXPECT_EQ(records->Fields().Count(), 2);
    EXPECT_EQ(records->Fields().Item(1).Name(), "Nome");
    EXPECT_EQ(records->Fields().Item(1).Type(), 202);
    EXPECT_EQ(records->Fields().Item(1).DefinedSize(), 50);
    EXPECT_EQ(error_number_of([&] { records->MoveNext(); }), 3021);
    EXPECT_EQ(error_number_of([&] { records->Fields().Item(0).Value(); }), 3021);
}

TEST_F(AdoRecordsetTest, without_rows_it_opens_at_the_end_with_its_fields) {
    engine.rows.clear();
    auto records = opened();
    EXPECT_TRUE(records->Eof());
    EXPECT_EQ(engine.open_cursors, 0);
    EXPECT_EQ(records->Fields().Count(), 2);
}

TEST_F(AdoRecordsetTest, a_failure_half_way_is_no_end) {
    auto records = opened();
    engine.fail_at_row = 1;
    EXPECT_EQ(error_number_of([&] { records->MoveNext(); }), -2147467259);
    EXPECT_FALSE(records->Eof());
    EXPECT_EQ(records->State(), 1);
    EXPECT_EQ(error_number_of([&] { records->MoveNext(); }), -2147467259);
    EXPECT_EQ(error_number_of([&] { records->Fields().Item(0).Value(); }), 3021);
    records->Close();
    EXPECT_EQ(engine.open_cursors, 0);
}

TEST_F(AdoRecordsetTest, a_failure_at_the_first_row_leaves_it_closed) {
    auto records = access.CreateRecordset();
    engine.fail_at_row = 0;
    EXPECT_EQ(error_number_of([&] { open(*records); }), -2147467259);
    EXPECT_EQ(records->State(), 0);
    EXPECT_EQ(records->Fields().Count(), 0);
    EXPECT_EQ(engine.open_cursors, 0);
    connection->Close();
}

TEST_F(AdoRecordsetTest, after_Close_it_can_be_opened_again) {
    auto records = opened();
    records->MoveNext();
    records->Close();
    EXPECT_EQ(records->State(), 0);
    EXPECT_EQ(records->Fields().Count(), 0);
    EXPECT_EQ(error_number_of([&] { records->Fields().Item("id"); }), 3265);
    open(*records);
    EXPECT_EQ(records->Fields().Item("id").Value().as_whole(), 1);
}

TEST_F(AdoFieldsTest, a_name_ignores_letter_case_and_trims_nothing) {
    auto records = opened();
    const auto& fields = records->Fields();
    EXPECT_EQ(&fields.Item("NOME"), &fields.Item(1));
    EXPECT_EQ(&fields.Item("nome"), &fields.Item(1));
    for (const char* name : {" nome ", "", "nom", "nomee"}) {
        EXPECT_EQ(error_number_of([&] { fields.Item(name); }), 3265) << name;
    }
    EXPECT_EQ(error_source_of([&] { fields.Item("x"); }), "ADODB.Fields");
}

TEST_F(AdoFieldsTest, positions_outside_are_3265_open_or_closed) {
    auto records = opened();
    const auto& fields = records->Fields();
    EXPECT_EQ(error_number_of([&] { fields.Item(-1); }), 3265);
    EXPECT_EQ(error_number_of([&] { fields.Item(2); }), 3265);
    records->Close();
    EXPECT_EQ(error_number_of([&] { fields.Item(0); }), 3265);
}

TEST_F(AdoFieldsTest, of_equal_names_the_first_is_meant_in_every_order_of_asking) {
    engine.columns = {{"a", 3, 4}, {"b", 3, 4}, {"A", 3, 4}, {"B", 3, 4}, {"c", 3, 4}};
    engine.rows.clear();
    auto records = opened();
    const auto& fields = records->Fields();
    const std::vector<std::pair<const char*, std::int32_t>> asked = {
        {"b", 1}, {"A", 0}, {"c", 4}, {"B", 1}, {"b", 1}, {"a", 0}, {"A", 0}, {"C", 4}};
    for (int round = 0; round < 3; ++round) {
        for (const auto& [name, index] : asked) {
            EXPECT_EQ(&fields.Item(name), &fields.Item(index)) << name;
        }
    }
}

TEST_F(AdoFieldsTest, a_missing_name_does_not_disturb_the_others) {
    auto records = opened();
    const auto& fields = records->Fields();
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(&fields.Item("nome"), &fields.Item(1));
        EXPECT_EQ(error_number_of([&] { fields.Item("manca"); }), 3265);
        EXPECT_EQ(&fields.Item("id"), &fields.Item(0));
    }
}

} // namespace
} // namespace krv::standard
