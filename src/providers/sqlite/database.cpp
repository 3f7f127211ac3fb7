#include "providers/sqlite/database.h"

#include "krv/standard/data_error.h"
#include "providers/sqlite/authorizer.h"
#include "providers/sqlite/statement.h"
#include "standard/utf8.h"

namespace krv::providers::sqlite {

namespace {

using standard::DataError;
namespace data_error_number = standard::data_error_number;

std::int32_t number_of(int code, Phase phase, std::string_view text) {
    const int primary = code & 0xFF;
    if (phase == Phase::preparing && primary == SQLITE_ERROR) {
        return text.starts_with("no such table: ") ? data_error_number::no_such_table
                                                   : data_error_number::bad_statement;
    }
    return primary == SQLITE_AUTH ? data_error_number::bad_statement
                                  : data_error_number::unspecified;
}

/// May the same file be opened for reading when it cannot be opened for writing?
bool may_be_read_only(const DataError& error) {
    const int primary = error.native_code() & 0xFF;
    return primary == SQLITE_CANTOPEN || primary == SQLITE_READONLY || primary == SQLITE_PERM;
}

} // namespace

std::shared_ptr<Database>
Database::open(const std::string& path, bool read_only, int busy_timeout_ms) {
    const auto open_with = [&](int flags) {
        return std::shared_ptr<Database>(new Database(path, flags, busy_timeout_ms));
    };
    if (!read_only) {
        try {
            return open_with(SQLITE_OPEN_READWRITE);
        } catch (const DataError& error) {
            if (!may_be_read_only(error)) {
                throw;
            }
        }
    }
    return open_with(SQLITE_OPEN_READONLY);
}

Database::Database(const std::string& path, int flags, int busy_timeout_ms) {
    sqlite3* handle = nullptr;
    // A connection belongs to one thread at a time, so SQLite need not lock around each call.
    const int code = sqlite3_open_v2(path.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(handle); // there also after a failure, with the error's text
    check(code, Phase::running);
    check(sqlite3_busy_timeout(handle, busy_timeout_ms), Phase::running);
    harden();
    verify();
}

void Database::harden() {
    sqlite3* const handle = handle_.get();
    check(sqlite3_extended_result_codes(handle, 1), Phase::running);
    const auto configure = [&](int what, int on) {
        check(sqlite3_db_config(handle, what, on, nullptr), Phase::running);
    };
    configure(SQLITE_DBCONFIG_DEFENSIVE, 1);
    configure(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    configure(SQLITE_DBCONFIG_DQS_DML, 0);
    configure(SQLITE_DBCONFIG_DQS_DDL, 0);
    configure(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0);

    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, 512 * 1024 * 1024);
    sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, 1'000'000);
    sqlite3_limit(handle, SQLITE_LIMIT_EXPR_DEPTH, 500);
    sqlite3_limit(handle, SQLITE_LIMIT_COMPOUND_SELECT, 200);
    sqlite3_limit(handle, SQLITE_LIMIT_VDBE_OP, 25'000'000);
    sqlite3_limit(handle, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 10'000);
    sqlite3_limit(handle, SQLITE_LIMIT_TRIGGER_DEPTH, 100);

    check(sqlite3_set_authorizer(handle, authorize, &only_reading_), Phase::running);
}

/// Reads the file for the first time: one that is no database shows here.
void Database::verify() {
    Statement version(*this, "PRAGMA schema_version");
    version.step();
    Statement encoding(*this, "PRAGMA encoding");
    encoding.step();
    is_utf16_ = encoding.text(0).starts_with("UTF-16");
}

void Database::raise(int code, Phase phase) const {
    std::string storage;
    std::string_view text;
    if (handle_) {
        text = standard::repaired_utf8(sqlite3_errmsg(handle_.get()), storage);
        const int extended = sqlite3_extended_errcode(handle_.get());
        code = (extended & 0xFF) == (code & 0xFF) ? extended : code;
    }
    if (text.empty()) {
        text = "Unspecified error";
    }
    throw DataError(number_of(code, phase, text), std::string(text), layer, code);
}

} // namespace krv::providers::sqlite
