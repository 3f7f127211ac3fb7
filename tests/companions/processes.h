#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <functional>
#include <stdexcept>

namespace krv::testing {

/// Runs something in a process of its own, which ends with it.
/// \return the process's status as `waitpid` gives it; 0 when all went well
inline int status_in_another_process(const std::function<void()>& act) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            act();
        } catch (const std::exception&) {
            _exit(1);
        }
        _exit(0);
    }
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        throw std::runtime_error("no other process");
    }
    return status;
}

inline void in_another_process(const std::function<void()>& act) {
    if (status_in_another_process(act) != 0) {
        throw std::runtime_error("the other process failed");
    }
}

/// A process that has done something and lives on until this goes.
class HoldingProcess {
public:
    explicit HoldingProcess(const std::function<void(const std::function<void()>& hold)>& act) {
        int ready[2];
        int end[2];
        if (pipe(ready) != 0 || pipe(end) != 0) {
            throw std::runtime_error("no pipe");
        }
        child_ = fork();
        if (child_ == 0) {
            close(end[1]);
            run(act, ready[1], end[0]);
        }
        close(ready[1]);
        close(end[0]);
        end_ = end[1];
        char byte = 0;
        const bool is_ready = read(ready[0], &byte, 1) == 1;
        close(ready[0]);
        if (!is_ready) {
            throw std::runtime_error("the other process failed");
        }
    }

    HoldingProcess(const HoldingProcess&) = delete;
    HoldingProcess& operator=(const HoldingProcess&) = delete;

    ~HoldingProcess() {
        close(end_);
        waitpid(child_, nullptr, 0);
    }

private:
    [[noreturn]] static void
    run(const std::function<void(const std::function<void()>&)>& act, int ready, int end) {
        try {
            act([&] {
                char byte = 0;
                if (write(ready, &byte, 1) == 1 && read(end, &byte, 1) < 0) {
                    _exit(1);
                }
            });
        } catch (const std::exception&) {
            _exit(1);
        }
        _exit(0);
    }

    pid_t child_ = -1;
    int end_ = -1;
};

} // namespace krv::testing
