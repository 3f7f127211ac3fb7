#pragma once

#include <cstdint>

namespace krv::platform {

// Codes of the keys that parts and the control act on, and the modifiers, which are added together.

inline constexpr std::int16_t key_backspace = 8;
inline constexpr std::int16_t key_tab = 9;
inline constexpr std::int16_t key_enter = 13;
inline constexpr std::int16_t key_escape = 27;
inline constexpr std::int16_t key_space = 32;
inline constexpr std::int16_t key_page_up = 33;
inline constexpr std::int16_t key_page_down = 34;
inline constexpr std::int16_t key_end = 35;
inline constexpr std::int16_t key_home = 36;
inline constexpr std::int16_t key_left = 37;
inline constexpr std::int16_t key_up = 38;
inline constexpr std::int16_t key_right = 39;
inline constexpr std::int16_t key_down = 40;
inline constexpr std::int16_t key_delete = 46;
inline constexpr std::int16_t key_v = 86;
inline constexpr std::int16_t key_f1 = 112;
inline constexpr std::int16_t key_f12 = 123;
/// A character that no key of its own stands for.
inline constexpr std::int16_t key_packet = 231;

inline constexpr std::int16_t shift_key = 1;
inline constexpr std::int16_t ctrl_key = 2;

} // namespace krv::platform
