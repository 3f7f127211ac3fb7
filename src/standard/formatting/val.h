#pragma once

#include <string_view>

namespace krv::standard {

/// The number that a text begins with, read in no region. \throws RuntimeError 6, 13
double val(std::string_view text);

} // namespace krv::standard
