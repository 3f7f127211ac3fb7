#include "architecture/include_rules.h"
#include "architecture/standard_headers.h"

#include <gmock/gmock.h>

namespace {

using krv::architecture::include_circles;
using krv::architecture::include_violations;
using krv::architecture::is_standard_header;
using krv::architecture::read_source_tree;
using krv::architecture::source_file;
using krv::architecture::SourceFile;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

std::vector<SourceFile> house() {
    return {
        source_file("include/krv/platform/value.h", "#include <string>\n"),
        source_file("include/krv/control/list.h", "#include \"krv/platform/value.h\"\n"),
        source_file("include/krv/standard/grid.h", "#include \"krv/platform/value.h\"\n"),
        source_file("include/krv/providers/sqlite.h", ""),
        source_file("include/krv/qt/view.h", "#include <QWidget>\n"),
        source_file("src/control/state.h", "#include <vector>\n"),
        source_file("src/data/loader.h", "#include \"control/state.h\"\n"),
    };
}

/// What is wrong when one file more stands in the house.
std::vector<std::string> violations_with(const std::string& path, const std::string& text) {
    auto files = house();
    files.push_back(source_file(path, text));
    return include_violations(files);
}

TEST(IncludeRules, the_project_keeps_to_its_layers) {
    EXPECT_THAT(include_violations(read_source_tree(KRV_SOURCE_DIR)), IsEmpty());
}

TEST(IncludeRules, the_project_has_no_circle_of_includes) {
    EXPECT_THAT(include_circles(read_source_tree(KRV_SOURCE_DIR)), IsEmpty());
}

TEST(IncludeRules, the_reader_finds_the_whole_project) {
    const auto files = read_source_tree(KRV_SOURCE_DIR);
    EXPECT_THAT(files, Contains(Field(&SourceFile::path, "include/krv/platform/value.h")));
    EXPECT_THAT(files, Contains(Field(&SourceFile::path, "src/control/column_model.cpp")));
    EXPECT_THAT(files, Contains(Field(&SourceFile::path, "scripts/install-deps")));
    EXPECT_THAT(files, Contains(Field(&SourceFile::path, ".ci/run")));
}

TEST(IncludeRules, an_arrow_down_and_one_within_the_core_are_fine) {
    EXPECT_THAT(include_violations(house()), IsEmpty());
}

TEST(IncludeRules, an_arrow_up_is_reported_with_its_line) {
    EXPECT_THAT(violations_with("src/data/list.cpp", "\n#include \"krv/standard/grid.h\"\n"),
                ElementsAre("src/data/list.cpp:2: \"krv/standard/grid.h\" is above data"));
    EXPECT_THAT(
        violations_with("include/krv/platform/x.h", "#include \"krv/control/list.h\"\n"),
        ElementsAre("include/krv/platform/x.h:1: \"krv/control/list.h\" is above platform"));
    EXPECT_THAT(violations_with("src/headless/x.cpp", "#include \"krv/qt/view.h\"\n"),
                ElementsAre("src/headless/x.cpp:1: \"krv/qt/view.h\" is above headless"));
    EXPECT_THAT(
        violations_with("src/standard/x.h", "# include \"krv/providers/sqlite.h\" // why\n"),
        ElementsAre("src/standard/x.h:1: \"krv/providers/sqlite.h\" is above "
                    "standard"));
}

TEST(IncludeRules, a_third_party_stays_in_its_room) {
    EXPECT_THAT(violations_with("src/qt/x.cpp", "#include <QLineEdit>\n"), IsEmpty());
    EXPECT_THAT(violations_with("src/providers/sqlite/x.cpp", "#include <sqlite3.h>\n"), IsEmpty());
    EXPECT_THAT(violations_with("src/standard/x.cpp", "#include <QString>\n"),
                ElementsAre("src/standard/x.cpp:1: <QString> is nothing for standard"));
    EXPECT_THAT(violations_with("src/qt/x.cpp", "#include <sqlite3.h>\n"),
                ElementsAre("src/qt/x.cpp:1: <sqlite3.h> is nothing for qt"));
    EXPECT_THAT(violations_with("src/control/x.cpp", "#include <unistd.h>\n"),
                ElementsAre("src/control/x.cpp:1: <unistd.h> is nothing for control"));
}

TEST(IncludeRules, a_name_in_quotation_marks_is_a_file_of_the_project) {
    EXPECT_THAT(violations_with("src/data/x.cpp", "#include \"loader.h\"\n"), IsEmpty());
    EXPECT_THAT(violations_with("src/data/x.cpp", "#include \"vector\"\n"),
                ElementsAre("src/data/x.cpp:1: \"vector\" is no file of the project"));
    EXPECT_THAT(violations_with("src/data/x.cpp", "#include <krv/platform/value.h>\n"),
                ElementsAre("src/data/x.cpp:1: <krv/platform/value.h> is a file of the project "
                            "and wants quotation marks"));
}

TEST(IncludeRules, a_public_header_includes_no_private_one) {
    EXPECT_THAT(violations_with("include/krv/data/x.h", "#include \"control/state.h\"\n"),
                ElementsAre("include/krv/data/x.h:1: \"control/state.h\" is private, but included "
                            "by a public header"));
}

TEST(IncludeRules, a_new_folder_wants_a_place_among_the_layers) {
    EXPECT_THAT(violations_with("src/cellar/x.cpp", "#include <vector>\n"),
                ElementsAre("src/cellar/x.cpp:1: <vector> stands in a folder that has no place "
                            "among the layers"));
}

TEST(IncludeRules, what_moc_makes_is_included_beside_its_source) {
    EXPECT_THAT(violations_with("src/qt/x.cpp", "#include \"x.moc\"\n"), IsEmpty());
    EXPECT_THAT(violations_with("src/data/x.cpp", "#include \"x.moc\"\n"),
                ElementsAre("src/data/x.cpp:1: \"x.moc\" is no file of the project"));
}

TEST(IncludeRules, tests_may_include_everything) {
    EXPECT_THAT(violations_with("tests/data/x_test.cpp",
                                "#include \"krv/qt/view.h\"\n#include <gtest/gtest.h>\n"),
                IsEmpty());
}

TEST(IncludeRules, a_circle_is_shown_whole) {
    EXPECT_THAT(include_circles({source_file("src/data/a.h", "#include \"data/b.h\"\n"),
                                 source_file("src/data/b.h", "#include \"c.h\"\n"),
                                 source_file("src/data/c.h", "#include \"b.h\"\n")}),
                ElementsAre("src/data/b.h > src/data/c.h > src/data/b.h"));
    EXPECT_THAT(include_circles({source_file("src/data/a.h", "#include \"a.h\"\n")}),
                ElementsAre("src/data/a.h > src/data/a.h"));
}

TEST(IncludeRules, two_roads_to_one_header_are_no_circle) {
    EXPECT_THAT(
        include_circles({source_file("src/data/a.h", "#include \"b.h\"\n#include \"c.h\"\n"),
                         source_file("src/data/b.h", "#include \"d.h\"\n"),
                         source_file("src/data/c.h", "#include \"d.h\"\n"),
                         source_file("src/data/d.h", "")}),
        IsEmpty());
}

TEST(StandardHeaders, only_the_names_of_the_standard_count) {
    EXPECT_TRUE(is_standard_header("algorithm"));
    EXPECT_TRUE(is_standard_header("cstdint"));
    EXPECT_TRUE(is_standard_header("version"));
    EXPECT_FALSE(is_standard_header("stdint.h"));
    EXPECT_FALSE(is_standard_header("bits/stdc++.h"));
    EXPECT_FALSE(is_standard_header(""));
}

} // namespace
