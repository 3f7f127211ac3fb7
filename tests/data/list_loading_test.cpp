#include "support/errors.h"
#include "support/list_test.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace krv {
namespace {

using testing::date;
using ::testing::ElementsAre;
using testing::error_number_of;
using ::testing::IsEmpty;
using testing::ListTest;
using testing::null;
using testing::real;
using testing::text;
using testing::whole;

class Loading : public ListTest {
protected:
    void SetUp() override {
        ListTest::SetUp();
        list().SetAutoAdd(false);
        list().SetConnect("Provider=script");
        list().SetRecordsource("persone");
        data.field_names = {"id", "nome", "nato", "peso"};
        data.records.push_back({whole(2), text("Bruno"), date(45356), real(1.5)});
        data.records.push_back({whole(1), text("Anna"), null(), null()});
        data.records.push_back({whole(3), text(""), date(36525), real(0)});
        changed.clear();
    }

    void bind(const std::vector<std::string>& fields,
              const std::vector<std::string>& formats = {}) {
        list().SetCols(static_cast<std::int32_t>(fields.size()));
        for (std::size_t col = 0; col < fields.size(); ++col) {
            list().SetColDataField(static_cast<std::int32_t>(col), fields[col]);
        }
        for (std::size_t col = 0; col < formats.size(); ++col) {
            list().SetColFormat(static_cast<std::int32_t>(col), formats[col]);
        }
        changed.clear();
    }

    std::vector<std::string> column(std::int32_t col) {
        std::vector<std::string> texts;
        for (std::int32_t row = 0; row < list().Rows(); ++row) {
            texts.push_back(list().TextMatrix(row, col));
        }
        return texts;
    }
};

TEST_F(Loading, one_row_a_record_in_the_recordsets_order) {
    bind({"id", "nome"});
    list().Refresh();
    EXPECT_THAT(column(0), ElementsAre("2", "1", "3"));
    EXPECT_THAT(column(1), ElementsAre("Bruno", "Anna", ""));
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(Loading, an_empty_table_leaves_the_captions_and_the_reset_runs) {
    bind({"id"});
    data.records.clear();
    list().SetRows(4);
    list().SetRow(2);
    list().Refresh();
    EXPECT_EQ(list().Rows(), 0);
    EXPECT_EQ(list().Row(), -1);
    EXPECT_FALSE(parts().GridIn.Visible());
    EXPECT_FALSE(parts().btnOK.Visible());
}

TEST_F(Loading, a_date_pattern_formats_dates_and_leaves_Null_empty) {
    bind({"nato"}, {"dd/mm/yyyy"});
    list().Refresh();
    EXPECT_THAT(column(0), ElementsAre("05/03/2024", "", "31/12/1999"));
}

TEST_F(Loading, Null_does_not_reach_a_patterns_section_for_Null) {
    bind({"peso"}, {"0.0;-0.0;zero;nullo"});
    list().Refresh();
    EXPECT_THAT(column(0), ElementsAre("1,5", "", "zero"));
}

TEST_F(Loading, without_a_pattern_values_become_plain_text) {
    bind({"peso", "nato"});
    list().Refresh();
    EXPECT_THAT(column(0), ElementsAre("1,5", "", "0"));
    EXPECT_THAT(column(1), ElementsAre("05/03/2024", "", "31/12/1999"));
}

TEST_F(Loading, a_data_field_of_blanks_is_unbound) {
    bind({"   ", "id", ""});
    list().Refresh();
    EXPECT_THAT(column(0), ElementsAre("", "", ""));
    EXPECT_THAT(column(1), ElementsAre("2", "1", "3"));
    EXPECT_THAT(column(2), ElementsAre("", "", ""));
}

TEST_F(Loading, only_the_emptiness_test_is_trimmed_not_the_name) {
    bind({" id "});
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), 3265);
}

TEST_F(Loading, two_columns_may_show_one_field) {
    bind({"id", "id"});
    list().Refresh();
    EXPECT_THAT(column(1), ElementsAre("2", "1", "3"));
}

