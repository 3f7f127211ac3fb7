#include "standard/grid/column_measures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <vector>

using krv::standard::ColumnMeasures;

TEST(column_measures, columns_have_960_twips_and_general_alignment) {
    const ColumnMeasures columns;
    EXPECT_EQ(columns.width(0), 960);
    EXPECT_EQ(columns.alignment(0), 9);
    EXPECT_EQ(columns.left(3), 2880);
    EXPECT_EQ(columns.col_at(2879), 2);
    EXPECT_EQ(columns.col_at(2880), 3);
}

TEST(column_measures, alignment_and_width_do_not_touch_each_other) {
    ColumnMeasures columns;
    columns.set_alignment(2, 7);
    columns.set_width(2, 100);
    columns.set_alignment(2, 9);
    EXPECT_EQ(columns.width(2), 100);
    columns.set_alignment(2, 1);
    columns.set_width(2, 960);
    EXPECT_EQ(columns.alignment(2), 1);
    EXPECT_EQ(columns.alignment(1), 9);
    EXPECT_EQ(columns.left(4), 3840);
}

TEST(column_measures, hidden_columns_are_passed_over) {
    ColumnMeasures columns;
    columns.set_width(0, 0);
    columns.set_width(2, 0);
    columns.set_width(3, 0);
    EXPECT_EQ(columns.col_at(0), 1);
    EXPECT_EQ(columns.col_at(959), 1);
    EXPECT_EQ(columns.col_at(960), 4);
}

TEST(column_measures, default_columns_cost_nothing) {
    ColumnMeasures columns;
    const std::size_t before = columns.memory_bytes();
    columns.set_width(1'999'999'999, 100);
    EXPECT_EQ(columns.left(1'999'999'999), 1'919'999'999'040);
    columns.set_width(1'999'999'999, 960);
    EXPECT_LE(columns.memory_bytes(), before + 100);
}

TEST(column_measures, agree_with_a_naive_list_of_widths) {
    std::mt19937 random(5);
    const auto any = [&](std::size_t count) { return static_cast<std::int32_t>(random() % count); };
    ColumnMeasures columns;
    std::vector<std::int32_t> widths(60, 960);
    for (int step = 0; step < 3000; ++step) {
        if (any(50) == 0) {
            const std::int32_t from = any(60);
            columns.forget_from(from);
            std::fill(widths.begin() + from, widths.end(), 960);
        }
        const std::int32_t col = any(60);
        const std::int32_t width = any(3) == 0 ? 960 : any(4) * 500;
        columns.set_width(col, width);
        widths[static_cast<std::size_t>(col)] = width;
        std::int64_t left = 0;
        for (std::size_t c = 0; c < widths.size(); ++c) {
            const auto number = static_cast<std::int32_t>(c);
            ASSERT_EQ(columns.width(number), widths[c]);
            ASSERT_EQ(columns.left(number), left);
            if (widths[c] > 0) {
                ASSERT_EQ(columns.col_at(left), number);
                ASSERT_EQ(columns.col_at(left + widths[c] - 1), number);
            }
            left += widths[c];
        }
    }
}
