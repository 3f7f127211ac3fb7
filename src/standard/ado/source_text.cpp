#include "standard/ado/source_text.h"

#include "standard/ascii.h"
#include "standard/letter_case.h"

#include <algorithm>
#include <utility>

namespace krv::standard {

namespace {

/// The character that closes what `open` begins; NUL when it begins no quote.
constexpr char closing_quote(char open) noexcept {
    if (open == '[') {
        return ']';
    }
    return open == '"' || open == '`' ? open : '\0';
}

constexpr bool can_stand_in_a_bare_name(char c) noexcept {
    const char lower = lower_ascii(c);
    return (lower >= 'a' && lower <= 'z') || is_ascii_digit(c) || c == '_' || c == '$' ||
           c == '#' || c == '@' || static_cast<unsigned char>(c) >= 0x80;
}

/// Takes a quoted part from the front of the text; nothing when its quote is not closed.
std::optional<std::string> take_quoted(std::string_view& text) {
    const char close = closing_quote(text.front());
    std::string part;
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] == close) {
            if (at + 1 == text.size() || text[at + 1] != close) {
                text.remove_prefix(at + 1);
                return part;
            }
            ++at;
        }
        part += text[at];
    }
    return std::nullopt;
}

std::optional<std::string> take_part(std::string_view& text) {
    while (!text.empty() && is_blank(text.front())) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    if (closing_quote(text.front()) != '\0') {
        auto part = take_quoted(text);
        while (!text.empty() && is_blank(text.front())) {
            text.remove_prefix(1);
        }
        return part;
    }
    const std::string_view bare = text.substr(0, text.find('.'));
    text.remove_prefix(bare.size());
    return std::string(trimmed(bare));
}

} // namespace

std::string_view trimmed_source(std::string_view text) noexcept {
    text = trimmed(text);
    if (!text.empty() && text.back() == ';') {
        text = trimmed(text.substr(0, text.size() - 1));
    }
    return text;
}

std::optional<TableName> split_name(std::string_view text) {
    TableName parts;
    for (;;) {
        auto part = take_part(text);
        if (!part || part->empty()) {
            return std::nullopt;
        }
        parts.push_back(std::move(*part));
        if (text.empty()) {
            return parts;
        }
        if (text.front() != '.') {
            return std::nullopt;
        }
        text.remove_prefix(1);
    }
}

bool is_lone_identifier(std::string_view text) {
    if (text.empty()) {
        return false;
    }
    if (closing_quote(text.front()) != '\0') {
        return take_quoted(text) && text.empty();
    }
    return std::all_of(text.begin(), text.end(), can_stand_in_a_bare_name);
}

std::string quoted_name(std::span<const std::string> parts, char quote) {
    std::string result;
    for (const std::string& part : parts) {
        if (!result.empty()) {
            result += '.';
        }
        result += quote;
        for (const char c : part) {
            result.append(c == quote ? 2 : 1, c);
        }
        result += quote;
    }
    return result;
}

} // namespace krv::standard
