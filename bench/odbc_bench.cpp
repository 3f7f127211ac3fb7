// Loading a list from PostgreSQL over ODBC. "bare fetch" has the same driver, used plainly, fetch the
// same result in pieces of the same size into bound arrays of texts, and looks at none of them.
// "refresh" loads the list, connection and formatting included. "far refresh" loads five million
// rows once and tells what the program took beyond the list itself.

#include "krv/control/karvo_list.h"
#include "krv/headless/headless_form.h"
#include "krv/providers/odbc.h"
#include "krv/standard/ado.h"
#include "krv/standard/value_formatter.h"
#include "providers/servers/database_server.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace krv::bench {
namespace {

constexpr std::int64_t rows = 1'000'000;
constexpr int columns = 10;

const std::array<const char*, columns> fields = {
    "id", "codice", "cliente", "citta", "data", "quantita", "prezzo", "totale", "peso", "stato"};

std::string connection_string() {
    return testing::postgresql()->connection_string();
}

std::shared_ptr<platform::DataAccess> data_access() {
    return std::make_shared<standard::AdoDataAccess>(std::make_shared<standard::ProviderRegistry>(
        standard::ProviderRegistry::Providers{nullptr, nullptr, providers::make_odbc_provider()}));
}

/// The rows are made by the server while they are read.
std::string query(std::int64_t count) {
    return "SELECT n AS id, 'ART-' || lpad((n % 1000000)::text, 6, '0') AS codice,"
           " (ARRAY['Rossi Mario', 'Bianchi Lucia', 'D''Angelo Nicolò'])[n % 3 + 1] AS cliente,"
           " (ARRAY['Milano', 'Forlì', 'Reggio Calabria'])[n % 3 + 1] AS citta,"
           " DATE '2000-01-01' + n % 9000 AS data, n % 100 AS quantita,"
           " (n % 100000)::numeric(12,2) / 4 AS prezzo, (n % 7919)::numeric(12,2) / 3 AS totale,"
           " (n % 1000) / 8.0::float8 AS peso, 'spedito' AS stato"
           " FROM generate_series(1, " +
           std::to_string(count) + ") n";
}

void make_table() {
    static bool made = false;
    if (!std::exchange(made, true)) {
        const auto access = data_access();
        const auto connection = access->CreateConnection();
        connection->Open(connection_string(), "", "", platform::ado::unspecified);
        connection->Execute("CREATE TABLE righe AS " + query(rows), {});
        connection->Execute("ANALYZE righe", {});
    }
}

void require(SQLRETURN code, const char* what) {
    if (!SQL_SUCCEEDED(code)) {
        throw std::runtime_error(what);
    }
}

/// A statement on the driver alone.
class BareFetch {
public:
    BareFetch() {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(
            environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        const std::string text = connection_string() +
                                 ";UseDeclareFetch=1;Fetch=1024;BoolsAsChar=0;MaxVarcharSize=32768";
        const std::u16string wide(text.begin(), text.end());
        require(SQLDriverConnectW(connection_,
                                  nullptr,
                                  reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(wide.data())),
                                  static_cast<SQLSMALLINT>(wide.size()),
                                  nullptr,
                                  0,
                                  nullptr,
                                  SQL_DRIVER_NOPROMPT),
                "no connection");
    }

    BareFetch(const BareFetch&) = delete;
    BareFetch& operator=(const BareFetch&) = delete;

    ~BareFetch() {
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }

    std::int64_t fetch_all() {
        SQLHANDLE statement = nullptr;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        SQLSetStmtAttrW(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(block), 0);
        SQLULEN fetched = 0;
        SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
        std::string sql = "SELECT * FROM righe";
        require(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS), "sql");
        for (int i = 0; i < columns; ++i) {
            SQLBindCol(statement,
                       static_cast<SQLUSMALLINT>(i + 1),
                       SQL_C_WCHAR,
                       data_[i].data(),
                       width * sizeof(char16_t),
                       lengths_[i].data());
        }
        std::int64_t count = 0;
        while (SQL_SUCCEEDED(SQLFetch(statement))) {
            count += static_cast<std::int64_t>(fetched);
        }
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        return count;
    }

private:
    static constexpr std::size_t block = 1024;
    static constexpr std::size_t width = 64;

