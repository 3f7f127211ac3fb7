#pragma once

#include "krv/standard/memory_bag.h"

#include <algorithm>
#include <string>

namespace krv::testing {

/// The settings as far as files of Qt's forms can hold them: their texts have no control characters
/// but line ends and tabs, and a string of blanks alone is read as an empty one. Texts in "Columns"
/// are not concerned, they are escaped; blanks in bytes and in the list of captions are kept.
inline standard::MemoryBag as_forms_hold(const standard::MemoryBag& bag) {
    standard::MemoryBag held;
    for (const auto& [key, value] : bag.entries()) {
        const bool is_escaped = key.starts_with("ColDataField") || key.starts_with("ColFormat");
        if (value.kind() != platform::ValueKind::text || is_escaped) {
            held.set(key, value);
            continue;
        }
        std::string text(value.view().as_text());
        std::erase_if(text, [](char c) { return c == '\r' || c == '\x01'; });
        const bool is_blank = text.find_first_not_of(" \n\t") == std::string::npos;
        const bool is_string = key.ends_with("Title") || key.ends_with("Caption");
        if (is_blank && is_string) {
            text.clear();
        }
        held.set(key, platform::Value::text(std::move(text)));
    }
    return held;
}

} // namespace krv::testing
