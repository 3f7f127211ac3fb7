#pragma once

#include "standard/formatting/date_pattern.h"
#include "standard/formatting/numeric_pattern.h"
#include "standard/formatting/string_pattern.h"

#include <string_view>
#include <variant>

namespace krv::standard {

/// "Yes/No" and its like: a word for 0 and one for every other number.
struct WordPair {
    std::string_view other;
    std::string_view zero;
};

/// "General Number": the plain text of a number.
struct GeneralNumber {};

/// A pattern, compiled for one region.
struct FormatPattern {
    using Form = std::variant<NumericPattern, DatePattern, StringPattern, WordPair, GeneralNumber>;

    Form form;
    bool named; ///< a named format prints nothing for Null and Empty
};

/// \param pattern  not empty; characters beyond the 257th are ignored
FormatPattern compile_pattern(std::string_view pattern, const RegionalSettings& region);

} // namespace krv::standard
