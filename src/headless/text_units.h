#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace krv::headless {

// UTF-8 texts whose lengths and places count UTF-16 code units. A broken sequence counts as one
// unit and is never taken apart, so that any text can be edited and stays as it is elsewhere.

/// UTF-16 code units that a character counts as.
constexpr std::int32_t units_of(char32_t code) noexcept {
    return code > 0xFFFF ? 2 : 1;
}

std::int32_t length_in_units(std::string_view text) noexcept;

/// A place between two characters, in both counts.
struct TextPlace {
    std::size_t byte = 0;
    std::int32_t unit = 0;
};

/// The last place that is not behind `unit` code units; the end when the text is shorter.
TextPlace place_at_or_before(std::string_view text, std::int32_t unit) noexcept;

/// The first place that is not before `unit` code units; the end when the text is shorter.
TextPlace place_at_or_after(std::string_view text, std::int32_t unit) noexcept;

std::u16string to_utf16(std::string_view text);

} // namespace krv::headless
