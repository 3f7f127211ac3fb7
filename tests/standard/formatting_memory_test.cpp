#include "standard/formatter_support.h"
#include "support/scarce_memory.h"

#include <gtest/gtest.h>

namespace krv::standard {
namespace {

using namespace testing_support;

/// Whether formatting asks for memory once pattern and buffer are there.
bool allocates(platform::ValueView value, std::string_view pattern) {
    const platform::Formatter& formatter = formatter_of("it-IT");
    std::string text(1000, ' ');
    formatter.Format(value, pattern, text);
    const krv::testing::ScarceMemory none(0);
    try {
        formatter.Format(value, pattern, text);
        formatter.CStr(value, text);
    } catch (const std::bad_alloc&) {
        return true;
    }
    return false;
}

TEST(FormattingMemory, none_is_asked_for_once_pattern_and_buffer_are_there) {
    const platform::ValueView values[] = {view(1234.5),
                                          view(1.0 / 3),
                                          view(1.005),
                                          view(1e300),
                                          view(0.1F),
                                          view(-7),
                                          view(true),
                                          view(platform::Currency{12345678}),
                                          view(platform::Decimal{~std::uint64_t{0}, 7, 5, true}),
                                          view(date(45356.5)),
                                          view("a text longer than the inside of a short string"),
                                          view("1.234.567,50"),
                                          view("")};
    for (const auto value : values) {
        for (const char* pattern :
             {"", "#,##0.00", "0.00E+00", "Currency", "Yes/No", ">", "@-@@"}) {
            EXPECT_FALSE(allocates(value, pattern)) << pattern;
        }
    }
    for (const char* pattern :
         {"dd/mm/yyyy", "dddd d mmmm yyyy", "c", "hh:nn AM/PM", "Long Date"}) {
        EXPECT_FALSE(allocates(view(date(45356.5)), pattern)) << pattern;
        EXPECT_FALSE(allocates(view(45356), pattern)) << pattern;
    }
}

} // namespace
} // namespace krv::standard
