#pragma once

#include "channel.h"
#include "jet_file.h"
#include "krv/standard/provider.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace krv::jet_reader {

/// What a column of a table in memory says about the column that it was made from; kept in its
/// declared type, which SQLite hands out with the results.
std::string declared_type(const standard::ColumnInfo& column);

/// The column that a declared type speaks of, without a name; code 0 for none.
standard::ColumnInfo column_of_declared_type(const char* declared);

struct StatementFinalizer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};

using Statement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

/// An SQLite database in memory that takes in the tables that a statement names. It can only be read
/// from outside.
class MemoryDatabase {
public:
    /// \param pulse  called while tables are taken in and statements run
    MemoryDatabase(JetFile& file, Pulse pulse);
    MemoryDatabase(const MemoryDatabase&) = delete;
    MemoryDatabase& operator=(const MemoryDatabase&) = delete;

    /// \param sql  one SELECT, translated
    /// \throws DataError -2147217900 for bad SQL, -2147217865 for a table that is not there, and
    ///         what the reading of a table throws
    Statement prepare(const std::string& sql);

    /// \return whether a row is there
    bool step(sqlite3_stmt* statement) const;

private:
    struct Closer {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };

    void run(const char* sql) const;
    void check(int code) const;
    [[noreturn]] void raise(int code) const;
    std::string missing_table() const;
    void take_in(const std::string& name);
    void insert_rows(standard::ProviderCursor& rows, const std::string& name);

    JetFile& file_;
    Pulse pulse_;
    bool is_taking_in_ = false;
    std::unique_ptr<sqlite3, Closer> database_;
    std::set<std::string> tables_;
};

} // namespace krv::jet_reader
