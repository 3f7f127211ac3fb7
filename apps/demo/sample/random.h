#pragma once

#include <cstdint>

namespace krv::demo {

/// A small random generator of our own: the same numbers on every machine, unlike the distributions
/// of the standard library. After Steele, Lea and Flood, "Fast splittable pseudorandom number
/// generators" (2014).
class Random {
public:
    explicit Random(std::uint64_t seed)
        : state_(seed) {}

    /// 0 to `count` - 1; `count` is at least 1.
    std::uint32_t below(std::uint32_t count) { return static_cast<std::uint32_t>(next() % count); }

    /// True in `percent` of a hundred cases.
    bool chance(std::uint32_t percent) { return below(100) < percent; }

private:
    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    std::uint64_t state_;
};

} // namespace krv::demo
