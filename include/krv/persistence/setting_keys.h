#pragma once

#include "krv/platform/value.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace krv::persistence {

/// Whether a key stands once in a bag or once for each column, the column's number behind it
/// ("ColWidth0").
enum class KeyScope : std::uint8_t { list, column };

/// A setting as a property bag holds it.
struct SettingKey {
    std::string_view name;
    KeyScope scope;
    std::string_view meaning; ///< one line for a reader
    /// What a bag without the key gives; its kind is the one that hosts know.
    platform::Value default_read;
    /// What is not stored.
    platform::Value default_written;
};

/// The 41 keys in the order in which they are read and written; those of a column come together,
/// one column after the other. "Cols" stands twice: for the list and for the input line.
std::span<const SettingKey> setting_keys();

} // namespace krv::persistence
