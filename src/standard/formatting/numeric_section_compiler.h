#pragma once

#include "standard/formatting/numeric_section.h"

#include <vector>

namespace krv::standard {

/// Reads the text of a section: first into tokens, then, knowing where the last integer place
/// stands, into the parts of the section.
class NumericSectionCompiler {
public:
    NumericSectionCompiler(NumericSection& section, const RegionalSettings& region)
        : section_(section)
        , region_(region) {}

    void compile(std::string_view text);

private:
    enum class TokenKind : std::uint8_t { literal, zero, hash, point, percent, comma, exponent };

    struct Token {
        TokenKind kind;
        std::string_view text;
    };

    void tokenize(std::string_view text);
    Token next_token(class PatternScanner& scanner);
    void count_places();
    void add(std::size_t index);
    void add_literal(std::string_view text);
    void add_integer_place();
    void add_decimal_place();
    void add_point();
    void add_comma(std::size_t index);
    void add_exponent(std::string_view text);
    bool follows_integer_place(std::size_t index) const;

    NumericSection& section_;
    const RegionalSettings& region_;
    std::vector<Token> tokens_;
    std::size_t last_integer_token_ = 0; // of the last integer place
    int integers_left_ = 0;
    int decimals_done_ = 0;
    bool point_tokenized_ = false;
    bool exponent_tokenized_ = false;
    bool behind_point_ = false;
};

} // namespace krv::standard
