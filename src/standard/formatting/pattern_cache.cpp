#include "standard/formatting/pattern_cache.h"

#include "standard/formatting/pattern_text.h"
#include "standard/letter_case.h"

namespace krv::standard {

namespace {

constexpr std::size_t greatest_count = 256;

} // namespace

const FormatPattern& PatternCache::find_beyond_recent(std::string_view pattern) {
    if (pattern.size() > longest_pattern) {
        pattern = first_characters(pattern, longest_pattern);
    }
    const Entry& entry = compiled(pattern);
    recent_[next_recent_] = {entry.first, entry.second.get()};
    next_recent_ = (next_recent_ + 1) % recent_.size();
    return *entry.second;
}

const PatternCache::Entry& PatternCache::compiled(std::string_view pattern) {
    if (const auto found = patterns_.find(pattern); found != patterns_.end()) {
        return *found;
    }
    // Not by make_unique, which would move the pattern.
    std::unique_ptr<FormatPattern> compiled(new FormatPattern(compile_pattern(pattern, region_)));
    if (patterns_.size() == greatest_count) {
        recent_ = {};
        patterns_.clear();
    }
    return *patterns_.emplace(pattern, std::move(compiled)).first;
}

} // namespace krv::standard
