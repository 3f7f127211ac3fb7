#include "companions/cell_values.h"
#include "companions/refusal.h"

#include "krv/standard/value_formatter.h"

#include <gtest/gtest.h>

namespace krv::companions {
namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;

const standard::ValueFormatter& formatter(const char* region) {
    static const standard::ValueFormatter italian{standard::regional_settings("it-IT")};
    static const standard::ValueFormatter american{standard::regional_settings("en-US")};
    return std::string_view(region) == "it-IT" ? italian : american;
}

Value value(std::int16_t type,
            const char* pattern,
            const std::string& text,
            const char* region = "it-IT") {
    TableColumn column;
    column.caption = "c";
    column.type = type;
    column.pattern = pattern;
    return value_of_cell(column, text, formatter(region));
}

std::string refusal(std::int16_t type,
                    const char* pattern,
                    const std::string& text,
                    const char* region = "it-IT") {
    try {
        value(type, pattern, text, region);
    } catch (const Refusal& refused) {
        return refused.text();
    }
    return {};
}

TEST(CellValues, a_blank_text_is_Null_in_every_kind) {
    for (const std::int16_t type : {0, 2, 3, 4, 5, 6, 7, 11, 20, 131, 133, 202, 205}) {
        EXPECT_TRUE(value(type, "", "").view().is_null()) << type;
        EXPECT_TRUE(value(type, "0.00", "  ").view().is_null()) << type;
    }
}

TEST(CellValues, whole_numbers_are_as_wide_as_their_type) {
    EXPECT_EQ(value(3, "", "5").kind(), ValueKind::long_integer);
    EXPECT_EQ(value(20, "", "5").kind(), ValueKind::long_long);
    EXPECT_EQ(value(3, "", "2147483648").kind(), ValueKind::long_long);
    EXPECT_EQ(value(21, "", "18446744073709551615").view().as_decimal(),
              (platform::Decimal{~std::uint64_t{0}, 0, 0, false}));
}

TEST(CellValues, a_text_without_a_pattern_is_read_by_the_region) {
    EXPECT_EQ(value(5, "", "1.5").view().as_double(), 15);
    EXPECT_EQ(value(5, "", "1.5", "en-US").view().as_double(), 1.5);
    EXPECT_EQ(value(133, "", "05/03/2024").view().as_date().serial, 45356);
    EXPECT_EQ(value(133, "", "05/03/2024", "en-US").view().as_date().serial, 45415);
}

TEST(CellValues, a_date_under_a_pattern_is_read_alike_in_every_region) {
    for (const char* region : {"it-IT", "en-US"}) {
        EXPECT_EQ(value(133, "dd/mm/yyyy", "05/03/2024", region).view().as_date().serial, 45356);
        EXPECT_EQ(value(133, "mm/dd/yyyy", "03/05/2024", region).view().as_date().serial, 45356);
    }
}

TEST(CellValues, a_date_that_its_pattern_does_not_give_back_is_refused) {
    // The names leave no order of digits to read by, so the region decides, and decides otherwise.
    EXPECT_EQ(refusal(133, "mm/dd/yyyy ddd", "05/03/2024 dom"),
              "Colonna \"c\": \"05/03/2024 dom\" non può essere riletto con il formato della"
              " colonna.");
    EXPECT_EQ(refusal(133, "dd/mm/yyyy", "5/3/2024"),
              "Colonna \"c\": \"5/3/2024\" non può essere riletto con il formato della colonna.");
}

TEST(CellValues, cells_are_shown_as_a_load_shows_them) {
    const auto& italian = formatter("it-IT");
    EXPECT_EQ(shown_text(ValueView::null(), "0.00;;;x", italian), "");
    EXPECT_EQ(shown_text(ValueView::double_float(1.5), "", italian), "1,5");
    EXPECT_EQ(shown_text(ValueView::double_float(1.5), "0.00", italian), "1,50");
    EXPECT_EQ(shown_text(ValueView::text("007"), "", italian), "007");
}

TEST(CellValues, a_tab_shows_as_a_blank) {
    EXPECT_TRUE(shows_the_same("a\tb", "a b"));
    EXPECT_TRUE(shows_the_same("", ""));
    EXPECT_FALSE(shows_the_same("a b", "a  b"));
    EXPECT_FALSE(shows_the_same("a", "A"));
}

} // namespace
} // namespace krv::companions
