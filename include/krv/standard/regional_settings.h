#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace krv::standard {

/// Order of day, month and year in a region's short date.
enum class DateOrder : std::uint8_t { day_month_year, month_day_year, year_month_day };

/// What a region decides about the look and the reading of numbers and dates. Data only, UTF-8; a
/// host may change members of a copy. Patterns are those of the value formatter.
struct RegionalSettings {
    std::string name; ///< "it-IT", "C", or the name of a locale of the C++ library

    std::string decimal_separator;
    std::string thousands_separator; ///< empty: digits are never grouped

    std::string currency_symbol; ///< as read around a number; empty for none
    /// Numeric pattern of two sections, positive and negative: `"$"#,##0.00;("$"#,##0.00)`.
    std::string currency_format;

    DateOrder date_order = DateOrder::year_month_day;
    std::string date_separator;
    std::string time_separator;

    // Date patterns; `ddddd`, `dddddd`, `ttttt` and `c` are plain text in them.
    std::string short_date;
    std::string long_date;
    std::string long_time;

    std::string am; ///< what AMPM prints before noon; may be empty
    std::string pm;

    std::array<std::string, 12> months; ///< January first
    std::array<std::string, 12> short_months;
    std::array<std::string, 7> weekdays; ///< Sunday first
    std::array<std::string, 7> short_weekdays;

    friend bool operator==(const RegionalSettings&, const RegionalSettings&) = default;
};

/// The settings of a region. Built in are "it-IT", "en-US", "en-GB", "de-DE", "fr-FR" and "C" (of
/// no region), also found as "it_IT.UTF-8", "it_IT" or, by the language, "it"; "C.UTF-8" and
/// "POSIX" are "C". Any other name is that of a locale of the C++ library, and its settings are
/// taken from that.
/// \param name  letter case is ignored for the built-in ones
/// \throws RuntimeError 5 for a name that nobody knows
RegionalSettings regional_settings(std::string_view name);

/// The settings that the environment asks for: the first of LC_ALL, LC_NUMERIC, LC_TIME and LANG
/// that is set, "C" when none is or when nobody knows it. Never fails.
RegionalSettings system_regional_settings();

} // namespace krv::standard
