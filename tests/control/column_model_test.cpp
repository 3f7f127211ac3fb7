#include "control/column_model.h"

#include "support/errors.h"
#include "support/scarce_memory.h"

#include <gtest/gtest.h>

namespace krv {
namespace {

using testing::error_number_of;

TEST(ColumnModel, never_dimensioned_arrays_have_no_element) {
    ColumnModel model;
    EXPECT_EQ(error_number_of([&] { model.ColEditable(0); }), 9);
    EXPECT_EQ(error_number_of([&] { model.ColDataField(0); }), 9);
    EXPECT_EQ(error_number_of([&] { model.SetColFormat(0, "x"); }), 9);
}

TEST(ColumnModel, new_elements_are_False_zero_and_empty) {
    ColumnModel model;
    model.Resize(0);
    EXPECT_FALSE(model.ColEditable(0));
    EXPECT_EQ(model.ColFromRecord(0), krvListRecord);
    EXPECT_EQ(model.ColDataField(0), "");
    EXPECT_EQ(model.ColIsKey(0), krvListRecord);
    EXPECT_EQ(model.ColFormat(0), "");
    EXPECT_FALSE(model.ColIsNecessary(0));
    EXPECT_EQ(model.ColFieldLength(0), 0);
    EXPECT_EQ(model.ColFieldType(0), 0);
}

TEST(ColumnModel, an_upper_bound_below_0_is_out_of_range_and_changes_nothing) {
    ColumnModel model;
    model.Resize(2);
    model.SetColDataField(2, "nome");
    EXPECT_EQ(error_number_of([&] { model.Resize(-1); }), 9);
    EXPECT_EQ(error_number_of([&] { model.ColDataField(3); }), 9);
    EXPECT_EQ(model.ColDataField(2), "nome");
}

TEST(ColumnModel, every_array_is_tested_one_beyond_the_last_and_at_minus_1) {
    ColumnModel model;
    model.Resize(1);
    for (const std::int32_t col : {-1, 2, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(error_number_of([&] { model.ColEditable(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColEditable(col, true); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColFromRecord(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColFromRecord(col, krvRec1); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColDataField(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColDataField(col, "x"); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColIsKey(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColIsKey(col, krvRec1); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColFormat(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColFormat(col, "x"); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColIsNecessary(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColIsNecessary(col, true); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColFieldLength(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColFieldLength(col, 1); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColFieldType(col); }), 9);
        EXPECT_EQ(error_number_of([&] { model.SetColFieldType(col, 1); }), 9);
    }
}

TEST(ColumnModel, tags_take_16_bits_signed_and_nothing_more) {
    ColumnModel model;
    model.Resize(0);
    for (const std::int32_t value : {-32768, -1, 0, 2, 32767}) {
        model.SetColFromRecord(0, static_cast<krvListRecords>(value));
        EXPECT_EQ(model.ColFromRecord(0), value);
        model.SetColIsKey(0, static_cast<krvListRecords>(value));
        EXPECT_EQ(model.ColIsKey(0), value);
    }
    for (const std::int32_t value : {-32769, 32768, 70000}) {
        EXPECT_EQ(
            error_number_of([&] { model.SetColFromRecord(0, static_cast<krvListRecords>(value)); }),
            6);
        EXPECT_EQ(
            error_number_of([&] { model.SetColIsKey(0, static_cast<krvListRecords>(value)); }), 6);
    }
    EXPECT_EQ(model.ColFromRecord(0), 32767);
    EXPECT_EQ(model.ColIsKey(0), 32767);
}

TEST(ColumnModel, the_column_is_tested_before_the_value_is_narrowed) {
    ColumnModel model;
    model.Resize(0);
    EXPECT_EQ(error_number_of([&] { model.SetColIsKey(1, static_cast<krvListRecords>(70000)); }),
              9);
}

TEST(ColumnModel, columns_that_no_memory_can_hold_fail_with_7_and_change_nothing) {
    for (std::size_t granted = 0; granted < 8; ++granted) {
        ColumnModel model;
        model.Resize(1);
        model.SetColDataField(1, "nome");
        std::int32_t number = 0;
        {
            const testing::ScarceMemory memory(granted);
            number = error_number_of([&] { model.Resize(999); });
        }
        EXPECT_EQ(number, 7) << granted;
        EXPECT_EQ(model.ColDataField(1), "nome");
        EXPECT_EQ(error_number_of([&] { model.ColEditable(2); }), 9);
        EXPECT_EQ(error_number_of([&] { model.ColFieldType(2); }), 9);
    }
}

} // namespace
} // namespace krv
