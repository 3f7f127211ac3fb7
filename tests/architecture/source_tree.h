#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace krv::architecture {

/// A text file of the project.
struct SourceFile {
    /// From the project's root, with `/` between the folders: `src/control/layout.cpp`.
    std::string path;
    /// Without their line ends.
    std::vector<std::string> lines;
    /// False when the last line has no line end.
    bool ends_with_newline = true;
};

/// Splits a text into its lines.
SourceFile source_file(std::string path, std::string_view text);

/// All text files of the project, sorted by path: sources, build files, scripts and documents.
/// What the build makes and what git keeps for itself is left out.
/// \throws std::filesystem::filesystem_error when the root cannot be read
std::vector<SourceFile> read_source_tree(const std::filesystem::path& root);

} // namespace krv::architecture
