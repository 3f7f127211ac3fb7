#pragma once

#include <string_view>

namespace krv::architecture {

/// True for the name of a header of the C++20 standard library. The headers that C++ shares with C
/// count under their C++ names only (`cstdint`, not `stdint.h`).
bool is_standard_header(std::string_view name);

} // namespace krv::architecture
