// Hosts that do inside an event what they had better not: what was typed stays with its row, or the
// user was asked.

#include "support/errors.h"
#include "support/list_test.h"

namespace krv {
namespace {

using platform::MessageAnswer;
using testing::error_number_of;
using testing::ListTest;
using Lines = std::vector<std::string>;

constexpr const char* drop_question = "confermi annullamento modifiche?|yesno|Rolda";

/// Three rows a0 b0 ... c2; the host does something once inside an event.
struct MeddlingHost : ListTest, KarvoListEvents {
    using Act = std::function<void()>;

    void SetUp() override {
        ListTest::SetUp();
        list().SetAutoAdd(false);
        list().SetAutoStartInputOnClick(false);
        list().SetCols(3);
        list().SetRows(3);
        for (std::int32_t row = 0; row < 3; ++row) {
            for (std::int32_t col = 0; col < 3; ++col) {
                list().SetColEditable(col, true);
                list().SetTextMatrix(row, col, cell(row, col));
            }
        }
        list().subscribe(*this);
    }

    static std::string cell(std::int32_t row, std::int32_t col) {
        return std::string(1, static_cast<char>('a' + col)) + std::to_string(row);
    }

    void BeforeFieldUpdate(std::int32_t, std::string& value, bool& cancel) override {
        offered.push_back(value);
        run(in_before_field);
        cancel = refuses;
    }

    void AfterRowUpdated(std::int32_t) override { run(in_after_row); }

    void InputLineDblClick(std::int32_t, std::string& value) override {
        run(in_double_click);
        value = "trovato";
    }

    void InputFieldChange(std::int32_t, std::string&) override { run(in_change); }

    void RowSelect(std::int32_t&) override { run(in_row_select); }

    static void run(Act& act) {
        if (const Act once = std::exchange(act, nullptr)) {
            once();
        }
    }

    /// The row open, the editor with the focus on the column.
    void edit(std::int32_t row, std::int32_t col) {
        list().SetRow(row);
        turn();
        ASSERT_TRUE(list().SetInput(col));
        turn();
    }

    void leave_field() { focus_outside(); }

    Lines input_line() {
        return {list().InputArray(0), list().InputArray(1), list().InputArray(2)};
    }

    Lines row(std::int32_t number) {
        return {list().TextMatrix(number, 0),
                list().TextMatrix(number, 1),
                list().TextMatrix(number, 2)};
    }

