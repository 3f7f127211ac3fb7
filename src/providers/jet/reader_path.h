#pragma once

#include <string>

namespace krv::providers::jet {

/// Where the reader is: `wanted` when it is not empty, else beside the running program, beside this
/// library, in the folder for such programs of the same installation, where this library was to be
/// installed, and where it was built.
/// \throws DataError -2147467259 when it is in none of these places
std::string reader_path(const std::string& wanted);

} // namespace krv::providers::jet
