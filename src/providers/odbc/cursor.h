#pragma once

#include "krv/standard/provider.h"
#include "providers/odbc/block.h"
#include "providers/odbc/session.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace krv::providers::odbc {

/// Rows of an executed statement.
class Cursor final : public standard::ProviderCursor {
public:
    Cursor(std::shared_ptr<Session> session, StatementHandle statement);
    ~Cursor() override;

    bool step() override;

    std::span<const standard::ColumnInfo> columns() const override { return columns_; }

    platform::ValueView value(std::size_t column) override;
    void release() noexcept override;

    /// Takes the rows that have not been read into memory and gives the statement back; the current
    /// row's values stay where they are.
    void read_ahead();

    /// Rows that were taken into memory.
    std::int64_t rows_ahead() const { return static_cast<std::int64_t>(ahead_.size()); }

private:
    using Row = std::vector<platform::Value>;

    struct Cell {
        std::uint64_t row = 0; ///< the row that `value` belongs to, 0 for none
        platform::ValueView value;
        std::string storage;
    };

    platform::ValueView convert(std::size_t column, std::string& storage);

    std::shared_ptr<Session> session_; // outlives the statement
    StatementHandle statement_;
    std::optional<Block> block_;
    std::vector<standard::ColumnInfo> columns_;
    std::vector<Cell> cells_;
    std::uint64_t row_ = 0; ///< counts from 1 at the first row
    std::vector<Row> ahead_;
    std::size_t next_ahead_ = 0;
    const Row* current_ahead_ = nullptr; ///< the current row when it was read ahead
};

} // namespace krv::providers::odbc
