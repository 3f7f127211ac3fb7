#include "standard/grid/row_heights.h"

#include "support/scarce_memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <random>
#include <vector>

using krv::standard::RowHeights;
using krv::testing::ScarceMemory;
using testing::ElementsAre;

namespace {

std::vector<std::int64_t> tops_of(const RowHeights& heights) {
    std::vector<std::int64_t> tops;
    for (std::int32_t row = 0; row <= heights.rows(); ++row) {
        tops.push_back(heights.top(row));
    }
    return tops;
}

} // namespace

TEST(row_heights, rows_have_the_default_height_until_one_is_set) {
    RowHeights heights(4, 240);
    heights.set_height(2, 500);
    EXPECT_THAT(tops_of(heights), ElementsAre(0, 240, 480, 980, 1220));
    heights.set_default(300);
    EXPECT_THAT(tops_of(heights), ElementsAre(0, 300, 600, 1100, 1400));
    heights.set_height(2, RowHeights::as_default);
    EXPECT_THAT(tops_of(heights), ElementsAre(0, 300, 600, 900, 1200));
    EXPECT_EQ(heights.runs(), 1U);
}

TEST(row_heights, a_height_that_equals_the_default_does_not_follow_it) {
    RowHeights heights(2, 240);
    heights.set_height(1, 240);
    heights.set_default(300);
    EXPECT_THAT(tops_of(heights), ElementsAre(0, 300, 540));
}

TEST(row_heights, new_rows_have_the_default_height) {
    RowHeights heights(2, 240);
    heights.set_height(0, 100);
    heights.set_height(1, 100);
    heights.insert(1);
    heights.insert(3);
    heights.set_rows(5);
    EXPECT_THAT(tops_of(heights), ElementsAre(0, 100, 340, 440, 680, 920));
    heights.remove(1);
    heights.set_rows(2);
    EXPECT_THAT(tops_of(heights), ElementsAre(0, 100, 200));
    EXPECT_EQ(heights.runs(), 1U);
}

TEST(row_heights, row_at_passes_hidden_rows_over) {
    RowHeights heights(5, 240);
    heights.set_height(1, 0);
    heights.set_height(4, 0);
    EXPECT_EQ(heights.row_at(0), 0);
    EXPECT_EQ(heights.row_at(239), 0);
    EXPECT_EQ(heights.row_at(240), 2);
    EXPECT_EQ(heights.row_at(719), 3);
    EXPECT_EQ(heights.row_at(720), 5);
    EXPECT_EQ(heights.row_at(1'000'000), 5);
}

TEST(row_heights, setting_every_row_ends_as_one_run_whatever_was_before) {
    constexpr std::int32_t rows = 5000;
    std::mt19937 random(3);
    RowHeights heights(rows, 240);
    for (std::int32_t row = 0; row < rows; ++row) {
        heights.set_height(row, 100 + static_cast<std::int32_t>(random() % 50));
    }
    EXPECT_GT(heights.runs(), 4000U);
    for (std::int32_t row = 0; row < rows; ++row) {
        heights.set_height(row, 300);
    }
    EXPECT_LE(heights.runs(), 2U);
    EXPECT_EQ(heights.total(), rows * 300);
    EXPECT_LE(heights.memory_bytes(), 10'000U);
}

TEST(row_heights, places_of_two_thousand_million_rows_do_not_overflow) {
    RowHeights heights(2'000'000'000, 240);
    heights.set_height(1'000'000'000, 480);
    EXPECT_EQ(heights.total(), 480'000'000'240);
    EXPECT_EQ(heights.top(1'999'999'999), 480'000'000'000);
    EXPECT_EQ(heights.row_at(480'000'000'000), 1'999'999'999);
}

class row_heights_against_a_list : public testing::TestWithParam<unsigned> {
protected:
    std::int32_t any(std::size_t count) { return static_cast<std::int32_t>(random_() % count); }

    template <class Act, class ListAct>
    void apply(Act act, ListAct list_act) {
        try {
            const ScarceMemory memory(any(4) == 0 ? static_cast<std::size_t>(any(3)) : 1000);
            act();
        } catch (const std::bad_alloc&) {
            return;
        }
        list_act();
    }

    void change() {
        const std::int32_t row = any(list_.size());
        const std::int32_t kind = any(100);
        if (kind < 60) {
            const std::int32_t height = any(6) * 100 - 100;
            const std::int32_t set = height < 0 ? RowHeights::as_default : height;
            apply([&] { heights_.set_height(row, set); },
                  [&] { list_[static_cast<std::size_t>(row)] = set; });
        } else if (kind < 80) {
            const std::int32_t before = any(list_.size() + 1);
            apply([&] { heights_.insert(before); },
                  [&] { list_.insert(list_.begin() + before, RowHeights::as_default); });
        } else if (kind < 97 && list_.size() > 1) {
            heights_.remove(row);
            list_.erase(list_.begin() + row);
        } else {
            const std::int32_t rows = 1 + any(any(4) == 0 ? 3000 : list_.size() + 20);
            apply([&] { heights_.set_rows(rows); },
                  [&] { list_.resize(static_cast<std::size_t>(rows), RowHeights::as_default); });
        }
    }

    std::int32_t shown(std::size_t row) const { return list_[row] < 0 ? 240 : list_[row]; }

    void check() {
        ASSERT_EQ(heights_.rows(), static_cast<std::int32_t>(list_.size()));
        std::int64_t top = 0;
        for (std::size_t row = 0; row < list_.size(); ++row) {
            const auto number = static_cast<std::int32_t>(row);
            ASSERT_EQ(heights_.height(number), shown(row));
            ASSERT_EQ(heights_.top(number), top);
            if (shown(row) > 0) {
                ASSERT_EQ(heights_.row_at(top), number);
                ASSERT_EQ(heights_.row_at(top + shown(row) - 1), number);
            }
            top += shown(row);
        }
        ASSERT_EQ(heights_.total(), top);
        ASSERT_EQ(heights_.row_at(top), heights_.rows());
    }

    std::mt19937 random_{GetParam()};
    RowHeights heights_{2, 240};
    std::vector<std::int32_t> list_ = {RowHeights::as_default, RowHeights::as_default};
};

TEST_P(row_heights_against_a_list, they_agree) {
    for (int step = 0; step < 20'000; ++step) {
        change();
        if (step % 200 == 0) {
            ASSERT_NO_FATAL_FAILURE(check()) << "step " << step;
        }
    }
    check();
}

INSTANTIATE_TEST_SUITE_P(seeds, row_heights_against_a_list, testing::Values(1U, 2U, 3U));
