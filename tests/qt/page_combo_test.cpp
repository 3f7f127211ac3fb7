#include "qt/page_fixture.h"

#include <QAbstractItemView>
#include <QWheelEvent>

namespace krv::qt::testing {

using krv::testing::error_number_of;

namespace {

class PageCombo : public PageEditorTest {
protected:
    QtComboBox& combo() { return parts->combo; }

    QtComboBox& list() { return parts->list; }

    static QComboBox& widget_of(QtComboBox& box) { return dynamic_cast<QComboBox&>(*box.widget()); }

    void enter(QtComboBox& box) {
        box.SetFocus();
        turn();
        take();
    }

    static void roll(QWidget& widget) {
        const QPointF place(widget.rect().center());
        QWheelEvent event(place,
                          widget.mapToGlobal(place),
                          QPoint(),
                          QPoint(0, -120),
                          Qt::NoButton,
                          Qt::NoModifier,
                          Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&widget, &event);
    }
};

} // namespace

TEST_F(PageCombo, a_filled_list_has_nothing_selected) {
    fill(list(), {"a", "b", "c"});
    EXPECT_EQ(entries(list()), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(list().ListIndex(), -1);
    EXPECT_EQ(list().Text(), "");
    fill(combo(), {"a", "b"});
    EXPECT_EQ(combo().ListIndex(), -1);
    EXPECT_EQ(combo().Text(), "");
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageCombo, every_assigned_position_clicks_the_selected_one_too) {
    for (QtComboBox* box : {&combo(), &list()}) {
        fill(*box, {"a", "b"});
        const std::string click = std::string(box->Name()) + " click";
        box->SetListIndex(1);
        box->SetListIndex(1);
        EXPECT_EQ(take(), (Told{click, click}));
        EXPECT_EQ(box->Text(), "b");
        EXPECT_EQ(box->ListIndex(), 1);
    }
}

TEST_F(PageCombo, minus_1_selects_nothing_and_raises_nothing) {
    for (QtComboBox* box : {&combo(), &list()}) {
        fill(*box, {"a", "b"});
        box->SetListIndex(0);
        take();
        box->SetListIndex(-1);
        EXPECT_EQ(take(), Told{});
        EXPECT_EQ(box->ListIndex(), -1);
        EXPECT_EQ(box->Text(), "");
    }
}

TEST_F(PageCombo, positions_outside_the_list_fail) {
    fill(list(), {"a", "b"});
    for (const std::int16_t index : {std::int16_t{-2}, std::int16_t{2}}) {
        EXPECT_EQ(error_number_of([&] { list().SetListIndex(index); }), 380) << index;
    }
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}}) {
        EXPECT_EQ(error_number_of([&] { static_cast<void>(list().List(index)); }), 381);
        EXPECT_EQ(error_number_of([&] { static_cast<void>(list().ItemData(index)); }), 381);
        EXPECT_EQ(error_number_of([&] { list().SetItemData(index, 1); }), 381);
    }
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{3}}) {
        EXPECT_EQ(error_number_of([&] { list().AddItem("x", index); }), 5);
    }
    EXPECT_EQ(list().ListIndex(), -1);
    EXPECT_EQ(list().ListCount(), 2);
}

TEST_F(PageCombo, every_entry_keeps_a_number_of_32_bits) {
    fill(list(), {"a", "b"});
    EXPECT_EQ(list().ItemData(0), 0);
    list().SetItemData(0, 2147483647);
    list().SetItemData(1, -2147483647 - 1);
    list().AddItem("front", 0);
    EXPECT_EQ(list().ItemData(0), 0);
    EXPECT_EQ(list().ItemData(1), 2147483647);
    EXPECT_EQ(list().ItemData(2), -2147483647 - 1);
}

