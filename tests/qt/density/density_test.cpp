#include "krv/qt/grid_view.h"
#include "qt/picture.h"
#include "qt/widget_fixture.h"

#include <QScreen>

namespace krv::qt::testing {

namespace {

/// Sizes of a control of 6000 x 3000 twips whose inch has so many logical pixels.
class Density : public WidgetTest {
protected:
    Density()
        : dots_(widget->logicalDpiX())
        , scale_(widget->devicePixelRatio()) {
        fill(20);
        widget->constituents().GridIn.SetVisible(true);
        list().EvidenziaFunzione(1);
        widget->show();
        turn();
    }

    int px(double twips) const { return static_cast<int>(std::lrint(twips * dots_ / 1440)); }

    int dots_;
    qreal scale_;
};

} // namespace

TEST_F(Density, is_the_one_of_this_run) {
    const bool by_resolution = qEnvironmentVariableIsSet("QT_FONT_DPI");
    EXPECT_EQ(dots_, by_resolution ? 192 : 96);
    EXPECT_EQ(scale_, by_resolution ? 1.0 : 2.0);
}

TEST_F(Density, twips_follow_the_logical_resolution_alone) {
    EXPECT_EQ(widget->size(), QSize(px(6000), px(3000)));
    EXPECT_EQ(widget->sizeHint(), QSize(px(6000), px(3000)));
    EXPECT_EQ(widget->minimumSizeHint(), QSize(px(5055), px(1800)));
    EXPECT_EQ(part("Grid").geometry(), QRect(0, 0, px(6000), px(2215)));
    EXPECT_EQ(part("GridIn").geometry(), QRect(0, px(2215), px(6000), px(2725) - px(2215)));
    EXPECT_EQ(part("btnInsert").geometry().left(), px(1200));
    EXPECT_EQ(list().ButtonsWidth(), 1200.0F);
}

TEST_F(Density, cells_follow_it_too) {
    const auto& view = part<GridView>("Grid");
    EXPECT_EQ(view.cell_rect(1, 1), QRect(px(960), px(240), px(960), px(240)));
}

TEST_F(Density, the_highlight_line_is_as_thick_as_30_twips) {
    EXPECT_EQ(part("Line1").height(), px(30));
    EXPECT_LE(part("Line1").geometry().bottom(), widget->height() - 1);
}

TEST_F(Density, the_picture_has_the_screens_own_pixels) {
    const QPixmap picture = widget->grab();
    EXPECT_EQ(picture.size(), widget->size() * scale_);
}

TEST_F(Density, texts_fit_their_rows) {
    const auto& view = part<GridView>("Grid");
    const QImage picture = drawn(*view.viewport());
    const QRect cell = inside(view.cell_rect(3, 0));
    const QRect device(cell.topLeft() * scale_, cell.size() * scale_);
    const QRect letters = ink(picture, device);
    EXPECT_GT(letters.height(), device.height() / 3);
    EXPECT_GT(letters.top(), device.top());
    EXPECT_LT(letters.bottom(), device.bottom());
}

TEST_F(Density, a_new_size_is_kept_to_the_pixel) {
    for (const QSize size : {QSize(1201, 703), QSize(907, 500)}) {
        widget->resize(size);
        turn();
        EXPECT_EQ(widget->size(), size);
        EXPECT_EQ(part("Grid").width(), size.width());
        EXPECT_EQ(part("btnOK").geometry().right(), size.width() - 1);
    }
}

} // namespace krv::qt::testing
