#include "krv/standard/provider_registry.h"

#include "standard/fake_provider.h"
#include "support/errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace krv::standard {
namespace {

using krv::testing::error_number_of;
using krv::testing::FakeEngine;
using krv::testing::FakeProvider;
using krv::testing::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

using namespace std::string_literals;

const std::string sqlite_start = "SQLite format 3\0and so on"s;
const std::string jet_start = "\0\1\0\0Standard Jet DB\0"s;
const std::string ace_start = "\0\1\0\0Standard ACE DB\0"s;

class Registry : public ::testing::Test {
protected:
    std::int32_t open(const std::string& text) {
        return error_number_of([&] { registry.open(ConnectionString::parse(text)); });
    }

    std::string text_of_error(const std::string& text) {
        try {
            registry.open(ConnectionString::parse(text));
        } catch (const DataError& error) {
            return error.description();
        }
        return {};
    }

    std::string jet(const std::string& path) {
        return "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=" + path + ";";
    }

    /// Which provider opened last.
    std::vector<std::size_t> opened() {
        return {sqlite.trace.size(), jet_engine.trace.size(), odbc.trace.size()};
    }

    TemporaryFolder folder;
    FakeEngine sqlite;
    FakeEngine jet_engine;
    FakeEngine odbc;
    ProviderRegistry registry{{std::make_shared<FakeProvider>(sqlite),
                               std::make_shared<FakeProvider>(jet_engine),
                               std::make_shared<FakeProvider>(odbc)}};
    ProviderRegistry bare;
};

TEST_F(Registry, SQLite_is_a_provider_by_its_name) {
    EXPECT_EQ(open("provider=sqlITE;Data Source=x"), 0);
    EXPECT_THAT(opened(), ElementsAre(1, 0, 0));
}

TEST_F(Registry, MSDASQL_and_no_provider_are_ODBC) {
    for (const char* text :
         {"Provider=MSDASQL;DSN=x", "Provider=msdasql.1", "DSN=x", "ACC", "", "Provider=;DSN=x"}) {
        EXPECT_EQ(open(text), 0) << text;
    }
    EXPECT_THAT(opened(), ElementsAre(0, 0, 6));
}

TEST_F(Registry, other_providers_are_3706) {
    for (const char* name : {"SQLOLEDB", "Microsoft.Jet.OLEDB", "SQLite3", "MSDASQL.2"}) {
        EXPECT_EQ(open("Provider="s + name), 3706) << name;
    }
}

TEST_F(Registry, the_first_bytes_of_a_file_choose_the_provider_not_its_ending) {
    EXPECT_EQ(open(jet(folder.write("a.mdb", sqlite_start))), 0);
    EXPECT_THAT(opened(), ElementsAre(1, 0, 0));
    EXPECT_EQ(open(jet(folder.write("b.db", jet_start))), 0);
    EXPECT_THAT(opened(), ElementsAre(1, 1, 0));
    EXPECT_EQ(open("Provider=microsoft.ace.oledb.12.0;Data Source=" + folder.write("c", ace_start)),
              0);
    EXPECT_THAT(opened(), ElementsAre(1, 2, 0));
}

TEST_F(Registry, a_file_that_is_no_database_fails_with_a_clear_text) {
    EXPECT_EQ(open(jet(folder.write("text.mdb", "just a text"))), -2147467259);
    EXPECT_THAT(text_of_error(jet(folder.write("text.mdb", "just a text"))),
                HasSubstr("no database"));
    EXPECT_THAT(text_of_error(jet(folder.write("empty.mdb", ""))), HasSubstr("is empty"));
    EXPECT_THAT(text_of_error(jet(folder.write("short.mdb", "abc"))), HasSubstr("no database"));
    EXPECT_THAT(text_of_error(jet(folder.write("near.mdb", "SQLite format 3"))),
                HasSubstr("no database"));
    EXPECT_THAT(text_of_error(jet(folder.write("shift.mdb", jet_start.substr(1)))),
                HasSubstr("no database"));
    EXPECT_THAT(opened(), ElementsAre(0, 0, 0));
}

TEST_F(Registry, what_is_no_ordinary_file_fails_with_a_clear_text) {
    EXPECT_THAT(text_of_error(jet(folder.path().string())), HasSubstr("directory"));
    EXPECT_THAT(text_of_error("Provider=Microsoft.Jet.OLEDB.4.0"), HasSubstr("No database file"));
    const auto pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THAT(text_of_error(jet(pipe)), HasSubstr("no ordinary file"));
}

TEST_F(Registry, a_missing_file_fails_and_is_not_created) {
    const auto path = folder.file("manca.mdb");
    EXPECT_EQ(open(jet(path)), -2147467259);
    EXPECT_THAT(text_of_error(jet(path)), HasSubstr("not found"));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Registry, a_file_that_may_not_be_read_fails) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "the superuser may read every file, so there is nothing to see";
    }
    const auto path = folder.write("secret.mdb", sqlite_start);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    EXPECT_EQ(open(jet(path)), -2147467259);
    EXPECT_THAT(text_of_error(jet(path)), HasSubstr("cannot be read"));
}

TEST_F(Registry, keywords_that_cannot_be_served_are_3251) {
    for (const char* keyword : {"File Name", "URL", "Remote Provider", "Remote Server"}) {
        EXPECT_EQ(open("Provider=SQLite;"s + keyword + "=x"), 3251) << keyword;
        EXPECT_EQ(open("Provider=SQLite;"s + keyword + "="), 0) << keyword;
    }
}

TEST_F(Registry, a_program_without_a_provider_says_so) {
    const auto number = [&](const std::string& text) {
        return error_number_of([&] { bare.open(ConnectionString::parse(text)); });
    };
    EXPECT_EQ(number("Provider=SQLite"), 3706);
    EXPECT_EQ(number("ACC"), -2147467259);
    EXPECT_EQ(number(jet(folder.write("a.mdb", sqlite_start))), -2147467259);
    EXPECT_EQ(number(jet(folder.write("b.mdb", jet_start))), -2147467259);
}

} // namespace
} // namespace krv::standard
