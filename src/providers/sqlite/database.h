#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace krv::providers::sqlite {

inline constexpr const char* layer = "SQLite";

/// What was under way when SQLite failed: a text that did not compile is a bad statement, a
/// statement that fails while it runs is a failing engine.
enum class Phase { preparing, running };

/// An open database. Shared by its connection and its cursors, closed with the last of them.
class Database {
public:
    /// \throws DataError -2147467259 when it cannot be opened or is no database; nothing is created
    static std::shared_ptr<Database>
    open(const std::string& path, bool read_only, int busy_timeout_ms);

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* handle() const noexcept { return handle_.get(); }

    /// Whether its texts are kept as UTF-16.
    bool is_utf16() const noexcept { return is_utf16_; }

    /// Passes SQLite's result codes.
    /// \throws DataError for every code but OK, ROW and DONE
    void check(int code, Phase phase) const {
        if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE) {
            raise(code, phase);
        }
    }

    [[noreturn]] void raise(int code, Phase phase) const;

private:
    friend class ReadOnlyScope;

    struct Closer {
        void operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }
    };

    Database(const std::string& path, int flags, int busy_timeout_ms);
    void harden();
    void verify();

    std::unique_ptr<sqlite3, Closer> handle_;
    bool is_utf16_ = false;
    bool only_reading_ = false;
};

/// While it lives, only what reads can be compiled, by the virtual tables of a running statement too.
class ReadOnlyScope {
public:
    explicit ReadOnlyScope(Database& database)
        : database_(database) {
        database_.only_reading_ = true;
    }

    ReadOnlyScope(const ReadOnlyScope&) = delete;
    ReadOnlyScope& operator=(const ReadOnlyScope&) = delete;

    ~ReadOnlyScope() { database_.only_reading_ = false; }

private:
    Database& database_;
};

} // namespace krv::providers::sqlite
