#include "standard/ado/field_text.h"

#include "standard/ado/date_text.h"
#include "standard/ado/exact_number.h"
#include "standard/ado/field_types.h"
#include "standard/ascii.h"

namespace krv::standard {

namespace {

using platform::ValueView;

ValueView text_as_date(std::string_view text, TimeAlone time_alone) {
    const auto date = date_from_text(text, time_alone);
    return date ? ValueView::date(*date) : ValueView::text(text);
}

ValueView text_as_boolean(std::string_view text) {
    constexpr std::string_view yes[] = {"true", "t", "yes", "y", "on", "1", "-1"};
    constexpr std::string_view no[] = {"false", "f", "no", "n", "off", "0"};
    for (const auto word : yes) {
        if (same_keyword(text, word)) {
            return ValueView::boolean(true);
        }
    }
    for (const auto word : no) {
        if (same_keyword(text, word)) {
            return ValueView::boolean(false);
        }
    }
    return ValueView::text(text);
}

int hexadecimal_digit(char c) {
    const char lower = lower_ascii(c);
    if (is_ascii_digit(c)) {
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
        storage += upper_ascii(digits[i]);
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

} // namespace

ValueView field_value(std::string_view text, std::int16_t type, std::string& storage) {
    switch (type) {
    case field_type::boolean:
        return text_as_boolean(text);
    case field_type::currency: {
        const auto currency = currency_from_text(text);
        return currency ? ValueView::currency(*currency) : ValueView::text(text);
    }
    case field_type::numeric: {
        const auto decimal = decimal_from_text(text);
        return decimal ? ValueView::decimal(*decimal) : ValueView::text(text);
    }
    case field_type::db_date:
    case field_type::db_time_stamp:
        return text_as_date(text, TimeAlone::refused);
    case field_type::db_time:
        return text_as_date(text, TimeAlone::taken);
    case field_type::guid:
        return text_as_guid(text, storage);
    default:
        return ValueView::text(text);
    }
}

ValueView guid_value(std::span<const std::byte> bytes, std::string& storage) {
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

} // namespace krv::standard
