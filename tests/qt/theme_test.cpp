#include "krv/qt/colors.h"
#include "krv/qt/grid_view.h"
#include "qt/contrast.h"
#include "qt/picture.h"
#include "qt/widget_fixture.h"

#include <QLineEdit>
#include <QPushButton>

namespace krv::qt::testing {

namespace {

constexpr double readable = 4.5;
constexpr double noticeable = 2.0;

QPalette dark_palette() {
    const QColor window(0x2b, 0x2b, 0x2b);
    const QColor base(0x1e, 0x1e, 0x1e);
    const QColor text(0xe6, 0xe6, 0xe6);
    QPalette palette(text, window, window.lighter(150), window.darker(150), window, text, base);
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ButtonText, text);
    return palette;
}

/// A palette of the program for as long as a test runs.
class Theme : public WidgetTest, public ::testing::WithParamInterface<bool> {
protected:
    Theme() {
        if (GetParam()) {
            QApplication::setPalette(dark_palette());
        }
        fill(20);
        show_every_part();
        widget->resize(600, 300);
        widget->show();
        turn();
    }

    ~Theme() override {
        widget.reset();
        QApplication::setPalette(QPalette());
    }

    void show_every_part() {
        const Constituents parts = widget->constituents();
        for (platform::Part* const part : widget->container().Controls()) {
            part->SetVisible(true);
        }
        parts.GridIn.SetTextMatrix(1, 1, "123");
        parts.InpFld.Move(0, parts.GridIn.Top() + 240, 960, 240);
        parts.InpFld.SetText("testo");
        list().EvidenziaFunzione(1);
    }

    QRect place_of(const char* name) { return part(name).geometry(); }

    double contrast_at(const QRect& area) { return contrast_in(drawn(*widget), area); }
};

class Repainting : public WidgetTest {
protected:
    ~Repainting() override {
        widget.reset();
        QApplication::setPalette(QPalette());
    }
};

} // namespace

TEST_P(Theme, texts_of_the_list_and_the_input_line_are_readable) {
    const auto& grid = part<GridView>("Grid");
    const auto& grid_in = part<GridView>("GridIn");
    const auto at = [](const GridView& view, int row, int col) {
        return inside(view.cell_rect(row, col)).translated(view.pos());
    };
    EXPECT_GE(contrast_at(at(grid, 0, 0)), readable) << "caption";
    EXPECT_GE(contrast_at(at(grid, 3, 0)), readable) << "cell";
    list().SetRow(1);
    turn();
    // The theme's own choice, which may be less readable than ours.
    const QPalette theme = widget->palette();
    EXPECT_GE(
        contrast_at(at(grid, 2, 0)),
        0.9 * contrast(theme.color(QPalette::Highlight), theme.color(QPalette::HighlightedText)))
        << "selected cell";
    EXPECT_GE(contrast_at(at(grid_in, 0, 0)), readable) << "caption of the input line";
    EXPECT_GE(contrast_at(at(grid_in, 1, 1)), readable) << "input line";
}

TEST_P(Theme, texts_of_editor_and_buttons_are_readable) {
    EXPECT_GE(contrast_at(place_of("InpFld").adjusted(2, 2, -2, -2)), readable);
    for (const char* name : {"btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"}) {
        EXPECT_GE(contrast_at(place_of(name).adjusted(3, 3, -3, -3)), readable) << name;
    }
}

TEST_P(Theme, texts_of_coloured_buttons_are_readable) {
    for (const uint color : {0x0000FFU, 0x00FFFFU, 0xFF0000U, 0x808080U, 0x8000000DU, 0xFFFFFFU}) {
        widget->SetDeleteColor(color);
        EXPECT_GE(contrast_at(place_of("btnDelete").adjusted(3, 3, -3, -3)), readable) << color;
    }
}

TEST_P(Theme, the_highlight_line_stands_out_from_its_button_and_the_surface) {
    const QRect line = place_of("Line1");
    EXPECT_EQ(line.left(), place_of("btnAdd").left());
    EXPECT_EQ(line.width(), place_of("btnAdd").width());
    const QImage picture = drawn(*widget);
    const QColor color = picture.pixelColor(line.center());
    EXPECT_GE(contrast(color, picture.pixelColor(line.right() + 20, line.bottom())), noticeable);
    EXPECT_GE(contrast(color, picture.pixelColor(line.left() + 10, line.top() - 4)), noticeable);
}

