#pragma once

#include "qt/coded_events.h"
#include "qt/form_loop.h"
#include "server/form.h"

#include "krv/standard/message_queue.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QWidget;

namespace krv::qt {

class PartHandle;
class QtContainer;

} // namespace krv::qt

namespace krv::server {

/// A program in the place of the person in front of a window.
///
/// Everything is queued behind what is waiting, and each key, character, press and release is an
/// event of Qt for the widget that it is meant for, worked through with all that it causes before
/// the next. Every member gives the message loop a turn before it returns. The first error of a
/// handler comes out of the member; what was done after that still waits for the next turn. Parts
/// may be gone by then, and so may whoever called.
class QtPerson {
public:
    /// \param window  outlives the person
    QtPerson(QWidget& window, std::shared_ptr<qt::FormLoop> loop);

    /// \throws RuntimeError 5 when the part cannot take the focus
    void focus(platform::Part& part);
    /// The focus goes to a widget that is no part.
    void focus(QWidget& widget);

    /// A key pressed and released where the focus is, with its character; lost without any focus.
    void key(std::int16_t code, std::int16_t shift);
    /// As `key`, after the focus moved to the part.
    /// \throws RuntimeError 5 when the part cannot take the focus
    void key(platform::Part& part, std::int16_t code, std::int16_t shift);

    /// Typed character by character, each where the focus is by then.
    void text(std::string_view text);

    /// The steps of the action. Hidden and disabled parts and lines ignore the mouse.
    void mouse(platform::Part& part, MouseAction action, const Mouse& mouse);

    /// The form gives the control another size, in twips.
    void resize(platform::Part& some_part, qt::QtContainer& control, float width, float height);

private:
    /// A part that may be gone by the time it is looked at.
    class Watched {
    public:
        Watched() = default;
        explicit Watched(platform::Part& part);

        bool is_gone() const noexcept { return life_.expired(); }

        platform::Part& part() const noexcept { return *part_; }

        qt::PartHandle& handle() const noexcept { return *handle_; }

        bool is_usable() const { return !is_gone() && part_->Visible() && part_->Enabled(); }

        bool is(const Watched& other) const noexcept { return !is_gone() && part_ == other.part_; }

    private:
        platform::Part* part_ = nullptr;
        qt::PartHandle* handle_ = nullptr;
        std::weak_ptr<const void> life_;
    };

    struct Key {
        std::int16_t code = 0;
        std::int16_t shift = 0;
        std::string character; // UTF-8, empty for none
    };

    using AtRelease = qt::CodedMouseEvent::AtRelease;

    /// What a person does at one go; false drops the steps that follow.
    using Step = std::function<bool()>;
    using Steps = std::deque<Step>;

    void act(Steps steps);
    void post_next(const std::shared_ptr<Steps>& steps);

    Step focus_step(const Watched& target) const;
    Step key_step(Key key);
    Step press_step(const Watched& target, const Mouse& mouse);
    Step move_step(const Watched& target, const Mouse& mouse);
    Step release_step(const Watched& target, const Mouse& mouse, AtRelease at_release);
    Step double_click_step(const Watched& target, const Mouse& mouse);

    void send_key(QWidget& widget, const Key& key);
    void send_mouse(const Watched& target,
                    QEvent::Type type,
                    const Mouse& mouse,
                    AtRelease at_release = AtRelease::nothing);
    void let_go();

    QWidget& window_;
    std::shared_ptr<qt::FormLoop> loop_;
    Watched pressed_;
    standard::LifeToken life_;
};

} // namespace krv::server
