// The servers' passwords must not leave connection strings: all that the program prints is held
// back and searched before it is shown.

#include "providers/servers/database_server.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

using krv::testing::canary_password;

/// What is printed goes to a file while this lives.
class HeldOutput {
public:
    HeldOutput() {
        file_ = open(folder_.file("output").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        for (int i = 0; i < 2; ++i) {
            kept_[i] = dup(i + 1);
            dup2(file_, i + 1);
        }
    }

    HeldOutput(const HeldOutput&) = delete;
    HeldOutput& operator=(const HeldOutput&) = delete;

    ~HeldOutput() { close(file_); }

    std::string end() {
        std::cout.flush();
        std::cerr.flush();
        std::fflush(nullptr);
        for (int i = 0; i < 2; ++i) {
            dup2(kept_[i], i + 1);
        }
        return krv::testing::read_file(folder_.file("output"));
    }

private:
    krv::testing::TemporaryFolder folder_;
    int file_ = -1;
    int kept_[2] = {-1, -1};
};

bool holds_password(const std::string& text) {
    // Its part before the first character that anybody might quote.
    return text.find(canary_password.substr(0, canary_password.find(';'))) != std::string::npos;
}

/// Logs of servers and drivers, and the arguments of every program that runs.
std::vector<std::filesystem::path> places_of_secrets() {
    std::vector<std::filesystem::path> places;
    for (const auto* server : krv::testing::running_servers()) {
        for (const auto& entry : std::filesystem::directory_iterator(server->folder())) {
            if (entry.path().extension() == ".log") {
                places.push_back(entry.path());
            }
        }
    }
    const auto temporary = std::filesystem::temp_directory_path();
    for (const auto& entry : std::filesystem::directory_iterator(temporary)) {
        const std::string name = entry.path().filename().string();
        if (name.find("odbc") != std::string::npos && entry.is_regular_file()) {
            places.push_back(entry.path()); // psqlodbc_*.log, mylog_*.log, sql.log and the like
        }
    }
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        places.push_back(entry.path() / "cmdline");
    }
    return places;
}

/// \return whether the password was found nowhere
bool is_kept(const std::string& printed) {
    bool kept = true;
    if (holds_password(printed)) {
        std::cout << "[  FAILED  ] a password was printed\n";
        kept = false;
    }
    for (const auto& place : places_of_secrets()) {
        if (holds_password(krv::testing::read_file(place.string()))) {
            std::cout << "[  FAILED  ] a password stands in " << place << '\n';
            kept = false;
        }
    }
    return kept;
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    HeldOutput held;
    int result = RUN_ALL_TESTS();
    const std::string printed = held.end();
    std::cout << printed;
    if (!is_kept(printed)) {
        result = 1;
    }
    krv::testing::end_servers();
    return result;
}
