#include "krv/standard/bag_file.h"

#include "support/bag_texts.h"
#include "support/errors.h"
#include "support/list_test.h"
#include "support/random_settings.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

#include <unistd.h>

namespace krv::testing {

namespace {

namespace fs = std::filesystem;

using standard::BagFile;
using standard::BagTextError;
using standard::MemoryBag;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct Fault {
    std::size_t line;
    std::string text;
};

Fault fault_of(std::string_view text) {
    try {
        BagFile::parse(text);
    } catch (const BagTextError& error) {
        EXPECT_EQ(error.number(), 321);
        EXPECT_THAT(error.description(), HasSubstr("line " + std::to_string(error.line())));
        return {error.line(), error.fault()};
    }
    return {0, ""};
}

std::vector<std::string> names_in(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

} // namespace

TEST(MemoryBag, a_value_like_its_default_is_not_kept) {
    MemoryBag bag;
    bag.set("Flag", whole(7));
    bag.WriteProperty("Flag",
                      platform::Value(platform::ValueView::boolean(true)),
                      platform::Value(platform::ValueView::integer(-1)));
    bag.WriteProperty("Text", text("1"), whole(1));
    bag.WriteProperty("Case", text("a"), text("A"));
    bag.WriteProperty("Height",
                      platform::Value(platform::ValueView::single(255)),
                      platform::Value(platform::ValueView::integer(255)));
    EXPECT_THAT(texts_of(bag), ElementsAre("Text = \"1\"", "Case = \"a\""));
}

TEST(MemoryBag, a_copy_stands_for_itself) {
    MemoryBag bag;
    bag.set("a", whole(1));
    bag.set("b", whole(2));
    MemoryBag copy = bag;
    bag.erase("a");
    bag.set("b", whole(3));
    bag.set("a", whole(4));
    EXPECT_THAT(texts_of(copy), ElementsAre("a = 1", "b = 2"));
    EXPECT_THAT(texts_of(bag), ElementsAre("b = 3", "a = 4"));
    copy = std::move(bag);
    EXPECT_EQ(copy.ReadProperty("a", whole(0)).view().as_whole(), 4);
    EXPECT_EQ(copy.ReadProperty("c", whole(9)).view().as_whole(), 9);
}

TEST(BagFile, values_keep_their_kinds) {
    BagFile file = BagFile::parse("flag = true\n"
                                  "off=false\n"
                                  "whole = -12\n"
                                  "color = 2147483663\n"
                                  "real = 255.5\n"
                                  "text = \"a \\\"b\\\" \\\\ \\n\\r\\t\\u{1}\\u{1F600}\"\n"
                                  "\"odd key\" = \"\"\n");
    const auto kind = [&file](std::string_view key) { return file.bag().find(key)->kind(); };
    EXPECT_EQ(kind("flag"), platform::ValueKind::boolean);
    EXPECT_EQ(kind("whole"), platform::ValueKind::long_integer);
    EXPECT_EQ(kind("color"), platform::ValueKind::long_long);
    EXPECT_EQ(kind("real"), platform::ValueKind::double_float);
    EXPECT_EQ(file.bag().find("text")->view().as_text(), "a \"b\" \\ \n\r\t\x01😀");
    EXPECT_NE(file.bag().find("odd key"), nullptr);
    EXPECT_EQ(file.text(),
              "flag = true\n"
              "off = false\n"
              "whole = -12\n"
              "color = 2147483663\n"
              "real = 255.5\n"
              "text = \"a \\\"b\\\" \\\\ \\n\\r\\t\\u{1}😀\"\n"
              "\"odd key\" = \"\"\n");
}

TEST(BagFile, a_byte_order_mark_line_ends_of_other_systems_and_a_missing_last_one_are_taken) {
    const BagFile file = BagFile::parse("\xEF\xBB\xBF"
                                        "a = 1\r\n\r\n  # due\r\nb = 2");
    EXPECT_EQ(file.text(), "a = 1\n\n  # due\nb = 2\n");
    EXPECT_EQ(BagFile::parse("").text(), "");
}

TEST(BagFile, a_damaged_line_is_named) {
    EXPECT_EQ(fault_of("a = 1\n\nb 2\n").line, 3U);
    EXPECT_EQ(fault_of("= 1").text, "a key is missing");
    EXPECT_EQ(fault_of("a 1").text, "'=' is missing");
    EXPECT_EQ(fault_of("a = ").text, "a value is missing");
    EXPECT_EQ(fault_of("a = yes").text,
              "'yes' is neither true, false, a number nor a text in quotes");
    EXPECT_EQ(fault_of("a = 1e999").line, 1U);
    EXPECT_EQ(fault_of("a = nan").line, 1U);
    EXPECT_EQ(fault_of("a = \"x").text, "the closing quote of a text is missing");
    EXPECT_EQ(fault_of("a = \"x\" y").text, "something follows the value of \"a\"");
    EXPECT_EQ(fault_of("a = 1\na = 2").text, "\"a\" stands here for the second time");
    EXPECT_EQ(fault_of("a = 1\n\nb = \"\xFF\"").text, "the text is not UTF-8");
    EXPECT_EQ(fault_of("a = 1\n\nb = \"\xFF\"").line, 3U);
    for (const char* escape : {"\\x", "\\u", "\\u{}", "\\u{110000}", "\\u{d800}", "\\u{1", "\\"}) {
        EXPECT_EQ(fault_of("a = \"" + std::string(escape)).line, 1U) << escape;
    }
}

class StoredList : public ListTest {};

TEST_F(StoredList, a_files_own_keys_and_comments_stay_behind_a_save) {
    BagFile file = BagFile::parse("# la lista\n"
                                  "Rows = 4\n"
                                  "Host.colour = \"rosso\"\n"
                                  "# larga\n"
                                  "ColWidth0 = 1200\n"
                                  "ColWidth7 = 1\n"
                                  "ColWidth07 = 2\n"
                                  "# per ultima\n"
                                  "AutoAdd = false\n"
                                  "# fine\n");
    list().ReadProperties(file.bag());
    list().SetAutoAdd(true);
    list().SetColWidth(0, 1300);
    file.store(list());
    EXPECT_EQ(file.text(),
              "# la lista\n"
              "Rows = 4\n"
              "ButtonsHeight = 255\n"
              "# larga\n"
              "ColWidth0 = 1300\n"
              "Host.colour = \"rosso\"\n"
              "ColWidth07 = 2\n"
              "# per ultima\n"
              "# fine\n");
    EXPECT_EQ(BagFile::parse(file.text()).text(), file.text());
}

TEST_F(StoredList, a_list_that_cannot_be_written_leaves_the_file_as_it_was) {
    BagFile file = BagFile::parse("a = 1\n");
    list().SetCols(32768);
    EXPECT_EQ(error_number_of([&] { file.store(list()); }), 6);
    EXPECT_EQ(file.text(), "a = 1\n");
}

TEST_F(StoredList, settings_by_chance_come_back_alike_through_the_file) {
    const TemporaryFolder folder;
    const std::string path = folder.file("list.krv");
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        MemoryBag bag = RandomSettings(seed).bag();
        load(bag);
        BagFile file;
        file.store(list());
        const std::string text = file.text();
        if (seed % 100 == 0) { // a disk's time is not what this is about
            file.save(path);
            ASSERT_EQ(BagFile::load(path).text(), text);
        }
        BagFile again = BagFile::parse(text);
        ASSERT_EQ(again.text(), text) << "seed " << seed;
        load(again.bag());
        BagFile after;
        after.store(list());
        ASSERT_EQ(after.text(), text) << "seed " << seed;
    }
}

TEST(BagFileOnDisk, a_save_replaces_the_file_in_one_step_and_leaves_nothing_beside_it) {
    const TemporaryFolder folder;
    const std::string path = folder.write("list.krv", "a = 1\n");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    const fs::path link = folder.path() / "link.krv";
    fs::create_symlink("list.krv", link);
    BagFile::parse("b = 2\n").save(link);
    EXPECT_EQ(read_file(path), "b = 2\n");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(names_in(folder.path()).size(), 2U);
}

TEST(BagFileOnDisk, a_text_that_could_not_be_read_again_is_not_written) {
    const TemporaryFolder folder;
    const std::string path = folder.write("list.krv", "a = 1\n");
    BagFile file;
    file.bag().set("Connect", text("a\xFF"));
    EXPECT_EQ(error_number_of([&] { file.save(path); }), 13);
    EXPECT_EQ(read_file(path), "a = 1\n");
}

TEST(BagFileOnDisk, a_link_to_a_file_that_is_not_there_yet_stays_a_link) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "deep");
    const fs::path link = folder.path() / "link.krv";
    fs::create_symlink("other.krv", link);
    fs::create_symlink("deep/list.krv", folder.path() / "other.krv");
    BagFile::parse("b = 2\n").save(link);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "other.krv"));
    EXPECT_EQ(read_file(folder.file("deep/list.krv")), "b = 2\n");
}

