#pragma once

#include <cstdint>
#include <vector>

namespace krv::walk {

/// A repeatable source of chance (splitmix64): the same on every machine.
class Dice {
public:
    explicit Dice(std::uint64_t seed)
        : state_(seed) {}

    /// 0 to sides - 1.
    int below(int sides) { return static_cast<int>(next() % static_cast<std::uint64_t>(sides)); }

    /// True in so many of a hundred cases.
    bool chance(int percent) { return below(100) < percent; }

    template <class T>
    const T& pick(const std::vector<T>& from) {
        return from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
    }

private:
    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }

    std::uint64_t state_;
};

} // namespace krv::walk
