#pragma once

#include "krv/platform/life.h"

namespace krv {

/// Raises a flag of a control for as long as it lives, then gives it back the value that it had,
/// unless the control is gone by then.
class FlagScope {
public:
    FlagScope(bool& flag, const platform::LifeToken& life)
        : flag_(flag)
        , watch_(life)
        , before_(flag) {
        flag_ = true;
    }

    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

    ~FlagScope() {
        if (!watch_.ended()) {
            flag_ = before_;
        }
    }

private:
    bool& flag_;
    platform::LifeWatch watch_;
    bool before_;
};

/// Counts one more for as long as it lives, unless the control is gone by then.
class CountScope {
public:
    CountScope(int& count, const platform::LifeToken& life)
        : count_(count)
        , watch_(life) {
        ++count_;
    }

    CountScope(const CountScope&) = delete;
    CountScope& operator=(const CountScope&) = delete;

    ~CountScope() {
        if (!watch_.ended()) {
            --count_;
        }
    }

private:
    int& count_;
    platform::LifeWatch watch_;
};

} // namespace krv
