#pragma once

#include "krv/platform/dialog_controls.h"
#include "krv/platform/life.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace krv::headless {

class HeadlessForm;
class PageEditor;

/// Which editor of a page has the focus, if any; none at first. The focus moves at once; what the
/// editors are told about it is queued with what waits on the form.
class PageFocus {
public:
    /// \param form  outlives this
    explicit PageFocus(HeadlessForm& form)
        : form_(form) {}

    HeadlessForm& form() const noexcept { return form_; }

    /// The editor that has the focus; null for none.
    PageEditor* current() const noexcept { return current_; }

    /// Moves the focus, to none for null; nothing happens when it is there already.
    void move_to(PageEditor* editor);

    /// Moves the focus to the next enabled editor, in the order in which they were made, wrapping
    /// around; to none when there is no such editor.
    void pass_on();

    /// The editor with this name, spelled exactly; null when there is none.
    PageEditor* find(std::string_view name) const noexcept;

    /// Appends the editor to the order.
    void add(PageEditor& editor) { order_.push_back(&editor); }

    /// The editor that is being destroyed.
    void remove(const PageEditor& editor) noexcept;

private:
    HeadlessForm& form_;
    std::vector<PageEditor*> order_;
    PageEditor* current_ = nullptr;
};

/// An editor as its page sees it. It may be destroyed inside anything that it tells.
class PageEditor {
public:
    /// \param focus  outlives the editor
    PageEditor(PageFocus& focus, std::string name);
    virtual ~PageEditor();
    PageEditor(const PageEditor&) = delete;
    PageEditor& operator=(const PageEditor&) = delete;

    const std::string& name() const noexcept { return name_; }

    bool is_enabled() const noexcept { return enabled_; }

    /// Disabling the editor that has the focus passes the focus on.
    void set_enabled(bool enabled);

    bool has_focus() const noexcept { return focus_.current() == this; }

    /// \throws RuntimeError 5 when it is disabled
    void require_focusable() const;

    /// \throws RuntimeError 5 when it is disabled
    void take_focus();

    void set_events(platform::EditorEvents* events) noexcept { events_ = events; }

    /// Expires when the editor is destroyed.
    std::weak_ptr<const void> watch() const { return life_.watch(); }

    using Event = void (platform::EditorEvents::*)();

    /// Tells the listener; always the last that a member does.
    void tell(Event event);

    /// Tells it in the next turn of the message loop.
    void tell_later(Event event);

    // What a person does with an enabled editor.

    /// Replaces the text.
    /// \throws RuntimeError 438 for an editor that nothing is typed into
    virtual void type(std::string_view text);

    /// \param index  position in a list, from 0, or tab, from 1
    /// \throws RuntimeError 438 for an editor in which a click chooses nothing
    virtual void click(std::int32_t index);

    void double_click() { tell(&platform::EditorEvents::DblClick); }

protected:
    /// \throws RuntimeError with this editor as its source
    [[noreturn]] void fail(std::int32_t number, const char* description) const;

private:
    PageFocus& focus_;
    std::string name_;
    bool enabled_ = true;
    platform::EditorEvents* events_ = nullptr;
    platform::LifeToken life_;
};

/// The members of `platform::Editor` over a `PageEditor`.
/// \tparam Interface  what derives from `platform::Editor`
template <class Interface>
class HeadlessEditor : public Interface, public PageEditor {
public:
    using PageEditor::PageEditor;

    std::string_view Name() const override { return name(); }

    bool Enabled() const override { return is_enabled(); }

    void SetEnabled(bool enabled) override { set_enabled(enabled); }

    void SetFocus() override { take_focus(); }

    void SetEvents(platform::EditorEvents* events) override { set_events(events); }
};

} // namespace krv::headless
