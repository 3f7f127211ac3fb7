#include "qt/keys.h"

#include "krv/platform/keys.h"
#include "qt/coded_events.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace krv::qt {

namespace {

using KeyPair = std::pair<int, std::int16_t>;

/// Virtual-key codes; the marks above the digits and the punctuation as on a US keyboard.
constexpr std::array<KeyPair, 70> special_keys = {{
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},           {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},       {Qt::Key_Return, 13},       {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},      {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},       {Qt::Key_Pause, 19},        {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},      {Qt::Key_Space, 32},        {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},    {Qt::Key_End, 35},          {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},        {Qt::Key_Up, 38},           {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},        {Qt::Key_Select, 41},       {Qt::Key_Execute, 43},
    {Qt::Key_Print, 44},       {Qt::Key_Insert, 45},       {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},        {Qt::Key_Meta, 91},         {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},     {Qt::Key_Menu, 93},         {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145}, {Qt::Key_ParenRight, 48},   {Qt::Key_Exclam, 49},
    {Qt::Key_At, 50},          {Qt::Key_NumberSign, 51},   {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53},     {Qt::Key_AsciiCircum, 54},  {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56},    {Qt::Key_ParenLeft, 57},    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},       {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},      {Qt::Key_Less, 188},        {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},      {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},      {Qt::Key_Question, 191},    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},  {Qt::Key_Bar, 220},         {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},  {Qt::Key_QuoteDbl, 222},
    {Qt::Key_VolumeMute, 173}, {Qt::Key_VolumeDown, 174},  {Qt::Key_VolumeUp, 175},
    {Qt::Key_Sleep, 95},
}};

constexpr std::int16_t other_character = 223; ///< OEM_8: a character key of some other keyboard

std::int16_t keypad_code(int key) {
    switch (key) {
    case Qt::Key_Asterisk:
        return 106;
    case Qt::Key_Plus:
        return 107;
    case Qt::Key_Minus:
        return 109;
    case Qt::Key_Period:
    case Qt::Key_Comma:
        return 110;
    case Qt::Key_Slash:
        return 111;
    default:
        return key >= Qt::Key_0 && key <= Qt::Key_9
                   ? static_cast<std::int16_t>(96 + (key - Qt::Key_0))
                   : std::int16_t{0};
    }
}

std::int16_t special_code(int key) {
    const auto found = std::find_if(special_keys.begin(),
                                    special_keys.end(),
                                    [key](const KeyPair& pair) { return pair.first == key; });
    return found == special_keys.end() ? std::int16_t{0} : found->second;
}

} // namespace

std::int16_t key_code(const QKeyEvent& event) {
    if (const CodedKeyEvent* sent = coded(event)) {
        return sent->code();
    }
    const int key = event.key();
    if ((event.modifiers() & Qt::KeypadModifier) != 0) {
        if (const std::int16_t code = keypad_code(key)) {
            return code;
        }
    }
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) {
        return static_cast<std::int16_t>(key);
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return static_cast<std::int16_t>(112 + (key - Qt::Key_F1));
    }
    if (const std::int16_t code = special_code(key)) {
        return code;
    }
    const bool types = !event.text().isEmpty() && event.text().front().isPrint();
    return types ? other_character : std::int16_t{0};
}

bool is_told(const QKeyEvent& event) {
    return coded(event) != nullptr || key_code(event) != 0;
}

Qt::Key qt_key(std::int16_t code, std::int16_t shift) {
    if (code == platform::key_tab) {
        if ((shift & ~platform::shift_key) != 0) {
            return Qt::Key_unknown; // Qt knows only three modifiers and would walk on
        }
        return (shift & platform::shift_key) != 0 ? Qt::Key_Backtab : Qt::Key_Tab;
    }
    if ((code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z')) {
        return static_cast<Qt::Key>(code);
    }
    if (code >= platform::key_f1 && code < platform::key_f1 + 24) {
        return static_cast<Qt::Key>(Qt::Key_F1 + (code - platform::key_f1));
    }
    const auto found = std::find_if(special_keys.begin(),
                                    special_keys.end(),
                                    [code](const KeyPair& pair) { return pair.second == code; });
    return found == special_keys.end() ? Qt::Key_unknown : static_cast<Qt::Key>(found->first);
}

std::int16_t shift_state(Qt::KeyboardModifiers modifiers) {
    int state = 0;
    state += (modifiers & Qt::ShiftModifier) != 0 ? 1 : 0;
    state += (modifiers & Qt::ControlModifier) != 0 ? 2 : 0;
    state += (modifiers & Qt::AltModifier) != 0 ? 4 : 0;
    return static_cast<std::int16_t>(state);
}

std::int16_t shift_state(const QKeyEvent& event) {
    const CodedKeyEvent* const sent = coded(event);
    return sent != nullptr ? sent->shift() : shift_state(event.modifiers());
}

std::int16_t shift_state(const QMouseEvent& event) {
    const CodedMouseEvent* const sent = coded(event);
    return sent != nullptr ? sent->codes().shift : shift_state(event.modifiers());
}

std::int16_t button_code(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

std::int16_t button_code(const QMouseEvent& event) {
    const CodedMouseEvent* const sent = coded(event);
    return sent != nullptr ? sent->codes().button : button_code(event.button());
}

bool is_tab(const QKeyEvent& event) {
    const bool plain = (shift_state(event) & ~platform::shift_key) == 0;
    return plain && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}

} // namespace krv::qt