    SQLHANDLE environment_ = nullptr;
    SQLHANDLE connection_ = nullptr;
    std::array<std::vector<char16_t>, columns> data_ = filled<char16_t>(block * width);
    std::array<std::vector<SQLLEN>, columns> lengths_ = filled<SQLLEN>(block);

    template <class Item>
    static std::array<std::vector<Item>, columns> filled(std::size_t size) {
        std::array<std::vector<Item>, columns> result;
        result.fill(std::vector<Item>(size));
        return result;
    }
};

void bare_fetch(benchmark::State& state) {
    make_table();
    BareFetch bare;
    for (auto _ : state) {
        if (bare.fetch_all() != rows) {
            state.SkipWithError("not all rows came");
        }
    }
    state.SetItemsProcessed(state.iterations() * rows);
}

/// A list without a screen, Italian settings.
class List {
public:
    explicit List(const std::string& source) {
        list.InitProperties();
        surface_.place();
        list.SetAutoAdd(false);
        list.SetConnect(connection_string());
        list.SetRecordsource(source);
        list.SetCols(columns);
        for (int column = 0; column < columns; ++column) {
            list.SetColDataField(column, fields[static_cast<std::size_t>(column)]);
        }
        list.SetColFormat(4, "dd/mm/yyyy");
        list.SetColFormat(6, "#,##0.00");
        list.SetColFormat(7, "#,##0.00");
    }

private:
    standard::ValueFormatter formatter_{standard::regional_settings("it-IT")};
    std::shared_ptr<platform::DataAccess> data_ = data_access();
    headless::HeadlessForm form_;
    headless::HeadlessControl& surface_ = form_.add_control();
    Constituents parts_ = surface_.constituents();

public:
    KarvoList list{parts_, {surface_, form_.application(), *data_, formatter_}};
};

void refresh(benchmark::State& state) {
    make_table();
    List loaded("righe");
    for (auto _ : state) {
        loaded.list.Refresh();
    }
    if (loaded.list.Rows() != rows) {
        state.SkipWithError("the list was not loaded");
    }
    state.SetItemsProcessed(state.iterations() * rows);
}

/// Kilobytes of a line of the kernel's account of this program.
std::int64_t status_kb(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) {
            return std::stoll(line.substr(name.size()));
        }
    }
    return 0;
}

void far_refresh(benchmark::State& state) {
    constexpr std::int64_t many = 5'000'000;
    List loaded(query(many));
    ::malloc_trim(0);
    const std::int64_t before = status_kb("VmRSS:");
    for (auto _ : state) {
        loaded.list.Refresh();
    }
    const std::int64_t peak = status_kb("VmHWM:") - before;
    ::malloc_trim(0);
    const std::int64_t held = status_kb("VmRSS:") - before;
    if (loaded.list.Rows() != many) {
        state.SkipWithError("the list was not loaded");
    }
    state.counters["list_MB"] = static_cast<double>(held) / 1024;
    state.counters["beyond_MB"] = static_cast<double>(peak - held) / 1024;
    state.SetItemsProcessed(state.iterations() * many);
}

} // namespace
} // namespace krv::bench

int main(int argc, char** argv) {
    using namespace krv;
    benchmark::Initialize(&argc, argv);
    if (const std::string why = testing::why_no_postgresql(); !why.empty()) {
        std::puts(("left out: " + why).c_str());
        return 0;
    }
    // The greatest memory of a program is never forgotten, so the large load is first.
    benchmark::RegisterBenchmark("far_refresh", bench::far_refresh)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->UseRealTime();
    for (int i = 0; i < 3; ++i) {
        benchmark::RegisterBenchmark("bare_fetch", bench::bare_fetch)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
        benchmark::RegisterBenchmark("refresh", bench::refresh)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    benchmark::RunSpecifiedBenchmarks();
    testing::end_servers();
}
