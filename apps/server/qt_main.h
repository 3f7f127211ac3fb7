#pragma once

#include "krv/platform/data_access.h"
#include "krv/standard/regional_settings.h"

#include <memory>

namespace krv::server {

/// Whether a window can be opened, as far as the environment tells. Qt aborts the program without.
bool has_screen();

/// The server in a window, until its input ends. Descriptors stay open. \return exit status
int serve_qt(std::shared_ptr<platform::DataAccess> data,
             standard::RegionalSettings region,
             int input,
             int output);

} // namespace krv::server
