#include "server/qt_form.h"

#include "qt/container.h"
#include "qt/grid_part.h"
#include "qt/part_handle.h"
#include "qt/qt_text.h"
#include "qt/surface.h"
#include "server/qt_host_object.h"
#include "server/qt_input_watch.h"
#include "server/qt_page.h"
#include "server/qt_person.h"

#include "krv/qt/karvo_list_widget.h"

#include <QApplication>
#include <QLineEdit>
#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

namespace krv::server {

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;

constexpr int gap_px = 8;

/// An answer that a box has no button for closes it.
MessageAnswer fitting(MessageAnswer answer, MessageButtons buttons) {
    if (buttons == MessageButtons::ok) {
        return MessageAnswer::ok;
    }
    return answer == MessageAnswer::yes ? MessageAnswer::yes : MessageAnswer::no;
}

class QtServerForm;

class QtFormControl final : public FormControl {
public:
    QtFormControl(QtServerForm& form, Supplies supplies, platform::PropertyBag* bag);
    ~QtFormControl() override;
    QtFormControl(const QtFormControl&) = delete;
    QtFormControl& operator=(const QtFormControl&) = delete;

    KarvoList& list() override { return widget_->list(); }

    platform::Container& surface() override { return widget_->container(); }

    platform::Part* part(std::string_view name) override;

    bool has_focus(const platform::Part& part) const override {
        const auto& handle = dynamic_cast<const qt::PartHandle&>(part);
        return handle.surface().has_focus(handle);
    }

    // This may be gone when the person's act returns.

    void focus(platform::Part& part) override;
    void key(platform::Part& part, std::int16_t code, std::int16_t shift) override;
    void mouse(platform::Part& part, MouseAction action, const Mouse& mouse) override;
    void resize(float width, float height) override;

    qt::KarvoListWidget& widget() noexcept { return *widget_; }

private:
    qt::QtContainer& container() { return dynamic_cast<qt::QtContainer&>(widget_->container()); }

    QtServerForm& form_;
    std::unique_ptr<qt::KarvoListWidget> widget_;
};

class QtServerForm final : public Form, private platform::Application {
public:
    QtServerForm()
        : loop_(qt::FormLoop::shared())
        , hold_(loop_)
        , window_(std::make_unique<QWidget>())
        , outside_(new QLineEdit(window_.get()))
        , input_watch_(*window_, loop_)
        , person_(*window_, loop_) {
        QGuiApplication::setApplicationDisplayName(QStringLiteral("krvList3"));
        outside_->setAccessibleName(QStringLiteral("outside"));
        outside_->move(gap_px, gap_px);
        window_->resize(outside_->sizeHint() + QSize(2 * gap_px, 2 * gap_px));
        // Qt gives the first tab stop the focus when it finds none; here nothing has it at first.
        window_->setFocus(Qt::OtherFocusReason);
        window_->show();
    }

    ~QtServerForm() override { loop_->free_buried(); }

    QtServerForm(const QtServerForm&) = delete;
    QtServerForm& operator=(const QtServerForm&) = delete;

    std::string_view backend() const override { return "qt"; }

    std::unique_ptr<FormControl> new_control(Supplies supplies) override {
        return std::make_unique<QtFormControl>(*this, std::move(supplies), nullptr);
    }

    std::unique_ptr<FormControl> load_control(Supplies supplies,
                                              platform::PropertyBag& bag) override {
        return std::make_unique<QtFormControl>(*this, std::move(supplies), &bag);
    }

    std::unique_ptr<FormPage> new_page(PageSupplies supplies) override {
        return make_qt_page(*this, std::move(supplies));
    }

    platform::Application& application() override { return *this; }

    void set_ask(Ask ask) override { ask_ = std::move(ask); }

    std::shared_ptr<platform::Object> make_object(std::string name, bool focusable) override {
        return std::make_shared<QtHostObject>(
            focusable ? window_.get() : nullptr, loop_, std::move(name));
    }

    void turn() override { loop_->turn(); }

    void focus_outside() override { person_.focus(*outside_); }

    void key(std::int16_t code, std::int16_t shift) override { person_.key(code, shift); }

    void text(std::string_view text) override { person_.text(text); }

    QWidget& window() noexcept { return *window_; }

