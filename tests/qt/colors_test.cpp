#include "krv/qt/colors.h"

#include "qt/contrast.h"

#include <gtest/gtest.h>

namespace krv::qt {

TEST(Colors, red_is_the_lowest_byte) {
    EXPECT_EQ(color_from_ole(0x0000FF, QPalette()), QColor(255, 0, 0));
    EXPECT_EQ(color_from_ole(0x00FF8001, QPalette()), QColor(1, 128, 255));
}

TEST(Colors, go_there_and_back) {
    for (const platform::OleColor color : {0x000000U, 0xFFFFFFU, 0x123456U}) {
        EXPECT_EQ(ole_from_color(color_from_ole(color, QPalette())), color);
    }
}

TEST(Colors, system_colours_follow_the_palette) {
    QPalette palette;
    palette.setColor(QPalette::Button, QColor(1, 2, 3));
    palette.setColor(QPalette::Base, QColor(4, 5, 6));
    palette.setColor(QPalette::Highlight, QColor(7, 8, 9));
    EXPECT_EQ(color_from_ole(0x8000000F, palette), QColor(1, 2, 3));
    EXPECT_EQ(color_from_ole(0x80000005, palette), QColor(4, 5, 6));
    EXPECT_EQ(color_from_ole(0x8000000D, palette), QColor(7, 8, 9));
}

TEST(Colors, texts_are_readable_on_every_background) {
    for (int red = 0; red < 256; red += 15) {
        for (int green = 0; green < 256; green += 15) {
            for (int blue = 0; blue < 256; blue += 15) {
                const QColor background(red, green, blue);
                EXPECT_GE(testing::contrast(text_color_on(background), background), 4.5)
                    << background.name().toStdString();
            }
        }
    }
    EXPECT_EQ(text_color_on(Qt::yellow), QColor(Qt::black));
    EXPECT_EQ(text_color_on(Qt::blue), QColor(Qt::white));
}

TEST(Colors, grey_text_is_the_disabled_one) {
    QPalette palette;
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(10, 11, 12));
    EXPECT_EQ(color_from_ole(0x80000011, palette), QColor(10, 11, 12));
}

TEST(Colors, a_number_that_names_no_system_colour_is_the_button_face) {
    for (const int index : {-1, 25, 255}) {
        EXPECT_EQ(system_color_role(index), QPalette::Button);
    }
    EXPECT_EQ(system_color_role(24), QPalette::ToolTipBase);
}

} // namespace krv::qt
