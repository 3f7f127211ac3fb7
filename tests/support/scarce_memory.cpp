#include "support/scarce_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t plenty = std::numeric_limits<std::size_t>::max();
std::size_t allocations_left = plenty;
bool one_failed = false;

void* allocate(std::size_t bytes) {
    if (allocations_left == 0) {
        one_failed = true;
        throw std::bad_alloc();
    }
    allocations_left -= allocations_left == plenty ? 0 : 1;
    if (void* memory = std::malloc(bytes == 0 ? 1 : bytes)) {
        return memory;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t bytes) {
    return allocate(bytes);
}

void* operator new[](std::size_t bytes) {
    return allocate(bytes);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace krv::testing {

ScarceMemory::ScarceMemory(std::size_t allocations) {
    one_failed = false;
    allocations_left = allocations;
}

ScarceMemory::~ScarceMemory() {
    allocations_left = plenty;
}

bool ScarceMemory::ran_out() const {
    return one_failed;
}

} // namespace krv::testing
