#pragma once

#include "server/form.h"

#include "krv/platform/error.h"
#include "krv/platform/grid.h"
#include "krv/standard/value_formatter.h"

#include "support/scripted_data.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace krv::server::testing {

using Lines = std::vector<std::string>;

/// What happened, in order. An act may be hung on a line; it runs right after it.
class Trace {
public:
    void note(const std::string& line) {
        lines_.push_back(line);
        const auto found = acts_.find(line);
        if (found != acts_.end()) {
            const std::function<void()> act = found->second;
            act();
        }
    }

    void on(const std::string& line, std::function<void()> act) {
        acts_.insert_or_assign(line, std::move(act));
    }

    void once(const std::string& line, std::function<void()> act) {
        on(line, [this, line, act = std::move(act)] {
            acts_.erase(line);
            act();
        });
    }

    const Lines& lines() const noexcept { return lines_; }

private:
    Lines lines_;
    std::map<std::string, std::function<void()>> acts_;
};

/// Listens to everything that a part or a surface tells, in place of the control.
class PartListener final : public platform::TextBoxEvents,
                           public platform::ButtonEvents,
                           public platform::GridEvents,
                           public platform::ContainerEvents {
public:
    PartListener(Trace& trace, std::string name)
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
        key_code = on_key_down ? on_key_down(key_code) : key_code;
    }

    void KeyPress(std::int16_t& key_ascii) override {
        note("KeyPress", {static_cast<float>(key_ascii)});
        key_ascii = on_key_press ? on_key_press(key_ascii) : key_ascii;
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

    std::function<std::int16_t(std::int16_t)> on_key_down;
    std::function<std::int16_t(std::int16_t)> on_key_press;

private:
    void note(const std::string& event, const std::vector<float>& arguments = {}) {
        std::ostringstream line;
        line.precision(9);
        line << name_ << '.' << event;
        for (const float argument : arguments) {
            line << ' ' << argument;
        }
        trace_.note(line.str());
    }

    Trace& trace_;
    std::string name_;
};

inline constexpr const char* part_names[] = {
    "Grid", "GridIn", "InpFld", "btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK", "Line1"};

/// A control on a stage; its parts tell the stage's trace in place of the control.
class StagedControl {
public:
    StagedControl(Form& form, Trace& trace, std::string name)
        : trace_(trace)
        , name_(std::move(name)) {
        control_ = form.new_control(
            {std::make_shared<krv::testing::ScriptedData>(),
             std::make_shared<standard::ValueFormatter>(standard::regional_settings("it-IT")),
             [this](std::string_view property) {
                 trace_.note(name_ + " changed " + std::string(property));
             }});
        listen();
        grid().Move(0, 0, 6000, 2000);
        line().Move(0, 2000, 6000, 510);
        for (platform::Grid* each : {&grid(), &line()}) {
            each->SetCols(3);
        }
        grid().SetRows(40);
        line().SetRows(2);
        box().Move(35, 2255, 960, 240);
        for (const char* part : part_names) {
            if (std::string_view(part) != "Line1") {
                this->part(part).SetVisible(true);
                this->part(part).SetEnabled(true);
                this->part(part).SetTabStop(true);
            }
        }
    }

    platform::Part& part(std::string_view part) { return *control_->part(part); }

    platform::Grid& grid() { return dynamic_cast<platform::Grid&>(part("Grid")); }

    platform::Grid& line() { return dynamic_cast<platform::Grid&>(part("GridIn")); }

    platform::TextBox& box() { return dynamic_cast<platform::TextBox&>(part("InpFld")); }

    PartListener& listener(const std::string& part) { return *listeners_.at(part); }

    FormControl& control() { return *control_; }

    bool exists() const { return control_ != nullptr; }

    void destroy() { std::exchange(control_, nullptr).reset(); }

    const std::string& name() const noexcept { return name_; }

    /// What a host sees of every part.
    std::string state() {
        if (!control_) {
            return "gone";
        }
        std::ostringstream text;
        text << "focus";
        for (const char* part : part_names) {
            if (control_->has_focus(this->part(part))) {
                text << ' ' << part;
            }
        }
        text << " | '" << box().Text() << "' " << box().SelStart() << '+' << box().SelLength()
             << " at " << box().Left();
        for (platform::Grid* each : {&grid(), &line()}) {
            text << " | " << each->Row() << ',' << each->Col() << " to " << each->RowSel() << ','
                 << each->ColSel() << " top " << each->TopRow() << " col at " << each->ColPos(1);
        }
        text << " | " << control_->surface().Width() << 'x' << control_->surface().Height();
        return text.str();
    }

private:
    PartListener& add_listener(const std::string& part) {
        auto& listener = listeners_[part];
        listener = std::make_unique<PartListener>(trace_, name_ + "." + part);
        return *listener;
    }

    void listen() {
        control_->surface().SetEvents(&add_listener("surface"));
        for (const char* part : part_names) {
            platform::Part& each = this->part(part);
            if (auto* const grid = dynamic_cast<platform::Grid*>(&each)) {
                grid->SetEvents(&add_listener(part));
            } else if (auto* const box = dynamic_cast<platform::TextBox*>(&each)) {
                box->SetEvents(&add_listener(part));
            } else if (auto* const button = dynamic_cast<platform::Button*>(&each)) {
                button->SetEvents(&add_listener(part));
            }
        }
    }

    Trace& trace_;
    std::string name_;
    std::map<std::string, std::unique_ptr<PartListener>> listeners_;
    std::unique_ptr<FormControl> control_;
};

/// A form with two controls, everything that they tell, and what their parts look like after every
/// act.
class Stage {
public:
    explicit Stage(std::unique_ptr<Form> its_form)
        : form(std::move(its_form)) {
        form->set_ask([this](std::string_view text, platform::MessageButtons buttons) {
            trace.note("asked " + std::string(text));
            return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok
                                                           : platform::MessageAnswer::yes;
        });
        form->turn();
    }

    /// Runs the act and notes the error that it lets out, and then the state.
    void act(const std::string& what, const std::function<void()>& run) {
        trace.note("> " + what);
        try {
            run();
        } catch (const platform::RuntimeError& error) {
            trace.note("error " + std::to_string(error.number()) + " " + error.description() +
                       " in " + error.source());
        }
        for (StagedControl* control : {&one, &two}) {
            trace.note("  " + control->name() + ": " + control->state());
        }
    }

    void focus(StagedControl& on, const std::string& part) {
        act("focus " + part, [&] { on.control().focus(on.part(part)); });
    }

    void key(StagedControl& on, const std::string& part, int code, int shift = 0) {
        act("key " + std::to_string(code) + " on " + part, [&] {
            on.control().key(
                on.part(part), static_cast<std::int16_t>(code), static_cast<std::int16_t>(shift));
        });
    }

    void key(int code, int shift = 0) {
        act("key " + std::to_string(code) + "/" + std::to_string(shift),
            [&] { form->key(static_cast<std::int16_t>(code), static_cast<std::int16_t>(shift)); });
    }

    void text(const std::string& text) {
        act("text " + text, [&] { form->text(text); });
    }

    void
    mouse(StagedControl& on, const std::string& part, MouseAction action, const Mouse& mouse = {}) {
        act("mouse " + std::to_string(static_cast<int>(action)) + " on " + part,
            [&] { on.control().mouse(on.part(part), action, mouse); });
    }

    std::unique_ptr<Form> form;
    Trace trace;
    StagedControl one{*form, trace, "one"};
    StagedControl two{*form, trace, "two"};
};

} // namespace krv::server::testing
