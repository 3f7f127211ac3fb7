#include "krv/qt/grid_view.h"

#include "krv/standard/flex_grid.h"
#include "krv/standard/measures.h"
#include "qt/accessible_grid.h"
#include "qt/grid_painter.h"
#include "qt/keys.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <limits>
#include <utility>

namespace krv::qt {

namespace {

constexpr std::int32_t last_possible_row = std::numeric_limits<std::int32_t>::max();

const QEvent::Type flush_event = static_cast<QEvent::Type>(QEvent::registerEventType());

/// What is shifted on the screen must lie on the screen's own pixels.
bool shifts_exactly(const QWidget& widget) {
    const double ratio = widget.devicePixelRatioF();
    return ratio == std::floor(ratio);
}

} // namespace

/// What changed since the last time that the screen was brought up to date. Marking is all that
/// a change costs; everything else is done once for all of them.
struct GridView::Pending {
    bool planned = false;
    bool layout = true;
    bool row_count = false;
    bool selection = false;
    /// Rows came or went after cells had changed: the cells' numbers are old ones.
    bool mixed = false;
    std::int32_t first_cell_row = last_possible_row;
    std::int32_t last_cell_row = -1;
    std::int32_t first_moved_row = last_possible_row; ///< from here on rows stand elsewhere
    ModelChanges changes;                             ///< for screen readers

    // What the screen shows.
    std::int32_t selected_first = 0;
    std::int32_t selected_last = 0;
    std::int64_t content_height = 0;

    void add_cells(std::int32_t first, std::int32_t last) {
        first_cell_row = std::min(first_cell_row, first);
        last_cell_row = std::max(last_cell_row, last);
    }

    void add_moved_rows(std::int32_t first) {
        mixed = mixed || last_cell_row >= 0;
        row_count = true;
        first_moved_row = std::min(first_moved_row, first);
    }

