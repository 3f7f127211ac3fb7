// Every kind of value, from the input line into the database and back into the list.

#include "companions/writer_fixture.h"

namespace krv::companions {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RecordTypes : public WriterTest {
protected:
    void SetUp() override {
        WriterTest::SetUp();
        writer.reset();
        run_elsewhere("CREATE TABLE valori (id INTEGER PRIMARY KEY, v BLOB)");
    }

    /// Types a text into a column of this declared type.
    /// \return what the database holds: its storage and its text
    std::string stored(const std::string& declared,
                       std::int16_t type,
                       const std::string& pattern,
                       const std::string& typed) {
        writer.reset();
        run_elsewhere("DROP TABLE valori; CREATE TABLE valori (id INTEGER PRIMARY KEY, v " +
                      declared + "); INSERT INTO valori VALUES (1, NULL)");
        list().SetCols(2);
        list().SetLineNumberColumn(-1);
        bind(0, "id", 3);
        bind(1, "v", type, pattern.c_str());
        list().SetColIsKey(0, krvRec1);
        list().SetRecordsource("valori");
        list().Refresh();
        write_to("valori");
        edit(0, {{1, typed}});
        return query("SELECT typeof(v) || ' ' || v FROM valori")[0];
    }

    std::string shown() { return list().TextMatrix(0, 1); }
};

TEST_F(RecordTypes, whole_numbers_are_exact_to_64_bits) {
    EXPECT_EQ(stored("INTEGER", 3, "#,##0", "1.234"), "integer 1234");
    EXPECT_EQ(stored("INTEGER", 3, "", "007"), "integer 7");
    EXPECT_EQ(shown(), "7");
    EXPECT_EQ(stored("BIGINT", 20, "", "9223372036854775807"), "integer 9223372036854775807");
    EXPECT_EQ(stored("BIGINT", 20, "", "-9223372036854775808"), "integer -9223372036854775808");
    EXPECT_EQ(shown(), "-9223372036854775808");
    EXPECT_EQ(stored("INTEGER", 3, "", "5000000000"), "integer 5000000000");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(RecordTypes, a_big_key_finds_its_record) {
    run_elsewhere("CREATE TABLE grandi (k BIGINT PRIMARY KEY, v TEXT);"
                  "INSERT INTO grandi VALUES (9007199254740993,'a'),(9007199254740992,'b')");
    list().SetCols(2);
    list().SetLineNumberColumn(-1);
    bind(0, "k", 20);
    bind(1, "v", 203);
    list().SetColIsKey(0, krvRec1);
    list().SetRecordsource("SELECT * FROM grandi ORDER BY v");
    list().Refresh();
    write_to("grandi");
    edit(0, {{1, "c"}});
    EXPECT_THAT(query("SELECT * FROM grandi ORDER BY k"),
                ElementsAre("9007199254740992|b", "9007199254740993|c"));
}

TEST_F(RecordTypes, amounts_and_decimals_go_there_and_back) {
    EXPECT_EQ(stored("CURRENCY", 6, "#,##0.00", "1.234,50"), "real 1234.5");
    EXPECT_EQ(shown(), "1.234,50");
    EXPECT_EQ(stored("CURRENCY", 6, "", "0,0001"), "real 0.0001");
    EXPECT_EQ(shown(), "0,0001");
    EXPECT_EQ(stored("DECIMAL(10,3)", 131, "", "-12345,678"), "real -12345.678");
    EXPECT_EQ(shown(), "-12345,678");
    EXPECT_EQ(stored("TEXT", 131, "", "1234567890123456,789"), "text 1234567890123456.789");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(RecordTypes, reals_are_read_by_the_region) {
    EXPECT_EQ(stored("REAL", 5, "", "1.234,25"), "real 1234.25");
    EXPECT_EQ(shown(), "1234,25");
    EXPECT_EQ(stored("REAL", 5, "0.0%", "12,5%"), "real 0.125");
    EXPECT_EQ(shown(), "12,5%");
    EXPECT_EQ(stored("SINGLE", 4, "", "0,5"), "real 0.5");
}

TEST_F(RecordTypes, truth_is_read_by_the_words_of_its_pattern) {
    const std::string words = R"("sì";"sì";"no")";
    EXPECT_EQ(stored("BOOLEAN", 11, words, "sì"), "integer 1");
    EXPECT_EQ(shown(), "sì");
    EXPECT_EQ(stored("BOOLEAN", 11, words, "No"), "integer 0");
    EXPECT_EQ(shown(), "no");
    EXPECT_EQ(stored("BOOLEAN", 11, "", "true"), "integer 1");
    EXPECT_EQ(shown(), "True");
    EXPECT_EQ(stored("BOOLEAN", 11, "", "0"), "integer 0");
    EXPECT_EQ(stored("BOOLEAN", 11, R"("x";"x";"x")", "False"), "integer 0");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(RecordTypes, dates_are_read_in_the_order_of_their_pattern) {
    EXPECT_EQ(stored("DATE", 133, "dd/mm/yyyy", "05/03/2024"), "text 2024-03-05");
    EXPECT_EQ(shown(), "05/03/2024");
    EXPECT_EQ(stored("DATE", 133, "mm/dd/yyyy", "03/05/2024"), "text 2024-03-05");
    EXPECT_EQ(stored("DATETIME", 135, "dd/mm/yyyy hh:nn", "05/03/2024 14:07"),
              "text 2024-03-05 14:07:00");
    EXPECT_EQ(stored("DATE", 7, "", "5 mar 2024"), "text 2024-03-05");
    EXPECT_EQ(shown(), "05/03/2024");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(RecordTypes, texts_stay_as_they_are) {
    EXPECT_EQ(stored("TEXT", 203, "", " '1,5\" ☕ "), "text  '1,5\" ☕ ");
    EXPECT_EQ(stored("VARCHAR(9)", 202, ">", "ABC"), "text ABC");
}

TEST_F(RecordTypes, a_column_without_a_type_has_that_of_the_database) {
    EXPECT_EQ(stored("DATE", 0, "dd/mm/yyyy", "05/03/2024"), "text 2024-03-05");
    EXPECT_EQ(stored("CURRENCY", 0, "#,##0.00", "1.234,50"), "real 1234.5");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(RecordTypes, a_text_that_cannot_be_read_back_is_refused_and_stays) {
    struct {
        std::int16_t type;
        const char* pattern;
        const char* typed;
        const char* message;
    } const cases[] = {
        {3, "", "due", "\"due\" non è un valore di questa colonna."},
        {3, "", "2,5", "non è un numero intero."},
        {20, "", "9223372036854775808", "non è un valore di questa colonna."},
        {6, "", "1,00005", "ha più di quattro decimali."},
        {131, "", "12345678901234567890123456789", "ha troppe cifre."},
        {4, "", "1E39", "è troppo grande."},
        {133, "dd/mm/yyyy", "31/02/2024x", "non è un valore di questa colonna."},
        {133, "mmmm", "marzo", "non è un valore di questa colonna."},
        {5, "0,", "5", "non può essere riletto con il formato della colonna."},
        {11, "", "forse", "non è un valore di questa colonna."},
        {202, "@@-@@", "12-34", "non può essere riletto con il formato della colonna."},
        {205, "", "00ff", "non è un valore di questa colonna."}};

    for (const auto& c : cases) {
        EXPECT_EQ(stored("NONE", c.type, c.pattern, c.typed), "NULL") << c.typed;
        EXPECT_THAT(messages().back(), HasSubstr(c.message)) << c.typed;
        EXPECT_EQ(list().InputArray(1), c.typed);
        EXPECT_TRUE(is_open());
        list().SetInputArray(1, "");
        list().Refresh();
    }
}

} // namespace
} // namespace krv::companions
