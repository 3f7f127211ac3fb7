#include "providers/sqlite/cursor.h"

#include "providers/sqlite/column_value.h"
#include "providers/sqlite/declared_type.h"
#include "standard/ado/field_text.h"
#include "standard/ado/field_types.h"
#include "standard/utf8.h"

#include <optional>
#include <utility>

namespace krv::providers::sqlite {

namespace {

std::string valid_utf8(const char* text) {
    std::string storage;
    return std::string(standard::repaired_utf8(text == nullptr ? "" : text, storage));
}

/// Columns whose texts or numbers mean something else than a text or a number.
bool is_converted(std::int16_t type) {
    namespace field_type = standard::field_type;
    switch (type) {
    case field_type::currency:
    case field_type::numeric:
    case field_type::db_date:
    case field_type::db_time:
    case field_type::db_time_stamp:
    case field_type::guid:
        return true;
    default:
        return false;
    }
}

} // namespace

Cursor::Cursor(std::shared_ptr<Database> database, Statement statement, Rights rights)
    : database_(std::move(database))
    , statement_(std::move(statement))
    , rights_(rights) {}

bool Cursor::step() {
    std::optional<ReadOnlyScope> scope;
    if (rights_ == Rights::only_read) {
        scope.emplace(*database_);
    }
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
        cells_[i].is_costly = database_->is_utf16() || is_converted(columns_[i].type);
    }
}

platform::ValueView Cursor::kept_value(std::size_t column, Cell& cell) {
    if (cell.row != row_) {
        cell.value = read(static_cast<int>(column), cell);
        cell.row = row_;
    }
    return cell.value;
}

platform::ValueView Cursor::read(int column, Cell& cell) {
    // An unprotected value may be read like a protected one where SQLite takes no mutex, as on this
    // connection; that saves a look for the column with each call.
    sqlite3_value* const value = sqlite3_column_value(statement_.handle(), column);
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return whole_value(sqlite3_value_int64(value), cell.type);
    case SQLITE_FLOAT:
        return real_value(sqlite3_value_double(value), cell.type);
    case SQLITE_TEXT:
        return standard::field_value(read_text(value, cell.storage), cell.type, cell.storage);
    case SQLITE_BLOB: {
        const auto* data = static_cast<const std::byte*>(sqlite3_value_blob(value));
        const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
        if (size > 0) {
            require(data);
        }
        return blob_value({data, size}, cell.type, cell.storage);
    }
    default:
        return platform::ValueView::null();
    }
}

std::string_view Cursor::read_text(sqlite3_value* value, std::string& storage) const {
    if (database_->is_utf16()) {
        // SQLite's own conversion joins a lone surrogate with whatever follows it (3.40).
        const auto* data = static_cast<const char16_t*>(sqlite3_value_text16(value));
        const auto size = static_cast<std::size_t>(sqlite3_value_bytes16(value)) / 2;
        return standard::utf8_from_utf16({require(data), size}, storage);
    }
    const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const std::string_view text(require(data),
                                static_cast<std::size_t>(sqlite3_value_bytes(value)));
    return standard::is_ascii(text) ? text : standard::repaired_utf8(text, storage);
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
