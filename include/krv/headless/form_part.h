#pragma once

#include "krv/platform/units.h"
#include "krv/standard/measures.h"
#include "krv/standard/message_queue.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace krv::headless {

class HeadlessControl;
class HeadlessForm;

/// Where and how a person uses the mouse: button 1 left, 2 right, 4 middle; shift 1 Shift, 2 Ctrl,
/// 4 Alt added together; place in twips from the part's top left.
struct Mouse {
    std::int16_t button = 1;
    std::int16_t shift = 0;
    float x = 0;
    float y = 0;
};

/// What every part remembers. Places and sizes in twips, fonts in points.
struct PartState {
    bool visible = true;
    bool enabled = true;
    bool tab_stop = true;
    platform::TwipsSingle left = 0;
    platform::TwipsSingle top = 0;
    platform::TwipsSingle width = 0;
    platform::TwipsSingle height = 0;
    float font_size = standard::default_font_size;
};

/// Whether a part can ever have the focus.
enum class FocusRole { takes_focus, takes_none };

/// A part as its form sees it: its state, its place in the tab order, the receiver of a person's
/// input. The tab order of a form is the order in which its parts were made.
///
/// A part whose control was removed is retired: it tells nobody anything, and what was queued for
/// it is dropped. It lives on until no call of the form can be inside it.
class FormPart {
public:
    /// \param form     the part that outlives it takes no focus any more
    /// \param control  whose part it is; null for a part of the form itself
    FormPart(HeadlessForm& form,
             HeadlessControl* control,
             std::string name,
             FocusRole role = FocusRole::takes_focus);
    virtual ~FormPart();
    FormPart(const FormPart&) = delete;
    FormPart& operator=(const FormPart&) = delete;

    std::string_view name() const noexcept { return name_; }

    HeadlessForm& form() const noexcept { return form_; }

    HeadlessControl* control() const noexcept { return control_; }

    const PartState& state() const noexcept { return state_; }

    /// Visible and enabled: a person can press it.
    bool is_usable() const noexcept { return state_.visible && state_.enabled; }

    bool can_take_focus() const noexcept {
        return is_usable() && role_ == FocusRole::takes_focus && !is_retired();
    }

    /// Tab stops at it. False for a part that never has the focus.
    bool is_tab_stop() const noexcept { return state_.tab_stop && role_ == FocusRole::takes_focus; }

    bool has_focus() const noexcept;

    bool is_retired() const noexcept { return !life_.has_value(); }

    /// Expires when the part is retired or destroyed.
    std::weak_ptr<const void> watch() const;

    /// Queues a notification of this part; nothing for a retired one.
    void post(std::function<void()> notification);

    /// Takes the part out of the form for good: no listener, no focus, no queued notifications.
    void retire();

    // State, as `platform::Part` says it

    void set_visible(bool visible);
    void set_enabled(bool enabled);

    void set_tab_stop(bool tab_stop) noexcept { state_.tab_stop = tab_stop; }

    /// \throws RuntimeError 5 when the part cannot take the focus
    void take_focus();

    // A person's input, worked through at once. Each may run the host's code.

    virtual void got_focus() {}

    virtual void lost_focus() {}

    /// Whether the key clicks the part instead of reaching the key handling.
    virtual bool is_clicked_by(std::int16_t /*key_code*/) const { return false; }

    /// The key-down handler that keys on this part go to.
    virtual void key_down(std::int16_t& /*key_code*/, std::int16_t& /*shift*/) {}

    /// What the key does in the part by itself.
    virtual void act_on_key(std::int16_t /*key_code*/, std::int16_t /*shift*/) {}

    /// One character, UTF-8.
    virtual void type(std::string_view /*character*/) {}

    /// A text from a clipboard, UTF-8.
    virtual void paste(std::string_view /*text*/) {}

    virtual void press(const Mouse& /*mouse*/) {}

    virtual void drag(const Mouse& /*mouse*/) {}

    /// The mouse button is no longer held, wherever that was; comes before `release`.
    virtual void let_go() {}

    virtual void release(const Mouse& /*mouse*/) {}

    virtual void click(const Mouse& /*mouse*/) {}

    virtual void double_click(const Mouse& /*mouse*/) {}

protected:
    PartState& changeable_state() noexcept { return state_; }

    /// Forgets the listener.
    virtual void drop_events() = 0;

private:
    void leave_focus_when_unusable();

    HeadlessForm& form_;
    HeadlessControl* control_;
    std::string name_;
    FocusRole role_;
    PartState state_;
    std::weak_ptr<const void> form_life_;
    std::optional<standard::LifeToken> life_{std::in_place};
};

} // namespace krv::headless
