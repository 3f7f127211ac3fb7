#include "qt/grid_fixture.h"

#include <QPainter>

namespace krv::qt::testing {

namespace {

class GridPainting : public GridTest {
protected:
    /// Where the text of a cell is drawn, from the cell's left edge.
    QRect ink_of(int row, int col) {
        return ink(picture(), cell(row, col)).translated(-cell(row, col).topLeft());
    }
};

const char* const wide_text = "a text that is far too long for its cell";

} // namespace

TEST_F(GridPainting, a_text_is_seen_and_an_empty_cell_is_not) {
    grid.AddItem("text\t\tmore");
    EXPECT_FALSE(ink_of(1, 0).isNull());
    EXPECT_TRUE(ink_of(1, 1).isNull());
    EXPECT_FALSE(ink_of(1, 2).isNull());
}

TEST_F(GridPainting, a_changed_text_is_drawn_anew) {
    add_rows(1);
    const QImage before = picture();
    grid.SetTextMatrix(1, 1, "other");
    const QImage after = picture();
    EXPECT_EQ(before.copy(cell(1, 0)), after.copy(cell(1, 0)));
    EXPECT_NE(before.copy(cell(1, 1)), after.copy(cell(1, 1)));
}

TEST_F(GridPainting, alignment_places_the_text_across_the_cell) {
    grid.AddItem("mm\tmm\tmm");
    grid.SetColAlignment(0, 1);
    grid.SetColAlignment(1, 4);
    grid.SetColAlignment(2, 7);
    const QRect left = ink_of(1, 0);
    const QRect centre = ink_of(1, 1);
    const QRect right = ink_of(1, 2);
    EXPECT_NEAR(left.left(), 4, 1);
    EXPECT_NEAR(centre.center().x(), 39, 1);
    EXPECT_NEAR(right.right(), 74, 1);
    EXPECT_EQ(left.width(), right.width());
}

TEST_F(GridPainting, alignment_places_the_text_down_the_cell) {
    grid.AddItem("mm\tmm\tmm");
    grid.SetRowHeight(1, 900);
    grid.SetColAlignment(0, 0 + 6);
    grid.SetColAlignment(1, 7);
    grid.SetColAlignment(2, 8);
    const int top = ink_of(1, 0).center().y();
    const int centre = ink_of(1, 1).center().y();
    const int bottom = ink_of(1, 2).center().y();
    EXPECT_LT(top, 16);
    EXPECT_NEAR(centre, 31, 3);
    EXPECT_GT(bottom, 44);
}

TEST_F(GridPainting, general_alignment_puts_numbers_on_the_right_and_texts_on_the_left) {
    view.set_number_test([](std::string_view text) { return text == "12"; });
    grid.AddItem("12\t12\tx2");
    grid.SetColAlignment(0, 9);
    grid.SetColAlignment(1, 0);
    grid.SetColAlignment(2, 0);
    EXPECT_GT(ink_of(1, 0).left(), 40);
    EXPECT_GT(ink_of(1, 1).left(), 40);
    EXPECT_LT(ink_of(1, 2).left(), 10);
}

TEST_F(GridPainting, a_text_is_asked_once_whether_it_is_a_number) {
    int asked = 0;
    view.set_number_test([&](std::string_view text) {
        asked += text == "12" ? 1 : 0;
        return true;
    });
    grid.AddItem("12\t12\t12");
    grid.AddItem("12\t12\t12");
    picture();
    picture();
    EXPECT_EQ(asked, 1);
}

TEST_F(GridPainting, a_text_too_wide_is_shortened_and_stays_in_its_cell) {
    grid.AddItem("");
    const QImage empty = picture();
    grid.SetTextMatrix(1, 1, wide_text);
    const QImage filled = picture();
    EXPECT_EQ(empty.copy(cell(1, 0)), filled.copy(cell(1, 0)));
    EXPECT_EQ(empty.copy(cell(1, 2)), filled.copy(cell(1, 2)));
    const QRect text = ink(filled, cell(1, 1)).translated(-cell(1, 1).topLeft());
    EXPECT_GT(text.right(), 60);
    EXPECT_LE(text.right(), 75);
}

TEST_F(GridPainting, a_column_too_narrow_for_an_ellipsis_shows_nothing) {
    grid.AddItem(wide_text);
    grid.SetColWidth(0, 180);
    EXPECT_TRUE(ink_of(1, 0).isNull());
}

TEST_F(GridPainting, texts_of_other_scripts_and_line_ends_are_drawn_in_one_row) {
    grid.AddItem("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D\tone\ntwo\t\xF0\x9F\x8D\xA6");
    EXPECT_FALSE(ink_of(1, 0).isNull());
    EXPECT_FALSE(ink_of(1, 1).isNull());
    EXPECT_LT(ink_of(1, 1).height(), 16);
    EXPECT_FALSE(ink_of(1, 2).isNull());
}

TEST_F(GridPainting, bytes_that_are_no_text_are_drawn_as_replacements) {
    grid.AddItem("a\xFF\xC3");
    EXPECT_FALSE(ink_of(1, 0).isNull());
}

TEST_F(GridPainting, a_hidden_column_takes_no_room) {
    add_rows(1);
    grid.SetColWidth(1, 0);
    const QImage with = picture();
    EXPECT_EQ(view.cell_rect(1, 2).left(), 80);
    EXPECT_FALSE(ink(with, cell(1, 2)).isNull());
}

TEST_F(GridPainting, a_hidden_row_takes_no_room) {
    add_rows(3);
    grid.SetRowHeight(2, 0);
    EXPECT_EQ(view.cell_rect(3, 0).top(), view.cell_rect(1, 0).bottom() + 1);
}

TEST_F(GridPainting, the_selected_row_has_the_highlight_colour_in_all_columns) {
    add_rows(3);
    grid.SetRow(2);
    grid.SetColSel(2);
    const QImage selected = picture();
    const QRgb highlight = view.palette().color(QPalette::Highlight).rgb();
    for (int col = 0; col < 3; ++col) {
        EXPECT_EQ(selected.pixel(cell(2, col).topLeft()), highlight);
        EXPECT_NE(selected.pixel(cell(1, col).topLeft()), highlight);
        EXPECT_NE(selected.pixel(cell(3, col).topLeft()), highlight);
    }
}

TEST_F(GridPainting, the_caption_row_is_never_highlighted) {
    add_rows(1);
    grid.SetRow(0);
    grid.SetColSel(2);
    EXPECT_EQ(picture().pixel(cell(0, 0).topLeft()), view.palette().color(QPalette::Button).rgb());
}

TEST_F(GridPainting, colours_follow_a_dark_palette) {
    add_rows(1);
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(20, 20, 30));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    dark.setColor(QPalette::Button, QColor(50, 50, 60));
    view.setPalette(dark);
    const QImage image = picture();
    EXPECT_EQ(image.pixel(cell(1, 0).topLeft()), qRgb(20, 20, 30));
    EXPECT_EQ(image.pixel(cell(0, 0).topLeft()), qRgb(50, 50, 60));
    EXPECT_FALSE(ink(image, cell(1, 0)).isNull());
}

