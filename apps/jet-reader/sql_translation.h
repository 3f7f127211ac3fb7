#pragma once

#include <set>
#include <string>
#include <string_view>

namespace krv::jet_reader {

struct TranslatedSelect {
    std::string sql;
    /// The statement's words and names. A column whose name is none of them has none of its own.
    std::set<std::string> names;
};

/// A SELECT of Jet's SQL as one that SQLite understands, with the functions of `sql_functions.h`.
/// \throws DataError -2147217900 for anything but one SELECT, and for what cannot be translated
TranslatedSelect translated_select(std::string_view sql);

} // namespace krv::jet_reader
