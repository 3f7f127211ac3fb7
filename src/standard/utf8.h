#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
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

/// True when every byte is below 0x80.
inline bool is_ascii(std::string_view text) noexcept {
    constexpr std::uint64_t high_bits = 0x8080808080808080U;
    const auto eight_at = [&](std::size_t at) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, sizeof word);
        return word;
    };
    std::uint64_t seen = 0;
    if (text.size() < 8) {
        for (const char c : text) {
            seen |= static_cast<unsigned char>(c);
        }
        return (seen & high_bits) == 0;
    }
    for (std::size_t at = 0; at + 8 < text.size(); at += 8) {
        seen |= eight_at(at);
    }
    // The last eight, some of which have been seen already.
    return ((seen | eight_at(text.size() - 8)) & high_bits) == 0;
}

/// The text with one U+FFFD for each broken sequence.
/// \param storage  takes the repaired text; untouched when the text is valid
/// \return `text` itself when it is valid, else a view of `storage`
std::string_view repaired_utf8(std::string_view text, std::string& storage);

/// UTF-16 in the machine's byte order as UTF-8, one U+FFFD for each lone surrogate.
/// \return a view of `storage`
std::string_view utf8_from_utf16(std::span<const char16_t> text, std::string& storage);

} // namespace krv::standard
