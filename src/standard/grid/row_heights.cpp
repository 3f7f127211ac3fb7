#include "standard/grid/row_heights.h"

#include <algorithm>
#include <new>
#include <utility>

namespace krv::standard {

namespace {

constexpr std::size_t max_runs = 128;
constexpr std::size_t few_runs = 16;

} // namespace

RowHeights::RowHeights(std::int32_t rows, platform::Twips default_height)
    : default_height_(default_height)
    , blocks_{Block{Run{rows, as_default}}} {
    sums_.reserve(1);
    index_from(0);
}

platform::Twips RowHeights::height(std::int32_t row) const noexcept {
    const Place place = find(row);
    return shown(blocks_[place.block][place.run]);
}

void RowHeights::set_height(std::int32_t row, platform::Twips height) {
    const Place place = find_with_room(row);
    Block& block = blocks_[place.block];
    const auto run = block.begin() + static_cast<std::ptrdiff_t>(place.run);
    const Run old = *run;
    if (old.height == height) {
        return;
    }
    const std::int32_t behind = old.rows - place.row_in_run - 1;
    run->rows = place.row_in_run;
    const auto fresh = block.insert(run + 1, Run{1, height});
    block.insert(fresh + 1, Run{behind, old.height});
    join_equal(block, place.run);

    Totals difference = totals_of(Run{1, height}, 1);
    difference += totals_of(old, -1);
    sums_.add(place.block, difference);
    merge_small(place.block);
}

void RowHeights::set_rows(std::int32_t rows) {
    const std::int32_t more = rows - this->rows();
    if (more > 0) {
        Block& last = blocks_.back();
        if (last.back().height == as_default) {
            last.back().rows += more;
        } else {
            last.push_back({more, as_default});
        }
        index_from(blocks_.size() - 1);
        return;
    }
    const Place place = find(rows - 1);
    Block& block = blocks_[place.block];
    block.erase(block.begin() + static_cast<std::ptrdiff_t>(place.run) + 1, block.end());
    block.back().rows = place.row_in_run + 1;
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block) + 1, blocks_.end());
    index_from(place.block);
}

void RowHeights::insert(std::int32_t row) {
    if (row == rows()) {
        set_rows(row + 1);
        return;
    }
    const Place place = find_with_room(row);
    Block& block = blocks_[place.block];
    const auto run = block.begin() + static_cast<std::ptrdiff_t>(place.run);
    if (run->height == as_default) {
        ++run->rows;
    } else {
        const Run behind{run->rows - place.row_in_run, run->height};
        run->rows = place.row_in_run;
        const auto fresh = block.insert(run + 1, Run{1, as_default});
        block.insert(fresh + 1, behind);
        join_equal(block, place.run);
    }
    sums_.add(place.block, {1, 1, 0});
}

void RowHeights::remove(std::int32_t row) noexcept {
    const Place place = find(row);
    Block& block = blocks_[place.block];
    Run& run = block[place.run];
    const Totals difference = totals_of(run, -1);
    --run.rows;
    if (run.rows == 0) {
        join_equal(block, place.run);
        if (block.empty() && blocks_.size() > 1) {
            blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(place.block));
            index_from(place.block);
            return;
        }
    }
    sums_.add(place.block, difference);
    merge_small(place.block);
}

std::int64_t RowHeights::top(std::int32_t row) const noexcept {
    const auto found = sums_.find(row, [](const Totals& totals) { return totals.rows; });
    std::int64_t top = measure(found.before);
    if (found.item < blocks_.size()) {
        std::int64_t rows_left = row - found.before.rows;
        for (const Run& run : blocks_[found.item]) {
            const std::int64_t rows = std::min<std::int64_t>(rows_left, run.rows);
            top += rows * shown(run);
            rows_left -= rows;
            if (rows_left == 0) {
                break;
            }
        }
    }
    return top;
}

std::int32_t RowHeights::row_at(std::int64_t place) const noexcept {
    const auto found = sums_.find(place, [this](const Totals& totals) { return measure(totals); });
    std::int64_t row = found.before.rows;
    if (found.item < blocks_.size()) {
        std::int64_t left = place - measure(found.before);
        for (const Run& run : blocks_[found.item]) {
            const std::int64_t run_height = std::int64_t{run.rows} * shown(run);
            if (left < run_height) {
                return static_cast<std::int32_t>(row + left / shown(run));
            }
            left -= run_height;
            row += run.rows;
        }
    }
    return static_cast<std::int32_t>(row);
}

