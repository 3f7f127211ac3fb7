#pragma once

#include "krv/standard/provider.h"

#include <memory>

namespace krv::providers {

/// Reads databases through the ODBC drivers of this machine.
///
/// Keywords of OLE DB are translated (`Data Source` to `DSN`, `User ID` to `UID`, `Password` to
/// `PWD`, `Initial Catalog` to `DATABASE`, `Extended Properties` taken apart) or left out
/// (`Provider`, `Mode` and their like); all others reach the driver in their order. `Connect
/// Timeout` is the login timeout in seconds, 0 for none, 15 by default. Where the string does not
/// say, the driver is asked to read large results in pieces instead of holding them.
///
/// What is opened to be read is one statement that reads, by its words, by the driver's own look at
/// it, and on PostgreSQL, MariaDB, MySQL and SQLite also by a session that may only read. Jet files
/// are never read through ODBC.
std::shared_ptr<standard::Provider> make_odbc_provider();

} // namespace krv::providers
