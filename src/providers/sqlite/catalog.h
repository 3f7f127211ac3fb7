#pragma once

#include "krv/standard/provider.h"
#include "providers/sqlite/database.h"

#include <optional>

namespace krv::providers::sqlite {

/// Looks a table or view up: `name`, in the order in which SQLite itself resolves it (temporary,
/// main, attached), or `schema, name`.
/// \return schema and name as the catalog spells them; an exact match, else the only one without
///         letter case, else nothing
std::optional<standard::TableName> find_in_catalog(const Database& database,
                                                   const standard::TableName& name);

} // namespace krv::providers::sqlite
