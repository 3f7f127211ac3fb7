#include "architecture/source_tree.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace krv::architecture {

namespace {

namespace fs = std::filesystem;

template <std::size_t size>
bool holds(const std::array<std::string_view, size>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool is_made_by_the_build(std::string_view name) {
    constexpr std::array<std::string_view, 5> names = {
        "build", "out", "__pycache__", "compile_commands.json", "CMakeUserPresets.json"};
    return holds(names, name);
}

bool is_hidden(std::string_view name) {
    return name.starts_with('.') && name != ".ci";
}

bool is_text(const fs::path& path) {
    constexpr std::array<std::string_view, 9> extensions = {
        "", ".h", ".cpp", ".cmake", ".txt", ".in", ".md", ".json", ".ui"};
    return holds(extensions, path.extension().string());
}

std::string read_text(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

} // namespace

SourceFile source_file(std::string path, std::string_view text) {
    SourceFile file{std::move(path), {}, text.empty() || text.ends_with('\n')};
    while (!text.empty()) {
        const auto end = text.find('\n');
        file.lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return file;
}

std::vector<SourceFile> read_source_tree(const fs::path& root) {
    std::vector<SourceFile> files;
    fs::recursive_directory_iterator entry(root);
    for (; entry != fs::recursive_directory_iterator(); ++entry) {
        const std::string name = entry->path().filename().string();
        if (is_made_by_the_build(name) || is_hidden(name)) {
            entry.disable_recursion_pending();
        } else if (entry->is_regular_file() && is_text(entry->path())) {
            files.push_back(source_file(entry->path().lexically_relative(root).generic_string(),
                                        read_text(entry->path())));
        }
    }
    std::sort(files.begin(), files.end(), [](const SourceFile& left, const SourceFile& right) {
        return left.path < right.path;
    });
    return files;
}

} // namespace krv::architecture
