#include "providers/sqlite/cursor.h"

#include "providers/sqlite/column_value.h"
#include "providers/sqlite/declared_type.h"
#include "standard/utf8.h"

#include <utility>

namespace krv::providers::sqlite {

namespace {

std::string valid_utf8(const char* text) {
    std::string storage;
    return std::string(standard::repaired_utf8(text == nullptr ? "" : text, storage));
}

} // namespace

Cursor::Cursor(std::shared_ptr<const Database> database, Statement statement)
    : database_(std::move(database))
    , statement_(std::move(statement)) {}

bool Cursor::step() {
    const bool has_row = statement_.step();
    if (row_ == 0) {
        // Not before: SQLite may have compiled the statement anew for a table that has changed.
        describe_columns();
        settle_types_by_the_first_row(has_row);
    }
    ++row_;
    return has_row;
}

void Cursor::describe_columns() {
    const int count = statement_.column_count();
    for (int i = 0; i < count; ++i) {
        const char* declared = sqlite3_column_decltype(statement_.handle(), i);
        const ColumnType type = declared_type(declared == nullptr ? "" : declared);
        columns_.push_back(
            {valid_utf8(sqlite3_column_name(statement_.handle(), i)), type.type, type.size});
    }
}

void Cursor::settle_types_by_the_first_row(bool has_row) {
    cells_.resize(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].type == 0) {
            const int column = static_cast<int>(i);
            const int storage =
                has_row ? sqlite3_column_type(statement_.handle(), column) : SQLITE_NULL;
            const auto whole =
                storage == SQLITE_INTEGER ? sqlite3_column_int64(statement_.handle(), column) : 0;
            const ColumnType type = stored_type(storage, whole);
            columns_[i].type = type.type;
            columns_[i].defined_size = type.size;
        }
        cells_[i].type = columns_[i].type;
    }
}

platform::ValueView Cursor::read(int column, Cell& cell) {
    sqlite3_stmt* const row = statement_.handle();
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER:
        return whole_value(sqlite3_column_int64(row, column), cell.type);
    case SQLITE_FLOAT:
        return real_value(sqlite3_column_double(row, column), cell.type);
    case SQLITE_TEXT:
        return text_value(read_text(column, cell.storage), cell.type, cell.storage);
    case SQLITE_BLOB: {
        const auto* data = static_cast<const std::byte*>(sqlite3_column_blob(row, column));
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
        return blob_value({data, size}, cell.type, cell.storage);
    }
    default:
        return platform::ValueView::null();
    }
}

std::string_view Cursor::read_text(int column, std::string& storage) {
    if (database_->is_utf16()) {
        // SQLite's own conversion joins a lone surrogate with whatever follows it (3.40).
        const auto* data =
            static_cast<const char16_t*>(sqlite3_column_text16(statement_.handle(), column));
        const int bytes = sqlite3_column_bytes16(statement_.handle(), column);
        if (data != nullptr) {
            return standard::utf8_from_utf16({data, static_cast<std::size_t>(bytes) / 2}, storage);
        }
        database_->raise(SQLITE_NOMEM, Phase::running);
    }
    const std::string_view text = statement_.text(column);
    if (text.data() == nullptr) {
        database_->raise(SQLITE_NOMEM, Phase::running);
    }
    return standard::repaired_utf8(text, storage);
}

ReadAheadCursor::ReadAheadCursor(standard::ProviderCursor& rows) {
    while (rows.step()) {
        std::vector<platform::Value> row;
        for (std::size_t i = 0; i < rows.columns().size(); ++i) {
            row.emplace_back(rows.value(i));
        }
        rows_.push_back(std::move(row));
    }
    columns_.assign(rows.columns().begin(), rows.columns().end());
}

} // namespace krv::providers::sqlite
