#include "server/qt_form.h"

#include "server/form_stage.h"
#include "server/headless_form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace krv::server::testing {

namespace {

using Scenario = void (*)(Stage&);

Lines played(std::unique_ptr<Form> form, Scenario scenario) {
    Stage stage(std::move(form));
    scenario(stage);
    stage.act("last turn", [&] { stage.form->turn(); });
    return stage.trace.lines();
}

/// The lines before and behind a place where two traces part; none when they are alike.
Lines around(const Lines& lines, Lines::const_iterator place) {
    if (place == lines.end()) {
        return {};
    }
    return {place - std::min<std::ptrdiff_t>(place - lines.begin(), 6),
            place + std::min<std::ptrdiff_t>(lines.end() - place, 3)};
}

/// The trace in the window, which has to be that of the form without a screen.
Lines same_trace(Scenario scenario) {
    const Lines expected = played(make_headless_form(), scenario);
    Lines found = played(make_qt_form(), scenario);
    const auto [line, other] =
        std::mismatch(expected.begin(), expected.end(), found.begin(), found.end());
    EXPECT_EQ(around(expected, line), around(found, other));
    EXPECT_EQ(found.size(), expected.size());
    return found;
}

bool tells(const Lines& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

[[noreturn]] void fail_with(std::int32_t number) {
    throw platform::RuntimeError(number, "failed", "host");
}

} // namespace

TEST(QtForm, tells_of_the_focus_as_the_form_without_a_screen) {
    const Lines lines = same_trace([](Stage& s) {
        s.focus(s.one, "InpFld");
        s.focus(s.one, "btnAdd");
        s.focus(s.one, "InpFld");
        s.focus(s.two, "InpFld");
        s.act("outside", [&] { s.form->focus_outside(); });
        s.focus(s.two, "Line1");
        s.one.part("btnAdd").SetEnabled(false);
        s.focus(s.one, "btnAdd");
        s.key(s.one, "btnAdd", 65);
        s.act("by code", [&] {
            s.one.part("InpFld").SetFocus();
            s.two.part("InpFld").SetFocus();
            s.one.part("InpFld").SetFocus();
        });
        s.act("turn", [&] { s.form->turn(); });
        s.act("hidden", [&] { s.one.part("InpFld").SetVisible(false); });
        s.act("disabled", [&] { s.one.part("btnInsert").SetEnabled(false); });
    });
    EXPECT_TRUE(tells(lines, "one.surface.ExitFocus"));
    EXPECT_TRUE(tells(lines, "error 5 Invalid procedure call or argument in Line1"));
}

TEST(QtForm, leaves_the_old_control_before_the_new_part_hears_of_the_focus) {
    const Lines lines = same_trace([](Stage& s) {
        s.focus(s.two, "InpFld");
        s.focus(s.one, "InpFld");
    });
    const auto from = std::find(lines.begin(), lines.end(), "two.InpFld.LostFocus");
    ASSERT_GE(lines.end() - from, 3);
    EXPECT_EQ(Lines(from, from + 3),
              (Lines{"two.InpFld.LostFocus", "two.surface.ExitFocus", "one.InpFld.GotFocus"}));
}

TEST(QtForm, walks_by_tab_through_all_parts_of_all_controls) {
    same_trace([](Stage& s) {
        s.key(9);
        s.act("outside", [&] { s.form->focus_outside(); });
        for (int i = 0; i < 19; ++i) {
            s.key(9);
        }
        for (int i = 0; i < 19; ++i) {
            s.key(9, 1);
        }
        s.one.part("GridIn").SetTabStop(false);
        s.one.part("btnAdd").SetVisible(false);
        s.one.part("btnCopy").SetEnabled(false);
        for (int i = 0; i < 10; ++i) {
            s.key(9);
        }
    });
}

TEST(QtForm, gives_tab_to_the_only_tab_stop_and_to_a_part_that_is_none) {
    const Lines lines = same_trace([](Stage& s) {
        for (const char* part : {"InpFld", "Grid", "btnAdd"}) {
            s.one.part(part).SetTabStop(false);
            s.key(s.one, part, 9);
            s.key(s.one, part, 9, 1);
            s.key(s.one, part, 9, 2);
            s.one.part(part).SetTabStop(true);
        }
        for (const char* part : part_names) {
            if (std::string_view(part) != "InpFld" && std::string_view(part) != "Line1") {
                s.one.part(part).SetTabStop(false);
            }
        }
        s.key(s.one, "InpFld", 9);
        s.text("a\tb");
    });
    EXPECT_TRUE(tells(lines, "one.InpFld.KeyDown 9 2"));
}

TEST(QtForm, gives_tab_with_ctrl_or_alt_to_the_key_handling) {
    const Lines lines = same_trace([](Stage& s) {
        for (const char* part : {"Grid", "GridIn", "InpFld", "btnAdd"}) {
            for (const int shift : {2, 3, 4, 6, 8}) {
                s.key(s.one, part, 9, shift);
            }
        }
    });
    EXPECT_TRUE(tells(lines, "one.surface.KeyDown 9 4"));
}

TEST(QtForm, takes_every_key_code_and_shift_state_on_every_part) {
    const Lines lines = same_trace([](Stage& s) {
        for (const char* part : {"Grid", "GridIn", "InpFld", "btnAdd"}) {
            for (const int code : {0,  8,  13, 16,  27,  32,  33,  34,  35,  36,     37,   38,  39,
                                   40, 45, 46, 65,  86,  90,  93,  97,  106, 110,    112,  116, 135,
                                   48, 57, 53, 187, 229, 231, 255, 256, -1,  -32768, 32767}) {
                s.key(s.one, part, code);
                s.key(s.one, part, code, 1);
                s.key(s.one, part, code, 2);
                s.key(s.one, part, code, 4);
                s.key(s.one, part, code, 16);
            }
        }
        s.act("outside", [&] { s.form->focus_outside(); });
        for (const int code : {13, 27, 32, 65, 116, -1}) {
            s.key(code);
        }
    });
    EXPECT_TRUE(tells(lines, "one.InpFld.KeyDown -32768 16"));
    EXPECT_TRUE(tells(lines, "one.btnAdd.Click"));
}

TEST(QtForm, edits_a_text_by_keys) {
    same_trace([](Stage& s) {
        s.one.box().SetText("abcdef");
        s.focus(s.one, "InpFld");
        for (const int shift : {0, 1, 2}) {
            for (const int code : {35, 37, 37, 8, 36, 39, 46, 39, 45, 46, 8}) {
                s.key(code, shift);
            }
        }
        s.one.box().SetText("abcdef");
        s.one.box().SetSelStart(1);
        s.one.box().SetSelLength(3);
        s.key(37);
        s.one.box().SetSelStart(1);
        s.one.box().SetSelLength(3);
        s.key(39);
        s.one.box().SetSelStart(2);
        s.one.box().SetSelLength(1);
        s.text("c");
        s.text("xyz");
    });
}

TEST(QtForm, types_what_max_length_leaves_room_for) {
    same_trace([](Stage& s) {
        s.one.box().SetMaxLength(4);
        s.focus(s.one, "InpFld");
        s.text("ab\xF0\x9F\x98\x80"
               "cd");
        s.one.box().SetText("longer than that");
        s.one.box().SetSelStart(0);
        s.one.box().SetSelLength(2);
        s.text("x");
        s.one.box().SetSelStart(0);
        s.one.box().SetSelLength(15);
        s.text("xy");
    });
}

TEST(QtForm, types_what_handlers_make_of_keys_and_characters) {
    same_trace([](Stage& s) {
        s.one.listener("InpFld").on_key_down = [](std::int16_t code) -> std::int16_t {
            return code == 'B' ? 0 : code == 'C' ? 37 : code;
        };
        s.one.listener("InpFld").on_key_press = [](std::int16_t code) -> std::int16_t {
            return code == 'x' ? 0 : code == 'y' ? 'Y' : code;
        };
        s.focus(s.one, "InpFld");
        s.text("abcxy? 9\xC3\xA0\xE2\x82\xAC"
               "Z");
        s.one.listener("Grid").on_key_down = [](std::int16_t code) -> std::int16_t {
            return code == 34 ? 0 : code == 65 ? 34 : code;
        };
        s.focus(s.one, "Grid");
        s.key(34);
        s.key(65);
    });
}

TEST(QtForm, keeps_what_was_typed_behind_an_error_for_the_next_turn) {
    const Lines lines = same_trace([](Stage& s) {
        s.focus(s.one, "InpFld");
        int changes = 0;
        s.trace.on("one.InpFld.Change", [&] {
            if (++changes == 2) {
                fail_with(1000);
            }
        });
        s.text("abcd");
        s.key(s.one, "btnAdd", 116);
        s.act("turn", [&] { s.form->turn(); });
        s.trace.once("one.InpFld.KeyDown 69 0", [] { fail_with(1001); });
        s.focus(s.one, "InpFld");
        s.text("ef");
        s.text("g");
        s.trace.once("one.InpFld.KeyPress 104", [] { fail_with(1002); });
        s.text("hi");
        s.trace.once("one.InpFld.LostFocus", [] { fail_with(1003); });
        s.mouse(s.one, "btnAdd", MouseAction::click);
        s.trace.once("one.btnAdd.Click", [] { fail_with(1004); });
        s.mouse(s.one, "btnAdd", MouseAction::double_click);
        s.trace.once("one.Grid.RowColChange", [] { fail_with(1005); });
        s.mouse(s.one, "Grid", MouseAction::click, {1, 0, 100, 800});
    });
    for (int number = 1000; number <= 1005; ++number) {
        EXPECT_TRUE(tells(lines, "error " + std::to_string(number) + " failed in host")) << number;
    }
}

TEST(QtForm, works_the_mouse_on_every_part) {
    const Lines lines = same_trace([](Stage& s) {
        for (const char* part : part_names) {
            for (const MouseAction action : {MouseAction::click,
                                             MouseAction::double_click,
                                             MouseAction::press,
                                             MouseAction::move,
                                             MouseAction::release,
                                             MouseAction::release}) {
                s.mouse(s.one, part, action, {1, 0, 101.5F, 733.25F});
                s.mouse(s.two, part, action, {2, 3, 7, 1});
            }
        }
    });
    EXPECT_TRUE(tells(lines, "one.Grid.MouseDown 1 0 101.5 733.25"));
    EXPECT_TRUE(tells(lines, "two.InpFld.MouseDown 2 3 7 1"));
}

TEST(QtForm, takes_any_numbers_of_the_mouse) {
    same_trace([](Stage& s) {
        for (const Mouse& mouse : {Mouse{0, 0, 0, 0},
                                   Mouse{3, 7, -1, -1},
                                   Mouse{4, -1, 1e9F, 1e9F},
                                   Mouse{-32768, 32767, 16777215, 239.49F},
                                   Mouse{1, 0, 959.5F, 240.5F}}) {
            for (const char* part : {"Grid", "GridIn", "InpFld", "btnAdd"}) {
                s.mouse(s.one, part, MouseAction::click, mouse);
                s.mouse(s.one, part, MouseAction::double_click, mouse);
            }
        }
        for (int y = 0; y < 800; y += 41) {
            s.mouse(s.one, "Grid", MouseAction::click, {1, 0, 7, static_cast<float>(y)});
        }
    });
}

TEST(QtForm, drags_over_the_pressed_part_only) {
    same_trace([](Stage& s) {
        s.mouse(s.one, "Grid", MouseAction::press, {1, 0, 100, 300});
        s.mouse(s.one, "Grid", MouseAction::move, {1, 0, 100, 1300});
        s.mouse(s.one, "GridIn", MouseAction::move, {1, 0, 100, 300});
        s.mouse(s.one, "Grid", MouseAction::release, {2, 0, 100, 900});
        s.mouse(s.one, "Grid", MouseAction::move, {1, 0, 100, 300});
        s.mouse(s.one, "GridIn", MouseAction::press, {1, 0, 100, 300});
        s.mouse(s.one, "GridIn", MouseAction::move, {1, 0, 2500, 300});
        s.mouse(s.one, "btnOK", MouseAction::release);
        s.mouse(s.one, "GridIn", MouseAction::move, {1, 0, 100, 300});
        s.mouse(s.one, "GridIn", MouseAction::release, {1, 0, 100, 300});
        s.mouse(s.one, "btnAdd", MouseAction::press);
        s.mouse(s.one, "btnOK", MouseAction::press);
        s.mouse(s.one, "btnAdd", MouseAction::release);
        s.mouse(s.one, "InpFld", MouseAction::press, {1, 0, 10, 10});
        s.mouse(s.one, "InpFld", MouseAction::move, {1, 0, 500, 10});
        s.mouse(s.one, "InpFld", MouseAction::release, {1, 0, 500, 10});
    });
}

TEST(QtForm, ignores_the_mouse_on_hidden_and_disabled_parts) {
    same_trace([](Stage& s) {
        for (const char* part : {"Grid", "GridIn", "InpFld", "btnAdd"}) {
            s.one.part(part).SetVisible(false);
            s.mouse(s.one, part, MouseAction::click);
            s.one.part(part).SetVisible(true);
            s.one.part(part).SetEnabled(false);
            s.mouse(s.one, part, MouseAction::double_click);
            s.one.part(part).SetEnabled(true);
            s.mouse(s.one, part, MouseAction::press);
            s.one.part(part).SetVisible(false);
            s.mouse(s.one, part, MouseAction::release);
            s.one.part(part).SetVisible(true);
        }
        s.trace.once("one.Grid.MouseUp 1 0 0 0", [&] { s.one.part("Grid").SetVisible(false); });
        s.mouse(s.one, "Grid", MouseAction::click);
    });
}

TEST(QtForm, drops_a_press_when_a_field_takes_the_focus_back) {
    same_trace([](Stage& s) {
        for (const char* part : {"Grid", "GridIn", "btnAdd"}) {
            s.focus(s.one, "InpFld");
            s.trace.once("one.InpFld.LostFocus", [&] { s.one.part("InpFld").SetFocus(); });
            s.mouse(s.one, part, MouseAction::click, {1, 0, 10, 300});
            s.trace.once("one.InpFld.LostFocus", [&] { s.one.part("InpFld").SetFocus(); });
            s.key(s.one, part, 13);
        }
    });
}

TEST(QtForm, scrolls_lists_alike) {
    same_trace([](Stage& s) {
        s.one.grid().SetColWidth(1, 6000);
        s.one.line().SetColWidth(1, 6000);
        s.focus(s.one, "Grid");
        for (const int code : {34, 34, 33, 35, 36, 34}) {
            s.key(code);
        }
        s.trace.on("one.Grid.KeyDown 40 0", [&] { s.one.grid().SetRow(s.one.grid().Row() + 9); });
        for (int i = 0; i < 4; ++i) {
            s.key(40);
        }
        s.trace.once("one.surface.KeyDown 38 0", [&] { s.one.grid().SetRow(1); });
        s.key(s.one, "btnAdd", 38);
        s.trace.once("one.btnAdd.Click", [&] { s.one.grid().SetRow(39); });
        s.key(s.one, "btnAdd", 13);
        s.trace.once("one.btnAdd.Click", [&] { s.one.grid().SetRow(1); });
        s.key(s.one, "btnAdd", 32);
        s.act("editor over the last column", [&] {
            s.one.box().SetVisible(false);
            s.one.box().SetLeft(static_cast<float>(s.one.line().ColPos(2)) + 35);
            s.one.box().SetVisible(true);
        });
    });
}

TEST(QtForm, resizes_in_twips) {
    const Lines lines = same_trace([](Stage& s) {
        const auto resize = [&](float width, float height) {
            s.act("resize", [&] { s.one.control().resize(width, height); });
        };
        resize(10005, 4001);
        resize(10005, 4001);
        resize(10005.25F, 4001);
        resize(6000, 1);
        resize(1, 6000);
        resize(-20, -20);
        resize(1e9F, 3000);
        s.act("by code", [&] { s.one.control().surface().SetWidth(7001); });
        s.trace.once("one.surface.Resize", [] { fail_with(7); });
        resize(8000, 3000);
    });
    EXPECT_TRUE(tells(lines, "error 7 failed in host"));
    EXPECT_NE(lines.back().find(" | "), std::string::npos);
}

TEST(QtForm, gives_the_focus_to_objects_of_the_host) {
    same_trace([](Stage& s) {
        const auto object = s.form->make_object("target", true);
        const auto other = s.form->make_object("other", false);
        s.focus(s.one, "InpFld");
        s.act("to the object", [&] { object->SetFocus(); });
        s.act("turn", [&] { s.form->turn(); });
        s.key(65);
        s.key(9);
        s.act("to the other", [&] { other->SetFocus(); });
        s.act("to the object", [&] { object->SetFocus(); });
        s.key(9, 1);
    });
}

TEST(QtForm, keeps_title_and_messages_of_the_application) {
    same_trace([](Stage& s) {
        platform::Application& application = s.form->application();
        s.trace.note(application.Title());
        application.SetTitle("another");
        s.trace.note(application.Title());
        application.SetTitle("");
        s.trace.note("'" + application.Title() + "'");
        s.one.part("InpFld").SetFocus();
        s.act("message", [&] {
            const auto answer = application.MsgBox("sure?", platform::MessageButtons::yes_no);
            s.trace.note(answer == platform::MessageAnswer::yes ? "yes" : "no");
        });
    });
}

TEST(QtForm, lets_a_control_go_inside_any_of_its_events) {
    const Lines lines = same_trace([](Stage& s) {
        s.focus(s.one, "InpFld");
        s.trace.once("one.InpFld.Change", [&] { s.one.destroy(); });
        s.text("abc");
        s.key(9);
        s.focus(s.two, "btnOK");
        s.trace.once("two.surface.KeyDown 116 0", [&] { s.two.destroy(); });
        s.key(116);
        s.key(9);
    });
    EXPECT_TRUE(tells(lines, "  one: gone"));
}

class QtFormRemoval : public ::testing::TestWithParam<const char*> {};

TEST_P(QtFormRemoval, is_alike) {
    static const char* moment = nullptr;
    moment = GetParam();
    const Lines lines = same_trace([](Stage& s) {
        s.focus(s.one, "InpFld");
        s.trace.once(moment, [&] { s.one.destroy(); });
        const auto unless_gone = [&](const std::function<void()>& act) {
            if (s.one.exists()) {
                act();
            }
        };
        unless_gone([&] { s.text("ab"); });
        unless_gone([&] { s.key(46, 1); });
        unless_gone([&] { s.mouse(s.one, "Grid", MouseAction::double_click, {1, 0, 9, 700}); });
        unless_gone([&] { s.key(34); });
        unless_gone([&] { s.mouse(s.one, "InpFld", MouseAction::double_click, {1, 0, 9, 9}); });
        unless_gone([&] { s.mouse(s.one, "GridIn", MouseAction::click, {1, 0, 9, 300}); });
        unless_gone([&] { s.mouse(s.one, "btnAdd", MouseAction::click); });
        unless_gone([&] { s.key(s.one, "btnAdd", 116); });
        unless_gone([&] { s.key(s.one, "btnCopy", 32); });
        unless_gone([&] { s.act("resize", [&] { s.one.control().resize(9000, 9000); }); });
        unless_gone([&] { s.focus(s.two, "InpFld"); });
    });
    EXPECT_TRUE(tells(lines, GetParam()));
    EXPECT_TRUE(tells(lines, "  one: gone"));
}

INSTANTIATE_TEST_SUITE_P(Inside,
                         QtFormRemoval,
                         ::testing::Values("one.InpFld.KeyDown 65 0",
                                           "one.InpFld.KeyPress 97",
                                           "one.InpFld.Change",
                                           "one.InpFld.LostFocus",
                                           "one.InpFld.MouseDown 1 0 9 9",
                                           "one.InpFld.DblClick",
                                           "one.InpFld.GotFocus",
                                           "one.Grid.RowColChange",
                                           "one.Grid.MouseDown 1 0 9 700",
                                           "one.Grid.MouseUp 1 0 9 700",
                                           "one.Grid.Click 1 0 9 700",
                                           "one.Grid.DblClick",
                                           "one.Grid.KeyDown 34 0",
                                           "one.GridIn.Click 1 0 9 300",
                                           "one.btnAdd.Click",
                                           "one.btnCopy.Click",
                                           "one.surface.KeyDown 116 0",
                                           "one.surface.Resize",
                                           "one.surface.ExitFocus"));

TEST(QtForm, delivers_nothing_between_the_calls) {
    Stage stage(make_qt_form());
    stage.one.part("InpFld").SetFocus();
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
    }
    EXPECT_FALSE(tells(stage.trace.lines(), "one.InpFld.GotFocus"));
    stage.form->turn();
    EXPECT_TRUE(tells(stage.trace.lines(), "one.InpFld.GotFocus"));
}

TEST(QtForm, delivers_after_what_a_person_does_in_the_window) {
    Stage stage(make_qt_form());
    stage.one.part("InpFld").SetFocus();
    stage.form->turn();
    QWidget* window = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        window =
            widget->findChild<QLineEdit*>() != nullptr && widget->isVisible() ? widget : window;
    }
    ASSERT_NE(window, nullptr);
    QLineEdit* outside = nullptr;
    for (QLineEdit* edit :
         window->findChildren<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)) {
        outside = edit;
    }
    ASSERT_NE(outside, nullptr);
    QTest::mouseClick(outside, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(tells(stage.trace.lines(), "one.InpFld.LostFocus"));
}

} // namespace krv::server::testing
