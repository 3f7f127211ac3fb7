#pragma once

#include "server/form_page.h"

#include "krv/control/karvo_list.h"
#include "krv/platform/controls.h"
#include "krv/platform/host.h"
#include "krv/platform/property_store.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace krv::server {

/// Where and how a person uses the mouse: place in twips from the part's top left.
struct Mouse {
    std::int16_t button = 1;
    std::int16_t shift = 0;
    float x = 0;
    float y = 0;
};

enum class MouseAction : std::uint8_t { press, move, release, click, double_click };

/// One control on a form, with its parts. Goes when its owner lets go of it, which is allowed inside
/// any event of it.
class FormControl {
public:
    virtual ~FormControl() = default;

    virtual KarvoList& list() = 0;
    /// The control's own surface.
    virtual platform::Container& surface() = 0;
    /// The part with this name, spelled exactly; null when there is none.
    virtual platform::Part* part(std::string_view name) = 0;
    /// Whether the focus of the form is on the part.
    virtual bool has_focus(const platform::Part& part) const = 0;

    // A person's acts. Each gives the message loop one turn before it returns and lets out the first
    // error of a handler. Parts are parts of this control.

    /// \throws RuntimeError 5 when the part cannot take the focus
    virtual void focus(platform::Part& part) = 0;
    /// A key on the part, focused first.
    /// \throws RuntimeError 5 when the part cannot take the focus
    virtual void key(platform::Part& part, std::int16_t code, std::int16_t shift) = 0;
    /// Ignored on a hidden or disabled part.
    virtual void mouse(platform::Part& part, MouseAction action, const Mouse& mouse) = 0;
    /// The form gives the control another size, in twips.
    virtual void resize(float width, float height) = 0;
};

/// What a control needs that its form does not have.
struct Supplies {
    std::shared_ptr<platform::DataAccess> data_access;
    std::shared_ptr<const platform::Formatter> formatter;
    /// Told of every changed property, after the control's start-up.
    std::function<void(std::string_view)> on_property_changed;
};

/// A form that holds the controls of one server. One message loop, one focus.
///
/// Nothing is delivered between calls: what is queued waits for `turn`, for an act of a person, for
/// a yield of a control, or, in a real window, for what a person does there.
class Form {
public:
    using Ask = std::function<platform::MessageAnswer(std::string_view text,
                                                      platform::MessageButtons buttons)>;

    virtual ~Form() = default;

    /// "headless" or "qt".
    virtual std::string_view backend() const = 0;

    /// A newly placed control of 6000 x 3000 twips, behind the others in tab order. It does not
    /// outlive the form.
    virtual std::unique_ptr<FormControl> new_control(Supplies supplies) = 0;

    /// A stored control, its settings read from the bag; else as `new_control`.
    /// \throws what reading the settings raises; there is no control then
    virtual std::unique_ptr<FormControl> load_control(Supplies supplies,
                                                      platform::PropertyBag& bag) = 0;

    /// The property page in a window of its own, created but not yet told of a selection. It does
    /// not outlive the form.
    virtual std::unique_ptr<FormPage> new_page(PageSupplies supplies) = 0;

    /// The application: its title, and its message boxes, which `ask` answers.
    virtual platform::Application& application() = 0;
    virtual void set_ask(Ask ask) = 0;

    /// An object of the host that controls can hand the focus to.
    virtual std::shared_ptr<platform::Object> make_object(std::string name, bool focusable) = 0;

    /// One turn of the message loop.
    virtual void turn() = 0;

    // A person's acts, as for `FormControl`.

    /// The focus goes to the form's own text box, which is in no control.
    virtual void focus_outside() = 0;
    /// A key where the focus is.
    virtual void key(std::int16_t code, std::int16_t shift) = 0;
    /// Typed character by character where the focus is.
    virtual void text(std::string_view text) = 0;
};

} // namespace krv::server
