#include "standard/formatting/string_pattern.h"

#include "standard/formatting/bounded_text.h"
#include "standard/formatting/pattern_text.h"
#include "standard/letter_case.h"

namespace krv::standard {

namespace {

constexpr char upper_ascii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - ('a' - 'A')) : letter;
}

} // namespace

StringPattern::StringPattern(std::string_view pattern) {
    for (const std::string_view section : pattern_sections(pattern)) {
        sections_.emplace_back(section);
    }
}

void StringPattern::write(std::string_view value, std::string& text) const {
    sections_.front().write(value, text);
}

void StringPattern::write_null(std::string& text) const {
    if (sections_.size() > 1) {
        sections_[1].write({}, text);
    } else {
        text.clear();
    }
}

StringPattern::Section::Section(std::string_view text) {
    PatternScanner scanner(text);
    while (!scanner.at_end()) {
        if (const auto literal = scanner.take_literal()) {
            add_literal(*literal);
        } else {
            see(scanner.take(1).front());
        }
    }
}

void StringPattern::Section::see(char character) {
    switch (character) {
    case '@':
    case '&':
        parts_.push_back({character == '@' ? PartKind::blank_place : PartKind::empty_place, {}});
        ++places_;
        break;
    case '<':
        lower_ = true;
        break;
    case '>':
        upper_ = true;
        break;
    case '!':
        from_left_ = true;
        break;
    default:
        add_literal({&character, 1});
        break;
    }
}

void StringPattern::Section::add_literal(std::string_view text) {
    if (parts_.empty() || parts_.back().kind != PartKind::literal) {
        parts_.push_back({PartKind::literal, {}});
    }
    parts_.back().literal += text;
    literal_bytes_ += text.size();
}

char* StringPattern::Section::write_character(std::string_view character, char* out) const {
    if (lower_ == upper_) {
        return append_to(out, character);
    }
    if (character.size() == 1 && static_cast<signed char>(character[0]) >= 0) {
        *out = lower_ ? lower_ascii(character[0]) : upper_ascii(character[0]);
        return out + 1;
    }
    return append_to(out, lower_ ? lower_case(character) : upper_case(character));
}

char* StringPattern::Section::write_rest(std::string_view rest, char* out) const {
    if (lower_ == upper_) {
        return append_to(out, rest);
    }
    while (!rest.empty()) {
        const std::size_t length = character_length(rest, 0);
        out = write_character(rest.substr(0, length), out);
        rest.remove_prefix(length);
    }
    return out;
}

char* StringPattern::Section::write_parts(std::string_view value, char* out) const {
    // Places that stay empty come first, unless the pattern fills from the left.
    const std::size_t count = from_left_ ? places_ : character_count(value);
    std::size_t skipped = count < places_ ? places_ - count : 0;
    for (const Part& part : parts_) {
        if (part.kind == PartKind::literal) {
            out = append_to(out, part.literal);
        } else if (skipped > 0 || value.empty()) {
            skipped -= skipped > 0 ? 1 : 0;
            out = append_to(out, part.kind == PartKind::blank_place ? " " : "");
        } else {
            const std::size_t length = character_length(value, 0);
            out = write_character(value.substr(0, length), out);
            value.remove_prefix(length);
        }
    }
    // Deliberate: what has no place follows behind everything, trailing literals included.
    return write_rest(value, out);
}

void StringPattern::Section::write(std::string_view value, std::string& text) const {
    // A letter takes as many bytes in either case.
    write_bounded(value.size() + places_ + literal_bytes_, text, [&](char* out) {
        return write_parts(value, out);
    });
}

} // namespace krv::standard
