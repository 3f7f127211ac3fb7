#include "companions/record_statements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv::companions {
namespace {

using platform::Value;
using platform::ValueView;

TableColumn column(const char* field, std::int16_t type) {
    TableColumn result;
    result.field = field;
    result.type = type;
    return result;
}

const TableColumn key = column("id", 3);
const TableColumn name = column("na\"me", 202);
const Value five{ValueView::long_integer(5)};
const Value null{ValueView::null()};

TEST(RecordStatements, quote_every_name_and_bind_every_value) {
    const RecordStatements statements({.table = "or\"ders", .schema = "shop"});
    EXPECT_EQ(statements.select({key, name}, {{&key, five}}).sql,
              R"(SELECT "id", "na""me" FROM "shop"."or""ders" WHERE "id" = ?)");
    EXPECT_EQ(statements.select_nothing({key}).sql,
              R"(SELECT "id" FROM "shop"."or""ders" WHERE 1 = 0)");
    EXPECT_EQ(statements.remove({{&key, five}}).sql,
              R"(DELETE FROM "shop"."or""ders" WHERE "id" = ?)");
    const Statement update = statements.update({{&name, Value::text("x")}}, {{&key, five}});
    EXPECT_EQ(update.sql, R"(UPDATE "shop"."or""ders" SET "na""me" = ? WHERE "id" = ?)");
    ASSERT_EQ(update.parameters.size(), 2U);
    EXPECT_EQ(update.parameters[0].view().as_text(), "x");
    EXPECT_EQ(update.parameters[1].view().as_whole(), 5);
}

TEST(RecordStatements, insert_asks_for_the_given_fields) {
    const RecordStatements statements({.table = "t"});
    EXPECT_EQ(statements.insert({{&key, five}, {&name, null}}, {}).sql,
              R"(INSERT INTO "t" ("id", "na""me") VALUES (?, ?))");
    EXPECT_EQ(statements.insert({}, {&key}).sql,
              R"(INSERT INTO "t" DEFAULT VALUES RETURNING "id")");
}

TEST(RecordStatements, engines_with_backticks_have_their_own_record_of_defaults) {
    const RecordStatements statements({.table = "t", .quotes = NameQuotes::backticks});
    EXPECT_EQ(statements.insert({}, {&key}).sql, "INSERT INTO `t` () VALUES () RETURNING `id`");
}

TEST(RecordStatements, Null_in_a_key_is_asked_for_and_not_compared) {
    const RecordStatements statements({.table = "t"});
    const Statement select = statements.select({key}, {{&key, null}, {&name, null}});
    EXPECT_EQ(select.sql,
              R"(SELECT "id" FROM "t" WHERE "id" IS NULL AND ("na""me" IS NULL OR "na""me" = ''))");
    EXPECT_TRUE(select.parameters.empty());
}

TEST(RecordStatements, the_quotes_and_the_lock_are_those_of_the_engine) {
    const RecordStatements brackets(
        {.table = "a]b[", .quotes = NameQuotes::brackets, .lock_clause = "FOR UPDATE"});
    EXPECT_EQ(brackets.select({key}, {{&key, five}}).sql,
              "SELECT [id] FROM [a]]b[] WHERE [id] = ? FOR UPDATE");
    const RecordStatements backticks({.table = "a`b", .quotes = NameQuotes::backticks});
    EXPECT_EQ(backticks.remove({{&key, five}}).sql, "DELETE FROM `a``b` WHERE `id` = ?");
}

} // namespace
} // namespace krv::companions
