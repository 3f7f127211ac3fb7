#pragma once

#include "krv/headless/form_part.h"
#include "krv/standard/message_queue.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace krv::headless {

class HeadlessControl;
class HeadlessForm;

/// The person in front of a form.
///
/// Everything a person does is queued behind what is waiting, and each key, character, press and
/// release is worked through, with all that it causes, before the next begins. Every member gives
/// the message loop a turn before it returns; inside an event that is a turn inside a turn. The
/// first error of a handler comes out of the member; what the person did after that still waits
/// for the next turn, as what was typed ahead does.
class Person {
public:
    explicit Person(HeadlessForm& form);

    /// The focus moves to the part.
    /// \throws RuntimeError 5 when the part cannot take it
    void focus(FormPart& part);

    // Keys. Code and shift as in `platform::TextBoxEvents`. Tab and Shift+Tab move the focus as
    // `Focus::tab_moves_from` says; Enter and Space click a button; every other key goes to the
    // key-down handler of the part, then acts in the part, then its character is typed. Without
    // any focus keys are lost. A key that moved a list's current row scrolls the list to it.

    /// A key pressed and released where the focus is, with its character: letters, digits without
    /// Shift, blank, the number pad; none with Ctrl or Alt.
    void key(std::int16_t code, std::int16_t shift = 0);

    /// As `key`, after the focus moved to the part; lost when a field that its host refused took
    /// the focus back.
    /// \throws RuntimeError 5 when the part cannot take the focus
    void key(FormPart& part, std::int16_t code, std::int16_t shift = 0);

    /// A key on a control's own surface, wherever the focus is.
    void key(HeadlessControl& surface, std::int16_t code, std::int16_t shift = 0);

    /// Types the UTF-8 text character by character, each where the focus is by then. Key codes:
    /// letters 65 to 90 (Shift for capitals), digits 48 to 57, blank 32, tab 9, line end 13 (CR LF
    /// is one), every other character 231. Tab and line end are keys only.
    void text(std::string_view text);

    /// Ctrl+V, where the focus is, with this UTF-8 text in the clipboard.
    void paste(std::string_view text);

    // Mouse. A press moves the focus to the part first; when the focus is elsewhere by then, the
    // rest of what the person does with it is dropped. Hidden and disabled parts and lines ignore
    // the mouse.

    /// Presses and holds.
    void press(FormPart& part, const Mouse& mouse = {});

    /// Moves over the part: a drag when the press was on it.
    void move(FormPart& part, const Mouse& mouse = {});

    /// Lets go; on the pressed part this is a release and a click.
    void release(FormPart& part, const Mouse& mouse = {});

    /// Press, release, click.
    void click(FormPart& part, const Mouse& mouse = {});

    /// Press, release, click, press, double-click, release.
    void double_click(FormPart& part, const Mouse& mouse = {});

    /// The form gives the control another size, in twips.
    void resize(HeadlessControl& control, float width, float height);

private:
    /// A part that may be gone by the time it is looked at.
    class Watched {
    public:
        Watched() = default;

        explicit Watched(FormPart& part)
            : part_(&part)
            , life_(part.watch()) {}

        /// Null once it is gone.
        FormPart* get() const noexcept { return life_.expired() ? nullptr : part_; }

    private:
        FormPart* part_ = nullptr;
        std::weak_ptr<const void> life_;
    };

    struct Key {
        std::int16_t code = 0;
        std::int16_t shift = 0;
        std::string character; // UTF-8, empty for none
    };

    enum class AfterRelease { click, nothing };

    /// What a person does at one go; false drops the steps that follow.
    using Step = std::function<bool()>;
    using Steps = std::deque<Step>;

    void act(Steps steps);
    void post_next(const std::shared_ptr<Steps>& steps);

    Step focus_step(FormPart& part) const;
    Step key_step(Key key);
    Step press_step(FormPart& part, const Mouse& mouse);
    Step release_step(FormPart& part, const Mouse& mouse, AfterRelease after);

    void work_through(const Key& key);
    void give(FormPart& part, const Key& key);
    void move_by_tab(FormPart& part, std::int16_t shift);
    bool offer_key(FormPart& part, std::int16_t& code, std::int16_t& shift);
    void let_go();

    HeadlessForm& form_;
    Watched pressed_;
    standard::LifeToken life_;
};

} // namespace krv::headless
