#pragma once

#include <string>
#include <string_view>

namespace krv::demo {

/// Columns that a UTF-8 text takes on a terminal: marks take none, wide characters two.
int text_width(std::string_view utf8);

/// The text with line ends and other control characters as blanks.
std::string one_line(std::string_view utf8);

} // namespace krv::demo
