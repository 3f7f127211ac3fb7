#include "providers/odbc/statement_text.h"

#include "krv/standard/data_error.h"
#include "providers/odbc/gate.h"
#include "standard/ascii.h"

#include <algorithm>
#include <vector>

namespace krv::providers::odbc {

namespace {

enum class TokenKind { word, sign, quoted, end };

struct Token {
    TokenKind kind = TokenKind::end;
    std::string_view text;
};

bool is_word_character(char c) {
    const char lower = standard::lower_ascii(c);
    return (lower >= 'a' && lower <= 'z') || standard::is_ascii_digit(c) || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Takes a statement apart as far as is needed to tell its code from texts, names and comments.
class Scanner {
public:
    Scanner(std::string_view sql, Engine engine)
        : sql_(sql)
        , engine_(engine) {}

    Token next() {
        skip_blanks_and_comments();
        const std::size_t start = at_;
        if (at_ >= sql_.size()) {
            return {};
        }
        const TokenKind kind = pass();
        at_ = std::min(at_, sql_.size());
        return {kind, sql_.substr(start, at_ - start)};
    }

    /// Where the next token is looked for.
    std::size_t position() const { return at_; }

private:
    char here(std::size_t ahead = 0) const {
        return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0';
    }

    bool stands(std::string_view text) const { return sql_.substr(at_).starts_with(text); }

    void go_behind(std::string_view mark) {
        const std::size_t found = sql_.find(mark, at_);
        at_ = found == std::string_view::npos ? sql_.size() : found + mark.size();
    }

    void skip_blanks_and_comments() {
        for (;;) {
            const bool ends_line = stands("--") || (engine_ == Engine::mariadb && here() == '#');
            if (at_ < sql_.size() && standard::is_blank(here())) {
                ++at_;
            } else if (ends_line && !is_two_minus_signs()) {
                go_behind("\n");
            } else if (stands("/*") && !is_executable_comment()) {
                skip_block_comment();
            } else {
                return;
            }
        }
    }

    /// MariaDB's `--` begins a comment before a blank only.
    bool is_two_minus_signs() const {
        return engine_ == Engine::mariadb && stands("--") && at_ + 2 < sql_.size() &&
               static_cast<unsigned char>(here(2)) > ' ';
    }

    bool is_executable_comment() const {
        return engine_ != Engine::postgresql && engine_ != Engine::sqlite &&
               (stands("/*!") || stands("/*M!"));
    }

    void skip_block_comment() {
        int depth = 0;
        do {
            if (stands("/*") && (depth == 0 || engine_ == Engine::postgresql)) {
                ++depth;
                at_ += 2;
            } else if (stands("*/")) {
                --depth;
                at_ += 2;
            } else {
                ++at_;
            }
        } while (depth > 0 && at_ < sql_.size());
    }

    TokenKind pass() {
        const char c = here();
        const bool has_escapes =
            engine_ == Engine::postgresql && (c == 'e' || c == 'E') && here(1) == '\'';
        if (has_escapes) {
            ++at_;
            pass_quoted('\'', true);
            return TokenKind::quoted;
        }
        if (c == '\'' || c == '"' || c == '`') {
            pass_quoted(c, engine_ == Engine::mariadb && c != '`');
            return TokenKind::quoted;
        }
        if (c == '[' && engine_ == Engine::sqlite) {
            pass_quoted(']', false);
            return TokenKind::quoted;
        }
        if (c == '$' && engine_ == Engine::postgresql && pass_dollar_quoted()) {
            return TokenKind::quoted;
        }
        if (is_word_character(c)) {
            while (is_word_character(here()) && at_ < sql_.size()) {
                ++at_;
            }
            return TokenKind::word;
        }
        ++at_;
        return TokenKind::sign;
    }

    void pass_quoted(char close, bool has_escapes) {
        for (++at_; at_ < sql_.size(); ++at_) {
            if (has_escapes && here() == '\\') {
                ++at_;
            } else if (here() == close) {
                ++at_;
                if (here() != close || at_ >= sql_.size()) {
                    return;
                }
            }
        }
    }

    /// `$tag$ ... $tag$`.
    bool pass_dollar_quoted() {
        std::size_t end = at_ + 1;
        while (end < sql_.size() && is_word_character(sql_[end]) && sql_[end] != '$') {
            ++end;
        }
        if (end >= sql_.size() || sql_[end] != '$' || standard::is_ascii_digit(here(1))) {
            return false;
        }
        const std::string_view tag = sql_.substr(at_, end + 1 - at_);
        at_ = end + 1;
        go_behind(tag);
        return true;
    }

    std::string_view sql_;
    Engine engine_;
    std::size_t at_ = 0;
};

bool is_any_of(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view other) {
        return standard::same_keyword(word, other);
    });
}

bool is_reading_word(std::string_view word) {
    return is_any_of(word,
                     {"SELECT", "WITH", "VALUES", "TABLE", "SHOW", "DESCRIBE", "DESC", "EXPLAIN"});
}

bool is_writing_word(std::string_view word) {
    return is_any_of(word, {"INSERT", "UPDATE", "DELETE", "MERGE", "INTO"});
}

bool is_sign(const Token& token, char sign) {
    return token.kind == TokenKind::sign && token.text.front() == sign;
}

/// Triggers and functions hold statements of their own.
bool makes_a_routine(std::string_view sql, Engine engine) {
    Scanner scanner(sql, engine);
    Token token = scanner.next();
    if (!is_any_of(token.text, {"CREATE"})) {
        return false;
    }
    while (token.kind != TokenKind::end && !is_any_of(token.text, {"BEGIN"}) &&
           !is_sign(token, ';')) {
        token = scanner.next();
    }
    return token.kind == TokenKind::word;
}

[[noreturn]] void refuse(const char* text) {
    throw standard::DataError(standard::data_error_number::bad_statement, text, layer);
}

} // namespace

