#pragma once

#include "krv/platform/units.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace krv::standard {

/// Widths and alignments of a grid's columns; a column costs something only when it differs from
/// the default.
///
/// Indices and values are the caller's affair and must be right; places are twips from the left of
/// column 0. Members that may fail (`std::bad_alloc`) change nothing then.
class ColumnMeasures {
public:
    static constexpr platform::Twips default_width = 960;
    static constexpr std::int16_t general_alignment = 9;

    platform::Twips width(std::int32_t col) const noexcept;
    void set_width(std::int32_t col, platform::Twips width);
    std::int16_t alignment(std::int32_t col) const noexcept;
    void set_alignment(std::int32_t col, std::int16_t alignment);

    /// Columns from this one on are forgotten: they have the defaults.
    void forget_from(std::int32_t col) noexcept;

    std::int64_t left(std::int32_t col) const noexcept;
    /// The column over this place (0 or more), hidden columns passed over, as if there were no end.
    std::int64_t col_at(std::int64_t place) const noexcept;

    std::size_t memory_bytes() const noexcept;

private:
    struct Column {
        std::int32_t col;
        platform::Twips width;
        std::int64_t left;
        std::int16_t alignment;

        std::int64_t right() const noexcept { return left + width; }
    };

    using Columns = std::vector<Column>;

    Columns::const_iterator find(std::int32_t col) const noexcept;
    Column get(std::int32_t col) const noexcept;
    void set(const Column& column);

    Columns columns_; // that differ, in order
};

} // namespace krv::standard
