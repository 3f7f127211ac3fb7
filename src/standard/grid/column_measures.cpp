#include "standard/grid/column_measures.h"

#include <algorithm>

namespace krv::standard {

platform::Twips ColumnMeasures::width(std::int32_t col) const noexcept {
    return get(col).width;
}

void ColumnMeasures::set_width(std::int32_t col, platform::Twips width) {
    Column column = get(col);
    column.width = width;
    set(column);
}

std::int16_t ColumnMeasures::alignment(std::int32_t col) const noexcept {
    return get(col).alignment;
}

void ColumnMeasures::set_alignment(std::int32_t col, std::int16_t alignment) {
    Column column = get(col);
    column.alignment = alignment;
    set(column);
}

void ColumnMeasures::forget_from(std::int32_t col) noexcept {
    columns_.erase(find(col), columns_.end());
}

std::int64_t ColumnMeasures::left(std::int32_t col) const noexcept {
    const auto next = find(col);
    if (next == columns_.begin()) {
        return std::int64_t{col} * default_width;
    }
    const Column& before = *(next - 1);
    return before.right() + std::int64_t{col - before.col - 1} * default_width;
}

std::int64_t ColumnMeasures::col_at(std::int64_t place) const noexcept {
    const auto next = std::partition_point(
        columns_.begin(), columns_.end(), [place](const Column& c) { return c.right() <= place; });
    if (next != columns_.end() && next->left <= place) {
        return next->col;
    }
    if (next == columns_.begin()) {
        return place / default_width;
    }
    const Column& before = *(next - 1);
    return before.col + 1 + (place - before.right()) / default_width;
}

std::size_t ColumnMeasures::memory_bytes() const noexcept {
    return sizeof *this + columns_.capacity() * sizeof(Column);
}

// The first that is this column or lies behind it.
ColumnMeasures::Columns::const_iterator ColumnMeasures::find(std::int32_t col) const noexcept {
    return std::partition_point(
        columns_.begin(), columns_.end(), [col](const Column& c) { return c.col < col; });
}

ColumnMeasures::Column ColumnMeasures::get(std::int32_t col) const noexcept {
    const auto found = find(col);
    if (found != columns_.end() && found->col == col) {
        return *found;
    }
    return {col, default_width, left(col), general_alignment};
}

void ColumnMeasures::set(const Column& column) {
    const auto found = columns_.begin() + (find(column.col) - columns_.cbegin());
    const std::int64_t wider = column.width - std::int64_t{width(column.col)};
    const bool differs = column.width != default_width || column.alignment != general_alignment;
    auto next = found;
    if (found != columns_.end() && found->col == column.col) {
        *found = column;
        next = differs ? found + 1 : columns_.erase(found);
    } else if (differs) {
        next = columns_.insert(found, column) + 1;
    }
    for (; next != columns_.end(); ++next) {
        next->left += wider;
    }
}

} // namespace krv::standard
