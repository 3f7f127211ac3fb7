#include "server/data_values.h"

#include "server/rpc_error.h"
#include "server/values.h"
#include "standard/ado/date_text.h"
#include "standard/ado/exact_number.h"
#include "standard/formatting/calendar.h"
#include "standard/formatting/decimal_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <optional>
#include <span>

namespace krv::server {

namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;

[[noreturn]] void fail_value(std::string_view what) {
    throw RpcError(RpcError::invalid_params, "no " + std::string(what));
}

std::string text_of(const standard::DecimalText& number) {
    std::string text = number.negative ? "-" : "";
    for (int place = std::max(number.point, 1) - 1; place >= -number.decimals(); --place) {
        text += place == -1 ? "." : "";
        text += number.digit_at(place);
    }
    return text;
}

Json json_of_decimal(const standard::DecimalText& number) {
    return {{"decimal", text_of(number)}};
}

std::string hex_text(std::span<const std::byte> bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::byte byte : bytes) {
        text += digits[std::to_integer<std::size_t>(byte >> 4)];
        text += digits[std::to_integer<std::size_t>(byte & std::byte{15})];
    }
    return text;
}

std::optional<std::string> bytes_of_hex(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const std::string_view pair = text.substr(i, 2);
        unsigned char byte = 0;
        const auto end = std::from_chars(pair.data(), pair.data() + pair.size(), byte, 16);
        if (pair.size() != 2 || end.ec != std::errc() || end.ptr != pair.data() + 2) {
            return std::nullopt;
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

Value bytes_value(std::string_view bytes) {
    return Value(ValueView::bytes(std::as_bytes(std::span(bytes.data(), bytes.size()))));
}

/// Numbers that JSON has no form for go as texts.
Json json_of_real(double number, ValueView value, const platform::Formatter& formatter) {
    return std::isfinite(number) ? Json(number) : Json(formatter.CStr(value));
}

Json json_of_whole(std::int64_t number) {
    constexpr std::int64_t exact_in_double = std::int64_t{1} << 53;
    if (number >= -exact_in_double && number <= exact_in_double) {
        return number;
    }
    return json_of_decimal(standard::decimal_text(number));
}

/// `{"decimal": "1.5"}` and its like: the only member of an object.
Value tagged_value(const Json& json) {
    if (json.size() != 1 || !json.begin()->is_string()) {
        fail_value("value");
    }
    const std::string& tag = json.begin().key();
    const auto& text = json.begin()->get_ref<const std::string&>();
    if (tag == "decimal") {
        return value_of_kind("Decimal", text);
    }
    if (tag == "date") {
        return value_of_kind("Date", text);
    }
    const auto bytes = tag == "hex" ? bytes_of_hex(text) : std::nullopt;
    if (!bytes) {
        fail_value("value");
    }
    return bytes_value(*bytes);
}

// --- Values of a kind ----------------------------------------------------------------------------

template <class Number>
Number number_of(const std::string& text) {
    Number number{};
    const char* const begin = text.data() + (text.starts_with('+') ? 1 : 0);
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(begin, end, number);
    if (read.ec != std::errc() || read.ptr != end) {
        fail_value("number of the kind");
    }
    return number;
}

template <class Result>
Result require(const std::optional<Result>& result, std::string_view what) {
    if (!result) {
        fail_value(what);
    }
    return *result;
}

bool boolean_of(const std::string& text) {
    if (text == "True" || text == "true" || text == "-1") {
        return true;
    }
    if (text == "False" || text == "false" || text == "0") {
        return false;
    }
    fail_value("Boolean");
}

ValueView date_view(const std::string& text) {
    return ValueView::date(
        require(standard::date_from_text(text, standard::TimeAlone::taken), "date"));
}

struct Kind {
    std::string_view name;
    ValueView (*read)(const std::string& text);
};

constexpr std::array kinds = {
    Kind{"Null", [](const std::string&) { return ValueView::null(); }},
    Kind{"Empty", [](const std::string&) { return ValueView(); }},
    Kind{"Boolean", [](const std::string& t) { return ValueView::boolean(boolean_of(t)); }},
    Kind{"Byte", [](const std::string& t) { return ValueView::byte(number_of<std::uint8_t>(t)); }},
    Kind{"Integer",
         [](const std::string& t) { return ValueView::integer(number_of<std::int16_t>(t)); }},
    Kind{"Long",
         [](const std::string& t) { return ValueView::long_integer(number_of<std::int32_t>(t)); }},
    Kind{"LongLong",
         [](const std::string& t) { return ValueView::long_long(number_of<std::int64_t>(t)); }},
    Kind{"Single", [](const std::string& t) { return ValueView::single(number_of<float>(t)); }},
    Kind{"Double",
         [](const std::string& t) { return ValueView::double_float(number_of<double>(t)); }},
    Kind{"Currency",
         [](const std::string& t) {
             return ValueView::currency(require(standard::currency_from_text(t), "Currency"));
         }},
    Kind{"Decimal",
         [](const std::string& t) {
             return ValueView::decimal(require(standard::decimal_from_text(t), "Decimal"));
         }},
    Kind{"Date", date_view},
    Kind{"String", [](const std::string& t) { return ValueView::text(t); }},
};

/// What a value of a kind is written as, whether as a text or as what JSON has for it.
std::string kind_text(const Json& json) {
    if (json.is_string()) {
        return json.get<std::string>();
    }
    if (json.is_object() && json.size() == 1 && json.contains("date")) {
        return kind_text(json.at("date"));
    }
    return json.is_boolean() || json.is_number() ? json.dump() : std::string();
}

} // namespace

Json json_of_data(ValueView value, const platform::Formatter& formatter) {
    switch (value.kind()) {
    case ValueKind::boolean:
        return value.as_boolean();
    case ValueKind::single:
        return json_of_real(shortest(value.as_single()), value, formatter);
    case ValueKind::double_float:
        return json_of_real(value.as_double(), value, formatter);
    case ValueKind::currency:
        return json_of_decimal(standard::decimal_text(value.as_currency()));
    case ValueKind::decimal:
        return json_of_decimal(standard::decimal_text(value.as_decimal()));
    case ValueKind::date:
        return {{"date", date_text(value.as_date())}};
    case ValueKind::text:
        return std::string(value.as_text());
    case ValueKind::bytes:
        return {{"hex", hex_text(value.as_bytes())}};
    default:
        return value.is_whole() ? json_of_whole(value.as_whole()) : Json();
    }
}

std::string date_text(platform::Date date) {
    const standard::CalendarTime time = standard::calendar_time(date.serial);
    char text[80];
    const int length = std::snprintf(text,
                                     sizeof text,
                                     "%04d-%02d-%02d %02d:%02d:%02d",
                                     time.year,
                                     time.month,
                                     time.day,
                                     time.hour(),
                                     time.minute(),
                                     time.second());
    return {text, static_cast<std::size_t>(length)};
}

Value data_value_of(const Json& json) {
    if (json.is_object()) {
        return tagged_value(json);
    }
    if (json.is_array()) {
        fail_value("value");
    }
    if (json.is_number_integer()) {
        // A whole number that a database can hold exactly is not sent through a Double.
        if (json.is_number_unsigned() &&
            json.get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max()) {
            return value_of_kind("Decimal", json);
        }
        return Value(ValueView::long_long(json.get<std::int64_t>()));
    }
    static const ObjectTable no_objects;
    return value_of(json, no_objects);
}

std::vector<Value> data_values_of(const Json& array) {
    std::vector<Value> values;
    values.reserve(array.size());
    for (const Json& json : array) {
        values.push_back(data_value_of(json));
    }
    return values;
}

Value value_of_kind(std::string_view kind, const Json& json) {
    for (const Kind& known : kinds) {
        if (known.name == kind) {
            const std::string text = kind_text(json);
            return Value(known.read(text));
        }
    }
    fail_value("kind of value");
}

} // namespace krv::server
