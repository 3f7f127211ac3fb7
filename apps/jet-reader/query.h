#pragma once

#include "memory_database.h"
#include "sql_translation.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv::jet_reader {

/// The rows of a SELECT.
class Query final : public standard::ProviderCursor {
public:
    /// Takes in the tables and goes to the first row: only that tells the type of an expression.
    /// \param sql  of Jet
    Query(JetFile& file, std::string_view sql, Pulse pulse);

    bool step() override;

    std::span<const standard::ColumnInfo> columns() const override { return columns_; }

    platform::ValueView value(std::size_t column) override;

    void release() noexcept override { statement_.reset(); }

private:
    Query(JetFile& file, const TranslatedSelect& select, Pulse pulse);
    standard::ColumnInfo describe(int column) const;
    void name_columns(const std::set<std::string>& names);

    MemoryDatabase database_;
    Statement statement_;
    bool has_row_ = false;
    bool is_before_first_ = true;
    std::vector<standard::ColumnInfo> columns_;
};

} // namespace krv::jet_reader
