#include "server/values.h"

#include "server/data_values.h"
#include "server/rpc_error.h"
#include "support/errors.h"

#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

namespace krv::server {

namespace {

using krv::testing::error_number_of;
using platform::Value;
using platform::ValueKind;
using platform::ValueView;

class Focusable : public platform::Object {};

TEST(Values, of_whole_numbers_are_Long_where_they_fit) {
    const ObjectTable objects;
    EXPECT_EQ(value_of(-2147483648LL, objects).kind(), ValueKind::long_integer);
    EXPECT_EQ(value_of(2147483647, objects).view().as_whole(), 2147483647);
    EXPECT_EQ(value_of(2147483648LL, objects).kind(), ValueKind::double_float);
    EXPECT_EQ(value_of(18446744073709551615ULL, objects).view().as_double(),
              18446744073709551615.0);
    EXPECT_EQ(value_of(1.5, objects).view().as_double(), 1.5);
}

TEST(Values, of_arrays_and_other_objects_convert_to_nothing) {
    const ObjectTable objects;
    for (const Json& json :
         {Json::array(), Json::object(), Json{{"object", 1}}, Json{{"x", "y"}}}) {
        EXPECT_EQ(value_of(json, objects).kind(), ValueKind::bytes) << json;
    }
}

TEST(Values, of_objects_go_by_their_names) {
    ObjectTable objects;
    const auto one = std::make_shared<Focusable>();
    objects.add("uno", one);
    EXPECT_EQ(value_of({{"object", "uno"}}, objects).shared_object(), one);
    EXPECT_EQ(json_of(Value(one), objects), Json({{"object", "uno"}}));
    EXPECT_EQ(json_of(Value(std::shared_ptr<platform::Object>()), objects), Json());
    EXPECT_EQ(error_number_of([&] { value_of({{"object", "due"}}, objects); }), 424);
}

TEST(Values, of_objects_without_a_name_get_one_and_keep_it) {
    ObjectTable objects;
    const Value value{std::make_shared<Focusable>()};
    EXPECT_EQ(json_of(value, objects), Json({{"object", "object1"}}));
    EXPECT_EQ(json_of(value, objects), Json({{"object", "object1"}}));
}

TEST(Values, an_earlier_object_loses_its_name_to_a_later_one) {
    ObjectTable objects;
    const auto first = std::make_shared<Focusable>();
    const auto second = std::make_shared<Focusable>();
    objects.add("uno", first);
    objects.add("uno", second);
    EXPECT_EQ(objects.find("uno"), second);
    EXPECT_EQ(objects.name_of(first), "object1");
}

TEST(Values, singles_are_written_as_short_as_they_can_be_read) {
    ObjectTable objects;
    EXPECT_EQ(to_text(json_of(Value(ValueView::single(12.6F)), objects)), "12.6");
    EXPECT_EQ(to_text(json_of(Value(ValueView::single(1011.0F)), objects)), "1011.0");
    EXPECT_EQ(static_cast<float>(shortest(std::numeric_limits<float>::denorm_min())),
              std::numeric_limits<float>::denorm_min());
    EXPECT_TRUE(std::isinf(shortest(std::numeric_limits<float>::infinity())));
}

// --- Values of a database ------------------------------------------------------------------------

const platform::Formatter& formatter() {
    static const standard::ValueFormatter italian(standard::regional_settings("it-IT"));
    return italian;
}

std::string written(ValueView value) {
    return to_text(json_of_data(value, formatter()));
}

TEST(DataValues, keep_what_JSON_has_and_are_tagged_otherwise) {
    const std::byte bytes[] = {std::byte{0}, std::byte{0xAB}, std::byte{0xFF}};
    EXPECT_EQ(written(ValueView()), "null");
    EXPECT_EQ(written(ValueView::null()), "null");
    EXPECT_EQ(written(ValueView::boolean(true)), "true");
    EXPECT_EQ(written(ValueView::byte(255)), "255");
    EXPECT_EQ(written(ValueView::single(0.1F)), "0.1");
    EXPECT_EQ(written(ValueView::double_float(0.1)), "0.1");
    EXPECT_EQ(written(ValueView::text("a\"")), "\"a\\\"\"");
    EXPECT_EQ(written(ValueView::bytes(bytes)), R"({"hex":"00abff"})");
    EXPECT_EQ(written(ValueView::currency({-12345})), R"({"decimal":"-1.2345"})");
    EXPECT_EQ(written(ValueView::currency({5})), R"({"decimal":"0.0005"})");
    EXPECT_EQ(written(ValueView::currency({0})), R"({"decimal":"0"})");
    EXPECT_EQ(written(ValueView::currency({12000000})), R"({"decimal":"1200"})");
    EXPECT_EQ(written(ValueView::decimal({15, 0, 1, true})), R"({"decimal":"-1.5"})");
    EXPECT_EQ(written(ValueView::date({36526.75})), R"({"date":"2000-01-01 18:00:00"})");
    EXPECT_EQ(written(ValueView::date({-1.75})), R"({"date":"1899-12-29 18:00:00"})");
    EXPECT_EQ(written(ValueView::date({0})), R"({"date":"1899-12-30 00:00:00"})");
    EXPECT_EQ(written(ValueView::date({-657434})), R"({"date":"0100-01-01 00:00:00"})");
}

TEST(DataValues, whole_numbers_beyond_2_to_the_53_are_exact) {
    constexpr std::int64_t last = std::int64_t{1} << 53;
    EXPECT_EQ(written(ValueView::long_long(last)), "9007199254740992");
    EXPECT_EQ(written(ValueView::long_long(-last)), "-9007199254740992");
    EXPECT_EQ(written(ValueView::long_long(last + 1)), R"({"decimal":"9007199254740993"})");
    EXPECT_EQ(written(ValueView::long_long(std::numeric_limits<std::int64_t>::min())),
              R"({"decimal":"-9223372036854775808"})");
}

TEST(DataValues, infinite_numbers_are_their_texts) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(json_of_data(ValueView::double_float(infinite), formatter()),
              Json(formatter().CStr(ValueView::double_float(infinite))));
    EXPECT_TRUE(json_of_data(ValueView::double_float(-infinite), formatter()).is_string());
}

TEST(DataValues, parameters_take_the_forms_that_reading_gives) {
    for (const Json& json : {Json(),
                             Json(true),
                             Json(5),
                             Json(1.5),
                             Json("a"),
                             Json{{"decimal", "9007199254740993"}},
                             Json{{"date", "2000-01-01 18:00:00"}},
                             Json{{"hex", "00abff"}}}) {
        EXPECT_EQ(json_of_data(data_value_of(json).view(), formatter()), json);
    }
    EXPECT_EQ(data_value_of(9007199254740993LL).view().as_whole(), 9007199254740993LL);
    for (const Json& json : {Json::array(),
                             Json::object(),
                             Json{{"hex", "0"}},
                             Json{{"hex", "0g"}},
                             Json{{"hex", "+1"}},
                             Json{{"date", "2000-02-30"}},
                             Json{{"decimal", "1,5"}},
                             Json{{"other", "1"}},
                             Json{{"decimal", 1}},
                             Json{{"decimal", "1"}, {"hex", "00"}}}) {
        EXPECT_THROW(data_value_of(json), RpcError) << json;
    }
}

TEST(DataValues, of_a_kind_are_read_with_a_period) {
    const auto text_of = [](std::string_view kind, const Json& json) {
        return formatter().CStr(value_of_kind(kind, json).view());
    };
    EXPECT_EQ(text_of("Double", "1.5"), "1,5");
    EXPECT_EQ(text_of("Double", 1.5), "1,5");
    EXPECT_EQ(text_of("Double", "+1E3"), "1000");
    EXPECT_EQ(text_of("Currency", "1.23455"), "1,2346");
    EXPECT_EQ(text_of("Date", "2000-01-02 00:00:00"), "02/01/2000");
    EXPECT_EQ(text_of("Date", {{"date", "2000-01-02 00:00:00"}}), "02/01/2000");
    EXPECT_EQ(value_of_kind("Null", Json()).kind(), ValueKind::null);
    EXPECT_EQ(value_of_kind("Boolean", "True").view().as_boolean(), true);
    EXPECT_EQ(value_of_kind("Boolean", false).view().as_boolean(), false);
    EXPECT_EQ(value_of_kind("String", "").kind(), ValueKind::text);
    EXPECT_EQ(value_of_kind("Byte", "255").kind(), ValueKind::byte);
    for (const auto& [kind, json] : std::vector<std::pair<std::string, Json>>{{"Byte", "256"},
                                                                              {"Byte", "-1"},
                                                                              {"Integer", "32768"},
                                                                              {"Long", "1.5"},
                                                                              {"Long", ""},
                                                                              {"Double", "1,5"},
                                                                              {"Double", "1 "},
                                                                              {"Boolean", "yes"},
                                                                              {"Date", "abc"},
                                                                              {"Variant", "1"}}) {
        EXPECT_THROW(value_of_kind(kind, json), RpcError) << kind << json;
    }
}

} // namespace

} // namespace krv::server
