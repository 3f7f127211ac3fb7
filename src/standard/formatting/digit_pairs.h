#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace krv::standard {

namespace detail {

constexpr std::array<char, 200> make_digit_pairs() {
    std::array<char, 200> pairs{};
    for (std::size_t value = 0; value < 100; ++value) {
        pairs[2 * value] = static_cast<char>('0' + value / 10);
        pairs[2 * value + 1] = static_cast<char>('0' + value % 10);
    }
    return pairs;
}

inline constexpr std::array<char, 200> digit_pairs = make_digit_pairs();

} // namespace detail

/// Two digits of a number below 100; returns the end.
inline char* write_pair(std::uint32_t value, char* out) {
    std::memcpy(out, detail::digit_pairs.data() + 2 * std::size_t{value}, 2);
    return out + 2;
}

/// One or two digits of a number below 100; returns the end.
inline char* write_short(std::uint32_t value, char* out) {
    if (value >= 10) {
        return write_pair(value, out);
    }
    *out = static_cast<char>('0' + value);
    return out + 1;
}

} // namespace krv::standard
