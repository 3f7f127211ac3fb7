#pragma once

#include "krv/platform/value.h"
#include "providers/sqlite/database.h"

#include <memory>
#include <string_view>

namespace krv::providers::sqlite {

/// One compiled statement.
class Statement {
public:
    /// \throws DataError -2147217900 for bad SQL, for a text without a statement and for one with
    ///         more behind the first than blanks, comments and semicolons; -2147217865 for a table
    ///         that is not there
    Statement(const Database& database, std::string_view sql);

    sqlite3_stmt* handle() const noexcept { return handle_.get(); }

    /// \return whether a row is there
    bool step() {
        const int code = sqlite3_step(handle_.get());
        database_->check(code, Phase::running);
        return code == SQLITE_ROW;
    }

    /// Columns of its rows; 0 for a statement that yields none by its nature.
    int column_count() const noexcept { return sqlite3_column_count(handle_.get()); }

    bool is_read_only() const noexcept { return sqlite3_stmt_readonly(handle_.get()) != 0; }

    /// A text of the current row, valid until the next step. Empty for Null.
    std::string_view text(int column) const noexcept;

    /// Binds a value; positions count from 0.
    /// \throws DataError 13 for an object and for a date that is none
    void bind(int position, platform::ValueView value);

    /// Gives the engine's cursor with its locks back.
    void finalize() noexcept { handle_.reset(); }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* handle) const noexcept { sqlite3_finalize(handle); }
    };

    const Database* database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

} // namespace krv::providers::sqlite
