#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace krv::headless {

/// A character as a person types it.
struct TypedCharacter {
    std::int16_t code = 0;
    std::int16_t shift = 0;
    std::string character; ///< UTF-8; empty for Tab and Enter, which are keys only
};

/// The character that comes with a key, empty for none: letters, digits without Shift, blank, the
/// number pad; none with Ctrl or Alt.
std::string character_of_key(std::int16_t code, std::int16_t shift);

/// The keys that type a UTF-8 text.
std::vector<TypedCharacter> typed_characters(std::string_view text);

} // namespace krv::headless
