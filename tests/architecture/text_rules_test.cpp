#include "architecture/text_rules.h"

#include <gmock/gmock.h>

namespace {

using krv::architecture::read_source_tree;
using krv::architecture::source_file;
using krv::architecture::text_violations;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> violations_of(const std::string& path, const std::string& text) {
    return text_violations({source_file(path, text)}, "/home/mason/house");
}

std::string lines(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "x\n";
    }
    return text;
}

TEST(TextRules, the_files_of_the_project_are_tidy) {
    EXPECT_THAT(text_violations(read_source_tree(KRV_SOURCE_DIR), KRV_SOURCE_DIR), IsEmpty());
}

TEST(TextRules, a_file_has_at_most_600_lines) {
    EXPECT_THAT(violations_of("src/data/x.cpp", lines(600)), IsEmpty());
    EXPECT_THAT(violations_of("src/data/x.cpp", lines(601)),
                ElementsAre("src/data/x.cpp: 601 lines"));
}

TEST(TextRules, marks_of_a_merge_are_found) {
    const std::string text = std::string(7, '<') + " ours\na\n" + std::string(7, '=') + "\nb\n" +
                             std::string(7, '>') + " theirs\n";
    EXPECT_THAT(violations_of("README.md", text),
                ElementsAre("README.md:1: mark of an unfinished merge",
                            "README.md:3: mark of an unfinished merge",
                            "README.md:5: mark of an unfinished merge"));
    EXPECT_THAT(violations_of("README.md", "Title\n========\n"), IsEmpty());
}

TEST(TextRules, notes_of_unfinished_work_are_whole_words) {
    const std::string note = std::string("// TO") + "DO: later\n";
    EXPECT_THAT(violations_of("src/data/x.cpp", note),
                ElementsAre("src/data/x.cpp:1: note of unfinished work"));
    EXPECT_THAT(violations_of("src/data/x.cpp", "// METODO\n"), IsEmpty());
}

TEST(TextRules, a_tab_is_for_makefiles) {
    EXPECT_THAT(violations_of("src/data/x.cpp", "\tint a;\n"),
                ElementsAre("src/data/x.cpp:1: tab"));
    EXPECT_THAT(violations_of("src/CMakeLists.txt", "\t\n"),
                ElementsAre("src/CMakeLists.txt:1: tab"));
    EXPECT_THAT(violations_of("Makefile", "all:\n\ttrue\n"), IsEmpty());
}

TEST(TextRules, line_ends_are_newlines_the_last_one_included) {
    EXPECT_THAT(violations_of("a.md", "a\r\nb\n"), ElementsAre("a.md:1: carriage return"));
    EXPECT_THAT(violations_of("a.md", "a\nb"), ElementsAre("a.md: no line end at the end"));
    EXPECT_THAT(violations_of("a.md", ""), IsEmpty());
}

TEST(TextRules, the_folder_of_the_project_is_named_nowhere) {
    EXPECT_THAT(violations_of("scripts/run", "cd /home/mason/house/build\n"),
                ElementsAre("scripts/run:1: names the folder that the project lies in"));
    EXPECT_THAT(violations_of("scripts/run", "cd /home/mason\n"), IsEmpty());
}

} // namespace
