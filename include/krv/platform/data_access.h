#pragma once

#include "krv/platform/value.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace krv::platform {

/// Cursor types, lock types and options as the classic data objects number them.
namespace ado {

inline constexpr std::int32_t unspecified = -1;

inline constexpr std::int32_t cursor_forward_only = 0;
inline constexpr std::int32_t cursor_keyset = 1;
inline constexpr std::int32_t cursor_dynamic = 2;
inline constexpr std::int32_t cursor_static = 3;

inline constexpr std::int32_t lock_read_only = 1;
inline constexpr std::int32_t lock_pessimistic = 2;
inline constexpr std::int32_t lock_optimistic = 3;
inline constexpr std::int32_t lock_batch_optimistic = 4;

inline constexpr std::int32_t command_text = 1;
inline constexpr std::int32_t command_table = 2;
inline constexpr std::int32_t command_unknown = 8;
inline constexpr std::int32_t command_table_direct = 512;

inline constexpr std::int32_t state_closed = 0;
inline constexpr std::int32_t state_open = 1;

} // namespace ado

class Recordset;

/// What `Connection::Execute` did.
struct ExecuteResult {
    /// Rows that the statement changed; 0 for a statement that changes none.
    std::int64_t affected = 0;
    /// The rows that the statement yields, open on the first of them; null for a statement that
    /// yields none by its nature. What the statement writes is written by the time it is there.
    std::shared_ptr<Recordset> records;
};

/// A connection to a database.
class Connection : public Object {
public:
    /// \param connection_string  keyword=value pairs between semicolons
    /// \param user_id, password  beat the string's when not empty
    /// \throws RuntimeError 3705 when open, 3706 for an unknown provider, -2147217805 for a
    /// malformed
    ///         string, -2147217843 for a refused login, -2147467259 with the driver's text
    ///         otherwise; the connection stays closed
    virtual void Open(std::string_view connection_string,
                      std::string_view user_id,
                      std::string_view password,
                      std::int32_t options) = 0;

    /// Closes the recordsets that were opened on it as well.
    /// \throws RuntimeError 3704 when not open
    virtual void Close() = 0;

    /// `ado::state_closed` or `ado::state_open`.
    virtual std::int32_t State() const = 0;

    /// Runs one statement with its parameters bound, never spliced into the text. For hosts: the
    /// control itself does not write.
    /// \throws RuntimeError 3704 when not open, -2147217900 for bad SQL, -2147467259 otherwise
    virtual ExecuteResult Execute(std::string_view sql, std::span<const Value> parameters) = 0;

    // Transactions, one at a time.

    /// \throws RuntimeError 3704 when not open, 3251 inside a transaction
    virtual void BeginTrans() = 0;
    /// \throws RuntimeError 3704 when not open, 3251 outside a transaction
    virtual void CommitTrans() = 0;
    /// \throws RuntimeError 3704 when not open, 3251 outside a transaction
    virtual void RollbackTrans() = 0;
};

/// A column of an open recordset.
class Field {
public:
    virtual ~Field() = default;

    virtual std::string_view Name() const = 0;
    /// Data-type code, for example 3 whole number, 5 double, 6 currency, 133 date, 202 text.
    virtual std::int16_t Type() const = 0;
    /// Characters of a text, bytes of anything else.
    virtual std::int32_t DefinedSize() const = 0;
    /// The current record's value, valid until the recordset moves or closes.
    /// \throws RuntimeError 3021 at the end
    virtual ValueView Value() const = 0;
};

/// The columns of a recordset, in its order.
class Fields {
public:
    virtual ~Fields() = default;

    /// 0 while the recordset is closed.
    virtual std::int32_t Count() const = 0;
    /// By name: letter case ignored, nothing trimmed; of two equal names the first.
    /// \throws RuntimeError 3265 when there is none
    virtual const Field& Item(std::string_view name) const = 0;
    /// By position, 0 to Count() - 1.
    /// \throws RuntimeError 3265 outside
    virtual const Field& Item(std::int32_t index) const = 0;
};

/// The records of a table or query, read once, forward.
class Recordset : public Object {
public:
    /// Opens a table by its name or a query by its text, and stands on the first record.
    /// \param source       a table or view of the database (its bare name may hold blanks and
    ///                     keywords), else one statement that reads; a statement that would write
    ///                     is refused before it runs
    /// \param cursor_type, lock_type, options  numbers of `ado`; whatever is asked, the records are
    ///                     read forward and nothing is locked
    /// \throws RuntimeError 3705 when open, 3709 on a closed connection, 3001 for an unknown
    /// number,
    ///         -2147217865 for a table that is not there, -2147217900 for bad SQL or a statement
    ///         that yields no rows; the recordset stays closed
    virtual void Open(std::string_view source,
                      std::shared_ptr<Connection> connection,
                      std::int32_t cursor_type,
                      std::int32_t lock_type,
                      std::int32_t options) = 0;

    /// \throws RuntimeError 3704 when not open
    virtual void Close() = 0;

    virtual std::int32_t State() const = 0;

    /// The member `EOF`, under a name that the C library has not taken: no record is current.
    /// \throws RuntimeError 3704 when not open
    virtual bool Eof() const = 0;

    /// \throws RuntimeError 3704 when not open, 3021 at the end, -2147467259 when the engine fails;
    ///         then `Eof` stays False
    virtual void MoveNext() = 0;

    /// Valid as long as the recordset; its fields until the recordset closes.
    virtual const krv::platform::Fields& Fields() const = 0;

    /// What `Open` was asked for; the cursor type says 0 (forward only) once open.
    virtual std::string_view Source() const = 0;
    virtual std::int32_t CursorType() const = 0;
    virtual std::int32_t LockType() const = 0;
};

/// Makes the objects of the data layer. They may outlive it, and each other: a recordset keeps its
/// connection alive.
class DataAccess {
public:
    virtual ~DataAccess() = default;

    virtual std::shared_ptr<Connection> CreateConnection() = 0;
    virtual std::shared_ptr<Recordset> CreateRecordset() = 0;
};

} // namespace krv::platform
