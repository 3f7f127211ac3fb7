#include "shop_file.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string_view>

namespace krv::bench {

namespace {

class Folder {
public:
    Folder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "krvlist-bench-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string file(std::int64_t rows) const {
        return (path_ / ("righe" + std::to_string(rows) + ".db")).string();
    }

private:
    std::filesystem::path path_;
};

void check(int code, sqlite3* db) {
    if (code != SQLITE_OK && code != SQLITE_DONE && code != SQLITE_ROW) {
        throw std::runtime_error(sqlite3_errmsg(db));
    }
}

void bind_text(sqlite3_stmt* statement, int index, std::string_view text) {
    sqlite3_bind_text(
        statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void bind_row(sqlite3_stmt* statement, std::int64_t id) {
    static constexpr std::string_view customers[] = {
        "Rossi Mario", "Bianchi Lucia", "Esposito Anna", "Ferrari s.r.l.", "D'Angelo Nicolò"};
    static constexpr std::string_view cities[] = {"Milano", "Forlì", "Reggio Calabria", "Cantù"};
    char text[32];
    sqlite3_bind_int64(statement, 1, id);
    std::snprintf(text, sizeof text, "ART-%06lld", static_cast<long long>(id % 1000000));
    bind_text(statement, 2, text);
    bind_text(statement, 3, customers[id % 5]);
    bind_text(statement, 4, cities[id % 4]);
    std::snprintf(text,
                  sizeof text,
                  "%04d-%02d-%02d",
                  static_cast<int>(2000 + id % 25),
                  static_cast<int>(1 + id % 12),
                  static_cast<int>(1 + id % 28));
    bind_text(statement, 5, text);
    const double price = static_cast<double>(id * 7919 % 250000) / 100;
    sqlite3_bind_int64(statement, 6, 1 + id % 40);
    sqlite3_bind_double(statement, 7, price);
    sqlite3_bind_double(statement, 8, price * static_cast<double>(1 + id % 40));
    sqlite3_bind_double(statement, 9, static_cast<double>(id * 31 % 90000) / 1000);
    bind_text(statement, 10, id % 2 == 0 ? "spedito" : "in attesa");
}

void make_file(const std::string& path, std::int64_t rows) {
    sqlite3* db = nullptr;
    check(sqlite3_open(path.c_str(), &db), db);
    check(sqlite3_exec(db,
                       "PRAGMA synchronous = OFF; BEGIN;"
                       "CREATE TABLE righe (id INTEGER, codice VARCHAR(12), cliente VARCHAR(40),"
                       " citta VARCHAR(30), data DATE, quantita INTEGER, prezzo REAL, totale REAL,"
                       " peso REAL, stato VARCHAR(12))",
                       nullptr,
                       nullptr,
                       nullptr),
          db);
    sqlite3_stmt* insert = nullptr;
    check(sqlite3_prepare_v2(
              db, "INSERT INTO righe VALUES (?,?,?,?,?,?,?,?,?,?)", -1, &insert, nullptr),
          db);
    for (std::int64_t id = 1; id <= rows; ++id) {
        bind_row(insert, id);
        check(sqlite3_step(insert), db);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr), db);
    sqlite3_close(db);
}

} // namespace

const std::string& shop_file(std::int64_t rows) {
    static const Folder folder;
    static std::map<std::int64_t, std::string> files;
    auto& path = files[rows];
    if (path.empty()) {
        make_file(folder.file(rows), rows);
        path = folder.file(rows);
    }
    return path;
}

} // namespace krv::bench