    Act in_before_field;
    Act in_after_row;
    Act in_double_click;
    Act in_change;
    Act in_row_select;
    bool refuses = false;
    Lines offered;
};

TEST_F(MeddlingHost, a_field_under_way_is_asked_about_before_another_row_is_opened) {
    edit(0, 1);
    type("x");
    in_before_field = [this] {
        answer_next(MessageAnswer::yes);
        list().SetRow(2);
    };
    leave_field();
    EXPECT_EQ(messages(), Lines{drop_question});
    EXPECT_EQ(input_line(), (Lines{"a2", "b2", "c2"}));
    EXPECT_FALSE(list().InputModified());
}

TEST_F(MeddlingHost, a_field_under_way_is_stored_in_its_own_row_when_the_user_stays) {
    edit(0, 1);
    type("x");
    in_before_field = [this] {
        answer_next(MessageAnswer::no);
        list().SetRow(2);
    };
    leave_field();
    EXPECT_EQ(list().Row(), 0);
    EXPECT_EQ(input_line(), (Lines{"a0", "x", "c0"}));
}

TEST_F(MeddlingHost, a_deleted_rows_field_goes_with_it) {
    edit(1, 1);
    type("xy");
    in_before_field = [this] {
        answer_next(MessageAnswer::yes);
        list().Delete();
    };
    leave_field();
    EXPECT_EQ(list().Rows(), 2);
    list().OK();
    EXPECT_EQ(row(1), (Lines{"a2", "b2", "c2"}));
}

TEST_F(MeddlingHost, an_inserted_row_does_not_get_the_field_of_the_row_before) {
    edit(1, 1);
    type("xy");
    in_before_field = [this] { list().Insert(); };
    leave_field();
    EXPECT_EQ(input_line(), (Lines{"", "", ""}));
}

TEST_F(MeddlingHost, a_row_is_not_confirmed_while_its_field_is_offered) {
    edit(1, 1);
    type("xy");
    in_before_field = [this] { list().OK(); };
    leave_field();
    EXPECT_EQ(row(1), (Lines{"a1", "b1", "c1"}));
    EXPECT_EQ(input_line(), (Lines{"a1", "xy", "c1"}));
    list().OK();
    EXPECT_EQ(row(1), (Lines{"a1", "xy", "c1"}));
}

TEST_F(MeddlingHost, a_reload_inside_the_offer_leaves_no_modified_row) {
    edit(1, 1);
    type("xy");
    in_before_field = [this] { list().Refresh(); };
    leave_field();
    EXPECT_FALSE(list().InputModified());
    EXPECT_FALSE(parts().GridIn.Visible());
}

TEST_F(MeddlingHost, an_error_in_the_offer_leaves_the_field_open_with_its_text) {
    edit(1, 1);
    type("xy");
    in_before_field = [] { throw platform::RuntimeError(1000, "no", "host"); };
    EXPECT_EQ(error_number_of([this] { leave_field(); }), 1000);
    turn();
    EXPECT_EQ(parts().InpFld.Text(), "xy");
    EXPECT_TRUE(parts().InpFld.Visible());
    EXPECT_TRUE(list().Editing());
    leave_field();
    EXPECT_EQ(input_line(), (Lines{"a1", "xy", "c1"}));
    EXPECT_EQ(offered, (Lines{"xy", "xy"}));
}

TEST_F(MeddlingHost, an_error_in_the_offer_of_a_row_change_keeps_the_row) {
    edit(0, 1);
    type("xy");
    in_before_field = [] { throw platform::RuntimeError(1000, "no", "host"); };
    answer_next(MessageAnswer::yes);
    EXPECT_EQ(error_number_of([this] { list().SetRow(2); }), 1000);
    EXPECT_EQ(list().Row(), 0);
    answer_next(MessageAnswer::yes);
    list().SetRow(2);
    EXPECT_EQ(input_line(), (Lines{"a2", "b2", "c2"}));
}

TEST_F(MeddlingHost, a_refusal_after_the_field_was_opened_again_keeps_offering_what_is_typed) {
    edit(0, 1);
    list().SetAutoStartInputOnClick(true);
    type("xy");
    refuses = true;
    in_before_field = [this] {
        answer_next(MessageAnswer::no);
        list().SetRow(2);
        turn();
    };
    leave_field();
    refuses = false;
    parts().InpFld.SetFocus();
    turn();
    type("zw");
    leave_field();
    EXPECT_EQ(input_line(), (Lines{"a0", "zw", "c0"}));
}

TEST_F(MeddlingHost, an_error_keeps_no_text_for_a_row_that_is_opened_next) {
    edit(1, 1);
    type("xy");
    in_before_field = [] { throw platform::RuntimeError(1000, "no", "host"); };
    EXPECT_EQ(error_number_of([this] { list().Add(); }), 1000);
    list().Insert();
    turn();
    leave_field();
    EXPECT_EQ(input_line(), (Lines{"", "", ""}));
}

TEST_F(MeddlingHost, a_row_opened_after_a_confirm_stays_open) {
    edit(0, 1);
    type("xy");
    in_after_row = [this] { list().Add(); };
    list().OK();
    turn();
    EXPECT_TRUE(list().Adding());
    EXPECT_TRUE(parts().GridIn.Visible());
    type("neu");
    list().OK();
    EXPECT_EQ(list().Rows(), 4);
    EXPECT_EQ(row(3), (Lines{"neu", "", ""}));
}

TEST_F(MeddlingHost, a_double_click_restores_no_cell_of_another_row) {
    edit(0, 1);
    in_double_click = [this] {
        answer_next(MessageAnswer::yes);
        list().SetRow(2);
    };
    double_click("InpFld");
    EXPECT_EQ(input_line(), (Lines{"a2", "b2", "c2"}));
    EXPECT_FALSE(parts().InpFld.Visible());
}

TEST_F(MeddlingHost, an_error_in_a_double_click_gives_cell_and_typed_text_back) {
    edit(0, 1);
    type("xy");
    in_double_click = [] { throw platform::RuntimeError(1000, "no", "host"); };
    EXPECT_EQ(error_number_of([this] { double_click("InpFld"); }), 1000);
    turn();
    EXPECT_EQ(input_line(), (Lines{"a0", "b0", "c0"}));
    EXPECT_EQ(parts().InpFld.Text(), "xy");
    EXPECT_TRUE(parts().InpFld.Visible());
}

TEST_F(MeddlingHost, a_change_is_not_written_into_the_field_that_the_host_opened_in_it) {
    edit(0, 1);
    in_change = [this] {
        list().SetInput(2);
        turn();
    };
    type("x");
    EXPECT_EQ(parts().InpFld.Text(), "c0");
    leave_field();
    EXPECT_EQ(input_line(), (Lines{"a0", "x", "c0"}));
}

TEST_F(MeddlingHost, without_the_column_of_the_line_numbers_no_row_is_opened_or_stored) {
    list().SetRow(1);
    list().SetLineNumberColumn(7);
    EXPECT_EQ(error_number_of([this] { list().Insert(); }), 381);
    EXPECT_EQ(error_number_of([this] { list().Copy(); }), 381);
    EXPECT_EQ(input_line(), (Lines{"a1", "b1", "c1"}));
    answer_next(MessageAnswer::yes);
    EXPECT_EQ(error_number_of([this] { list().Delete(); }), 381);
    EXPECT_EQ(list().Rows(), 3);
    list().SetLineNumberColumn(-1);
    list().Insert();
    list().SetInputArray(1, "neu");
    list().SetLineNumberColumn(7);
    EXPECT_EQ(error_number_of([this] { list().OK(); }), 381);
    EXPECT_EQ(list().Rows(), 3);
    EXPECT_TRUE(list().InputModified());
}

TEST_F(MeddlingHost, a_host_that_rewrites_every_change_ends_with_error_28) {
    struct Growing final : KarvoListEvents {
        void InputFieldChange(std::int32_t, std::string& value) override { value += "x"; }
    };

    edit(0, 1);
    Growing growing;
    list().subscribe(growing);
    EXPECT_EQ(error_number_of([this] { type("a"); }), 28);
    list().unsubscribe(growing);
    EXPECT_TRUE(parts().InpFld.Visible());
}

TEST_F(MeddlingHost, a_reload_inside_RowSelect_offers_no_row_commands) {
    in_row_select = [this] { list().Refresh(); };
    list().SetRow(1);
    EXPECT_FALSE(parts().btnDelete.Visible());
    EXPECT_FALSE(parts().btnCopy.Visible());
}

TEST_F(MeddlingHost, a_column_that_goes_before_its_field_got_the_focus_takes_the_editor_along) {
    list().SetRow(0);
    turn();
    ASSERT_TRUE(list().SetInput(2));
    list().SetCols(2);
    turn();
    EXPECT_FALSE(parts().InpFld.Visible());
}

} // namespace
} // namespace krv
