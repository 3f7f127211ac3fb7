#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace krv::standard {

/// Characters of a pattern that count; the rest is cut off.
inline constexpr std::size_t longest_pattern = 257;

/// Reads a pattern from front to back. Text after a backslash or in quotes comes as a literal.
class PatternScanner {
public:
    explicit PatternScanner(std::string_view pattern)
        : rest_(pattern) {}

    bool at_end() const { return rest_.empty(); }

    std::string_view rest() const { return rest_; }

    char front() const { return rest_.front(); }

    /// The text of `\x` or `"text"`, when one of them comes next. A missing closing quote is
    /// forgiven; a backslash at the very end stands for itself.
    std::optional<std::string_view> take_literal();

    std::string_view take(std::size_t bytes);

private:
    std::string_view rest_;
};

/// The texts between the semicolons that are no literals; at least one.
std::vector<std::string_view> pattern_sections(std::string_view pattern);

} // namespace krv::standard
