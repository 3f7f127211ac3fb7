#pragma once

#include "krv/platform/error.h"
#include "qt/page/check_box.h"
#include "qt/page/combo_box.h"
#include "qt/page/entry_box.h"
#include "qt/page/tab_strip.h"

#include "support/errors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace krv::qt::testing {

/// Editors of a page on a form that has another field beside them, everything they tell in order.
class PageEditorTest : public ::testing::Test {
protected:
    using Told = std::vector<std::string>;

    struct Listener final : platform::EditorEvents {
        Listener(PageEditorTest& owner, std::string with_name)
            : test(owner)
            , name(std::move(with_name)) {}

        void Change() override { test.tell(name + " change"); }

        void Click() override { test.tell(name + " click"); }

        void DblClick() override { test.tell(name + " double"); }

        void GotFocus() override { test.tell(name + " got"); }

        void LostFocus() override { test.tell(name + " lost"); }

        PageEditorTest& test;
        std::string name;
    };

    struct Parts {
        explicit Parts(Surface& surface)
            : entry(surface, "entry")
            , check(surface, "check")
            , tabs(surface, "tabs")
            , combo(surface, "combo", QtComboBox::Typing::allowed)
            , list(surface, "list", QtComboBox::Typing::none) {}

        QtEntryBox entry;
        QtCheckBox check;
        QtTabStrip tabs;
        QtComboBox combo;
        QtComboBox list;
    };

    PageEditorTest()
        : form(std::make_unique<QWidget>())
        , page(new QWidget(form.get()))
        , other(new QLineEdit(form.get()))
        , surface(Surface::make(*page))
        , parts(std::make_unique<Parts>(*surface)) {
        auto* const outer = new QVBoxLayout(form.get());
        outer->addWidget(page);
        outer->addWidget(other);
        auto* const inner = new QVBoxLayout(page);
        for (PageEditor* editor : handles()) {
            inner->addWidget(editor->widget());
        }
        for (platform::Editor* editor : editors()) {
            editor->SetEvents(&listeners.emplace_back(*this, std::string(editor->Name())));
        }
        surface->set_error_handler([this](const std::exception_ptr& error) {
            try {
                std::rethrow_exception(error);
            } catch (const std::exception& failure) {
                tell(std::string("error ") + failure.what());
            }
        });
        form->show();
        form->activateWindow();
        other->setFocus();
        turn();
        told.clear();
    }

    ~PageEditorTest() override { destroy(); }

    std::array<PageEditor*, 5> handles() const {
        return {&parts->entry, &parts->check, &parts->tabs, &parts->combo, &parts->list};
    }

    std::array<platform::Editor*, 5> editors() const {
        return {&parts->entry, &parts->check, &parts->tabs, &parts->combo, &parts->list};
    }

    /// As a page goes: its editors stay as long as code of theirs may be running.
    void destroy() {
        if (!form) {
            return;
        }
        surface->close();
        for (platform::Editor* editor : editors()) {
            editor->SetEvents(nullptr);
        }
        for (PageEditor* editor : handles()) {
            editor->widget()->hide();
            editor->widget()->setParent(nullptr);
        }
        if (surface->loop()->is_active()) {
            surface->loop()->bury(std::shared_ptr<Parts>(std::move(parts)));
        }
        parts.reset();
        form.reset();
    }

    static void turn() {
        for (int i = 0; i < 5; ++i) {
            QApplication::processEvents();
        }
    }

    void tell(const std::string& what) {
        told.push_back(what);
        if (on_told) {
            const std::function<void(const std::string&)> handler = on_told;
            handler(what);
        }
    }

    Told take() { return std::exchange(told, {}); }

    /// Puts entries into a list, from the first position on.
    static void fill(platform::ComboBox& box, std::initializer_list<const char*> entries) {
        std::int16_t place = 0;
        for (const char* entry : entries) {
            box.AddItem(entry, place++);
        }
    }

    static std::vector<std::string> entries(const platform::ComboBox& box) {
        std::vector<std::string> all;
        for (std::int16_t i = 0; i < box.ListCount(); ++i) {
            all.push_back(box.List(i));
        }
        return all;
    }

    Told told;
    std::function<void(const std::string&)> on_told;
    std::deque<Listener> listeners;

    std::unique_ptr<QWidget> form;
    QWidget* page;
    QLineEdit* other;
    std::shared_ptr<Surface> surface;
    std::unique_ptr<Parts> parts;
};

} // namespace krv::qt::testing
