#include "server/qt_person.h"

#include "headless/key_characters.h"
#include "qt/container.h"
#include "qt/part_handle.h"
#include "qt/surface.h"

#include "krv/platform/error.h"
#include "krv/qt/grid_view.h"
#include "krv/qt/resolution.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace krv::server {

namespace {

constexpr double farthest_px = 1e6; // a pointer's place on a screen is a whole number

qt::PartHandle& handle_of(platform::Part& part) {
    return dynamic_cast<qt::PartHandle&>(part);
}

void require_focusable(platform::Part& part) {
    if (!handle_of(part).can_take_focus()) {
        throw platform::RuntimeError(platform::error_number::invalid_call,
                                     "Invalid procedure call or argument",
                                     std::string(part.Name()));
    }
}

/// The widget that the mouse is over: a grid's cells lie in a widget of their own.
QWidget& mouse_widget(QWidget& widget) {
    auto* const grid = qobject_cast<qt::GridView*>(&widget);
    return grid != nullptr ? *grid->viewport() : widget;
}

} // namespace

QtPerson::Watched::Watched(platform::Part& part)
    : part_(&part)
    , handle_(&handle_of(part))
    , life_(handle_->life().watch()) {}

QtPerson::QtPerson(QWidget& window, std::shared_ptr<qt::FormLoop> loop)
    : window_(window)
    , loop_(std::move(loop)) {}

void QtPerson::act(Steps steps) {
    const std::shared_ptr<qt::FormLoop> loop = loop_; // the person may go meanwhile
    post_next(std::make_shared<Steps>(std::move(steps)));
    loop->turn();
}

void QtPerson::post_next(const std::shared_ptr<Steps>& steps) {
    if (steps->empty()) {
        return;
    }
    loop_->queue().post(life_, [this, steps] {
        const Step step = std::move(steps->front());
        steps->pop_front();
        bool goes_on = true;
        try {
            goes_on = step();
        } catch (...) {
            loop_->sync_focus();
            post_next(steps);
            throw;
        }
        loop_->sync_focus(); // what follows from a moved focus comes before the next step
        if (goes_on) {
            post_next(steps);
        }
    });
}

// --- Focus and keys ------------------------------------------------------------------------------

QtPerson::Step QtPerson::focus_step(const Watched& target) const {
    return [target] {
        if (target.is_gone() || !target.handle().can_take_focus()) {
            return false;
        }
        target.part().SetFocus();
        return true;
    };
}

QtPerson::Step QtPerson::key_step(Key key) {
    return [this, key = std::move(key)] {
        QWidget* const focused = window_.focusWidget();
        if (focused != nullptr && focused != &window_) {
            send_key(*focused, key);
        }
        return true;
    };
}

void QtPerson::focus(platform::Part& part) {
    require_focusable(part);
    act({focus_step(Watched(part))});
}

void QtPerson::focus(QWidget& widget) {
    act({[target = QPointer<QWidget>(&widget)] {
        if (target) {
            target->setFocus(Qt::OtherFocusReason);
        }
        return true;
    }});
}

void QtPerson::key(std::int16_t code, std::int16_t shift) {
    act({key_step({code, shift, headless::character_of_key(code, shift)})});
}

void QtPerson::key(platform::Part& part, std::int16_t code, std::int16_t shift) {
    require_focusable(part);
    const Watched target(part);
    const auto is_still_there = [target] {
        return !target.is_gone() && target.handle().surface().has_focus(target.handle());
    };
    act({focus_step(target),
         is_still_there,
         key_step({code, shift, headless::character_of_key(code, shift)})});
}

void QtPerson::text(std::string_view text) {
    Steps steps;
    for (headless::TypedCharacter& typed : headless::typed_characters(text)) {
        steps.push_back(key_step({typed.code, typed.shift, std::move(typed.character)}));
    }
    act(std::move(steps));
}

