#pragma once

#include <span>
#include <string_view>

namespace krv::providers::jet {

/// The key of the mask that lies over the header of every Jet file. No secret: it is the same in all.
inline constexpr std::string_view header_key = "\xC7\xDA\x39\x6B";

/// RC4: the same for masking and unmasking. Works in place.
void apply_rc4(std::string_view key, std::span<unsigned char> data);

} // namespace krv::providers::jet
