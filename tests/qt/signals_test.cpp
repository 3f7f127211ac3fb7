#include "krv/control/automation.h"
#include "qt/event_signals.h"
#include "qt/widget_fixture.h"

#include <QMetaMethod>
#include <QTest>

namespace krv::qt::testing {

namespace {

using Strings = std::vector<std::string>;

std::string qt_type(const automation::Parameter& parameter) {
    switch (parameter.type) {
    case automation::Type::Boolean:
        return parameter.by_ref ? "bool*" : "bool";
    case automation::Type::Integer:
        return "std::int16_t*";
    case automation::Type::Single:
        return "float*";
    case automation::Type::String:
        return "QString*";
    default:
        return parameter.by_ref ? "std::int32_t*" : "int";
    }
}

/// "AddClick(bool* Cancel)" for each event of the interface.
Strings expected_signals() {
    Strings expected;
    for (const automation::Event& event : automation::events()) {
        std::string arguments;
        for (const automation::Parameter& parameter : event.parameters) {
            arguments += (arguments.empty() ? "" : ", ") + qt_type(parameter) + " " +
                         std::string(parameter.name);
        }
        expected.push_back(std::string(event.name) + "(" + arguments + ")");
    }
    return expected;
}

std::string described(const QMetaMethod& method) {
    std::string arguments;
    for (int i = 0; i < method.parameterCount(); ++i) {
        arguments += (arguments.empty() ? "" : ", ") + method.parameterTypes().at(i).toStdString() +
                     " " + method.parameterNames().at(i).toStdString();
    }
    return method.name().toStdString() + "(" + arguments + ")";
}

/// The signals of the class that are events.
Strings signals_of_the_class() {
    const QMetaObject& meta = KarvoListWidget::staticMetaObject;
    Strings found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal &&
            meta.method(i).name() != "propertyChanged") {
            found.push_back(described(meta.method(i)));
        }
    }
    return found;
}

class Signals : public WidgetTest {
protected:
    /// What the list raises arrives here: the last listener, behind the slots.
    struct LastListener final : KarvoListEvents {
        void KeyDown(std::int16_t& KeyCode, std::int16_t& Shift, std::int32_t Col) override {
            heard =
                std::to_string(KeyCode) + " " + std::to_string(Shift) + " " + std::to_string(Col);
        }

        std::string heard;
    };

    template <class Signal, class Slot>
    void on(Signal signal, Slot slot) {
        QObject::connect(widget.get(), signal, slot);
    }

    void tell(const std::string& what) { told.push_back(what); }

    Strings told;
};

constexpr std::int16_t key_x = 88;

} // namespace

TEST_F(Signals, are_the_events_of_the_interface) {
    EXPECT_EQ(signals_of_the_class(), expected_signals());
    EXPECT_EQ(expected_signals().size(), 18U);
}

TEST_F(Signals, come_when_the_list_raises_its_events) {
    on(&KarvoListWidget::KeyDown, [this](std::int16_t* code, std::int16_t* shift, int col) {
        tell(std::to_string(*code) + " " + std::to_string(*shift) + " " + std::to_string(col));
    });
    list().SendKeys(key_x, 3);
    EXPECT_EQ(told, (Strings{"88 3 -1"}));
}

TEST_F(Signals, later_slots_and_listeners_find_what_the_first_left) {
    LastListener last;
    list().subscribe(last);
    on(&KarvoListWidget::KeyDown, [](std::int16_t* code, std::int16_t*, int) { *code = 7; });
    on(&KarvoListWidget::KeyDown, [this](std::int16_t* code, std::int16_t* shift, int) {
        tell(std::to_string(*code));
        *shift = 4;
    });
    list().SendKeys(key_x, 0);
    EXPECT_EQ(told, (Strings{"7"}));
    EXPECT_EQ(last.heard, "7 4 -1");
    list().unsubscribe(last);
}

TEST_F(Signals, the_widget_may_be_destroyed_in_one) {
    on(&KarvoListWidget::KeyDown, [this](std::int16_t*, std::int16_t*, int) { widget.reset(); });
    list().SendKeys(key_x, 0);
    EXPECT_EQ(widget, nullptr);
}

TEST_F(Signals, a_slot_cancels_what_a_click_on_a_button_starts) {
    fill(2);
    widget->show();
    on(&KarvoListWidget::AddClick, [this](bool* cancel) {
        tell("add");
        *cancel = true;
    });
    QTest::mouseClick(&part("btnAdd"), Qt::LeftButton);
    EXPECT_EQ(told, (Strings{"add"}));
    EXPECT_FALSE(widget->Adding());
}

TEST_F(Signals, a_slot_changes_the_text_that_was_typed) {
    fill(2);
    list().SetColEditable(0, true);
    widget->show();
    widget->activateWindow();
    on(&KarvoListWidget::BeforeFieldUpdate, [this](int col, QString* value, bool*) {
        tell(std::to_string(col) + " " + value->toStdString());
        *value = value->toUpper();
    });
    widget->Add();
    turn();
    QTest::keyClicks(&part("InpFld"), "nuova");
    QTest::keyClick(&part("InpFld"), Qt::Key_Tab);
    turn();
    EXPECT_EQ(told, (Strings{"0 nuova"}));
    EXPECT_EQ(list().InputArray(0), "NUOVA");
}

TEST_F(Signals, the_widget_may_be_destroyed_by_a_click_on_its_button) {
    fill(2);
    widget->show();
    on(&KarvoListWidget::AddClick, [this](bool*) { widget.reset(); });
    QTest::mouseClick(&part("btnAdd"), Qt::LeftButton);
    EXPECT_EQ(widget, nullptr);
    turn();
}

