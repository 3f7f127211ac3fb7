// KarvoList by name, from any language and process.

#include "options.h"

#include "server/headless_form.h"
#include "server/line_channel.h"
#include "server/log.h"
#include "server/server.h"

#include "krv/standard/ado.h"

#ifdef KRV_HAS_JET
#include "krv/providers/jet.h"
#endif
#ifdef KRV_HAS_ODBC
#include "krv/providers/odbc.h"
#endif
#ifdef KRV_HAS_SQLITE
#include "krv/providers/sqlite.h"
#endif
#ifdef KRV_HAS_QT
#include "qt_main.h"
#endif

#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

namespace {

using namespace krv;

constexpr int failed = 1;
constexpr int wrong_usage = 2;

std::shared_ptr<platform::DataAccess> make_data_access() {
    standard::ProviderRegistry::Providers providers;
#ifdef KRV_HAS_SQLITE
    providers.sqlite = providers::make_sqlite_provider();
#endif
#ifdef KRV_HAS_JET
    providers.jet = providers::make_jet_provider();
#endif
#ifdef KRV_HAS_ODBC
    providers.odbc = providers::make_odbc_provider();
#endif
    return std::make_shared<standard::AdoDataAccess>(
        std::make_shared<const standard::ProviderRegistry>(std::move(providers)));
}

/// The standard output for messages alone: what anybody else prints there goes to the error output.
int take_standard_output() {
    const int output = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return output;
}

int serve_headless(server::Options options) {
    server::PollWaiter waiter(STDIN_FILENO);
    server::LineChannel channel(STDIN_FILENO, take_standard_output(), waiter);
    server::Server server(
        server::make_headless_form(), make_data_access(), std::move(options.region), channel);
    server.run();
    return 0;
}

int serve(server::Options options) {
    // A client that dies is noticed by the writing.
    std::signal(SIGPIPE, SIG_IGN);
    if (options.backend == server::Backend::headless) {
        return serve_headless(std::move(options));
    }
#ifdef KRV_HAS_QT
    if (!server::has_screen()) {
        server::log("--backend qt needs a screen, or QT_QPA_PLATFORM=offscreen");
        return wrong_usage;
    }
    return server::serve_qt(
        make_data_access(), std::move(options.region), STDIN_FILENO, take_standard_output());
#else
    server::log("built without Qt; there is only --backend headless");
    return wrong_usage;
#endif
}

} // namespace

int main(int argc, char** argv) {
    server::Options options;
    try {
        options =
            server::parse_options(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const server::UsageError& error) {
        server::log(error.what());
        std::cerr << '\n' << server::usage();
        return wrong_usage;
    }
    if (options.task == server::Task::print_help) {
        std::cout << server::usage();
        return 0;
    }
    if (options.task == server::Task::print_version) {
        std::cout << "krvlist-server " << KRV_VERSION << '\n';
        return 0;
    }
    try {
        return serve(std::move(options));
    } catch (const std::exception& error) {
        server::log(error.what());
        return failed;
    }
}
