#pragma once

#include <string_view>

namespace krv::server {

/// One line on the standard error output. Never the text of a message: it may hold a password.
void log(std::string_view text);

} // namespace krv::server
