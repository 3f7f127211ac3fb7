#include "krv/standard/flex_grid.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

// The grid beside containers that a program would otherwise keep a list in: a vector and a deque of
// rows, each a vector of strings. All hold the same texts, about nine bytes a cell.

namespace {

using krv::standard::FlexGrid;
using krv::standard::MessageQueue;

constexpr std::int32_t data_rows = 1'000'000;
constexpr std::int32_t cols = 10;

// Texts of 3 to 15 characters, nine on average, cheap to make.
class Texts {
public:
    std::string_view next() {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return std::string_view("Montepulciano d'Abruzzo, annata")
            .substr(state_ >> 60, 3 + (state_ >> 40) % 13);
    }

private:
    std::uint64_t state_ = 42;
};

std::string_view number_text(std::int32_t number, char (&buffer)[16]) {
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
}

// The grid as a list control sees it: row 0 holds the captions.
class GridPeer {
public:
    static constexpr const char* name = "grid";

    GridPeer()
        : grid_("Grid", queue_) {
        grid_.SetRows(1);
        grid_.SetCols(cols);
    }

    void append() { grid_.AddItem(""); }

    void set(std::int32_t row, std::int32_t col, std::string_view text) {
        grid_.SetTextMatrix(row + 1, col, text);
    }

    std::string_view get(std::int32_t row, std::int32_t col) const {
        return grid_.TextMatrix(row + 1, col);
    }

    void insert(std::int32_t row) { grid_.AddItem("1\tMario\tRossi\tVia Roma 12", row + 1); }

    void remove(std::int32_t row) { grid_.RemoveItem(row + 1); }

    std::size_t memory_bytes() const { return grid_.memory_bytes(); }

private:
    MessageQueue queue_;
    FlexGrid grid_;
};

template <class Rows, class Name>
class RowsPeer {
public:
    static constexpr const char* name = Name::text;

    void append() { rows_.emplace_back(cols); }

    void set(std::int32_t row, std::int32_t col, std::string_view text) {
        rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)] = text;
    }

    std::string_view get(std::int32_t row, std::int32_t col) const {
        return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
    }

    void insert(std::int32_t row) {
        rows_.insert(rows_.begin() + row,
                     {"1", "Mario", "Rossi", "Via Roma 12", "", "", "", "", "", ""});
    }

    void remove(std::int32_t row) { rows_.erase(rows_.begin() + row); }

    std::size_t memory_bytes() const {
        std::size_t bytes = rows_.size() * sizeof(std::vector<std::string>);
        for (const auto& row : rows_) {
            bytes += row.capacity() * sizeof(std::string);
            for (const std::string& text : row) {
                bytes += text.capacity() > 15 ? text.capacity() + 1 : 0;
            }
        }
        return bytes;
    }

private:
    Rows rows_;
};

struct VectorName {
    static constexpr const char* text = "vector";
};

struct DequeName {
    static constexpr const char* text = "deque";
};

using VectorPeer = RowsPeer<std::vector<std::vector<std::string>>, VectorName>;
using DequePeer = RowsPeer<std::deque<std::vector<std::string>>, DequeName>;

template <class Peer>
void fill(Peer& peer) {
    Texts texts;
    for (std::int32_t row = 0; row < data_rows; ++row) {
        peer.append();
        for (std::int32_t col = 0; col < cols; ++col) {
            peer.set(row, col, texts.next());
        }
    }
}

template <class Peer>
Peer& loaded() {
    static const std::unique_ptr<Peer> peer = [] {
        auto made = std::make_unique<Peer>();
        fill(*made);
        return made;
    }();
    return *peer;
}

class Stopwatch {
public:
    double seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Seconds per item of each work and peer.
std::map<std::string, double>& times() {
    static std::map<std::string, double> times;
    return times;
}

// Times one round of work; the grid's time is also given as a multiple of the peers', which run
// first in the same program.
template <class Peer>
class Round {
public:
    Round(benchmark::State& state, const std::string& work, std::int64_t items)
        : state_(state)
        , work_(work)
        , items_(items) {}

    template <class Act>
    void run(Act act) {
        const Stopwatch watch;
        act();
        const double seconds = watch.seconds();
        state_.SetIterationTime(seconds);
        seconds_ += seconds;
    }

    void report() {
        const double per_item = seconds_ / static_cast<double>(state_.iterations() * items_);
        times()[work_ + Peer::name] = per_item;
        state_.counters["ns_per_item"] = per_item * 1e9;
        for (const char* peer : {"vector", "deque"}) {
            const auto found = times().find(work_ + peer);
            if (Peer::name == std::string("grid") && found != times().end()) {
                state_.counters[std::string("of_") + peer] = per_item / found->second;
            }
        }
    }

private:
    benchmark::State& state_;
    std::string work_;
    std::int64_t items_;
    double seconds_ = 0;
};

template <class Peer>
void load_a_million_rows(benchmark::State& state) {
    Round<Peer> round(state, "load", std::int64_t{data_rows} * cols);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const auto peer = std::make_unique<Peer>();
        round.run([&] { fill(*peer); });
        bytes = peer->memory_bytes();
    }
    round.report();
    state.counters["bytes_per_cell"] = static_cast<double>(bytes) / data_rows / cols;
}

