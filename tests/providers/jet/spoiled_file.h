#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::providers {

/// Spoils a Jet file, each time alike: `trunc` (cut at any byte), `page` (cut at a page), `flipN` (N
/// single bits), `meta` (8 bits in definitions of tables), `noise` (one page but its first two bytes).
std::string spoiled(std::string file, std::string_view mode, std::uint64_t seed);

} // namespace krv::providers
