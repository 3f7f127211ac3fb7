#pragma once

#include <cstdint>

namespace krv::headless {

// The platform's key codes and modifiers, as far as a part acts on them by itself.

inline constexpr std::int16_t key_backspace = 8;
inline constexpr std::int16_t key_tab = 9;
inline constexpr std::int16_t key_enter = 13;
inline constexpr std::int16_t key_space = 32;
inline constexpr std::int16_t key_end = 35;
inline constexpr std::int16_t key_home = 36;
inline constexpr std::int16_t key_left = 37;
inline constexpr std::int16_t key_right = 39;
inline constexpr std::int16_t key_delete = 46;
inline constexpr std::int16_t key_v = 86;
/// A character that no key of its own stands for.
inline constexpr std::int16_t key_packet = 231;

inline constexpr std::int16_t shift_key = 1;
inline constexpr std::int16_t ctrl_key = 2;

} // namespace krv::headless
