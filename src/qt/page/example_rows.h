#pragma once

#include "krv/platform/formatter.h"
#include "krv/propertypage/property_page.h"

#include <cstddef>
#include <string>

namespace krv::qt {

/// What a cell of a list could look like: a value of the column's type in the column's format.
/// \param row  from 0
std::string example_text(const PageColumns& columns,
                         std::size_t column,
                         int row,
                         const platform::Formatter& formatter);

} // namespace krv::qt
