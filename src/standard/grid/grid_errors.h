#pragma once

#include "krv/platform/error.h"

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>

namespace krv::standard::grid_error {

inline constexpr std::int32_t remove_fixed_row = 30000;
inline constexpr std::int32_t add_fixed_row = 30001;
inline constexpr std::int32_t no_such_row = 30002;
inline constexpr std::int32_t bad_alignment_col = 30004;
inline constexpr std::int32_t bad_alignment = 30005;
inline constexpr std::int32_t no_memory = 30006;
inline constexpr std::int32_t bad_row = 30009;
inline constexpr std::int32_t bad_col = 30010;
inline constexpr std::int32_t bad_row_height = 30013;
inline constexpr std::int32_t bad_col_width = 30014;
inline constexpr std::int32_t last_data_row = 30015;

// Short enough to need no memory of its own.
inline constexpr const char* no_memory_text = "Out of memory";

/// Runs what may need memory; want of it becomes the grid's own error.
template <class Act>
void gate_memory(const std::string& source, Act act) {
    try {
        act();
    } catch (const std::bad_alloc&) {
        throw platform::RuntimeError(no_memory, no_memory_text, source);
    } catch (const std::length_error&) {
        throw platform::RuntimeError(no_memory, no_memory_text, source);
    }
}

} // namespace krv::standard::grid_error
