#include "krv/standard/connection_string.h"

#include "krv/standard/data_error.h"

#include <gmock/gmock.h>

namespace krv::standard {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::vector<std::string> pairs_of(std::string_view text) {
    std::vector<std::string> result;
    const auto settings = ConnectionString::parse(text);
    for (const auto& pair : settings.pairs()) {
        result.push_back(pair.keyword + "|" + pair.value);
    }
    return result;
}

std::string value_of(std::string_view text) {
    return std::string(ConnectionString::parse(text).value("k"));
}

std::int32_t parse_error(std::string_view text) {
    try {
        ConnectionString::parse(text);
    } catch (const DataError& error) {
        return error.number();
    }
    return 0;
}

TEST(ConnectionString, the_built_Jet_string_has_two_pairs) {
    EXPECT_THAT(pairs_of("Provider= Microsoft.Jet.OLEDB.4.0; Data Source=/a b/c.mdb;"),
                ElementsAre("Provider|Microsoft.Jet.OLEDB.4.0", "Data Source|/a b/c.mdb"));
}

TEST(ConnectionString, empty_pairs_are_skipped_and_the_last_semicolon_is_optional) {
    EXPECT_THAT(pairs_of(";; a=1 ; ;b=2"), ElementsAre("a|1", "b|2"));
    EXPECT_THAT(pairs_of("a=1;b=2;"), ElementsAre("a|1", "b|2"));
}

TEST(ConnectionString, keywords_ignore_letter_case_and_outer_blanks_only) {
    const auto settings = ConnectionString::parse("  dAtA sOuRcE \t=\r\n x ;DataSource=y");
    EXPECT_EQ(settings.value("Data Source"), "x");
    EXPECT_EQ(settings.value("DATASOURCE"), "y");
    EXPECT_EQ(settings.value("Data  Source"), "");
}

TEST(ConnectionString, a_doubled_equals_sign_in_a_keyword_is_one) {
    EXPECT_THAT(pairs_of("a==b=c"), ElementsAre("a=b|c"));
    EXPECT_THAT(pairs_of("a===c"), ElementsAre("a=|c"));
}

TEST(ConnectionString, an_equals_sign_in_a_value_is_plain) {
    EXPECT_EQ(value_of("k=a=b==c"), "a=b==c");
}

TEST(ConnectionString, a_quoted_value_keeps_semicolons_blanks_and_the_other_quote) {
    EXPECT_EQ(value_of("k=\" a;b'c= \" ; x=1"), " a;b'c= ");
    EXPECT_EQ(value_of("k=' a;b\"c= ';x=1"), " a;b\"c= ");
}

TEST(ConnectionString, a_doubled_quote_inside_stands_for_one) {
    EXPECT_EQ(value_of("k=\"a\"\"b\""), "a\"b");
    EXPECT_EQ(value_of("k='a''b'"), "a'b");
    EXPECT_EQ(value_of("k=''''"), "'");
    EXPECT_EQ(value_of("k=\"\""), "");
}

TEST(ConnectionString, quotes_further_in_are_plain) {
    EXPECT_EQ(value_of("k=a\"b;x=1"), "a\"b");
    EXPECT_EQ(value_of("k=it's"), "it's");
}

TEST(ConnectionString, braces_are_the_ODBC_form) {
    EXPECT_EQ(value_of("k={SQL Server};x=1"), "SQL Server");
    EXPECT_EQ(value_of("k={p;w\"d{}}=} ;x=1"), "p;w\"d{}=");
    EXPECT_EQ(value_of("k={}"), "");
}

TEST(ConnectionString, braces_that_do_not_end_the_value_are_plain) {
    EXPECT_EQ(value_of("k={a}b;x=1"), "{a}b");
    EXPECT_EQ(value_of("k={a;x=1"), "{a");
    EXPECT_EQ(value_of("k=a{b}"), "a{b}");
}

TEST(ConnectionString, a_text_without_equals_sign_names_a_data_source) {
    EXPECT_THAT(pairs_of("ACC"), ElementsAre("Data Source|ACC"));
    EXPECT_THAT(pairs_of("  My Source ; "), ElementsAre("Data Source|My Source"));
}

TEST(ConnectionString, an_empty_text_has_no_pairs) {
    EXPECT_THAT(pairs_of(""), ElementsAre());
    EXPECT_THAT(pairs_of(" ; ;"), ElementsAre());
}

TEST(ConnectionString, a_pair_without_equals_sign_beside_others_is_malformed) {
    for (const char* text : {"ACC;a=1", "a=1;ACC", "a=1;ACC;b=2", "a==b"}) {
        EXPECT_EQ(parse_error(text), -2147217805) << text;
    }
}

TEST(ConnectionString, open_quotes_text_behind_them_and_empty_keywords_are_malformed) {
    for (const char* text :
         {"k=\"a", "k='a", "k=\"a\"b", "k='a' b;x=1", "k=\"a\"\"", "=1", " =1"}) {
        EXPECT_EQ(parse_error(text), -2147217805) << text;
    }
}

TEST(ConnectionString, the_error_does_not_quote_the_string) {
    try {
        ConnectionString::parse("Password=\"geheim");
        FAIL();
    } catch (const DataError& error) {
        EXPECT_THAT(error.description(), Not(HasSubstr("geheim")));
        EXPECT_EQ(error.source(), "ADODB.Connection");
    }
}

TEST(ConnectionString, of_a_repeated_keyword_the_last_value_counts) {
    EXPECT_THAT(pairs_of("a=1;b=2;A=3"), ElementsAre("a|3", "b|2"));
}

TEST(ConnectionString, two_providers_that_differ_are_refused) {
    EXPECT_EQ(parse_error("Provider=SQLite;provider=MSDASQL"), -2147217805);
    EXPECT_EQ(ConnectionString::parse("Provider=;Provider=SQLite").value("Provider"), "SQLite");
    EXPECT_EQ(ConnectionString::parse("Provider=SQLite;Provider=").value("Provider"), "SQLite");
    EXPECT_EQ(ConnectionString::parse("Provider=SQLite;provider=sqlite").value("Provider"),
              "sqlite");
}

TEST(ConnectionString, a_login_beats_either_spelling_of_the_strings_own) {
    auto settings = ConnectionString::parse("UID=a;PWD=b;x=1");
    settings.set_login("carla", "");
    EXPECT_EQ(settings.value("UID"), "");
    EXPECT_EQ(settings.value("User ID"), "carla");
    EXPECT_EQ(settings.value("PWD"), "b");
    settings.set_login("", "d");
    EXPECT_EQ(settings.value("PWD"), "");
    EXPECT_EQ(settings.value("Password"), "d");
    EXPECT_EQ(settings.value("User ID"), "carla");
}

TEST(ConnectionStringSecrets, are_replaced_raw_in_braces_and_in_quotes) {
    const auto settings = ConnectionString::parse("DSN=x;PWD={p}}w\"d};Other=visible");
    EXPECT_EQ(
        settings.without_secrets("raw p}w\"d, braced {p}}w\"d}, quoted \"p}w\"\"d\"; visible"),
        "raw ***, braced {***}, quoted \"***\"; visible");
}

TEST(ConnectionStringSecrets, are_known_by_their_keywords) {
    for (const char* keyword : {"PWD",
                                "password",
                                "Jet OLEDB:Database Password",
                                "Jet OLEDB:New Database Password",
                                "MyPwd",
                                "Client Secret",
                                "AccessToken"}) {
        const auto settings = ConnectionString::parse(std::string(keyword) + "=zq1");
        EXPECT_EQ(settings.without_secrets("a zq1 b"), "a *** b") << keyword;
    }
    EXPECT_EQ(ConnectionString::parse("User ID=zq1").without_secrets("a zq1 b"), "a zq1 b");
}

TEST(ConnectionStringSecrets, inside_Extended_Properties_are_replaced_too) {
    const auto settings = ConnectionString::parse("Extended Properties=\"DSN=d;PWD=zq1\"");
    EXPECT_EQ(settings.without_secrets("DSN=d;PWD=zq1"), "DSN=d;PWD=***");
    const auto broken = ConnectionString::parse("Extended Properties=\"PWD='zq1;x\"");
    EXPECT_EQ(broken.without_secrets("<PWD='zq1;x>"), "<***>");
}

TEST(ConnectionStringSecrets, the_longer_one_goes_first_and_an_empty_one_changes_nothing) {
    const auto settings = ConnectionString::parse("PWD=ab;Token=abcd;Secret=");
    EXPECT_EQ(settings.without_secrets("abcd ab"), "*** ***");
}

TEST(ConnectionStringSecrets, a_password_given_beside_the_string_is_one) {
    ConnectionString settings;
    settings.set_login("", "zq1");
    EXPECT_EQ(settings.without_secrets("zq1"), "***");
}

} // namespace
} // namespace krv::standard