std::size_t RowHeights::memory_bytes() const noexcept {
    std::size_t bytes = sizeof *this + blocks_.capacity() * sizeof(Block) + sums_.memory_bytes();
    for (const Block& block : blocks_) {
        bytes += block.capacity() * sizeof(Run);
    }
    return bytes;
}

std::size_t RowHeights::runs() const noexcept {
    std::size_t runs = 0;
    for (const Block& block : blocks_) {
        runs += block.size();
    }
    return runs;
}

RowHeights::Totals RowHeights::totals_of(const Run& run, std::int32_t rows) noexcept {
    if (run.height == as_default) {
        return {rows, rows, 0};
    }
    return {rows, 0, std::int64_t{rows} * run.height};
}

RowHeights::Totals RowHeights::totals_of(const Block& block) noexcept {
    Totals totals;
    for (const Run& run : block) {
        totals += totals_of(run, run.rows);
    }
    return totals;
}

RowHeights::Place RowHeights::find(std::int32_t row) const noexcept {
    const auto found = sums_.find(row, [](const Totals& totals) { return totals.rows; });
    auto left = static_cast<std::int32_t>(row - found.before.rows);
    std::size_t run = 0;
    while (left >= blocks_[found.item][run].rows) {
        left -= blocks_[found.item][run].rows;
        ++run;
    }
    return {found.item, run, left};
}

// Afterwards two more runs fit into the block without memory.
RowHeights::Place RowHeights::find_with_room(std::int32_t row) {
    Place place = find(row);
    if (blocks_[place.block].size() + 2 > max_runs) {
        divide(place.block);
        place = find(row);
    }
    Block& block = blocks_[place.block];
    if (block.size() + 2 > block.capacity()) {
        block.reserve(block.size() + block.size() / 2 + 2);
    }
    return place;
}

void RowHeights::divide(std::size_t block) {
    const std::size_t needed = blocks_.size() + 1;
    if (needed > blocks_.capacity()) {
        blocks_.reserve(needed + needed / 2);
    }
    sums_.reserve(needed);
    const auto middle = blocks_[block].begin() + max_runs / 2;
    Block upper(middle, blocks_[block].end());
    blocks_[block].erase(middle, blocks_[block].end());
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(block) + 1, std::move(upper));
    index_from(block);
}

// Runs come and go one by one; blocks that shrank must not stay behind for every few of them.
void RowHeights::merge_small(std::size_t block) noexcept {
    if (blocks_.size() > 1 && blocks_[block].size() < few_runs && !absorb_next(block) &&
        block > 0) {
        absorb_next(block - 1);
    }
}

bool RowHeights::absorb_next(std::size_t block) noexcept {
    if (block + 1 >= blocks_.size() ||
        blocks_[block].size() + blocks_[block + 1].size() > max_runs / 2) {
        return false;
    }
    Block& kept = blocks_[block];
    const Block& next = blocks_[block + 1];
    const std::size_t seam = kept.size() - 1;
    try {
        kept.insert(kept.end(), next.begin(), next.end());
    } catch (const std::bad_alloc&) {
        return false; // two small blocks are as good
    }
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(block) + 1);
    join_equal(kept, seam);
    index_from(block);
    return true;
}

// Drops empty runs and joins runs of one height, around the run that changed.
void RowHeights::join_equal(Block& block, std::size_t run) noexcept {
    std::size_t first = run > 0 ? run - 1 : 0;
    std::size_t last = std::min(run + 4, block.size());
    const auto begin = block.begin();
    auto kept = begin + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(last);
    for (auto next = kept; next != end; ++next) {
        if (next->rows == 0) {
            continue;
        }
        if (kept != begin + static_cast<std::ptrdiff_t>(first) &&
            (kept - 1)->height == next->height) {
            (kept - 1)->rows += next->rows;
        } else {
            *kept++ = *next;
        }
    }
    block.erase(kept, end);
}

void RowHeights::index_from(std::size_t block) noexcept {
    sums_.rebuild(
        block, blocks_.size(), [this](std::size_t item) { return totals_of(blocks_[item]); });
}

} // namespace krv::standard
