#include "sql_translation.h"

#include "errors.h"
#include "sql_functions.h"
#include "sql_operators.h"
#include "sql_tokens.h"
#include "standard/ascii.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace krv::jet_reader {

namespace {

using Kind = SqlPart::Kind;

constexpr int deepest_nesting = 200;

/// The words that mean the same to both. A word that is none of them is a name.
constexpr std::string_view keywords[] = {
    "SELECT", "ALL", "DISTINCT", "FROM",  "WHERE", "GROUP", "BY",   "HAVING",  "ORDER", "ASC",
    "DESC",   "AS",  "UNION",    "INNER", "LEFT",  "RIGHT", "FULL", "OUTER",   "CROSS", "JOIN",
    "ON",     "AND", "OR",       "NOT",   "IN",    "IS",    "LIKE", "BETWEEN", "EXISTS"};

bool is_keyword(const Token& token) {
    return token.kind == TokenKind::word &&
           std::any_of(std::begin(keywords), std::end(keywords), [&](std::string_view keyword) {
               return standard::same_keyword(token.text, keyword);
           });
}

std::string in_quotes(const std::string& text, char quote) {
    std::string quoted(1, quote);
    for (const char c : text) {
        quoted.append(c == quote ? 2 : 1, c);
    }
    return quoted + quote;
}

class Translator {
public:
    explicit Translator(std::vector<Token> tokens)
        : tokens_(std::move(tokens)) {}

    std::string translate() {
        if (!is_word("SELECT")) {
            refuse_statement("Only a SELECT can be run on a Jet database; it was not run.");
        }
        std::string sql = level(0);
        while (is_symbol(";")) {
            ++next_;
        }
        if (next_ < tokens_.size()) {
            refuse_statement(is_symbol(")") ? "A ) in the statement was not opened."
                                            : "There is more than one statement in the text.");
        }
        return sql;
    }

private:
    bool is_word(std::string_view word) const {
        return next_ < tokens_.size() && tokens_[next_].kind == TokenKind::word &&
               standard::same_keyword(tokens_[next_].text, word);
    }

    bool is_symbol(std::string_view symbol) const { return is_symbol(next_, symbol); }

    bool is_symbol(std::size_t at, std::string_view symbol) const {
        return at < tokens_.size() && tokens_[at].kind == TokenKind::symbol &&
               tokens_[at].text == symbol;
    }

    bool take_word(std::string_view word) {
        const bool there = is_word(word);
        next_ += there ? 1 : 0;
        return there;
    }

    /// What stands between two parentheses, or the whole.
    std::string level(int depth) {
        if (depth > deepest_nesting) {
            refuse_statement("The statement is nested too deeply.");
        }
        std::vector<SqlPart> parts;
        std::string limit;
        bool is_joined = false;
        while (next_ < tokens_.size() && !is_symbol(")") && !is_symbol(";")) {
            is_joined = is_joined || is_word("UNION");
            if (is_word("SELECT")) {
                parts.push_back({Kind::other, "SELECT"});
                ++next_;
                read_quantity(parts, limit);
            } else if (!drop_options()) {
                add_part(parts, depth);
            }
        }
        if (!limit.empty() && is_joined) {
            refuse_statement("TOP cannot be combined with UNION.");
        }
        return join_with_operators(std::move(parts)) + limit;
    }

    /// DISTINCTROW and TOP n behind a SELECT.
    void read_quantity(std::vector<SqlPart>& parts, std::string& limit) {
        for (;;) {
            if (take_word("DISTINCTROW")) {
                continue; // drops what only repeats whole records: nothing, where there is one table
            }
            if (is_word("DISTINCT") || is_word("ALL")) {
                parts.push_back({Kind::other, tokens_[next_++].text});
                continue;
            }
            const bool is_top = is_word("TOP") && next_ + 1 < tokens_.size() &&
                                tokens_[next_ + 1].kind == TokenKind::number;
            if (!is_top) {
                return;
            }
            limit = " LIMIT " + tokens_[next_ + 1].text;
            next_ += 2;
            if (is_word("PERCENT")) {
                refuse_statement("TOP with PERCENT is not supported.");
            }
        }
    }

