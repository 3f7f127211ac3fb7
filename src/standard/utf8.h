#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace krv::standard {

inline constexpr char32_t replacement_character = 0xFFFD;

/// One character of a text.
struct DecodedCharacter {
    char32_t code;    ///< `replacement_character` for a broken sequence
    std::size_t size; ///< bytes it takes, at least 1
    bool valid;
};

/// The character at `at`. A broken sequence is a first byte with those of its following bytes that
/// are there (a surrogate or an overlong form is one sequence), or one byte that begins nothing.
/// \param at  below text.size()
DecodedCharacter decode_utf8(std::string_view text, std::size_t at) noexcept;

/// True for well-formed UTF-8: no overlong form, no surrogate, nothing above U+10FFFF. A NUL is an
/// ordinary character.
bool is_valid_utf8(std::string_view text) noexcept;

/// The text with one U+FFFD for each broken sequence.
/// \param storage  takes the repaired text; untouched when the text is valid
/// \return `text` itself when it is valid, else a view of `storage`
std::string_view repaired_utf8(std::string_view text, std::string& storage);

/// UTF-16 in the machine's byte order as UTF-8, one U+FFFD for each lone surrogate.
/// \return a view of `storage`
std::string_view utf8_from_utf16(std::span<const char16_t> text, std::string& storage);

} // namespace krv::standard