void QtPerson::send_key(QWidget& widget, const Key& key) {
    const QPointer<QWidget> target(&widget);
    const qt::FormLoop::Script script(*loop_);
    const QString character = QString::fromStdString(key.character);
    qt::CodedKeyEvent press(QEvent::KeyPress, key.code, key.shift, character);
    QApplication::sendEvent(target, &press);
    if (target) {
        qt::CodedKeyEvent release(QEvent::KeyRelease, key.code, key.shift, character);
        QApplication::sendEvent(target, &release);
    }
    script.rethrow_error();
}

// --- Mouse ---------------------------------------------------------------------------------------

void QtPerson::send_mouse(const Watched& target,
                          QEvent::Type type,
                          const Mouse& mouse,
                          AtRelease at_release) {
    QWidget& widget = mouse_widget(*target.handle().widget());
    const double twips_per_px = qt::Resolution(widget.logicalDpiX()).twips(1);
    const QPointF place(std::clamp(mouse.x / twips_per_px, -farthest_px, farthest_px),
                        std::clamp(mouse.y / twips_per_px, -farthest_px, farthest_px));
    const qt::FormLoop::Script script(*loop_);
    qt::CodedMouseEvent event(
        type, {mouse.button, mouse.shift, mouse.x, mouse.y}, widget, place, at_release);
    QApplication::sendEvent(&widget, &event);
    script.rethrow_error();
}

QtPerson::Step QtPerson::press_step(const Watched& target, const Mouse& mouse) {
    return [this, target, mouse] {
        let_go();
        if (target.is_gone() || !target.handle().surface().has_focus(target.handle())) {
            return false;
        }
        pressed_ = target;
        send_mouse(target, QEvent::MouseButtonPress, mouse);
        return true;
    };
}

QtPerson::Step QtPerson::move_step(const Watched& target, const Mouse& mouse) {
    return [this, target, mouse] {
        if (target.is_usable() && pressed_.is(target)) {
            send_mouse(target, QEvent::MouseMove, mouse);
        }
        return true;
    };
}

QtPerson::Step
QtPerson::release_step(const Watched& target, const Mouse& mouse, AtRelease at_release) {
    return [this, target, mouse, at_release] {
        if (!target.is_usable() || !pressed_.is(target)) {
            let_go();
            return true;
        }
        pressed_ = Watched();
        send_mouse(target, QEvent::MouseButtonRelease, mouse, at_release);
        return true;
    };
}

QtPerson::Step QtPerson::double_click_step(const Watched& target, const Mouse& mouse) {
    return [this, target, mouse] {
        if (target.is_usable()) {
            send_mouse(target, QEvent::MouseButtonDblClick, mouse);
        }
        return true;
    };
}

void QtPerson::let_go() {
    const Watched pressed = std::exchange(pressed_, Watched());
    if (!pressed.is_gone()) {
        pressed.handle().let_go();
    }
}

void QtPerson::mouse(platform::Part& part, MouseAction action, const Mouse& mouse) {
    const Watched target(part);
    switch (action) {
    case MouseAction::press:
        return act({focus_step(target), press_step(target, mouse)});
    case MouseAction::move:
        return act({move_step(target, mouse)});
    case MouseAction::release:
        return act({release_step(target, mouse, AtRelease::click)});
    case MouseAction::click:
        return act({focus_step(target),
                    press_step(target, mouse),
                    release_step(target, mouse, AtRelease::click)});
    case MouseAction::double_click:
        return act({focus_step(target),
                    press_step(target, mouse),
                    release_step(target, mouse, AtRelease::click),
                    focus_step(target),
                    press_step(target, mouse),
                    double_click_step(target, mouse),
                    release_step(target, mouse, AtRelease::nothing)});
    }
}

void QtPerson::resize(platform::Part& some_part,
                      qt::QtContainer& control,
                      float width,
                      float height) {
    act({[target = Watched(some_part), &control, width, height] {
        if (!target.is_gone()) {
            control.resize_to(width, height);
        }
        return true;
    }});
}

} // namespace krv::server
