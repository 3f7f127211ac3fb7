#pragma once

#include <functional>
#include <optional>
#include <string>

namespace krv::qt {

/// What a file dialog was set up with. UTF-8.
struct FileRequest {
    std::string title;
    std::string filter;
    std::string folder;
};

/// Chooses a file in place of a person, no dialog is shown then; none means cancelled. UTF-8.
using FileChooser = std::function<std::optional<std::string>(const FileRequest& request)>;

} // namespace krv::qt
