#pragma once

#include <memory>

namespace krv {

class LifeWatch;

/// A member of what a host may destroy while one of our routines runs.
class Life {
public:
    Life() = default;
    Life(const Life&) = delete;
    Life& operator=(const Life&) = delete;

private:
    friend class LifeWatch;
    std::shared_ptr<const char> token_ = std::make_shared<const char>();
};

/// Kept on the stack across a call that may run the host's code: afterwards a routine asks whether
/// its control is still there before it touches a member.
class LifeWatch {
public:
    explicit LifeWatch(const Life& life)
        : token_(life.token_) {}

    bool ended() const noexcept { return token_.expired(); }

private:
    std::weak_ptr<const char> token_;
};

} // namespace krv
