#pragma once

#include "krv/platform/error.h"
#include "qt/button.h"
#include "qt/grid_part.h"
#include "qt/line.h"
#include "qt/text_box.h"

#include "support/errors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace krv::qt::testing {

using Told = std::vector<std::string>;

inline void turn() {
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
    }
}

/// Parts of a control on a form that has another field beside it, everything they tell in order.
class FormTest : public ::testing::Test {
protected:
    struct BoxEvents final : platform::TextBoxEvents {
        explicit BoxEvents(FormTest& owner)
            : test(owner) {}

        void Change() override { test.tell("change"); }

        void DblClick() override { test.tell("double"); }

        void GotFocus() override { test.tell("got"); }

        void LostFocus() override { test.tell("lost"); }

        void KeyDown(std::int16_t& code, std::int16_t& shift) override {
            test.tell("down " + std::to_string(code) + "/" + std::to_string(shift));
            code = test.swallow_key ? std::int16_t{0} : code;
        }

        void KeyPress(std::int16_t& code) override {
            test.tell("press " + std::to_string(code));
            code = test.typed ? test.typed(code) : code;
        }

        void MouseDown(std::int16_t button, std::int16_t shift, float, float) override {
            test.tell("mouse " + std::to_string(button) + "/" + std::to_string(shift));
        }

        FormTest& test;
    };

    struct ClickEvents final : platform::ButtonEvents {
        explicit ClickEvents(FormTest& owner)
            : test(owner) {}

        void Click() override { test.tell("click"); }

        FormTest& test;
    };

    struct ListEvents final : platform::GridEvents {
        explicit ListEvents(FormTest& owner)
            : test(owner) {}

        void RowColChange() override { test.tell("row change"); }

        void MouseDown(std::int16_t, std::int16_t, float, float) override {
            test.tell("grid down");
        }

        void Click(std::int16_t, std::int16_t, float, float) override { test.tell("grid click"); }

        void KeyDown(std::int16_t& code, std::int16_t&) override {
            test.tell("grid key " + std::to_string(code));
        }

        FormTest& test;
    };

    using Parts =
        std::tuple<std::unique_ptr<QtGrid>, std::unique_ptr<QtTextBox>, std::unique_ptr<QtButton>>;

    FormTest()
        : form(std::make_unique<QWidget>())
        , control(new QWidget(form.get()))
        , other(new QLineEdit(form.get()))
        , surface(Surface::make(*control))
        , grid(std::make_unique<QtGrid>(
              *surface, "Grid", standard::GridSelection::by_row, standard::GridKeys::own_listener))
        , box(std::make_unique<QtTextBox>(*surface, "InpFld"))
        , button(std::make_unique<QtButton>(*surface, "btnAdd")) {
        form->resize(400, 300);
        control->setGeometry(0, 0, 400, 200);
        other->setGeometry(0, 220, 400, 30);
        QWidget::setTabOrder(button->widget(), other);
        grid->Move(0, 0, 3000, 1500);
        grid->AddItem("one");
        box->Move(0, 1500, 3000, 300);
        button->Move(0, 2000, 1500, 300);
        box->SetEvents(&box_events);
        button->SetEvents(&click_events);
        grid->SetEvents(&list_events);
        surface->set_error_handler([this](const std::exception_ptr& error) {
            try {
                std::rethrow_exception(error);
            } catch (const std::exception& failure) {
                tell(std::string("error ") + failure.what());
            }
        });
        surface->set_on_exit_focus([this] { tell("exit"); });
        surface->set_on_key_down([this](std::int16_t& code, std::int16_t&) {
            tell("surface key " + std::to_string(code));
        });
    }

    ~FormTest() override { destroy(); }

    void destroy() {
        if (!form) {
            return;
        }
        surface->close();
        grid->SetEvents(nullptr);
        box->SetEvents(nullptr);
        button->SetEvents(nullptr);
        for (QWidget* widget : {grid->widget(), box->widget(), button->widget()}) {
            widget->hide();
            widget->setParent(nullptr);
        }
        // As a control does: its parts stay as long as code of theirs may be running.
        auto parts = std::make_shared<Parts>(std::move(grid), std::move(box), std::move(button));
        if (surface->loop()->is_active()) {
            surface->loop()->bury(std::move(parts));
        }
        form.reset();
    }

    void show() {
        form->show();
        form->activateWindow();
        turn();
        told.clear();
    }

    void tell(const std::string& what) {
        told.push_back(what);
        if (on_told) {
            const std::function<void(const std::string&)> handler = on_told;
            handler(what);
        }
    }

    Told take() { return std::exchange(told, {}); }

    Told told;
    std::function<void(const std::string&)> on_told;
    bool swallow_key = false;
    std::function<std::int16_t(std::int16_t)> typed;

    BoxEvents box_events{*this};
    ClickEvents click_events{*this};
    ListEvents list_events{*this};

    std::unique_ptr<QWidget> form;
    QWidget* control;
    QLineEdit* other;
    std::shared_ptr<Surface> surface;
    std::unique_ptr<QtGrid> grid;
    std::unique_ptr<QtTextBox> box;
    std::unique_ptr<QtButton> button;
};

} // namespace krv::qt::testing
