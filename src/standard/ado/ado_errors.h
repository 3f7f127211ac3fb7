#pragma once

#include "krv/standard/data_error.h"

namespace krv::standard {

inline constexpr const char* connection_layer = "ADODB.Connection";
inline constexpr const char* recordset_layer = "ADODB.Recordset";
inline constexpr const char* fields_layer = "ADODB.Fields";

/// An error of the data objects themselves, with the fixed text of its number.
/// \param number  one of the positive numbers of `data_error_number`
[[noreturn]] void raise(std::int32_t number, const char* layer);

} // namespace krv::standard
