#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace krv::testing {

/// A program that ends with this object, and with this process however that ends. Run by root, it
/// runs as `nobody`, for servers refuse root.
class ChildProcess {
public:
    /// \param arguments  the program's path first
    /// \param log        file that takes what it prints
    /// \param end_signal what ends it at once
    ChildProcess(const std::vector<std::string>& arguments,
                 const std::filesystem::path& log,
                 int end_signal);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    bool is_running();

    /// Sends the signal and waits for the end.
    void end(int signal);

    void send(int signal) const;

    /// Waits for the program's end. \return whether it went well
    bool succeeds();

private:
    pid_t pid_ = -1;
    int end_signal_;
};

/// Makes the folder usable by such programs.
void give_to_children(const std::filesystem::path& path);

/// A port of the loopback interface that nobody uses.
int free_port();

/// The first of the files that is there; empty when none is.
std::string first_existing(const std::vector<std::string>& paths);

/// Asks again and again. \return false when it was never true
template <class Condition>
bool comes_true(Condition condition, std::chrono::milliseconds within);

} // namespace krv::testing

#include <thread>

template <class Condition>
bool krv::testing::comes_true(Condition condition, std::chrono::milliseconds within) {
    const auto end = std::chrono::steady_clock::now() + within;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}