TEST_F(PageCombo, text_that_equals_an_entry_selects_it_without_a_click) {
    fill(combo(), {"uno", "due"});
    combo().SetText("due");
    EXPECT_EQ(take(), Told{"combo change"});
    EXPECT_EQ(combo().ListIndex(), 1);
    combo().SetText("Due");
    EXPECT_EQ(take(), Told{"combo change"});
    EXPECT_EQ(combo().ListIndex(), -1);
    EXPECT_EQ(combo().Text(), "Due");
    combo().SetText("Due");
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageCombo, typed_text_that_equals_an_entry_selects_it_without_a_click_at_any_time) {
    fill(combo(), {"uno", "due"});
    combo().SetListIndex(0);
    enter(combo());
    widget_of(combo()).lineEdit()->selectAll();
    QTest::keyClicks(combo().widget(), "due");
    EXPECT_EQ(take(), (Told{"combo change", "combo change", "combo change"}));
    EXPECT_EQ(combo().ListIndex(), 1);
    QTest::keyClick(combo().widget(), Qt::Key_Return);
    EXPECT_EQ(take(), Told{});
    other->setFocus();
    turn();
    EXPECT_EQ(take(), Told{"combo lost"});
    EXPECT_EQ(combo().Text(), "due");
}

TEST_F(PageCombo, typing_completes_nothing) {
    fill(combo(), {"codice", "nome"});
    enter(combo());
    QTest::keyClicks(combo().widget(), "co");
    EXPECT_EQ(combo().Text(), "co");
    EXPECT_EQ(combo().ListIndex(), -1);
    other->setFocus();
    turn();
    EXPECT_EQ(combo().Text(), "co");
    EXPECT_EQ(combo().ListIndex(), -1);
}

TEST_F(PageCombo, other_letter_case_stays_as_it_was_typed) {
    fill(combo(), {"Codice"});
    enter(combo());
    QTest::keyClicks(combo().widget(), "codice");
    QTest::keyClick(combo().widget(), Qt::Key_Return);
    other->setFocus();
    turn();
    EXPECT_EQ(combo().Text(), "codice");
    EXPECT_EQ(combo().ListIndex(), -1);
    EXPECT_EQ(combo().ListCount(), 1);
}

TEST_F(PageCombo, an_emptied_list_leaves_the_text_and_a_filled_one_selects_its_entry) {
    fill(combo(), {"uno", "due"});
    combo().SetText("due");
    enter(combo());
    widget_of(combo()).lineEdit()->setSelection(1, 2);
    combo().Clear();
    EXPECT_EQ(combo().Text(), "due");
    EXPECT_EQ(combo().ListIndex(), -1);
    fill(combo(), {"altro", "due", "uno"});
    EXPECT_EQ(combo().Text(), "due");
    EXPECT_EQ(combo().ListIndex(), 1);
    EXPECT_EQ(widget_of(combo()).lineEdit()->selectedText(), "ue");
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageCombo, an_emptied_list_without_typing_shows_nothing) {
    fill(list(), {"uno"});
    list().SetListIndex(0);
    take();
    list().Clear();
    EXPECT_EQ(list().Text(), "");
    EXPECT_EQ(list().ListCount(), 0);
    EXPECT_EQ(list().ListIndex(), -1);
    EXPECT_EQ(take(), Told{});
}

TEST_F(PageCombo, an_entry_before_the_selected_one_moves_the_selection_along) {
    fill(list(), {"a", "b"});
    list().SetListIndex(1);
    list().AddItem("front", 0);
    EXPECT_EQ(list().ListIndex(), 2);
    EXPECT_EQ(list().Text(), "b");
}

TEST_F(PageCombo, a_person_chooses_with_one_click_also_what_is_selected) {
    fill(list(), {"a", "b", "c"});
    list().SetListIndex(1);
    enter(list());
    for (const int row : {1, 2}) {
        QComboBox& widget = widget_of(list());
        widget.showPopup();
        turn();
        QAbstractItemView& view = *widget.view();
        const QPoint place = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseMove(view.viewport(), place);
        QTest::qWait(QApplication::doubleClickInterval() + 50); // the popup drops an early release
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        turn();
        EXPECT_EQ(take(), Told{"list click"}) << row;
        EXPECT_EQ(list().ListIndex(), row);
    }
}

TEST_F(PageCombo, keys_choose_in_a_list_without_typing) {
    fill(list(), {"alfa", "beta", "gamma"});
    enter(list());
    QTest::keyClick(list().widget(), Qt::Key_Down);
    QTest::keyClick(list().widget(), Qt::Key_G);
    EXPECT_EQ(take(), (Told{"list click", "list click"}));
    EXPECT_EQ(list().ListIndex(), 2);
}

