#include "architecture/text_rules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace krv::architecture {

namespace {

constexpr std::size_t most_lines = 600;

bool is_indented_with_blanks(std::string_view path) {
    return path.ends_with(".h") || path.ends_with(".cpp") || path.ends_with(".cmake") ||
           path.ends_with("CMakeLists.txt");
}

bool is_merge_mark(std::string_view line) {
    return line.starts_with("<<<<<<< ") || line.starts_with(">>>>>>> ") || line == "=======";
}

bool is_part_of_a_word(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool holds_word(std::string_view line, std::string_view word) {
    for (auto at = line.find(word); at != std::string_view::npos; at = line.find(word, at + 1)) {
        const auto end = at + word.size();
        const bool begins = at == 0 || !is_part_of_a_word(line[at - 1]);
        if (begins && (end == line.size() || !is_part_of_a_word(line[end]))) {
            return true;
        }
    }
    return false;
}

bool is_note_of_unfinished_work(std::string_view line) {
    // With one letter apart, so that this file does not find itself.
    static const std::array<std::string, 3> notes = {
        std::string("TOD") + 'O', std::string("FIXM") + 'E', std::string("XX") + 'X'};
    return std::any_of(notes.begin(), notes.end(), [line](const std::string& note) {
        return holds_word(line, note);
    });
}

std::optional<std::string>
fault_of(const std::string& line, std::string_view path, std::string_view root) {
    if (is_merge_mark(line)) {
        return "mark of an unfinished merge";
    }
    if (is_note_of_unfinished_work(line)) {
        return "note of unfinished work";
    }
    if (line.find('\t') != std::string::npos && is_indented_with_blanks(path)) {
        return "tab";
    }
    if (line.ends_with('\r')) {
        return "carriage return";
    }
    if (line.find(root) != std::string::npos) {
        return "names the folder that the project lies in";
    }
    return std::nullopt;
}

} // namespace

std::vector<std::string> text_violations(const std::vector<SourceFile>& files,
                                         std::string_view root) {
    std::vector<std::string> violations;
    for (const SourceFile& file : files) {
        if (file.lines.size() > most_lines) {
            violations.push_back(file.path + ": " + std::to_string(file.lines.size()) + " lines");
        }
        if (!file.ends_with_newline) {
            violations.push_back(file.path + ": no line end at the end");
        }
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            if (const auto fault = fault_of(file.lines[i], file.path, root)) {
                violations.push_back(file.path + ':' + std::to_string(i + 1) + ": " + *fault);
            }
        }
    }
    return violations;
}

} // namespace krv::architecture
