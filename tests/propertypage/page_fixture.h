#pragma once

#include "krv/headless/headless_form.h"
#include "krv/headless/headless_page.h"
#include "krv/platform/error.h"
#include "krv/standard/value_formatter.h"

#include "support/errors.h"
#include "support/scripted_data.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace krv::propertypage::testing {

using krv::testing::error_number_of;
using krv::testing::ScriptedData;
using Lines = std::vector<std::string>;
using Numbers = std::vector<std::int32_t>;
using platform::Value;
using platform::ValueKind;
using platform::ValueView;

inline std::string shown(const Value& value) {
    switch (value.kind()) {
    case ValueKind::text:
        return "'" + std::string(value.view().as_text()) + "'";
    case ValueKind::boolean:
        return value.view().as_boolean() ? "True" : "False";
    default:
        return std::to_string(value.view().as_whole());
    }
}

inline std::string call(std::string_view member, std::span<const Value> arguments) {
    return std::string(member) + (arguments.empty() ? "" : "(" + shown(arguments[0]) + ")");
}

/// A control that only remembers. Columns that were not told have empty settings.
class ScriptedControl final : public platform::AutomationObject {
public:
    explicit ScriptedControl(Lines& trace)
        : trace_(trace) {
        for (const char* flag : {"AutoAdd",
                                 "OkVisible",
                                 "CopyVisible",
                                 "DeleteVisible",
                                 "InsertVisible",
                                 "AddVisible",
                                 "Enabled"}) {
            set(flag, false);
        }
        set("Rows", 0);
        set("LineNumberColumn", -1);
        set("Cols", 1);
        set("DataBaseName", "");
        set("Recordsource", "");
        set("Connect", "");
    }

    void set(const std::string& what, const char* value) {
        values[what] = Value::text(std::string(value));
    }

    void set(const std::string& what, bool value) {
        values[what] = Value(ValueView::boolean(value));
    }

    void set(const std::string& what, std::int32_t value) {
        values[what] = Value(ValueView::long_integer(value));
    }

    Value Get(std::string_view member, std::span<const Value> arguments) override {
        act("get " + call(member, arguments));
        const auto found = values.find(call(member, arguments));
        if (found != values.end()) {
            return found->second;
        }
        const bool is_text =
            member == "Caption" || member == "ColDataField" || member == "ColFormat";
        return is_text ? Value::text("") : Value(ValueView::integer(0));
    }

    void
    Put(std::string_view member, std::span<const Value> arguments, const Value& value) override {
        act("put " + call(member, arguments) + " " + shown(value));
        values[call(member, arguments)] = value;
    }

    std::map<std::string, Value> values;
    bool gone = false;
    std::map<std::string, std::function<void()>> acts; ///< run by the line that they are hung on

private:
    void act(const std::string& line) {
        if (gone) {
            throw platform::RuntimeError(91, "gone", "test");
        }
        trace_.push_back(line);
        const auto found = acts.find(line);
        if (found != acts.end()) {
            const std::function<void()> run = found->second;
            run();
        }
    }

    Lines& trace_;
};

class ScriptedSite final : public platform::PropertyPageSite {
public:
    std::int32_t SelectedControlsCount() const override {
        return static_cast<std::int32_t>(selection.size());
    }

    std::shared_ptr<platform::AutomationObject> SelectedControls(std::int32_t index) override {
        if (index >= SelectedControlsCount()) {
            throw platform::RuntimeError(9, "none", "test");
        }
        const auto& control = selection[static_cast<std::size_t>(index)];
        if (control->gone) {
            throw platform::RuntimeError(91, "gone", "test");
        }
        return control;
    }

    bool Changed() const override { return changed; }

    void SetChanged(bool value) override {
        changed = value;
        marks += value ? 1 : 0;
        if (value && on_mark) {
            const std::function<void()> act = on_mark;
            act();
        }
    }

    std::vector<std::shared_ptr<ScriptedControl>> selection;
    bool changed = false;
    int marks = 0; ///< how often the page marked itself as changed
    std::function<void()> on_mark;
};

/// A property page without a screen, Italian settings.
class PageTest : public ::testing::Test {
protected:
    PageTest() {
        form.application().set_ask([this](const headless::ShownMessage& message) {
            if (on_message) {
                on_message(message.text);
            }
            return platform::MessageAnswer::yes;
        });
        open();
    }

    void open() {
        editors = std::make_unique<headless::HeadlessPage>(form);
        page = std::make_unique<pKrvList>(
            editors->editors(), PageSurroundings{site, form.application(), data, formatter});
    }

    void close() {
        page.reset();
        editors.reset();
    }

    /// Selects a control with so many columns and reads it.
    ScriptedControl& load(std::int32_t cols = 1) {
        auto control = make_control(cols);
        site.selection = {control};
        page->SelectionChanged();
        forget();
        return *control;
    }

    std::shared_ptr<ScriptedControl> make_control(std::int32_t cols) {
        auto control = std::make_shared<ScriptedControl>(trace);
        control->set("Cols", cols);
        for (std::int32_t col = 0; col < cols; ++col) {
            const std::string index = "(" + std::to_string(col) + ")";
            control->set("Caption" + index, ("caption " + std::to_string(col)).c_str());
        }
        return control;
    }

    void forget() {
        trace.clear();
        site.marks = 0;
        form.application().clear_messages();
    }

    // The developer

    headless::PageEditor& editor(const std::string& name) { return *editors->editor(name); }

    void enter(const std::string& name) { editors->enter(editor(name)); }

    void leave(const std::string& name) {
        enter(name);
        if (editors) {
            editors->leave(editor(name));
        }
    }

    void type(const std::string& name, std::string_view text) { editors->text(editor(name), text); }

    void fill(const std::string& name, std::string_view text) {
        enter(name);
        type(name, text);
        editors->leave(editor(name));
    }

    void click(const std::string& name, std::int32_t index = 0) {
        editors->click(editor(name), index);
    }

    /// The next box is answered No.
    void answer_no() { form.application().answer_next(platform::MessageAnswer::no); }

    // What is seen

    PageEditors parts() { return editors->editors(); }

    /// Boxes shown since the last `forget` as "text|buttons".
    Lines messages() {
        Lines texts;
        for (const auto& message : form.application().messages()) {
            const bool ok = message.buttons == platform::MessageButtons::ok;
            texts.push_back(message.text + (ok ? "|ok" : "|yesno"));
        }
        return texts;
    }

    Lines tabs() {
        Lines captions;
        const platform::TabStrip& strip = parts().TabStrip1;
        for (std::int32_t i = 1; i <= strip.Count(); ++i) {
            captions.push_back(strip.Caption(i));
        }
        return captions;
    }

    std::string focused() {
        for (const PageLabel& label : page_labels()) {
            if (editors->editor(label.editor)->has_focus()) {
                return std::string(label.editor);
            }
        }
        return {};
    }

    /// The type list's item data at the selection, -1 for none.
    std::int32_t shown_type() {
        const platform::ComboBox& list = parts().cmbDataType;
        return list.ListIndex() < 0 ? -1 : list.ItemData(list.ListIndex());
    }

    Lines trace; ///< what was asked of the controls
    ScriptedSite site;
    ScriptedData data;
    standard::ValueFormatter formatter{standard::regional_settings("it-IT")};
    headless::HeadlessForm form;
    std::unique_ptr<headless::HeadlessPage> editors;
    std::unique_ptr<pKrvList> page;
    std::function<void(const std::string&)> on_message;
};

inline const std::string ERASE = "this will erase some of the existing columns. confirm?|yesno";

} // namespace krv::propertypage::testing
