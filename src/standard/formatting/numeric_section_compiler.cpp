#include "standard/formatting/numeric_section_compiler.h"

#include "standard/formatting/pattern_text.h"

#include <algorithm>

namespace krv::standard {

namespace {

bool is_place(char character) {
    return character == '0' || character == '#';
}

/// Length of `E+00` at the front; 0 without a sign.
std::size_t exponent_length(std::string_view text) {
    if (text.size() < 2 || (text[0] != 'E' && text[0] != 'e') ||
        (text[1] != '+' && text[1] != '-')) {
        return 0;
    }
    const auto end = std::find_if_not(text.begin() + 2, text.end(), is_place);
    return static_cast<std::size_t>(end - text.begin());
}

} // namespace

void NumericSectionCompiler::compile(std::string_view text) {
    tokenize(text);
    count_places();
    for (std::size_t index = 0; index < tokens_.size(); ++index) {
        add(index);
    }
}

void NumericSectionCompiler::tokenize(std::string_view text) {
    PatternScanner scanner(text);
    while (!scanner.at_end()) {
        if (const auto literal = scanner.take_literal()) {
            tokens_.push_back({TokenKind::literal, *literal});
        } else {
            tokens_.push_back(next_token(scanner));
        }
    }
}

NumericSectionCompiler::Token NumericSectionCompiler::next_token(PatternScanner& scanner) {
    if (const auto length = exponent_length(scanner.rest()); length > 0 && !exponent_tokenized_) {
        exponent_tokenized_ = true;
        return {TokenKind::exponent, scanner.take(length)};
    }
    const std::string_view text = scanner.take(1);
    switch (text.front()) {
    case '0':
        return {TokenKind::zero, text};
    case '#':
        return {TokenKind::hash, text};
    case '%':
        return {TokenKind::percent, text};
    case ',':
        return {TokenKind::comma, text};
    case ':':
        return {TokenKind::literal, region_.time_separator};
    case '/':
        return {TokenKind::literal, region_.date_separator};
    case '.':
        if (!point_tokenized_) {
            point_tokenized_ = true;
            return {TokenKind::point, text};
        }
        break;
    default:
        break;
    }
    return {TokenKind::literal, text};
}

void NumericSectionCompiler::count_places() {
    bool behind_point = false;
    for (std::size_t index = 0; index < tokens_.size(); ++index) {
        const TokenKind kind = tokens_[index].kind;
        const bool place = kind == TokenKind::zero || kind == TokenKind::hash;
        behind_point = behind_point || kind == TokenKind::point;
        section_.shows_digits_ = section_.shows_digits_ || place || kind == TokenKind::point ||
                                 kind == TokenKind::exponent;
        if (place && behind_point) {
            ++section_.decimal_places_;
            section_.least_decimals_ =
                kind == TokenKind::zero ? section_.decimal_places_ : section_.least_decimals_;
        } else if (place) {
            ++section_.integer_places_;
            last_integer_token_ = index;
            const bool prints = kind == TokenKind::zero || section_.least_integers_ > 0;
            section_.least_integers_ += prints ? 1 : 0;
        }
    }
    integers_left_ = section_.integer_places_;
}

void NumericSectionCompiler::add(std::size_t index) {
    const Token& token = tokens_[index];
    switch (token.kind) {
    case TokenKind::literal:
        return add_literal(token.text);
    case TokenKind::zero:
    case TokenKind::hash:
        return behind_point_ ? add_decimal_place() : add_integer_place();
    case TokenKind::point:
        return add_point();
    case TokenKind::percent:
        section_.shift_ += 2;
        return add_literal(token.text);
    case TokenKind::comma:
        return add_comma(index);
    case TokenKind::exponent:
        return add_exponent(token.text);
    }
}

void NumericSectionCompiler::add_literal(std::string_view text) {
    if (text.empty()) {
        return;
    }
    const auto begin = static_cast<int>(section_.literals_.size());
    section_.literals_ += text;
    const auto end = static_cast<int>(section_.literals_.size());
    auto& parts = section_.parts_;
    if (!parts.empty() && parts.back().kind == NumericSection::PartKind::literal) {
        parts.back().last = end;
    } else {
        parts.push_back({NumericSection::PartKind::literal, begin, end});
    }
}

void NumericSectionCompiler::add_integer_place() {
    const int place = --integers_left_;
    auto& parts = section_.parts_;
    if (!parts.empty() && parts.back().kind == NumericSection::PartKind::integer_places) {
        parts.back().last = place;
    } else {
        parts.push_back({NumericSection::PartKind::integer_places, place, place});
    }
}

void NumericSectionCompiler::add_decimal_place() {
    const int place = decimals_done_++;
    auto& parts = section_.parts_;
    if (!parts.empty() && parts.back().kind == NumericSection::PartKind::decimal_places) {
        parts.back().last = place;
    } else {
        parts.push_back({NumericSection::PartKind::decimal_places, place, place});
    }
}

void NumericSectionCompiler::add_point() {
    behind_point_ = true;
    if (section_.integer_places_ == 0) {
        // No place at all, but the digits before the point print here.
        section_.parts_.push_back({NumericSection::PartKind::integer_places, -1, 0});
    }
    add_literal(region_.decimal_separator);
}

void NumericSectionCompiler::add_comma(std::size_t index) {
    const bool among_places = integers_left_ < section_.integer_places_ && !behind_point_;
    if (among_places && index < last_integer_token_) {
        section_.thousands_separator_ = region_.thousands_separator;
    } else if (among_places && follows_integer_place(index)) {
        section_.shift_ -= 3;
    } else {
        add_literal(",");
    }
}

bool NumericSectionCompiler::follows_integer_place(std::size_t index) const {
    while (tokens_[index].kind == TokenKind::comma && index > last_integer_token_) {
        --index;
    }
    return index == last_integer_token_;
}

void NumericSectionCompiler::add_exponent(std::string_view text) {
    section_.exponent_letter_ = text[0];
    section_.exponent_plus_ = text[1] == '+';
    const auto zeros = std::ranges::count(text, '0');
    section_.least_exponent_digits_ = std::max(1, static_cast<int>(zeros));
    section_.parts_.push_back({NumericSection::PartKind::exponent, 0, 0});
}

} // namespace krv::standard
