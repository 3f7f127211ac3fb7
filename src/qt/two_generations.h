#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace krv::qt {

/// What was made for the texts seen lately. When the young generation is full it becomes the old
/// one; what is still asked for moves over again, the rest goes with the next change.
template <class Made>
class TwoGenerations {
public:
    void clear() {
        young_.clear();
        old_.clear();
    }

    /// Valid until the next call.
    template <class Make>
    Made& find_or_make(std::string_view text, Make make) {
        if (const auto found = young_.find(text); found != young_.end()) {
            return found->second;
        }
        if (young_.size() >= generation_size) {
            old_ = std::exchange(young_, {});
        }
        if (const auto kept = old_.find(text); kept != old_.end()) {
            return young_.insert(old_.extract(kept)).position->second;
        }
        return young_.emplace(std::string(text), make()).first->second;
    }

private:
    struct Hash {
        using is_transparent = void;

        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>{}(text);
        }
    };

    using Generation = std::unordered_map<std::string, Made, Hash, std::equal_to<>>;

    static constexpr std::size_t generation_size = 8192;

    Generation young_;
    Generation old_;
};

} // namespace krv::qt
