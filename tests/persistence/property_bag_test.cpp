#include "support/bag_texts.h"
#include "support/errors.h"
#include "support/list_test.h"
#include "support/random_settings.h"

#include "krv/persistence/setting_keys.h"

#include <gmock/gmock.h>

#include <set>

namespace krv::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class PropertyBag : public ListTest {
protected:
    standard::MemoryBag saved() {
        standard::MemoryBag bag;
        list().WriteProperties(bag);
        return bag;
    }

    std::vector<std::string> writes() {
        RecordingBag bag;
        list().WriteProperties(bag);
        return bag.writes;
    }

    /// Number of the error that loading these settings raises.
    std::int32_t load_error(std::string_view key, platform::Value value) {
        standard::MemoryBag bag;
        bag.set(key, std::move(value));
        return error_number_of([&] { load(bag); });
    }
};

std::vector<std::string> column_writes(std::string_view n, std::string_view values) {
    std::vector<std::string> texts;
    std::size_t at = 0;
    for (const char* key : {"ColWidth",
                            "ColAlignment",
                            "Caption",
                            "ColEditable",
                            "ColIsKey",
                            "ColFromRecord",
                            "ColDataField",
                            "ColFormat",
                            "ColIsNecessary",
                            "ColFieldLength",
                            "ColFieldType"}) {
        const std::size_t end = values.find('|', at);
        texts.push_back(std::string(key) + std::string(n) + " " +
                        std::string(values.substr(at, end - at)));
        at = end + 1;
    }
    return texts;
}

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> lists) {
    std::vector<std::string> all;
    for (const auto& list : lists) {
        all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

} // namespace

TEST_F(PropertyBag, a_new_control_writes_every_key_in_its_order_against_its_default) {
    const std::vector<std::string> before = {"BackColor 2147483663 2147483663",
                                             "Enabled true true",
                                             "MsgTitle \"Rolda\" \"Rolda\"",
                                             "Rows 1 2",
                                             "Cols 1 2",
                                             "Cols 1 2",
                                             "Row 0 0",
                                             "ButtonsHeight 255 0",
                                             "LineNumberColumn -1 -1",
                                             "Connect \"\" \"Access;\"",
                                             "DataBaseName \"\" \"\"",
                                             "RecordSource \"\" \"\"",
                                             "ReadOnlyRecordset false 0"};
    const std::vector<std::string> after = {"AddVisible true true",
                                            "InsertVisible true -1",
                                            "DeleteVisible true -1",
                                            "CopyVisible true -1",
                                            "OkVisible true -1",
                                            "AutoAdd true -1",
                                            "AutoStartInputOnClick true true",
                                            "MoveWithTab false false",
                                            "KeyAdd 116 116",
                                            "KeyInsert 117 117",
                                            "KeyDelete 118 118",
                                            "KeyCopy 119 119",
                                            "KeyOK 13 13",
                                            "AddCaption \"aggiungi\" \"aggiungi\"",
                                            "InsertCaption \"inserisci\" \"inserisci\"",
                                            "DeleteCaption \"elimina\" \"elimina\"",
                                            "CopyCaption \"copia\" \"copia\""};
    EXPECT_EQ(writes(),
              joined({before,
                      column_writes("0",
                                    "960 0|9 0|\"\" \"\"|true true|0 0|0 0|\"\" \"\"|\"\" \"\"|"
                                    "false false|0 0|0 12|"),
                      after}));
}

TEST_F(PropertyBag, a_new_control_stores_only_what_differs_from_the_bags_defaults) {
    EXPECT_THAT(texts_of(saved()),
                ElementsAre("Rows = 1",
                            "Cols = 1",
                            "ButtonsHeight = 255",
                            "Connect = \"\"",
                            "ColWidth0 = 960",
                            "ColAlignment0 = 9",
                            "ColFieldType0 = 0"));
}

TEST_F(PropertyBag, an_empty_bag_is_read_key_by_key_with_the_input_lines_keys_twice) {
    RecordingBag bag;
    load(bag);
    const auto column = [](const std::string& n) {
        return std::vector<std::string>{"ColWidth" + n + " 0",
                                        "ColWidth" + n + " 0",
                                        "ColAlignment" + n + " 0",
                                        "ColAlignment" + n + " 0",
                                        "Caption" + n + " \"\"",
                                        "Caption" + n + " \"\"",
                                        "ColEditable" + n + " true",
                                        "ColIsKey" + n + " 0",
                                        "ColFromRecord" + n + " 0",
                                        "ColDataField" + n + " \"\"",
                                        "ColFormat" + n + " \"\"",
                                        "ColIsNecessary" + n + " false",
                                        "ColFieldLength" + n + " 0",
                                        "ColFieldType" + n + " 12"};
    };
    EXPECT_EQ(bag.reads,
              joined({{"BackColor 2147483663",
                       "Enabled true",
                       "MsgTitle \"Rolda\"",
                       "Rows 2",
                       "Cols 2",
                       "Cols 2",
                       "Row 0",
                       "ButtonsHeight 255",
                       "LineNumberColumn -1",
                       "Connect \"Access;\"",
                       "DataBaseName \"\"",
                       "RecordSource \"\"",
                       "ReadOnlyRecordset 0"},
                      column("0"),
                      column("1"),
                      {"AddVisible true",
                       "InsertVisible -1",
                       "DeleteVisible -1",
                       "CopyVisible -1",
                       "OkVisible -1",
                       "AutoAdd -1",
                       "AutoStartInputOnClick true",
                       "MoveWithTab false",
                       "KeyAdd 116",
                       "KeyInsert 117",
                       "KeyDelete 118",
                       "KeyCopy 119",
                       "KeyOK 13",
                       "AddCaption \"aggiungi\"",
                       "InsertCaption \"inserisci\"",
                       "DeleteCaption \"elimina\"",
                       "CopyCaption \"copia\""}}));
    EXPECT_THAT(changed, IsEmpty());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(PropertyBag, the_described_keys_are_those_that_are_read) {
    RecordingBag bag;
    bag.held.set("Cols", whole(1));
    load(bag);
    std::vector<std::string> described;
    for (const persistence::SettingKey& key : persistence::setting_keys()) {
        const bool column = key.scope == persistence::KeyScope::column;
        described.push_back(std::string(key.name) + (column ? "0 " : " ") +
                            setting_text(key.default_read));
        EXPECT_FALSE(key.meaning.empty()) << key.name;
    }
    EXPECT_EQ(described.size(), 41U);
    // The input line's width, alignment and caption are read under the same keys once more.
    for (const char* twice : {"ColWidth0 0", "ColAlignment0 0", "Caption0 \"\""}) {
        const auto place = std::find(described.begin(), described.end(), twice);
        ASSERT_NE(place, described.end());
        described.insert(place, twice);
    }
    EXPECT_EQ(bag.reads, described);
}

TEST_F(PropertyBag, what_an_empty_bag_gives_is_not_what_a_new_control_has) {
    standard::MemoryBag empty;
    load(empty);
    EXPECT_THAT(texts_of(saved()), ElementsAre("ButtonsHeight = 255"));
    EXPECT_EQ(list().Rows(), 1);
    EXPECT_EQ(list().Cols(), 2);
    EXPECT_EQ(list().ColFieldType(1), 12);
    EXPECT_EQ(list().Connect(), "Access;");
}

TEST_F(PropertyBag, a_height_of_0_is_not_stored_and_comes_back_as_255) {
    list().SetButtonsHeight(0);
    standard::MemoryBag bag = saved();
    EXPECT_EQ(bag.find("ButtonsHeight"), nullptr);
    load(bag);
    EXPECT_EQ(list().ButtonsHeight(), 255);
}

TEST_F(PropertyBag, three_columns_come_back_in_both_grids) {
    list().SetCols(3);
    for (std::int32_t col = 0; col < 3; ++col) {
        list().SetColWidth(col, 1000 * col);
        list().SetCaption(col, col == 1 ? "" : "c" + std::to_string(col));
    }
    standard::MemoryBag bag = saved();
    EXPECT_EQ(bag.find("ColWidth0"), nullptr);
    EXPECT_EQ(bag.find("Caption1"), nullptr);
    load(bag);
    for (std::int32_t col = 0; col < 3; ++col) {
        EXPECT_EQ(parts().Grid.ColWidth(col), 1000 * col);
        EXPECT_EQ(parts().GridIn.ColWidth(col), 1000 * col);
        EXPECT_EQ(parts().Grid.TextMatrix(0, col), parts().GridIn.TextMatrix(0, col));
    }
    EXPECT_EQ(list().Caption(2), "c2");
}

TEST_F(PropertyBag, keys_are_exact) {
    standard::MemoryBag bag;
    for (const char* key : {"Recordsource", "OKVisible", "KeyOk", "Msgtitle", "ColWidth00"}) {
        bag.set(key, text("7"));
    }
    load(bag);
    EXPECT_EQ(list().Recordsource(), "");
    EXPECT_TRUE(list().OkVisible());
    EXPECT_EQ(list().KeyOK(), 13);
    EXPECT_EQ(application().Title(), "Rolda");
    EXPECT_EQ(list().ColWidth(0), 0);
}

TEST_F(PropertyBag, function_keys_are_taken_as_they_were_stored) {
    standard::MemoryBag bag;
    bag.set("KeyAdd", whole(5));
    bag.set("KeyCopy", whole(-3));
    load(bag);
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(list().KeyAdd(), 5);
    EXPECT_EQ(list().KeyCopy(), -3);
    EXPECT_EQ(parts().btnAdd.Caption(), "aggiungi (F-106)");
}

TEST_F(PropertyBag, a_stored_row_opens_no_input_line_and_tells_nobody) {
    standard::MemoryBag bag;
    bag.set("Rows", whole(5));
    bag.set("Row", whole(3));
    load(bag);
    turn();
    EXPECT_EQ(list().Row(), 2);
    EXPECT_FALSE(parts().GridIn.Visible());
    EXPECT_FALSE(parts().InpFld.Visible());
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(PropertyBag, a_stored_control_reacts_like_a_new_one) {
    standard::MemoryBag bag;
    bag.set("Rows", whole(3));
    load(bag);
    list().SetColWidth(0, 1000);
    list().SetRow(1);
    EXPECT_TRUE(parts().GridIn.Visible());
    const float width = parts().Grid.Width();
    resize(9000, 4000);
    EXPECT_GT(parts().Grid.Width(), width);
}

TEST_F(PropertyBag, settings_can_be_taken_over_by_a_control_in_use) {
    standard::MemoryBag bag = saved();
    list().SetCols(4);
    list().SetRows(9);
    list().SetRow(5);
    list().SetAutoAdd(false);
    changed.clear();
    list().ReadProperties(bag);
    turn();
    EXPECT_EQ(texts_of(saved()), texts_of(bag));
    EXPECT_TRUE(list().AutoAdd());
    EXPECT_THAT(changed, IsEmpty());
    list().SetRows(2);
    list().SetRow(1); // it listens again
    EXPECT_TRUE(parts().GridIn.Visible());
}

TEST_F(PropertyBag, taking_over_fewer_rows_opens_none) {
    list().SetColWidth(0, 1000);
    list().SetRows(9);
    list().SetEnabled(false); // so that the row becomes current and no more
    list().SetRow(7);
    standard::MemoryBag bag;
    bag.set("Rows", whole(4));
    bag.set("Row", whole(3)); // where the grid puts it by itself
    list().ReadProperties(bag);
    turn();
    EXPECT_EQ(list().Row(), 2);
    EXPECT_FALSE(parts().GridIn.Visible());
    list().SetRow(0);
    EXPECT_TRUE(parts().GridIn.Visible());
}

TEST_F(PropertyBag, taking_over_settings_closes_an_open_field_whose_column_goes) {
    list().SetAutoAdd(false);
    list().SetCols(3);
    list().SetColEditable(2, true);
    list().SetRows(2);
    list().SetRow(1);
    ASSERT_TRUE(list().SetInput(2));
    turn();
    type("perso");
    standard::MemoryBag bag;
    bag.set("Cols", whole(1));
    bag.set("Rows", whole(1));
    list().ReadProperties(bag);
    turn();
    EXPECT_FALSE(parts().InpFld.Visible());
    EXPECT_FALSE(list().Editing());
    EXPECT_EQ(list().Cols(), 1);
    list().OK();
    turn();
    EXPECT_EQ(list().Rows(), 0);
}

TEST_F(PropertyBag, a_value_that_does_not_convert_stops_at_its_key_and_names_it) {
    standard::MemoryBag bag;
    bag.set("BackColor", whole(255));
    bag.set("MsgTitle", text("prima"));
    bag.set("Rows", text("molte"));
    bag.set("Cols", whole(7));
    std::string told;
    try {
        list().ReadProperties(bag);
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.number(), 13);
        told = error.description();
    }
    EXPECT_THAT(told, HasSubstr("Rows"));
    EXPECT_EQ(list().BackColor(), 255U);
    EXPECT_EQ(application().Title(), "prima");
    EXPECT_EQ(list().Cols(), 1);
    list().SetRows(2);
    list().SetRow(1); // the control is usable
    EXPECT_TRUE(parts().GridIn.Visible());
}

TEST_F(PropertyBag, an_error_in_a_column_names_the_column) {
    standard::MemoryBag bag;
    bag.set("ColIsKey1", whole(40000));
    std::string told;
    try {
        load(bag);
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.number(), 6);
        told = error.description();
    }
    EXPECT_THAT(told, HasSubstr("ColIsKey1"));
}

TEST_F(PropertyBag, every_key_refuses_what_does_not_convert) {
    std::set<std::string> texts;
    for (const persistence::SettingKey& key : persistence::setting_keys()) {
        const bool column = key.scope == persistence::KeyScope::column;
        const std::string name = std::string(key.name) + (column ? "0" : "");
        EXPECT_EQ(load_error(name, null()), 13) << name;
        if (key.default_read.kind() == platform::ValueKind::text) {
            texts.insert(name);
        } else {
            EXPECT_EQ(load_error(name, text("abc")), 13) << name;
        }
    }
    EXPECT_EQ(texts.size(), 11U);
}

TEST_F(PropertyBag, what_the_grid_refuses_is_the_grids_error) {
    EXPECT_EQ(load_error("Rows", whole(0)), 30009);
    EXPECT_EQ(load_error("Cols", whole(0)), 30010);
    EXPECT_EQ(load_error("Cols", whole(-1)), 30010);
    EXPECT_EQ(load_error("Row", whole(2)), 30009);
    EXPECT_EQ(load_error("ColWidth1", whole(-5)), 30014);
    EXPECT_EQ(load_error("ColAlignment0", whole(10)), 30005);
}

TEST_F(PropertyBag, more_columns_than_16_bits_count_are_read_no_further) {
    RecordingBag bag;
    bag.held.set("Cols", whole(32768));
    EXPECT_EQ(error_number_of([&] { load(bag); }), 6);
    EXPECT_EQ(bag.reads.back(), "ReadOnlyRecordset 0");
}

TEST_F(PropertyBag, more_columns_than_16_bits_count_are_not_written) {
    list().SetCols(32768);
    RecordingBag bag;
    EXPECT_EQ(error_number_of([&] { list().WriteProperties(bag); }), 6);
    EXPECT_THAT(bag.writes, IsEmpty());
    list().SetCols(32767);
    list().WriteProperties(bag);
    EXPECT_EQ(bag.writes.size(), 13U + 32767U * 11U + 17U);
}

TEST_F(PropertyBag, writing_changes_and_notifies_nothing) {
    list().SetCols(2);
    changed.clear();
    const auto first = writes();
    EXPECT_EQ(writes(), first);
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(PropertyBag, settings_by_chance_come_back_alike) {
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        standard::MemoryBag bag = RandomSettings(seed).bag();
        load(bag);
        standard::MemoryBag first = saved();
        load(first);
        ASSERT_EQ(texts_of(saved()), texts_of(first)) << "seed " << seed;
        for (const auto& entry : bag.entries()) {
            const platform::Value* const kept = first.find(entry.key);
            if (kept != nullptr) {
                ASSERT_TRUE(standard::same_in_bag(kept->view(), entry.value.view()))
                    << "seed " << seed << " " << entry.key;
            }
        }
    }
}

} // namespace krv::testing
