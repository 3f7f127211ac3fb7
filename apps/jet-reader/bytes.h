#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace krv::jet_reader {

using Bytes = std::span<const unsigned char>;

/// A number from the file, which keeps the lowest byte first. The caller has checked the size.
template <class Whole>
constexpr Whole load(const unsigned char* from) noexcept {
    Whole value = 0;
    for (std::size_t i = sizeof(Whole); i-- > 0;) {
        value = static_cast<Whole>(value << 8U | from[i]);
    }
    return value;
}

template <class Float, class Whole>
Float load_float(const unsigned char* from) noexcept {
    static_assert(sizeof(Float) == sizeof(Whole));
    const auto bits = load<Whole>(from);
    Float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

} // namespace krv::jet_reader