std::string_view single_statement(std::string_view sql, Engine engine) {
    if (makes_a_routine(sql, engine)) {
        return sql;
    }
    Scanner scanner(sql, engine);
    std::size_t end = 0;
    bool is_closed = false;
    for (Token token = scanner.next(); token.kind != TokenKind::end; token = scanner.next()) {
        if (is_sign(token, ';')) {
            is_closed = is_closed || end > 0;
        } else if (is_closed) {
            refuse("There is more than one statement in the text.");
        } else {
            end = scanner.position();
        }
    }
    if (end == 0) {
        refuse("There is no statement in the text.");
    }
    return sql.substr(0, end);
}

bool only_reads(std::string_view sql, Engine engine) {
    Scanner scanner(sql, engine);
    Token token = scanner.next();
    while (is_sign(token, '(')) {
        token = scanner.next();
    }
    if (token.kind != TokenKind::word || !is_reading_word(token.text)) {
        return false;
    }
    const bool explains = is_any_of(token.text, {"EXPLAIN", "DESCRIBE", "DESC"});
    Token before = token;
    for (token = scanner.next(); token.kind != TokenKind::end;) {
        const Token behind = scanner.next();
        // INSERT is a function as well.
        const bool is_name =
            is_sign(before, '.') || (is_sign(behind, '(') && is_any_of(token.text, {"INSERT"}));
        if (token.kind == TokenKind::word && !is_name && is_writing_word(token.text)) {
            return false;
        }
        if (token.kind == TokenKind::word && explains &&
            is_any_of(token.text, {"ANALYZE", "ANALYSE"})) {
            return false;
        }
        // Such a comment is code to its engine.
        if (is_sign(token, '/') && is_sign(behind, '*')) {
            return false;
        }
        before = token;
        token = behind;
    }
    return true;
}

bool begins_like_a_query(std::string_view text) {
    const Token first = Scanner(text, Engine::other).next();
    return first.kind == TokenKind::word && first.text.size() < text.size() &&
           is_reading_word(first.text);
}

} // namespace krv::providers::odbc
