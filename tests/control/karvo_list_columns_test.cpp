#include "support/errors.h"
#include "support/list_test.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace krv {
namespace {

using ::testing::ElementsAre;
using testing::error_number_of;
using testing::error_source_of;
using ::testing::IsEmpty;
using testing::ListTest;

constexpr std::int32_t long_max = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t long_min = std::numeric_limits<std::int32_t>::min();

class Columns : public ListTest {};

TEST_F(Columns, after_Cols_3_column_3_is_out_of_range_and_column_2_is_empty) {
    list().SetCols(3);
    EXPECT_EQ(error_number_of([&] { list().ColDataField(3); }), 9);
    EXPECT_EQ(list().ColDataField(2), "");
}

TEST_F(Columns, growing_keeps_settings_and_shrinking_discards_them) {
    list().SetCols(3);
    for (std::int32_t col = 0; col < 3; ++col) {
        list().SetColEditable(col, true);
        list().SetColFromRecord(col, krvRec2);
        list().SetColDataField(col, "campo" + std::to_string(col));
        list().SetColIsKey(col, krvRec1);
        list().SetColFormat(col, "0.00");
        list().SetColIsNecessary(col, true);
        list().SetColFieldLength(col, 40);
        list().SetColFieldType(col, 202);
    }
    const auto settings = [&](std::int32_t col) {
        return std::tuple(list().ColEditable(col),
                          list().ColFromRecord(col),
                          list().ColDataField(col),
                          list().ColIsKey(col),
                          list().ColFormat(col),
                          list().ColIsNecessary(col),
                          list().ColFieldLength(col),
                          list().ColFieldType(col));
    };
    const std::tuple fresh(false,
                           krvListRecord,
                           std::string(),
                           krvListRecord,
                           std::string(),
                           false,
                           std::int16_t{0},
                           std::int16_t{0});
    const auto kept = [&](std::int32_t col) {
        return std::tuple(true,
                          krvRec2,
                          "campo" + std::to_string(col),
                          krvRec1,
                          std::string("0.00"),
                          true,
                          std::int16_t{40},
                          std::int16_t{202});
    };
    list().SetCols(5);
    EXPECT_EQ(settings(0), kept(0));
    EXPECT_EQ(settings(1), kept(1));
    EXPECT_EQ(settings(2), kept(2));
    EXPECT_EQ(settings(3), fresh);
    EXPECT_EQ(settings(4), fresh);
    list().SetCols(2);
    list().SetCols(3);
    EXPECT_EQ(settings(1), kept(1));
    EXPECT_EQ(settings(2), fresh);
}

TEST_F(Columns, both_grids_get_the_columns_and_one_notification_comes) {
    list().SetCols(4);
    EXPECT_EQ(parts().Grid.Cols(), 4);
    EXPECT_EQ(parts().GridIn.Cols(), 4);
    EXPECT_EQ(list().Cols(), 4);
    EXPECT_THAT(changed, ElementsAre("Cols"));
}

TEST_F(Columns, the_least_Long_overflows_and_other_counts_below_1_are_out_of_range) {
    list().SetCols(3);
    list().SetColDataField(2, "nome");
    changed.clear();
    EXPECT_EQ(error_number_of([&] { list().SetCols(long_min); }), 6);
    for (const std::int32_t cols : {0, -1, -70000, long_min + 1}) {
        EXPECT_EQ(error_number_of([&] { list().SetCols(cols); }), 9) << cols;
    }
    EXPECT_EQ(list().Cols(), 3);
    EXPECT_EQ(list().ColDataField(2), "nome");
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(Columns, ColFromRecord_70000_overflows_and_krvRec2_reads_back) {
    list().SetColFromRecord(0, krvRec1);
    changed.clear();
    EXPECT_EQ(
        error_number_of([&] { list().SetColFromRecord(0, static_cast<krvListRecords>(70000)); }),
        6);
    EXPECT_EQ(list().ColFromRecord(0), krvRec1);
    EXPECT_THAT(changed, IsEmpty());
    list().SetColFromRecord(0, krvRec2);
    EXPECT_EQ(list().ColFromRecord(0), krvRec2);
    list().SetColFromRecord(0, static_cast<krvListRecords>(-5));
    EXPECT_EQ(list().ColFromRecord(0), -5);
}

TEST_F(Columns, every_column_put_notifies_its_own_name) {
    list().SetColEditable(0, false);
    list().SetColIsNecessary(0, true);
    list().SetColFieldLength(0, 5);
    list().SetColFieldType(0, 3);
    list().SetColFormat(0, "0");
    list().SetColDataField(0, "id");
    list().SetColFromRecord(0, krvRec1);
    list().SetColIsKey(0, krvRec1);
    list().SetCaption(0, "Codice");
    list().SetColWidth(0, 700);
    list().SetColAlignment(0, krvright);
    list().SetLineNumberColumn(0);
    list().SetInputArray(0, "7");
    EXPECT_THAT(changed,
                ElementsAre("ColEditable",
                            "ColIsNecessary",
                            "ColFieldLength",
                            "ColFieldType",
                            "ColFormat",
                            "ColDataField",
                            "ColFromRecord",
                            "ColIsKey",
                            "Caption",
                            "ColWidth",
                            "ColAlignment",
                            "LineNumberColumn",
                            "InputArray"));
}

TEST_F(Columns, a_put_outside_the_columns_notifies_nothing) {
    EXPECT_EQ(error_number_of([&] { list().SetColEditable(1, true); }), 9);
    EXPECT_EQ(error_number_of([&] { list().SetColFormat(-1, "0"); }), 9);
    EXPECT_EQ(error_number_of([&] { list().SetColWidth(1, 100); }), 30010);
    EXPECT_EQ(error_number_of([&] { list().SetColAlignment(1, krvleft); }), 30004);
    EXPECT_EQ(error_number_of([&] { list().SetInputArray(1, "x"); }), 381);
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(Columns, grid_errors_name_the_grid) {
    EXPECT_EQ(error_source_of([&] { list().SetColWidth(1, 100); }), "Grid");
    EXPECT_EQ(error_source_of([&] { list().SetInputArray(1, "x"); }), "GridIn");
    EXPECT_EQ(error_source_of([&] { list().ColFormat(1); }), "krvList3");
}

TEST_F(Columns, captions_are_read_from_the_list_and_written_to_both_grids) {
    list().SetCols(2);
    list().SetCaption(1, "Città");
    EXPECT_EQ(parts().Grid.TextMatrix(0, 1), "Città");
    EXPECT_EQ(parts().GridIn.TextMatrix(0, 1), "Città");
    parts().GridIn.SetTextMatrix(0, 1, "altro");
    EXPECT_EQ(list().Caption(1), "Città");
}

TEST_F(Columns, a_caption_number_beyond_the_captions_is_the_next_cell_of_the_grid) {
    list().SetCols(2);
    list().SetRows(1);
    list().SetCaption(2, "x");
    EXPECT_EQ(list().TextMatrix(0, 0), "x");
    EXPECT_EQ(list().InputArray(0), "x");
    EXPECT_EQ(error_number_of([&] { list().Caption(4); }), 381);
    EXPECT_EQ(error_number_of([&] { list().Caption(-1); }), 381);
}

TEST_F(Columns, widths_reach_both_grids_and_minus_1_is_the_default) {
    list().SetColWidth(0, 40000);
    EXPECT_EQ(parts().Grid.ColWidth(0), 40000);
    EXPECT_EQ(parts().GridIn.ColWidth(0), 40000);
    list().SetColWidth(0, -1);
    EXPECT_EQ(list().ColWidth(0), 960);
    EXPECT_EQ(error_number_of([&] { list().SetColWidth(0, -2); }), 30014);
}

TEST_F(Columns, alignment_is_narrowed_before_a_grid_sees_the_column) {
    EXPECT_EQ(error_number_of([&] { list().SetColAlignment(9, 70000); }), 6);
    EXPECT_EQ(error_number_of([&] { list().SetColAlignment(0, 10); }), 30005);
    for (const std::int32_t value : {0, 1, 2, 4, 7, 9}) {
        list().SetColAlignment(0, value);
        EXPECT_EQ(list().ColAlignment(0), value);
        EXPECT_EQ(parts().GridIn.ColAlignment(0), value);
    }
}

TEST_F(Columns, ColPos_adds_up_the_widths_and_checks_nothing_itself) {
    list().SetCols(3);
    list().SetColWidth(0, 500);
    list().SetColWidth(1, 700);
    EXPECT_EQ(list().ColPos(0), 0);
    EXPECT_EQ(list().ColPos(1), 500);
    EXPECT_EQ(list().ColPos(2), 1200);
    EXPECT_EQ(error_number_of([&] { list().ColPos(3); }), 30010);
    EXPECT_EQ(error_number_of([&] { list().ColPos(-1); }), 30010);
}

TEST_F(Columns, LineNumberColumn_takes_any_Long) {
    for (const std::int32_t col : {-1, 0, 99, long_max, long_min}) {
        list().SetLineNumberColumn(col);
        EXPECT_EQ(list().LineNumberColumn(), col);
    }
}

class RowCount : public ListTest {};

TEST_F(RowCount, Rows_0_leaves_the_caption_row_alone) {
    list().SetRows(3);
    list().SetRows(0);
    EXPECT_EQ(list().Rows(), 0);
    EXPECT_EQ(parts().Grid.Rows(), 1);
}

TEST_F(RowCount, Rows_5_makes_the_grid_six_rows_high_and_leaves_the_input_line) {
    changed.clear();
    list().SetRows(5);
    EXPECT_EQ(parts().Grid.Rows(), 6);
    EXPECT_EQ(parts().GridIn.Rows(), 2);
    EXPECT_EQ(list().Rows(), 5);
    EXPECT_THAT(changed, ElementsAre("Rows"));
}

TEST_F(RowCount, the_largest_Long_overflows_and_less_than_none_is_the_grids_error) {
    list().SetRows(2);
    changed.clear();
    EXPECT_EQ(error_number_of([&] { list().SetRows(long_max); }), 6);
    EXPECT_EQ(error_number_of([&] { list().SetRows(-1); }), 30009);
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_THAT(changed, IsEmpty());
}

} // namespace
} // namespace krv