TEST(BagFileOnDisk, links_in_a_ring_are_refused) {
    const TemporaryFolder folder;
    fs::create_symlink("b.krv", folder.path() / "a.krv");
    fs::create_symlink("a.krv", folder.path() / "b.krv");
    EXPECT_EQ(error_number_of([&] { BagFile().save(folder.path() / "a.krv"); }), 75);
    EXPECT_EQ(error_number_of([&] { BagFile::load(folder.path() / "a.krv"); }), 75);
    EXPECT_EQ(names_in(folder.path()).size(), 2U);
}

TEST(BagFileOnDisk, a_new_file_is_made) {
    const TemporaryFolder folder;
    const std::string path = folder.file("è nuovo.krv");
    BagFile::parse("b = 2\n").save(path);
    EXPECT_EQ(BagFile::load(path).text(), "b = 2\n");
}

TEST(BagFileOnDisk, what_cannot_be_read_or_written_is_a_clear_error) {
    const TemporaryFolder folder;
    const auto load = [&folder](const std::string& name) {
        return error_number_of([&] { BagFile::load(folder.path() / name); });
    };
    EXPECT_EQ(load("nessuno.krv"), 53);
    EXPECT_EQ(load("."), 75);
    const auto save = [&folder](const std::string& name) {
        return error_number_of([&] { BagFile().save(folder.path() / name); });
    };
    EXPECT_EQ(save("manca/list.krv"), 75);
    EXPECT_EQ(save("."), 75);
    folder.write("empty.krv", "");
    EXPECT_EQ(load("empty.krv"), 0);
}

TEST(BagFileOnDisk, a_file_that_nobody_may_write_to_is_not_replaced) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "a superuser may write every file";
    }
    const TemporaryFolder folder;
    const std::string path = folder.write("list.krv", "a = 1\n");
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_EQ(error_number_of([&] { BagFile().save(path); }), 75);
    EXPECT_EQ(read_file(path), "a = 1\n");
}

} // namespace krv::testing
