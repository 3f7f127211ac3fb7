#pragma once

#include "krv/headless/headless_form.h"
#include "krv/headless/headless_page.h"

#include "support/errors.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace krv::headless {

using Lines = std::vector<std::string>;

/// A page without a screen, all of whose editors are listened to. An act may be hung on a line.
class PageTest : public ::testing::Test {
protected:
    PageTest() { listen(); }

    /// Another page in the place of one that is gone.
    void renew() {
        page = std::make_unique<HeadlessPage>(form);
        listen();
    }

    void listen() {
        listeners_.clear();
        for (const PageLabel& label : page_labels()) {
            PageEditor* const editor = page->editor(label.editor);
            listeners_.push_back(std::make_unique<Listener>(*this, std::string(label.editor)));
            editor->set_events(listeners_.back().get());
        }
    }

    PageEditor& editor(const std::string& name) { return *page->editor(name); }

    /// What was told since the last time.
    Lines told() { return std::exchange(lines_, {}); }

    std::string focused() {
        std::string names;
        for (const PageLabel& label : page_labels()) {
            names += editor(std::string(label.editor)).has_focus() ? label.editor : "";
        }
        return names;
    }

    HeadlessForm form;
    std::unique_ptr<HeadlessPage> page = std::make_unique<HeadlessPage>(form);
    std::map<std::string, std::function<void()>> acts;

private:
    class Listener final : public platform::EditorEvents {
    public:
        Listener(PageTest& test, std::string name)
            : test_(test)
            , name_(std::move(name)) {}

        void Change() override { test_.note(name_ + ".Change"); }

        void Click() override { test_.note(name_ + ".Click"); }

        void DblClick() override { test_.note(name_ + ".DblClick"); }

        void GotFocus() override { test_.note(name_ + ".GotFocus"); }

        void LostFocus() override { test_.note(name_ + ".LostFocus"); }

    private:
        PageTest& test_;
        std::string name_;
    };

    void note(const std::string& line) {
        lines_.push_back(line);
        const auto found = acts.find(line);
        if (found != acts.end()) {
            const std::function<void()> act = found->second;
            act();
        }
    }

    Lines lines_;
    std::vector<std::unique_ptr<Listener>> listeners_;
};

} // namespace krv::headless
