#include "companions/cell_values.h"

#include "companions/refusal.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace krv::companions {

using platform::Decimal;
using platform::Formatter;
using platform::Value;
using platform::ValueView;

namespace {

[[noreturn]] void refuse(const TableColumn& column, const std::string& text, const char* reason) {
    throw Refusal("Colonna \"" + column.caption + "\": \"" + text + "\" " + reason);
}

constexpr const char* is_no_value = "non è un valore di questa colonna.";
constexpr const char* has_no_way_back = "non può essere riletto con il formato della colonna.";

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool same_word(std::string_view word, std::string_view other) {
    return std::equal(word.begin(), word.end(), other.begin(), other.end(), [](char a, char b) {
        return lower(a) == lower(b);
    });
}

/// What a pattern writes of a number (a percent sign, for example) is read by way of its plain text.
template <class Read>
auto read_number(const std::string& text, const Formatter& formatter, Read read) {
    try {
        return read(ValueView::text(text));
    } catch (const platform::RuntimeError& error) {
        if (error.number() != platform::error_number::type_mismatch) {
            throw;
        }
    }
    const std::string plain = formatter.Format(ValueView::text(text), {});
    return read(ValueView::text(plain));
}

Decimal
exact_number(const TableColumn& column, const std::string& text, const Formatter& formatter) {
    constexpr std::ptrdiff_t most_digits = 28;
    const auto digits =
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (digits > most_digits) {
        refuse(column, text, "ha troppe cifre.");
    }
    return read_number(text, formatter, [&](ValueView value) { return formatter.CDec(value); });
}

Value whole_number(const TableColumn& column, const std::string& text, const Formatter& formatter) {
    constexpr std::int16_t big_int = 20;
    constexpr std::int16_t unsigned_big_int = 21;
    const Decimal number = exact_number(column, text, formatter);
    if (number.scale != 0) {
        refuse(column, text, "non è un numero intero.");
    }
    if (column.type == unsigned_big_int) {
        return Value(ValueView::decimal(number));
    }
    const std::int64_t whole = formatter.CLngLng(ValueView::decimal(number));
    using Limits = std::numeric_limits<std::int32_t>;
    const bool is_small = whole >= Limits::min() && whole <= Limits::max();
    // A larger number than the type holds is the engine's to refuse, or to keep, as SQLite does.
    return Value(is_small && column.type != big_int
                     ? ValueView::long_integer(static_cast<std::int32_t>(whole))
                     : ValueView::long_long(whole));
}

Value money(const TableColumn& column, const std::string& text, const Formatter& formatter) {
    const Decimal number = exact_number(column, text, formatter);
    const platform::Currency currency = formatter.CCur(ValueView::decimal(number));
    if (formatter.CDec(ValueView::currency(currency)) != number) {
        refuse(column, text, "ha più di quattro decimali.");
    }
    return Value(ValueView::currency(currency));
}

double real_number(const std::string& text, const Formatter& formatter) {
    return read_number(text, formatter, [&](ValueView value) { return formatter.CDbl(value); });
}

Value single_number(const TableColumn& column,
                    const std::string& text,
                    const Formatter& formatter) {
    const double number = real_number(text, formatter);
    if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
        refuse(column, text, "è troppo grande.");
    }
    return Value(ValueView::single(static_cast<float>(number)));
}

/// True or False, a word that the column's pattern writes for one of them alone, or a number.
Value truth(const TableColumn& column, const std::string& text, const Formatter& formatter) {
    const std::string yes = shown_text(ValueView::boolean(true), column.pattern, formatter);
    const std::string no = shown_text(ValueView::boolean(false), column.pattern, formatter);
    const bool is_told_apart = !same_word(yes, no);
    if (same_word(text, "True") || (is_told_apart && same_word(text, yes))) {
        return Value(ValueView::boolean(true));
    }
    if (same_word(text, "False") || (is_told_apart && same_word(text, no))) {
        return Value(ValueView::boolean(false));
    }
    return Value(ValueView::boolean(real_number(text, formatter) != 0));
}

Value converted(const TableColumn& column, const std::string& text, const Formatter& formatter) {
    switch (kind_of(column.type)) {
    case CellKind::whole:
        return whole_number(column, text, formatter);
    case CellKind::exact:
        return Value(ValueView::decimal(exact_number(column, text, formatter)));
    case CellKind::currency:
        return money(column, text, formatter);
    case CellKind::single:
        return single_number(column, text, formatter);
    case CellKind::real:
        return Value(ValueView::double_float(real_number(text, formatter)));
    case CellKind::boolean:
        return truth(column, text, formatter);
    case CellKind::date:
        return Value(ValueView::date(formatter.CDate(ValueView::text(text), column.pattern)));
    case CellKind::bytes:
        refuse(column, text, is_no_value);
    case CellKind::text:
        break;
    }
    return Value::text(text);
}

} // namespace

CellKind kind_of(std::int16_t type) {
    switch (type) {
    case 2:  // SmallInt
    case 3:  // Integer
    case 16: // TinyInt
    case 17: // UnsignedTinyInt
    case 18: // UnsignedSmallInt
    case 19: // UnsignedInt
    case 20: // BigInt
    case 21: // UnsignedBigInt
        return CellKind::whole;
    case 14:  // Decimal
    case 131: // Numeric
    case 139: // VarNumeric
        return CellKind::exact;
    case 6:
        return CellKind::currency;
    case 4:
        return CellKind::single;
    case 5:
        return CellKind::real;
    case 11:
        return CellKind::boolean;
    case 7:   // Date
    case 133: // DBDate
    case 134: // DBTime
    case 135: // DBTimeStamp
        return CellKind::date;
    case 128: // Binary
    case 204: // VarBinary
    case 205: // LongVarBinary
        return CellKind::bytes;
    default:
        return CellKind::text;
    }
}

std::string shown_text(ValueView value, const std::string& pattern, const Formatter& formatter) {
    if (value.is_null()) {
        return {};
    }
    return pattern.empty() ? formatter.CStr(value) : formatter.Format(value, pattern);
}

bool shows_the_same(std::string_view text, std::string_view other) {
    const auto shown = [](char c) { return c == '\t' ? ' ' : c; };
    return std::equal(text.begin(), text.end(), other.begin(), other.end(), [&](char a, char b) {
        return shown(a) == shown(b);
    });
}

Value value_of_cell(const TableColumn& column,
                    const std::string& text,
                    const Formatter& formatter) {
    if (is_blank(text)) {
        return Value(ValueView::null());
    }
    Value value;
    std::string shown = text;
    try {
        value = converted(column, text, formatter);
        if (!column.pattern.empty() && kind_of(column.type) != CellKind::boolean) {
            shown = formatter.Format(value.view(), column.pattern);
        }
    } catch (const platform::RuntimeError&) {
        refuse(column, text, is_no_value);
    }
    if (shown != text) {
        refuse(column, text, has_no_way_back);
    }
    return value;
}

} // namespace krv::companions
