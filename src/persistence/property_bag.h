#pragma once

#include "krv/platform/property_store.h"

namespace krv {

struct ControlState;
class FunctionButtons;

namespace data {
class RecordSource;
}

namespace persistence {

/// What the settings of one control are read into and written from.
struct Settings {
    ControlState& state;
    FunctionButtons& buttons;
    data::RecordSource& source;
};

/// Reads every setting in its order and applies each at once. Notifies nothing, loads nothing, lays
/// nothing out.
/// \throws RuntimeError 13 or 6 for a stored value that does not convert, the key in its text; 6
///         for more columns than 16 bits count, before the first column; what a grid refuses. What
///         was read before stays.
void read_properties(const Settings& settings, platform::PropertyBag& bag);

/// Writes every setting in the same order, from the live state.
/// \throws RuntimeError 6 for more columns than 16 bits count, before anything is written; what the
///         bag raises
void write_properties(const Settings& settings, platform::PropertyBag& bag);

} // namespace persistence
} // namespace krv
