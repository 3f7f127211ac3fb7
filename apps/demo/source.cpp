#include "source.h"

#include "options.h"

#include "krv/platform/error.h"
#ifdef KRV_HAS_JET
#include "krv/providers/jet.h"
#endif
#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"
#include "krv/standard/provider_registry.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace krv::demo {

namespace {

std::shared_ptr<platform::DataAccess> make_data_access() {
    standard::ProviderRegistry::Providers providers;
    providers.sqlite = providers::make_sqlite_provider();
#ifdef KRV_HAS_JET
    providers.jet = providers::make_jet_provider();
#endif
    return std::make_shared<standard::AdoDataAccess>(
        std::make_shared<standard::ProviderRegistry>(std::move(providers)));
}

std::string existing_file(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        throw platform::RuntimeError(
            53, "File not found: " + QDir::toNativeSeparators(path).toStdString(), "krvlist-demo");
    }
    return file.absoluteFilePath().toStdString();
}

/// Jet files say what they are behind their first four bytes, whatever their name ends with.
bool is_jet(const std::string& database) {
    QFile file(QString::fromStdString(database));
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(19).mid(4) : QByteArray();
    return head == "Standard Jet DB" || head == "Standard ACE DB";
}

std::string connection_string(const std::string& database, bool jet) {
    std::string quoted = jet ? "Provider=Microsoft.Jet.OLEDB.4.0" : "Provider=SQLite";
    quoted += ";Data Source=\"";
    for (const char c : database) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

std::vector<ColumnPlan> columns_of(platform::DataAccess& data_access,
                                   const std::shared_ptr<platform::Connection>& connection,
                                   const std::string& records) {
    const std::shared_ptr<platform::Recordset> recordset = data_access.CreateRecordset();
    recordset->Open(records,
                    connection,
                    platform::ado::cursor_forward_only,
                    platform::ado::lock_read_only,
                    platform::ado::command_unknown);
    std::vector<ColumnPlan> columns = plan_columns(recordset->Fields());
    recordset->Close();
    if (columns.empty()) {
        throw platform::RuntimeError(
            5, "No field of the source can be shown: " + records, "krvlist-demo");
    }
    return columns;
}

/// Marks the columns of a table's primary key; one whole number is given by the database.
/// \return whether there is a key, all of it among the columns
bool mark_primary_key(platform::Connection& connection,
                      const std::string& table,
                      std::vector<ColumnPlan>& columns) {
    const std::vector<platform::Value> parameters = {platform::Value::text(table)};
    const auto records =
        connection.Execute("SELECT name, type FROM pragma_table_info(?) WHERE pk > 0", parameters)
            .records;
    std::size_t parts = 0;
    ColumnPlan* last = nullptr;
    bool is_whole = true;
    for (; !records->Eof(); records->MoveNext()) {
        const std::string_view name = records->Fields().Item(0).Value().as_text();
        const auto column = std::find_if(
            columns.begin(), columns.end(), [&](const auto& plan) { return plan.field == name; });
        if (column == columns.end()) {
            return false;
        }
        ++parts;
        column->is_key = true;
        last = &*column;
        is_whole = records->Fields().Item(1).Value().as_text() == "INTEGER";
    }
    if (parts == 1) {
        last->is_given = is_whole;
    }
    return parts > 0;
}

} // namespace

Source find_source(const Options& options, const std::string& sample) {
    Source source;
    source.data_access = make_data_access();
    standard::RegionalSettings settings;
    if (options.shows_sample()) {
        source.database = existing_file(QString::fromStdString(sample));
        source.records = "Ordini";
        source.table = source.records;
        source.columns = sample_columns();
        settings = standard::regional_settings("it-IT");
    } else {
        source.database = existing_file(options.file);
        source.records = options.source.toStdString();
        source.is_jet = is_jet(source.database);
        const auto connection = source.data_access->CreateConnection();
        connection->Open(
            connection_string(source.database, source.is_jet), "", "", platform::ado::unspecified);
        source.columns = columns_of(*source.data_access, connection, source.records);
        if (!source.is_jet && mark_primary_key(*connection, source.records, source.columns)) {
            source.table = source.records;
        }
        connection->Close();
        settings = standard::system_regional_settings();
    }
    source.connect = connection_string(source.database, source.is_jet);
    source.region = settings.name;
    source.formatter = std::make_shared<standard::ValueFormatter>(std::move(settings));
    return source;
}

} // namespace krv::demo
