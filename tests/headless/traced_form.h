#pragma once

#include "krv/headless/headless_form.h"
#include "krv/platform/error.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace krv::headless {

using Lines = std::vector<std::string>;

/// What happened, in order. An act may be hung on an event; it runs right after the line.
class Trace {
public:
    void note(const std::string& event, const std::string& arguments = {}) {
        lines_.push_back(event + arguments);
        const auto found = acts_.find(event);
        if (found != acts_.end()) {
            const std::function<void()> act = found->second;
            act();
        }
    }

    void on(const std::string& event, std::function<void()> act) {
        acts_.insert_or_assign(event, std::move(act));
    }

    void once(const std::string& event, std::function<void()> act) {
        on(event, [this, event, act = std::move(act)] {
            acts_.erase(event);
            act();
        });
    }

    /// The lines since the last call.
    Lines taken() { return std::exchange(lines_, {}); }

private:
    Lines lines_;
    std::map<std::string, std::function<void()>> acts_;
};

inline std::string shown(const std::vector<float>& arguments) {
    std::string text = "(";
    for (const float argument : arguments) {
        text += text.size() > 1 ? ", " : "";
        text += std::to_string(static_cast<int>(argument));
    }
    return text + ")";
}

/// Listens to everything that a part can tell.
class Listener final : public platform::TextBoxEvents,
                       public platform::ButtonEvents,
                       public platform::GridEvents,
                       public platform::ContainerEvents {
public:
    Listener(Trace& trace, std::string name)
        : trace_(trace)
        , name_(std::move(name)) {}

    void Change() override { note("Change"); }

    void DblClick() override { note("DblClick"); }

    void GotFocus() override { note("GotFocus"); }

    void LostFocus() override { note("LostFocus"); }

    void Click() override { note("Click"); }

    void RowColChange() override { note("RowColChange"); }

    void Resize() override { note("Resize"); }

    void ExitFocus() override { note("ExitFocus"); }

    void KeyDown(std::int16_t& key_code, std::int16_t& shift) override {
        note("KeyDown", {static_cast<float>(key_code), static_cast<float>(shift)});
        if (on_key_down) {
            on_key_down(key_code);
        }
    }

    void KeyPress(std::int16_t& key_ascii) override {
        note("KeyPress", {static_cast<float>(key_ascii)});
        if (on_key_press) {
            on_key_press(key_ascii);
        }
    }

    void MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override {
        note("MouseDown", {static_cast<float>(button), static_cast<float>(shift), x, y});
    }

    void MouseUp(std::int16_t button, std::int16_t shift, float x, float y) override {
        note("MouseUp", {static_cast<float>(button), static_cast<float>(shift), x, y});
    }

    void Click(std::int16_t button, std::int16_t shift, float x, float y) override {
        note("Click", {static_cast<float>(button), static_cast<float>(shift), x, y});
    }

    std::function<void(std::int16_t&)> on_key_down;
    std::function<void(std::int16_t&)> on_key_press;

private:
    void note(const std::string& event) { trace_.note(name_ + "." + event); }

    void note(const std::string& event, const std::vector<float>& arguments) {
        trace_.note(name_ + "." + event, shown(arguments));
    }

    Trace& trace_;
    std::string name_;
};

/// A form with one control, everything listened to. `Grid` and `GridIn` have three columns of 960
/// twips; `Grid` has the captions and five rows of 240.
class TracedForm : public ::testing::Test {
protected:
    TracedForm() {
        form.outside().SetEvents(&outside_events);
        control->SetEvents(&surface_events);
        control->Grid().SetEvents(&grid_events);
        control->GridIn().SetEvents(&grid_in_events);
        control->InpFld().SetEvents(&inp_fld_events);
        control->btnAdd().SetEvents(&add_events);
        control->btnOK().SetEvents(&ok_events);
        control->Grid().Move(0, 0, 6000, 2000);
        control->GridIn().Move(0, 2000, 6000, 510);
        control->Grid().SetCols(3);
        control->GridIn().SetCols(3);
        control->Grid().SetRows(6);
    }

    Person& person() { return form.person(); }

    HeadlessTextBox& box() { return control->InpFld(); }

    Lines taken() { return trace.taken(); }

    /// Name of the part with the focus, empty for none.
    std::string focused() {
        const FormPart* part = form.focus().current();
        return part == nullptr ? "" : std::string(part->name());
    }

    void focus(FormPart& part) {
        person().focus(part);
        trace.taken();
    }

    void destroy() { form.remove_control(*std::exchange(control, nullptr)); }

    Trace trace;
    Listener outside_events{trace, "outside"};
    Listener surface_events{trace, "surface"};
    Listener grid_events{trace, "Grid"};
    Listener grid_in_events{trace, "GridIn"};
    Listener inp_fld_events{trace, "InpFld"};
    Listener add_events{trace, "btnAdd"};
    Listener ok_events{trace, "btnOK"};
    HeadlessForm form;
    HeadlessControl* control = &form.add_control();
};

/// Number of the run-time error that the call fails with; 0 when it does not fail.
template <class Call>
std::int32_t error_of(Call call) {
    try {
        call();
    } catch (const platform::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

[[noreturn]] inline void fail_with(std::int32_t number) {
    throw platform::RuntimeError(number, "failed", "test");
}

} // namespace krv::headless
