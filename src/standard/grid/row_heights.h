#pragma once

#include "krv/platform/units.h"
#include "standard/grid/prefix_sums.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace krv::standard {

/// Heights of a grid's rows: one default and runs of rows that were given another. Rows are found
/// by place and places by row in logarithmic time.
///
/// Indices are the caller's affair and must be right; places are twips from the top of row 0.
/// Members that may fail (`std::bad_alloc`) change nothing then.
class RowHeights {
public:
    /// As a height: the default, whatever it is at the moment.
    static constexpr platform::Twips as_default = -1;

    RowHeights(std::int32_t rows, platform::Twips default_height);

    std::int32_t rows() const noexcept { return static_cast<std::int32_t>(totals().rows); }

    void set_default(platform::Twips height) noexcept { default_height_ = height; }

    platform::Twips height(std::int32_t row) const noexcept;
    void set_height(std::int32_t row, platform::Twips height);

    /// New rows have the default height; at least 1 row remains.
    void set_rows(std::int32_t rows);
    /// \param row  0 to rows()
    void insert(std::int32_t row);
    /// At least one row remains.
    void remove(std::int32_t row) noexcept;

    /// Top of the row; for rows(): the height of all.
    std::int64_t top(std::int32_t row) const noexcept;

    std::int64_t total() const noexcept { return measure(totals()); }

    /// The row over this place, hidden rows passed over; rows() behind the last.
    std::int32_t row_at(std::int64_t place) const noexcept;

    std::size_t memory_bytes() const noexcept;

    /// How many runs are kept; for a look at the cost.
    std::size_t runs() const noexcept;

private:
    struct Run {
        std::int32_t rows;
        platform::Twips height;
    };

    struct Totals {
        std::int64_t rows = 0;
        std::int64_t default_rows = 0;
        std::int64_t set_height = 0; // of the rows that have not the default

        Totals& operator+=(const Totals& other) noexcept {
            rows += other.rows;
            default_rows += other.default_rows;
            set_height += other.set_height;
            return *this;
        }
    };

    using Block = std::vector<Run>; // empty only when there is one block alone

    struct Place {
        std::size_t block;
        std::size_t run;
        std::int32_t row_in_run;
    };

    static Totals totals_of(const Run& run, std::int32_t rows) noexcept;
    static Totals totals_of(const Block& block) noexcept;

    Totals totals() const noexcept { return sums_.before(blocks_.size()); }

    std::int64_t measure(const Totals& totals) const noexcept {
        return totals.set_height + totals.default_rows * default_height_;
    }

    platform::Twips shown(const Run& run) const noexcept {
        return run.height == as_default ? default_height_ : run.height;
    }

    Place find(std::int32_t row) const noexcept;
    Place find_with_room(std::int32_t row);
    void divide(std::size_t block);
    void merge_small(std::size_t block) noexcept;
    bool absorb_next(std::size_t block) noexcept;
    static void join_equal(Block& block, std::size_t run) noexcept;
    void index_from(std::size_t block) noexcept;

    platform::Twips default_height_;
    std::vector<Block> blocks_; // never empty
    PrefixSums<Totals> sums_;
};

} // namespace krv::standard
