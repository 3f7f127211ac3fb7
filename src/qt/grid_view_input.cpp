#include "krv/qt/grid_view.h"

#include "krv/standard/flex_grid.h"
#include "krv/standard/measures.h"
#include "qt/coded_events.h"
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

bool GridViewOwner::key_down(const QKeyEvent& event,
                             const std::function<void(std::int16_t)>& scroll) {
    scroll(key_code(event));
    return true;
}

/// A place in twips, and what was pressed there.
struct GridView::MousePlace {
    std::int16_t button;
    std::int16_t shift;
    float x;
    float y;

    static MousePlace of(const QMouseEvent& event, const Resolution& resolution) {
        if (const CodedMouseEvent* const sent = coded(event)) {
            const MouseCodes& codes = sent->codes();
            return {codes.button, codes.shift, codes.x, codes.y};
        }
        return {button_code(event),
                shift_state(event),
                static_cast<float>(resolution.twips(event.position().x())),
                static_cast<float>(resolution.twips(event.position().y()))};
    }

    platform::Twips x_twips() const { return standard::whole_twips(x); }

    platform::Twips y_twips() const { return standard::whole_twips(y); }
};

void GridView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    press(MousePlace::of(*event, resolution_), false);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (coded(*event) == nullptr) {
        press(MousePlace::of(*event, resolution_), true);
        return;
    }
    GridViewOwner& owner = owner_or_none(owner_);
    owner.act([&] { owner.double_click(); });
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
            owner.mouse_down(place.button, place.shift, place.x, place.y);
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
        let_go(); // a message box took the release
        return;
    }
    const MousePlace place = MousePlace::of(*event, resolution_);
    grid_.mouse_drag(place.x_twips(), place.y_twips());
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const CodedMouseEvent* const sent = coded(*event);
    if (!pressed_ || (sent == nullptr && button_code(*event) != pressed_button_)) {
        return;
    }
    click_follows_ = sent != nullptr ? sent->clicks() : click_follows_;
    release(MousePlace::of(*event, resolution_));
}

void GridView::let_go() {
    pressed_ = false;
    grid_.mouse_release();
}

void GridView::release(const MousePlace& place) {
    let_go();
    GridViewOwner& owner = owner_or_none(owner_);
    const QPointer<GridView> alive(this);
    owner.act([&] {
        owner.mouse_up(place.button, place.shift, place.x, place.y);
        if (alive && click_follows_) {
            owner.click(place.button, place.shift, place.x, place.y);
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
    const MousePlace place{
        1, 0, 0, static_cast<float>(grid_.RowPos(row) + grid_.RowHeight(row) / 2.0)};
    press(place, false);
    if (alive && pressed_) {
        release(place);
    }
    return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
    GridViewOwner& owner = owner_or_none(owner_);
    const QPointer<GridView> alive(this);
    const auto scroll = [&](std::int16_t code) {
        if (alive) {
            grid_.scroll_by_key(code);
        }
    };
    const bool swallowed = !owner.key_down(*event, scroll);
    // Escape alone is left to the host when nobody swallows it: it closes dialogs.
    event->setAccepted(swallowed || event->key() != Qt::Key_Escape);
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
