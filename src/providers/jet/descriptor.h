#pragma once

#include <utility>

#include <unistd.h>

namespace krv::providers::jet {

/// Owns an open file descriptor, or none (-1).
class Descriptor {
public:
    Descriptor() = default;

    explicit Descriptor(int number) noexcept
        : number_(number) {}

    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    ~Descriptor() { reset(); }

    int number() const noexcept { return number_; }

    void reset() noexcept {
        if (number_ >= 0) {
            close(number_);
        }
        number_ = -1;
    }

private:
    int number_ = -1;
};

} // namespace krv::providers::jet
