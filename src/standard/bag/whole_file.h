#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace krv::standard {

/// \throws RuntimeError 53 for a file that is not there, 75 for one that cannot be read
std::string read_whole_file(const std::filesystem::path& path);

/// Replaces the file, or makes it, in one step: whoever looks finds the old content or the new.
/// \throws RuntimeError 75 when it cannot be written; the old file is as it was
void write_whole_file(const std::filesystem::path& path, std::string_view content);

} // namespace krv::standard
