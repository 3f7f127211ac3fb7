#include "providers/sqlite/statement.h"

#include "krv/standard/data_error.h"
#include "standard/ascii.h"

namespace krv::providers::sqlite {

namespace {

/// Cuts blanks, semicolons and comments from the front.
std::string_view without_comments(std::string_view sql) {
    while (!sql.empty()) {
        if (standard::is_blank(sql.front()) || sql.front() == ';') {
            sql.remove_prefix(1);
        } else if (sql.starts_with("--")) {
            const std::size_t end = sql.find('\n');
            sql.remove_prefix(end == std::string_view::npos ? sql.size() : end);
        } else if (sql.starts_with("/*")) {
            const std::size_t end = sql.find("*/", 2);
            sql.remove_prefix(end == std::string_view::npos ? sql.size() : end + 2);
        } else {
            break;
        }
    }
    return sql;
}

[[noreturn]] void refuse(const char* text) {
    throw standard::DataError(standard::data_error_number::bad_statement, text, layer);
}

} // namespace

Statement::Statement(const Database& database, std::string_view sql)
    : database_(&database) {
    const auto limit = sqlite3_limit(database.handle(), SQLITE_LIMIT_SQL_LENGTH, -1);
    if (sql.size() > static_cast<std::size_t>(limit)) {
        refuse("The statement is too long.");
    }
    sqlite3_stmt* handle = nullptr;
    const char* rest = nullptr;
    const int code = sqlite3_prepare_v3(
        database.handle(), sql.data(), static_cast<int>(sql.size()), 0, &handle, &rest);
    handle_.reset(handle);
    database.check(code, Phase::preparing);
    if (!handle_) {
        refuse("There is no statement in the text.");
    }
    if (!without_comments(sql.substr(static_cast<std::size_t>(rest - sql.data()))).empty()) {
        refuse("There is more than one statement in the text.");
    }
}

std::string_view Statement::text(int column) const noexcept {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
    const int size = sqlite3_column_bytes(handle_.get(), column);
    return data == nullptr ? std::string_view()
                           : std::string_view(data, static_cast<std::size_t>(size));
}

} // namespace krv::providers::sqlite
