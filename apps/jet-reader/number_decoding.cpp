#include "number_decoding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace krv::jet_reader {

namespace {

using platform::ValueView;

constexpr int largest_scale = 28;
constexpr double first_day = -657434;       // 1 January 100
constexpr double behind_last_day = 2958466; // 1 January 10000
constexpr std::int64_t days_before_1899_12_30 = 693593;
constexpr double ticks_per_day = 864e9;

/// A magnitude of 128 bits, lowest word first.
using Words = std::array<std::uint32_t, 4>;

std::string digits_of(Words words) {
    std::string digits;
    while (std::any_of(words.begin(), words.end(), [](std::uint32_t word) { return word != 0; })) {
        std::uint64_t rest = 0;
        for (std::size_t i = words.size(); i-- > 0;) {
            rest = rest << 32U | words[i];
            words[i] = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits += static_cast<char>('0' + rest);
    }
    std::reverse(digits.begin(), digits.end());
    return digits.empty() ? "0" : digits;
}

ValueView as_text(const Words& words, int scale, bool negative, std::string& storage) {
    std::string digits = digits_of(words);
    const auto decimals = static_cast<std::size_t>(std::clamp(scale, 0, 255));
    if (digits.size() <= decimals) {
        digits.insert(0, decimals + 1 - digits.size(), '0');
    }
    if (decimals > 0) {
        digits.insert(digits.size() - decimals, 1, '.');
    }
    storage = negative ? "-" + digits : digits;
    return ValueView::text(storage);
}

ValueView decimal_value(const Words& words, int scale, bool negative, std::string& storage) {
    if (words[3] != 0 || scale < 0 || scale > largest_scale) {
        return as_text(words, scale, negative, storage);
    }
    platform::Decimal decimal;
    decimal.low = std::uint64_t{words[1]} << 32U | words[0];
    decimal.high = words[2];
    decimal.scale = static_cast<std::uint8_t>(scale);
    decimal.negative = negative && (decimal.low != 0 || decimal.high != 0);
    return ValueView::decimal(decimal);
}

template <class Number>
bool take(std::string_view& text, Number& value, char behind) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end == text.data() + text.size() || *end != behind) {
        return false;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1);
    return true;
}

} // namespace

ValueView decode_numeric(const unsigned char* data, int scale, std::string& storage) {
    const Words words = {load<std::uint32_t>(data + 13),
                         load<std::uint32_t>(data + 9),
                         load<std::uint32_t>(data + 5),
                         load<std::uint32_t>(data + 1)};
    return decimal_value(words, scale, (data[0] & 0x80U) != 0, storage);
}

ValueView decode_ole_decimal(const unsigned char* data, std::string& storage) {
    const Words words = {load<std::uint32_t>(data + 8),
                         load<std::uint32_t>(data + 12),
                         load<std::uint32_t>(data + 4),
                         0};
    return decimal_value(words, data[2], (data[3] & 0x80U) != 0, storage);
}

ValueView date_value(double serial, std::string& storage) {
    if (serial >= first_day && serial < behind_last_day) {
        return ValueView::date({serial});
    }
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), serial).ptr;
    storage.assign(text.data(), end);
    return ValueView::text(storage);
}

std::optional<double> decode_extended_date(std::string_view text) {
    std::int64_t days = 0;
    std::int64_t ticks = 0;
    if (!take(text, days, ':') || !take(text, ticks, ':') || ticks < 0 ||
        ticks >= 864'000'000'000) {
        return std::nullopt;
    }
    const auto day = static_cast<double>(days - days_before_1899_12_30);
    const double time = static_cast<double>(ticks) / ticks_per_day;
    return day < 0 ? day - time : day + time;
}

std::string_view decode_guid(const unsigned char* data, std::string& storage) {
    constexpr std::array<unsigned char, 16> order = {
        3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    constexpr std::string_view digits = "0123456789ABCDEF";
    storage = "{";
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            storage += '-';
        }
        const unsigned byte = data[order[i]];
        storage += digits[byte >> 4U];
        storage += digits[byte & 0xFU];
    }
    storage += '}';
    return storage;
}

} // namespace krv::jet_reader
