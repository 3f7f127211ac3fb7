#pragma once

#include "krv/platform/dialog_controls.h"
#include "krv/platform/error.h"
#include "qt/part_handle.h"
#include "qt/qt_text.h"
#include "qt/surface.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class QEvent;

namespace krv::qt {

/// What the editors of a page have in common: how they tell their listener, and what of a person's
/// input they let into their widget.
class PageEditor : public PartHandle {
public:
    PageEditor(Surface& surface, std::string name);

    QWidget* widget() const override { return widget_; }

    bool can_take_focus() const override { return enabled_; }

    bool is_tab_stop() const override { return true; }

    void focus_gained() override { tell(&platform::EditorEvents::GotFocus); }

    void focus_lost() override { tell(&platform::EditorEvents::LostFocus); }

    /// The page's layout has the widget; nothing to do here.
    void place() override {}

    const std::string& name() const noexcept { return name_; }

    /// Called whenever the editor holds something else than before, or may.
    void set_on_touched(std::function<void()> handler) { on_touched_ = std::move(handler); }

    // A developer's acts, by a program. Within a `FormLoop::Script` the program gets what handlers
    // let out.

    /// Replaces the text as by typing: one change.
    /// \throws RuntimeError 438 for an editor without a text to type in
    virtual void type(const QString& text);
    /// A check box (no index), a position of a list from 0 or a tab from 1; ignored while disabled.
    /// \throws RuntimeError 438 for an editor that nothing can be clicked on; 380, 35600 for an
    ///         index that there is not
    virtual void click(std::int32_t index);
    void double_click();

    /// For the widget: whether it may have the event now. What waits is delivered before input, and
    /// input that is no longer meant for the editor by then is dropped.
    bool lets_in(const QEvent& event);
    /// For the widget: it has worked through the event.
    void has_worked_through(const QEvent& event);

protected:
    ~PageEditor();

    using Event = void (platform::EditorEvents::*)();

    /// Tells the listener. The page, this included, may be gone afterwards.
    void tell(Event event);
    /// `tell` for what the widget noticed of a person's act: nothing is let out into Qt.
    void tell_of_person(Event event);

    void touched() const;

    /// The widget is a child of the surface's root, at the latest when the root goes.
    void adopt(QWidget* widget);

    platform::RuntimeError failure(std::int32_t number, const char* description) const;

    void set_enabled(bool enabled);

    bool is_enabled() const noexcept { return enabled_; }

    platform::EditorEvents* events_ = nullptr;

private:
    std::string name_;
    QPointer<QWidget> widget_;
    bool enabled_ = true;
    std::function<void()> on_touched_;
};

/// An editor of the page over a widget.
template <class Interface>
class QtEditor : public Interface, public PageEditor {
public:
    using PageEditor::PageEditor;

    /// The widget calls the editor, so it goes first.
    ~QtEditor() override { delete widget(); }

    std::string_view Name() const override { return name(); }

    bool Enabled() const override { return is_enabled(); }

    void SetEnabled(bool enabled) override { set_enabled(enabled); }

    void SetFocus() override { surface().give_focus(*this, name()); }

    void SetEvents(platform::EditorEvents* events) override { events_ = events; }
};

/// A widget that asks its editor before it takes input, and that is not freed in the middle of it.
template <class Widget>
class Gated : public Widget {
public:
    Gated(PageEditor& editor, QWidget* parent)
        : Widget(parent)
        , editor_(editor) {}

protected:
    bool event(QEvent* event) override {
        const FormLoop::Activity activity(editor_.surface().loop());
        if (!editor_.lets_in(*event)) {
            return true;
        }
        const bool taken = Widget::event(event);
        editor_.has_worked_through(*event);
        return taken;
    }

    PageEditor& editor() const noexcept { return editor_; }

private:
    PageEditor& editor_;
};

} // namespace krv::qt
