#include "krv/headless/person.h"

#include "headless/key_characters.h"

#include "krv/headless/headless_form.h"
#include "krv/platform/error.h"
#include "krv/platform/keys.h"

#include <utility>

namespace krv::headless {

using platform::ctrl_key;
using platform::key_tab;
using platform::key_v;
using platform::shift_key;

namespace {

void require_focusable(const FormPart& part) {
    if (!part.can_take_focus()) {
        throw platform::RuntimeError(platform::error_number::invalid_call,
                                     "Invalid procedure call or argument",
                                     std::string(part.name()));
    }
}

} // namespace

Person::Person(HeadlessForm& form)
    : form_(form) {}

void Person::act(Steps steps) {
    post_next(std::make_shared<Steps>(std::move(steps)));
    form_.turn();
}

void Person::post_next(const std::shared_ptr<Steps>& steps) {
    if (steps->empty()) {
        return;
    }
    form_.queue().post(life_, [this, steps] {
        const Step step = std::move(steps->front());
        steps->pop_front();
        bool goes_on = true;
        try {
            goes_on = step();
        } catch (...) {
            post_next(steps);
            throw;
        }
        if (goes_on) {
            post_next(steps);
        }
    });
}

// --- Keys ----------------------------------------------------------------------------------------

Person::Step Person::focus_step(FormPart& part) const {
    return [&form = form_, watched = Watched(part)] {
        FormPart* const target = watched.get();
        if (target == nullptr || !target->can_take_focus()) {
            return false;
        }
        form.focus().set(*target);
        return true;
    };
}

Person::Step Person::key_step(Key key) {
    return [this, key = std::move(key)] {
        work_through(key);
        return true;
    };
}

void Person::focus(FormPart& part) {
    require_focusable(part);
    act({focus_step(part)});
}

void Person::key(std::int16_t code, std::int16_t shift) {
    act({key_step({code, shift, character_of_key(code, shift)})});
}

void Person::key(FormPart& part, std::int16_t code, std::int16_t shift) {
    require_focusable(part);
    const auto is_still_there = [watched = Watched(part)] {
        return watched.get() != nullptr && watched.get()->has_focus();
    };
    act({focus_step(part), is_still_there, key_step({code, shift, character_of_key(code, shift)})});
}

void Person::key(HeadlessControl& surface, std::int16_t code, std::int16_t shift) {
    act({[&surface, life = surface.watch(), code, shift] {
        if (!life.expired()) {
            std::int16_t offered_code = code;
            std::int16_t offered_shift = shift;
            const std::int32_t row = surface.Grid().Row();
            surface.key_down(offered_code, offered_shift);
            if (!life.expired()) {
                surface.follow_row(row);
            }
        }
        return true;
    }});
}

void Person::text(std::string_view text) {
    Steps steps;
    for (TypedCharacter& typed : typed_characters(text)) {
        steps.push_back(key_step({typed.code, typed.shift, std::move(typed.character)}));
    }
    act(std::move(steps));
}

void Person::paste(std::string_view text) {
    act({[this, clipboard = std::string(text)] {
        FormPart* const part = form_.focus().current();
        std::int16_t code = key_v;
        std::int16_t shift = ctrl_key;
        if (part != nullptr && offer_key(*part, code, shift)) {
            part->paste(clipboard);
        }
        return true;
    }});
}

void Person::work_through(const Key& key) {
    FormPart* const part = form_.focus().current();
    if (part == nullptr) {
        return;
    }
    HeadlessControl* const control = part->control();
    if (control == nullptr) {
        give(*part, key);
        return;
    }
    const std::weak_ptr<const void> life = control->watch();
    const std::int32_t row = control->Grid().Row();
    give(*part, key);
    if (!life.expired()) {
        control->follow_row(row);
    }
}

void Person::give(FormPart& part, const Key& key) {
    const bool is_tab = key.code == key_tab && (key.shift & ~shift_key) == 0;
    if (is_tab && form_.focus().tab_moves_from(part)) {
        move_by_tab(part, key.shift);
        return;
    }
    if (part.is_clicked_by(key.code)) {
        part.click({});
        return;
    }
    std::int16_t code = key.code;
    std::int16_t shift = key.shift;
    if (!offer_key(part, code, shift)) {
        return;
    }
    const Watched watched(part);
    part.act_on_key(code, shift);
    if (!key.character.empty() && watched.get() != nullptr && part.has_focus()) {
        part.type(key.character);
    }
}

void Person::move_by_tab(FormPart& part, std::int16_t shift) {
    const auto direction =
        (shift & shift_key) != 0 ? TabDirection::backward : TabDirection::forward;
    if (FormPart* const next = form_.focus().next(&part, direction)) {
        form_.focus().set(*next);
    }
}

/// Calls the key-down handler. False when the key is swallowed, or when the part that it was meant
/// for is gone or has no longer the focus.
bool Person::offer_key(FormPart& part, std::int16_t& code, std::int16_t& shift) {
    const Watched watched(part);
    part.key_down(code, shift);
    return code != 0 && watched.get() != nullptr && part.has_focus();
}

// --- Mouse ---------------------------------------------------------------------------------------

Person::Step Person::press_step(FormPart& part, const Mouse& mouse) {
    return [this, watched = Watched(part), mouse] {
        let_go();
        FormPart* const target = watched.get();
        if (target == nullptr || !target->has_focus()) {
            return false;
        }
        pressed_ = watched;
        target->press(mouse);
        return true;
    };
}

Person::Step Person::release_step(FormPart& part, const Mouse& mouse, AfterRelease after) {
    return [this, watched = Watched(part), mouse, after] {
        FormPart* const target = watched.get();
        FormPart* const pressed = pressed_.get();
        let_go();
        if (target == nullptr || target != pressed || !target->is_usable()) {
            return true;
        }
        target->release(mouse);
        const bool is_usable = watched.get() != nullptr && target->is_usable();
        if (after == AfterRelease::click && is_usable) {
            target->click(mouse);
        }
        return true;
    };
}

void Person::let_go() {
    if (FormPart* const pressed = pressed_.get()) {
        pressed->let_go();
    }
    pressed_ = Watched();
}

void Person::press(FormPart& part, const Mouse& mouse) {
    act({focus_step(part), press_step(part, mouse)});
}

void Person::move(FormPart& part, const Mouse& mouse) {
    act({[this, watched = Watched(part), mouse] {
        FormPart* const target = watched.get();
        if (target != nullptr && target == pressed_.get() && target->is_usable()) {
            target->drag(mouse);
        }
        return true;
    }});
}

void Person::release(FormPart& part, const Mouse& mouse) {
    act({release_step(part, mouse, AfterRelease::click)});
}

void Person::click(FormPart& part, const Mouse& mouse) {
    act({focus_step(part),
         press_step(part, mouse),
         release_step(part, mouse, AfterRelease::click)});
}

void Person::double_click(FormPart& part, const Mouse& mouse) {
    const auto second = [watched = Watched(part), mouse] {
        FormPart* const target = watched.get();
        if (target != nullptr && target->is_usable()) {
            target->double_click(mouse);
        }
        return true;
    };
    act({focus_step(part),
         press_step(part, mouse),
         release_step(part, mouse, AfterRelease::click),
         focus_step(part),
         press_step(part, mouse),
         second,
         release_step(part, mouse, AfterRelease::nothing)});
}

void Person::resize(HeadlessControl& control, float width, float height) {
    act({[&control, life = control.watch(), width, height] {
        if (!life.expired()) {
            control.resize(width, height);
        }
        return true;
    }});
}

} // namespace krv::headless
