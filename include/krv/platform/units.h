#pragma once

#include <cstdint>

namespace krv::platform {

/// Whole position or size: 1440 to the inch, 32-bit signed.
using Twips = std::int32_t;

/// Position or size where fractions of a twip count: single precision.
using TwipsSingle = float;

/// A colour: 0x00BBGGRR, or 0x80000000 plus the number of a system colour (0x8000000F is the
/// button face). Negative as a signed 32-bit value exactly when it is a system colour.
using OleColor = std::uint32_t;

inline constexpr OleColor button_face_color = 0x8000000F;

} // namespace krv::platform