    /// `WITH OWNERACCESS OPTION` says whose rights count; there are none here.
    bool drop_options() {
        const std::size_t start = next_;
        if (take_word("WITH") && take_word("OWNERACCESS") && take_word("OPTION")) {
            return true;
        }
        next_ = start;
        return false;
    }

    void add_part(std::vector<SqlPart>& parts, int depth) {
        const Token& token = tokens_[next_];
        switch (token.kind) {
        case TokenKind::number:
            ++next_;
            return parts.push_back({Kind::operand, token.text});
        case TokenKind::date:
            ++next_;
            return parts.push_back({Kind::operand, "jet_date_literal(" + token.text + ")"});
        case TokenKind::text:
            ++next_;
            return parts.push_back({Kind::operand, in_quotes(token.text, '\'')});
        case TokenKind::name:
            return add_name(parts);
        case TokenKind::word:
            return add_word(parts, depth);
        case TokenKind::symbol:
            return add_symbol(parts, depth);
        }
    }

    void add_symbol(std::vector<SqlPart>& parts, int depth) {
        const std::string& symbol = tokens_[next_].text;
        if (symbol == "(") {
            return parts.push_back({Kind::operand, group(depth)});
        }
        constexpr std::string_view operators = "+-*/\\^&";
        const bool is_operation = operators.find(symbol) != std::string_view::npos;
        // A star that multiplies nothing stands for all columns.
        const bool is_star = symbol == "*" && (parts.empty() || parts.back().kind != Kind::operand);
        parts.push_back({is_operation && !is_star ? Kind::operation : Kind::other, symbol});
        ++next_;
    }

    std::string group(int depth) {
        ++next_;
        std::string inside = level(depth + 1);
        if (!is_symbol(")")) {
            refuse_statement("A ( in the statement is not closed.");
        }
        ++next_;
        return "(" + inside + ")";
    }

    void add_word(std::vector<SqlPart>& parts, int depth) {
        const Token& token = tokens_[next_];
        const bool is_followed_by_group = is_symbol(next_ + 1, "(");
        if (const auto function = own_function(token.text); is_followed_by_group && function) {
            ++next_;
            return parts.push_back({Kind::operand, std::string(*function) + group(depth)});
        }
        if (standard::same_keyword(token.text, "MOD")) {
            ++next_;
            return parts.push_back({Kind::operation, "mod"});
        }
        if (is_keyword(token)) {
            ++next_;
            return parts.push_back({Kind::other, token.text});
        }
        if (is_followed_by_group) {
            ++next_;
            return parts.push_back({Kind::operand, token.text + group(depth)});
        }
        if (const char* value = literal(token.text);
            value != nullptr && !is_symbol(next_ + 1, ".")) {
            ++next_;
            return parts.push_back({Kind::operand, value});
        }
        add_name(parts);
    }

    static const char* literal(std::string_view word) {
        if (standard::same_keyword(word, "TRUE")) {
            return "-1";
        }
        if (standard::same_keyword(word, "FALSE")) {
            return "0";
        }
        return standard::same_keyword(word, "NULL") ? "NULL" : nullptr;
    }

    /// A name in its parts, or a table's star.
    void add_name(std::vector<SqlPart>& parts) {
        std::string text = in_quotes(tokens_[next_++].text, '"');
        while (is_symbol(".") && next_ + 1 < tokens_.size()) {
            const Token& part = tokens_[next_ + 1];
            if (part.kind == TokenKind::symbol && part.text != "*") {
                break;
            }
            text += part.kind == TokenKind::symbol ? ".*" : "." + in_quotes(part.text, '"');
            next_ += 2;
        }
        parts.push_back({Kind::operand, std::move(text)});
    }

    std::vector<Token> tokens_;
    std::size_t next_ = 0;
};

} // namespace

TranslatedSelect translated_select(std::string_view sql) {
    TranslatedSelect result;
    std::vector<Token> tokens = sql_tokens(sql);
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::word || token.kind == TokenKind::name) {
            result.names.insert(token.text);
        }
    }
    result.sql = Translator(std::move(tokens)).translate();
    return result;
}

} // namespace krv::jet_reader
