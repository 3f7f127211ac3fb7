#pragma once

#include "krv/standard/provider.h"

#include <memory>

namespace krv::providers {

/// Reads SQLite databases.
///
/// Makes no database and writes none by itself. What a writer that died left beside the file is
/// recovered by SQLite, as by any reader; a file in write-ahead mode gets its two companion files.
///
/// Keywords: `Data Source`, the path of a database file that exists; `Mode`, read-only with
/// `Read`, else read-write where the file allows it; `Busy Timeout`, milliseconds to wait for a
/// lock of others, 0 and up, 5000 by default. Other keywords are not looked at.
std::shared_ptr<standard::Provider> make_sqlite_provider();

} // namespace krv::providers
