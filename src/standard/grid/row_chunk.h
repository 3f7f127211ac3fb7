#pragma once

#include "standard/grid/byte_buffer.h"
#include "standard/grid/record_layout.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace krv::standard {

/// Texts of some consecutive rows, all in one buffer.
///
/// A chunk is either blank (rows that nobody wrote: they cost nothing, however many) or holds a
/// record or none for each row. Records lie in the buffer in the order in which they were written;
/// one that must grow is written anew behind the last, unless it is the last. What nobody uses any
/// more is squeezed out once it is an eighth of the buffer. Members that may fail for want of
/// memory leave the texts as they were.
class RowChunk {
public:
    /// Rows that a loaded chunk holds, and how many it may hold after insertions.
    static constexpr std::int32_t loaded_rows = 512;
    static constexpr std::int32_t max_rows = 1024;
    /// Bytes at which no more rows are appended, and at which a chunk of several rows is divided.
    static constexpr std::size_t loaded_bytes = 64 * 1024;
    static constexpr std::size_t max_bytes = 256 * 1024;

    explicit RowChunk(std::int32_t blank_rows) noexcept
        : rows_(blank_rows) {}

    std::int32_t rows() const noexcept { return rows_; }

    bool blank() const noexcept { return offsets_.empty(); }

    /// Whether appended rows had better go to the next chunk.
    bool loaded() const noexcept { return rows_ >= loaded_rows || buffer_.size() >= loaded_bytes; }

    bool must_divide_for(std::size_t text_bytes) const noexcept {
        return rows_ > 1 && (rows_ >= max_rows || live_bytes() + text_bytes > max_bytes);
    }

    std::size_t live_bytes() const noexcept { return buffer_.size() - dead_bytes_; }

    /// Whether `text` lies in this chunk's own memory.
    bool owns(std::string_view text) const noexcept {
        const std::less<const char*> lies_before;
        return !text.empty() && !lies_before(text.data(), buffer_.data()) &&
               lies_before(text.data(), buffer_.data() + buffer_.size());
    }

    /// Only on a blank chunk.
    void set_blank_rows(std::int32_t rows) noexcept { rows_ = rows; }

    /// Gives a blank chunk's rows their places, so that they can be written.
    /// \param expected_bytes  of the records of a chunk that is being loaded in order; 0 when it is
    ///                        not
    void unblank(std::size_t expected_bytes);

    // Only on a chunk that is not blank. Rows count from the chunk's first.

    std::string_view text(std::int32_t row, std::int32_t col) const noexcept;
    /// \param text  not the chunk's own
    /// \param cols  of the whole grid
    void set_text(std::int32_t row, std::int32_t col, std::string_view text, std::int32_t cols);
    /// \param record  as `make_record` makes them; empty for a row without texts
    void insert_row(std::int32_t row, std::string_view record);
    void append_empty_rows(std::int32_t count);
    void remove_rows(std::int32_t first, std::int32_t count) noexcept;
    /// Drops the texts of all columns from `cols` on.
    void limit_cols(std::int32_t cols) noexcept;
    /// Takes the rows from `first` on out and returns them.
    RowChunk divide(std::int32_t first);
    /// Appends the rows of another chunk that is not blank.
    void absorb(const RowChunk& next);

    /// Gives back most of the spare room, if there is much; a sixteenth stays for later growth.
    void trim() noexcept;

    /// Without the object itself.
    std::size_t memory_bytes() const noexcept;

    /// The record of a row whose fields stand in `item`, separated by tabs; surplus fields are
    /// dropped. Empty when all fields are.
    static void make_record(std::string_view item, std::int32_t cols, ByteBuffer& record);

private:
    static constexpr std::uint32_t no_record = 0xFFFFFFFF;

    bool append_text(std::uint32_t at,
                     RecordLayout layout,
                     std::uint32_t col,
                     std::string_view text) noexcept;
    bool resize_text(std::uint32_t at,
                     const RecordLayout& layout,
                     std::uint32_t col,
                     std::string_view text) noexcept;
    void rewrite(std::int32_t row, std::uint32_t col, std::string_view text, std::int32_t cols);
    void make_room(std::size_t bytes);
    void compact(std::size_t capacity);
    void try_compact(std::size_t spare) noexcept;
    std::string_view record(std::int32_t row) const noexcept;

    std::int32_t rows_;
    std::uint32_t dead_bytes_ = 0;       // in the buffer, of no record
    std::vector<std::uint32_t> offsets_; // of each row's record in the buffer
    ByteBuffer buffer_;
};

} // namespace krv::standard
