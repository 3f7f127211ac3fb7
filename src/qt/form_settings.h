#pragma once

#include "krv/platform/value.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv {
class KarvoList;
}

namespace krv::qt {

// Settings of a control that a form file hands over one by one. Each is taken as stored settings
// are: every setting is read again with this one changed, so nothing is notified, no row is opened,
// no message is shown.

/// Takes one setting, by its key in a property bag.
/// \throws what `KarvoList::ReadProperties` raises; nothing has changed then
void restore(KarvoList& list, std::string_view key, const platform::Value& value);

/// Takes the columns from a text. Columns that are there keep their captions.
/// \param captions  for the columns that are new, each by its number; may be shorter
/// \throws RuntimeError 321 with the line for a text with a fault: the columns before it have been
///         taken, the others are as those of a new control
void restore_columns(KarvoList& list,
                     std::string_view text,
                     const std::vector<std::string>& captions);

/// The columns of the control as a text.
std::string columns_text(const KarvoList& list);

} // namespace krv::qt
