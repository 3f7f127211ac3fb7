#include "regional.h"
#include "sql_value.h"
#include "standard/ascii.h"
#include "standard/letter_case.h"
#include "standard/utf8.h"

#include <algorithm>

namespace krv::jet_reader {

namespace {

/// A text as its characters, so that places can be counted. Characters beyond 16 bits count as one.
std::u32string characters_of(std::string_view text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        const auto character = standard::decode_utf8(text, at);
        characters += character.code;
        at += character.size;
    }
    return characters;
}

std::string text_of(std::u32string_view characters) {
    std::string text;
    for (const char32_t character : characters) {
        standard::append_utf8(character, text);
    }
    return text;
}

constexpr const char* wrong_argument = "Invalid procedure call or argument";

std::size_t count_of(const SqlArguments& in, std::size_t index) {
    const std::int32_t count = in.whole(index);
    if (count < 0) {
        throw platform::RuntimeError(5, wrong_argument, "Jet");
    }
    return static_cast<std::size_t>(count);
}

/// A place counts from 1.
std::size_t place_of(const SqlArguments& in, std::size_t index) {
    const std::size_t place = count_of(in, index);
    if (place == 0) {
        throw platform::RuntimeError(5, wrong_argument, "Jet");
    }
    return place - 1;
}

void left(const SqlArguments& in, SqlResult& out) {
    out.text(text_of(std::u32string_view(characters_of(in.text(0))).substr(0, count_of(in, 1))));
}

void right(const SqlArguments& in, SqlResult& out) {
    const std::u32string text = characters_of(in.text(0));
    const std::size_t count = std::min(count_of(in, 1), text.size());
    out.text(text_of(std::u32string_view(text).substr(text.size() - count)));
}

void mid(const SqlArguments& in, SqlResult& out) {
    const std::u32string text = characters_of(in.text(0));
    const std::size_t start = std::min(place_of(in, 1), text.size());
    const std::size_t count = in.size() > 2 ? count_of(in, 2) : text.size();
    out.text(text_of(std::u32string_view(text).substr(start, count)));
}

void length(const SqlArguments& in, SqlResult& out) {
    out.whole(static_cast<std::int64_t>(characters_of(in.text(0)).size()));
}

void upper(const SqlArguments& in, SqlResult& out) {
    out.text(standard::upper_case(in.text(0)));
}

void lower(const SqlArguments& in, SqlResult& out) {
    out.text(standard::lower_case(in.text(0)));
}

std::string_view without_blanks(std::string_view text, bool in_front, bool behind) {
    while (in_front && text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (behind && text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    return text;
}

void trim(const SqlArguments& in, SqlResult& out) {
    out.text(without_blanks(in.text(0), true, true));
}

void trim_left(const SqlArguments& in, SqlResult& out) {
    out.text(without_blanks(in.text(0), true, false));
}

void trim_right(const SqlArguments& in, SqlResult& out) {
    out.text(without_blanks(in.text(0), false, true));
}

/// `InStr([start,] text, sought [, compare])`; letter case does not count unless `compare` is 0.
void in_string(const SqlArguments& in, SqlResult& out) {
    const bool has_start = in.size() > 2;
    const std::size_t first = has_start ? 1 : 0;
    const bool exact = in.size() > 3 && in.whole(3) == 0;
    std::string text = in.text(first);
    std::string sought = in.text(first + 1);
    if (!exact) {
        text = standard::lower_case(text);
        sought = standard::lower_case(sought);
    }
    const std::size_t found =
        characters_of(text).find(characters_of(sought), has_start ? place_of(in, 0) : 0);
    out.whole(found == std::u32string::npos ? 0 : static_cast<std::int64_t>(found) + 1);
}

void space(const SqlArguments& in, SqlResult& out) {
    constexpr std::size_t most = 65535;
    out.text(std::string(std::min(count_of(in, 0), most), ' '));
}

/// The character of a number; of the same number in Unicode.
void character(const SqlArguments& in, SqlResult& out) {
    std::string text;
    standard::append_utf8(static_cast<char32_t>(std::min<std::size_t>(count_of(in, 0), 0xFFFD)),
                          text);
    out.text(text);
}

void code(const SqlArguments& in, SqlResult& out) {
    const std::u32string text = characters_of(in.text(0));
    if (text.empty()) {
        return out.error(wrong_argument);
    }
    out.whole(static_cast<std::int64_t>(text.front()));
}

void to_text(const SqlArguments& in, SqlResult& out) {
    out.text(in.text(0));
}

constexpr FunctionEntry entries[] = {
    {"jet_left", "Left", 2, 2, left},
    {"jet_right", "Right", 2, 2, right},
    {"jet_mid", "Mid", 2, 3, mid},
    {"jet_len", "Len", 1, 1, length},
    {"jet_ucase", "UCase", 1, 1, upper},
    {"jet_lcase", "LCase", 1, 1, lower},
    {"jet_trim", "Trim", 1, 1, trim},
    {"jet_ltrim", "LTrim", 1, 1, trim_left},
    {"jet_rtrim", "RTrim", 1, 1, trim_right},
    {"jet_instr", "InStr", 2, 4, in_string},
    {"jet_space", "Space", 1, 1, space},
    {"jet_chr", "Chr", 1, 1, character},
    {"jet_asc", "Asc", 1, 1, code},
    {"jet_cstr", "CStr", 1, 1, to_text},
};

} // namespace

std::span<const FunctionEntry> text_functions() {
    return entries;
}

} // namespace krv::jet_reader
