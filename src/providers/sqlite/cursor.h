#pragma once

#include "krv/standard/provider.h"
#include "providers/sqlite/statement.h"

#include <memory>
#include <string>
#include <vector>

namespace krv::providers::sqlite {

/// Rows of a statement, straight out of SQLite.
class Cursor final : public standard::ProviderCursor {
public:
    /// What the statement may do while it runs.
    enum class Rights { only_read, all };

    Cursor(std::shared_ptr<Database> database, Statement statement, Rights rights);

    bool step() override;

    std::span<const standard::ColumnInfo> columns() const override { return columns_; }

    platform::ValueView value(std::size_t column) override {
        Cell& cell = cells_[column];
        // A value that is there already is handed on without a copy in between.
        return cell.is_costly ? kept_value(column, cell) : read(static_cast<int>(column), cell);
    }

    void release() noexcept override { statement_.finalize(); }

private:
    struct Cell {
        std::int16_t type = 0;  ///< of the column
        bool is_costly = false; ///< its values are converted, and kept for the row
        std::uint64_t row = 0;  ///< the row that `value` belongs to, 0 for none
        platform::ValueView value;
        std::string storage; ///< of a value that is not SQLite's own text
    };

    void describe_columns();
    void settle_types_by_the_first_row(bool has_row);
    platform::ValueView kept_value(std::size_t column, Cell& cell);
    platform::ValueView read(int column, Cell& cell);
    std::string_view read_text(sqlite3_value* value, std::string& storage) const;

    /// SQLite hands out no text and no bytes when its memory is used up.
    template <class Unit>
    const Unit* require(const Unit* data) const {
        if (data == nullptr) {
            database_->raise(SQLITE_NOMEM, Phase::running);
        }
        return data;
    }

    std::shared_ptr<Database> database_; // outlives the statement
    Statement statement_;
    Rights rights_;
    std::vector<standard::ColumnInfo> columns_;
    std::vector<Cell> cells_;
    std::uint64_t row_ = 0; ///< counts from 1 at the first row
};

/// Rows that were read in advance.
class ReadAheadCursor final : public standard::ProviderCursor {
public:
    /// Reads `rows` to their end.
    explicit ReadAheadCursor(standard::ProviderCursor& rows);

    bool step() override { return ++row_ <= rows_.size(); }

    std::span<const standard::ColumnInfo> columns() const override { return columns_; }

    platform::ValueView value(std::size_t column) override {
        return rows_[row_ - 1][column].view();
    }

    void release() noexcept override { rows_.clear(); }

private:
    std::vector<standard::ColumnInfo> columns_;
    std::vector<std::vector<platform::Value>> rows_;
    std::size_t row_ = 0;
};

} // namespace krv::providers::sqlite
