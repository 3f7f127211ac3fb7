#pragma once

#include <string>
#include <string_view>

namespace krv::standard {

/// What a database file is by its first bytes.
enum class FileKind { empty, sqlite, jet, other };

/// Reads the first bytes and nothing else; neither name nor ending matter.
/// \param path    UTF-8
/// \param source  layer that an error names
/// \throws DataError -2147467259 when the file is missing, no ordinary file or cannot be read, or
///         when the path is empty or holds a NUL
FileKind file_kind(std::string_view path, const char* source);

/// The path from the root, so that no engine takes it for one of its special names.
std::string absolute_path(std::string_view path);

} // namespace krv::standard
