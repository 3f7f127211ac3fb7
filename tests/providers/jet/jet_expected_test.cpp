#include "expected_table.h"
#include "jet_fixture.h"

namespace krv::providers {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class JetExpectedTest : public JetTest {
protected:
    void SetUp() override {
        if (!std::filesystem::is_directory(samples_folder())) {
            GTEST_SKIP() << "no folder of Jet databases (KRV_JET_SAMPLES)";
        }
    }

    static std::string file(const std::string& name) { return (samples_folder() / name).string(); }

    void expect_all_of(const std::string& name) {
        SCOPED_TRACE(name);
        const auto connection = open(file(name));
        for (const ExpectedTable& table :
             expected_tables(samples_folder() / "expected" / (name + ".tsv"))) {
            SCOPED_TRACE(table.name);
            EXPECT_EQ(connection->find_table({table.name}), standard::TableName{table.name});
            const auto cursor = connection->open_table({table.name});
            Texts names;
            for (const auto& column : cursor->columns()) {
                names.push_back(column.name);
            }
            ASSERT_EQ(names, table.columns);
            EXPECT_EQ(read_rows(*cursor, table.types), table.rows);
        }
    }
};

TEST_F(JetExpectedTest, every_file_holds_what_another_reader_found) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(samples_folder() / "expected")) {
        expect_all_of(entry.path().stem().string());
        ++count;
    }
    EXPECT_GE(count, 13U);
}

TEST_F(JetExpectedTest, a_page_encoded_file_opens) {
    const auto connection = open(file("db-enc.mdb"));
    EXPECT_EQ(
        rows(*connection->open_table({"Table1"})),
        (std::vector<Texts>{{"Long 1", "'hello'", "Long 0"}, {"Long 2", "'world'", "Long 42"}}));
}

TEST_F(JetExpectedTest, an_encrypted_file_is_refused) {
    EXPECT_EQ(error_of([&] { open(file("db2013-enc.accdb")); }),
              "-2147467259: The database file is encrypted; it cannot be read.");
}

TEST_F(JetExpectedTest, a_linked_table_says_that_it_is_one) {
    const auto connection = open(file("linkerTestV2007.accdb"));
    EXPECT_EQ(connection->find_table({"table2"}), standard::TableName{"Table2"});
    const std::string error = error_of([&] { connection->open_table({"Table2"}); });
    EXPECT_THAT(error, StartsWith("-2147217865: "));
    EXPECT_THAT(error, HasSubstr("linked"));
    EXPECT_THAT(error_of([&] { connection->open_query("SELECT * FROM Table2"); }),
                HasSubstr("linked"));
}

} // namespace
} // namespace krv::providers
