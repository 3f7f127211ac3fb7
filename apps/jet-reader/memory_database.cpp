#include "memory_database.h"

#include "errors.h"
#include "krv/standard/data_error.h"
#include "sql_functions.h"
#include "standard/ado/field_types.h"
#include "standard/ado/source_text.h"
#include "table_reader.h"

#include <cmath>
#include <cstdio>

namespace krv::jet_reader {

namespace {

using platform::ValueKind;
using platform::ValueView;
namespace field_type = standard::field_type;

constexpr sqlite3_int64 memory_limit = 768LL * 1024 * 1024;
constexpr int operations_per_pulse = 20'000;
constexpr unsigned rows_per_pulse = 256;
constexpr const char* memory_name = ":memory:";

/// SQLite makes a column's affinity from parts of its type's name.
const char* affinity_of(std::int16_t code) {
    switch (code) {
    case field_type::boolean:
    case field_type::unsigned_tiny_int:
    case field_type::small_int:
    case field_type::integer:
    case field_type::big_int:
        return "INT";
    case field_type::currency:
    case field_type::single:
    case field_type::double_float:
    case field_type::date:
    case field_type::db_time_stamp:
    case field_type::numeric:
        return "REAL";
    case field_type::var_w_char:
    case field_type::long_var_w_char:
    case field_type::guid:
        return "TEXT";
    default:
        return "BLOB";
    }
}

double real_of(platform::Decimal decimal) {
    const double magnitude =
        std::ldexp(static_cast<double>(decimal.high), 64) + static_cast<double>(decimal.low);
    const double value = magnitude / std::pow(10.0, decimal.scale);
    return decimal.negative ? -value : value;
}

int bind(sqlite3_stmt* statement, int index, ValueView value) {
    switch (value.kind()) {
    case ValueKind::boolean:
    case ValueKind::byte:
    case ValueKind::integer:
    case ValueKind::long_integer:
    case ValueKind::long_long:
        return sqlite3_bind_int64(statement, index, value.as_whole());
    case ValueKind::single:
        return sqlite3_bind_double(statement, index, static_cast<double>(value.as_single()));
    case ValueKind::double_float:
        return sqlite3_bind_double(statement, index, value.as_double());
    case ValueKind::date:
        return sqlite3_bind_double(statement, index, value.as_date().serial);
    case ValueKind::currency:
        return sqlite3_bind_double(
            statement, index, static_cast<double>(value.as_currency().ten_thousandths) / 10000);
    case ValueKind::decimal:
        return sqlite3_bind_double(statement, index, real_of(value.as_decimal()));
    case ValueKind::text: {
        const std::string_view text = value.as_text();
        // A null pointer would bind Null instead of the empty text.
        return sqlite3_bind_text64(statement,
                                   index,
                                   text.data() == nullptr ? "" : text.data(),
                                   text.size(),
                                   SQLITE_STATIC,
                                   SQLITE_UTF8);
    }
    case ValueKind::bytes: {
        const auto bytes = value.as_bytes();
        return bytes.empty() ? sqlite3_bind_zeroblob(statement, index, 0)
                             : sqlite3_bind_blob64(
                                   statement, index, bytes.data(), bytes.size(), SQLITE_STATIC);
    }
    default:
        return sqlite3_bind_null(statement, index);
    }
}

int pulse_on(void* pulse) noexcept {
    try {
        (*static_cast<const Pulse*>(pulse))();
        return 0;
    } catch (...) {
        return 1; // nobody listens any more
    }
}

/// `data` points to a bool: true while tables are taken in.
int authorize(void* data,
              int action,
              const char* first,
              const char* /*second*/,
              const char* /*database*/,
              const char* /*trigger*/) noexcept {
    if (*static_cast<const bool*>(data)) {
        return SQLITE_OK;
    }
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_RECURSIVE:
    case SQLITE_FUNCTION:
        return SQLITE_OK;
    case SQLITE_READ:
        return first != nullptr && std::string_view(first).starts_with("sqlite_") ? SQLITE_DENY
                                                                                  : SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

} // namespace

std::string declared_type(const standard::ColumnInfo& column) {
    return "T" + std::to_string(column.type) + "_" + std::to_string(column.defined_size) + "_" +
           affinity_of(column.type);
}

standard::ColumnInfo column_of_declared_type(const char* declared) {
    standard::ColumnInfo column;
    if (declared == nullptr ||
        std::sscanf(declared, "T%hd_%d_", &column.type, &column.defined_size) != 2) {
        return {};
    }
    return column;
}

MemoryDatabase::MemoryDatabase(JetFile& file, Pulse pulse)
    : file_(file)
    , pulse_(std::move(pulse)) {
    sqlite3* database = nullptr;
    const int code =
        sqlite3_open_v2(memory_name,
                        &database,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                        nullptr);
    database_.reset(database);
    check(code);
    sqlite3_hard_heap_limit64(memory_limit);
    is_taking_in_ = true;
    run("PRAGMA temp_store = MEMORY; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    is_taking_in_ = false;
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, 128 * 1024 * 1024);
    sqlite3_limit(database, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 10'000);
    register_functions(database);
    check(sqlite3_set_authorizer(database, authorize, &is_taking_in_));
    sqlite3_progress_handler(database, operations_per_pulse, pulse_on, &pulse_);
}

Statement MemoryDatabase::prepare(const std::string& sql) {
    for (;;) {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v2(
            database_.get(), sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
        if (code == SQLITE_OK && statement != nullptr) {
            return Statement(statement);
        }
        const std::string missing = code == SQLITE_ERROR ? missing_table() : std::string();
        if (missing.empty()) {
            raise(code);
        }
        if (!tables_.insert(missing).second) {
            refuse_unknown_table(missing);
        }
        take_in(missing);
    }
}

bool MemoryDatabase::step(sqlite3_stmt* statement) const {
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        raise(code);
    }
    return code == SQLITE_ROW;
}

std::string MemoryDatabase::missing_table() const {
    constexpr std::string_view beginning = "no such table: ";
    const std::string_view text = sqlite3_errmsg(database_.get());
    return std::string(text.starts_with(beginning) ? text.substr(beginning.size())
                                                   : std::string_view());
}

/// \param name  as the statement spells it, and as the table is called here
void MemoryDatabase::take_in(const std::string& name) {
    TableReader rows(file_, file_.table(file_.found_name(name)));
    std::string sql = "CREATE TABLE " + standard::quoted_name({&name, 1}, '"') + " (";
    const char* separator = "";
    for (const standard::ColumnInfo& column : rows.columns()) {
        sql += separator + standard::quoted_name({&column.name, 1}, '"') + " " +
               declared_type(column) + " COLLATE NOCASE";
        separator = ", ";
    }
    is_taking_in_ = true;
    run((sql + ")").c_str());
    run("BEGIN");
    insert_rows(rows, name);
    run("COMMIT");
    is_taking_in_ = false;
}

void MemoryDatabase::insert_rows(standard::ProviderCursor& rows, const std::string& name) {
    const auto columns = static_cast<int>(rows.columns().size());
    std::string sql = "INSERT INTO " + standard::quoted_name({&name, 1}, '"') + " VALUES (?";
    for (int i = 1; i < columns; ++i) {
        sql += ", ?";
    }
    sqlite3_stmt* handle = nullptr;
    check(sqlite3_prepare_v2(database_.get(), (sql + ")").c_str(), -1, &handle, nullptr));
    const Statement statement(handle);
    for (unsigned count = 0; rows.step(); ++count) {
        for (int i = 0; i < columns; ++i) {
            check(bind(handle, i + 1, rows.value(static_cast<std::size_t>(i))));
        }
        step(handle);
        check(sqlite3_reset(handle));
        if (count % rows_per_pulse == 0) {
            pulse_();
        }
    }
}

void MemoryDatabase::run(const char* sql) const {
    check(sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr));
}

void MemoryDatabase::check(int code) const {
    if (code != SQLITE_OK) {
        raise(code);
    }
}

void MemoryDatabase::raise(int code) const {
    namespace number = standard::data_error_number;
    const bool is_statement = (code & 0xFF) == SQLITE_ERROR || (code & 0xFF) == SQLITE_AUTH;
    throw standard::DataError(is_statement ? number::bad_statement : number::unspecified,
                              database_ ? sqlite3_errmsg(database_.get()) : "out of memory",
                              layer,
                              code);
}

} // namespace krv::jet_reader
