#include "qt/page/tab_strip.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace krv::qt {

namespace {

constexpr std::int32_t index_out_of_bounds = 35600;
constexpr int page_of_tabs = 10;

} // namespace

TabWidget::TabWidget(QtTabStrip& strip, QWidget* parent)
    : Gated(strip, parent)
    , strip_(strip) {
    setUsesScrollButtons(true);
    setExpanding(false);
    setDrawBase(true);
    setElideMode(Qt::ElideNone);
}

QSize TabWidget::sizeHint() const {
    return minimumSizeHint();
}

QSize TabWidget::minimumSizeHint() const {
    // Room for a tab and the buttons that scroll, also while there is no tab.
    const int side = fontMetrics().height();
    return {8 * side, count() > 0 ? QTabBar::sizeHint().height() : 2 * side};
}

/// Texts of one length are about equally wide, and measuring each tab again at every change would
/// take long with hundreds of them.
QSize TabWidget::tabSizeHint(int index) const {
    const qsizetype length = tabText(index).size();
    if (measured_length_ != length || measured_font_ != font()) {
        measured_length_ = length;
        measured_font_ = font();
        measured_ = QTabBar::tabSizeHint(index);
        measured_.rwidth() += fontMetrics().averageCharWidth();
    }
    return measured_;
}

/// A tab bar lays out all its tabs at every tab that comes or goes while it is visible: with
/// thousands of columns that would take minutes.
template <class Act>
void TabWidget::change_tabs(Act act) {
    const bool visible = isVisible();
    setAttribute(Qt::WA_WState_Visible, false);
    act();
    setAttribute(Qt::WA_WState_Visible, visible);
    if (visible && !std::exchange(layout_is_planned_, true)) {
        QMetaObject::invokeMethod(
            this, [this] { lay_out(); }, Qt::QueuedConnection);
    }
}

void TabWidget::lay_out() {
    layout_is_planned_ = false;
    setElideMode(elideMode()); // lays out anew
}

bool TabWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !tip_) {
        return Gated::event(event);
    }
    const auto& help = static_cast<QHelpEvent&>(*event);
    const int index = tabAt(help.pos());
    const QString tip = index < 0 ? QString() : tip_(index);
    if (tip.isEmpty()) {
        return Gated::event(event);
    }
    QToolTip::showText(help.globalPos(), tip, this, tabRect(index));
    return true;
}

void TabWidget::mousePressEvent(QMouseEvent* event) {
    const int index = event->button() == Qt::LeftButton ? tabAt(event->position().toPoint()) : -1;
    {
        const bool outer = std::exchange(strip_.assigning_, true);
        QTabBar::mousePressEvent(event);
        strip_.assigning_ = outer;
    }
    if (index >= 0) {
        strip_.choose(index);
    }
}

int TabWidget::target_of(int key) const {
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count() - 1;
    case Qt::Key_PageUp:
        return std::max(currentIndex() - page_of_tabs, 0);
    case Qt::Key_PageDown:
        return std::min(currentIndex() + page_of_tabs, count() - 1);
    default:
        return -1;
    }
}

void TabWidget::keyPressEvent(QKeyEvent* event) {
    const int target = count() > 0 ? target_of(event->key()) : -1;
    if (target < 0) {
        QTabBar::keyPressEvent(event);
    } else {
        event->accept();
        setCurrentIndex(target);
    }
}

void TabWidget::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QTabBar::wheelEvent(event);
    } else {
        event->ignore();
    }
}

QtTabStrip::QtTabStrip(Surface& surface, std::string name)
    : QtEditor(surface, std::move(name))
    , tabs_(new TabWidget(*this, &surface.root())) {
    adopt(tabs_);
    QObject::connect(tabs_, &QTabBar::currentChanged, tabs_, [this] {
        if (!assigning_) {
            tell_of_person(&platform::EditorEvents::Click);
        }
    });
}

void QtTabStrip::require(std::int32_t index) const {
    if (index < 1 || index > Count()) {
        throw failure(index_out_of_bounds, "Index out of bounds");
    }
}

void QtTabStrip::select(int position) {
    const bool outer = std::exchange(assigning_, true);
    tabs_->setCurrentIndex(position);
    assigning_ = outer;
}

void QtTabStrip::Add(std::string_view caption) {
    const bool outer = std::exchange(assigning_, true);
    // An ampersand is a plain character here, not the mark of a shortcut.
    const QString text = qt_text(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
    tabs_->change_tabs([&] { tabs_->addTab(text); });
    assigning_ = outer;
    touched();
}

void QtTabStrip::Remove(std::int32_t index) {
    require(index);
    const bool outer = std::exchange(assigning_, true);
    const bool was_selected = index == SelectedIndex();
    tabs_->change_tabs([&] {
        tabs_->removeTab(index - 1);
        if (was_selected) {
            tabs_->setCurrentIndex(tabs_->count() - 1);
        }
    });
    assigning_ = outer;
    touched();
}

void QtTabStrip::Clear() {
    while (Count() > 0) {
        Remove(Count());
    }
}

std::string QtTabStrip::Caption(std::int32_t index) const {
    require(index);
    return tabs_->tabText(index - 1).replace(QLatin1String("&&"), QLatin1String("&")).toStdString();
}

void QtTabStrip::SetSelectedIndex(std::int32_t index) {
    require(index);
    select(index - 1);
    tell(&platform::EditorEvents::Click);
}

void QtTabStrip::click(std::int32_t index) {
    if (is_enabled()) {
        require(index);
        choose(index - 1);
    }
}

void QtTabStrip::choose(int position) {
    select(position);
    tell_of_person(&platform::EditorEvents::Click);
}

} // namespace krv::qt
