#pragma once

#include <cstdint>
#include <string>

namespace krv::jet_reader {

inline constexpr const char* layer = "Jet";

/// Raises -2147467259: the file is not what it says that it is.
/// \param what  where it was noticed
[[noreturn]] void refuse_damaged(const std::string& what);

/// Raises -2147217865.
[[noreturn]] void refuse_unknown_table(const std::string& name);

/// Raises -2147217900.
[[noreturn]] void refuse_statement(const std::string& why);

} // namespace krv::jet_reader
