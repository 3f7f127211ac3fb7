#pragma once

#include <cstddef>

namespace krv::testing {

/// While it lives, allocations fail once so many have succeeded.
class ScarceMemory {
public:
    explicit ScarceMemory(std::size_t allocations);
    ~ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    /// Whether one has failed.
    bool ran_out() const;
};

} // namespace krv::testing