TEST_F(Loading, a_missing_field_stops_the_load_and_what_was_loaded_stays) {
    bind({"nome", "manca", "id"});
    list().SetRows(9);
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), 3265);
    EXPECT_EQ(list().Rows(), 1);
    EXPECT_THAT(column(0), ElementsAre("Bruno"));
    EXPECT_THAT(column(2), ElementsAre(""));
    EXPECT_TRUE(parts().btnOK.Visible()); // the reset that hides it has not run
}

TEST_F(Loading, a_value_that_cannot_be_shown_stops_the_load) {
    bind({"nome", "peso"}, {"", "0.0"});
    const std::array<std::byte, 2> bytes = {std::byte{1}, std::byte{2}};
    data.records[1][3] = platform::Value(platform::ValueView::bytes(bytes));
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), 13);
    EXPECT_THAT(column(0), ElementsAre("Bruno", "Anna"));
    data.records[1][3] = null();
    list().Refresh();
    EXPECT_EQ(list().Rows(), 3);
}

TEST_F(Loading, a_source_that_breaks_half_way_is_an_error_and_no_short_list) {
    bind({"id"});
    data.broken_after = 1;
    EXPECT_EQ(error_number_of([&] { list().Refresh(); }), -2147467259);
    EXPECT_THAT(column(0), ElementsAre("2", "1"));
}

TEST_F(Loading, the_recordset_stays_open_at_its_end) {
    bind({"id"});
    list().Refresh();
    EXPECT_EQ(list().Recordset()->State(), 1);
    EXPECT_TRUE(list().Recordset()->Eof());
}

TEST_F(Loading, captions_survive_and_only_bound_columns_are_written) {
    bind({"", "nome"});
    list().SetCaption(0, "Nr");
    list().SetCaption(1, "Nome");
    list().SetLineNumberColumn(0);
    list().Refresh();
    EXPECT_EQ(list().Caption(0), "Nr");
    EXPECT_EQ(list().Caption(1), "Nome");
    EXPECT_THAT(column(0), ElementsAre("", "", ""));
}

TEST_F(Loading, the_reset_leaves_the_header_current_and_hides_all_but_the_add_button) {
    bind({"id"});
    list().SetRows(3);
    list().SetRow(1);
    parts().GridIn.SetVisible(true);
    parts().InpFld.SetVisible(true);
    parts().InpFld.SetText("a medias");
    list().SetEvidenziaColor(0x0000FF00);
    list().EvidenziaFunzione(2);
    list().Refresh();
    EXPECT_EQ(list().Row(), -1);
    EXPECT_FALSE(parts().GridIn.Visible());
    EXPECT_FALSE(parts().InpFld.Visible());
    EXPECT_EQ(parts().InpFld.Text(), "");
    EXPECT_EQ(parts().btnInsert.BackColor(), platform::button_face_color);
    EXPECT_FALSE(parts().btnOK.Visible());
    EXPECT_FALSE(parts().btnInsert.Visible());
    EXPECT_FALSE(parts().btnDelete.Visible());
    EXPECT_FALSE(parts().btnCopy.Visible());
    EXPECT_TRUE(parts().btnAdd.Visible());
    EXPECT_TRUE(list().InsertVisible());
    EXPECT_TRUE(list().OkVisible());
}

TEST_F(Loading, a_hidden_add_button_stays_hidden) {
    bind({"id"});
    list().SetAddVisible(false);
    list().Refresh();
    EXPECT_FALSE(parts().btnAdd.Visible());
}

TEST_F(Loading, the_surface_is_asked_to_repaint) {
    bind({"id"});
    const std::int64_t before = repaints();
    list().Refresh();
    EXPECT_EQ(repaints(), before + 1);
}

TEST_F(Loading, the_captions_of_the_buttons_after_a_load_are_not_alike) {
    list().SetKeyAdd(116);
    list().SetKeyInsert(117);
    list().SetKeyDelete(121);
    list().SetKeyCopy(112);
    list().SetOKCaption("conferma");
    list().SetRecordsource("");
    list().Refresh();
    EXPECT_EQ(parts().btnAdd.Caption(), "aggiungi (F5)");
    EXPECT_EQ(parts().btnInsert.Caption(), "inserisci F6)");
    EXPECT_EQ(parts().btnDelete.Caption(), "elimina F10)");
    EXPECT_EQ(parts().btnCopy.Caption(), "copia F1)");
    EXPECT_EQ(parts().btnOK.Caption(), "conferma");
}

