#include "sql_tokens.h"

#include "errors.h"
#include "regional.h"
#include "standard/ascii.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace krv::jet_reader {

namespace {

using standard::is_ascii_digit;

bool is_word_start(char c) {
    const char upper = standard::upper_ascii(c);
    return (upper >= 'A' && upper <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool is_word_part(char c) {
    return is_word_start(c) || is_ascii_digit(c) || c == '$';
}

bool is_hex_digit(char c) {
    const char upper = standard::upper_ascii(c);
    return is_ascii_digit(c) || (upper >= 'A' && upper <= 'F');
}

std::string plain_number(double value) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

std::string serial_of(std::string_view date) {
    try {
        return plain_number(
            region_of_sql().CDate(platform::ValueView::text(standard::trimmed(date))).serial);
    } catch (const platform::RuntimeError&) {
        refuse_statement("#" + std::string(date) + "# is no date.");
    }
}

class Scanner {
public:
    explicit Scanner(std::string_view sql)
        : rest_(sql) {}

    std::vector<Token> scan() {
        while (skip_blanks()) {
            scan_one();
        }
        return std::move(tokens_);
    }

private:
    bool skip_blanks() {
        while (!rest_.empty() && standard::is_blank(rest_.front())) {
            rest_.remove_prefix(1);
        }
        return !rest_.empty();
    }

    void scan_one() {
        const char c = rest_.front();
        if (c == '[') {
            return add(TokenKind::name, quoted(']'));
        }
        if (c == '`') {
            return add(TokenKind::name, quoted('`'));
        }
        if (c == '"' || c == '\'') {
            return add(TokenKind::text, quoted(c));
        }
        if (c == '#') {
            return add(TokenKind::date, serial_of(quoted('#')));
        }
        if (is_word_start(c)) {
            return add(TokenKind::word, taken_while(is_word_part));
        }
        if (is_ascii_digit(c) ||
            (c == '.' && rest_.size() > 1 && is_ascii_digit(rest_[1]) && !follows_name())) {
            return scan_number();
        }
        if (c == '&' && rest_.size() > 2 && standard::upper_ascii(rest_[1]) == 'H' &&
            is_hex_digit(rest_[2])) {
            return scan_hexadecimal();
        }
        scan_symbol();
    }

    bool follows_name() const {
        return !tokens_.empty() &&
               (tokens_.back().kind == TokenKind::word || tokens_.back().kind == TokenKind::name);
    }

    void add(TokenKind kind, std::string text) { tokens_.push_back({kind, std::move(text)}); }

    template <class Predicate>
    std::string taken_while(Predicate belongs) {
        std::size_t size = 0;
        while (size < rest_.size() && belongs(rest_[size])) {
            ++size;
        }
        std::string text(rest_.substr(0, size));
        rest_.remove_prefix(size);
        return text;
    }

    /// What stands between the quote at the front and `closing`, which is doubled to stand for itself.
    std::string quoted(char closing) {
        std::string text;
        for (std::size_t at = 1; at < rest_.size(); ++at) {
            if (rest_[at] != closing) {
                text += rest_[at];
            } else if (closing != '#' && at + 1 < rest_.size() && rest_[at + 1] == closing) {
                text += rest_[at++];
            } else {
                rest_.remove_prefix(at + 1);
                return text;
            }
        }
        refuse_statement(std::string("A ") + rest_.front() + " in the statement is not closed.");
    }

    void scan_number() {
        std::string text = taken_while([](char c) { return is_ascii_digit(c) || c == '.'; });
        if (!rest_.empty() && standard::upper_ascii(rest_.front()) == 'E') {
            const std::size_t sign = rest_.size() > 1 && (rest_[1] == '+' || rest_[1] == '-');
            if (rest_.size() > 1 + sign && is_ascii_digit(rest_[1 + sign])) {
                text += rest_.substr(0, 1 + sign);
                rest_.remove_prefix(1 + sign);
                text += taken_while(is_ascii_digit);
            }
        }
        add(TokenKind::number, std::move(text));
    }

    void scan_hexadecimal() {
        rest_.remove_prefix(2);
        const std::string digits = taken_while(is_hex_digit);
        std::uint32_t value = 0;
        const auto result =
            std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        if (result.ec != std::errc{}) {
            refuse_statement("&H" + digits + " is too large a number.");
        }
        const bool has_16_bits = digits.size() <= 4;
        add(TokenKind::number,
            std::to_string(has_16_bits ? static_cast<std::int16_t>(value)
                                       : static_cast<std::int32_t>(value)));
    }

    void scan_symbol() {
        for (const std::string_view symbol : {"<=", ">=", "<>"}) {
            if (rest_.starts_with(symbol)) {
                rest_.remove_prefix(symbol.size());
                return add(TokenKind::symbol, std::string(symbol));
            }
        }
        const char c = rest_.front();
        rest_.remove_prefix(1);
        add(TokenKind::symbol, std::string(1, c == '!' ? '.' : c));
    }

    std::string_view rest_;
    std::vector<Token> tokens_;
};

} // namespace

std::vector<Token> sql_tokens(std::string_view sql) {
    return Scanner(sql).scan();
}

} // namespace krv::jet_reader
