#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace krv::jet_reader {

enum class TokenKind {
    word,   ///< a bare word: keyword, name or function
    name,   ///< a name in `[ ]` or `` ` ``, unquoted
    text,   ///< a text in `"` or `'`, unquoted
    number, ///< as written; hexadecimal ones in decimal
    date,   ///< what stands between two `#`, as the number of its serial date
    symbol  ///< an operator or a mark of punctuation; `!` between names is `.`
};

struct Token {
    TokenKind kind;
    std::string text;

    friend bool operator==(const Token&, const Token&) = default;
};

/// Takes a statement of Jet's SQL apart.
/// \throws DataError -2147217900 for a quote that is not closed and a date that is none
std::vector<Token> sql_tokens(std::string_view sql);

} // namespace krv::jet_reader
