#pragma once

#include "krv/platform/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::platform {

/// Turns values into texts and texts into numbers, by the regional settings it was made with.
///
/// Weeks start on Sunday, week 1 holds 1 January. Texts are UTF-8. The members that fill `text`
/// replace what it held and allocate nothing beyond its growth, so a caller can reuse one buffer.
class Formatter {
public:
    virtual ~Formatter() = default;

    /// The value formatted by a pattern such as "#,##0.00" or "dd/mm/yyyy"; an empty pattern is
    /// formatting without one: numbers and dates in plain regional form, numeric text as its
    /// number. A text that the pattern cannot take comes out unchanged.
    /// \throws RuntimeError 13 for bytes and objects, 6 for a date outside the years 100 to 9999 and
    ///         for a number outside them under a date pattern
    virtual void Format(ValueView value, std::string_view pattern, std::string& text) const = 0;

    /// The standard value-to-text conversion; a text is its own.
    /// \throws RuntimeError 94 for Null, 13 for bytes and objects, 6 for a date outside the years 100
    ///         to 9999
    virtual void CStr(ValueView value, std::string& text) const = 0;

    /// A number as text with a period in every region and a blank in front unless it is negative.
    /// \throws RuntimeError 13 for what is no number, 94 for Null
    virtual void Str(ValueView value, std::string& text) const = 0;

    /// The number that a text begins with, read in no region ("1,5" is 1); 0 when there is none.
    /// \throws RuntimeError 6 when too large, 13 for a percent sign behind a point or an exponent
    virtual double Val(std::string_view text) const = 0;

    /// Whether the formatter reads the text as a number under the regional settings. Never fails.
    virtual bool is_number(std::string_view text) const = 0;

    // Conversions by the regional settings; halves round to even. Error 13 for what is no number,
    // 6 out of range, 94 for Null.

    virtual std::int16_t CInt(ValueView value) const = 0;
    virtual std::int32_t CLng(ValueView value) const = 0;
    virtual double CDbl(ValueView value) const = 0;

    /// To 64 bits, exactly. \throws RuntimeError 6, 13, 94
    virtual std::int64_t CLngLng(ValueView value) const = 0;

    /// To money: halves of a ten-thousandth round to even. \throws RuntimeError 6, 13, 94
    virtual Currency CCur(ValueView value) const = 0;

    /// To an exact number of at most 28 digits; decimals beyond them are rounded half to even.
    /// \throws RuntimeError 6 for more than 28 digits before the point, 13, 94
    virtual Decimal CDec(ValueView value) const = 0;

    /// To a date: a text is read as a date, else as a serial number; numbers are serial numbers.
    /// \param pattern  the pattern that wrote the text: where it has day, month and year as digits,
    ///                 they are read in its order; empty: by the region alone
    /// \throws RuntimeError 6 outside the years 100 to 9999, 13 for what is no date, 94 for Null
    virtual Date CDate(ValueView value, std::string_view pattern) const = 0;

    Date CDate(ValueView value) const { return CDate(value, {}); }

    std::string Format(ValueView value, std::string_view pattern) const {
        std::string text;
        Format(value, pattern, text);
        return text;
    }

    std::string CStr(ValueView value) const {
        std::string text;
        CStr(value, text);
        return text;
    }
};

} // namespace krv::platform
