#pragma once

#include "krv/platform/host.h"
#include "server/form_page.h"

#include <memory>

namespace krv::server {

/// The property page in a window of its own, without a focus at first.
/// \param application  outlives the page
std::unique_ptr<FormPage> make_qt_page(platform::Application& application, PageSupplies supplies);

} // namespace krv::server
