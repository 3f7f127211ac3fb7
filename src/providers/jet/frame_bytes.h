#pragma once

#include "krv/platform/value.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <stdexcept>
#include <string_view>
#include <type_traits>

namespace krv::providers::jet {

/// Writes the payload of a frame. Its memory is kept from one frame to the next.
class FrameWriter {
public:
    void clear() noexcept { size_ = 0; }

    std::size_t size() const noexcept { return size_; }

    std::span<const std::byte> bytes() const noexcept { return {data_.get(), size_}; }

    /// Whole numbers and floats.
    template <class Number>
    void put(Number value) {
        static_assert(std::is_arithmetic_v<Number>);
        std::memcpy(grow(sizeof value), &value, sizeof value);
    }

    /// Puts a number over one that was written at this place.
    template <class Number>
    void put_at(std::size_t at, Number value) noexcept {
        std::memcpy(data_.get() + at, &value, sizeof value);
    }

    void put_text(std::string_view text);
    void put_value(platform::ValueView value);

private:
    std::byte* grow(std::size_t count) {
        if (capacity_ - size_ < count) {
            enlarge(count);
        }
        std::byte* const place = data_.get() + size_;
        size_ += count;
        return place;
    }

    void enlarge(std::size_t count);

    template <class Number>
    void put_tagged(platform::ValueKind kind, Number value) {
        std::byte* const place = grow(1 + sizeof value);
        *place = static_cast<std::byte>(kind);
        std::memcpy(place + 1, &value, sizeof value);
    }

    std::unique_ptr<std::byte[]> data_;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
};

/// A payload that says less, more or something else than it should.
class BadFrame : public std::runtime_error {
public:
    BadFrame()
        : runtime_error("an answer of the reader does not parse") {}
};

/// Reads the payload of a frame; what it hands out are views of that. Every member throws BadFrame
/// rather than read beyond the end.
class FrameReader {
public:
    FrameReader() = default;

    explicit FrameReader(std::span<const std::byte> bytes) noexcept
        : next_(bytes.data())
        , end_(bytes.data() + bytes.size()) {}

    template <class Number>
    Number take() {
        static_assert(std::is_arithmetic_v<Number>);
        Number value;
        std::memcpy(&value, skip(sizeof value), sizeof value);
        return value;
    }

    /// Well-formed UTF-8.
    std::string_view take_text();

    platform::ValueView take_value();

    std::size_t left() const noexcept { return static_cast<std::size_t>(end_ - next_); }

    void require_end() const {
        if (next_ != end_) {
            throw BadFrame();
        }
    }

private:
    const std::byte* skip(std::size_t count) {
        if (left() < count) {
            throw BadFrame();
        }
        const std::byte* const place = next_;
        next_ += count;
        return place;
    }

    platform::ValueView take_decimal();
    std::span<const std::byte> take_bytes();

    const std::byte* next_ = nullptr;
    const std::byte* end_ = nullptr;
};

} // namespace krv::providers::jet
