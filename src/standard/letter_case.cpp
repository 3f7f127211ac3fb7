#include "standard/letter_case.h"

#include <algorithm>

namespace krv::standard {

namespace {

bool is_continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::size_t length_by_lead(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 1;
}

char32_t decode(std::string_view character) {
    const auto byte = [&](std::size_t index) {
        return static_cast<char32_t>(static_cast<unsigned char>(character[index]));
    };
    switch (character.size()) {
    case 2:
        return (byte(0) & 0x1FU) << 6 | (byte(1) & 0x3FU);
    case 3:
        return (byte(0) & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
    case 4:
        return (byte(0) & 0x07U) << 18 | (byte(1) & 0x3FU) << 12 | (byte(2) & 0x3FU) << 6 |
               (byte(3) & 0x3FU);
    default:
        return byte(0);
    }
}

/// Capitals from `first` to `last`, whose small letters lie `distance` behind them; a distance of 1
/// means that capitals and small letters take turns.
struct CaseRange {
    char32_t first;
    char32_t last;
    char32_t distance;
};

constexpr CaseRange case_ranges[] = {
    {U'A', U'Z', 32},     {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 1},
    {0x0132, 0x0136, 1},  {0x0139, 0x0147, 1},  {0x014A, 0x0176, 1},  {0x0179, 0x017D, 1},
    {0x0218, 0x021A, 1},  {0x0386, 0x0386, 38}, {0x0388, 0x038A, 37}, {0x038C, 0x038C, 64},
    {0x038E, 0x038F, 63}, {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80},
    {0x0410, 0x042F, 32}, {0x0460, 0x0480, 1},  {0x048A, 0x04BE, 1},  {0x0531, 0x0556, 48},
    {0x1E00, 0x1E94, 1},  {0x1EA0, 0x1EFE, 1}};

constexpr char32_t capital_y_diaeresis = 0x0178;
constexpr char32_t small_y_diaeresis = 0x00FF;

bool holds(const CaseRange& range, char32_t capital) {
    return capital >= range.first && capital <= range.last &&
           (range.distance != 1 || (capital - range.first) % 2 == 0);
}

char32_t lower(char32_t letter) {
    if (letter == capital_y_diaeresis) {
        return small_y_diaeresis;
    }
    const auto range = std::ranges::find_if(
        case_ranges, [&](const CaseRange& candidate) { return holds(candidate, letter); });
    return range == std::end(case_ranges) ? letter : letter + range->distance;
}

char32_t upper(char32_t letter) {
    if (letter == small_y_diaeresis) {
        return capital_y_diaeresis;
    }
    const auto range = std::ranges::find_if(case_ranges, [&](const CaseRange& candidate) {
        return letter >= candidate.distance && holds(candidate, letter - candidate.distance);
    });
    return range == std::end(case_ranges) ? letter : letter - range->distance;
}

bool is_invalid(std::string_view character) {
    return character.size() == 1 && static_cast<signed char>(character[0]) < 0;
}

template <class Change>
std::string changed(std::string_view text, Change change) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto character = text.substr(position, character_length(text, position));
        position += character.size();
        if (is_invalid(character)) {
            result += character;
        } else {
            append_utf8(change(decode(character)), result);
        }
    }
    return result;
}

} // namespace

std::size_t character_length(std::string_view text, std::size_t position) {
    const std::size_t length = length_by_lead(static_cast<unsigned char>(text[position]));
    if (length > text.size() - position) {
        return 1;
    }
    const auto rest = text.substr(position + 1, length - 1);
    return std::ranges::all_of(rest, is_continuation) ? length : 1;
}

std::size_t character_count(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count) {
        position += character_length(text, position);
    }
    return count;
}

std::string_view first_characters(std::string_view text, std::size_t count) {
    std::size_t position = 0;
    for (; count > 0 && position < text.size(); --count) {
        position += character_length(text, position);
    }
    return text.substr(0, position);
}

void append_utf8(char32_t code_point, std::string& text) {
    const auto tail = [&](unsigned shift) {
        return static_cast<char>(0x80U | ((code_point >> shift) & 0x3FU));
    };
    if (code_point < 0x80) {
        text += static_cast<char>(code_point);
    } else if (code_point < 0x800) {
        text += {static_cast<char>(0xC0U | code_point >> 6), tail(0)};
    } else if (code_point < 0x10000) {
        text += {static_cast<char>(0xE0U | code_point >> 12), tail(6), tail(0)};
    } else {
        text += {static_cast<char>(0xF0U | code_point >> 18), tail(12), tail(6), tail(0)};
    }
}

std::string lower_case(std::string_view text) {
    return changed(text, lower);
}

std::string upper_case(std::string_view text) {
    return changed(text, upper);
}

bool equal_in_any_case(std::string_view left, std::string_view right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        const auto a = left.substr(i, character_length(left, i));
        const auto b = right.substr(j, character_length(right, j));
        if (a != b && (is_invalid(a) || is_invalid(b) || lower(decode(a)) != lower(decode(b)))) {
            return false;
        }
        i += a.size();
        j += b.size();
    }
    return i == left.size() && j == right.size();
}

} // namespace krv::standard
