// Loading a table into a list, beside what others do with the same table. "bare loop" steps through
// the rows and reads every column as text: the limit of whoever lets the engine make the texts.

#include "shop_file.h"

#include "krv/control/karvo_list.h"
#include "krv/headless/headless_form.h"
#include "krv/providers/sqlite.h"
#include "krv/standard/ado.h"
#include "krv/standard/value_formatter.h"

#include <QApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQueryModel>
#include <QTableWidget>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace krv::bench {
namespace {

constexpr int columns = 10;

/// Bytes that the program holds from malloc.
std::size_t held_bytes() {
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// A prepared walk over the table of `rows` rows.
class Walk {
public:
    explicit Walk(std::int64_t rows) {
        sqlite3_open_v2(shop_file(rows).c_str(), &db_, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_prepare_v2(db_, "SELECT * FROM righe", -1, &statement_, nullptr);
    }

    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    ~Walk() {
        sqlite3_finalize(statement_);
        sqlite3_close(db_);
    }

    bool step() { return sqlite3_step(statement_) == SQLITE_ROW; }

    std::string_view text(int column) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
        return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
    }

private:
    sqlite3* db_ = nullptr;
    sqlite3_stmt* statement_ = nullptr;
};

void report(benchmark::State& state, std::size_t bytes) {
    const auto cells = static_cast<double>(state.range(0) * columns);
    if (bytes != 0) {
        state.counters["bytes/cell"] = static_cast<double>(bytes) / cells;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * columns);
}

void bare_loop(benchmark::State& state) {
    shop_file(state.range(0));
    for (auto _ : state) {
        std::size_t sum = 0;
        Walk walk(state.range(0));
        while (walk.step()) {
            for (int column = 0; column < columns; ++column) {
                sum += walk.text(column).size();
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    report(state, 0);
}

void vectors_of_strings(benchmark::State& state) {
    shop_file(state.range(0));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::size_t before = held_bytes();
        std::vector<std::vector<std::string>> list;
        Walk walk(state.range(0));
        while (walk.step()) {
            auto& row = list.emplace_back();
            row.reserve(columns);
            for (int column = 0; column < columns; ++column) {
                row.emplace_back(walk.text(column));
            }
        }
        bytes = held_bytes() - before;
        state.PauseTiming();
        list = {};
        state.ResumeTiming();
    }
    report(state, bytes);
}

void refresh(benchmark::State& state) {
    standard::AdoDataAccess data(
        std::make_shared<standard::ProviderRegistry>(standard::ProviderRegistry::Providers{
            providers::make_sqlite_provider(), nullptr, nullptr}));
    const standard::ValueFormatter formatter(standard::regional_settings("it-IT"));
    headless::HeadlessForm form;
    headless::HeadlessControl& surface = form.add_control();
    const Constituents parts = surface.constituents();
    KarvoList list(parts, {surface, form.application(), data, formatter});
    list.InitProperties();
    surface.place();
    list.SetAutoAdd(false);
    list.SetDataBaseName(shop_file(state.range(0)));
    list.SetRecordsource("righe");
    const std::array fields = {"id",
                               "codice",
                               "cliente",
                               "citta",
                               "data",
                               "quantita",
                               "prezzo",
                               "totale",
                               "peso",
                               "stato"};
    list.SetCols(columns);
    for (int column = 0; column < columns; ++column) {
        list.SetColDataField(column, fields[static_cast<std::size_t>(column)]);
    }
    list.SetColFormat(4, "dd/mm/yyyy");
    list.SetColFormat(6, "#,##0.00");
    list.SetColFormat(7, "#,##0.00");
    std::size_t bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list.Svuota(true);
        ::malloc_trim(0);
        const std::size_t before = held_bytes();
        state.ResumeTiming();
        list.Refresh();
        bytes = held_bytes() - before;
    }
    if (list.Rows() != state.range(0)) {
        state.SkipWithError("the list was not loaded");
    }
    report(state, bytes);
}

void query_model(benchmark::State& state) {
    auto database = QSqlDatabase::addDatabase("QSQLITE", "bench");
    database.setDatabaseName(QString::fromStdString(shop_file(state.range(0))));
    if (!database.open()) {
        state.SkipWithError("the toolkit's SQLite driver is not there");
        return;
    }
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::size_t before = held_bytes();
        auto model = std::make_unique<QSqlQueryModel>();
        model->setQuery("SELECT * FROM righe", database);
        while (model->canFetchMore()) {
            model->fetchMore();
        }
        bytes = held_bytes() - before;
        state.PauseTiming();
        model.reset();
        state.ResumeTiming();
    }
    database.close();
    report(state, bytes);
}

void table_widget(benchmark::State& state) {
    shop_file(state.range(0));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::size_t before = held_bytes();
        auto table = std::make_unique<QTableWidget>(static_cast<int>(state.range(0)), columns);
        Walk walk(state.range(0));
        for (int row = 0; walk.step(); ++row) {
            for (int column = 0; column < columns; ++column) {
                const auto text = walk.text(column);
                table->setItem(row,
                               column,
                               new QTableWidgetItem(QString::fromUtf8(
                                   text.data(), static_cast<qsizetype>(text.size()))));
            }
        }
        bytes = held_bytes() - before;
        state.PauseTiming();
        table.reset();
        state.ResumeTiming();
    }
    report(state, bytes);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(bare_loop)->Apply(sizes);
BENCHMARK(refresh)->Apply(sizes);
BENCHMARK(vectors_of_strings)->Apply(sizes);
BENCHMARK(query_model)->Apply(sizes);
BENCHMARK(table_widget)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace krv::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
