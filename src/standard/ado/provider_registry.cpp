#include "krv/standard/provider_registry.h"

#include "krv/standard/data_error.h"
#include "standard/ado/file_kind.h"
#include "standard/ascii.h"

#include <string>

namespace krv::standard {

namespace {

constexpr const char* layer = "ADODB.Connection";

[[noreturn]] void refuse(std::string text) {
    throw DataError(data_error_number::unspecified, std::move(text), layer);
}

void refuse_what_is_not_served(const ConnectionString& settings) {
    for (const char* keyword : {"File Name", "URL", "Remote Provider", "Remote Server"}) {
        if (!settings.value(keyword).empty()) {
            throw DataError(data_error_number::not_supported,
                            std::string("The keyword \"") + keyword + "\" is not supported.",
                            layer);
        }
    }
}

bool is_odbc(std::string_view provider) {
    return provider.empty() || same_keyword(provider, "MSDASQL") ||
           same_keyword(provider, "MSDASQL.1");
}

} // namespace

std::unique_ptr<ProviderConnection> ProviderRegistry::open(const ConnectionString& settings) const {
    refuse_what_is_not_served(settings);
    const std::string_view provider = settings.value("Provider");
    if (is_odbc(provider)) {
        if (!providers_.odbc) {
            refuse("The data source was not found: this program has no ODBC.");
        }
        return providers_.odbc->open(settings);
    }
    if (starts_with_keyword(provider, "Microsoft.Jet.OLEDB.") ||
        starts_with_keyword(provider, "Microsoft.ACE.OLEDB.")) {
        return open_file(settings);
    }
    if (same_keyword(provider, "SQLite") && providers_.sqlite) {
        return providers_.sqlite->open(settings);
    }
    throw DataError(data_error_number::provider_not_found,
                    "Provider cannot be found. It may not be properly installed.",
                    layer);
}

std::unique_ptr<ProviderConnection>
ProviderRegistry::open_file(const ConnectionString& settings) const {
    const std::string path(settings.value("Data Source"));
    switch (file_kind(path, layer)) {
    case FileKind::sqlite:
        if (!providers_.sqlite) {
            refuse("\"" + path + "\" is an SQLite database, which this program cannot read.");
        }
        return providers_.sqlite->open(settings);
    case FileKind::jet:
        if (!providers_.jet) {
            refuse("\"" + path + "\" is a Jet database, which this program cannot read.");
        }
        return providers_.jet->open(settings);
    case FileKind::empty:
        refuse("The file \"" + path + "\" is empty, it is no database.");
    case FileKind::other:
        break;
    }
    refuse("The file \"" + path + "\" is no database of a known format.");
}

} // namespace krv::standard
