#pragma once

#include <cstdint>

class QKeyEvent;

#include <Qt>

namespace krv::qt {

/// The platform's code of a key: Tab 9, Enter 13, F1 112; 0 for a key that has none.
std::int16_t key_code(const QKeyEvent& event);

/// 1 Shift, 2 Ctrl, 4 Alt, added together.
std::int16_t shift_state(Qt::KeyboardModifiers modifiers);

/// 1 left, 2 right, 4 middle; 0 for any other button.
std::int16_t button_code(Qt::MouseButton button);

/// Tab or Shift+Tab, whatever other modifiers are held.
bool is_tab(const QKeyEvent& event);

} // namespace krv::qt
