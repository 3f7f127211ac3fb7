#include "standard/grid/cell_store.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>

namespace krv::standard {

CellStore::CellStore(std::int32_t rows, std::int32_t cols)
    : rows_(rows)
    , cols_(cols) {
    chunks_.emplace_back(rows);
    row_sums_.reserve(1);
    index_from(0);
}

std::string_view CellStore::text(std::int32_t row, std::int32_t col) const noexcept {
    const Place place = find(row);
    const RowChunk& chunk = chunks_[place.chunk];
    return chunk.blank() ? std::string_view{} : chunk.text(row - place.first, col);
}

void CellStore::set_text(std::int32_t row, std::int32_t col, std::string_view text) {
    Place place = find(row);
    if (chunks_[place.chunk].blank()) {
        if (text.empty()) {
            return;
        }
        place = find_writable(row);
    }
    if (chunks_[place.chunk].owns(text)) {
        const std::string copy(text);
        return set_text(row, col, copy);
    }
    while (chunks_[place.chunk].must_divide_for(text.size())) {
        divide(place.chunk);
        place = find(row);
    }
    chunks_[place.chunk].set_text(row - place.first, col, text, cols_);
}

void CellStore::clear() noexcept {
    chunks_.front() = RowChunk(rows_);
    erase_chunks(1, chunks_.size());
    index_from(0);
}

void CellStore::set_rows(std::int32_t rows) {
    const std::int32_t more = rows - rows_;
    RowChunk& last = chunks_.back();
    if (more <= 0) {
        const Place place = find(rows - 1);
        RowChunk& kept = chunks_[place.chunk];
        const std::int32_t kept_rows = rows - place.first;
        if (kept.blank()) {
            kept.set_blank_rows(kept_rows);
        } else {
            kept.remove_rows(kept_rows, kept.rows() - kept_rows);
        }
        erase_chunks(place.chunk + 1, chunks_.size());
        index_from(place.chunk);
    } else if (last.blank()) {
        last.set_blank_rows(last.rows() + more);
        index_from(chunks_.size() - 1);
    } else if (!last.loaded() && more <= RowChunk::loaded_rows - last.rows()) {
        last.append_empty_rows(more);
        index_from(chunks_.size() - 1);
    } else {
        append_chunk(RowChunk(more));
    }
    rows_ = rows;
}

void CellStore::set_cols(std::int32_t cols) noexcept {
    if (cols < cols_) {
        for (RowChunk& chunk : chunks_) {
            chunk.limit_cols(cols);
        }
    }
    cols_ = cols;
}

void CellStore::insert(std::int32_t row, std::string_view item) {
    constexpr std::size_t usual_bytes = 64 * 1024;
    RowChunk::make_record(item, cols_, record_);
    const std::string_view record(record_.data(), record_.size());
    if (row == rows_) {
        append(record);
    } else {
        insert_before(row, record);
    }
    ++rows_;
    if (record_.capacity() > usual_bytes) {
        record_ = {};
    }
}

void CellStore::append(std::string_view record) {
    RowChunk& last = chunks_.back();
    if (last.blank() ? record.empty() : !last.loaded()) {
        if (last.blank()) {
            last.set_blank_rows(last.rows() + 1);
        } else {
            last.insert_row(last.rows(), record);
        }
        row_sums_.add(chunks_.size() - 1, 1);
        return;
    }
    if (record.empty()) {
        append_chunk(RowChunk(1));
        return;
    }
    RowChunk fresh(0);
    fresh.unblank(std::max(record.size(), expected_bytes(chunks_.size())));
    fresh.insert_row(0, record);
    append_chunk(std::move(fresh));
}

void CellStore::insert_before(std::int32_t row, std::string_view record) {
    Place place = find(row);
    if (chunks_[place.chunk].blank() && record.empty()) {
        chunks_[place.chunk].set_blank_rows(chunks_[place.chunk].rows() + 1);
    } else {
        place = find_writable(row);
        while (chunks_[place.chunk].must_divide_for(record.size())) {
            divide(place.chunk);
            place = find(row);
        }
        chunks_[place.chunk].insert_row(row - place.first, record);
    }
    row_sums_.add(place.chunk, 1);
}

void CellStore::remove(std::int32_t row) noexcept {
    const Place place = find(row);
    RowChunk& chunk = chunks_[place.chunk];
    --rows_;
    if (chunk.rows() == 1) {
        erase_chunks(place.chunk, place.chunk + 1);
        index_from(place.chunk);
        return;
    }
    row_sums_.add(place.chunk, static_cast<std::uint32_t>(-1));
    if (chunk.blank()) {
        chunk.set_blank_rows(chunk.rows() - 1);
    } else {
        chunk.remove_rows(row - place.first, 1);
        merge_small(place.chunk);
    }
}

std::size_t CellStore::memory_bytes() const noexcept {
    std::size_t bytes = sizeof *this + row_sums_.memory_bytes() + record_.capacity() +
                        chunks_.capacity() * sizeof(RowChunk);
    for (const RowChunk& chunk : chunks_) {
        bytes += chunk.memory_bytes();
    }
    return bytes;
}

void CellStore::find_anew(std::int32_t row) const noexcept {
    const std::int32_t next_first = last_.first + chunks_[last_.chunk].rows();
    if (row >= next_first && last_.chunk + 1 < chunks_.size() &&
        row - next_first < chunks_[last_.chunk + 1].rows()) {
        last_ = {last_.chunk + 1, next_first};
        return;
    }
    const auto found =
        row_sums_.find(static_cast<std::uint32_t>(row), [](std::uint32_t rows) { return rows; });
    last_ = {found.item, static_cast<std::int32_t>(found.before)};
}

CellStore::Place CellStore::find_writable(std::int32_t row) {
    const Place place = find(row);
    if (chunks_[place.chunk].blank()) {
        unblank_around(place, row);
    }
    return find(row);
}

// Cuts the piece of a blank chunk that holds the row out of it and makes it writable.
void CellStore::unblank_around(Place place, std::int32_t row) {
    const std::int32_t blank_rows = chunks_[place.chunk].rows();
    const std::int32_t index = row - place.first;
    const std::int32_t before = index / RowChunk::loaded_rows * RowChunk::loaded_rows;
    const std::int32_t piece = std::min(RowChunk::loaded_rows, blank_rows - before);
    const std::int32_t behind = blank_rows - before - piece;

    RowChunk fresh(piece);
    fresh.unblank(index == 0 ? expected_bytes(place.chunk) : 0);
    reserve_chunks(2);
    if (index == 0 && place.chunk > 0) {
        chunks_[place.chunk - 1].trim(); // rows are written in order: the one before is complete
    }
    const auto at = chunks_.begin() + static_cast<std::ptrdiff_t>(place.chunk);
    if (before == 0) {
        *at = std::move(fresh);
    } else {
        at->set_blank_rows(before);
        chunks_.insert(at + 1, std::move(fresh));
    }
    if (behind > 0) {
        chunks_.insert(at + (before == 0 ? 1 : 2), RowChunk(behind));
    }
    index_from(place.chunk);
}

void CellStore::append_chunk(RowChunk chunk) {
    reserve_chunks(1);
    chunks_.back().trim();
    chunks_.push_back(std::move(chunk));
    index_from(chunks_.size() - 1);
}

void CellStore::divide(std::size_t chunk) {
    reserve_chunks(1);
    RowChunk upper = chunks_[chunk].divide(chunks_[chunk].rows() / 2);
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(chunk) + 1, std::move(upper));
    index_from(chunk);
}

