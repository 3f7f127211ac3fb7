// What a host pays for the control's interface by name: one request to the server through pipes, and
// one late-bound access in process. Medians count: `--benchmark_repetitions=9`.

#include "krv/control/automation.h"
#include "krv/control/karvo_list.h"
#include "krv/headless/headless_form.h"
#include "krv/platform/data_access.h"
#include "krv/standard/ado.h"
#include "krv/standard/value_formatter.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace krv;
using platform::Value;
using platform::ValueView;

/// The server without a screen, with the control "L1".
class ServerProcess {
public:
    ServerProcess() {
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
            std::abort();
        }
        id_ = fork();
        if (id_ == 0) {
            dup2(input[0], STDIN_FILENO);
            dup2(output[1], STDOUT_FILENO);
            execl(KRV_SERVER, KRV_SERVER, "--region", "it-IT", nullptr);
            _exit(127);
        }
        close(input[0]);
        close(output[1]);
        to_ = input[1];
        from_ = output[0];
        ask(R"({"jsonrpc":"2.0","id":1,"method":"control.new","params":{"id":"L1"}})");
    }

    ~ServerProcess() {
        close(to_);
        waitpid(id_, nullptr, 0);
        close(from_);
    }

    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    /// Sends a request and reads up to the line that answers it; notifications may come first.
    std::string ask(std::string_view request) {
        const std::string line = std::string(request) + '\n';
        if (write(to_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
            std::abort();
        }
        for (;;) {
            const std::string answer = read_line();
            if (answer.find("\"method\"") == std::string::npos) {
                return answer;
            }
        }
    }

private:
    std::string read_line() {
        std::size_t end = 0;
        while ((end = buffer_.find('\n')) == std::string::npos) {
            char chunk[4096];
            const ssize_t count = read(from_, chunk, sizeof chunk);
            if (count <= 0) {
                std::abort();
            }
            buffer_.append(chunk, static_cast<std::size_t>(count));
        }
        std::string line = buffer_.substr(0, end);
        buffer_.erase(0, end + 1);
        return line;
    }

    pid_t id_ = -1;
    int to_ = -1;
    int from_ = -1;
    std::string buffer_;
};

void ask_again_and_again(benchmark::State& state, std::string_view request) {
    ServerProcess server;
    if (server.ask(request).find("\"result\"") == std::string::npos) {
        state.SkipWithError("the server refuses");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(server.ask(request));
    }
}

void get_through_the_server(benchmark::State& state) {
    ask_again_and_again(state,
                        R"({"jsonrpc":"2.0","id":1,"method":"get",)"
                        R"("params":{"id":"L1","name":"Cols","args":[]}})");
}

void put_through_the_server(benchmark::State& state) {
    ask_again_and_again(state,
                        R"({"jsonrpc":"2.0","id":1,"method":"put",)"
                        R"("params":{"id":"L1","name":"Caption","args":[0],"value":"Nome"}})");
}

/// A newly placed control in this process.
class Placed {
public:
    Placed()
        : surface_(form_.add_control())
        , parts_(surface_.constituents())
        , list(parts_, Surroundings{surface_, form_.application(), data_, formatter_}) {
        list.InitProperties();
        surface_.place();
    }

private:
    standard::ValueFormatter formatter_{standard::regional_settings("it-IT")};
    standard::AdoDataAccess data_{std::make_shared<const standard::ProviderRegistry>()};
    headless::HeadlessForm form_;
    headless::HeadlessControl& surface_;
    Constituents parts_;

public:
    KarvoList list;
};

void late_bound_get(benchmark::State& state) {
    const Placed placed;
    for (auto _ : state) {
        benchmark::DoNotOptimize(automation::get(placed.list, "AutoStartInputOnClick"));
    }
}

void late_bound_put(benchmark::State& state) {
    Placed placed;
    const Value column{ValueView::long_integer(0)};
    const Value width{ValueView::long_integer(1200)};
    for (auto _ : state) {
        automation::put(placed.list, "ColWidth", {&column, 1}, width);
    }
}

void late_bound_call(benchmark::State& state) {
    Placed placed;
    for (auto _ : state) {
        Value function{ValueView::long_integer(0)};
        benchmark::DoNotOptimize(
            automation::call(placed.list, "EvidenziaFunzione", {&function, 1}));
    }
}

} // namespace

BENCHMARK(get_through_the_server)->UseRealTime();
BENCHMARK(put_through_the_server)->UseRealTime();
BENCHMARK(late_bound_get);
BENCHMARK(late_bound_put);
BENCHMARK(late_bound_call);

BENCHMARK_MAIN();
