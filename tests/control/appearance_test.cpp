#include "support/errors.h"
#include "support/list_test.h"

#include <tuple>

namespace krv {
namespace {

using testing::error_number_of;
using testing::ListTest;
using Names = std::vector<std::string>;

struct AppearanceTest : ListTest {
    std::vector<platform::Button*> buttons() {
        return {&parts().btnAdd,
                &parts().btnInsert,
                &parts().btnDelete,
                &parts().btnCopy,
                &parts().btnOK};
    }

    void SetUp() override {
        ListTest::SetUp();
        changed.clear();
    }
};

TEST_F(AppearanceTest, BackColor_is_the_surfaces_and_notified) {
    list().SetBackColor(0x00102030);
    EXPECT_EQ(container().BackColor(), 0x00102030u);
    EXPECT_EQ(list().BackColor(), 0x00102030u);
    EXPECT_EQ(changed, Names{"BackColor"});
}

TEST_F(AppearanceTest, colours_are_those_of_the_buttons_and_InsertColor_notifies_InserColor) {
    list().SetAddColor(1);
    list().SetInsertColor(2);
    list().SetDeleteColor(3);
    list().SetCopyColor(4);
    list().SetOkColor(5);
    std::vector<platform::OleColor> colors;
    for (const platform::Button* button : buttons()) {
        colors.push_back(button->BackColor());
    }
    EXPECT_EQ(colors, (std::vector<platform::OleColor>{1, 2, 3, 4, 5}));
    EXPECT_EQ(std::tuple(list().AddColor(),
                         list().InsertColor(),
                         list().DeleteColor(),
                         list().CopyColor(),
                         list().OkColor()),
              std::tuple(1u, 2u, 3u, 4u, 5u));
    EXPECT_EQ(changed, (Names{"AddColor", "InserColor", "DeleteColor", "CopyColor", "OkColor"}));
}

TEST_F(AppearanceTest, ButtonsHeight_gives_all_five_the_height_and_lays_out) {
    list().SetButtonsHeight(500);
    for (const platform::Button* button : buttons()) {
        EXPECT_EQ(button->Height(), 500);
        EXPECT_EQ(button->Top(), 3000 - 500 - 20);
    }
    EXPECT_EQ(list().ButtonsHeight(), 500);
    EXPECT_EQ(parts().Grid.Height(), 3000 - 510 - 500 - 20);
    EXPECT_EQ(changed, Names{"ButtonsHeight"});
}

TEST_F(AppearanceTest, ButtonsWidth_is_that_of_the_add_button) {
    EXPECT_EQ(list().ButtonsWidth(), 1200);
    resize(7777, 3000);
    EXPECT_EQ(list().ButtonsWidth(), (7777.0f + 7777.0f) / 10);
}

TEST_F(AppearanceTest, SetFont_sizes_every_part_and_every_row) {
    list().SetRows(3);
    parts().Grid.SetRowHeight(2, 999);
    changed.clear();
    list().SetFont(12);
    // "A" is 195 x 12 / 8.25 = 283.6, rounded to 285 twips high; rows are 1.4 times as high.
    EXPECT_EQ(container().FontSize(), 12);
    std::vector<platform::Twips> heights;
    for (std::int32_t row = 0; row < 4; ++row) {
        heights.push_back(parts().Grid.RowHeight(row));
    }
    EXPECT_EQ(heights, (std::vector<platform::Twips>{399, 399, 399, 399}));
    EXPECT_EQ(std::tuple(parts().GridIn.RowHeight(0), parts().GridIn.RowHeight(1)),
              std::tuple(399, 399));
    EXPECT_EQ(parts().GridIn.Height(), 2 * 399 + 30);
    EXPECT_EQ(parts().InpFld.Height(), 399);
    for (const platform::Part* part : std::initializer_list<const platform::Part*>{
             &parts().Grid, &parts().GridIn, &parts().InpFld, &parts().btnAdd, &parts().btnOK}) {
        EXPECT_EQ(part->FontSize(), 12) << part->Name();
    }
    EXPECT_EQ(changed, Names{});
}

TEST_F(AppearanceTest, SetFont_places_nothing_anew) {
    const auto places = [this] {
        return std::tuple(parts().Grid.Height(),
                          parts().GridIn.Top(),
                          parts().btnAdd.Top(),
                          parts().btnAdd.Height(),
                          parts().Line1.Y1());
    };
    const auto before = places();
    list().SetFont(20);
    EXPECT_EQ(places(), before);
}

TEST_F(AppearanceTest, rows_added_after_SetFont_have_the_fonts_default_height) {
    list().SetFont(12);
    list().SetRows(1);
    EXPECT_EQ(parts().Grid.RowHeight(1), 285 + 45);
}

TEST_F(AppearanceTest, SetFont_0_changes_nothing) {
    list().SetFont(0);
    EXPECT_EQ(container().FontSize(), 8.25f);
    EXPECT_EQ(parts().Grid.RowHeight(0), 240);
    EXPECT_EQ(parts().GridIn.Height(), 510);
}

TEST_F(AppearanceTest, a_font_size_that_cannot_be_is_error_380_and_changes_nothing) {
    EXPECT_EQ(error_number_of([this] { list().SetFont(-1); }), 380);
    EXPECT_EQ(error_number_of([this] { list().SetFont(2161); }), 380);
    EXPECT_EQ(container().FontSize(), 8.25f);
    EXPECT_EQ(parts().GridIn.Height(), 510);
}

TEST_F(AppearanceTest, tab_stops_come_back_when_the_control_loses_the_focus) {
    list().SetMoveWithTab(true);
    parts().Grid.SetTabStop(false);
    parts().btnOK.SetTabStop(false);
    parts().Grid.SetFocus();
    focus_outside();
    EXPECT_TRUE(parts().Grid.TabStop());
    EXPECT_TRUE(parts().btnOK.TabStop());
    EXPECT_FALSE(list().MoveWithTab());
}

TEST_F(AppearanceTest, tab_stops_stay_while_the_focus_is_inside) {
    parts().btnOK.SetTabStop(false);
    parts().Grid.SetFocus();
    application().Yield();
    parts().btnAdd.SetFocus();
    application().Yield();
    EXPECT_FALSE(parts().btnOK.TabStop());
}

} // namespace
} // namespace krv