TEST_F(Loading, the_buttons_are_captioned_even_when_nothing_opens) {
    list().SetConnect("");
    list().Refresh();
    EXPECT_EQ(parts().btnInsert.Caption(), "inserisci F6)");
}

TEST_F(Loading, pending_events_run_in_the_reset_before_the_buttons_are_hidden) {
    bind({"id"});
    std::vector<bool> seen;
    post([&] { seen = {parts().GridIn.Visible(), parts().btnOK.Visible()}; });
    list().Refresh();
    EXPECT_THAT(seen, ElementsAre(false, true));
}

TEST_F(Loading, the_host_may_destroy_the_control_in_the_turn_of_the_reset) {
    bind({"id"});
    post([this] { destroy(); });
    list().Refresh();
    EXPECT_FALSE(alive());
}

TEST_F(Loading, the_host_may_refresh_again_in_the_turn_of_the_reset) {
    bind({"id"});
    post([this] { list().Refresh(); });
    list().Refresh();
    EXPECT_THAT(column(0), ElementsAre("2", "1", "3"));
}

TEST_F(Loading, many_records_keep_their_rows_and_columns) {
    bind({"id", "nome"});
    data.records.clear();
    for (std::int32_t i = 0; i < 5000; ++i) {
        data.records.push_back({whole(i), text("r" + std::to_string(i)), null(), null()});
    }
    list().Refresh();
    EXPECT_EQ(list().Rows(), 5000);
    EXPECT_EQ(list().TextMatrix(4999, 0), "4999");
    EXPECT_EQ(list().TextMatrix(2500, 1), "r2500");
}

class Emptying : public ListTest {
protected:
    void SetUp() override {
        ListTest::SetUp();
        list().SetAutoAdd(false);
        list().SetCols(2);
        list().SetCaption(0, "A");
        list().SetCaption(1, "B");
        list().SetRows(2);
        list().SetTextMatrix(0, 0, "a0");
        list().SetTextMatrix(1, 1, "b1");
        list().SetAutoStartInputOnClick(false);
        list().SetRow(1);
        list().SetInputArray(1, "in corso");
        parts().InpFld.SetText("scritto");
        parts().InpFld.SetVisible(true);
        changed.clear();
    }

    void expect_reset() {
        EXPECT_FALSE(list().InputModified());
        EXPECT_TRUE(parts().btnAdd.Visible());
        EXPECT_FALSE(parts().GridIn.Visible());
        EXPECT_EQ(parts().InpFld.Text(), "");
        EXPECT_TRUE(parts().InpFld.Visible());
        EXPECT_EQ(list().InputArray(1), "");
        EXPECT_THAT(messages(), IsEmpty());
        EXPECT_THAT(changed, IsEmpty());
    }
};

TEST_F(Emptying, Clear_empties_captions_cells_and_input_line_and_keeps_the_rows) {
    list().SetColWidth(1, 1234);
    list().SetColAlignment(1, krvright);
    changed.clear();
    list().Clear();
    EXPECT_EQ(list().Caption(0), "");
    EXPECT_EQ(parts().GridIn.TextMatrix(0, 1), "");
    EXPECT_EQ(list().Rows(), 2);
    EXPECT_EQ(list().TextMatrix(0, 0), "");
    EXPECT_EQ(list().TextMatrix(1, 1), "");
    EXPECT_EQ(list().Row(), 1);
    EXPECT_EQ(list().ColWidth(1), 1234);
    EXPECT_EQ(list().ColAlignment(1), krvright);
    expect_reset();
}

TEST_F(Emptying, Svuota_keeps_the_captions_alone) {
    list().Svuota(true);
    EXPECT_EQ(list().Rows(), 0);
    EXPECT_EQ(list().Row(), -1);
    EXPECT_EQ(list().Caption(0), "A");
    EXPECT_EQ(parts().GridIn.TextMatrix(0, 1), "B");
    EXPECT_EQ(parts().GridIn.Rows(), 2);
    expect_reset();
}

