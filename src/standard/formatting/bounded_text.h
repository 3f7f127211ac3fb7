#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace krv::standard {

/// Appends at the end of a buffer that is known to be large enough; returns the new end.
inline char* append_to(char* out, std::string_view piece) {
    if (piece.size() == 1) {
        *out = piece.front();
        return out + 1;
    }
    if (!piece.empty()) {
        std::memcpy(out, piece.data(), piece.size());
    }
    return out + piece.size();
}

/// Replaces the text by what `write` puts into a buffer of `longest` bytes; `write` returns the
/// end. The text is not touched before that, so `write` may read from it.
template <class Write>
void write_bounded(std::size_t longest, std::string& text, Write&& write) {
    constexpr std::size_t usual = 1024;
    if (longest <= usual) {
        char buffer[usual];
        const char* end = write(static_cast<char*>(buffer));
        text.assign(buffer, static_cast<std::size_t>(end - buffer));
        return;
    }
    std::string large(longest, '\0');
    const char* end = write(large.data());
    large.resize(static_cast<std::size_t>(end - large.data()));
    text = std::move(large);
}

} // namespace krv::standard