TEST_F(Signals, bring_every_event_and_take_back_what_slots_change) {
    using Widget = KarvoListWidget;
    using Int16 = std::int16_t;
    on(&Widget::KeyPress, [this](Int16* key) { tell("press " + std::to_string((*key)++)); });
    const auto click = [this](const char* name) {
        return [this, name](Int16* button, Int16* shift, float* x, float* y, int col) {
            tell(name + std::to_string((*button)++) + std::to_string((*shift)++) +
                 std::to_string(static_cast<int>((*x)++)) +
                 std::to_string(static_cast<int>((*y)++)) + std::to_string(col));
        };
    };
    on(&Widget::ListClick,
       [click](Int16* button, Int16* shift, float* x, float* y, int row, int col) {
           click("list ")(button, shift, x, y, row * 10 + col);
       });
    on(&Widget::InputLineClick, click("line "));
    on(&Widget::InputFieldClick, click("field "));
    on(&Widget::RowSelect, [this](std::int32_t* row) { tell("row " + std::to_string((*row)++)); });

    EventSignals events(*widget);
    Int16 key = 1;
    events.KeyPress(key);
    Int16 button = 1;
    Int16 shift = 2;
    float x = 3;
    float y = 4;
    events.ListClick(button, shift, x, y, 5, 6);
    events.InputLineClick(button, shift, x, y, 7);
    events.InputFieldClick(button, shift, x, y, 8);
    std::int32_t row = 9;
    events.RowSelect(row);
    EXPECT_EQ(told, (Strings{"press 1", "list 123456", "line 23457", "field 34568", "row 9"}));
    EXPECT_EQ(key, 2);
    EXPECT_EQ((std::vector<float>{float(button), float(shift), x, y}),
              (std::vector<float>{4, 5, 6, 7}));
    EXPECT_EQ(row, 10);
}

TEST_F(Signals, carry_the_cancel_of_each_command) {
    using Widget = KarvoListWidget;
    EventSignals events(*widget);
    const std::vector<std::pair<void (Widget::*)(bool*), void (KarvoListEvents::*)(bool&)>>
        commands = {{&Widget::AddClick, &KarvoListEvents::AddClick},
                    {&Widget::InsertClick, &KarvoListEvents::InsertClick},
                    {&Widget::DeleteClick, &KarvoListEvents::DeleteClick},
                    {&Widget::CopyClick, &KarvoListEvents::CopyClick},
                    {&Widget::OKClick, &KarvoListEvents::OKClick}};
    for (const auto& [signal, event] : commands) {
        on(signal, [](bool* cancel) { *cancel = !*cancel; });
        bool cancel = false;
        (events.*event)(cancel);
        EXPECT_TRUE(cancel);
        (events.*event)(cancel);
        EXPECT_FALSE(cancel);
    }
}

TEST_F(Signals, tell_of_rows) {
    using Widget = KarvoListWidget;
    on(&Widget::LineEditStart, [this](bool adding) { tell(adding ? "adding" : "editing"); });
    on(&Widget::AfterRowDelete, [this](int row) { tell("deleted " + std::to_string(row)); });
    on(&Widget::AfterRowUpdated, [this](int row) { tell("updated " + std::to_string(row)); });
    on(&Widget::BeforeRowUpdate, [this](int row, int col, bool* cancel, bool* external) {
        tell("update " + std::to_string(row) + " " + std::to_string(col));
        *cancel = true;
        *external = true;
    });
    EventSignals events(*widget);
    events.LineEditStart(true);
    events.LineEditStart(false);
    events.AfterRowDelete(3);
    events.AfterRowUpdated(2147483647);
    bool cancel = false;
    bool external = false;
    events.BeforeRowUpdate(4, -1, cancel, external);
    EXPECT_EQ(told,
              (Strings{"adding", "editing", "deleted 3", "updated 2147483647", "update 4 -1"}));
    EXPECT_TRUE(cancel && external);
}

TEST_F(Signals, texts_go_there_and_back) {
    using Widget = KarvoListWidget;
    on(&Widget::InputLineDblClick, [this](int, QString* value) { tell(value->toStdString()); });
    on(&Widget::InputFieldChange, [](int col, QString* value) { *value += QString::number(col); });
    on(&Widget::BeforeFieldUpdate, [](int, QString* value, bool* cancel) {
        *value = "più";
        *cancel = true;
    });
    EventSignals events(*widget);
    std::string text = "perché";
    events.InputLineDblClick(0, text);
    events.InputFieldChange(2, text);
    EXPECT_EQ(text, "perché2");
    bool cancel = false;
    events.BeforeFieldUpdate(0, text, cancel);
    EXPECT_EQ(text, "più");
    EXPECT_TRUE(cancel);
    EXPECT_EQ(told, (Strings{"perché"}));
}

TEST_F(Signals, a_text_that_no_slot_changes_stays_byte_for_byte) {
    EventSignals events(*widget);
    std::string no_utf8 = "\xff\xfe";
    events.InputFieldChange(0, no_utf8);
    EXPECT_EQ(no_utf8, "\xff\xfe");
}

TEST_F(Signals, a_text_does_not_go_back_to_a_widget_that_is_gone) {
    auto events = std::make_unique<EventSignals>(*widget);
    on(&KarvoListWidget::InputFieldChange, [&](int, QString* value) {
        *value = "late";
        events.reset();
        widget.reset();
    });
    std::string text = "early";
    events->InputFieldChange(0, text);
    EXPECT_EQ(text, "early");
}

} // namespace krv::qt::testing