TEST_F(GridPainting, captions_stay_when_rows_scroll) {
    add_rows(100);
    const QImage before = picture();
    grid.set_scroll_y(1000);
    const QImage after = picture();
    const QRect captions(0, 0, 240, 16);
    EXPECT_EQ(before.copy(captions), after.copy(captions));
    EXPECT_NE(before.copy(0, 16, 240, 100), after.copy(0, 16, 240, 100));
}

TEST_F(GridPainting, a_row_half_scrolled_out_is_cut_by_the_captions) {
    add_rows(100);
    const QImage at_rest = picture();
    grid.set_scroll_y(120);
    const QImage scrolled = picture();
    EXPECT_EQ(at_rest.copy(0, 24, 240, 8), scrolled.copy(0, 16, 240, 8));
}

TEST_F(GridPainting, a_high_density_picture_has_the_same_places_and_finer_texts) {
    add_rows(2);
    grid.SetRow(1);
    grid.SetColSel(2);
    turn();
    const QImage plain = drawn(*view.viewport());
    QImage fine(view.viewport()->size() * 2, QImage::Format_RGB32);
    fine.setDevicePixelRatio(2);
    view.viewport()->render(&fine);
    const QRgb highlight = view.palette().color(QPalette::Highlight).rgb();
    const QRect row = view.cell_rect(1, 0);
    EXPECT_EQ(fine.pixel(row.left() * 2, row.top() * 2), highlight);
    EXPECT_NE(fine.pixel(row.left() * 2, row.top() * 2 - 1), highlight);
    fine.setDevicePixelRatio(1);
    const QRect cell_2 = cell(2, 1);
    const QRect small = ink(plain, cell_2).translated(-cell_2.topLeft());
    const QRect large =
        ink(fine, {cell_2.topLeft() * 2, cell_2.size() * 2}).translated(-cell_2.topLeft() * 2);
    EXPECT_NEAR(large.left(), small.left() * 2, 2);
    EXPECT_NEAR(large.width(), small.width() * 2, 4);
    EXPECT_NEAR(large.height(), small.height() * 2, 4);
}

TEST_F(GridPainting, a_fractional_scale_draws_rows_and_texts_too) {
    add_rows(2);
    grid.SetRow(1);
    grid.SetColSel(2);
    turn();
    QImage fine(view.viewport()->size() * 1.5, QImage::Format_RGB32);
    fine.setDevicePixelRatio(1.5);
    view.viewport()->render(&fine);
    fine.setDevicePixelRatio(1);
    const QRgb highlight = view.palette().color(QPalette::Highlight).rgb();
    EXPECT_EQ(fine.pixel(3, 30), highlight);
    EXPECT_NE(fine.pixel(3, 60), highlight);
    EXPECT_FALSE(ink(fine, QRect(120 + 2, 48 + 2, 100, 18)).isNull());
}

TEST_F(GridPainting, letters_stand_where_qt_puts_them) {
    grid.AddItem("AVATAR To.\t1.234,50 \xE2\x82\xAC\tQuantit\xC3\xA0");
    turn();
    // A shift by a part of a pixel makes Qt draw all texts.
    const auto render = [&](double shift) {
        QImage image(view.viewport()->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(shift, 0);
        view.viewport()->render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
        painter.end();
        return image;
    };
    const QImage ours = render(0);
    const QImage qts = render(0.01);
    for (int col = 0; col < 3; ++col) {
        const QRect here = ink(ours, cell(1, col));
        const QRect there = ink(qts, cell(1, col));
        EXPECT_NEAR(here.left(), there.left(), 1) << col;
        EXPECT_NEAR(here.right(), there.right(), 1) << col;
        EXPECT_NEAR(here.top(), there.top(), 1) << col;
        EXPECT_NEAR(here.bottom(), there.bottom(), 1) << col;
    }
}

} // namespace krv::qt::testing
