#include "krv/standard/bag_text.h"

#include "standard/ascii.h"
#include "standard/letter_case.h"
#include "standard/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace krv::standard {

namespace {

using platform::Value;
using platform::ValueKind;
using platform::ValueView;

constexpr char32_t last_code_point = 0x10FFFF;

[[noreturn]] void fail(const std::string& fault) {
    throw BagTextError(0, fault);
}

bool is_bare(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_' || character == '.' ||
           character == '-';
}

std::size_t bare_length(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && is_bare(text[length])) {
        ++length;
    }
    return length;
}

template <class Number>
void append_number(Number number, std::string& text) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

/// The shortest text that means this number.
template <class Real>
void append_real(Real number, std::string& text) {
    if (!std::isfinite(number)) {
        throw platform::RuntimeError(
            13, "Type mismatch: a setting is no finite number", "krvList3");
    }
    append_number(number, text);
}

void append_character(char character, std::string& text) {
    switch (character) {
    case '"':
        text += "\\\"";
        return;
    case '\\':
        text += "\\\\";
        return;
    case '\n':
        text += "\\n";
        return;
    case '\r':
        text += "\\r";
        return;
    case '\t':
        text += "\\t";
        return;
    default:
        break;
    }
    const auto code = static_cast<unsigned char>(character);
    if (code >= 0x20 && code != 0x7F) {
        text += character;
        return;
    }
    std::array<char, 4> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), code, 16).ptr;
    text.append("\\u{").append(digits.data(), end).append("}");
}

/// What could not be read again is not written.
void append_quoted(std::string_view value, std::string& text) {
    if (!is_valid_utf8(value)) {
        throw platform::RuntimeError(
            13, "Type mismatch: the text of a setting is not UTF-8", "krvList3");
    }
    text += '"';
    for (const char character : value) {
        append_character(character, text);
    }
    text += '"';
}

} // namespace

BagTextError::BagTextError(std::size_t line, const std::string& fault)
    : RuntimeError(invalid_format,
                   line == 0 ? "Invalid settings: " + fault
                             : "Invalid settings in line " + std::to_string(line) + ": " + fault,
                   "krvList3")
    , line_(line)
    , fault_(fault) {}

std::string_view take_line(std::string_view& text) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

void append_setting(ValueView value, std::string& text) {
    switch (value.kind()) {
    case ValueKind::boolean:
        text += value.as_boolean() ? "true" : "false";
        return;
    case ValueKind::single:
        return append_real(value.as_single(), text);
    case ValueKind::double_float:
        return append_real(value.as_double(), text);
    case ValueKind::text:
        return append_quoted(value.as_text(), text);
    default:
        break;
    }
    if (!value.is_whole()) {
        throw platform::RuntimeError(
            13, "Type mismatch: a setting is a flag, a number or a text", "krvList3");
    }
    append_number(value.as_whole(), text);
}

void append_setting_key(std::string_view key, std::string& text) {
    if (!key.empty() && bare_length(key) == key.size()) {
        text += key;
    } else {
        append_quoted(key, text);
    }
}

void SettingReader::skip_blanks() {
    const std::size_t start = rest_.find_first_not_of(" \t");
    rest_.remove_prefix(std::min(start, rest_.size()));
}

bool SettingReader::at_end() {
    skip_blanks();
    return rest_.empty();
}

std::string SettingReader::key() {
    skip_blanks();
    if (rest_.starts_with('"')) {
        return quoted();
    }
    const std::size_t length = bare_length(rest_);
    if (length == 0) {
        fail("a key is missing");
    }
    const std::string key(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return key;
}

void SettingReader::expect(char character) {
    skip_blanks();
    if (!rest_.starts_with(character)) {
        fail(std::string("'") + character + "' is missing");
    }
    rest_.remove_prefix(1);
}

Value SettingReader::value() {
    skip_blanks();
    if (rest_.starts_with('"')) {
        return Value::text(quoted());
    }
    const std::string_view word = rest_.substr(0, rest_.find_first_of(" \t"));
    rest_.remove_prefix(word.size());
    if (word.empty()) {
        fail("a value is missing");
    }
    if (word == "true" || word == "false") {
        return Value(ValueView::boolean(word == "true"));
    }
    return number(word);
}

Value SettingReader::number(std::string_view word) {
    const char* const begin = word.data();
    const char* const end = begin + word.size();
    std::int64_t whole = 0;
    if (const auto read = std::from_chars(begin, end, whole);
        read.ec == std::errc() && read.ptr == end) {
        using Limits = std::numeric_limits<std::int32_t>;
        const bool fits = whole >= Limits::min() && whole <= Limits::max();
        return Value(fits ? ValueView::long_integer(static_cast<std::int32_t>(whole))
                          : ValueView::long_long(whole));
    }
    double real = 0;
    const auto read = std::from_chars(begin, end, real);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(real)) {
        fail("'" + std::string(word) + "' is neither true, false, a number nor a text in quotes");
    }
    return Value(ValueView::double_float(real));
}

std::string SettingReader::quoted() {
    std::string text;
    rest_.remove_prefix(1);
    for (;;) {
        const std::size_t length = rest_.find_first_of("\"\\");
        if (length == std::string_view::npos) {
            fail("the closing quote of a text is missing");
        }
        text += rest_.substr(0, length);
        const bool ends = rest_[length] == '"';
        rest_.remove_prefix(length + 1);
        if (ends) {
            return text;
        }
        append_escaped(text);
    }
}

void SettingReader::append_escaped(std::string& text) {
    static constexpr std::string_view letters = "\"\\nrt";
    static constexpr std::string_view meanings = "\"\\\n\r\t";
    const char letter = rest_.empty() ? '\0' : rest_.front();
    if (const std::size_t which = letters.find(letter); which != std::string_view::npos) {
        rest_.remove_prefix(1);
        text += meanings[which];
        return;
    }
    const std::size_t close = rest_.find('}');
    std::uint32_t code = last_code_point + 1;
    if (rest_.starts_with("u{") && close != std::string_view::npos) {
        const char* const end = rest_.data() + close;
        if (std::from_chars(rest_.data() + 2, end, code, 16).ptr != end || close == 2) {
            code = last_code_point + 1;
        }
    }
    if (code > last_code_point || (code >= 0xD800 && code <= 0xDFFF)) {
        fail("a backslash in a text does not begin \\\", \\\\, \\n, \\r, \\t or \\u{...}");
    }
    rest_.remove_prefix(close + 1);
    append_utf8(code, text);
}

} // namespace krv::standard
