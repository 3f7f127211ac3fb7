#pragma once

#include "krv/platform/data_access.h"
#include "krv/standard/provider.h"
#include "standard/ado/ado_errors.h"

#include <vector>

namespace krv::standard {

class AdoConnection;

/// Where the fields find the current record.
struct CurrentRow {
    ProviderCursor* cursor = nullptr;          ///< null when no record is current
    const AdoConnection* connection = nullptr; ///< takes its secrets out of errors; never null
                                               ///< beside a cursor
};

class AdoField final : public platform::Field {
public:
    AdoField(ColumnInfo info, const CurrentRow& row, std::size_t column)
        : info_(std::move(info))
        , row_(&row)
        , column_(column) {}

    std::string_view Name() const override { return info_.name; }

    std::int16_t Type() const override { return info_.type; }

    std::int32_t DefinedSize() const override { return info_.defined_size; }

    platform::ValueView Value() const override;

private:
    ColumnInfo info_;
    const CurrentRow* row_;
    std::size_t column_;
};

/// Fields of a recordset. Names are asked for once a cell, row after row in the same order, so the
/// answer to the question before tells most likely where the next one is.
class AdoFields final : public platform::Fields {
public:
    void assign(std::span<const ColumnInfo> columns, const CurrentRow& row);
    void clear() noexcept;

    std::int32_t Count() const override { return static_cast<std::int32_t>(fields_.size()); }

    const platform::Field& Item(std::string_view name) const override;
    const platform::Field& Item(std::int32_t index) const override;

private:
    const platform::Field& search(std::string_view name) const;

    std::vector<AdoField> fields_;
    /// Per field, the one that was asked for after it the last time. Always the first of its name.
    mutable std::vector<std::size_t> next_;
    mutable std::size_t last_ = 0;
};

} // namespace krv::standard
