#include "standard/formatting/pattern_text.h"

namespace krv::standard {

std::optional<std::string_view> PatternScanner::take_literal() {
    if (rest_.front() == '\\') {
        // The further bytes of a longer character have no meaning of their own.
        const std::string_view escaped = rest_.size() > 1 ? rest_.substr(1, 1) : rest_;
        rest_.remove_prefix(rest_.size() > 1 ? 2 : 1);
        return escaped;
    }
    if (rest_.front() != '"') {
        return std::nullopt;
    }
    const auto closing = rest_.find('"', 1);
    const std::string_view quoted = rest_.substr(1, closing - 1);
    rest_.remove_prefix(closing == std::string_view::npos ? rest_.size() : closing + 1);
    return quoted;
}

std::string_view PatternScanner::take(std::size_t bytes) {
    const std::string_view taken = rest_.substr(0, bytes);
    rest_.remove_prefix(taken.size());
    return taken;
}

std::vector<std::string_view> pattern_sections(std::string_view pattern) {
    std::vector<std::string_view> sections;
    PatternScanner scanner(pattern);
    const char* begin = pattern.data();
    while (!scanner.at_end()) {
        if (scanner.take_literal()) {
            continue;
        }
        const std::string_view character = scanner.take(1);
        if (character == ";") {
            sections.emplace_back(begin, character.data());
            begin = character.data() + 1;
        }
    }
    sections.emplace_back(begin, pattern.data() + pattern.size());
    return sections;
}

} // namespace krv::standard
