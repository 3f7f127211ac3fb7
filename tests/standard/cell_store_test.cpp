#include "standard/grid/cell_store.h"

#include "support/scarce_memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using krv::standard::CellStore;
using krv::testing::ScarceMemory;
using testing::ElementsAre;

namespace {

using Row = std::vector<std::string>;
using Table = std::vector<Row>;

Table texts_of(const CellStore& store, std::int32_t cols) {
    Table table;
    for (std::int32_t row = 0; row < store.rows(); ++row) {
        Row& texts = table.emplace_back();
        for (std::int32_t col = 0; col < cols; ++col) {
            texts.emplace_back(store.text(row, col));
        }
    }
    return table;
}

std::string cell_text(std::int32_t row, std::int32_t col) {
    return std::to_string(row) + "/" + std::to_string(col);
}

// As a list is loaded: a row at a time, its cells from left to right.
void load(CellStore& store, std::int32_t rows, std::int32_t cols) {
    for (std::int32_t row = 0; row < rows; ++row) {
        store.insert(store.rows(), "");
        for (std::int32_t col = 0; col < cols; ++col) {
            store.set_text(store.rows() - 1, col, cell_text(row, col));
        }
    }
}

} // namespace

TEST(cell_store, a_new_store_is_empty_text) {
    const CellStore store(2, 3);
    EXPECT_THAT(texts_of(store, 3), ElementsAre(Row{"", "", ""}, Row{"", "", ""}));
}

TEST(cell_store, texts_are_kept_exactly) {
    CellStore store(1, 8);
    const Row texts{
        "", "a\r\nb", "a\tb", std::string("a\0b", 3), "\xC3\xA8\xE2\x82\xAC", "  ", "\"", ""};
    for (std::size_t col = 0; col < texts.size(); ++col) {
        store.set_text(0, static_cast<std::int32_t>(col), texts[col]);
    }
    EXPECT_THAT(texts_of(store, 8), ElementsAre(texts));
}

TEST(cell_store, cells_of_a_row_may_be_written_in_any_order) {
    CellStore store(1, 5);
    for (const std::int32_t col : {3, 0, 4, 2, 1, 3}) {
        store.set_text(0, col, cell_text(0, col));
    }
    EXPECT_THAT(texts_of(store, 5), ElementsAre(Row{"0/0", "0/1", "0/2", "0/3", "0/4"}));
}

TEST(cell_store, texts_that_grow_and_shrink_leave_their_neighbours) {
    CellStore store(3, 3);
    for (std::int32_t row = 0; row < 3; ++row) {
        for (std::int32_t col = 0; col < 3; ++col) {
            store.set_text(row, col, cell_text(row, col));
        }
    }
    const std::string longer(300, 'x');
    store.set_text(1, 1, longer);
    store.set_text(0, 0, "");
    store.set_text(2, 2, longer);
    store.set_text(2, 0, "y");
    store.set_text(2, 2, "");
    EXPECT_THAT(texts_of(store, 3),
                ElementsAre(Row{"", "0/1", "0/2"}, Row{"1/0", longer, "1/2"}, Row{"y", "2/1", ""}));
}

