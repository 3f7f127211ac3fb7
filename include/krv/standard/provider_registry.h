#pragma once

#include "krv/standard/provider.h"

#include <memory>

namespace krv::standard {

/// Knows the providers of this program and which of them a connection string means.
class ProviderRegistry {
public:
    /// Each may be left out, or null: its connection strings fail then with a text that says so.
    struct Providers {
        std::shared_ptr<Provider> sqlite;
        std::shared_ptr<Provider> jet;
        std::shared_ptr<Provider> odbc;
    };

    ProviderRegistry() = default;

    explicit ProviderRegistry(Providers providers)
        : providers_(std::move(providers)) {}

    /// Opens by the keyword `Provider`: `SQLite`; `MSDASQL`, `MSDASQL.1` or none for ODBC;
    /// `Microsoft.Jet.OLEDB.*` and `Microsoft.ACE.OLEDB.*` for the file named by `Data Source`,
    /// whose first bytes decide between SQLite and Jet, not its ending.
    /// \throws DataError 3706 for another provider, 3251 for a keyword that cannot be served (`File
    ///         Name`, `URL`, `Remote Provider`, `Remote Server`), -2147467259 for a file that is
    ///         missing, cannot be read or is no database, and what the provider throws. No database
    ///         is made.
    std::unique_ptr<ProviderConnection> open(const ConnectionString& settings) const;

private:
    std::unique_ptr<ProviderConnection> open_file(const ConnectionString& settings) const;

    Providers providers_;
};

} // namespace krv::standard
