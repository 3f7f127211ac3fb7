#include "support/errors.h"
#include "support/list_test.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv {
namespace {

using ::testing::ElementsAre;
using testing::error_number_of;
using ::testing::IsEmpty;
using testing::ListTest;

class StartUp : public ListTest {};

TEST_F(StartUp, a_new_control_has_one_column_no_rows_and_the_default_settings) {
    EXPECT_EQ(list().Cols(), 1);
    EXPECT_EQ(list().Rows(), 0);
    EXPECT_EQ(list().Row(), -1);
    EXPECT_TRUE(list().ColEditable(0));
    EXPECT_EQ(list().ColFieldType(0), 0);
    EXPECT_EQ(list().LineNumberColumn(), -1);
    EXPECT_TRUE(list().AutoAdd());
    EXPECT_TRUE(list().AutoStartInputOnClick());
    EXPECT_FALSE(list().MoveWithTab());
    EXPECT_TRUE(list().Enabled());
    EXPECT_EQ(list().Connect(), "");
    EXPECT_EQ(list().DataBaseName(), "");
    EXPECT_EQ(list().Recordsource(), "");
    EXPECT_FALSE(list().ReadOnlyRecordset());
    EXPECT_EQ(list().Recordset(), nullptr);
    EXPECT_EQ(list().GiveFocusTo(), nullptr);
    EXPECT_EQ(list().MsgTitle(), "Rolda");
    EXPECT_EQ(list().EvidenziaColor(), 0U);
}

TEST_F(StartUp, the_flags_of_the_edit_state_are_down) {
    EXPECT_FALSE(list().Adding());
    EXPECT_FALSE(list().Inserting());
    EXPECT_FALSE(list().Editing());
    EXPECT_FALSE(list().Modified());
}

TEST_F(StartUp, the_keys_are_F5_to_F8_and_Enter) {
    EXPECT_EQ(list().KeyAdd(), 116);
    EXPECT_EQ(list().KeyInsert(), 117);
    EXPECT_EQ(list().KeyDelete(), 118);
    EXPECT_EQ(list().KeyCopy(), 119);
    EXPECT_EQ(list().KeyOK(), 13);
}

TEST_F(StartUp, the_buttons_show_their_captions_with_the_key_mark) {
    EXPECT_EQ(parts().btnAdd.Caption(), "aggiungi (F5)");
    EXPECT_EQ(parts().btnInsert.Caption(), "inserisci (F6)");
    EXPECT_EQ(parts().btnDelete.Caption(), "elimina (F7)");
    EXPECT_EQ(parts().btnCopy.Caption(), "copia (F8)");
    EXPECT_EQ(parts().btnOK.Caption(), "conferma riga");
}

TEST_F(StartUp, the_five_buttons_show_and_input_line_and_editor_do_not) {
    EXPECT_FALSE(parts().GridIn.Visible());
    EXPECT_FALSE(parts().InpFld.Visible());
    for (const platform::Button* button : {&parts().btnAdd,
                                           &parts().btnInsert,
                                           &parts().btnDelete,
                                           &parts().btnCopy,
                                           &parts().btnOK}) {
        EXPECT_TRUE(button->Visible()) << button->Name();
        EXPECT_EQ(button->Height(), 255) << button->Name();
    }
    EXPECT_EQ(parts().Line1.X1(), -1);
    EXPECT_EQ(parts().Line1.X2(), -1);
}

TEST_F(StartUp, nothing_is_notified) {
    EXPECT_THAT(changed_at_start, IsEmpty());
}

class State : public ListTest {};

TEST_F(State, writing_InputArray_offers_the_confirm) {
    list().SetOkVisible(false);
    changed.clear();
    EXPECT_FALSE(list().InputModified());
    list().SetInputArray(0, "x");
    EXPECT_TRUE(list().InputModified());
    EXPECT_FALSE(list().OkVisible());
    EXPECT_EQ(list().InputArray(0), "x");
    EXPECT_EQ(parts().GridIn.TextMatrix(1, 0), "x");
    EXPECT_THAT(changed, ElementsAre("InputArray"));
}

TEST_F(State, a_refused_InputArray_offers_nothing) {
    list().SetOkVisible(false);
    changed.clear();
    EXPECT_EQ(error_number_of([&] { list().SetInputArray(1, "x"); }), 381);
    EXPECT_FALSE(list().InputModified());
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(State, writing_MsgTitle_leaves_the_title_as_it_was) {
    application().SetTitle("Magazzino");
    list().SetMsgTitle("X");
    EXPECT_EQ(list().MsgTitle(), "Magazzino");
    EXPECT_EQ(application().Title(), "Magazzino");
    EXPECT_THAT(changed, ElementsAre("MsgTitle"));
}

TEST_F(State, MoveWithTab_is_the_inverse_of_the_add_buttons_tab_stop_alone) {
    list().SetMoveWithTab(true);
    EXPECT_TRUE(list().MoveWithTab());
    EXPECT_FALSE(parts().btnAdd.TabStop());
    for (const platform::Button* other :
         {&parts().btnInsert, &parts().btnDelete, &parts().btnCopy, &parts().btnOK}) {
        EXPECT_TRUE(other->TabStop()) << other->Name();
    }
    EXPECT_TRUE(parts().Grid.TabStop());
    EXPECT_TRUE(parts().InpFld.TabStop());
    parts().btnAdd.SetTabStop(true);
    EXPECT_FALSE(list().MoveWithTab());
    EXPECT_THAT(changed, ElementsAre("MoveWithTab"));
}

TEST_F(State, Enabled_reaches_the_five_buttons_and_neither_grids_nor_editor) {
    list().SetEnabled(false);
    EXPECT_FALSE(list().Enabled());
    for (const platform::Button* button : {&parts().btnAdd,
                                           &parts().btnInsert,
                                           &parts().btnDelete,
                                           &parts().btnCopy,
                                           &parts().btnOK}) {
        EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    EXPECT_TRUE(parts().Grid.Enabled());
    EXPECT_TRUE(parts().GridIn.Enabled());
    EXPECT_TRUE(parts().InpFld.Enabled());
    EXPECT_THAT(changed, ElementsAre("Enabled"));
}

TEST_F(State, stored_flags_read_back_and_notify) {
    list().SetAutoAdd(false);
    list().SetAutoStartInputOnClick(false);
    EXPECT_FALSE(list().AutoAdd());
    EXPECT_FALSE(list().AutoStartInputOnClick());
    EXPECT_THAT(changed, ElementsAre("AutoAdd", "AutoStartInputOnClick"));
}

TEST_F(State, GiveFocusTo_holds_one_reference_and_releases_the_one_before) {
    struct Thing : platform::Object {};

    auto first = std::make_shared<Thing>();
    auto second = std::make_shared<Thing>();
    list().SetGiveFocusTo(first);
    EXPECT_EQ(first.use_count(), 2);
    list().SetGiveFocusTo(second);
    EXPECT_EQ(first.use_count(), 1);
    EXPECT_EQ(list().GiveFocusTo(), second);
    list().SetGiveFocusTo(nullptr);
    EXPECT_EQ(second.use_count(), 1);
    EXPECT_THAT(changed, ElementsAre("GiveFocusTo", "GiveFocusTo", "GiveFocusTo"));
}

TEST_F(State, a_control_that_ends_releases_what_it_held) {
    struct Thing : platform::Object {};

    auto thing = std::make_shared<Thing>();
    list().SetGiveFocusTo(thing);
    destroy();
    EXPECT_EQ(thing.use_count(), 1);
}

TEST_F(State, the_host_may_destroy_the_control_in_a_notification) {
    on_changed = [this](const std::string&) { destroy(); };
    list().SetCols(3);
    EXPECT_FALSE(alive());
}

} // namespace
} // namespace krv
