#pragma once

#include "krv/platform/units.h"
#include "krv/qt/resolution.h"
#include "krv/standard/flex_grid_view.h"

#include <QAbstractScrollArea>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace krv::standard {

class FlexGrid;

} // namespace krv::standard

namespace krv::qt {

class GridPainter;

/// What the owner of a `GridView` adds to a person's acts. Everything may destroy the view.
class GridViewOwner {
public:
    /// Runs what a person did; an owner with a queue delivers what waits before and after, and
    /// keeps errors from Qt's event loop.
    virtual void act(const std::function<void()>& what) { what(); }

    /// Whether a press may work; false drops it with its release and click.
    virtual bool press_arrives() { return true; }

    // Places in twips from the grid's top left; buttons and shift states of the platform.

    /// After the press moved the current cell.
    virtual void
    mouse_down(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

    virtual void
    mouse_up(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

    virtual void click(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

    virtual void double_click() {}

    /// Works through a key and lets the view scroll by it, by a code that may be another one.
    /// \return false when the key was swallowed
    virtual bool key_down(const QKeyEvent& event, const std::function<void(std::int16_t)>& scroll);

    /// Whether Tab is a key for `key_down` instead of moving the focus.
    virtual bool tab_arrives() { return false; }

protected:
    ~GridViewOwner() = default;
};

/// Draws a `FlexGrid` and hands it mouse, wheel and scroll keys. It copies nothing: a million rows
/// cost it what a screenful costs. The caption row stays on top; the arrow keys have no action.
///
/// The grid belongs to someone else and outlives the view; it has one view at a time.
class GridView : public QAbstractScrollArea, private standard::FlexGridView {
    Q_OBJECT

public:
    /// Which scroll bars there may be. A grid without them follows another one.
    enum class ScrollBars { as_needed, none };

    explicit GridView(standard::FlexGrid& grid, QWidget* parent = nullptr);
    ~GridView() override;

    standard::FlexGrid& grid() const noexcept { return grid_; }

    /// Not owned; null for a view of its own.
    void set_owner(GridViewOwner* owner) noexcept { owner_ = owner; }

    void set_scroll_bars(ScrollBars bars);

    /// The view's size in twips, exact where its pixels are rounded. None of its own: what its
    /// pixels make.
    void set_size_twips(platform::TwipsSingle width, platform::TwipsSingle height);

    /// The button that was pressed here is no longer held, and nothing follows from that.
    void let_go();

    /// Which texts count as numbers and stand on the right where the alignment is general. It is
    /// asked once a text, not once a drawing.
    void set_number_test(std::function<bool(std::string_view)> is_number);

    /// Twips are converted with this; it follows the screen.
    const Resolution& resolution() const noexcept { return resolution_; }

    /// Tells the grid how much of it is seen: the size without the scroll bars. Called by itself
    /// when the view is resized.
    void sync_view_size();

    /// Width that a scroll bar takes from the columns, in pixels; 0 without one.
    int scroll_bar_width() const;
    /// Leaves so many pixels free on the right, as another view's scroll bar does.
    void set_right_margin(int px);

    /// Where a cell is drawn, in the viewport's pixels; also outside of it.
    QRect cell_rect(std::int32_t row, std::int32_t col) const;
    /// Row and column drawn at a point of the viewport; -1 beside the cells.
    std::int32_t row_at(QPoint point) const;
    std::int32_t col_at(QPoint point) const;

    /// A click of the left button on a row, scrolled into view first.
    /// \return false for a hidden row, which nobody can click
    bool click_row(std::int32_t row);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return {0, 0}; }

signals:
    /// The columns moved by so many twips, to the right when positive.
    void columnsScrolled(qint64 twips);
    /// The part of the view that scroll bars leave has another size.
    void viewSizeChanged();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Pending;
    struct MousePlace;

    void cells_changed(std::int32_t first_row, std::int32_t last_row) override;
    void rows_inserted(std::int32_t first_row, std::int32_t count) override;
    void rows_removed(std::int32_t first_row, std::int32_t count) override;
    void layout_changed() override;
    void selection_changed() override;
    void scrolled() override;

    void plan_flush();
    void flush();
    void flush_accessible();
    void update_changed_rows();
    bool shift_rows();
    void update_rows(std::int32_t first_row, std::int32_t last_row);
    void update_selection();
    void update_scroll_bars();
    bool apply_font_and_screen();
    void press(const MousePlace& place, bool twice);
    void release(const MousePlace& place);
    platform::Twips
    seen_twips(std::optional<platform::TwipsSingle> size, int px, int taken_px) const;
    void scroll_by_px(int dx, int dy);

    standard::FlexGrid& grid_;
    GridViewOwner* owner_ = nullptr;
    Resolution resolution_;
    ScrollBars bars_ = ScrollBars::as_needed;
    int right_margin_ = 0;
    std::optional<platform::TwipsSingle> width_twips_;
    std::optional<platform::TwipsSingle> height_twips_;
    std::unique_ptr<GridPainter> painter_;
    std::unique_ptr<Pending> pending_;
    std::int64_t seen_scroll_x_ = 0;
    std::int64_t seen_scroll_y_ = 0;
    bool in_scroll_bars_ = false;
    bool pressed_ = false;
    std::int16_t pressed_button_ = 0;
    bool click_follows_ = false;
    double wheel_rest_ = 0;
};

} // namespace krv::qt
