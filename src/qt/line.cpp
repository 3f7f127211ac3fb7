#include "qt/line.h"

#include <QPainter>

#include <algorithm>

namespace krv::qt {

namespace {

constexpr double thickness_twips = 30;

int thickness_px(const QWidget& widget) {
    return std::max(2, Resolution(widget.logicalDpiX()).px(thickness_twips));
}

} // namespace

LineWidget::LineWidget(QWidget& parent)
    : QWidget(&parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LineWidget::set_falls(bool falls) {
    falls_ = falls;
    update();
}

void LineWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor color = palette().color(QPalette::Highlight);
    const int thickness = thickness_px(*this);
    if (width() <= thickness || height() <= thickness) {
        painter.fillRect(rect(), color);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, thickness));
    painter.drawLine(falls_ ? rect().topLeft() : rect().bottomLeft(),
                     falls_ ? rect().bottomRight() : rect().topRight());
}

QtLine::QtLine(Surface& surface, std::string name)
    : QtPart(surface, std::move(name))
    , line_(new LineWidget(surface.root())) {
    adopt(line_);
    line_->setFocusPolicy(Qt::NoFocus);
    place();
}

bool QtLine::TabStop() const {
    throw platform::RuntimeError(platform::error_number::no_such_member,
                                 "Object doesn't support this property or method",
                                 std::string(Name()));
}

void QtLine::SetTabStop(bool /*tab_stop*/) {
    throw platform::RuntimeError(platform::error_number::no_such_member,
                                 "Object doesn't support this property or method",
                                 std::string(Name()));
}

void QtLine::SetFocus() {
    throw platform::RuntimeError(platform::error_number::invalid_call,
                                 "Invalid procedure call or argument",
                                 std::string(Name()));
}

void QtLine::SetX1(platform::TwipsSingle x) {
    x1_ = x;
    follow_ends();
}

void QtLine::SetX2(platform::TwipsSingle x) {
    x2_ = x;
    follow_ends();
}

void QtLine::SetY1(platform::TwipsSingle y) {
    y1_ = y;
    follow_ends();
}

void QtLine::SetY2(platform::TwipsSingle y) {
    y2_ = y;
    follow_ends();
}

void QtLine::follow_ends() {
    line_->set_falls((x1_ <= x2_) == (y1_ <= y2_));
    QtPart::set_place(
        std::min(x1_, x2_), std::min(y1_, y2_), std::abs(x2_ - x1_), std::abs(y2_ - y1_));
}

void QtLine::set_place(platform::TwipsSingle left,
                       platform::TwipsSingle top,
                       platform::TwipsSingle width,
                       platform::TwipsSingle height) {
    // The ends keep their order: the line leans the way it did.
    const bool falls = (x1_ <= x2_) == (y1_ <= y2_);
    x1_ = left;
    x2_ = left + width;
    y1_ = falls ? top : top + height;
    y2_ = falls ? top + height : top;
    QtPart::set_place(left, top, width, height);
}

void QtLine::place() {
    // A line of a pixel's height would hide behind the buttons' edges, so it is a thin bar that
    // ends where the line lies.
    const Resolution resolution(widget()->logicalDpiX());
    const int left = resolution.px(Left());
    const int right = resolution.px(static_cast<double>(Left()) + Width());
    const int bottom = resolution.px(static_cast<double>(Top()) + Height()) + 1;
    const int height = std::max(thickness_px(*widget()), bottom - resolution.px(Top()));
    widget()->setGeometry(left, bottom - height, right - left, height);
    widget()->raise();
}

} // namespace krv::qt
