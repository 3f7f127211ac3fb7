#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace krv::standard {

/// Bytes that grow at the end, without a value of their own until they are written; at most 4 GiB.
class ByteBuffer {
public:
    ByteBuffer() = default;

    ByteBuffer(ByteBuffer&& other) noexcept
        : bytes_(std::move(other.bytes_))
        , size_(std::exchange(other.size_, 0))
        , capacity_(std::exchange(other.capacity_, 0)) {}

    ByteBuffer& operator=(ByteBuffer other) noexcept {
        swap(other);
        return *this;
    }

    void swap(ByteBuffer& other) noexcept {
        bytes_.swap(other.bytes_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    char* data() noexcept { return bytes_.get(); }

    const char* data() const noexcept { return bytes_.get(); }

    std::size_t size() const noexcept { return size_; }

    std::size_t capacity() const noexcept { return capacity_; }

    /// Room for so many in all, no more.
    void reserve(std::size_t capacity) {
        if (capacity > capacity_) {
            auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
            if (size_ > 0) {
                std::memcpy(bytes.get(), bytes_.get(), size_);
            }
            bytes_ = std::move(bytes);
            capacity_ = static_cast<std::uint32_t>(capacity);
        }
    }

    /// Within the capacity.
    void set_size(std::size_t size) noexcept { size_ = static_cast<std::uint32_t>(size); }

    /// Within the capacity; `bytes` lie elsewhere.
    void append(std::string_view bytes) noexcept {
        if (!bytes.empty()) {
            std::memcpy(bytes_.get() + size_, bytes.data(), bytes.size());
            size_ += static_cast<std::uint32_t>(bytes.size());
        }
    }

private:
    std::unique_ptr<char[]> bytes_;
    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = 0;
};

} // namespace krv::standard
