// Loading 200,000 rows of 10 columns of a Jet file. "reader" is what the reader's process does at the
// least, here inside this one: every value is decoded and thrown away. "cursor" takes the values over
// to this process and throws them away there, "list" loads them into a list, "query" is a list on a
// SELECT of the same rows. "list_by_reader" times a list and the reader one after the other, so that
// their ratio comes from the same minute.

#include "jet_file.h"
#include "jet_writer.h"
#include "table_reader.h"

#include "krv/control/karvo_list.h"
#include "krv/headless/headless_form.h"
#include "krv/providers/jet.h"
#include "krv/standard/ado.h"
#include "krv/standard/value_formatter.h"
#include "providers/jet/big_table.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace krv::bench {
namespace {

constexpr std::size_t row_count = 200'000;
constexpr const char* table = "Grande";

/// Made at the first use, gone with the program.
const std::string& file() {
    struct File {
        std::string path =
            (std::filesystem::temp_directory_path() / ("krv-jet-bench-" + std::to_string(getpid())))
                .string() +
            ".mdb";

        File() { std::ofstream(path, std::ios::binary) << providers::big_file(row_count); }

        ~File() { std::filesystem::remove(path); }
    };

    static const File made;
    return made.path;
}

void discard(standard::ProviderCursor& cursor) {
    const std::size_t columns = cursor.columns().size();
    while (cursor.step()) {
        for (std::size_t i = 0; i < columns; ++i) {
            benchmark::DoNotOptimize(cursor.value(i));
        }
    }
}

void read_in_this_process() {
    const int descriptor = open(file().c_str(), O_RDONLY);
    const jet_reader::MappedFile mapped(descriptor);
    close(descriptor);
    jet_reader::JetFile jet(mapped.bytes(), "");
    jet_reader::TableReader reader(jet, jet.table(table));
    discard(reader);
}

std::string connection_string() {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file();
}

class List {
public:
    explicit List(const std::string& source)
        : data_(std::make_shared<standard::ProviderRegistry>(standard::ProviderRegistry::Providers{
              nullptr, providers::make_jet_provider(), nullptr}))
        , surface_(form_.add_control())
        , list_(surface_.constituents(), {surface_, form_.application(), data_, formatter_}) {
        list_.InitProperties();
        surface_.place();
        list_.SetAutoAdd(false);
        list_.SetDataBaseName(file());
        list_.SetRecordsource(source);
        const auto columns = providers::big_columns();
        list_.SetCols(static_cast<std::int32_t>(columns.size()));
        for (std::size_t i = 0; i < columns.size(); ++i) {
            list_.SetColDataField(static_cast<std::int32_t>(i), columns[i].name);
        }
        list_.SetColFormat(4, "#,##0.00");
        list_.SetColFormat(6, "dd/mm/yyyy");
    }

    void load(benchmark::State& state) {
        list_.Refresh();
        if (list_.Rows() != static_cast<std::int32_t>(row_count)) {
            state.SkipWithError("the list is not whole");
        }
    }

private:
    standard::AdoDataAccess data_;
    standard::ValueFormatter formatter_{standard::regional_settings("it-IT")};
    headless::HeadlessForm form_;
    headless::HeadlessControl& surface_;
    KarvoList list_;
};

void count_rows(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(row_count));
}

void reader(benchmark::State& state) {
    file();
    for (auto _ : state) {
        read_in_this_process();
    }
    count_rows(state);
}

void cursor(benchmark::State& state) {
    const auto connection = providers::make_jet_provider()->open(
        standard::ConnectionString::parse(connection_string()));
    for (auto _ : state) {
        discard(*connection->open_table({table}));
    }
    count_rows(state);
}

void list(benchmark::State& state, const std::string& source) {
    List shown(source);
    for (auto _ : state) {
        shown.load(state);
    }
    count_rows(state);
}

void list_by_reader(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    List shown(table);
    Clock::duration reading{};
    Clock::duration loading{};
    for (auto _ : state) {
        const auto start = Clock::now();
        read_in_this_process();
        const auto middle = Clock::now();
        shown.load(state);
        loading += Clock::now() - middle;
        reading += middle - start;
    }
    state.counters["ratio"] =
        static_cast<double>(loading.count()) / static_cast<double>(reading.count());
}

BENCHMARK(reader)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(cursor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(list, table, table)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(list, query, "SELECT * FROM Grande ORDER BY Quantità")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(list_by_reader)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace krv::bench

BENCHMARK_MAIN();
