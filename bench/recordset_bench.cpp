// Reading every cell of a table. "bare" steps through the rows with SQLite alone and takes every
// column as text: what a program pays that lets the engine make the texts. "recordset" asks for
// every field by its name and takes the value in its own type.

#include "shop_file.h"

#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

namespace krv::bench {
namespace {

constexpr std::int64_t rows = 1'000'000;

void count_cells(benchmark::State& state, std::size_t columns) {
    state.SetItemsProcessed(state.iterations() * rows * static_cast<std::int64_t>(columns));
}

void bare(benchmark::State& state, int flags) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(shop_file(rows).c_str(), &db, SQLITE_OPEN_READONLY | flags, nullptr);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, "SELECT * FROM righe", -1, &statement, nullptr);
    const int columns = sqlite3_column_count(statement);
    for (auto _ : state) {
        std::size_t bytes = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int i = 0; i < columns; ++i) {
                benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
                bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, i));
            }
        }
        benchmark::DoNotOptimize(bytes);
        sqlite3_reset(statement);
    }
    count_cells(state, static_cast<std::size_t>(columns));
    sqlite3_finalize(statement);
    sqlite3_close(db);
}

void recordset(benchmark::State& state) {
    auto registry = std::make_shared<standard::ProviderRegistry>(
        standard::ProviderRegistry::Providers{providers::make_sqlite_provider(), nullptr, nullptr});
    standard::AdoDataAccess access(registry);
    auto connection = access.CreateConnection();
    connection->Open("Provider=SQLite;Data Source=" + shop_file(rows), "", "", -1);
    std::vector<std::string> names;
    for (auto _ : state) {
        auto records = access.CreateRecordset();
        records->Open("righe", connection, 2, 1, -1);
        names.clear();
        for (std::int32_t i = 0; i < records->Fields().Count(); ++i) {
            names.emplace_back(records->Fields().Item(i).Name());
        }
        for (; !records->Eof(); records->MoveNext()) {
            for (const std::string& name : names) {
                benchmark::DoNotOptimize(records->Fields().Item(name).Value());
            }
        }
    }
    count_cells(state, names.size());
}

BENCHMARK_CAPTURE(bare, as_opened_by_default, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bare, without_mutex, SQLITE_OPEN_NOMUTEX)->Unit(benchmark::kMillisecond);
BENCHMARK(recordset)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace krv::bench

BENCHMARK_MAIN();
