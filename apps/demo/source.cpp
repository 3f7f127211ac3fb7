#include "source.h"

#include "options.h"

#include "krv/platform/error.h"
#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"
#include "krv/standard/provider_registry.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#include <QDir>
#include <QFileInfo>

namespace krv::demo {

namespace {

std::shared_ptr<platform::DataAccess> make_data_access() {
    return std::make_shared<standard::AdoDataAccess>(std::make_shared<standard::ProviderRegistry>(
        standard::ProviderRegistry::Providers{providers::make_sqlite_provider(), {}, {}}));
}

std::string existing_file(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        throw platform::RuntimeError(
            53, "File not found: " + QDir::toNativeSeparators(path).toStdString(), "krvlist-demo");
    }
    return file.absoluteFilePath().toStdString();
}

std::string connection_string(const std::string& database) {
    std::string quoted = "Provider=SQLite;Data Source=\"";
    for (const char c : database) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

std::vector<ColumnPlan> columns_of(platform::DataAccess& data_access,
                                   const std::string& connect,
                                   const std::string& records) {
    const std::shared_ptr<platform::Connection> connection = data_access.CreateConnection();
    connection->Open(connect, "", "", platform::ado::unspecified);
    const std::shared_ptr<platform::Recordset> recordset = data_access.CreateRecordset();
    recordset->Open(records,
                    connection,
                    platform::ado::cursor_forward_only,
                    platform::ado::lock_read_only,
                    platform::ado::command_unknown);
    std::vector<ColumnPlan> columns = plan_columns(recordset->Fields());
    recordset->Close();
    connection->Close();
    if (columns.empty()) {
        throw platform::RuntimeError(
            5, "No field of the source can be shown: " + records, "krvlist-demo");
    }
    return columns;
}

} // namespace

Source find_source(const Options& options) {
    Source source;
    source.data_access = make_data_access();
    standard::RegionalSettings settings;
    if (options.shows_sample()) {
        source.database = existing_file(KRV_SAMPLE_DATABASE);
        source.records = "Ordini";
        source.columns = sample_columns();
        settings = standard::regional_settings("it-IT");
    } else {
        source.database = existing_file(options.file);
        source.records = options.source.toStdString();
        source.columns =
            columns_of(*source.data_access, connection_string(source.database), source.records);
        settings = standard::system_regional_settings();
    }
    source.connect = connection_string(source.database);
    source.region = settings.name;
    source.formatter = std::make_shared<standard::ValueFormatter>(std::move(settings));
    return source;
}

} // namespace krv::demo
