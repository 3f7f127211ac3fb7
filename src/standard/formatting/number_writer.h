#pragma once

#include "standard/formatting/decimal_text.h"

#include <limits>
#include <string>
#include <string_view>

namespace krv::standard {

/// How the plain text of a number looks.
struct PlainNumberForm {
    std::string_view decimal_separator;
    /// Fixed notation serves numbers below ten to this power with no more decimals than it; all
    /// others get an exponent. Unlimited for exact kinds.
    int fixed_limit = std::numeric_limits<int>::max();
    bool zero_before_point = true;
    bool blank_for_plus = false;
};

/// Replaces the text by the plain form of a number: "1234,5", "1E+15". Never grouped; zero has no
/// sign.
void write_plain_number(const DecimalText& number, const PlainNumberForm& form, std::string& text);

/// The text of a number that is none or infinite: "1.#INF", "-1.#INF", "-1.#IND".
std::string_view text_of_unreal(double value);

} // namespace krv::standard
