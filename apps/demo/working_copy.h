#pragma once

#include <string>

namespace krv::demo {

/// A copy of a database beside it, for the user to work on. It is kept from one start to the next,
/// and made anew once the original is younger; what was stored until then is kept in `ordini.db.old`.
/// \return its path
/// \throws RuntimeError 75 when it cannot be made
std::string working_copy(const std::string& original);

} // namespace krv::demo
