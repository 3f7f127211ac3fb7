#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace krv {

/// Which record a column's value belongs to: a tag for the host, not used by the control.
enum krvListRecords : std::int32_t {
    krvListRecord = 0, ///< the list's own record
    krvRec1 = 1,       ///< first related record
    krvRec2 = 2        ///< second related record
};

/// Column alignment, as the grids number it.
enum krvAlignment : std::int32_t { krvauto = 0, krvleft = 1, krvcenter = 4, krvright = 7 };

/// The column settings that only the control interprets: eight arrays with one element a column.
///
/// Every `Col` is 0-based; outside the array each member fails with error 9 ("Subscript out of
/// range") and stores nothing. Captions, widths, alignments and input values are not here: the
/// grids hold them.
class ColumnModel {
public:
    /// Elements of the arrays; 0 before the first `Resize`. While a resize has failed half way the
    /// arrays differ; this is the count of the first one.
    std::int32_t Count() const noexcept { return static_cast<std::int32_t>(editable_.size()); }

    /// Gives the eight arrays the bounds 0 to `upper_bound`, one after the other in a fixed order.
    /// Remaining elements keep their values; new ones are False, 0 and "".
    /// \throws RuntimeError 9 for an upper bound below 0 (nothing changes), 7 when memory cannot be
    ///         had (arrays already resized stay resized)
    void Resize(std::int32_t upper_bound);

    bool ColEditable(std::int32_t col) const;
    void SetColEditable(std::int32_t col, bool value);
    krvListRecords ColFromRecord(std::int32_t col) const;
    /// \throws RuntimeError 6 outside -32768 to 32767; the column is tested first
    void SetColFromRecord(std::int32_t col, krvListRecords value);
    /// Valid until the column's field or the columns change.
    const std::string& ColDataField(std::int32_t col) const;
    void SetColDataField(std::int32_t col, std::string value);
    krvListRecords ColIsKey(std::int32_t col) const;
    /// \throws RuntimeError 6 outside -32768 to 32767; the column is tested first
    void SetColIsKey(std::int32_t col, krvListRecords value);
    /// Valid until the column's format or the columns change.
    const std::string& ColFormat(std::int32_t col) const;
    void SetColFormat(std::int32_t col, std::string value);
    bool ColIsNecessary(std::int32_t col) const;
    void SetColIsNecessary(std::int32_t col, bool value);
    std::int16_t ColFieldLength(std::int32_t col) const;
    void SetColFieldLength(std::int32_t col, std::int16_t value);
    std::int16_t ColFieldType(std::int32_t col) const;
    void SetColFieldType(std::int32_t col, std::int16_t value);

private:
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
