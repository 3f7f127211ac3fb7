#include "krv/qt/resolution.h"

#include <gtest/gtest.h>

#include <limits>

namespace krv::qt {

TEST(Resolutions, fifteen_twips_are_a_pixel_at_96_dots_per_inch) {
    const Resolution resolution(96);
    EXPECT_EQ(resolution.px(240), 16);
    EXPECT_EQ(resolution.px(-30), -2);
    EXPECT_DOUBLE_EQ(resolution.twips(16), 240);
}

TEST(Resolutions, follow_the_screens_dots_per_inch) {
    EXPECT_EQ(Resolution(144).px(240), 24);
    EXPECT_EQ(Resolution(110).px(240), 18);
}

TEST(Resolutions, halves_of_a_pixel_go_to_the_even_one) {
    const Resolution resolution(720);
    EXPECT_EQ(resolution.px(1), 0);
    EXPECT_EQ(resolution.px(3), 2);
    EXPECT_EQ(resolution.px(5), 2);
}

TEST(Resolutions, places_too_far_away_are_clipped) {
    EXPECT_EQ(Resolution(96).px(std::numeric_limits<double>::max()), 2'000'000'000);
    EXPECT_EQ(Resolution(96).px(-1e300), -2'000'000'000);
}

TEST(Resolutions, whole_pixels_survive_the_way_to_twips_and_back) {
    for (const double dots : {72.0, 96.0, 110.0, 120.0, 144.0, 163.0}) {
        const Resolution resolution(dots);
        for (int px = 0; px < 5000; ++px) {
            ASSERT_EQ(resolution.px(static_cast<double>(std::lrint(resolution.twips(px)))), px);
        }
    }
}

} // namespace krv::qt
