#pragma once

#include "krv/platform/value.h"
#include "krv/standard/connection_string.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace krv::standard {

/// A column of what a provider reads.
struct ColumnInfo {
    std::string name;              ///< UTF-8
    std::int16_t type = 0;         ///< data-type code of the classic data objects (202 text)
    std::int32_t defined_size = 0; ///< characters of a text with a length, else bytes
};

/// A table's name in parts, the outermost first (schema, table), unquoted.
using TableName = std::vector<std::string>;

/// Reads rows once, forward. Keeps what it needs of its connection alive by itself.
class ProviderCursor {
public:
    virtual ~ProviderCursor() = default;

    /// Goes to the next row, at first to the first one.
    /// \return false behind the last row; not called again then
    /// \throws DataError when the engine fails; the cursor is of no more use
    virtual bool step() = 0;

    /// Final once `step` has been called: an engine may know a type by its first row only.
    virtual std::span<const ColumnInfo> columns() const = 0;

    /// The current row's value, valid until the next `step` or `release`. Converted when first
    /// asked for.
    /// \param column  0 to columns().size() - 1, not checked
    virtual platform::ValueView value(std::size_t column) = 0;

    /// Gives the engine's cursor with its locks back; `columns` stay. No row is current any more.
    virtual void release() noexcept = 0;
};

/// What a provider's `execute` did.
struct ProviderOutcome {
    std::int64_t affected = 0;
    /// Before its first row; null for a statement that yields no rows by its nature.
    std::unique_ptr<ProviderCursor> cursor;
};

/// An open connection to one database. Closes when destroyed.
class ProviderConnection {
public:
    virtual ~ProviderConnection() = default;

    /// Looks a table or view up in the engine's catalog.
    /// \return the name as the catalog spells it: an exact match, else the only match without
    ///         letter case, else nothing
    virtual std::optional<TableName> find_table(const TableName& name) = 0;

    /// Reads a whole table. Every part of the name goes to the engine in the engine's own quotes.
    /// \throws DataError -2147217865 when there is no such table
    virtual std::unique_ptr<ProviderCursor> open_table(const TableName& name) = 0;

    /// Reads by one statement. One that might change anything, or yields no rows by its nature, is
    /// refused before it runs, and so is a second statement behind it.
    /// \throws DataError -2147217900 for those and for bad SQL, -2147217865 for a table that is
    ///         not there
    virtual std::unique_ptr<ProviderCursor> open_query(std::string_view sql) = 0;

    /// Runs one statement, also one that writes, with its parameters bound.
    /// \throws DataError -2147217900 for bad SQL, 3001 for a wrong number of parameters, 13 for one
    ///         that the engine cannot take, -2147467259 otherwise
    virtual ProviderOutcome execute(std::string_view sql,
                                    std::span<const platform::Value> parameters) = 0;

    virtual bool in_transaction() const = 0;
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
};

/// Makes connections to one kind of database.
class Provider {
public:
    virtual ~Provider() = default;

    /// \throws DataError -2147467259 with the engine's text, -2147217843 for a refused login,
    ///         -2147217805 for a setting that it cannot understand. No database is made.
    virtual std::unique_ptr<ProviderConnection> open(const ConnectionString& settings) = 0;
};

} // namespace krv::standard
