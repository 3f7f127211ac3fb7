#include "providers/odbc/bind.h"

#include "krv/standard/data_error.h"
#include "standard/ado/date_text.h"
#include "standard/ado/exact_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace krv::providers::odbc {

namespace {

using platform::ValueKind;

[[noreturn]] void mismatch() {
    throw standard::DataError(platform::error_number::type_mismatch, "Type mismatch", layer);
}

/// The year to the second, and the fraction in billionths, of a text of `text_from_date`.
SQL_TIMESTAMP_STRUCT timestamp_of(const std::string& text) {
    unsigned parts[7] = {};
    std::sscanf(text.c_str(),
                "%4u-%2u-%2u %2u:%2u:%2u.%3u",
                &parts[0],
                &parts[1],
                &parts[2],
                &parts[3],
                &parts[4],
                &parts[5],
                &parts[6]);
    SQL_TIMESTAMP_STRUCT result{};
    result.year = static_cast<SQLSMALLINT>(parts[0]);
    result.month = static_cast<SQLUSMALLINT>(parts[1]);
    result.day = static_cast<SQLUSMALLINT>(parts[2]);
    result.hour = static_cast<SQLUSMALLINT>(parts[3]);
    result.minute = static_cast<SQLUSMALLINT>(parts[4]);
    result.second = static_cast<SQLUSMALLINT>(parts[5]);
    result.fraction = parts[6] * 1'000'000;
    return result;
}

void require_count(const StatementHandle& statement, std::size_t given) {
    SQLSMALLINT expected = 0;
    statement.check(SQLNumParams(statement.get(), &expected), Phase::preparing);
    if (given != static_cast<std::size_t>(expected)) {
        throw standard::DataError(standard::data_error_number::wrong_arguments,
                                  "The statement takes " + std::to_string(expected) +
                                      " parameters, " + std::to_string(given) + " were given.",
                                  layer);
    }
}

} // namespace

Parameters::Parameters(const StatementHandle& statement,
                       std::span<const platform::Value> values,
                       Engine engine) {
    require_count(statement, values.size());
    for (const platform::Value& value : values) {
        Bound& bound = bound_.emplace_back();
        set(bound, value.view(), engine);
        statement.check(SQLBindParameter(statement.get(),
                                         static_cast<SQLUSMALLINT>(bound_.size()),
                                         SQL_PARAM_INPUT,
                                         bound.c_type,
                                         bound.sql_type,
                                         bound.size,
                                         bound.digits,
                                         bound.data,
                                         bound.room,
                                         &bound.length),
                        Phase::running);
    }
}

void Parameters::set(Bound& bound, platform::ValueView value, Engine engine) {
    switch (value.kind()) {
    case ValueKind::empty:
    case ValueKind::null:
        set_text(bound, {});
        bound.length = SQL_NULL_DATA;
        return;
    case ValueKind::boolean: // True is 1 to SQL, not -1
        bound.whole = value.as_boolean() ? 1 : 0;
        bound.c_type = SQL_C_BIT;
        bound.sql_type = SQL_BIT;
        bound.data = &bound.whole;
        return;
    case ValueKind::byte:
    case ValueKind::integer:
    case ValueKind::long_integer:
    case ValueKind::long_long:
        return set_whole(bound, value.as_whole());
    case ValueKind::single:
        return set_real(bound, static_cast<double>(value.as_single()));
    case ValueKind::double_float:
        return set_real(bound, value.as_double());
    case ValueKind::currency: {
        const auto number = standard::decimal_text(value.as_currency());
        return set_exact(bound, standard::exact_text(number), 4);
    }
    case ValueKind::decimal: {
        const auto number = standard::decimal_text(value.as_decimal());
        return set_exact(
            bound, standard::exact_text(number), static_cast<SQLSMALLINT>(number.decimals()));
    }
    case ValueKind::date:
        return set_date(bound, value.as_date(), engine);
    case ValueKind::text:
        // PostgreSQL keeps no NUL; its driver would cut the text there.
        if (engine == Engine::postgresql && value.as_text().find('\0') != std::string_view::npos) {
            mismatch();
        }
        return set_text(bound, value.as_text());
    case ValueKind::bytes:
        return set_bytes(bound, value.as_bytes());
    case ValueKind::object:
        break;
    }
    mismatch();
}

void Parameters::set_whole(Bound& bound, std::int64_t value) {
    const bool is_small = value >= INT32_MIN && value <= INT32_MAX;
    bound.whole = value;
    bound.c_type = SQL_C_SBIGINT;
    bound.sql_type = is_small ? SQL_INTEGER : SQL_BIGINT;
    bound.data = &bound.whole;
    bound.room = sizeof bound.whole;
}

void Parameters::set_real(Bound& bound, double value) {
    if (std::isnan(value)) {
        mismatch();
    }
    bound.real = value;
    bound.c_type = SQL_C_DOUBLE;
    bound.sql_type = SQL_DOUBLE;
    bound.data = &bound.real;
    bound.room = sizeof bound.real;
}

void Parameters::set_text(Bound& bound, std::string_view text) {
    bound.text = wide_text(text);
    bound.size = std::max<SQLULEN>(bound.text.size(), 1);
    bound.data = as_sql(bound.text);
    bound.length = static_cast<SQLLEN>(bound.text.size() * sizeof(char16_t));
    bound.room = bound.length + static_cast<SQLLEN>(sizeof(char16_t));
}

/// As its digits: nothing goes through a Double.
void Parameters::set_exact(Bound& bound, std::string_view text, SQLSMALLINT digits) {
    set_text(bound, text);
    bound.sql_type = SQL_DECIMAL;
    bound.size = 38;
    bound.digits = digits;
}

void Parameters::set_bytes(Bound& bound, std::span<const std::byte> bytes) {
    bound.bytes.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    bound.c_type = SQL_C_BINARY;
    bound.sql_type = SQL_VARBINARY;
    bound.size = std::max<SQLULEN>(bytes.size(), 1);
    bound.data = bound.bytes.data();
    bound.length = static_cast<SQLLEN>(bytes.size());
    bound.room = std::max<SQLLEN>(bound.length, 1);
}

/// The known engines take a text for any of their kinds of dates and times.
void Parameters::set_date(Bound& bound, platform::Date date, Engine engine) {
    const auto text = standard::text_from_date(date);
    if (!text) {
        mismatch();
    }
    if (engine == Engine::sqlite) {
        return set_text(bound, *text);
    }
    if (engine != Engine::other) {
        // A day without a time is no time of day to them.
        const bool has_time = text->find(' ') != std::string::npos;
        return set_text(bound, has_time ? *text : *text + " 00:00:00");
    }
    bound.timestamp = timestamp_of(*text);
    bound.c_type = SQL_C_TYPE_TIMESTAMP;
    bound.sql_type = SQL_TYPE_TIMESTAMP;
    bound.size = 23;
    bound.digits = 3;
    bound.data = &bound.timestamp;
    bound.room = sizeof bound.timestamp;
}

} // namespace krv::providers::odbc