template <class Peer>
void renumber_a_column(benchmark::State& state) {
    Round<Peer> round(state, "renumber", data_rows);
    const auto peer = std::make_unique<Peer>();
    fill(*peer);
    char buffer[16];
    std::int32_t first = 0;
    const auto number_all = [&] {
        ++first;
        for (std::int32_t row = 0; row < data_rows; ++row) {
            peer->set(row, 0, number_text(first + row, buffer));
        }
    };
    number_all();
    for (auto _ : state) {
        round.run(number_all);
    }
    round.report();
    state.counters["bytes_per_cell"] = static_cast<double>(peer->memory_bytes()) / data_rows / cols;
}

template <class Peer>
void read_in_order(benchmark::State& state) {
    Round<Peer> round(state, "read", std::int64_t{data_rows} * cols);
    const Peer& peer = loaded<Peer>();
    for (auto _ : state) {
        round.run([&] {
            std::size_t bytes = 0;
            for (std::int32_t row = 0; row < data_rows; ++row) {
                for (std::int32_t col = 0; col < cols; ++col) {
                    bytes += peer.get(row, col).size();
                }
            }
            benchmark::DoNotOptimize(bytes);
        });
    }
    round.report();
}

template <class Peer>
void read_a_screen_anywhere(benchmark::State& state) {
    constexpr std::int32_t screen_rows = 40;
    Round<Peer> round(state, "screen", std::int64_t{screen_rows} * cols);
    const Peer& peer = loaded<Peer>();
    std::mt19937 random(7);
    for (auto _ : state) {
        round.run([&] {
            const auto top = static_cast<std::int32_t>(random() % (data_rows - screen_rows));
            for (std::int32_t row = top; row < top + screen_rows; ++row) {
                for (std::int32_t col = 0; col < cols; ++col) {
                    benchmark::DoNotOptimize(peer.get(row, col));
                }
            }
        });
    }
    round.report();
}

template <class Peer>
void insert_and_remove_anywhere(benchmark::State& state) {
    const std::int32_t times = static_cast<std::int32_t>(state.range(0));
    Round<Peer> round(state, "anywhere", std::int64_t{times} * 2);
    Peer& peer = loaded<Peer>();
    std::mt19937 random(7);
    for (auto _ : state) {
        round.run([&] {
            for (std::int32_t time = 0; time < times; ++time) {
                peer.insert(static_cast<std::int32_t>(random() % data_rows));
                peer.remove(static_cast<std::int32_t>(random() % data_rows));
            }
        });
    }
    round.report();
}

template <class Peer>
void insert_and_remove_at_the_top(benchmark::State& state) {
    const std::int32_t times = static_cast<std::int32_t>(state.range(0));
    Round<Peer> round(state, "top", std::int64_t{times} * 2);
    Peer& peer = loaded<Peer>();
    for (auto _ : state) {
        round.run([&] {
            for (std::int32_t time = 0; time < times; ++time) {
                peer.insert(0);
                peer.remove(0);
            }
        });
    }
    round.report();
}

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): benchmarks are registered by macros
#define KRV_BESIDE_PEERS(work, ...)                                                                \
    BENCHMARK(work<VectorPeer>)->UseManualTime()->Unit(benchmark::kMillisecond) __VA_ARGS__;       \
    BENCHMARK(work<DequePeer>)->UseManualTime()->Unit(benchmark::kMillisecond) __VA_ARGS__;        \
    BENCHMARK(work<GridPeer>)->UseManualTime()->Unit(benchmark::kMillisecond) __VA_ARGS__

KRV_BESIDE_PEERS(load_a_million_rows, ->Iterations(3));
KRV_BESIDE_PEERS(renumber_a_column, ->Iterations(8));
KRV_BESIDE_PEERS(read_in_order, ->Iterations(5));
KRV_BESIDE_PEERS(read_a_screen_anywhere, ->Iterations(2000));
KRV_BESIDE_PEERS(insert_and_remove_at_the_top, ->Arg(20)->Iterations(5));
KRV_BESIDE_PEERS(insert_and_remove_anywhere, ->Arg(20)->Iterations(3));
BENCHMARK(insert_and_remove_anywhere<GridPeer>)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Arg(200'000)
    ->Iterations(3);

// A font is set row by row: the heights of a million rows end as one run.
void set_every_row_height(benchmark::State& state) {
    MessageQueue queue;
    FlexGrid grid("Grid", queue);
    grid.SetRows(data_rows);
    std::int32_t height = 300;
    for (auto _ : state) {
        ++height;
        for (std::int32_t row = 0; row < data_rows; ++row) {
            grid.SetRowHeight(row, height);
        }
    }
    state.SetItemsProcessed(state.iterations() * data_rows);
}

BENCHMARK(set_every_row_height)->Unit(benchmark::kMillisecond)->Iterations(3);

void make_two_thousand_million_rows(benchmark::State& state) {
    MessageQueue queue;
    FlexGrid grid("Grid", queue);
    for (auto _ : state) {
        grid.SetRows(2'000'000'000);
        grid.SetTextMatrix(1'234'567'890, 1, "one of them");
        benchmark::DoNotOptimize(grid.memory_bytes());
        grid.SetRows(1);
    }
}

BENCHMARK(make_two_thousand_million_rows);

} // namespace

BENCHMARK_MAIN();
