#include "providers/jet/reader_process.h"

#include "krv/standard/data_error.h"
#include "providers/jet/protocol.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace krv::providers::jet {

namespace {

[[noreturn]] void fail(const std::string& what, int error) {
    throw standard::DataError(standard::data_error_number::unspecified,
                              what + ": " + std::strerror(error) + ".",
                              layer,
                              error);
}

/// Out of the way of the numbers that the process is given its ends under.
Descriptor moved_up(const Descriptor& descriptor) {
    constexpr int lowest = 10;
    Descriptor moved(fcntl(descriptor.number(), F_DUPFD_CLOEXEC, lowest));
    if (moved.number() < 0) {
        fail("No descriptor is left for the reader of Jet files", errno);
    }
    return moved;
}

struct Pair {
    Descriptor ours;
    Descriptor theirs;
};

Pair make_channel() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        fail("There is no connection to the reader of Jet files", errno);
    }
    Pair pair{Descriptor(ends[0]), Descriptor(ends[1])};
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    return pair;
}

Pair make_pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        fail("There is no connection to the reader of Jet files", errno);
    }
    Pair pair{Descriptor(ends[0]), Descriptor(ends[1])};
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    return pair;
}

/// What the new process begins with, released at the end.
class SpawnPlan {
public:
    SpawnPlan() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }

    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    ~SpawnPlan() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    void give(const Descriptor& descriptor, int as) {
        posix_spawn_file_actions_adddup2(&actions_, descriptor.number(), as);
    }

    pid_t run(const std::string& program) const {
        std::array<char*, 2> arguments = {const_cast<char*>(program.c_str()), nullptr};
        std::array<char*, 1> environment = {nullptr};
        pid_t process = -1;
        const int error = posix_spawn(&process,
                                      program.c_str(),
                                      &actions_,
                                      &attributes_,
                                      arguments.data(),
                                      environment.data());
        if (error != 0) {
            fail("The reader of Jet files, \"" + program + "\", cannot be started", error);
        }
        return process;
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

} // namespace

ReaderProcess::ReaderProcess(const std::string& program, const Descriptor& file) {
    Pair channel = make_channel();
    Pair complaints = make_pipe();
    const Descriptor given_file = moved_up(file);
    const Descriptor given_channel = moved_up(channel.theirs);
    const Descriptor given_pipe = moved_up(complaints.theirs);
    SpawnPlan plan;
    plan.give(given_channel, protocol::channel_descriptor);
    plan.give(given_pipe, STDOUT_FILENO);
    plan.give(given_pipe, protocol::complaints_descriptor);
    plan.give(given_file, protocol::file_descriptor);
    process_ = plan.run(program);
    channel_ = std::move(channel.ours);
    complaints_ = std::move(complaints.ours);
}

int ReaderProcess::end() noexcept {
    channel_.reset();
    complaints_.reset();
    if (process_ < 0) {
        return -1;
    }
    kill(process_, SIGKILL);
    int status = -1;
    while (waitpid(process_, &status, 0) < 0) {
        if (errno != EINTR) {
            status = -1; // the program takes leave of its children by itself
            break;
        }
    }
    process_ = -1;
    return status;
}

} // namespace krv::providers::jet
