#include "support/list_test.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ListTest;

class FunctionButtonsOfAList : public ListTest {};

TEST_F(FunctionButtonsOfAList, a_key_recomposes_the_caption) {
    list().SetKeyAdd(123);
    list().SetAddCaption("nuova riga");
    EXPECT_EQ(parts().btnAdd.Caption(), "nuova riga (F12)");
    list().SetKeyAdd(112);
    EXPECT_EQ(parts().btnAdd.Caption(), "nuova riga (F1)");
    EXPECT_EQ(list().AddCaption(), "nuova riga");
    EXPECT_THAT(changed, ElementsAre("KeyAdd", "AddCaption", "KeyAdd"));
}

TEST_F(FunctionButtonsOfAList, a_key_outside_F1_to_F12_is_refused_with_a_message) {
    for (const std::int16_t code : {std::int16_t{111}, std::int16_t{124}, std::int16_t{-1}}) {
        list().SetKeyDelete(code);
    }
    EXPECT_EQ(list().KeyDelete(), 118);
    EXPECT_EQ(parts().btnDelete.Caption(), "elimina (F7)");
    EXPECT_THAT(changed, IsEmpty());
    const std::string text = "The value must be between vbKeyF1 and vbKeyF12.|ok|Rolda";
    EXPECT_THAT(messages(), ElementsAre(text, text, text));
}

TEST_F(FunctionButtonsOfAList, the_confirm_key_is_not_checked) {
    list().SetKeyOK(-32768);
    EXPECT_EQ(list().KeyOK(), -32768);
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(FunctionButtonsOfAList, the_confirm_caption_has_no_key_mark) {
    list().SetOKCaption("salva");
    EXPECT_EQ(parts().btnOK.Caption(), "salva");
    EXPECT_EQ(list().OKCaption(), "salva");
}

TEST_F(FunctionButtonsOfAList, every_put_notifies_its_own_name) {
    list().SetKeyInsert(112);
    list().SetKeyDelete(113);
    list().SetKeyCopy(114);
    list().SetKeyOK(27);
    list().SetInsertCaption("i");
    list().SetDeleteCaption("d");
    list().SetCopyCaption("c");
    list().SetOKCaption("ok");
    list().SetAddVisible(true);
    list().SetInsertVisible(true);
    list().SetDeleteVisible(true);
    list().SetCopyVisible(true);
    list().SetOkVisible(true);
    list().SetEvidenziaColor(1);
    EXPECT_THAT(changed,
                ElementsAre("KeyInsert",
                            "KeyDelete",
                            "KeyCopy",
                            "KeyOK",
                            "InsertCaption",
                            "DeleteCaption",
                            "CopyCaption",
                            "OKCaption",
                            "AddVisible",
                            "InsertVisible",
                            "DeleteVisible",
                            "CopyVisible",
                            "OkVisible",
                            "EvidenziaColor"));
}

TEST_F(FunctionButtonsOfAList, the_host_may_destroy_the_control_behind_the_key_message) {
    on_message = [this](const std::string&) { destroy(); };
    list().SetKeyAdd(1);
    EXPECT_FALSE(alive());
}

TEST_F(FunctionButtonsOfAList, a_visible_flag_shows_or_hides_its_button_and_moves_nothing) {
    const float left = parts().btnDelete.Left();
    list().SetCopyVisible(false);
    EXPECT_FALSE(list().CopyVisible());
    EXPECT_FALSE(parts().btnCopy.Visible());
    EXPECT_EQ(parts().btnDelete.Left(), left);
    list().SetCopyVisible(true);
    EXPECT_TRUE(parts().btnCopy.Visible());
}

TEST_F(FunctionButtonsOfAList, without_a_colour_the_line_marks_the_button) {
    list().EvidenziaFunzione(3);
    EXPECT_EQ(parts().Line1.X1(), parts().btnDelete.Left());
    EXPECT_EQ(parts().Line1.X2(), parts().btnDelete.Left() + parts().btnDelete.Width());
    EXPECT_EQ(parts().btnDelete.BackColor(), platform::button_face_color);
    list().EvidenziaFunzione(0);
    EXPECT_EQ(parts().Line1.X1(), -1);
    EXPECT_EQ(parts().Line1.X2(), -1);
}

TEST_F(FunctionButtonsOfAList, a_system_colour_counts_as_none) {
    list().SetEvidenziaColor(0x8000000D);
    list().EvidenziaFunzione(1);
    EXPECT_EQ(parts().Line1.X1(), parts().btnAdd.Left());
    EXPECT_EQ(parts().btnAdd.BackColor(), platform::button_face_color);
}

TEST_F(FunctionButtonsOfAList, a_colour_marks_one_button_and_clears_the_others_and_the_line) {
    list().EvidenziaFunzione(4);
    list().SetEvidenziaColor(0x0000FFFF);
    parts().btnAdd.SetBackColor(0x00123456);
    list().EvidenziaFunzione(2);
    EXPECT_EQ(parts().btnInsert.BackColor(), 0x0000FFFFU);
    EXPECT_EQ(parts().btnAdd.BackColor(), platform::button_face_color);
    EXPECT_EQ(parts().btnCopy.BackColor(), platform::button_face_color);
    EXPECT_EQ(parts().Line1.X1(), -1);
    list().EvidenziaFunzione(0);
    EXPECT_EQ(parts().btnInsert.BackColor(), platform::button_face_color);
}

TEST_F(FunctionButtonsOfAList, taking_no_mark_away_leaves_the_hosts_colours) {
    parts().btnAdd.SetBackColor(0x00123456);
    parts().Line1.SetX1(77);
    list().EvidenziaFunzione(0);
    EXPECT_EQ(parts().btnAdd.BackColor(), 0x00123456U);
    EXPECT_EQ(parts().Line1.X1(), 77);
}

TEST_F(FunctionButtonsOfAList, other_numbers_do_nothing) {
    list().EvidenziaFunzione(2);
    const float x1 = parts().Line1.X1();
    for (const std::int16_t number : {std::int16_t{5}, std::int16_t{-1}, std::int16_t{32767}}) {
        list().EvidenziaFunzione(number);
    }
    EXPECT_EQ(parts().Line1.X1(), x1);
}

} // namespace
} // namespace krv