TEST_F(PageCombo, keys_choose_in_a_box_to_type_in_without_a_change) {
    fill(combo(), {"alfa", "beta"});
    combo().SetText("altro");
    enter(combo());
    QTest::keyClick(combo().widget(), Qt::Key_Down);
    EXPECT_EQ(take(), Told{"combo click"});
    EXPECT_EQ(combo().Text(), "alfa");
    EXPECT_EQ(combo().ListIndex(), 0);
}

TEST_F(PageCombo, choosing_by_a_program_clicks_and_a_disabled_list_ignores_it) {
    fill(list(), {"a", "b"});
    list().click(1);
    list().click(1);
    EXPECT_EQ(take(), (Told{"list click", "list click"}));
    EXPECT_EQ(error_number_of([&] { list().click(2); }), 380);
    list().SetEnabled(false);
    list().click(0);
    QTest::keyClick(list().widget(), Qt::Key_Up);
    EXPECT_EQ(take(), Told{});
    EXPECT_EQ(list().ListIndex(), 1);
    list().SetListIndex(0); // code may
    EXPECT_EQ(take(), Told{"list click"});
}

TEST_F(PageCombo, choosing_by_a_program_sets_the_text_without_a_change) {
    fill(combo(), {"a", "b"});
    combo().type("scritto");
    take();
    combo().click(0);
    EXPECT_EQ(take(), Told{"combo click"});
    EXPECT_EQ(combo().Text(), "a");
}

TEST_F(PageCombo, typing_leaves_no_old_choice_behind) {
    fill(combo(), {"alfa", "beta"});
    combo().SetListIndex(0);
    enter(combo());
    combo().type("x");
    take();
    auto* const box = dynamic_cast<QComboBox*>(combo().widget());
    ASSERT_NE(box, nullptr);
    box->lineEdit()->setText("alfa"); // as a program that helps to type does it
    EXPECT_EQ(take(), Told{"combo change"});
    EXPECT_EQ(combo().ListIndex(), 0);
    combo().type("x");
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(combo().Text(), "alfa");
}

TEST_F(PageCombo, the_wheel_changes_nothing) {
    for (QtComboBox* box : {&combo(), &list()}) {
        fill(*box, {"a", "b", "c"});
        box->SetListIndex(0);
        enter(*box);
        roll(*box->widget());
        EXPECT_EQ(box->ListIndex(), 0);
        EXPECT_EQ(take(), Told{});
    }
}

TEST_F(PageCombo, a_handler_sees_the_selection_that_it_is_told_of) {
    fill(list(), {"a", "b"});
    enter(list());
    std::vector<std::string> seen;
    on_told = [&](const std::string&) { seen.push_back(list().Text()); };
    QTest::keyClick(list().widget(), Qt::Key_Down);
    QTest::keyClick(list().widget(), Qt::Key_Down);
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "b"}));
}

TEST_F(PageCombo, a_handler_may_destroy_the_page_while_a_person_chooses) {
    fill(list(), {"a", "b"});
    enter(list());
    QComboBox& widget = widget_of(list());
    widget.showPopup();
    turn();
    on_told = [this](const std::string& what) {
        if (what == "list click") {
            destroy();
        }
    };
    QTest::keyClick(widget.view(), Qt::Key_Down);
    QTest::keyClick(widget.view(), Qt::Key_Return);
    turn();
    EXPECT_EQ(form, nullptr);
}

TEST_F(PageCombo, the_fields_are_listed_before_the_press_that_enters_opens_the_list) {
    on_told = [this](const std::string& what) {
        if (what == "combo got") {
            combo().Clear();
            fill(combo(), {"codice", "nome"});
        }
    };
    QTest::mousePress(
        combo().widget(), Qt::LeftButton, {}, QPoint(combo().widget()->width() - 6, 8));
    turn();
    EXPECT_EQ(widget_of(combo()).view()->model()->rowCount(), 2);
    widget_of(combo()).hidePopup();
}

} // namespace krv::qt::testing
