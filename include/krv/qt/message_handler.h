#pragma once

#include "krv/platform/host.h"

#include <functional>
#include <string_view>

namespace krv::qt {

/// Answers a message of the control in place of a person; no box is shown then. `text` is UTF-8.
using MessageHandler =
    std::function<platform::MessageAnswer(std::string_view text, platform::MessageButtons buttons)>;

} // namespace krv::qt
