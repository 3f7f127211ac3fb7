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

bool TabWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && show_tip(static_cast<QHelpEvent&>(*event))) {
        return true;
    }
    return Gated::event(event);
}

bool TabWidget::show_tip(const QHelpEvent& event) {
    const int shown = tabAt(event.pos());
    const QString tip = shown < 0 || !tip_ ? QString() : tip_(strip_.first_shown_ + shown);
    if (!tip.isEmpty()) {
        QToolTip::showText(event.globalPos(), tip, this, tabRect(shown));
    }
    return !tip.isEmpty();
}

void TabWidget::mousePressEvent(QMouseEvent* event) {
    const int shown = event->button() == Qt::LeftButton ? tabAt(event->position().toPoint()) : -1;
    {
        const bool outer = std::exchange(strip_.is_showing_, true);
        QTabBar::mousePressEvent(event);
        strip_.is_showing_ = outer;
    }
    if (shown >= 0) {
        strip_.choose_shown(shown);
    }
}

void TabWidget::keyPressEvent(QKeyEvent* event) {
    strip_.show_tabs();
    const int target = strip_.target_of(event->key());
    if (target < 0) {
        QTabBar::keyPressEvent(event);
        return;
    }
    event->accept();
    if (const int shown = target - strip_.first_shown_; shown >= 0 && shown < count()) {
        setCurrentIndex(shown);
    } else {
        strip_.choose(target);
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
    QObject::connect(tabs_, &QTabBar::currentChanged, tabs_, [this](int shown) {
        if (!is_showing_) {
            choose_shown(shown);
        }
    });
}

void QtTabStrip::require(std::int32_t index) const {
    if (index < 1 || index > Count()) {
        throw failure(index_out_of_bounds, "Index out of bounds");
    }
}

void QtTabStrip::Add(std::string_view caption) {
    captions_.emplace_back(caption);
    selected_ = std::max(selected_, 0);
    plan_showing();
    touched();
}

void QtTabStrip::Remove(std::int32_t index) {
    require(index);
    captions_.erase(captions_.begin() + (index - 1));
    if (index == SelectedIndex()) {
        selected_ = Count() - 1;
    } else if (index < SelectedIndex()) {
        --selected_;
    }
    plan_showing();
    touched();
}

void QtTabStrip::Clear() {
    captions_.clear();
    selected_ = -1;
    plan_showing();
    touched();
}

std::string QtTabStrip::Caption(std::int32_t index) const {
    require(index);
    return captions_[static_cast<std::size_t>(index - 1)];
}

void QtTabStrip::SetSelectedIndex(std::int32_t index) {
    require(index);
    selected_ = index - 1;
    plan_showing();
    tell(&platform::EditorEvents::Click);
}

// What a person does

void QtTabStrip::click(std::int32_t index) {
    if (is_enabled()) {
        require(index);
        choose(index - 1);
    }
}

void QtTabStrip::choose(int position) {
    selected_ = position;
    plan_showing();
    tell_of_person(&platform::EditorEvents::Click);
}

void QtTabStrip::choose_shown(int shown_position) {
    // The tab bar may still show tabs that are gone.
    if (shown_position >= 0 && first_shown_ + shown_position < Count()) {
        choose(first_shown_ + shown_position);
    }
}

int QtTabStrip::target_of(int key) const {
    switch (key) {
    case Qt::Key_Home:
        return std::min(0, selected_);
    case Qt::Key_End:
        return Count() - 1;
    case Qt::Key_PageUp:
        return selected_ < 0 ? -1 : std::max(selected_ - page_of_tabs, 0);
    case Qt::Key_PageDown:
        return std::min(selected_ + page_of_tabs, Count() - 1);
    default:
        return -1;
    }
}

// What the tab bar shows

void QtTabStrip::plan_showing() {
    if (!std::exchange(showing_is_planned_, true)) {
        QMetaObject::invokeMethod(
            tabs_, [this] { show_tabs(); }, Qt::QueuedConnection);
    }
}

void QtTabStrip::show_tabs() {
    if (!std::exchange(showing_is_planned_, false)) {
        return;
    }
    const int shown = std::min(Count(), most_shown);
    if (selected_ <= first_shown_ || selected_ + 1 >= first_shown_ + shown) {
        first_shown_ = selected_ - shown / 2;
    }
    first_shown_ = std::clamp(first_shown_, 0, Count() - shown);
    const bool outer = std::exchange(is_showing_, true);
    while (tabs_->count() > shown) {
        tabs_->removeTab(tabs_->count() - 1);
    }
    for (int i = 0; i < shown; ++i) {
        // An ampersand is a plain character here, not the mark of a shortcut.
        const QString text = qt_text(captions_[static_cast<std::size_t>(first_shown_ + i)])
                                 .replace(QLatin1Char('&'), QLatin1String("&&"));
        if (i == tabs_->count()) {
            tabs_->addTab(text);
        } else if (tabs_->tabText(i) != text) {
            tabs_->setTabText(i, text);
        }
    }
    tabs_->setCurrentIndex(selected_ - first_shown_);
    is_showing_ = outer;
}

} // namespace krv::qt
