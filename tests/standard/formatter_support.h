#pragma once

#include "krv/platform/error.h"
#include "krv/standard/value_formatter.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace krv::standard::testing_support {

/// "Today" of every formatter here: 15 June 2024.
inline constexpr double today_serial = 45458;

/// One formatter a region for all tests, so that patterns are also found in its cache.
inline const ValueFormatter& formatter_of(std::string_view region) {
    static std::map<std::string, std::unique_ptr<ValueFormatter>, std::less<>> formatters;
    auto found = formatters.find(region);
    if (found == formatters.end()) {
        auto formatter = std::make_unique<ValueFormatter>(
            regional_settings(region), [] { return platform::Date{today_serial}; });
        found = formatters.emplace(region, std::move(formatter)).first;
    }
    return *found->second;
}

inline platform::ValueView view(platform::ValueView value) {
    return value;
}

inline platform::ValueView view(double value) {
    return platform::ValueView::double_float(value);
}

inline platform::ValueView view(float value) {
    return platform::ValueView::single(value);
}

inline platform::ValueView view(int value) {
    return platform::ValueView::long_integer(value);
}

inline platform::ValueView view(bool value) {
    return platform::ValueView::boolean(value);
}

inline platform::ValueView view(std::string_view value) {
    return platform::ValueView::text(value);
}

inline platform::ValueView view(const char* value) {
    return platform::ValueView::text(value);
}

inline platform::ValueView view(platform::Currency value) {
    return platform::ValueView::currency(value);
}

inline platform::ValueView view(platform::Decimal value) {
    return platform::ValueView::decimal(value);
}

inline platform::ValueView view(platform::Date value) {
    return platform::ValueView::date(value);
}

inline platform::ValueView null() {
    return platform::ValueView::null();
}

inline platform::ValueView empty() {
    return {};
}

inline platform::Date date(double serial) {
    return platform::Date{serial};
}

template <class T>
std::string format_in(std::string_view region, T value, std::string_view pattern) {
    return formatter_of(region).Format(view(value), pattern);
}

/// In US English.
template <class T>
std::string us(T value, std::string_view pattern) {
    return format_in("en-US", value, pattern);
}

/// In Italian.
template <class T>
std::string it(T value, std::string_view pattern) {
    return format_in("it-IT", value, pattern);
}

template <class T>
std::string cstr_in(std::string_view region, T value) {
    return formatter_of(region).CStr(view(value));
}

/// The number of the run-time error that `act` fails with; 0 for none.
template <class Act>
std::int32_t error_of(Act act) {
    try {
        act();
    } catch (const platform::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace krv::standard::testing_support
