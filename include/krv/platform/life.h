#pragma once

#include <memory>

namespace krv::platform {

/// A member of what may be destroyed while its own routines, or notifications on their way to it, are
/// still under way.
class LifeToken {
public:
    LifeToken() = default;
    LifeToken(const LifeToken&) = delete;
    LifeToken& operator=(const LifeToken&) = delete;

    /// Expires with the token.
    std::weak_ptr<const void> watch() const { return alive_; }

private:
    std::shared_ptr<const void> alive_ = std::make_shared<char>();
};

/// Kept on the stack across a call that may run a host's code: afterwards a routine asks whether its
/// owner is still there before it touches a member.
class LifeWatch {
public:
    explicit LifeWatch(const LifeToken& life)
        : watch_(life.watch()) {}

    bool ended() const noexcept { return watch_.expired(); }

private:
    std::weak_ptr<const void> watch_;
};

} // namespace krv::platform
