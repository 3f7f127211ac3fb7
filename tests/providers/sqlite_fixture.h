#pragma once

#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"
#include "krv/standard/data_error.h"
#include "providers/shown.h"
#include "support/errors.h"
#include "support/sqlite_file.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace krv::providers {

class SqliteTest : public ::testing::Test {
protected:
    using Texts = std::vector<std::string>;

    std::string path(const std::string& name = "dati.db") const { return folder.file(name); }

    void make(const std::string& sql, const std::string& name = "dati.db") {
        krv::testing::OtherProcess(path(name)).run(sql);
    }

    std::shared_ptr<platform::Connection> connect(const std::string& more = "",
                                                  const std::string& name = "dati.db") {
        auto connection = access.CreateConnection();
        connection->Open("Provider=SQLite;Data Source=" + path(name) + ";" + more, "", "", -1);
        return connection;
    }

    std::shared_ptr<platform::Recordset>
    open(const std::string& source,
         const std::shared_ptr<platform::Connection>& connection,
         std::int32_t options = -1) {
        auto records = access.CreateRecordset();
        records->Open(source, connection, 2, 2, options);
        return records;
    }

    std::shared_ptr<platform::Recordset> open(const std::string& source) {
        return open(source, connect());
    }

    /// Every cell of what a source reads, row by row.
    Texts cells(const std::string& source) {
        auto records = open(source);
        Texts result;
        for (; !records->Eof(); records->MoveNext()) {
            for (std::int32_t i = 0; i < records->Fields().Count(); ++i) {
                result.push_back(shown(records->Fields().Item(i).Value()));
            }
        }
        return result;
    }

    /// The fields as "name type size".
    static Texts fields(const platform::Recordset& records) {
        Texts result;
        for (std::int32_t i = 0; i < records.Fields().Count(); ++i) {
            const auto& field = records.Fields().Item(i);
            result.push_back(std::string(field.Name()) + " " + std::to_string(field.Type()) + " " +
                             std::to_string(field.DefinedSize()));
        }
        return result;
    }

    std::int32_t source_error(const std::string& source, std::int32_t options = -1) {
        const auto connection = connect();
        return krv::testing::error_number_of([&] { open(source, connection, options); });
    }

    /// The values of a one-column table of this declared type that holds these SQL literals.
    Texts column(const std::string& declared, const Texts& literals) {
        const std::string name = "c" + std::to_string(++columns_) + ".db";
        std::string sql = "CREATE TABLE t (v " + declared + ");";
        for (const auto& literal : literals) {
            sql += "INSERT INTO t VALUES (" + literal + ");";
        }
        make(sql, name);
        auto records = open("t", connect("", name));
        Texts result;
        for (; !records->Eof(); records->MoveNext()) {
            result.push_back(shown(records->Fields().Item("v").Value()));
        }
        return result;
    }

    krv::testing::TemporaryFolder folder;
    std::shared_ptr<standard::ProviderRegistry> registry =
        std::make_shared<standard::ProviderRegistry>(
            standard::ProviderRegistry::Providers{make_sqlite_provider(), nullptr, nullptr});
    standard::AdoDataAccess access{registry};

private:
    int columns_ = 0;
};

} // namespace krv::providers
