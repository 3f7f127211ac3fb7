#include "qt/page/editor.h"

#include <QEvent>
#include <QInputMethodEvent>
#include <QMouseEvent>

#include <utility>

namespace krv::qt {

namespace {

bool is_press(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

bool is_input(const QEvent& event) {
    return is_press(event) || event.type() == QEvent::KeyPress ||
           event.type() == QEvent::InputMethod;
}

/// Notices that a window was blocked by a box while it looked.
class BlockWatch final : public QObject {
public:
    explicit BlockWatch(QWidget& window) { window.installEventFilter(this); }

    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        was_blocked_ = was_blocked_ || event->type() == QEvent::WindowBlocked;
        return false;
    }

    bool was_blocked() const noexcept { return was_blocked_; }

private:
    bool was_blocked_ = false;
};

} // namespace

PageEditor::PageEditor(Surface& surface, std::string name)
    : PartHandle(surface)
    , name_(std::move(name)) {}

PageEditor::~PageEditor() = default;

void PageEditor::adopt(QWidget* widget) {
    widget_ = widget;
    widget->setObjectName(qt_text(name_));
    widget->setFocusPolicy(Qt::StrongFocus);
    surface().add(*this);
}

platform::RuntimeError PageEditor::failure(std::int32_t number, const char* description) const {
    return {number, description, name_};
}

void PageEditor::set_enabled(bool enabled) {
    const bool leaves = !enabled && surface().has_focus(*this);
    enabled_ = enabled;
    if (leaves) {
        surface().move_focus_on(*this);
    }
    widget_->setEnabled(enabled);
    surface().sync_focus();
}

void PageEditor::touched() const {
    if (on_touched_) {
        on_touched_();
    }
}

void PageEditor::tell(Event event) {
    touched();
    const platform::LifeWatch watch(life());
    if (events_ != nullptr) {
        (events_->*event)();
    }
    if (!watch.ended()) {
        touched();
    }
}

void PageEditor::tell_of_person(Event event) {
    surface().take_act([this, event] { tell(event); });
}

void PageEditor::type(const QString& /*text*/) {
    throw failure(platform::error_number::no_such_member,
                  "Object doesn't support this property or method");
}

void PageEditor::click(std::int32_t /*index*/) {
    throw failure(platform::error_number::no_such_member,
                  "Object doesn't support this property or method");
}

void PageEditor::double_click() {
    if (enabled_) {
        tell_of_person(&platform::EditorEvents::DblClick);
    }
}

bool PageEditor::lets_in(const QEvent& event) {
    if (!is_input(event) || surface().closed() || surface().loop()->script() != nullptr) {
        return true;
    }
    const std::shared_ptr<Surface> held = surface().shared_from_this();
    const platform::LifeWatch watch(life());
    const BlockWatch blocks(*widget_->window());
    held->turn_of_its_own();
    if (watch.ended()) {
        return false;
    }
    // A press whose button was released on a box in between is over.
    return held->has_focus(*this) && !(is_press(event) && blocks.was_blocked());
}

void PageEditor::has_worked_through(const QEvent& event) {
    if (event.type() == QEvent::MouseButtonDblClick && !surface().closed() &&
        static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton) {
        double_click();
    }
}

} // namespace krv::qt