TEST(cell_store, a_row_may_outgrow_64_KiB_and_come_back) {
    CellStore store(2, 3);
    const std::string most(65'535, 'm');
    store.set_text(0, 0, "a");
    store.set_text(0, 2, "c");
    store.set_text(1, 1, "below");
    for (const std::size_t size : {65'532U, 65'533U, 65'534U, 65'535U, 65'536U, 200'000U, 3U}) {
        const std::string text(size, 'x');
        store.set_text(0, 1, text);
        EXPECT_THAT(texts_of(store, 3), ElementsAre(Row{"a", text, "c"}, Row{"", "below", ""}));
    }
    store.set_text(0, 1, most);
    store.set_text(0, 0, most);
    EXPECT_THAT(texts_of(store, 3), ElementsAre(Row{most, most, "c"}, Row{"", "below", ""}));
}

TEST(cell_store, many_long_rows_stay_apart) {
    CellStore store(1, 2);
    Table expected{{"", ""}};
    for (std::int32_t row = 1; row <= 60; ++row) {
        const std::string text(static_cast<std::size_t>(row) * 1000,
                               static_cast<char>('a' + row % 26));
        store.insert(1, "first\tsecond");
        store.set_text(1, 1, text);
        expected.insert(expected.begin() + 1, {"first", text});
    }
    EXPECT_EQ(texts_of(store, 2), expected);
}

TEST(cell_store, columns_beyond_32767_hold_texts) {
    CellStore store(2, 70'000);
    for (const std::int32_t col : {0, 32'766, 32'767, 32'768, 65'535, 65'536, 69'999}) {
        store.set_text(1, col, cell_text(1, col));
    }
    for (const std::int32_t col : {0, 32'766, 32'767, 32'768, 65'535, 65'536, 69'999}) {
        EXPECT_EQ(store.text(1, col), cell_text(1, col));
    }
    EXPECT_EQ(store.text(1, 40'000), "");
    EXPECT_EQ(store.text(0, 69'999), "");
}

TEST(cell_store, rows_are_split_at_tabs) {
    CellStore store(1, 3);
    for (const std::string_view item :
         {"", "a", "a\tb\tc", "a\tb\tc\td\te", "\t\t", "\tb", "a\t\tc\t"}) {
        store.insert(store.rows(), item);
    }
    EXPECT_THAT(texts_of(store, 3),
                ElementsAre(Row{"", "", ""},
                            Row{"", "", ""},
                            Row{"a", "", ""},
                            Row{"a", "b", "c"},
                            Row{"a", "b", "c"},
                            Row{"", "", ""},
                            Row{"", "b", ""},
                            Row{"a", "", "c"}));
}

TEST(cell_store, a_text_of_the_store_itself_may_be_written) {
    CellStore store(1, 4);
    load(store, 2000, 4);
    for (std::int32_t row = 1; row < store.rows(); ++row) {
        store.set_text(row, 3, store.text(row, 0));
        store.set_text(row, 0, store.text(row, 3).substr(1));
        store.set_text(row, 1, store.text(store.rows() - row, 2));
    }
    store.insert(1, store.text(1500, 2));
    EXPECT_EQ(store.text(1, 0), "1499/2");
    EXPECT_EQ(store.text(2, 3), "0/0");
    EXPECT_EQ(store.text(2, 0), "/0");
    EXPECT_EQ(store.text(2, 1), "1999/2");
    EXPECT_EQ(store.text(2001, 3), "1999/0");
}

TEST(cell_store, dropped_columns_come_back_empty) {
    CellStore store(1, 4);
    load(store, 1200, 4);
    store.set_cols(2);
    store.set_cols(4);
    store.set_text(600, 3, "new");
    for (const std::int32_t row : {1, 599, 600, 601, 1200}) {
        const Row texts{cell_text(row - 1, 0), cell_text(row - 1, 1), "", row == 600 ? "new" : ""};
        EXPECT_EQ(texts_of(store, 4)[static_cast<std::size_t>(row)], texts);
    }
}

TEST(cell_store, dropped_rows_come_back_empty) {
    for (const std::int32_t kept : {1, 2, 511, 512, 513, 1024, 1999}) {
        CellStore store(1, 1);
        load(store, 2000, 1);
        store.set_rows(kept);
        store.set_rows(2001);
        EXPECT_EQ(store.text(kept - 1, 0), kept == 1 ? "" : cell_text(kept - 2, 0));
        EXPECT_EQ(store.text(kept, 0), "");
        EXPECT_EQ(store.text(2000, 0), "");
    }
}

TEST(cell_store, rows_that_nobody_wrote_cost_nothing) {
    CellStore store(1, 10);
    const std::size_t before = store.memory_bytes();
    store.set_rows(2'000'000'000);
    EXPECT_LE(store.memory_bytes(), before + 100);
    store.set_text(1'234'567'890, 9, "one of them");
    store.set_text(1'999'999'999, 0, "last");
    store.insert(1'000'000'000, "in between");
    EXPECT_EQ(store.rows(), 2'000'000'001);
    EXPECT_EQ(store.text(1'000'000'000, 0), "in between");
    EXPECT_EQ(store.text(1'234'567'891, 9), "one of them");
    EXPECT_EQ(store.text(2'000'000'000, 0), "last");
    EXPECT_EQ(store.text(1'234'567'890, 9), "");
    EXPECT_LE(store.memory_bytes(), before + 20'000);
}

TEST(cell_store, a_loaded_list_takes_little_more_than_its_texts) {
    constexpr std::int32_t rows = 20'000;
    CellStore store(1, 10);
    for (std::int32_t row = 0; row < rows; ++row) {
        store.insert(store.rows(), "");
        for (std::int32_t col = 0; col < 10; ++col) {
            store.set_text(store.rows() - 1, col, "nine char");
        }
    }
    EXPECT_LE(store.memory_bytes(), std::size_t{rows} * 10 * 14);
}

TEST(cell_store, rewritten_and_removed_texts_give_their_memory_back) {
    CellStore store(1, 10);
    load(store, 20'000, 10);
    const std::size_t loaded = store.memory_bytes();
    for (std::int32_t pass = 0; pass < 20; ++pass) {
        for (std::int32_t row = 1; row < store.rows(); ++row) {
            store.set_text(row, 4, std::string(pass % 2 == 0 ? 12 : 5, 'x'));
        }
    }
    EXPECT_LE(store.memory_bytes(), loaded + loaded / 2);
    while (store.rows() > 101) {
        store.remove(1 + store.rows() % 97);
    }
    EXPECT_LE(store.memory_bytes(), 100'000U);
}

TEST(cell_store, a_row_too_long_for_any_memory_changes_nothing) {
    CellStore store(2, 2'000'000'000);
    store.set_text(1, 0, "kept");
    EXPECT_THROW(store.set_text(1, 1'999'999'999, "x"), std::length_error);
    const std::string_view endless("x", std::size_t{5} << 30); // never read
    EXPECT_THROW(store.set_text(1, 0, endless), std::length_error);
    EXPECT_EQ(store.text(1, 0), "kept");
    EXPECT_EQ(store.text(1, 1'999'999'999), "");
}

// A naive table beside the store, through tens of thousands of changes; now and then memory runs
// out somewhere inside one of them, and nothing may have changed then.
class cell_store_against_a_table : public testing::TestWithParam<unsigned> {
protected:
    std::int32_t any(std::size_t count) {
        return static_cast<std::int32_t>(random_() % std::max<std::size_t>(count, 1));
    }

    std::string any_text() {
        switch (any(40)) {
        case 0:
            return std::string(static_cast<std::size_t>(any(70'000)), 'L');
        case 1:
        case 2:
        case 3:
            return {};
        default:
            return std::string(static_cast<std::size_t>(any(30)), static_cast<char>('a' + any(26)));
        }
    }

    std::int32_t any_row() { return any(table_.size()); }

    // Rows are often visited in order.
    std::int32_t near_row() {
        row_ = any(5) == 0 ? any_row() : (row_ + 1) % static_cast<std::int32_t>(table_.size());
        return row_;
    }

    template <class StoreAct, class TableAct>
    void apply(StoreAct change_store, TableAct change_table) {
        if (any(4) == 0) {
            const ScarceMemory memory(static_cast<std::size_t>(any(5)));
            try {
                change_store();
            } catch (const std::bad_alloc&) {
                return;
            }
        } else {
            change_store();
        }
        change_table();
    }

    void set_text() {
        const std::int32_t row = near_row();
        const std::int32_t col = any(static_cast<std::size_t>(cols_));
        const std::string text = any_text();
        apply([&] { store_.set_text(row, col, text); }, [&] { cell(row, col) = text; });
    }

    void insert() {
        const std::int32_t row = any(3) == 0 ? store_.rows() : any(table_.size() + 1);
        const std::string first = any_text();
        const std::string item = first + "\tsecond";
        apply([&] { store_.insert(row, item); },
              [&] {
                  Row fresh(static_cast<std::size_t>(cols_));
                  fresh[0] = first;
                  if (cols_ > 1) {
                      fresh[1] = "second";
                  }
                  table_.insert(table_.begin() + row, fresh);
              });
    }

    void append_loaded() {
        for (std::int32_t i = any(400); i > 0; --i) {
            const std::string text = any_text();
            store_.insert(store_.rows(), "");
            store_.set_text(store_.rows() - 1, 0, text);
            table_.emplace_back(static_cast<std::size_t>(cols_));
            table_.back()[0] = text;
        }
    }

    void remove() {
        for (std::int32_t i = any(any(20) == 0 ? 300 : 3); i > 0 && table_.size() > 1; --i) {
            const std::int32_t row = any_row();
            apply([&] { store_.remove(row); }, [&] { table_.erase(table_.begin() + row); });
        }
    }

    void set_rows() {
        const auto few = static_cast<std::int32_t>(table_.size()) + any(9) - 6;
        const std::int32_t rows = std::max(1, any(10) == 0 ? any(4000) : few);
        apply([&] { store_.set_rows(rows); },
              [&] {
                  table_.resize(static_cast<std::size_t>(rows),
                                Row(static_cast<std::size_t>(cols_)));
              });
    }

    void set_cols() {
        cols_ = 1 + any(20);
        store_.set_cols(cols_);
        for (Row& row : table_) {
            row.resize(static_cast<std::size_t>(cols_));
        }
    }

    void clear() {
        store_.clear();
        for (Row& row : table_) {
            std::fill(row.begin(), row.end(), "");
        }
    }

    void change() {
        const std::int32_t kind = any(1000);
        if (kind < 600) {
            set_text();
        } else if (kind < 750) {
            insert();
        } else if (kind < 900) {
            remove();
        } else if (kind < 940) {
            set_rows();
        } else if (kind < 955) {
            append_loaded();
        } else if (kind < 965) {
            set_cols();
        } else if (kind < 967) {
            clear();
        } else {
            const std::int32_t row = near_row();
            const std::int32_t from = any_row();
            const std::string text = cell(from, 0);
            apply([&] { store_.set_text(row, 0, store_.text(from, 0)); },
                  [&] { cell(row, 0) = text; });
        }
    }

    std::string& cell(std::int32_t row, std::int32_t col) {
        return table_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
    }

    std::mt19937 random_{GetParam()};
    std::int32_t cols_ = 3;
    std::int32_t row_ = 0;
    CellStore store_{2, 3};
    Table table_{Row(3), Row(3)};
};

TEST_P(cell_store_against_a_table, they_agree) {
    for (int step = 0; step < 12'000; ++step) {
        change();
        ASSERT_EQ(store_.rows(), static_cast<std::int32_t>(table_.size()));
        const std::int32_t row = any_row();
        const std::int32_t col = any(static_cast<std::size_t>(cols_));
        ASSERT_EQ(store_.text(row, col), cell(row, col)) << "step " << step;
        if (step % 2000 == 0) {
            ASSERT_EQ(texts_of(store_, cols_), table_) << "step " << step;
        }
    }
    EXPECT_EQ(texts_of(store_, cols_), table_);
}

INSTANTIATE_TEST_SUITE_P(seeds, cell_store_against_a_table, testing::Values(1U, 2U, 3U, 4U));
