#include "headless/traced_form.h"

namespace krv::headless {

namespace {

class Surface : public TracedForm {};

} // namespace

TEST(NewControl, stands_with_the_start_measures_of_every_backend) {
    HeadlessForm form;
    HeadlessControl& control = form.add_control(6000, 3000);
    EXPECT_EQ(control.Width(), 6000);
    EXPECT_EQ(control.Height(), 3000);
    EXPECT_EQ(control.FontSize(), 8.25F);
    EXPECT_EQ(control.BackColor(), 0x8000000FU);
    EXPECT_EQ(control.Grid().Left(), 0);
    EXPECT_EQ(control.Grid().Top(), 0);
    EXPECT_EQ(control.GridIn().Left(), 0);
    EXPECT_EQ(control.GridIn().Height(), 510);
    EXPECT_EQ(control.btnAdd().Left(), 0);
    EXPECT_EQ(control.Line1().X1(), -1);
    EXPECT_EQ(control.Line1().X2(), -1);
    EXPECT_EQ(control.Grid().RowHeight(0), 240);
    EXPECT_EQ(control.GridIn().Rows(), 2);
    EXPECT_EQ(control.InpFld().Text(), "");
    EXPECT_EQ(control.InpFld().MaxLength(), 0);
    for (const char* name : {"btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"}) {
        const auto* button = dynamic_cast<HeadlessButton*>(control.part(name));
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->Height(), 255);
        EXPECT_EQ(button->FontSize(), 8.25F);
        EXPECT_EQ(button->BackColor(), 0x8000000FU);
        EXPECT_TRUE(button->TabStop());
    }
}

TEST(NewControl, lists_its_parts_in_tab_order_with_Line1_last) {
    HeadlessForm form;
    Lines names;
    for (const platform::Part* part : form.add_control().Controls()) {
        names.emplace_back(part->Name());
    }
    EXPECT_EQ(names,
              (Lines{"Grid",
                     "GridIn",
                     "InpFld",
                     "btnAdd",
                     "btnInsert",
                     "btnCopy",
                     "btnDelete",
                     "btnOK",
                     "Line1"}));
}

TEST(NewControl, gives_a_KarvoList_each_part_under_its_name) {
    HeadlessForm form;
    const Constituents parts = form.add_control().constituents();
    EXPECT_EQ(parts.Grid.Name(), "Grid");
    EXPECT_EQ(parts.GridIn.Name(), "GridIn");
    EXPECT_EQ(parts.InpFld.Name(), "InpFld");
    EXPECT_EQ(parts.btnAdd.Name(), "btnAdd");
    EXPECT_EQ(parts.btnInsert.Name(), "btnInsert");
    EXPECT_EQ(parts.btnDelete.Name(), "btnDelete");
    EXPECT_EQ(parts.btnCopy.Name(), "btnCopy");
    EXPECT_EQ(parts.btnOK.Name(), "btnOK");
    EXPECT_EQ(parts.Line1.Name(), "Line1");
}

TEST_F(Surface, a_part_is_found_by_its_exact_name) {
    EXPECT_EQ(control->part("InpFld"), &box());
    EXPECT_EQ(control->part("Line1"), &control->Line1());
    EXPECT_EQ(control->part("inpfld"), nullptr);
    EXPECT_EQ(control->part(""), nullptr);
}

TEST_F(Surface, another_size_raises_Resize_inside_the_call) {
    control->SetWidth(7000);
    control->SetHeight(4000);
    EXPECT_EQ(taken(), (Lines{"surface.Resize", "surface.Resize"}));
}

TEST_F(Surface, the_same_size_raises_nothing) {
    control->SetWidth(6000);
    control->SetHeight(3000);
    EXPECT_EQ(taken(), Lines{});
}

TEST_F(Surface, a_resize_by_the_form_is_one_Resize_with_both_sizes) {
    trace.on("surface.Resize", [this] {
        EXPECT_EQ(control->Width(), 7000);
        EXPECT_EQ(control->Height(), 4000);
    });
    person().resize(*control, 7000, 4000);
    EXPECT_EQ(taken(), Lines{"surface.Resize"});
}

TEST_F(Surface, a_resize_by_the_form_gives_a_turn) {
    box().SetFocus();
    person().resize(*control, 7000, 4000);
    EXPECT_EQ(taken(), (Lines{"InpFld.GotFocus", "surface.Resize"}));
}

TEST_F(Surface, a_text_s_height_follows_the_font_in_steps_of_15) {
    std::vector<float> heights;
    for (const float points : {8.25F, 10.0F, 12.0F, 24.0F}) {
        control->SetFontSize(points);
        heights.push_back(control->TextHeight("A"));
    }
    EXPECT_EQ(heights, (std::vector<float>{195, 240, 285, 570}));
}

TEST_F(Surface, changed_properties_are_noted_and_passed_on) {
    Lines told;
    control->set_on_property_changed([&](std::string_view name) { told.emplace_back(name); });
    control->PropertyChanged("Cols");
    control->PropertyChanged("Row");
    EXPECT_EQ(told, (Lines{"Cols", "Row"}));
    EXPECT_EQ(control->changed_properties(), (Lines{"Cols", "Row"}));
    control->clear_changed_properties();
    EXPECT_EQ(control->changed_properties(), Lines{});
}

TEST_F(Surface, repaints_are_counted) {
    control->Repaint();
    control->Repaint();
    EXPECT_EQ(control->repaints(), 2);
}

TEST_F(Surface, parts_keep_their_places_in_twips_with_fractions) {
    box().Move(35.5F, 2240.25F, 995, 240);
    EXPECT_EQ(box().Left(), 35.5F);
    EXPECT_EQ(box().Top(), 2240.25F);
    EXPECT_EQ(box().Width(), 995);
    EXPECT_EQ(box().Height(), 240);
    box().SetLeft(1);
    box().SetTop(2);
    box().SetWidth(3);
    box().SetHeight(4);
    EXPECT_EQ(box().Left() + box().Top() + box().Width() + box().Height(), 10);
}

TEST_F(Surface, the_row_height_follows_the_grid_s_font) {
    control->Grid().SetFontSize(12);
    EXPECT_EQ(control->Grid().FontSize(), 12);
    EXPECT_EQ(control->Grid().RowHeight(1), 330);
}

TEST_F(Surface, a_row_taken_away_from_under_the_current_cell_is_told_in_the_next_turn) {
    control->Grid().SetRow(5);
    taken();
    control->Grid().SetRows(2);
    EXPECT_EQ(taken(), Lines{});
    form.turn();
    EXPECT_EQ(taken(), Lines{"Grid.RowColChange"});
}

TEST_F(Surface, the_two_grids_scroll_sideways_together) {
    control->Grid().SetWidth(1500);
    control->GridIn().SetWidth(1500);
    control->Grid().flex().set_scroll_x(700);
    EXPECT_EQ(control->GridIn().ColPos(1), 260);
    control->GridIn().flex().set_scroll_x(100);
    EXPECT_EQ(control->Grid().ColPos(1), 860);
}

TEST_F(Surface, an_editor_that_is_shown_brings_its_column_into_view) {
    control->Grid().SetWidth(1500);
    control->GridIn().SetWidth(1500);
    box().SetVisible(false);
    box().Move(static_cast<float>(control->GridIn().ColPos(2) + 35), 2240, 995, 240);
    box().SetVisible(true);
    EXPECT_EQ(control->GridIn().ColPos(2), 540);
    EXPECT_EQ(control->Grid().ColPos(2), 540);
    EXPECT_EQ(box().Left(), 575);
}

} // namespace krv::headless
