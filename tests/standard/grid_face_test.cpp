#include "krv/standard/grid_face.h"

#include "standard/grid_fixture.h"

#include "krv/platform/grid.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

using krv::platform::Grid;
using krv::platform::GridEvents;
using krv::platform::TwipsSingle;
using krv::standard::GridFace;
using krv::standard::GridSelection;
using krv::standard::MessageQueue;
using testing::ElementsAre;
using namespace krv::standard::test;

namespace {

// What a backend brings along: a part that only remembers what it is told.
class PlainPart : public Grid {
public:
    explicit PlainPart(std::string name, float width = 0, float height = 0)
        : name_(std::move(name))
        , width_(width)
        , height_(height) {}

    std::string_view Name() const override { return name_; }

    bool Visible() const override { return visible_; }

    void SetVisible(bool visible) override { visible_ = visible; }

    bool Enabled() const override { return enabled_; }

    void SetEnabled(bool enabled) override { enabled_ = enabled; }

    bool TabStop() const override { return tab_stop_; }

    void SetTabStop(bool tab_stop) override { tab_stop_ = tab_stop; }

    TwipsSingle Left() const override { return left_; }

    void SetLeft(TwipsSingle left) override { left_ = left; }

    TwipsSingle Top() const override { return top_; }

    void SetTop(TwipsSingle top) override { top_ = top; }

    TwipsSingle Width() const override { return width_; }

    void SetWidth(TwipsSingle width) override { width_ = width; }

    TwipsSingle Height() const override { return height_; }

    void SetHeight(TwipsSingle height) override { height_ = height; }

    void Move(TwipsSingle left, TwipsSingle top, TwipsSingle width, TwipsSingle height) override {
        left_ = left;
        top_ = top;
        width_ = width;
        height_ = height;
    }

    float FontSize() const override { return font_size_; }

    void SetFontSize(float points) override { font_size_ = points; }

    void SetFocus() override {}

private:
    std::string name_;
    bool visible_ = true;
    bool enabled_ = true;
    bool tab_stop_ = true;
    TwipsSingle left_ = 0;
    TwipsSingle top_ = 0;
    TwipsSingle width_;
    TwipsSingle height_;
    float font_size_ = 8.25F;
};

using PlainGrid = GridFace<PlainPart>;

class CountingEvents final : public GridEvents {
public:
    void RowColChange() override { ++row_col_changes; }

    int row_col_changes = 0;
};

} // namespace

TEST(grid_face, passes_every_member_of_the_grid_on) {
    MessageQueue queue;
    PlainGrid face(queue, GridSelection::by_row, "Grid");
    Grid& grid = face;
    grid.SetCols(3);
    grid.SetRows(4);
    grid.SetTextMatrix(1, 1, "a");
    grid.SetTextArray(2, "caption");
    grid.AddItem("x\ty");
    grid.AddItem("first", 1);
    grid.RemoveItem(3);
    EXPECT_THAT(column_texts(face.flex(), 0), ElementsAre("", "first", "", "", "x"));
    EXPECT_EQ(grid.TextMatrix(2, 1), "a");
    EXPECT_EQ(grid.TextArray(2), "caption");
    grid.SetRow(2);
    grid.SetCol(1);
    grid.SetRowSel(3);
    grid.SetColSel(2);
    EXPECT_THAT((Numbers{grid.Row(), grid.Col(), grid.RowSel(), grid.ColSel()}),
                ElementsAre(2, 1, 3, 2));
    grid.SetColWidth(0, 100);
    grid.SetRowHeight(0, 300);
    grid.SetColAlignment(1, 7);
    EXPECT_THAT((Numbers{grid.ColWidth(0),
                         grid.ColPos(1),
                         grid.RowHeight(0),
                         grid.RowPos(1),
                         grid.ColAlignment(1)}),
                ElementsAre(100, 100, 300, 300, 7));
    grid.SetTopRow(3);
    EXPECT_EQ(grid.TopRow(), 3);
    EXPECT_FALSE(grid.RowIsVisible(1));
    EXPECT_THAT((Numbers{grid.Rows(), grid.Cols()}), ElementsAre(5, 3));
    grid.Clear();
    EXPECT_EQ(grid.TextArray(2), "");
}

TEST(grid_face, errors_carry_the_name_of_the_part) {
    MessageQueue queue;
    PlainGrid grid(queue, GridSelection::free, "GridIn");
    EXPECT_EQ(error_of([&] { grid.SetRow(2); }), "30009 GridIn");
}

TEST(grid_face, the_view_has_the_size_of_the_part) {
    MessageQueue queue;
    PlainGrid grid(queue, GridSelection::by_row, "Grid", 1000.4F, 499.6F);
    const auto size = [&grid] {
        return Numbers{grid.flex().view_width(), grid.flex().view_height()};
    };
    EXPECT_THAT(size(), ElementsAre(1000, 500));
    grid.SetWidth(2000);
    EXPECT_THAT(size(), ElementsAre(2000, 500));
    grid.SetHeight(1500);
    EXPECT_THAT(size(), ElementsAre(2000, 1500));
    grid.Move(5, 5, 700, 800);
    EXPECT_THAT(size(), ElementsAre(700, 800));
    grid.Move(5, 5, -1, -1);
    EXPECT_THAT(size(), ElementsAre(0, 0));
    grid.SetHeight(1e30F);
    EXPECT_EQ(grid.flex().view_height(), 2'147'483'520);
}

TEST(grid_face, the_font_of_the_part_sets_the_default_height) {
    MessageQueue queue;
    PlainGrid grid(queue, GridSelection::by_row, "Grid");
    grid.SetFontSize(16.5F);
    EXPECT_EQ(grid.FontSize(), 16.5F);
    EXPECT_EQ(grid.RowHeight(1), 435);
    EXPECT_EQ(error_of([&] { grid.SetFontSize(0); }), "380 Grid");
    EXPECT_EQ(grid.FontSize(), 16.5F);
    EXPECT_EQ(grid.RowHeight(1), 435);
}

TEST(grid_face, the_listener_hears_of_the_current_cell) {
    MessageQueue queue;
    PlainGrid grid(queue, GridSelection::by_row, "Grid");
    grid.SetRow(1);
    CountingEvents events;
    grid.SetEvents(&events);
    grid.SetRow(0);
    EXPECT_EQ(events.row_col_changes, 1);
    grid.flex().mouse_press(10, 250);
    EXPECT_EQ(events.row_col_changes, 2);
    grid.SetRows(1);
    queue.turn();
    EXPECT_EQ(events.row_col_changes, 3);
    grid.SetRows(2);
    grid.SetEvents(nullptr);
    grid.SetRow(1);
    EXPECT_EQ(events.row_col_changes, 3);
}

TEST(grid_face, a_listener_may_destroy_the_grid) {
    class Destroyer final : public GridEvents {
    public:
        void RowColChange() override { grid.reset(); }

        std::unique_ptr<PlainGrid> grid;
    };

    MessageQueue queue;
    Destroyer events;
    events.grid = std::make_unique<PlainGrid>(queue, GridSelection::by_row, "Grid");
    events.grid->SetEvents(&events);
    events.grid->SetRow(1);
    EXPECT_EQ(events.grid, nullptr);
}
