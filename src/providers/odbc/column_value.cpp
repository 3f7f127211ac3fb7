#include "providers/odbc/column_value.h"

#include "providers/odbc/money_text.h"
#include "providers/odbc/wide_text.h"
#include "standard/ado/exact_number.h"
#include "standard/ado/field_text.h"
#include "standard/ado/field_types.h"

#include <charconv>
#include <cstring>
#include <limits>
#include <optional>

namespace krv::providers::odbc {

namespace {

namespace field_type = standard::field_type;
using platform::ValueView;

template <class Number>
Number number_in(RawCell cell) {
    Number number{};
    std::memcpy(&number, cell.data, sizeof number);
    return number;
}

ValueView whole_value(std::int64_t value, std::int16_t type) {
    switch (type) {
    case field_type::unsigned_tiny_int:
        return ValueView::byte(static_cast<std::uint8_t>(value));
    case field_type::tiny_int:
    case field_type::small_int:
        return ValueView::integer(static_cast<std::int16_t>(value));
    case field_type::unsigned_small_int:
    case field_type::integer:
        return ValueView::long_integer(static_cast<std::int32_t>(value));
    default:
        return ValueView::long_long(value);
    }
}

ValueView unsigned_value(std::uint64_t value) {
    if (value <= std::uint64_t{std::numeric_limits<std::int64_t>::max()}) {
        return ValueView::long_long(static_cast<std::int64_t>(value));
    }
    return ValueView::decimal(platform::Decimal{value, 0, 0, false});
}

template <class Number>
std::optional<Number> whole_text_as(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(value)
                                                                    : std::nullopt;
}

bool fits(std::int64_t value, std::int16_t type) {
    const auto within = [&](std::int64_t least, std::int64_t most) {
        return value >= least && value <= most;
    };
    switch (type) {
    case field_type::unsigned_tiny_int:
        return within(0, 255);
    case field_type::tiny_int:
    case field_type::small_int:
        return within(-32768, 32767);
    case field_type::unsigned_small_int:
    case field_type::integer:
        return within(std::numeric_limits<std::int32_t>::min(),
                      std::numeric_limits<std::int32_t>::max());
    default:
        return true;
    }
}

/// Numbers of SQLite, which come as texts: their columns may hold anything.
ValueView number_text(std::string_view text, std::int16_t type) {
    const bool is_real = type == field_type::single || type == field_type::double_float;
    if (const auto whole = whole_text_as<std::int64_t>(text); whole && !is_real) {
        return fits(*whole, type) ? whole_value(*whole, type) : ValueView::long_long(*whole);
    }
    if (const auto real = whole_text_as<double>(text)) {
        return type == field_type::single ? ValueView::single(static_cast<float>(*real))
                                          : ValueView::double_float(*real);
    }
    return ValueView::text(text);
}

ValueView money_value(std::string_view text, std::string& storage) {
    const auto currency = currency_from_money_text(text);
    return currency ? ValueView::currency(*currency)
                    : standard::field_value(text, field_type::currency, storage);
}

ValueView text_value(RawCell cell, std::int16_t type, std::string& storage) {
    const std::span<const char16_t> units(reinterpret_cast<const char16_t*>(cell.data),
                                          cell.size / sizeof(char16_t));
    const std::string_view text = narrow_text(units, storage);
    switch (type) {
    case field_type::currency:
        return money_value(text, storage);
    case field_type::tiny_int:
    case field_type::unsigned_tiny_int:
    case field_type::small_int:
    case field_type::unsigned_small_int:
    case field_type::integer:
    case field_type::unsigned_int:
    case field_type::big_int:
    case field_type::unsigned_big_int:
    case field_type::single:
    case field_type::double_float:
        return number_text(text, type);
    default:
        return standard::field_value(text, type, storage);
    }
}

ValueView bytes_value(RawCell cell, std::string& storage) {
    storage.assign(reinterpret_cast<const char*>(cell.data), cell.size);
    return ValueView::bytes(std::as_bytes(std::span(storage)));
}

} // namespace

ValueView column_value(RawCell cell, Form form, std::int16_t type, std::string& storage) {
    if (cell.data == nullptr) {
        return ValueView::null();
    }
    switch (form) {
    case Form::bit:
        return ValueView::boolean(number_in<std::uint8_t>(cell) != 0);
    case Form::whole:
        return whole_value(number_in<std::int64_t>(cell), type);
    case Form::unsigned_whole:
        return unsigned_value(number_in<std::uint64_t>(cell));
    case Form::single:
        return ValueView::single(number_in<float>(cell));
    case Form::double_float:
        return ValueView::double_float(number_in<double>(cell));
    case Form::bytes:
        return bytes_value(cell, storage);
    case Form::text:
        break;
    }
    return text_value(cell, type, storage);
}

} // namespace krv::providers::odbc
