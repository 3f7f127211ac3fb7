#pragma once

#include "standard/letter_case.h"

#include <algorithm>
#include <string_view>

namespace krv::standard {

constexpr bool is_blank(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool is_ascii_digit(char c) noexcept {
    return c >= '0' && c <= '9';
}

constexpr char upper_ascii(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

constexpr std::string_view trimmed(std::string_view text) noexcept {
    while (!text.empty() && is_blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && is_blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Equal but for the case of A to Z.
constexpr bool same_keyword(std::string_view left, std::string_view right) noexcept {
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) noexcept {
            return lower_ascii(a) == lower_ascii(b);
        });
}

/// Begins with `prefix`, but for the case of A to Z.
constexpr bool starts_with_keyword(std::string_view text, std::string_view prefix) noexcept {
    return text.size() >= prefix.size() && same_keyword(text.substr(0, prefix.size()), prefix);
}

} // namespace krv::standard
