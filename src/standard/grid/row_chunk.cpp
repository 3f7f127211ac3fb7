#include "standard/grid/row_chunk.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

namespace krv::standard {

namespace {

// Places are kept for some columns more than are in use, so that a row that is filled from left to
// right does not move its texts for every cell.
std::uint32_t places_for(std::uint32_t used, std::int32_t cols) {
    constexpr std::uint32_t step = 16;
    return std::min((used + step - 1) / step * step, static_cast<std::uint32_t>(cols));
}

std::size_t checked_bytes(const RecordLayout& layout, std::size_t texts_bytes) {
    if (texts_bytes > RecordLayout::max_bytes ||
        layout.bytes(texts_bytes) > RecordLayout::max_bytes) {
        throw std::length_error("row too long");
    }
    return layout.bytes(texts_bytes);
}

void copy_bytes(char* to, const char* from, std::size_t bytes) {
    if (bytes > 0) {
        std::memmove(to, from, bytes);
    }
}

template <class Act>
void for_fields(std::string_view item, std::int32_t cols, Act act) {
    std::size_t begin = 0;
    for (std::int32_t col = 0; col < cols && begin <= item.size(); ++col) {
        const std::size_t end = std::min(item.find('\t', begin), item.size());
        act(static_cast<std::uint32_t>(col), item.substr(begin, end - begin));
        begin = end + 1;
    }
}

} // namespace

void RowChunk::unblank(std::size_t expected_bytes) {
    constexpr std::int32_t rows_with_spare = loaded_rows + loaded_rows / 16;
    std::vector<std::uint32_t> offsets;
    offsets.reserve(static_cast<std::size_t>(expected_bytes > 0 ? rows_with_spare : rows_));
    offsets.assign(static_cast<std::size_t>(rows_), no_record);
    buffer_.reserve(expected_bytes);
    offsets_ = std::move(offsets);
}

std::string_view RowChunk::text(std::int32_t row, std::int32_t col) const noexcept {
    const std::uint32_t at = offsets_[static_cast<std::size_t>(row)];
    if (at == no_record) {
        return {};
    }
    const char* record = buffer_.data() + at;
    const RecordLayout layout = RecordLayout::read(record);
    const auto column = static_cast<std::uint32_t>(col);
    const std::size_t begin = layout.begin(record, column);
    return {record + layout.texts_at() + begin, layout.begin(record, column + 1) - begin};
}

// A row that is filled from left to right, the last in the buffer.
inline bool RowChunk::append_text(std::uint32_t at,
                                  RecordLayout layout,
                                  std::uint32_t col,
                                  std::string_view text) noexcept {
    char* record = buffer_.data() + at;
    const std::size_t old_end = layout.begin(record, layout.used);
    if (col >= layout.places || at + layout.bytes(old_end) != buffer_.size() ||
        text.size() > buffer_.capacity() - buffer_.size() || !layout.holds(old_end + text.size())) {
        return text.empty();
    }
    for (; layout.used < col; ++layout.used) {
        layout.set_end(record, layout.used, old_end);
    }
    layout.set_end(record, layout.used++, old_end + text.size());
    layout.write(record);
    buffer_.append(text);
    return true;
}

void RowChunk::set_text(std::int32_t row,
                        std::int32_t col,
                        std::string_view text,
                        std::int32_t cols) {
    const std::uint32_t at = offsets_[static_cast<std::size_t>(row)];
    const auto column = static_cast<std::uint32_t>(col);
    if (at != no_record) {
        const RecordLayout layout = RecordLayout::read(buffer_.data() + at);
        if (column < layout.used ? resize_text(at, layout, column, text)
                                 : append_text(at, layout, column, text)) {
            return;
        }
    }
    if (!text.empty()) {
        rewrite(row, column, text, cols);
    }
}

// Does what needs no memory: the text does not grow, or its record is the last and there is room
// behind it. Returns false for the rest.
bool RowChunk::resize_text(std::uint32_t at,
                           const RecordLayout& layout,
                           std::uint32_t col,
                           std::string_view text) noexcept {
    char* record = buffer_.data() + at;
    const std::size_t begin = layout.begin(record, col);
    const std::size_t end = layout.begin(record, col + 1);
    char* texts = record + layout.texts_at();
    if (text.size() == end - begin) {
        copy_bytes(texts + begin, text.data(), text.size());
        return true;
    }
    const std::size_t all_bytes = layout.begin(record, layout.used);
    const std::size_t difference = text.size() - (end - begin);
    const bool at_end = at + layout.bytes(all_bytes) == buffer_.size();
    const bool grows = text.size() > end - begin;
    if (grows && (!at_end || !layout.holds(all_bytes + difference) ||
                  difference > buffer_.capacity() - buffer_.size())) {
        return false;
    }
    copy_bytes(texts + begin + text.size(), texts + end, all_bytes - end);
    copy_bytes(texts + begin, text.data(), text.size());
    layout.move_ends(record, col, difference);
    if (at_end) {
        buffer_.set_size(buffer_.size() + difference);
    } else {
        dead_bytes_ -= static_cast<std::uint32_t>(difference);
    }
    return true;
}

// Writes the row anew behind the last one.
void RowChunk::rewrite(std::int32_t row,
                       std::uint32_t col,
                       std::string_view text,
                       std::int32_t cols) {
    std::string_view old = record(row);
    const RecordLayout old_layout = old.empty() ? RecordLayout{} : RecordLayout::read(old.data());
    const std::size_t begin = old_layout.begin(old.data(), col);
    const std::size_t end = old_layout.begin(old.data(), col + 1);
    const std::size_t old_bytes = old_layout.begin(old.data(), old_layout.used);
    const std::size_t all_bytes = old_bytes - (end - begin) + text.size();
    const RecordLayout layout =
        RecordLayout::for_texts(std::max(old_layout.places, places_for(col + 1, cols)),
                                std::max(old_layout.used, col + 1),
                                all_bytes);

    make_room(checked_bytes(layout, all_bytes));
    const std::size_t at = buffer_.size();
    buffer_.set_size(at + layout.bytes(all_bytes));
    old = record(row);
    char* fresh = buffer_.data() + at;
    layout.write(fresh);
    for (std::uint32_t c = 0; c < layout.used; ++c) {
        const std::size_t old_end = old_layout.begin(old.data(), c + 1);
        layout.set_end(fresh, c, c < col ? old_end : old_end + all_bytes - old_bytes);
    }
    const char* old_texts = old.data() + (old.empty() ? 0 : old_layout.texts_at());
    char* texts = fresh + layout.texts_at();
    copy_bytes(texts, old_texts, begin);
    copy_bytes(texts + begin, text.data(), text.size());
    copy_bytes(texts + begin + text.size(), old_texts + end, old_bytes - end);
    dead_bytes_ += static_cast<std::uint32_t>(old.size());
    offsets_[static_cast<std::size_t>(row)] = static_cast<std::uint32_t>(at);
}

void RowChunk::insert_row(std::int32_t row, std::string_view record) {
    if (offsets_.size() == offsets_.capacity()) {
        offsets_.reserve(offsets_.size() + std::max<std::size_t>(8, offsets_.size() / 4));
    }
    make_room(record.size());
    const std::size_t at = record.empty() ? no_record : buffer_.size();
    buffer_.append(record);
    offsets_.insert(offsets_.begin() + row, static_cast<std::uint32_t>(at));
    ++rows_;
}

void RowChunk::append_empty_rows(std::int32_t count) {
    offsets_.insert(offsets_.end(), static_cast<std::size_t>(count), no_record);
    rows_ += count;
}

void RowChunk::remove_rows(std::int32_t first, std::int32_t count) noexcept {
    for (std::int32_t row = first; row < first + count; ++row) {
        dead_bytes_ += static_cast<std::uint32_t>(record(row).size());
    }
    offsets_.erase(offsets_.begin() + first, offsets_.begin() + first + count);
    rows_ -= count;
    constexpr std::size_t not_worth_it = 1024;
    if (dead_bytes_ > not_worth_it && dead_bytes_ > live_bytes()) {
        try_compact(live_bytes() / 16);
    }
}

void RowChunk::limit_cols(std::int32_t cols) noexcept {
    const auto kept = static_cast<std::uint32_t>(cols);
    for (const std::uint32_t at : offsets_) {
        if (at == no_record) {
            continue;
        }
        char* record = buffer_.data() + at;
        RecordLayout layout = RecordLayout::read(record);
        if (layout.used > kept) {
            const std::size_t old_bytes = layout.bytes_of(record);
            layout.used = kept;
            layout.write(record);
            dead_bytes_ += static_cast<std::uint32_t>(old_bytes - layout.bytes_of(record));
        }
    }
    if (dead_bytes_ > live_bytes() / 4) {
        try_compact(live_bytes() / 16);
    }
}

RowChunk RowChunk::divide(std::int32_t first) {
    RowChunk upper(rows_ - first);
    std::size_t bytes = 0;
    for (std::int32_t row = first; row < rows_; ++row) {
        bytes += record(row).size();
    }
    upper.unblank(0);
    upper.buffer_.reserve(bytes + bytes / 8);
    for (std::int32_t row = first; row < rows_; ++row) {
        if (const std::string_view moved = record(row); !moved.empty()) {
            upper.offsets_[static_cast<std::size_t>(row - first)] =
                static_cast<std::uint32_t>(upper.buffer_.size());
            upper.buffer_.append(moved);
        }
    }
    remove_rows(first, rows_ - first);
    if (dead_bytes_ > live_bytes() / 8) {
        try_compact(live_bytes() / 8);
    }
    return upper;
}

void RowChunk::absorb(const RowChunk& next) {
    offsets_.reserve(offsets_.size() + next.offsets_.size());
    make_room(next.live_bytes());
    for (std::int32_t row = 0; row < next.rows_; ++row) {
        const std::string_view moved = next.record(row);
        offsets_.push_back(moved.empty() ? no_record : static_cast<std::uint32_t>(buffer_.size()));
        buffer_.append(moved);
    }
    rows_ += next.rows_;
}

void RowChunk::trim() noexcept {
    if (buffer_.capacity() - buffer_.size() + dead_bytes_ > buffer_.size() / 8) {
        try_compact(live_bytes() / 16);
    }
}

std::size_t RowChunk::memory_bytes() const noexcept {
    return offsets_.capacity() * sizeof(std::uint32_t) + buffer_.capacity();
}

// Afterwards that many bytes can be appended without memory. Moves the records.
void RowChunk::make_room(std::size_t bytes) {
    if (bytes <= buffer_.capacity() - buffer_.size()) {
        return;
    }
    if (dead_bytes_ > live_bytes() / 8) {
        const std::size_t needed = live_bytes() + bytes;
        compact(needed + needed / 8);
    } else {
        const std::size_t needed = buffer_.size() + bytes;
        buffer_.reserve(needed + needed / 4);
    }
}

void RowChunk::compact(std::size_t capacity) {
    ByteBuffer old;
    old.reserve(capacity);
    old.swap(buffer_);
    for (std::uint32_t& at : offsets_) {
        if (at != no_record) {
            const char* moved = old.data() + at;
            at = static_cast<std::uint32_t>(buffer_.size());
            buffer_.append({moved, RecordLayout::read(moved).bytes_of(moved)});
        }
    }
    dead_bytes_ = 0;
}

void RowChunk::try_compact(std::size_t spare) noexcept {
    try {
        compact(live_bytes() + spare);
    } catch (const std::bad_alloc&) {
        // The records stay as they are, with their gaps.
    }
}

std::string_view RowChunk::record(std::int32_t row) const noexcept {
    const std::uint32_t at = offsets_[static_cast<std::size_t>(row)];
    if (at == no_record) {
        return {};
    }
    const char* found = buffer_.data() + at;
    return {found, RecordLayout::read(found).bytes_of(found)};
}

void RowChunk::make_record(std::string_view item, std::int32_t cols, ByteBuffer& record) {
    record.set_size(0);
    std::size_t texts_bytes = 0;
    std::uint32_t used_cols = 0;
    for_fields(item, cols, [&](std::uint32_t col, std::string_view field) {
        texts_bytes += field.size();
        used_cols = field.empty() ? used_cols : col + 1;
    });
    if (used_cols == 0) {
        return;
    }
    const RecordLayout layout =
        RecordLayout::for_texts(places_for(used_cols, cols), used_cols, texts_bytes);
    record.reserve(checked_bytes(layout, texts_bytes));
    record.set_size(layout.bytes(texts_bytes));
    layout.write(record.data());
    std::size_t end = 0;
    for_fields(item, static_cast<std::int32_t>(used_cols), [&](std::uint32_t col, auto field) {
        copy_bytes(record.data() + layout.texts_at() + end, field.data(), field.size());
        end += field.size();
        layout.set_end(record.data(), col, end);
    });
}

} // namespace krv::standard
