#pragma once

#include "krv/control/karvo_list.h"
#include "krv/headless/headless_form.h"
#include "krv/standard/value_formatter.h"

#include "support/scripted_data.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace krv::testing {

inline platform::Value whole(std::int32_t value) {
    return platform::Value(platform::ValueView::long_integer(value));
}

inline platform::Value real(double value) {
    return platform::Value(platform::ValueView::double_float(value));
}

inline platform::Value date(double serial) {
    return platform::Value(platform::ValueView::date({serial}));
}

inline platform::Value text(std::string value) {
    return platform::Value::text(std::move(value));
}

inline platform::Value null() {
    return platform::Value(platform::ValueView::null());
}

/// A newly placed control of 6000 x 3000 twips on a form without a screen, Italian settings.
class ListTest : public ::testing::Test {
protected:
    void SetUp() override { place(data); }

    /// Places the control over this data layer, which outlives the test's control.
    void place(platform::DataAccess& data_access) { place(data_access, nullptr); }

    /// Places a stored control in place of the one that is there.
    /// \throws what reading the bag raises; there is no control then
    void load(platform::PropertyBag& bag) {
        if (alive()) {
            destroy();
        }
        changed.clear();
        place(data, &bag);
    }

    KarvoList& list() { return *list_; }

    const Constituents& parts() const { return *parts_; }

    platform::Container& container() { return *surface_; }

    platform::Application& application() { return form_.application(); }

    headless::Person& person() { return form_.person(); }

    std::int64_t repaints() const { return surface_->repaints(); }

    bool alive() const { return list_ != nullptr; }

    /// As a host does it, inside an event or outside.
    void destroy() {
        list_.reset();
        form_.remove_control(*surface_);
    }

    void resize(float width, float height) { form_.person().resize(*surface_, width, height); }

    /// A person leaves the control for another field of the form.
    void focus_outside() { form_.person().focus(form_.outside()); }

    // A person, where the focus is.

    void type(std::string_view text) { form_.person().text(text); }

    void key(std::int16_t code, std::int16_t shift = 0) { form_.person().key(code, shift); }

    void double_click(std::string_view part) { form_.person().double_click(*surface_->part(part)); }

    void turn() { form_.turn(); }

    /// The next box is answered so; later ones as by closing them.
    void answer_next(platform::MessageAnswer answer) { form_.application().answer_next(answer); }

    /// Runs in the next turn of the message loop.
    void post(std::function<void()> act) { form_.queue().post(life_, std::move(act)); }

    /// Boxes shown so far as "text|buttons|title".
    std::vector<std::string> messages() {
        std::vector<std::string> texts;
        for (const auto& message : form_.application().messages()) {
            const bool ok = message.buttons == platform::MessageButtons::ok;
            texts.push_back(message.text + (ok ? "|ok|" : "|yesno|") + message.title);
        }
        return texts;
    }

    ScriptedData data;
    std::vector<std::string> changed;          ///< notified properties, in order
    std::vector<std::string> changed_at_start; ///< those of the start-up
    std::function<void(const std::string&)> on_changed;
    std::function<void(const std::string&)> on_message;

private:
    void place(platform::DataAccess& data_access, platform::PropertyBag* bag) {
        surface_ = &form_.add_control();
        surface_->set_on_property_changed([this](std::string_view name) {
            changed.emplace_back(name);
            if (on_changed) {
                on_changed(changed.back());
            }
        });
        form_.application().set_ask([this](const headless::ShownMessage& message) {
            if (on_message) {
                on_message(message.text);
            }
            return platform::MessageAnswer::ok;
        });
        parts_ = std::make_unique<Constituents>(surface_->constituents());
        list_ = std::make_unique<KarvoList>(
            *parts_, Surroundings{*surface_, form_.application(), data_access, formatter_});
        if (bag == nullptr) {
            list_->InitProperties();
        } else {
            read_settings(*bag);
        }
        surface_->place();
        changed_at_start = changed;
    }

    void read_settings(platform::PropertyBag& bag) {
        try {
            list_->ReadProperties(bag);
        } catch (...) {
            destroy();
            throw;
        }
    }

    standard::LifeToken life_;
    standard::ValueFormatter formatter_{standard::regional_settings("it-IT")};
    headless::HeadlessForm form_;
    headless::HeadlessControl* surface_ = nullptr;
    std::unique_ptr<Constituents> parts_;
    std::unique_ptr<KarvoList> list_;
};

} // namespace krv::testing
