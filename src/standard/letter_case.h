#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace krv::standard {

// UTF-8 and letter case for the alphabets of Europe, in no locale. Bytes that are no UTF-8 count as
// one character each and pass through.

/// Bytes of the character at `position`, which lies inside the text: 1 to 4.
std::size_t character_length(std::string_view text, std::size_t position);

/// Number of characters.
std::size_t character_count(std::string_view text);

/// The first `count` characters.
std::string_view first_characters(std::string_view text, std::size_t count);

void append_utf8(char32_t code_point, std::string& text);

std::string lower_case(std::string_view text);
std::string upper_case(std::string_view text);

/// Never allocates.
bool equal_in_any_case(std::string_view left, std::string_view right);

/// ASCII letters only.
constexpr char lower_ascii(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

} // namespace krv::standard
