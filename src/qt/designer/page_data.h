#pragma once

#include "krv/platform/data_access.h"

#include <memory>

namespace krv::qt {

/// The databases that a page in Designer can open: all that this build knows. Opens none.
std::shared_ptr<platform::DataAccess> make_page_data();

} // namespace krv::qt
