#include "propertypage/page_fixture.h"

namespace krv::propertypage {

namespace {

using namespace testing;

class FieldChoiceTest : public PageTest {
protected:
    /// A page of two columns with this field in the list, the first column of width 1234, length 7
    /// and format "x".
    void list_field(std::int16_t type, std::int32_t size = 0) {
        data.field_names = {"other", "campo"};
        data.field_types = {3, type};
        data.field_sizes = {4, size};
        auto control = make_control(2);
        control->set("ColWidth(0)", 1234);
        control->set("ColFieldLength(0)", 7);
        control->set("ColFormat(0)", "x");
        site.selection = {control};
        page->SelectionChanged();
        type_source();
        forget();
    }

    void type_source() {
        type("txConnection", "Provider=x;");
        answer_no();
        fill("txRecordSource", "clienti");
        enter("cmbDataField");
    }

    /// Length, format and width of the first column as they were stored.
    Lines stored() {
        const PageColumns& columns = page->columns();
        return {std::to_string(columns.colFieldLengths[0]),
                columns.colFormats[0],
                std::to_string(columns.colWidths[0])};
    }
};

TEST_F(FieldChoiceTest, each_type_proposes_its_length_format_and_width) {
    const Lines small = {"5", "####0", "550"};
    const Lines whole = {"9", "########0", "800"};
    const Lines other = {"0", "", "1234"};
    const Lines tiny = {"7", "x", "1234"};
    const Lines characters = {"50", "", "6500"};
    std::map<std::int16_t, Lines> wanted = {{16, tiny},
                                            {17, tiny},
                                            {2, small},
                                            {18, small},
                                            {3, whole},
                                            {19, whole},
                                            {20, whole},
                                            {21, whole},
                                            {6, {"9", "###,###,##0", "900"}},
                                            {4, {"9", "###,##0.0#", "800"}},
                                            {5, {"12", "#,##0.0#", "1000"}},
                                            {0, characters},
                                            {129, characters},
                                            {130, characters},
                                            {200, characters},
                                            {202, characters}};
    const platform::ComboBox& types = parts().cmbDataType;
    for (std::int16_t i = 0; i < types.ListCount(); ++i) {
        wanted.emplace(static_cast<std::int16_t>(types.ItemData(i)), other);
    }
    EXPECT_EQ(wanted.size(), 37U);
    for (const auto& [type, proposal] : wanted) {
        close();
        open();
        list_field(type, 50);
        click("cmbDataField", 1);
        EXPECT_EQ(stored(), proposal) << type;
        EXPECT_EQ(shown_type(), type);
        EXPECT_EQ(page->columns().colFieldTypes, (std::vector<std::int16_t>{type, 0}));
        EXPECT_EQ(page->columns().colDataFields, (std::vector<std::string>{"campo", ""}));
        EXPECT_EQ(page->columns().colCaptions[0], "caption 0");
        EXPECT_FALSE(parts().cmbDataType.Enabled()) << type;
        EXPECT_TRUE(site.changed);
    }
}

TEST_F(FieldChoiceTest, the_proposed_width_of_a_text_is_at_most_32767) {
    const std::vector<std::pair<std::int32_t, std::string>> sizes = {
        {0, "0"}, {1, "130"}, {252, "32760"}, {253, "32767"}, {255, "32767"}, {32767, "32767"}};
    for (const auto& [size, width] : sizes) {
        close();
        open();
        list_field(202, size);
        click("cmbDataField", 1);
        EXPECT_EQ(stored(), (Lines{std::to_string(size), "", width}));
    }
}

TEST_F(FieldChoiceTest, a_text_longer_than_16_bits_is_error_6) {
    list_field(202, 32768);
    EXPECT_EQ(error_number_of([&] { click("cmbDataField", 1); }), 6);
    EXPECT_EQ(stored(), (Lines{"7", "x", "1234"}));
    EXPECT_EQ(page->columns().colFieldTypes[0], 202);
}

TEST_F(FieldChoiceTest, a_type_that_is_not_in_the_list_is_error_381) {
    list_field(9);
    EXPECT_EQ(error_number_of([&] { click("cmbDataField", 1); }), 381);
    EXPECT_EQ(shown_type(), -1);
    EXPECT_FALSE(parts().cmbDataType.Enabled());
    EXPECT_EQ(stored(), (Lines{"7", "x", "1234"}));
    EXPECT_EQ(page->columns().colDataFields[0], "campo");
}

TEST_F(FieldChoiceTest, a_field_that_the_source_has_no_more_is_error_3265) {
    list_field(3);
    data.source_fails = true;
    fill("txRecordSource", "none");
    EXPECT_EQ(error_number_of([&] { click("cmbDataField", 1); }), 3265);
    EXPECT_EQ(page->columns().colDataFields[0], "campo");
    EXPECT_EQ(page->columns().colFieldTypes[0], 0);
}

TEST_F(FieldChoiceTest, typing_a_field_enables_the_type_list_again) {
    list_field(3);
    click("cmbDataField", 1);
    type("cmbDataField", "altro");
    EXPECT_TRUE(parts().cmbDataType.Enabled());
    EXPECT_EQ(page->columns().colDataFields[0], "altro");
    EXPECT_EQ(page->columns().colFieldTypes[0], 3);
}

TEST_F(FieldChoiceTest, a_typed_text_that_equals_an_entry_is_selected_but_still_typed) {
    list_field(6);
    type("cmbDataField", "campo");
    EXPECT_EQ(parts().cmbDataField.ListIndex(), 1);
    EXPECT_TRUE(parts().cmbDataType.Enabled());
    EXPECT_EQ(stored(), (Lines{"7", "x", "1234"}));
    EXPECT_EQ(page->columns().colFieldTypes[0], 0);
}

TEST_F(FieldChoiceTest, a_shown_column_enables_the_type_list_unless_its_field_is_an_entry) {
    list_field(3);
    click("cmbDataField", 1);
    EXPECT_FALSE(parts().cmbDataType.Enabled());
    click("TabStrip1", 2);
    EXPECT_TRUE(parts().cmbDataType.Enabled());
    click("TabStrip1", 1);
    EXPECT_FALSE(parts().cmbDataType.Enabled());
    EXPECT_EQ(parts().cmbDataField.ListIndex(), 1);
}

TEST_F(FieldChoiceTest, a_click_on_the_disabled_type_list_does_nothing) {
    list_field(3);
    click("cmbDataField", 1);
    forget();
    click("cmbDataType", 0);
    EXPECT_EQ(shown_type(), 3);
    EXPECT_EQ(site.marks, 0);
}

TEST_F(FieldChoiceTest, what_was_proposed_can_be_changed) {
    list_field(6);
    click("cmbDataField", 1);
    type("txtColWidth", "1500");
    type("txtFormat", "0.00");
    EXPECT_EQ(stored(), (Lines{"9", "0.00", "1500"}));
}

TEST_F(FieldChoiceTest, choosing_the_same_field_again_proposes_again) {
    list_field(6);
    click("cmbDataField", 1);
    type("txtColWidth", "1500");
    click("cmbDataField", 1);
    EXPECT_EQ(stored(), (Lines{"9", "###,###,##0", "900"}));
}

} // namespace

} // namespace krv::propertypage
