#pragma once

#include "krv/standard/provider.h"
#include "providers/odbc/session.h"

#include <optional>

namespace krv::providers::odbc {

/// Looks a table or view up by its name, with its schema (or database, for engines that have no
/// schemas) and its database before it or not.
/// \return the name as the catalog spells it; an exact match, else the only one without letter
///         case, else nothing. A name that several schemas have comes back alone: the engine knows
///         which one it means.
std::optional<standard::TableName> find_in_catalog(Session& session,
                                                   const standard::TableName& name);

} // namespace krv::providers::odbc
