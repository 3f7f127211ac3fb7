#include "working_copy.h"

#include "support/errors.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace krv::demo {
namespace {

using testing::read_file;
using testing::TemporaryFolder;

TEST(WorkingCopy, keeps_what_was_stored_until_the_original_is_younger) {
    const TemporaryFolder folder;
    const std::string original = folder.write("sample.db", "one");
    const std::string copy = working_copy(original);
    EXPECT_EQ(read_file(copy), "one");
    folder.write(std::filesystem::path(copy).filename().string(), "edited");
    EXPECT_EQ(working_copy(original), copy);
    EXPECT_EQ(read_file(copy), "edited");

    folder.write("sample.db", "two");
    std::filesystem::last_write_time(
        original, std::filesystem::last_write_time(copy) + std::chrono::seconds(2));
    folder.write(std::filesystem::path(copy).filename().string() + "-journal", "stale");
    EXPECT_EQ(read_file(working_copy(original)), "two");
    EXPECT_FALSE(std::filesystem::exists(copy + "-journal"));
    EXPECT_EQ(read_file(copy + ".old"), "edited");
    EXPECT_EQ(read_file(original), "two");
}

TEST(WorkingCopy, of_a_file_that_is_not_there_is_error_75) {
    const TemporaryFolder folder;
    EXPECT_EQ(testing::error_number_of([&] { working_copy(folder.file("none.db")); }), 75);
}

} // namespace
} // namespace krv::demo
