#include "qt/keys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace krv::qt {

namespace {

std::int16_t
code_of(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    return key_code(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
}

} // namespace

TEST(Keys, have_the_platforms_codes) {
    EXPECT_EQ(code_of(Qt::Key_Tab), 9);
    EXPECT_EQ(code_of(Qt::Key_Backtab, Qt::ShiftModifier), 9);
    EXPECT_EQ(code_of(Qt::Key_Return), 13);
    EXPECT_EQ(code_of(Qt::Key_Enter, Qt::KeypadModifier), 13);
    EXPECT_EQ(code_of(Qt::Key_Escape), 27);
    EXPECT_EQ(code_of(Qt::Key_Left), 37);
    EXPECT_EQ(code_of(Qt::Key_Up), 38);
    EXPECT_EQ(code_of(Qt::Key_Right), 39);
    EXPECT_EQ(code_of(Qt::Key_Down), 40);
    EXPECT_EQ(code_of(Qt::Key_Delete), 46);
    EXPECT_EQ(code_of(Qt::Key_A, Qt::NoModifier, "a"), 65);
    EXPECT_EQ(code_of(Qt::Key_7, Qt::NoModifier, "7"), 55);
    EXPECT_EQ(code_of(Qt::Key_F1), 112);
    EXPECT_EQ(code_of(Qt::Key_F12), 123);
}

TEST(Keys, digits_and_signs_of_the_keypad_have_their_own_codes) {
    EXPECT_EQ(code_of(Qt::Key_7, Qt::KeypadModifier, "7"), 103);
    EXPECT_EQ(code_of(Qt::Key_Plus, Qt::KeypadModifier, "+"), 107);
    EXPECT_EQ(code_of(Qt::Key_Left, Qt::KeypadModifier), 37);
}

TEST(Keys, a_character_of_another_keyboard_is_a_key_and_a_dead_key_is_none) {
    EXPECT_EQ(code_of(Qt::Key_Egrave, Qt::NoModifier, "è"), 223);
    EXPECT_EQ(code_of(Qt::Key_Dead_Acute), 0);
}

TEST(Keys, modifiers_add_up) {
    EXPECT_EQ(shift_state(Qt::NoModifier), 0);
    EXPECT_EQ(shift_state(Qt::ShiftModifier), 1);
    EXPECT_EQ(shift_state(Qt::ControlModifier | Qt::AltModifier), 6);
    EXPECT_EQ(shift_state(Qt::ShiftModifier | Qt::KeypadModifier), 1);
}

TEST(Keys, buttons_have_the_platforms_codes) {
    EXPECT_EQ(button_code(Qt::LeftButton), 1);
    EXPECT_EQ(button_code(Qt::RightButton), 2);
    EXPECT_EQ(button_code(Qt::MiddleButton), 4);
    EXPECT_EQ(button_code(Qt::BackButton), 0);
}

} // namespace krv::qt
