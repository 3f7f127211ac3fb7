#pragma once

#include "standard/formatting/format_pattern.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace krv::standard {

/// Compiled patterns by their texts. Keeps a limited number of them; a list uses a few over and
/// over.
class PatternCache {
public:
    explicit PatternCache(const RegionalSettings& region)
        : region_(region) {}

    /// The pattern, compiled; valid until the next call.
    const FormatPattern& find(std::string_view pattern) {
        for (const Recent& recent : recent_) {
            if (recent.text == pattern && recent.pattern != nullptr) {
                return *recent.pattern;
            }
        }
        return find_beyond_recent(pattern);
    }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    using Patterns =
        std::unordered_map<std::string, std::unique_ptr<FormatPattern>, Hash, std::equal_to<>>;
    using Entry = Patterns::value_type;

    struct Recent {
        std::string_view text;
        const FormatPattern* pattern = nullptr;
    };

    const FormatPattern& find_beyond_recent(std::string_view pattern);
    const Entry& compiled(std::string_view pattern);

    const RegionalSettings& region_;
    Patterns patterns_;
    std::array<Recent, 4> recent_;
    std::size_t next_recent_ = 0;
};

} // namespace krv::standard
