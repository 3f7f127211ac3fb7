#include "providers/odbc/money_text.h"

#include "standard/ado/exact_number.h"
#include "standard/ascii.h"

#include <algorithm>
#include <string>

namespace krv::providers::odbc {

namespace {

constexpr bool is_separator(char c) {
    return c == '.' || c == ',';
}

/// Position of the separator before the decimals, `npos` when there are none. One separator with
/// three digits behind it could be either.
std::optional<std::size_t> decimal_separator(std::string_view number) {
    const std::size_t last = number.find_last_of(".,");
    if (last == std::string_view::npos) {
        return last;
    }
    const std::size_t digits = number.size() - last - 1;
    if (digits == 1 || digits == 2) {
        return last;
    }
    const auto same = std::count(number.begin(), number.end(), number[last]);
    return digits == 3 && same > 1 ? std::optional(std::string_view::npos) : std::nullopt;
}

} // namespace

std::optional<platform::Currency> currency_from_money_text(std::string_view text) {
    const std::size_t first = text.find_first_of("0123456789");
    const std::size_t last = text.find_last_of("0123456789");
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view number = text.substr(first, last - first + 1);
    const auto separator = decimal_separator(number);
    if (!separator) {
        return std::nullopt;
    }
    const bool is_negative = text.find('-') != std::string_view::npos || text.front() == '(';
    std::string plain = is_negative ? "-" : "";
    for (std::size_t i = 0; i < number.size(); ++i) {
        if (standard::is_ascii_digit(number[i])) {
            plain += number[i];
        } else if (i == *separator) {
            plain += '.';
        } else if (!is_separator(number[i]) && number[i] != ' ' && number[i] != '\'' &&
                   static_cast<unsigned char>(number[i]) < 0x80) {
            return std::nullopt;
        }
    }
    return standard::currency_from_text(plain);
}

} // namespace krv::providers::odbc