    void rows_are_drawn() {
        mixed = false;
        first_cell_row = first_moved_row = last_possible_row;
        last_cell_row = -1;
    }
};

GridView::GridView(standard::FlexGrid& grid, QWidget* parent)
    : QAbstractScrollArea(parent)
    , grid_(grid)
    , resolution_(logicalDpiX())
    , painter_(std::make_unique<GridPainter>(grid))
    , pending_(std::make_unique<Pending>()) {
    install_accessible_grid();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAutoFillBackground(false);
    apply_font_and_screen();
    painter_->set_palette(palette());
    grid_.set_view(this);
    plan_flush();
}

GridView::~GridView() {
    grid_.set_view(nullptr);
}

void GridView::set_scroll_bars(ScrollBars bars) {
    bars_ = bars;
    sync_view_size();
}

void GridView::set_number_test(std::function<bool(std::string_view)> is_number) {
    painter_->set_number_test(std::move(is_number));
    viewport()->update();
}

QSize GridView::sizeHint() const {
    return {resolution_.px(6000), resolution_.px(3000)};
}

// Changes of the grid

void GridView::plan_flush() {
    if (!pending_->planned) {
        pending_->planned = true;
        QCoreApplication::postEvent(this, new QEvent(flush_event));
    }
}

void GridView::cells_changed(std::int32_t first_row, std::int32_t last_row) {
    pending_->add_cells(first_row, last_row);
    plan_flush();
}

void GridView::rows_inserted(std::int32_t first_row, std::int32_t count) {
    pending_->add_moved_rows(first_row);
    pending_->changes.add_insertion(first_row, count);
    plan_flush();
}

void GridView::rows_removed(std::int32_t first_row, std::int32_t count) {
    pending_->add_moved_rows(first_row);
    pending_->changes.add_removal(first_row, count);
    plan_flush();
}

void GridView::layout_changed() {
    pending_->layout = true;
    pending_->changes.add_reset();
    plan_flush();
}

void GridView::selection_changed() {
    pending_->selection = true;
    plan_flush();
}

void GridView::scrolled() {
    const std::int64_t before_x = std::exchange(seen_scroll_x_, grid_.scroll_x());
    const std::int64_t before_y = std::exchange(seen_scroll_y_, grid_.scroll_y());
    const auto shift = [this](std::int64_t before, std::int64_t now) {
        return resolution_.px(static_cast<double>(before)) -
               resolution_.px(static_cast<double>(now));
    };
    if (pending_->layout || pending_->first_moved_row != last_possible_row) {
        // Rows that came or went above the view changed the offset as well, without a call.
        pending_->mixed = true;
        viewport()->update();
    } else {
        scroll_by_px(shift(before_x, seen_scroll_x_), shift(before_y, seen_scroll_y_));
    }
    update_scroll_bars();
    if (before_x != seen_scroll_x_) {
        emit columnsScrolled(before_x - seen_scroll_x_);
    }
}

void GridView::scroll_by_px(int dx, int dy) {
    QWidget* const area = viewport();
    if (dx == 0 && dy == 0) {
        return;
    }
    const int captions = GridGeometry(grid_, resolution_).captions_bottom();
    const QRect body = area->rect().adjusted(0, captions, 0, 0);
    const bool far = std::abs(dx) >= area->width() || std::abs(dy) >= body.height();
    if (far || (dx != 0 && dy != 0) || !shifts_exactly(*this)) {
        area->update();
    } else if (dx != 0) {
        area->scroll(dx, 0, area->rect());
    } else {
        area->scroll(0, dy, body);
    }
}

void GridView::flush() {
    Pending& pending = *pending_;
    pending.planned = false;
    if (std::exchange(pending.row_count, false) || pending.layout) {
        sync_view_size();
    }
    if (pending.layout || pending.first_moved_row == 0) {
        viewport()->update();
    } else {
        update_changed_rows();
    }
    seen_scroll_x_ = grid_.scroll_x();
    seen_scroll_y_ = grid_.scroll_y();
    flush_accessible();
    pending.layout = false;
    pending.rows_are_drawn();
    pending.content_height = grid_.content_height();
    if (std::exchange(pending.selection, false)) {
        update_selection();
    }
}

void GridView::update_changed_rows() {
    const Pending& pending = *pending_;
    if (pending.first_moved_row != last_possible_row && !shift_rows()) {
        update_rows(pending.first_moved_row, last_possible_row);
    }
    if (pending.last_cell_row >= 0) {
        update_rows(pending.first_cell_row, pending.last_cell_row);
    }
}

/// Moves what is on the screen when rows came or went in one place. False when it has to be drawn.
bool GridView::shift_rows() {
    const Pending& pending = *pending_;
    const ModelChanges& changes = pending.changes;
    const bool inserted = changes.kind == ModelChanges::Kind::insertion;
    const std::int64_t twips = grid_.content_height() - pending.content_height;
    const int dy = resolution_.px(static_cast<double>(twips));
    if ((!inserted && changes.kind != ModelChanges::Kind::removal) || pending.mixed ||
        changes.first >= grid_.Rows() || resolution_.twips(dy) != static_cast<double>(twips) ||
        !shifts_exactly(*this)) {
        return false;
    }
    const GridGeometry geometry(grid_, resolution_);
    const int top = geometry.row_top(changes.first);
    if (top < geometry.captions_bottom()) {
        return false;
    }
    const QRect below = viewport()->rect().adjusted(0, top, 0, 0);
    if (!below.isEmpty()) {
        viewport()->scroll(0, dy, below);
    }
    if (inserted) {
        update_rows(changes.first, changes.last);
    }
    // The selection keeps its row numbers, so its colour was moved away.
    const std::int32_t count = changes.last - changes.first + 1;
    update_rows(std::max(1, pending.selected_first - count), pending.selected_last + count);
    return true;
}

void GridView::flush_accessible() {
    Pending& pending = *pending_;
    if (pending.last_cell_row >= 0) {
        pending.changes.add_data(pending.first_cell_row, pending.last_cell_row);
    }
    notify_changes(*this, std::exchange(pending.changes, {}));
    if (pending.selection) {
        notify_selection(*this);
    }
}

void GridView::update_rows(std::int32_t first_row, std::int32_t last_row) {
    const GridGeometry geometry(grid_, resolution_);
    const QRect area = viewport()->rect();
    if (first_row <= 0) {
        viewport()->update(0, 0, area.width(), geometry.captions_bottom());
    }
    const std::int32_t first = std::max({first_row, grid_.TopRow(), 1});
    const int top = first < grid_.Rows() ? geometry.row_top(first) : geometry.captions_bottom();
    const int bottom =
        last_row < grid_.Rows() && last_row > 0 ? geometry.row_bottom(last_row) : area.height();
    const int from = std::max(top, geometry.captions_bottom());
    const int to = last_row < 1 ? from : std::min(bottom, area.height());
    if (to > from) {
        viewport()->update(0, from, area.width(), to - from);
    }
}

void GridView::update_selection() {
    const auto [first, last] = std::minmax({grid_.Row(), grid_.RowSel()});
    const std::int32_t old_first = std::exchange(pending_->selected_first, first);
    const std::int32_t old_last = std::exchange(pending_->selected_last, last);
    update_rows(old_first, std::min(old_last, grid_.Rows() - 1));
    update_rows(first, last);
}

// Size and scroll bars

void GridView::sync_view_size() {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, verticalScrollBar());
    const int height_px = height();
    const int width_px = width() - right_margin_;
    const int content_height = resolution_.px(static_cast<double>(grid_.content_height()));
    const int content_width = resolution_.px(static_cast<double>(grid_.content_width()));
    const bool allowed = bars_ == ScrollBars::as_needed;
    bool down = allowed && content_height > height_px;
    const bool across = allowed && content_width > width_px - (down ? bar : 0);
    down = down || (allowed && content_height > height_px - (across ? bar : 0));
    setVerticalScrollBarPolicy(down ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(across ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    grid_.set_view_size(seen_twips(width_twips_, width(), right_margin_ + (down ? bar : 0)),
                        seen_twips(height_twips_, height(), across ? bar : 0));
    update_scroll_bars();
    emit viewSizeChanged();
}

platform::Twips
GridView::seen_twips(std::optional<platform::TwipsSingle> size, int px, int taken_px) const {
    const double twips = size ? static_cast<double>(*size) : resolution_.twips(px);
    return standard::whole_twips(
        static_cast<platform::TwipsSingle>(twips - resolution_.twips(taken_px)));
}

void GridView::set_size_twips(platform::TwipsSingle width, platform::TwipsSingle height) {
    width_twips_ = width;
    height_twips_ = height;
    sync_view_size();
}

int GridView::scroll_bar_width() const {
    return verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn
               ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, verticalScrollBar())
               : 0;
}

void GridView::set_right_margin(int px) {
    if (right_margin_ != px) {
        right_margin_ = px;
        setViewportMargins(0, 0, px, 0);
        sync_view_size();
    }
}

void GridView::update_scroll_bars() {
    const GridGeometry geometry(grid_, resolution_);
    in_scroll_bars_ = true;
    QScrollBar* const down = verticalScrollBar();
    down->setRange(0, resolution_.px(static_cast<double>(grid_.max_scroll_y())));
    down->setPageStep(
        std::max(1, resolution_.px(grid_.view_height()) - geometry.captions_bottom()));
    down->setSingleStep(
        std::max(1, resolution_.px(standard::default_row_height_twips(grid_.FontSize()))));
    down->setValue(geometry.scroll_y_px());
    QScrollBar* const across = horizontalScrollBar();
    across->setRange(0, resolution_.px(static_cast<double>(grid_.max_scroll_x())));
    across->setPageStep(std::max(1, resolution_.px(grid_.view_width())));
    across->setSingleStep(down->singleStep());
    across->setValue(geometry.scroll_x_px());
    in_scroll_bars_ = false;
}

void GridView::scrollContentsBy(int dx, int dy) {
    if (in_scroll_bars_) {
        return;
    }
    const auto offset = [this](const QScrollBar& bar, std::int64_t most) {
        return bar.value() == bar.maximum() ? most : std::llrint(resolution_.twips(bar.value()));
    };
    // The other direction keeps its twips: what its bar shows is rounded to pixels.
    if (dy != 0) {
        grid_.set_scroll_y(offset(*verticalScrollBar(), grid_.max_scroll_y()));
    }
    if (dx != 0) {
        grid_.set_scroll_x(offset(*horizontalScrollBar(), grid_.max_scroll_x()));
    }
}

bool GridView::apply_font_and_screen() {
    const Resolution now(logicalDpiX());
    const bool moved = !(now == resolution_);
    resolution_ = now;
    painter_->set_font(font());
    return moved;
}

// Where cells are drawn

QRect GridView::cell_rect(std::int32_t row, std::int32_t col) const {
    return GridGeometry(grid_, resolution_).cell(row, col);
}

std::int32_t GridView::row_at(QPoint point) const {
    return GridGeometry(grid_, resolution_).row_at(point.y());
}

std::int32_t GridView::col_at(QPoint point) const {
    return GridGeometry(grid_, resolution_).col_at(point.x());
}

// Events of Qt

bool GridView::event(QEvent* event) {
    if (event->type() == flush_event) {
        flush();
        return true;
    }
    if (event->type() == QEvent::KeyPress && owner_ != nullptr) {
        auto& key = static_cast<QKeyEvent&>(*event);
        if (is_tab(key) && owner_->tab_arrives()) {
            keyPressEvent(&key);
            return true;
        }
    }
    if (event->type() == QEvent::ScreenChangeInternal && apply_font_and_screen()) {
        layout_changed();
    }
    return QAbstractScrollArea::event(event);
}

void GridView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
        apply_font_and_screen();
        layout_changed();
        break;
    case QEvent::PaletteChange:
    case QEvent::ActivationChange:
    case QEvent::EnabledChange:
        painter_->set_palette(palette());
        viewport()->update();
        break;
    case QEvent::StyleChange:
        layout_changed();
        break;
    default:
        break;
    }
}

void GridView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter_->paint(painter, resolution_, event->rect(), hasFocus());
}

void GridView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    sync_view_size();
}

void GridView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    update_selection();
    notify_selection(*this);
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    update_selection();
}

} // namespace krv::qt
