#pragma once

#include <optional>
#include <string_view>

#include <sqlite3.h>

namespace krv::jet_reader {

/// The name under which a function of Jet is registered here; nothing for one that SQLite has with
/// the same meaning, or that nobody has.
/// \param name  in any case, with or without `$` behind it
std::optional<std::string_view> own_function(std::string_view name);

/// Registers the functions of Jet and those that stand for its operators, and makes NOCASE compare in
/// all alphabets. Null in gives Null out but for `Nz`, `IsNull` and `&`.
void register_functions(sqlite3* database);

} // namespace krv::jet_reader
