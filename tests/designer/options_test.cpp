#include "options.h"

#include <gtest/gtest.h>

namespace krv::designer {
namespace {

std::string fault_of(const QStringList& arguments) {
    try {
        parse_options(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return {};
}

TEST(DesignerOptions, are_none_by_default) {
    const Options options = parse_options({});
    EXPECT_EQ(options.file, "");
    EXPECT_TRUE(options.settings.empty());
    EXPECT_FALSE(options.headless());
}

TEST(DesignerOptions, name_a_file_and_settings_in_their_order) {
    const Options options = parse_options({"--connect",
                                           "Provider=SQLite;Data Source=a.db",
                                           "lista.krv",
                                           "--apply",
                                           "Cols=3",
                                           "--apply",
                                           "Caption(2)=a=b"});
    EXPECT_EQ(options.file, "lista.krv");
    ASSERT_EQ(options.settings.size(), 3U);
    EXPECT_EQ(options.settings[0].name, "Connect");
    EXPECT_EQ(options.settings[0].text, "Provider=SQLite;Data Source=a.db");
    EXPECT_EQ(options.settings[1].name, "Cols");
    EXPECT_FALSE(options.settings[1].column.has_value());
    EXPECT_EQ(options.settings[2].name, "Caption");
    EXPECT_EQ(options.settings[2].column, 2);
    EXPECT_EQ(options.settings[2].text, "a=b");
}

TEST(DesignerOptions, need_no_window_to_print_save_or_take_a_picture) {
    EXPECT_TRUE(parse_options({"--print", "0"}).headless());
    EXPECT_TRUE(parse_options({"--screenshot", "x.png"}).headless());
    EXPECT_TRUE(parse_options({"--save", "x.krv"}).headless());
    EXPECT_FALSE(parse_options({"--build", "--load"}).headless());
}

TEST(DesignerOptions, that_make_no_sense_are_refused) {
    EXPECT_EQ(fault_of({"--what"}), "unknown option --what");
    EXPECT_EQ(fault_of({"a.krv", "b.krv"}), "give one file of settings only");
    EXPECT_EQ(fault_of({"--save"}), "--save needs a file of settings");
    EXPECT_EQ(fault_of({"--print"}), "--print needs a value");
    EXPECT_EQ(fault_of({"--print", "-1"}), "--print needs a number of rows, 0 or more");
    EXPECT_EQ(fault_of({"--apply", "Cols"}), "--apply needs NAME=VALUE or NAME(COLUMN)=VALUE");
    EXPECT_EQ(fault_of({"--size", "0x5"}), "--size needs WxH in pixels, for example 1100x640");
    EXPECT_EQ(fault_of({"--", "--odd.krv"}), "");
}

} // namespace
} // namespace krv::designer