TEST_F(Emptying, a_highlight_goes_and_a_hidden_add_button_comes_back_if_it_may) {
    list().EvidenziaFunzione(4);
    parts().btnAdd.SetVisible(false);
    list().Clear();
    EXPECT_EQ(parts().Line1.X1(), -1);
    EXPECT_TRUE(parts().btnAdd.Visible());
    list().SetAddVisible(false);
    list().Svuota();
    EXPECT_FALSE(parts().btnAdd.Visible());
}

TEST_F(Emptying, neither_closes_the_recordset) {
    list().SetConnect("Provider=script");
    list().SetRecordsource("t");
    list().Refresh();
    list().Clear();
    list().Svuota(true);
    ASSERT_NE(list().Recordset(), nullptr);
    EXPECT_EQ(list().Recordset()->State(), 1);
}

class RowAccess : public ListTest {
protected:
    void SetUp() override {
        ListTest::SetUp();
        list().SetCols(2);
        list().SetRows(3);
        changed.clear();
    }
};

TEST_F(RowAccess, Row_counts_data_rows_and_is_minus_1_on_the_captions) {
    EXPECT_EQ(list().Row(), -1);
    list().SetRow(2);
    EXPECT_EQ(list().Row(), 2);
    EXPECT_EQ(parts().Grid.Row(), 3);
    list().SetRow(-1);
    EXPECT_EQ(parts().Grid.Row(), 0);
    EXPECT_THAT(changed, ElementsAre("Row", "Row"));
}

TEST_F(RowAccess, Row_outside_is_the_grids_error_and_the_sum_may_overflow) {
    list().SetRow(1);
    changed.clear();
    EXPECT_EQ(error_number_of([&] { list().SetRow(3); }), 30009);
    EXPECT_EQ(error_number_of([&] { list().SetRow(-2); }), 30009);
    EXPECT_EQ(error_number_of([&] { list().SetRow(2147483647); }), 6);
    EXPECT_EQ(list().Row(), 1);
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(RowAccess, TextMatrix_row_0_is_grid_row_1_and_minus_1_the_captions) {
    list().SetTextMatrix(0, 1, "x");
    EXPECT_EQ(parts().Grid.TextMatrix(1, 1), "x");
    list().SetTextMatrix(-1, 0, "Codice");
    EXPECT_EQ(list().Caption(0), "Codice");
    EXPECT_EQ(list().TextMatrix(-1, 0), "Codice");
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(RowAccess, TextMatrix_outside_is_the_grids_error) {
    EXPECT_EQ(error_number_of([&] { list().TextMatrix(3, 0); }), 381);
    EXPECT_EQ(error_number_of([&] { list().TextMatrix(-2, 0); }), 381);
    EXPECT_EQ(error_number_of([&] { list().TextMatrix(0, 2); }), 381);
    EXPECT_EQ(error_number_of([&] { list().SetTextMatrix(0, -1, ""); }), 381);
    EXPECT_EQ(error_number_of([&] { list().TextMatrix(2147483647, 0); }), 6);
}

TEST_F(RowAccess, RowPos_is_0_outside_the_data_rows) {
    EXPECT_EQ(list().RowPos(-1), 0);
    EXPECT_EQ(list().RowPos(list().Rows()), 0);
    EXPECT_EQ(list().RowPos(2147483647), 0);
    EXPECT_EQ(list().RowPos(0), 240);
    EXPECT_EQ(list().RowPos(2), 720);
    list().SetRows(0);
    EXPECT_EQ(list().RowPos(0), 0);
}

TEST_F(RowAccess, TopRow_passes_the_grids_own_numbers) {
    list().SetRows(200);
    changed.clear();
    EXPECT_EQ(list().TopRow(), 1);
    list().SetRow(50);
    list().SetTopRow(list().Row()); // deliberately one row above the selected one
    EXPECT_EQ(list().TopRow(), 50);
    EXPECT_EQ(list().RowPos(49), 240);
    EXPECT_EQ(list().RowPos(50), 480);
    EXPECT_EQ(error_number_of([&] { list().SetTopRow(-1); }), 30009);
    EXPECT_EQ(error_number_of([&] { list().SetTopRow(201); }), 30009);
    EXPECT_THAT(changed, ElementsAre("Row"));
}

} // namespace
} // namespace krv
