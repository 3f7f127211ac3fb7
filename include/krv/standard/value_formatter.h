#pragma once

#include "krv/platform/formatter.h"
#include "krv/standard/regional_settings.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace krv::standard {

/// Formats and converts values as the classic Basic run time does, by the regional settings that it
/// was made with; it never looks at the locale of the process.
///
/// A pattern is compiled at its first use and kept, so a list that formats a column cell by cell
/// pays for it once. One thread at a time may use a formatter. The texts handed in may be parts of
/// the text that is filled.
///
/// Errors come from "krvList3": 6 overflow, 13 type mismatch, 94 invalid use of Null.
class ValueFormatter final : public platform::Formatter {
public:
    /// Gives today's date.
    using Clock = std::function<platform::Date()>;

    /// \param today  asked for the current year when a text gives only a day and a month; none: the
    ///               system's clock in the local time zone
    explicit ValueFormatter(RegionalSettings settings, Clock today = {});
    ~ValueFormatter() override;
    ValueFormatter(const ValueFormatter&) = delete;
    ValueFormatter& operator=(const ValueFormatter&) = delete;

    const RegionalSettings& settings() const noexcept;

    using Formatter::CDate;
    using Formatter::CStr;
    using Formatter::Format;

    /// \param pattern  UTF-8, of which the first 257 characters count
    void
    Format(platform::ValueView value, std::string_view pattern, std::string& text) const override;

    void CStr(platform::ValueView value, std::string& text) const override;

    double Val(std::string_view text) const override;
    std::int16_t CInt(platform::ValueView value) const override;
    std::int32_t CLng(platform::ValueView value) const override;
    double CDbl(platform::ValueView value) const override;
    std::int64_t CLngLng(platform::ValueView value) const override;
    platform::Currency CCur(platform::ValueView value) const override;
    platform::Decimal CDec(platform::ValueView value) const override;
    platform::Date CDate(platform::ValueView value, std::string_view pattern) const override;

    /// A number with a period in every region, a blank in front unless it is negative, no 0 before
    /// the point: " .5". A Boolean or a date is as by CStr, a text is read as a number first.
    /// \throws RuntimeError 13, 94; 6 for a text that holds too large a number
    void Str(platform::ValueView value, std::string& text) const override;

    std::string Str(platform::ValueView value) const {
        std::string text;
        Str(value, text);
        return text;
    }

    /// True for a text that `Format` reads as a number: digits in regional form, also with a
    /// currency symbol, a percent sign, parentheses. Never fails.
    bool is_number(std::string_view text) const override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace krv::standard
