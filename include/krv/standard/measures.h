#pragma once

#include "krv/platform/error.h"
#include "krv/platform/units.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace krv::standard {

/// Points of every part's font at first.
inline constexpr float default_font_size = 8.25F;

/// \throws RuntimeError 380 for points that are no font size: not above 0, above 2160, or no number
inline void require_font_size(float points, std::string_view source) {
    constexpr float largest = 2160;
    if (!(points > 0 && points <= largest)) {
        throw platform::RuntimeError(platform::error_number::invalid_property_value,
                                     "Invalid property value",
                                     std::string(source));
    }
}

/// Height of a line of text in a font of so many points, in twips: a multiple of 15, alike on every
/// backend, whatever fonts are installed (8.25 points: 195).
inline platform::Twips text_height_twips(float font_size) {
    return static_cast<platform::Twips>(std::lrint(195.0 * font_size / default_font_size / 15.0) *
                                        15);
}

/// A place or size in whole twips, halves to even; beyond 32 bits the nearest number there is.
inline platform::Twips whole_twips(platform::TwipsSingle twips) {
    constexpr platform::TwipsSingle farthest = 2147483520; // the last Single below 2^31
    return static_cast<platform::Twips>(std::lrint(std::clamp(twips, -farthest, farthest)));
}

/// Height of a grid row whose height nobody set: the text and 45 twips around it.
inline platform::Twips default_row_height_twips(float font_size) {
    return text_height_twips(font_size) + 45;
}

} // namespace krv::standard
