#include "krv/standard/data_error.h"
#include "providers/sqlite/statement.h"
#include "standard/ado/date_text.h"
#include "standard/ado/exact_number.h"
#include "standard/formatting/decimal_text.h"

#include <cmath>
#include <string>

namespace krv::providers::sqlite {

namespace {

using platform::ValueKind;
using standard::DecimalText;

[[noreturn]] void mismatch() {
    throw standard::DataError(platform::error_number::type_mismatch, "Type mismatch", layer);
}

int bind_double(sqlite3_stmt* statement, int index, double value) {
    if (std::isnan(value)) {
        mismatch(); // SQLite would store Null
    }
    return sqlite3_bind_double(statement, index, value);
}

int bind_text(sqlite3_stmt* statement, int index, std::string_view text) {
    // A null pointer would bind Null instead of the empty text.
    const char* data = text.data() == nullptr ? "" : text.data();
    return sqlite3_bind_text64(statement, index, data, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

/// Without a loss: as a whole number, else as a Double while its 15 digits hold everything, else as
/// its text. A column that SQLite itself makes numeric turns that text into a Double again.
int bind_decimal(sqlite3_stmt* statement, int index, const DecimalText& number) {
    if (number.decimals() == 0 && number.point <= 18) {
        std::int64_t value = 0;
        for (int place = number.point - 1; place >= 0; --place) {
            value = value * 10 + (number.digit_at(place) - '0');
        }
        return sqlite3_bind_int64(statement, index, number.negative ? -value : value);
    }
    if (number.count <= standard::double_digits) {
        return sqlite3_bind_double(statement, index, standard::to_double(number));
    }
    return bind_text(statement, index, standard::exact_text(number));
}

int bind_date(sqlite3_stmt* statement, int index, platform::Date date) {
    const auto text = standard::text_from_date(date);
    if (!text) {
        mismatch();
    }
    return bind_text(statement, index, *text);
}

int bind_bytes(sqlite3_stmt* statement, int index, std::span<const std::byte> bytes) {
    if (bytes.empty()) {
        return sqlite3_bind_zeroblob(statement, index, 0);
    }
    return sqlite3_bind_blob64(statement, index, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
}

int bind_value(sqlite3_stmt* statement, int index, platform::ValueView value) {
    switch (value.kind()) {
    case ValueKind::empty:
    case ValueKind::null:
        return sqlite3_bind_null(statement, index);
    case ValueKind::boolean: // True is 1 to SQLite, not -1
        return sqlite3_bind_int(statement, index, value.as_boolean() ? 1 : 0);
    case ValueKind::byte:
    case ValueKind::integer:
    case ValueKind::long_integer:
    case ValueKind::long_long:
        return sqlite3_bind_int64(statement, index, value.as_whole());
    case ValueKind::single:
        return bind_double(statement, index, static_cast<double>(value.as_single()));
    case ValueKind::double_float:
        return bind_double(statement, index, value.as_double());
    case ValueKind::currency:
        return bind_decimal(statement, index, standard::decimal_text(value.as_currency()));
    case ValueKind::decimal:
        return bind_decimal(statement, index, standard::decimal_text(value.as_decimal()));
    case ValueKind::date:
        return bind_date(statement, index, value.as_date());
    case ValueKind::text:
        return bind_text(statement, index, value.as_text());
    case ValueKind::bytes:
        return bind_bytes(statement, index, value.as_bytes());
    case ValueKind::object:
        break;
    }
    mismatch();
}

} // namespace

void Statement::bind(int position, platform::ValueView value) {
    database_->check(bind_value(handle_.get(), position + 1, value), Phase::running);
}

} // namespace krv::providers::sqlite
