#pragma once

#include "server/form.h"

#include <memory>

namespace krv::server {

/// A form without a screen.
std::unique_ptr<Form> make_headless_form();

} // namespace krv::server
