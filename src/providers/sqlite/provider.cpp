#include "krv/providers/sqlite.h"

#include "krv/standard/data_error.h"
#include "providers/sqlite/connection.h"
#include "standard/ado/file_kind.h"
#include "standard/ascii.h"

#include <charconv>
#include <string>

namespace krv::providers {

namespace {

using standard::ConnectionString;
using standard::DataError;

constexpr int default_busy_timeout_ms = 5000;

int busy_timeout(const ConnectionString& settings) {
    const std::string_view text = settings.value("Busy Timeout");
    if (text.empty()) {
        return default_busy_timeout_ms;
    }
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < 0) {
        throw DataError(standard::data_error_number::malformed_connection_string,
                        "Busy Timeout is no number of milliseconds.",
                        sqlite::layer);
    }
    return value;
}

/// `Mode` is a list of words between `|`, of which `Read` alone concerns us.
bool is_read_only(const ConnectionString& settings) {
    std::string_view modes = settings.value("Mode");
    while (!modes.empty()) {
        const std::string_view mode = modes.substr(0, modes.find('|'));
        if (standard::same_keyword(standard::trimmed(mode), "Read")) {
            return true;
        }
        modes.remove_prefix(std::min(mode.size() + 1, modes.size()));
    }
    return false;
}

class SqliteProvider final : public standard::Provider {
public:
    std::unique_ptr<standard::ProviderConnection> open(const ConnectionString& settings) override {
        const std::string_view path = settings.value("Data Source");
        const int timeout_ms = busy_timeout(settings);
        // An empty file is an SQLite database without tables.
        const auto kind = standard::file_kind(path, sqlite::layer);
        if (kind != standard::FileKind::sqlite && kind != standard::FileKind::empty) {
            throw DataError(standard::data_error_number::unspecified,
                            "The file \"" + std::string(path) + "\" is no SQLite database.",
                            sqlite::layer);
        }
        return std::make_unique<sqlite::Connection>(sqlite::Database::open(
            standard::absolute_path(path), is_read_only(settings), timeout_ms));
    }
};

} // namespace

std::shared_ptr<standard::Provider> make_sqlite_provider() {
    return std::make_shared<SqliteProvider>();
}

} // namespace krv::providers
