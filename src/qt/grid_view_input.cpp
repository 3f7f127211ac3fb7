#include "krv/qt/grid_view.h"

#include "krv/standard/flex_grid.h"
#include "qt/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace krv::qt {

namespace {

/// The owner of a view that nobody owns.
class NoOwner final : public GridViewOwner {};

GridViewOwner& owner_or_none(GridViewOwner* owner) {
    static NoOwner none;
    return owner != nullptr ? *owner : none;
}

constexpr double wheel_notch = 120.0;

} // namespace

/// A place in twips, and what was pressed there.
struct GridView::MousePlace {
    std::int16_t button;
    std::int16_t shift;
    double x;
    double y;

    static MousePlace of(const QMouseEvent& event, const Resolution& resolution) {
        return {button_code(event.button()),
                shift_state(event.modifiers()),
                resolution.twips(event.position().x()),
                resolution.twips(event.position().y())};
    }

    platform::Twips x_twips() const { return static_cast<platform::Twips>(std::lrint(x)); }

    platform::Twips y_twips() const { return static_cast<platform::Twips>(std::lrint(y)); }
};

void GridView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    press(MousePlace::of(*event, resolution_), false);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    press(MousePlace::of(*event, resolution_), true);
}

void GridView::press(const MousePlace& place, bool twice) {
    GridViewOwner& owner = owner_or_none(owner_);
    const QPointer<GridView> alive(this);
    pressed_ = false;
    click_follows_ = false;
    owner.act([&] {
        if (!owner.press_arrives() || !alive) {
            return;
        }
        pressed_ = true;
        pressed_button_ = place.button;
        click_follows_ = !twice;
        grid_.mouse_press(place.x_twips(), place.y_twips());
        if (alive) {
            owner.mouse_down(place.button,
                             place.shift,
                             static_cast<float>(place.x),
                             static_cast<float>(place.y));
        }
        if (alive && twice) {
            owner.double_click();
        }
    });
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_) {
        return;
    }
    if (event->buttons() == Qt::NoButton) {
        // A message box took the release.
        pressed_ = false;
        grid_.mouse_release();
        return;
    }
    const MousePlace place = MousePlace::of(*event, resolution_);
    grid_.mouse_drag(place.x_twips(), place.y_twips());
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (pressed_ && button_code(event->button()) == pressed_button_) {
        release(MousePlace::of(*event, resolution_));
    }
}

void GridView::release(const MousePlace& place) {
    pressed_ = false;
    grid_.mouse_release();
    GridViewOwner& owner = owner_or_none(owner_);
    const QPointer<GridView> alive(this);
    const auto x = static_cast<float>(place.x);
    const auto y = static_cast<float>(place.y);
    owner.act([&] {
        owner.mouse_up(place.button, place.shift, x, y);
        if (alive && click_follows_) {
            owner.click(place.button, place.shift, x, y);
        }
    });
}

bool GridView::click_row(std::int32_t row) {
    if (grid_.RowHeight(row) == 0) {
        return false;
    }
    const QPointer<GridView> alive(this);
    setFocus(Qt::OtherFocusReason);
    grid_.ensure_visible(row, -1);
    const MousePlace place{1, 0, 0, grid_.RowPos(row) + grid_.RowHeight(row) / 2.0};
    press(place, false);
    if (alive && pressed_) {
        release(place);
    }
    return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
    GridViewOwner& owner = owner_or_none(owner_);
    const QPointer<GridView> alive(this);
    const std::int16_t code = key_code(*event);
    // Escape alone is left to the host when nobody swallows it: it closes dialogs.
    event->setAccepted(event->key() != Qt::Key_Escape);
    const bool goes_on = owner.key_down(*event);
    if (!alive || !goes_on) {
        event->accept();
        return;
    }
    grid_.scroll_by_key(code);
}

void GridView::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint pixels = event->pixelDelta();
    const QPoint notches = event->angleDelta();
    const bool across = (event->modifiers() & Qt::AltModifier) != 0 ||
                        std::abs(notches.x()) > std::abs(notches.y());
    QScrollBar* const bar = across ? horizontalScrollBar() : verticalScrollBar();
    const int notch = notches.x() != 0 && across ? notches.x() : notches.y();
    double distance = across ? pixels.x() : pixels.y();
    if (pixels.isNull()) {
        distance = notch / wheel_notch * QApplication::wheelScrollLines() * bar->singleStep();
    }
    // Fine wheels send less than a pixel at a time: the rest counts next time.
    distance += wheel_rest_;
    const double whole = std::trunc(distance);
    wheel_rest_ = distance - whole;
    bar->setValue(bar->value() - static_cast<int>(whole));
}

} // namespace krv::qt
