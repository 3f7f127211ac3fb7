#pragma once

#include "krv/standard/connection_string.h"

#include <string>

namespace krv::providers::odbc {

/// What the driver manager is told when a connection is opened.
struct OdbcSettings {
    std::string connection_string; ///< holds the secrets
    unsigned login_timeout_s = 0;  ///< 0: none
    std::string library;           ///< the driver's; empty when it is not known
};

/// \throws DataError -2147217805 for a timeout that is no number, a keyword or value that ODBC
///         cannot take and for a string that is too long for it; 3251 for keywords that would read or write
///         files with connection strings and for the driver of Jet files
OdbcSettings odbc_settings(const standard::ConnectionString& settings);

} // namespace krv::providers::odbc
