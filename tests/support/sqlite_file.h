#pragma once

#include "support/temporary_folder.h"

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace krv::testing {

/// A connection of somebody else to a database file, made when it is not there.
class OtherProcess {
public:
    explicit OtherProcess(const std::string& path) {
        if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK) {
            throw std::runtime_error("cannot open " + path);
        }
    }

    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    ~OtherProcess() { sqlite3_close(db_); }

    void run(const std::string& sql) {
        char* message = nullptr;
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
            const std::string text = message != nullptr ? message : "unknown";
            sqlite3_free(message);
            throw std::runtime_error(text);
        }
    }

    std::int64_t number(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(db_));
        }
        sqlite3_step(statement);
        const std::int64_t value = sqlite3_column_int64(statement, 0);
        sqlite3_finalize(statement);
        return value;
    }

private:
    sqlite3* db_ = nullptr;
};

} // namespace krv::testing
