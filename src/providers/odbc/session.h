#pragma once

#include "providers/odbc/link.h"
#include "providers/odbc/statement_text.h"

#include <memory>
#include <string>
#include <string_view>

namespace krv::providers::odbc {

class Cursor;

/// What a driver can do, as it says itself.
struct DriverTraits {
    Engine engine = Engine::other;
    std::string quote = "\"";          ///< around names; empty for none
    std::string escape;                ///< before wildcards in patterns; empty for none
    bool has_schemas = false;          ///< in the names of tables
    bool has_catalogs = false;         ///< in the names of tables
    std::size_t longest_name = 0;      ///< of a table; 0 for unknown
    bool reads_long_in_blocks = false; ///< SQLGetData anywhere in a bound block
    bool reads_long_in_rows = false;   ///< SQLGetData for bound columns, in any order
    bool is_narrow = false;            ///< takes UTF-8, by the functions without wide texts
};

/// An open connection. Shared by its provider connection and its cursors, closed with the last.
class Session {
public:
    /// \throws DataError with the driver's text
    explicit Session(const OdbcSettings& settings);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    const DriverTraits& traits() const noexcept { return traits_; }

    /// What the session may do from here on, as far as its engine can be told.
    enum class Rights { only_read, all };

    /// Makes the session ready for another statement: a cursor that is being read takes the rest of
    /// its rows into memory, for not every driver can have two.
    StatementHandle new_statement();

    void prepare(const StatementHandle& statement, std::string_view sql) const;
    void execute(const StatementHandle& statement, std::string_view sql) const;

    /// Not inside a transaction, but for engines that can be told at any time.
    void grant(Rights rights);

    bool in_transaction() const noexcept { return in_transaction_; }

    void begin();
    void end(SQLSMALLINT completion);

    /// Before a statement that is read, and behind its last row. PostgreSQL hands rows out as it
    /// finds them inside a transaction only; outside it copies the whole result first.
    void begin_reading();
    void end_reading() noexcept;

    /// Runs a statement that needs no result.
    void run(std::string_view sql);

    /// A cursor is being read on this session, or none any more.
    void set_active(Cursor* cursor) noexcept { active_ = cursor; }

    Cursor* active() const noexcept { return active_; }

private:
    void set_autocommit(bool on);
    std::string info(SQLUSMALLINT what) const;
    SQLUINTEGER info_number(SQLUSMALLINT what) const;
    SQLUSMALLINT info_short(SQLUSMALLINT what) const;
    void learn_traits();

    std::shared_ptr<Link> link_;
    DriverTraits traits_;
    Rights rights_ = Rights::all;
    bool in_transaction_ = false;
    bool is_reading_ = false; ///< in a transaction of the reading's own
    Cursor* active_ = nullptr;
};

} // namespace krv::providers::odbc