void CellStore::erase_chunks(std::size_t first, std::size_t last) noexcept {
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(first),
                  chunks_.begin() + static_cast<std::ptrdiff_t>(last));
}

// Removals must not leave a chunk for every few rows.
void CellStore::merge_small(std::size_t chunk) noexcept {
    constexpr std::int32_t small_rows = RowChunk::loaded_rows / 4;
    if (chunks_[chunk].rows() >= small_rows) {
        return;
    }
    if (!absorb_next(chunk) && chunk > 0) {
        absorb_next(chunk - 1);
    }
}

bool CellStore::absorb_next(std::size_t chunk) noexcept {
    if (chunk + 1 >= chunks_.size()) {
        return false;
    }
    RowChunk& kept = chunks_[chunk];
    const RowChunk& next = chunks_[chunk + 1];
    if (kept.blank() || next.blank() || kept.rows() + next.rows() > RowChunk::loaded_rows / 2 ||
        kept.live_bytes() + next.live_bytes() > RowChunk::loaded_bytes) {
        return false;
    }
    try {
        kept.absorb(next);
    } catch (const std::bad_alloc&) {
        return false; // two small chunks are as good
    }
    erase_chunks(chunk + 1, chunk + 2);
    index_from(chunk);
    return true;
}

// What a chunk will probably need: as much as the one before it.
std::size_t CellStore::expected_bytes(std::size_t chunk) const noexcept {
    if (chunk == 0 || !chunks_[chunk - 1].loaded()) {
        return 0;
    }
    return chunks_[chunk - 1].live_bytes() / 16 * 17;
}

void CellStore::reserve_chunks(std::size_t more) {
    const std::size_t needed = chunks_.size() + more;
    if (needed > chunks_.capacity()) {
        chunks_.reserve(needed + needed / 2);
    }
    row_sums_.reserve(needed);
}

// Chunks from this one on are new, different or gone.
void CellStore::index_from(std::size_t chunk) noexcept {
    row_sums_.rebuild(chunk, chunks_.size(), [this](std::size_t item) {
        return static_cast<std::uint32_t>(chunks_[item].rows());
    });
    last_ = {0, 0};
}

} // namespace krv::standard
