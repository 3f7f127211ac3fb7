#pragma once

#include "krv/control/karvo_list.h"

#include <cstdint>
#include <iosfwd>

namespace krv::demo {

/// Writes the captions and the first rows of a list as columns of text, aligned as in the list.
/// \param rows  at the most; 0 and more
void print_table(std::ostream& out, const KarvoList& list, std::int32_t rows);

} // namespace krv::demo
