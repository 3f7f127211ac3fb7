#include "providers/servers/child_process.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <stdexcept>

namespace krv::testing {

namespace {

constexpr uid_t nobody = 65534;

[[noreturn]] void
become(std::vector<char*> arguments, const char* folder, int log, int end_signal) {
    if (getuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) {
        _exit(126);
    }
    // Behind the change of the user, which takes it back.
    prctl(PR_SET_PDEATHSIG, end_signal);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, STDIN_FILENO);
    if (chdir(folder) != 0) {
        _exit(126);
    }
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C", 1);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments,
                           const std::filesystem::path& log,
                           int end_signal)
    : end_signal_(end_signal) {
    std::vector<char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    const std::string folder = log.parent_path().string();
    const int file = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    pid_ = fork();
    if (pid_ == 0) {
        become(pointers, folder.c_str(), file, end_signal);
    }
    close(file);
    if (pid_ < 0) {
        throw std::runtime_error("no process for " + arguments.front());
    }
}

ChildProcess::~ChildProcess() {
    end(end_signal_);
}

bool ChildProcess::is_running() {
    if (pid_ > 0 && waitpid(pid_, nullptr, WNOHANG) == pid_) {
        pid_ = -1;
    }
    return pid_ > 0;
}

void ChildProcess::end(int signal) {
    if (pid_ > 0) {
        kill(pid_, signal);
        waitpid(pid_, nullptr, 0);
        pid_ = -1;
    }
}

void ChildProcess::send(int signal) const {
    if (pid_ > 0) {
        kill(pid_, signal);
    }
}

bool ChildProcess::succeeds() {
    int status = -1;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return status == 0;
}

void give_to_children(const std::filesystem::path& path) {
    if (getuid() == 0 && chown(path.c_str(), nobody, nobody) != 0) {
        throw std::runtime_error("cannot give away " + path.string());
    }
}

int free_port() {
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* any = reinterpret_cast<sockaddr*>(&address);
    const bool is_bound = bind(listener, any, size) == 0 && getsockname(listener, any, &size) == 0;
    close(listener);
    if (!is_bound) {
        throw std::runtime_error("no free port");
    }
    return ntohs(address.sin_port);
}

std::string first_existing(const std::vector<std::string>& paths) {
    const auto found = std::find_if(paths.begin(), paths.end(), [](const std::string& path) {
        return std::filesystem::exists(path);
    });
    return found == paths.end() ? std::string() : *found;
}

} // namespace krv::testing
