#include "providers/odbc/settings.h"

#include "krv/providers/odbc.h"
#include "krv/standard/ado.h"
#include "krv/standard/data_error.h"
#include "support/errors.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace krv::providers::odbc {
namespace {

using krv::testing::error_number_of;
using standard::ConnectionString;

constexpr std::int32_t malformed = -2147217805;

OdbcSettings settings_of(const std::string& text) {
    return odbc_settings(ConnectionString::parse(text));
}

std::string passed_on(const std::string& text) {
    return settings_of(text).connection_string;
}

std::int32_t error(const std::string& text) {
    return error_number_of([&] { settings_of(text); });
}

/// The driver manager's files are the test's own. It looks for their place once only.
class OdbcSettingsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const krv::testing::TemporaryFolder folder;
        folder.write("odbcinst.ini",
                     "[Grande]\nDriver=/opt/lib/psqlodbcw.so\n"
                     "[Altro]\nDriver=libmaodbc.so\n"
                     "[Jet]\nDriver=/usr/lib/odbc/libmdbodbc.so\n");
        folder.write("odbc.ini",
                     "[negozio]\nDriver=Grande\n[vecchio]\nDriver=Jet\n"
                     "[diretto]\nDriver=/usr/lib/libmdbodbcW.so\n");
        setenv("ODBCSYSINI", folder.path().c_str(), 1);
        setenv("ODBCINI", folder.file("odbc.ini").c_str(), 1);
    }
};

TEST_F(OdbcSettingsTest, keywords_are_translated_left_out_or_passed_on_in_their_order) {
    EXPECT_EQ(passed_on("Provider=MSDASQL;Server=s;Data Source=x;User ID=u;Password=p;"
                        "Initial Catalog=c;Mode=Read;Persist Security Info=True;Altro=1"),
              "Server=s;DSN=x;UID=u;PWD=p;DATABASE=c;Altro=1;");
    EXPECT_EQ(passed_on("Data Source=x;Extended Properties=\"A=1;DSN=y;B={z;}\""),
              "DSN=y;A=1;B={z;};");
    EXPECT_EQ(passed_on("ACC"), "DSN=ACC;");
}

TEST_F(OdbcSettingsTest, values_with_marks_stand_in_braces) {
    EXPECT_EQ(passed_on("DSN=x;PWD={p;w\"d{}}=}"), "DSN=x;PWD={p;w\"d{}}=};");
    EXPECT_EQ(passed_on("DSN=x;A=\" b \";C='d@e';F=g h"), "DSN=x;A={ b };C={d@e};F=g h;");
}

TEST_F(OdbcSettingsTest, drivers_are_told_to_read_in_pieces_where_the_string_does_not_say) {
    EXPECT_EQ(passed_on("DSN=negozio"),
              "DSN=negozio;UseDeclareFetch=1;Fetch=1024;BoolsAsChar=0;MaxVarcharSize=32768;"
              "Debug=0;CommLog=0;");
    EXPECT_EQ(passed_on("Driver=Grande;usedeclarefetch=0;FETCH=7;BoolsAsChar=1;MaxVarcharSize=9;"
                        "Debug=0;CommLog=0"),
              "Driver=Grande;usedeclarefetch=0;FETCH=7;BoolsAsChar=1;MaxVarcharSize=9;"
              "Debug=0;CommLog=0;");
    EXPECT_EQ(passed_on("Driver=Altro"), "Driver=Altro;NO_CACHE=1;FORWARDONLY=1;");
    EXPECT_EQ(passed_on("Driver=/x/libsonst.so"), "Driver=/x/libsonst.so;");
}

TEST_F(OdbcSettingsTest, the_timeout_of_the_login_is_15_seconds_unless_told) {
    EXPECT_EQ(settings_of("DSN=x").login_timeout_s, 15U);
    EXPECT_EQ(settings_of("DSN=x;connect timeout=3").login_timeout_s, 3U);
    EXPECT_EQ(settings_of("DSN=x;Connect Timeout=0").login_timeout_s, 0U);
    EXPECT_EQ(error("DSN=x;Connect Timeout=-1"), malformed);
    EXPECT_EQ(error("DSN=x;Connect Timeout=3s"), malformed);
    EXPECT_EQ(error("DSN=x;Connect Timeout=99999999999"), malformed);
}

TEST_F(OdbcSettingsTest, what_no_driver_could_bear_is_malformed) {
    EXPECT_EQ(error("DSN=" + std::string(100000, 'x')), malformed);
    EXPECT_EQ(error("Driver=" + std::string(1001, 'x')), malformed);
    EXPECT_EQ(error("A=" + std::string(4001, 'x')), malformed);
    EXPECT_EQ(error("A=" + std::string(3999, 'x') + ";B=" + std::string(3999, 'x') +
                    ";C=" + std::string(100, 'x')),
              malformed);
    EXPECT_EQ(error("DSN=x;A==B=1"), malformed);
    EXPECT_EQ(error(std::string("DSN=x;A=b\0c", 11)), malformed);
}

TEST_F(OdbcSettingsTest, Jet_is_never_read_through_ODBC) {
    for (const char* text : {"DSN=vecchio",
                             "DSN=diretto",
                             "Driver=Jet;DBQ=x.mdb",
                             "Driver={/usr/lib/x86_64-linux-gnu/odbc/libmdbodbc.so}",
                             "vecchio"}) {
        EXPECT_EQ(error(text), 3251) << text;
    }
}

TEST_F(OdbcSettingsTest, files_with_connection_strings_are_not_served) {
    EXPECT_EQ(error("DSN=x;SaveFile=/tmp/x"), 3251);
    EXPECT_EQ(error("FileDSN=/tmp/x"), 3251);
}

TEST_F(OdbcSettingsTest, a_missing_driver_or_source_is_a_clear_error_without_the_password) {
    standard::AdoDataAccess access(std::make_shared<standard::ProviderRegistry>(
        standard::ProviderRegistry::Providers{nullptr, nullptr, make_odbc_provider()}));
    for (const char* text : {"ACC",
                             "DSN=manca;PWD=zq7segreto",
                             "Driver=manca;PWD=zq7segreto",
                             "Driver=/manca/zq7segreto.so;PWD=zq7segreto",
                             "Provider=MSDASQL;PWD=zq7segreto",
                             "Server=x"}) {
        try {
            access.CreateConnection()->Open(text, "", "", -1);
            ADD_FAILURE() << text;
        } catch (const standard::DataError& failure) {
            EXPECT_EQ(failure.number(), -2147467259) << text;
            EXPECT_EQ(failure.source(), "ODBC");
            EXPECT_EQ(failure.sql_state().size(), 5U);
            EXPECT_THAT(failure.description(), ::testing::HasSubstr("Driver Manager"));
            EXPECT_THAT(failure.description(), ::testing::Not(::testing::HasSubstr("segreto")));
        }
    }
}

} // namespace
} // namespace krv::providers::odbc
