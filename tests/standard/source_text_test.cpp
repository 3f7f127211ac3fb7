#include "standard/ado/source_text.h"

#include <gmock/gmock.h>

namespace krv::standard {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(SourceText, outer_blanks_and_one_trailing_semicolon_are_cut) {
    EXPECT_EQ(trimmed_source(" \t\n persone ; "), "persone");
    EXPECT_EQ(trimmed_source("select 1;;"), "select 1;");
    EXPECT_EQ(trimmed_source(" "), "");
    EXPECT_EQ(trimmed_source(";"), "");
}

TEST(SourceText, a_name_is_split_at_the_dots_outside_quotes) {
    EXPECT_THAT(split_name("a.b.c"), Optional(ElementsAre("a", "b", "c")));
    EXPECT_THAT(split_name("[a.b].\"c.d\".`e.f`"), Optional(ElementsAre("a.b", "c.d", "e.f")));
    EXPECT_THAT(split_name("main . Order Details"), Optional(ElementsAre("main", "Order Details")));
}

TEST(SourceText, a_doubled_closing_character_stands_for_itself) {
    EXPECT_THAT(split_name("[a]]b]"), Optional(ElementsAre("a]b")));
    EXPECT_THAT(split_name("\"a\"\"b\""), Optional(ElementsAre("a\"b")));
    EXPECT_THAT(split_name("`a``b`"), Optional(ElementsAre("a`b")));
    EXPECT_THAT(split_name("[a[b]"), Optional(ElementsAre("a[b")));
}

TEST(SourceText, what_is_no_name_is_not_split) {
    for (const char* text : {"", ".", "a.", ".a", "a..b", "[a", "\"a", "`a``", "[a]b", "[].a"}) {
        EXPECT_FALSE(split_name(text).has_value()) << text;
    }
}

TEST(SourceText, a_lone_identifier_is_bare_or_wholly_quoted) {
    for (const char* text :
         {"persone", "t1", "_a$#@", "città", "[due parole]", "\"a;b\"", "`x y`"}) {
        EXPECT_TRUE(is_lone_identifier(text)) << text;
    }
}

TEST(SourceText, statements_and_several_names_are_no_lone_identifier) {
    for (const char* text :
         {"", "values(1)", "select 1", "a.b", "[a].[b]", "[a", "\"a\" b", "a;b", "a-b", "'a'"}) {
        EXPECT_FALSE(is_lone_identifier(text)) << text;
    }
}

TEST(SourceText, quoting_doubles_the_quote_in_every_part) {
    const TableName name{"ma\"in", "a`b]"};
    EXPECT_EQ(quoted_name(name, '"'), "\"ma\"\"in\".\"a`b]\"");
    EXPECT_EQ(quoted_name(name, '`'), "`ma\"in`.`a``b]`");
}

} // namespace
} // namespace krv::standard