    QtPerson& person() noexcept { return person_; }

    /// Below the others.
    void place(qt::KarvoListWidget& widget) {
        widgets_.push_back(&widget);
        widget.show();
        arrange();
    }

    void remove(const qt::KarvoListWidget& widget) {
        std::erase(widgets_, &widget);
        arrange();
    }

    void arrange() {
        int top = outside_->geometry().bottom() + gap_px;
        int right = outside_->geometry().right();
        for (qt::KarvoListWidget* widget : widgets_) {
            widget->move(gap_px, top);
            top = std::min(widget->geometry().bottom() + gap_px, QWIDGETSIZE_MAX);
            right = std::max(right, widget->geometry().right());
        }
        const QSize screen = window_->screen()->availableSize();
        window_->resize(QSize(right, top).boundedTo(screen) + QSize(gap_px, gap_px));
    }

    MessageAnswer answer(std::string_view text, MessageButtons buttons) {
        const Ask ask = ask_; // a copy: it may replace itself
        return fitting(ask ? ask(text, buttons) : MessageAnswer::no, buttons);
    }

private:
    std::string Title() const override {
        return QGuiApplication::applicationDisplayName().toStdString();
    }

    void SetTitle(std::string_view title) override {
        QGuiApplication::setApplicationDisplayName(qt::qt_text(title));
    }

    MessageAnswer MsgBox(std::string_view text, MessageButtons buttons) override {
        const std::string shown(text);
        turn();
        return answer(shown, buttons);
    }

    void Yield() override { turn(); }

    std::shared_ptr<qt::FormLoop> loop_;
    qt::FormLoop::Hold hold_;
    std::unique_ptr<QWidget> window_;
    QLineEdit* outside_;
    QtInputWatch input_watch_;
    QtPerson person_;
    std::vector<qt::KarvoListWidget*> widgets_;
    Ask ask_;
};

std::unique_ptr<qt::KarvoListWidget>
make_widget(Supplies& supplies, platform::PropertyBag* bag, QWidget& window) {
    if (bag == nullptr) {
        return std::make_unique<qt::KarvoListWidget>(
            std::move(supplies.data_access), std::move(supplies.formatter), &window);
    }
    return std::make_unique<qt::KarvoListWidget>(
        std::move(supplies.data_access), std::move(supplies.formatter), *bag, &window);
}

QtFormControl::QtFormControl(QtServerForm& form, Supplies supplies, platform::PropertyBag* bag)
    : form_(form)
    , widget_(make_widget(supplies, bag, form.window())) {
    widget_->set_message_handler([&form](std::string_view text, MessageButtons buttons) {
        return form.answer(text, buttons);
    });
    container().set_on_property_changed(std::move(supplies.on_property_changed));
    // Bars would take rows from the list, and how many depends on the desktop's style.
    for (const char* name : {"Grid", "GridIn"}) {
        dynamic_cast<qt::QtGrid&>(*part(name))
            .view()
            .set_scroll_bars(qt::GridView::ScrollBars::none);
    }
    form_.place(*widget_);
}

QtFormControl::~QtFormControl() {
    dynamic_cast<qt::PartHandle&>(*part("Grid")).surface().leave();
    form_.remove(*widget_);
}

platform::Part* QtFormControl::part(std::string_view name) {
    const auto parts = widget_->container().Controls();
    const auto found = std::find_if(parts.begin(), parts.end(), [name](const platform::Part* part) {
        return part->Name() == name;
    });
    return found == parts.end() ? nullptr : *found;
}

void QtFormControl::focus(platform::Part& part) {
    form_.person().focus(part);
}

void QtFormControl::key(platform::Part& part, std::int16_t code, std::int16_t shift) {
    form_.person().key(part, code, shift);
}

void QtFormControl::mouse(platform::Part& part, MouseAction action, const Mouse& mouse) {
    form_.person().mouse(part, action, mouse);
}

void QtFormControl::resize(float width, float height) {
    QtServerForm& form = form_;
    form.person().resize(*part("Grid"), container(), width, height);
    form.arrange();
}

} // namespace

std::unique_ptr<Form> make_qt_form() {
    return std::make_unique<QtServerForm>();
}

} // namespace krv::server
