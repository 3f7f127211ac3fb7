#pragma once

#include <cstdint>

#include <Qt>

class QKeyEvent;
class QMouseEvent;

namespace krv::qt {

/// The platform's code of a key: Tab 9, Enter 13, F1 112; 0 for a key that has none.
std::int16_t key_code(const QKeyEvent& event);

/// Whether key-down handlers hear of the key: it has a code, or a program sends it.
bool is_told(const QKeyEvent& event);

/// The key of Qt that a code stands for; `Qt::Key_unknown` for none, and for Tab with other modifiers
/// than Shift.
Qt::Key qt_key(std::int16_t code, std::int16_t shift);

/// 1 Shift, 2 Ctrl, 4 Alt, added together.
std::int16_t shift_state(Qt::KeyboardModifiers modifiers);
std::int16_t shift_state(const QKeyEvent& event);
std::int16_t shift_state(const QMouseEvent& event);

/// 1 left, 2 right, 4 middle; 0 for any other button.
std::int16_t button_code(Qt::MouseButton button);
std::int16_t button_code(const QMouseEvent& event);

/// Tab or Shift+Tab: with Ctrl or Alt it is a key like others.
bool is_tab(const QKeyEvent& event);

} // namespace krv::qt
