#pragma once

#include "krv/standard/provider.h"

#include <memory>
#include <string_view>

namespace krv::standard {

/// What a record source's text is taken for.
enum class SourceKind {
    command,         ///< one statement
    table,           ///< a name
    table_or_command ///< a name when the catalog has it or it can be nothing else
};

/// Opens what a record source names.
/// \throws DataError -2147217900 for an empty source and bad SQL, -2147217865 for a name that the
///         catalog does not have, and what the provider throws
std::unique_ptr<ProviderCursor>
open_source(ProviderConnection& connection, std::string_view source, SourceKind kind);

} // namespace krv::standard