TEST_P(Theme, a_highlighted_button_is_seen_beside_the_others) {
    widget->SetEvidenziaColor(0x0080FF);
    list().EvidenziaFunzione(3);
    const QImage picture = drawn(*widget);
    const auto face = [&](const char* name) {
        return picture.pixelColor(place_of(name).topLeft() + QPoint(6, 6));
    };
    EXPECT_NE(face("btnDelete"), face("btnCopy"));
    EXPECT_EQ(face("btnAdd"), face("btnCopy"));
}

INSTANTIATE_TEST_SUITE_P(Light, Theme, ::testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Dark, Theme, ::testing::Values(true));

TEST_F(Repainting, another_palette_of_the_program_reaches_every_part) {
    QApplication::setPalette(dark_palette());
    fill(3);
    for (platform::Part* const each : widget->container().Controls()) {
        each->SetVisible(true);
    }
    widget->SetCopyColor(0x8000000D);
    widget->show();
    turn();
    const QImage expected = on_screen(*widget);

    QApplication::setPalette(QPalette());
    turn();
    EXPECT_NE(on_screen(*widget), expected);
    QApplication::setPalette(dark_palette());
    turn();
    EXPECT_EQ(on_screen(*widget), expected);
}

TEST_F(Repainting, another_style_of_the_program_reaches_every_part) {
    fill(3);
    widget->show();
    turn();
    const QImage fusion = on_screen(*widget);
    QApplication::setStyle("Windows");
    turn();
    EXPECT_NE(on_screen(*widget), fusion);
    EXPECT_EQ(on_screen(*widget), drawn(*widget));
    QApplication::setStyle("Fusion");
    turn();
    EXPECT_EQ(on_screen(*widget), fusion);
}

TEST_F(Repainting, back_color_is_the_surface) {
    widget->show();
    widget->SetOkVisible(false);
    const QPoint beside_the_buttons(widget->width() - 10, widget->height() - 10);
    widget->SetBackColor(0x00C8A0);
    turn();
    EXPECT_EQ(on_screen(*widget).pixelColor(beside_the_buttons), QColor(0xA0, 0xC8, 0x00));
    QPalette palette;
    palette.setColor(QPalette::Highlight, QColor(9, 8, 7));
    widget->setPalette(palette);
    widget->SetBackColor(0x8000000D);
    turn();
    EXPECT_EQ(on_screen(*widget).pixelColor(beside_the_buttons), QColor(9, 8, 7));
}

TEST_F(Repainting, captions_stay_within_their_buttons_at_the_least_size) {
    widget->resize(widget->minimumSizeHint());
    widget->SetAddColor(0xFFFFFF); // a plain face: whatever differs from it is text
    widget->show();
    for (const char* caption : {"aggiungi", "una didascalia troppo lunga"}) {
        widget->SetAddCaption(caption);
        turn();
        QWidget& button = part("btnAdd");
        const QRect face = button.rect().adjusted(2, 2, -2, -2);
        const QRect text = ink(drawn(button), face);
        EXPECT_GT(text.left(), face.left()) << caption;
        EXPECT_LT(text.right(), face.right()) << caption;
        EXPECT_GT(text.width(), face.width() / 2) << caption;
    }
}

TEST_F(Repainting, a_disabled_coloured_button_has_a_fainter_text) {
    widget->SetAddColor(0x0000FF);
    const QPalette palette = part("btnAdd").palette();
    const QColor face = palette.color(QPalette::Active, QPalette::Button);
    EXPECT_LT(contrast(palette.color(QPalette::Disabled, QPalette::ButtonText), face),
              contrast(palette.color(QPalette::Active, QPalette::ButtonText), face));
}

TEST_F(Repainting, a_button_in_the_face_colour_takes_everything_from_the_palette) {
    const QPalette before = part("btnAdd").palette();
    widget->SetAddColor(0x0000FF);
    EXPECT_NE(part("btnAdd").palette(), before);
    widget->SetAddColor(platform::button_face_color);
    EXPECT_EQ(part("btnAdd").palette(), before);
}

} // namespace krv::qt::testing
