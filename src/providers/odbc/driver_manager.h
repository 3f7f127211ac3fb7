#pragma once

#include <string>
#include <string_view>

namespace krv::providers::odbc {

/// The library of a driver, as the driver manager's own files name it.
/// \param driver  what stands at `DRIVER`: a name or a path
/// \return the library's path or file name; `driver` itself when no file knows it
std::string library_of_driver(std::string_view driver);

/// The library behind a data source's name; empty when no file knows it.
std::string library_of_source(std::string_view name);

/// Whether a driver's library has none of the functions with wide texts. The driver manager would
/// cut every character down to a byte for it.
bool has_narrow_texts_only(const std::string& library);

} // namespace krv::providers::odbc
