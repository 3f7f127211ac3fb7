#pragma once

#include "krv/platform/value.h"
#include "providers/odbc/session.h"

#include <deque>
#include <span>
#include <string>

namespace krv::providers::odbc {

/// Values of a statement's parameters, kept where the driver finds them while the statement runs.
class Parameters {
public:
    /// \throws DataError 3001 for a wrong number of values, 13 for one that the engine cannot take
    Parameters(const StatementHandle& statement,
               std::span<const platform::Value> values,
               Engine engine);
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

private:
    struct Bound {
        SQLSMALLINT c_type = SQL_C_WCHAR;
        SQLSMALLINT sql_type = SQL_WVARCHAR;
        SQLULEN size = 1; ///< of the column that it is meant for
        SQLSMALLINT digits = 0;
        std::int64_t whole = 0;
        double real = 0;
        std::u16string text;
        std::string bytes;
        SQL_TIMESTAMP_STRUCT timestamp{};
        SQLPOINTER data = nullptr;
        SQLLEN room = 0;
        SQLLEN length = 0;
    };

    static void set(Bound& bound, platform::ValueView value, Engine engine);
    static void set_whole(Bound& bound, std::int64_t value);
    static void set_real(Bound& bound, double value);
    static void set_text(Bound& bound, std::string_view text);
    static void set_exact(Bound& bound, std::string_view text, SQLSMALLINT digits);
    static void set_bytes(Bound& bound, std::span<const std::byte> bytes);
    static void set_date(Bound& bound, platform::Date date, Engine engine);

    std::deque<Bound> bound_; // does not move
};

} // namespace krv::providers::odbc
