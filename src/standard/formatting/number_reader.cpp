#include "standard/formatting/number_reader.h"

#include "standard/formatting/digit_collector.h"

#include <cmath>

namespace krv::standard {

namespace {

constexpr std::string_view no_break_space = "\u00A0";
constexpr std::string_view narrow_no_break_space = "\u202F";

bool is_blank(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

std::string_view without_blanks_around(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && is_blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Reads one text from front to back; each step takes what it knows and leaves the rest.
class NumberParser {
public:
    NumberParser(std::string_view text, const RegionalSettings& region, PercentSign percent)
        : rest_(text)
        , region_(region)
        , percent_(percent)
        , blank_groups_(region.thousands_separator == " " ||
                        region.thousands_separator == no_break_space ||
                        region.thousands_separator == narrow_no_break_space) {}

    std::optional<NumberInText> read() {
        take_front();
        take_integer_part();
        take_decimals();
        if (!digits_.any()) {
            return std::nullopt;
        }
        take_exponent();
        take_back();
        if (!rest_.empty() || open_parenthesis_) {
            return std::nullopt;
        }
        return result();
    }

private:
    bool take(std::string_view piece) {
        if (piece.empty() || !rest_.starts_with(piece)) {
            return false;
        }
        rest_.remove_prefix(piece.size());
        return true;
    }

    bool take_blank() {
        if (!rest_.empty() && is_blank(rest_.front())) {
            rest_.remove_prefix(1);
            return true;
        }
        return take(no_break_space) || take(narrow_no_break_space);
    }

    bool take_sign() {
        if (signed_ || rest_.empty() || (rest_.front() != '-' && rest_.front() != '+')) {
            return false;
        }
        signed_ = true;
        negative_ = rest_.front() == '-';
        rest_.remove_prefix(1);
        return true;
    }

    bool take_currency() {
        if (!currency_ && take(region_.currency_symbol)) {
            currency_ = true;
            return true;
        }
        return false;
    }

    bool take_opening() {
        if (signed_ || !take("(")) {
            return false;
        }
        signed_ = negative_ = open_parenthesis_ = true;
        return true;
    }

    bool take_closing() {
        if (!open_parenthesis_ || !take(")")) {
            return false;
        }
        open_parenthesis_ = false;
        return true;
    }

    bool take_percent() {
        if (percent_ == PercentSign::refused || percent_seen_ || !take("%")) {
            return false;
        }
        percent_seen_ = true;
        return true;
    }

    void take_front() {
        while (take_blank() || take_sign() || take_opening() || take_currency()) {
        }
    }

    void take_back() {
        while (take_blank() || take_percent() || take_sign() || take_currency() || take_closing()) {
        }
    }

    bool take_thousands_separator() {
        return take(region_.thousands_separator) ||
               (blank_groups_ &&
                (take(" ") || take(no_break_space) || take(narrow_no_break_space)));
    }

    void take_integer_part() {
        int group = 0;
        while (!rest_.empty()) {
            if (is_digit(rest_.front())) {
                take_integer_digit();
                ++group;
            } else if (digits_.any() && take_thousands_separator()) {
                note_group(group);
                group = 0;
            } else {
                break;
            }
        }
        well_grouped_ = well_grouped_ && group == 3;
    }

    void take_integer_digit() {
        leading_zeros_ = leading_zeros_ || first_digit_ == '0';
        first_digit_ = first_digit_ == '\0' ? rest_.front() : first_digit_;
        only_zeros_ = only_zeros_ && rest_.front() == '0';
        digits_.add(rest_.front(), false);
        kept_digits_ += only_zeros_ ? 0 : 1;
        rest_.remove_prefix(1);
    }

    void note_group(int size) {
        well_grouped_ = (grouped_ ? well_grouped_ && size == 3 : size <= 3);
        grouped_ = true;
    }

    void take_decimals() {
        if (!take(region_.decimal_separator)) {
            return;
        }
        std::int64_t zeros = 0;
        for (; !rest_.empty() && is_digit(rest_.front()); rest_.remove_prefix(1)) {
            const bool zero = rest_.front() == '0';
            digits_.add(rest_.front(), true);
            if (zero && only_zeros_) {
                continue;
            }
            only_zeros_ = false;
            kept_digits_ += zero ? 0 : zeros + 1;
            zeros = zero ? zeros + 1 : 0;
        }
    }

    void take_exponent() {
        std::size_t end = 0;
        exponent_ = read_exponent(rest_, end).value_or(0);
        rest_.remove_prefix(end);
    }

    NumberInText result() const {
        NumberInText number;
        number.decimal = digits_.number(exponent_ - (percent_seen_ ? 2 : 0), negative_);
        number.value = to_double(number.decimal);
        number.leading_zeros = leading_zeros_ && !only_zeros_;
        number.grouped_by_three = grouped_ && well_grouped_;
        number.kept_digits = kept_digits_;
        return number;
    }

    std::string_view rest_;
    const RegionalSettings& region_;
    PercentSign percent_;
    bool blank_groups_; // the three kinds of blanks stand for each other
    DigitCollector digits_;
    std::int64_t exponent_ = 0;
    std::int64_t kept_digits_ = 0;
    char first_digit_ = '\0';
    bool leading_zeros_ = false;
    bool only_zeros_ = true;
    bool grouped_ = false;
    bool well_grouped_ = false;
    bool signed_ = false;
    bool negative_ = false;
    bool currency_ = false;
    bool open_parenthesis_ = false;
    bool percent_seen_ = false;
};

std::optional<NumberInText> read_radix_number(std::string_view text, int base) {
    std::size_t end = 2;
    NumberInText number;
    number.radix = true;
    number.value = read_radix_digits(text, end, base);
    return end == text.size() && end > 2 ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<NumberInText>
read_number(std::string_view text, const RegionalSettings& region, PercentSign percent) {
    text = without_blanks_around(text);
    if (const int base = radix_of(text)) {
        return read_radix_number(text, base);
    }
    return NumberParser(text, region, percent).read();
}

} // namespace krv::standard
