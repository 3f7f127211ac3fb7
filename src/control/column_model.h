#pragma once

#include "control/failures.h"

#include "krv/control/enumerations.h"

#include <cstdint>
#include <string>
#include <vector>

namespace krv {

/// The column settings that only the control interprets: eight arrays with one element a column.
///
/// Every `Col` is 0-based; outside the array each member fails with error 9 ("Subscript out of
/// range") and stores nothing. Captions, widths, alignments and input values are not here: the
/// grids hold them.
class ColumnModel {
public:
    /// Gives the eight arrays the bounds 0 to `upper_bound`. Remaining elements keep their values;
    /// new ones are False, 0 and "".
    /// \throws RuntimeError 9 for an upper bound below 0, 7 when memory cannot be had; nothing
    ///         changes then
    void Resize(std::int32_t upper_bound);

    bool ColEditable(std::int32_t col) const;
    void SetColEditable(std::int32_t col, bool value);
    krvListRecords ColFromRecord(std::int32_t col) const;
    /// \throws RuntimeError 6 outside -32768 to 32767; the column is tested first
    void SetColFromRecord(std::int32_t col, krvListRecords value);

    /// Valid until the column's field or the columns change.
    const std::string& ColDataField(std::int32_t col) const {
        return data_field_[index_in(data_field_, col)];
    }

    void SetColDataField(std::int32_t col, std::string value);
    krvListRecords ColIsKey(std::int32_t col) const;
    /// \throws RuntimeError 6 outside -32768 to 32767; the column is tested first
    void SetColIsKey(std::int32_t col, krvListRecords value);

    /// Valid until the column's format or the columns change.
    const std::string& ColFormat(std::int32_t col) const { return format_[index_in(format_, col)]; }

    void SetColFormat(std::int32_t col, std::string value);
    bool ColIsNecessary(std::int32_t col) const;
    void SetColIsNecessary(std::int32_t col, bool value);
    std::int16_t ColFieldLength(std::int32_t col) const;
    void SetColFieldLength(std::int32_t col, std::int16_t value);
    std::int16_t ColFieldType(std::int32_t col) const;
    void SetColFieldType(std::int32_t col, std::int16_t value);

private:
    template <class Array>
    static std::size_t index_in(const Array& array, std::int32_t col) {
        if (col < 0 || static_cast<std::size_t>(col) >= array.size()) {
            fail_subscript();
        }
        return static_cast<std::size_t>(col);
    }

    std::vector<bool> editable_;
    std::vector<std::int16_t> from_record_;
    std::vector<std::string> data_field_;
    std::vector<std::int16_t> is_key_;
    std::vector<std::string> format_;
    std::vector<bool> is_necessary_;
    std::vector<std::int16_t> field_length_;
    std::vector<std::int16_t> field_type_;
};

} // namespace krv
