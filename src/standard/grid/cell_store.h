#pragma once

#include "standard/grid/prefix_sums.h"
#include "standard/grid/row_chunk.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace krv::standard {

/// The texts of a grid, kept exactly: no object a row, no allocation a cell.
///
/// Rows lie in chunks of about 512, so that rows go in and out anywhere at the cost of one chunk;
/// rows that were never written cost nothing. Indices are the caller's affair and must be right.
/// Members that may fail (`std::bad_alloc`, `std::length_error`) change nothing then.
class CellStore {
public:
    /// \param rows, cols  1 or more
    CellStore(std::int32_t rows, std::int32_t cols);

    std::int32_t rows() const noexcept { return rows_; }

    /// Valid until the store changes.
    std::string_view text(std::int32_t row, std::int32_t col) const noexcept;
    /// \param text  may be the store's own
    void set_text(std::int32_t row, std::int32_t col, std::string_view text);

    /// Empties all texts.
    void clear() noexcept;
    /// Drops rows at the end, or appends empty ones; at least 1 remains.
    void set_rows(std::int32_t rows);
    /// Drops the texts of surplus columns; at least 1 remains.
    void set_cols(std::int32_t cols) noexcept;
    /// \param row   0 to rows()
    /// \param item  fields separated by tabs; may be the store's own
    void insert(std::int32_t row, std::string_view item);
    /// At least one row remains.
    void remove(std::int32_t row) noexcept;

    std::size_t memory_bytes() const noexcept;

private:
    struct Place {
        std::size_t chunk;
        std::int32_t first; // the chunk's first row
    };

    Place find(std::int32_t row) const noexcept {
        if (row < last_.first || row - last_.first >= chunks_[last_.chunk].rows()) {
            find_anew(row);
        }
        return last_;
    }

    void find_anew(std::int32_t row) const noexcept;
    Place find_writable(std::int32_t row);
    void unblank_around(Place place, std::int32_t row);
    void append(std::string_view record);
    void insert_before(std::int32_t row, std::string_view record);
    void append_chunk(RowChunk chunk);
    void divide(std::size_t chunk);
    void erase_chunks(std::size_t first, std::size_t last) noexcept;
    void merge_small(std::size_t chunk) noexcept;
    bool absorb_next(std::size_t chunk) noexcept;
    std::size_t expected_bytes(std::size_t chunk) const noexcept;
    void reserve_chunks(std::size_t more);
    void index_from(std::size_t chunk) noexcept;

    std::int32_t rows_;
    std::int32_t cols_;
    std::vector<RowChunk> chunks_; // never empty
    PrefixSums<std::uint32_t> row_sums_;
    ByteBuffer record_;        // of the row that is being inserted
    mutable Place last_{0, 0}; // found last: rows are mostly visited one after the other
};

} // namespace krv::standard
