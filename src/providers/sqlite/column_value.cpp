#include "providers/sqlite/column_value.h"

#include "standard/ado/date_text.h"
#include "standard/ado/exact_number.h"
#include "standard/ado/field_types.h"
#include "standard/ascii.h"

#include <cmath>
#include <limits>
#include <optional>

namespace krv::providers::sqlite {

namespace {

namespace field_type = standard::field_type;
using platform::ValueView;

template <class Integer>
constexpr bool fits(std::int64_t value) noexcept {
    return value >= std::numeric_limits<Integer>::min() &&
           value <= std::numeric_limits<Integer>::max();
}

/// Bits that a float keeps exactly.
constexpr bool has_at_most(int bits, std::int64_t value) noexcept {
    const std::int64_t most = std::int64_t{1} << bits;
    return value >= -most && value <= most;
}

ValueView plain_whole(std::int64_t value) {
    return fits<std::int32_t>(value) ? ValueView::long_integer(static_cast<std::int32_t>(value))
                                     : ValueView::long_long(value);
}

/// Numbers in date columns, as SQLite's own date functions tell them apart.
std::optional<platform::Date> date_from_number(double value) {
    constexpr double beyond_julian_days = 5373484.5;
    return value < beyond_julian_days ? standard::date_from_julian_day(value)
                                      : standard::date_from_unix_seconds(value);
}

ValueView whole_as_date(std::int64_t value) {
    const auto date = date_from_number(static_cast<double>(value));
    return date ? ValueView::date(*date) : plain_whole(value);
}

ValueView real_as_date(double value) {
    const auto date = date_from_number(value);
    return date ? ValueView::date(*date) : ValueView::double_float(value);
}

ValueView text_as_date(std::string_view text, standard::TimeAlone time_alone) {
    const auto date = standard::date_from_text(text, time_alone);
    return date ? ValueView::date(*date) : ValueView::text(text);
}

ValueView text_as_boolean(std::string_view text) {
    constexpr std::string_view yes[] = {"true", "t", "yes", "y", "on", "1", "-1"};
    constexpr std::string_view no[] = {"false", "f", "no", "n", "off", "0"};
    for (const auto word : yes) {
        if (standard::same_keyword(text, word)) {
            return ValueView::boolean(true);
        }
    }
    for (const auto word : no) {
        if (standard::same_keyword(text, word)) {
            return ValueView::boolean(false);
        }
    }
    return ValueView::text(text);
}

int hexadecimal_digit(char c) {
    const char lower = standard::lower_ascii(c);
    if (standard::is_ascii_digit(c)) {
        return c - '0';
    }
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// 32 hexadecimal digits as `{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}`.
std::string_view guid_of(std::string_view digits, std::string& storage) {
    storage = "{";
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i == 8 || i == 12 || i == 16 || i == 20) {
            storage += '-';
        }
        storage += standard::upper_ascii(digits[i]);
    }
    storage += '}';
    return storage;
}

ValueView text_as_guid(std::string_view text, std::string& storage) {
    std::string digits;
    std::string_view inner = text;
    if (inner.size() > 2 && inner.front() == '{' && inner.back() == '}') {
        inner = inner.substr(1, inner.size() - 2);
    }
    for (const char c : inner) {
        if (hexadecimal_digit(c) >= 0) {
            digits += c;
        } else if (c != '-') {
            return ValueView::text(text);
        }
    }
    return ValueView::text(digits.size() == 32 ? guid_of(digits, storage) : text);
}

/// Bytes in the order of the text, as SQLite's own uuid functions keep them.
ValueView bytes_as_guid(std::span<const std::byte> bytes, std::string& storage) {
    if (bytes.size() != 16) {
        return ValueView::bytes(bytes);
    }
    std::string digits;
    for (const std::byte byte : bytes) {
        digits += "0123456789ABCDEF"[std::to_integer<unsigned>(byte) >> 4];
        digits += "0123456789ABCDEF"[std::to_integer<unsigned>(byte) & 0xFU];
    }
    return ValueView::text(guid_of(digits, storage));
}

} // namespace

ValueView whole_value(std::int64_t value, std::int16_t type) {
    switch (type) {
    case field_type::boolean:
        return value >= -1 && value <= 1 ? ValueView::boolean(value != 0) : plain_whole(value);
    case field_type::unsigned_tiny_int:
        return fits<std::uint8_t>(value) ? ValueView::byte(static_cast<std::uint8_t>(value))
                                         : plain_whole(value);
    case field_type::tiny_int:
    case field_type::small_int:
        return fits<std::int16_t>(value) ? ValueView::integer(static_cast<std::int16_t>(value))
                                         : plain_whole(value);
    case field_type::big_int:
        return ValueView::long_long(value);
    case field_type::single:
        return has_at_most(24, value) ? ValueView::single(static_cast<float>(value))
                                      : plain_whole(value);
    case field_type::double_float:
        return has_at_most(53, value) ? ValueView::double_float(static_cast<double>(value))
                                      : plain_whole(value);
    case field_type::currency: {
        const auto currency = standard::currency_from_whole(value);
        return currency ? ValueView::currency(*currency) : plain_whole(value);
    }
    case field_type::numeric:
        return ValueView::decimal(standard::decimal_from_whole(value));
    case field_type::db_date:
    case field_type::db_time:
    case field_type::db_time_stamp:
        return whole_as_date(value);
    default:
        return plain_whole(value);
    }
}

ValueView real_value(double value, std::int16_t type) {
    switch (type) {
    case field_type::single:
        return std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max())
                   ? ValueView::single(static_cast<float>(value))
                   : ValueView::double_float(value);
    case field_type::currency: {
        const auto currency = standard::currency_from_double(value);
        return currency ? ValueView::currency(*currency) : ValueView::double_float(value);
    }
    case field_type::numeric: {
        const auto decimal = standard::decimal_from_double(value);
        return decimal ? ValueView::decimal(*decimal) : ValueView::double_float(value);
    }
    case field_type::db_date:
    case field_type::db_time:
    case field_type::db_time_stamp:
        return real_as_date(value);
    default:
        return ValueView::double_float(value);
    }
}

ValueView text_value(std::string_view text, std::int16_t type, std::string& storage) {
    switch (type) {
    case field_type::boolean:
        return text_as_boolean(text);
    case field_type::currency: {
        const auto currency = standard::currency_from_text(text);
        return currency ? ValueView::currency(*currency) : ValueView::text(text);
    }
    case field_type::numeric: {
        const auto decimal = standard::decimal_from_text(text);
        return decimal ? ValueView::decimal(*decimal) : ValueView::text(text);
    }
    case field_type::db_date:
    case field_type::db_time_stamp:
        return text_as_date(text, standard::TimeAlone::refused);
    case field_type::db_time:
        return text_as_date(text, standard::TimeAlone::taken);
    case field_type::guid:
        return text_as_guid(text, storage);
    default:
        return ValueView::text(text);
    }
}

ValueView blob_value(std::span<const std::byte> bytes, std::int16_t type, std::string& storage) {
    return type == field_type::guid ? bytes_as_guid(bytes, storage) : ValueView::bytes(bytes);
}

} // namespace krv::providers::sqlite
