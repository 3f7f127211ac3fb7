#include "standard/formatter_support.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <vector>

namespace krv::standard {
namespace {

using namespace testing_support;
using platform::ValueView;

/// Builds texts from the characters and words that patterns and values are made of.
class TextMaker {
public:
    explicit TextMaker(std::uint64_t seed)
        : random_(seed) {}

    std::string text(const std::vector<std::string_view>& pieces, std::size_t greatest) {
        std::string result;
        for (std::size_t left = below(greatest + 1); left > 0; --left) {
            if (below(40) == 0) {
                result += static_cast<char>(below(256));
            } else {
                result += pieces[below(pieces.size())];
            }
        }
        return result;
    }

    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }

    std::uint64_t bits() { return random_(); }

private:
    std::mt19937_64 random_;
};

const std::vector<std::string_view> pattern_pieces = {
    "0",    "#",   ".",    ",",  "%",   "E+",    "e-",    "E",     "@",          "&",
    "<",    ">",   "!",    ";",  "\"",  "\\",    "/",     ":",     "d",          "dd",
    "m",    "mmm", "yyyy", "y",  "h",   "hh",    "nn",    "s",     "AM/PM",      "a/p",
    "AMPM", "c",   "q",    "ww", "aaa", "ttttt", "ddddd", "[",     "]",          "$",
    "(",    ")",   " ",    "x",  "é",   "€",     "0.00",  "#,##0", "dd/mm/yyyy", "1"};

const std::vector<std::string_view> text_pieces = {
    "0", "1",   "2",    "5",    "9",   "12",  "31", "2024", "1899", "/",      "-", ".", ",",
    ":", " ",   "%",    "€",    "$",   "(",   ")",  "E",    "D5",   "&H",     "F", "+", "AM",
    "P", "mar", "Mar.", "März", "Tue", "dom", "\t", "\n",   "007",  "\u00A0", "x", "é", "1e5"};

std::vector<ValueView> values_of(TextMaker& maker, const std::string& text) {
    const auto bits = maker.bits();
    return {ValueView::null(),
            ValueView(),
            ValueView::boolean(true),
            ValueView::long_long(std::bit_cast<std::int64_t>(bits)),
            ValueView::double_float(std::bit_cast<double>(bits)),
            ValueView::double_float(static_cast<double>(bits % 100'000'000) / 100 - 250'000),
            ValueView::single(std::bit_cast<float>(static_cast<std::uint32_t>(bits))),
            ValueView::currency({std::bit_cast<std::int64_t>(bits)}),
            ValueView::decimal({bits,
                                static_cast<std::uint32_t>(bits >> 7),
                                static_cast<std::uint8_t>(bits % 29),
                                (bits & 1) != 0}),
            ValueView::date({static_cast<double>(bits % 3'800'000) - 700'000 + 0.25}),
            ValueView::text(text)};
}

/// Everything that the formatter offers, with the one error that each of them may give.
void use(const ValueFormatter& formatter, ValueView value, const std::string& pattern) {
    std::string text = "old";
    const auto allow = [&](auto act) {
        const auto number = error_of(act);
        ASSERT_TRUE(number == 0 || number == 6 || number == 13 || number == 94) << number;
    };
    allow([&] {
        formatter.Format(value, pattern, text);
        ASSERT_LT(text.size(), 200'000U);
        std::string again;
        formatter.Format(value, pattern, again);
        ASSERT_EQ(text, again);
    });
    allow([&] { formatter.CStr(value, text); });
    allow([&] { formatter.Str(value, text); });
    allow([&] { formatter.CInt(value); });
    allow([&] { formatter.CLng(value); });
    allow([&] { formatter.CDbl(value); });
    allow([&] { formatter.CCur(value); });
    allow([&] { formatter.CDate(value); });
}

/// Everything empty, the same, or longer than a region would have it.
std::vector<RegionalSettings> odd_regions() {
    RegionalSettings bare = regional_settings("en-US");
    bare.decimal_separator = bare.thousands_separator = bare.currency_symbol = "";
    bare.date_separator = bare.time_separator = bare.currency_format = "";
    bare.short_date = bare.long_date = bare.long_time = "";
    bare.months = {};
    RegionalSettings alike = regional_settings("it-IT");
    alike.decimal_separator = alike.thousands_separator = alike.currency_symbol = ".";
    alike.date_separator = alike.time_separator = ".";
    alike.short_date = alike.long_time = "c ddddd ttttt";
    RegionalSettings wordy = regional_settings("de-DE");
    wordy.decimal_separator = wordy.date_separator = std::string(300, '.');
    wordy.thousands_separator = wordy.pm = wordy.weekdays[3] = std::string(90, 'x');
    return {bare, alike, wordy};
}

TEST(FormatterFuzz, no_pattern_and_no_text_breaks_the_formatter) {
    TextMaker maker(19'991'231);
    std::vector<RegionalSettings> regions = odd_regions();
    for (const char* region : {"it-IT", "en-US", "de-DE", "fr-FR", "C"}) {
        regions.push_back(regional_settings(region));
    }
    for (const RegionalSettings& region : regions) {
        const ValueFormatter formatter(region, [] { return date(45458); });
        for (int turn = 0; turn < 1'000; ++turn) {
            const std::string pattern = maker.text(pattern_pieces, turn % 50 == 0 ? 400 : 12);
            const std::string text = maker.text(text_pieces, turn % 50 == 0 ? 300 : 8);
            for (const ValueView value : values_of(maker, text)) {
                ASSERT_NO_FATAL_FAILURE(use(formatter, value, pattern)) << pattern << '|' << text;
            }
            formatter.is_number(text);
            error_of([&] { formatter.Val(text); });
        }
    }
}

TEST(FormatterFuzz, plain_text_of_a_number_is_read_back_as_the_same_plain_text) {
    TextMaker maker(5'031'899);
    for (const char* region : {"it-IT", "en-US", "en-GB", "de-DE", "fr-FR", "C"}) {
        const ValueFormatter& formatter = formatter_of(region);
        for (int turn = 0; turn < 20'000; ++turn) {
            const auto value =
                static_cast<double>(static_cast<std::int64_t>(maker.bits()) >> maker.below(63)) /
                std::pow(10.0, static_cast<double>(maker.below(12)));
            const std::string plain = formatter.CStr(view(value));
            ASSERT_EQ(formatter.Format(view(std::string_view(plain)), ""), plain) << region;
        }
    }
}

TEST(FormatterFuzz, very_long_texts_come_out_as_they_are) {
    const ValueFormatter& formatter = formatter_of("it-IT");
    const std::string nines(1'000'000, '9');
    const std::string points(1'000'000, '.');
    for (const std::string& text : {nines, "-" + points, nines + "/1", "5/3" + points}) {
        for (const char* pattern : {"", "0.00", "dd/mm/yyyy"}) {
            EXPECT_EQ(formatter.Format(view(std::string_view(text)), pattern), text);
        }
    }
    const std::string one = "1" + points;
    const std::string nearly_one = "0," + nines;
    EXPECT_EQ(formatter.Format(view(std::string_view(one)), "0.0"), "1,0");
    EXPECT_EQ(formatter.Format(view(std::string_view(nearly_one)), "0.0"), "1,0");
}

} // namespace
} // namespace krv::standard
