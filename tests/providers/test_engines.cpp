#include "providers/test_engines.h"

#include "krv/providers/odbc.h"
#include "krv/providers/sqlite.h"
#include "providers/servers/database_server.h"
#include "providers/shown.h"
#include "support/sqlite_file.h"

namespace krv::testing {

namespace {

/// One file for a program's whole run.
std::string sqlite_file() {
    static const TemporaryFolder folder;
    const std::string path = folder.file("suite.db");
    if (!std::filesystem::exists(path)) {
        OtherProcess(path).run("CREATE TABLE canary (id INTEGER); DROP TABLE canary");
    }
    return path;
}

const std::vector<std::string> sqlite_types = {"INTEGER PRIMARY KEY",
                                               "BOOLEAN",
                                               "SMALLINT",
                                               "INTEGER",
                                               "BIGINT",
                                               "SINGLE",
                                               "DOUBLE",
                                               "CURRENCY",
                                               "DECIMAL(20,4)",
                                               "DATE",
                                               "DATETIME",
                                               "TIME",
                                               "VARCHAR(40)",
                                               "CHAR(5)",
                                               "TEXT",
                                               "GUID",
                                               "BLOB"};

TestEngine sqlite() {
    TestEngine engine;
    engine.name = "Sqlite";
    engine.why_missing = [] { return std::string(); };
    engine.connection_string = [] { return "Provider=SQLite;Data Source=" + sqlite_file(); };
    engine.types = sqlite_types;
    engine.codes = {3, 11, 2, 3, 20, 4, 5, 6, 131, 133, 135, 134, 202, 130, 203, 72, 205};
    // It keeps decimals as Doubles.
    engine.differences = {{"2 n", "10000000000000000"}};
    return engine;
}

TestEngine sqlite_over_odbc() {
    TestEngine engine = sqlite();
    engine.name = "SqliteOverOdbc";
    engine.why_missing = [] {
        return driver_library("libsqlite3odbc.so").empty()
                   ? std::string("SQLite's ODBC driver is not installed (package libsqliteodbc)")
                   : std::string();
    };
    engine.connection_string = [] {
        return "Driver=" + driver_library("libsqlite3odbc.so") + ";Database=" + sqlite_file();
    };
    engine.codes = {3, 11, 2, 3, 20, 4, 5, 6, 131, 133, 135, 134, 200, 200, 201, 72, 205};
    return engine;
}

TestEngine postgresql_engine() {
    TestEngine engine;
    engine.name = "Postgresql";
    engine.why_missing = why_no_postgresql;
    engine.connection_string = [] { return postgresql()->connection_string(); };
    engine.types = {"integer PRIMARY KEY",
                    "boolean",
                    "smallint",
                    "integer",
                    "bigint",
                    "real",
                    "double precision",
                    "money",
                    "numeric(20,4)",
                    "date",
                    "timestamp",
                    "time",
                    "varchar(40)",
                    "char(5)",
                    "text",
                    "uuid",
                    "bytea"};
    engine.codes = {3, 11, 2, 3, 20, 4, 5, 6, 131, 133, 135, 134, 202, 130, 203, 72, 205};
    // Texts of a fixed length are filled up; its money has two decimals.
    engine.differences = {{"1 c", "ab   "}, {"5 c", "     "}};
    return engine;
}

TestEngine mariadb_engine() {
    TestEngine engine;
    engine.name = "Mariadb";
    engine.why_missing = why_no_mariadb;
    engine.connection_string = [] { return mariadb()->connection_string(); };
    engine.types = {"INTEGER PRIMARY KEY",
                    "BOOLEAN",
                    "SMALLINT",
                    "INTEGER",
                    "BIGINT",
                    "FLOAT",
                    "DOUBLE",
                    "DECIMAL(15,4)",
                    "DECIMAL(20,4)",
                    "DATE",
                    "DATETIME",
                    "TIME",
                    "VARCHAR(40)",
                    "CHAR(5)",
                    "TEXT",
                    "UUID",
                    "LONGBLOB"};
    engine.codes = {3, 16, 2, 3, 20, 4, 5, 131, 131, 133, 135, 134, 202, 130, 203, 130, 205};
    // Its Booleans are small numbers, its GUIDs texts.
    engine.differences = {
        {"1 b", "1"}, {"2 b", "1"}, {"3 b", "0"}, {"1 g", "00112233-4455-6677-8899-aabbccddeeff"}};
    engine.quote = '`';
    return engine;
}

} // namespace

const std::vector<TestEngine>& test_engines() {
    static const std::vector<TestEngine> engines = {
        sqlite(), sqlite_over_odbc(), postgresql_engine(), mariadb_engine()};
    return engines;
}

std::shared_ptr<platform::DataAccess> full_data_access() {
    return std::make_shared<standard::AdoDataAccess>(
        std::make_shared<const standard::ProviderRegistry>(standard::ProviderRegistry::Providers{
            providers::make_sqlite_provider(), nullptr, providers::make_odbc_provider()}));
}

std::shared_ptr<platform::Connection> connected(platform::DataAccess& access,
                                                const std::string& connection_string) {
    auto connection = access.CreateConnection();
    connection->Open(connection_string, "", "", platform::ado::unspecified);
    return connection;
}

void run(const std::string& connection_string, const std::string& sql) {
    connected(*full_data_access(), connection_string)->Execute(sql, {});
}

std::vector<std::string> texts(const std::string& connection_string, const std::string& sql) {
    const auto access = full_data_access();
    const auto records = connected(*access, connection_string)->Execute(sql, {}).records;
    std::vector<std::string> result;
    for (; !records->Eof(); records->MoveNext()) {
        result.push_back(providers::shown(records->Fields().Item(0).Value()));
    }
    return result;
}

} // namespace krv::testing
