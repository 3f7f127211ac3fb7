#pragma once

#include "server/form_page.h"

#include <memory>

namespace krv::headless {
class HeadlessForm;
}

namespace krv::server {

/// The property page without a screen, on a form that outlives it.
std::unique_ptr<FormPage> make_headless_page(headless::HeadlessForm& form, PageSupplies supplies);

} // namespace krv::server
