#include "support/list_test.h"

#include <gtest/gtest.h>

namespace krv {
namespace {

using testing::ListTest;

class Layout : public ListTest {};

TEST_F(Layout, the_parts_are_stacked_and_the_buttons_stand_in_a_row) {
    resize(6000, 3000);
    const Constituents& p = parts();
    EXPECT_EQ(p.Grid.Width(), 6000);
    EXPECT_EQ(p.GridIn.Width(), 6000);
    EXPECT_EQ(p.Grid.Height(), 3000 - 510 - 255 - 20);
    EXPECT_EQ(p.GridIn.Top(), p.Grid.Height());
    EXPECT_EQ(p.btnAdd.Top(), p.GridIn.Top() + 510);
    EXPECT_EQ(p.Line1.Y1(), 2990);
    EXPECT_EQ(p.Line1.Y2(), 2990);
    EXPECT_EQ(p.btnAdd.Left(), 0);
    EXPECT_EQ(p.btnInsert.Left(), 1200);
    EXPECT_EQ(p.btnCopy.Left(), 2400);
    EXPECT_EQ(p.btnDelete.Left(), 3600);
    EXPECT_EQ(p.btnOK.Left(), 4800);
    EXPECT_EQ(p.btnOK.Width(), 1200);
}

TEST_F(Layout, widths_are_computed_in_single_precision) {
    resize(6001, 3000);
    EXPECT_EQ(parts().btnAdd.Width(), (6001.0F + 6001.0F) / 10);
    EXPECT_EQ(parts().btnInsert.Left(), (6001.0F + 6001.0F) / 10);
}

TEST_F(Layout, above_10000_the_function_buttons_stay_at_2000) {
    resize(10000, 3000);
    EXPECT_EQ(parts().btnAdd.Width(), 2000);
    EXPECT_EQ(parts().btnOK.Width(), 2000);
    resize(12000, 3000);
    EXPECT_EQ(parts().btnCopy.Width(), 2000);
    EXPECT_EQ(parts().btnOK.Left(), 8000);
    EXPECT_EQ(parts().btnOK.Width(), 4000);
}

TEST_F(Layout, a_small_control_is_widened_to_its_least_size) {
    resize(4000, 1000);
    EXPECT_EQ(container().Width(), 5055);
    EXPECT_EQ(container().Height(), 1800);
    EXPECT_EQ(parts().Grid.Width(), 5055);
    EXPECT_EQ(parts().Grid.Height(), 1800 - 510 - 255 - 20);
}

TEST_F(Layout, hidden_buttons_keep_their_place) {
    list().SetInsertVisible(false);
    resize(6500, 3000);
    EXPECT_EQ(parts().btnCopy.Left(), 2600);
}

TEST_F(Layout, the_editor_lies_over_its_cell_35_twips_to_the_right_and_wider) {
    list().SetColWidth(0, 1500);
    resize(6000, 3200);
    const Constituents& p = parts();
    EXPECT_EQ(p.InpFld.Left(), 35);
    EXPECT_EQ(p.InpFld.Top(), p.GridIn.Top() + 240);
    EXPECT_EQ(p.InpFld.Width(), 1535);
    EXPECT_EQ(p.InpFld.Height(), 240);
}

TEST_F(Layout, the_widest_column_leaves_the_editor_a_place) {
    list().SetColWidth(0, 2147483647);
    resize(6000, 3200);
    EXPECT_GE(parts().InpFld.Width(), 2147483647.0F);
    EXPECT_EQ(parts().InpFld.Left(), 35);
}

TEST_F(Layout, the_highlight_line_follows_its_button) {
    list().EvidenziaFunzione(2);
    resize(8000, 3000);
    EXPECT_EQ(parts().Line1.X1(), 1600);
    EXPECT_EQ(parts().Line1.X2(), 3200);
}

} // namespace
} // namespace krv
