#pragma once

#include "server/form.h"

#include <memory>

namespace krv::server {

/// A form in a window, which is shown. A `QApplication` exists as long as the form.
std::unique_ptr<Form> make_qt_form();

} // namespace krv::server
