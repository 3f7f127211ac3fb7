#include "sandbox.h"

#include "providers/jet/protocol.h"

#include <cerrno>
#include <initializer_list>
#include <memory>
#include <system_error>

#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace krv::jet_reader {

namespace {

namespace protocol = providers::jet::protocol;

constexpr rlim_t memory_limit = 1280ULL * 1024 * 1024;
constexpr rlim_t seconds_limit = 1800; // of computing, for as long as the connection lives

void check(int result, const char* what) {
    if (result < 0) {
        throw std::system_error(-result, std::generic_category(), what);
    }
}

void limit(int resource, rlim_t value) {
    const rlimit limits{value, value};
    if (setrlimit(static_cast<__rlimit_resource_t>(resource), &limits) != 0) {
        check(-errno, "setrlimit");
    }
}

void limit_resources(std::size_t mapped_size) {
#ifdef __SANITIZE_ADDRESS__
    static_cast<void>(mapped_size); // the sanitizer maps terabytes for itself
#else
    limit(RLIMIT_AS, memory_limit + mapped_size);
    limit(RLIMIT_NOFILE, 0);
#endif
    limit(RLIMIT_CPU, seconds_limit);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_NPROC, 0);
}

/// The system calls that may be made.
class Filter {
public:
    Filter()
        : context_(seccomp_init(SCMP_ACT_KILL_PROCESS)) {
        if (!context_) {
            check(-ENOMEM, "seccomp_init");
        }
    }

    void allow(std::initializer_list<int> calls) {
        for (const int call : calls) {
            check(seccomp_rule_add(context_.get(), SCMP_ACT_ALLOW, call, 0), "seccomp");
        }
    }

    void allow_if(int call, scmp_arg_cmp condition) {
        check(seccomp_rule_add(context_.get(), SCMP_ACT_ALLOW, call, 1, condition), "seccomp");
    }

    /// Fails, but does not end the process: what the C library tries and can do without.
    void fail(std::initializer_list<int> calls) {
        for (const int call : calls) {
            check(seccomp_rule_add(context_.get(), SCMP_ACT_ERRNO(EPERM), call, 0), "seccomp");
        }
    }

    void load() { check(seccomp_load(context_.get()), "seccomp_load"); }

private:
    struct Releaser {
        void operator()(void* context) const noexcept { seccomp_release(context); }
    };

    std::unique_ptr<void, Releaser> context_;
};

scmp_arg_cmp is_number(unsigned argument, scmp_datum_t value) {
    return {argument, SCMP_CMP_EQ, value, 0};
}

/// No memory that could be run.
scmp_arg_cmp is_not_executable() {
    constexpr unsigned protection_argument = 2;
    return {protection_argument, SCMP_CMP_MASKED_EQ, PROT_EXEC, 0};
}

void load_filter() {
    Filter filter;
    filter.allow({SCMP_SYS(brk),
                  SCMP_SYS(munmap),
                  SCMP_SYS(mremap),
                  SCMP_SYS(madvise),
                  SCMP_SYS(futex),
                  SCMP_SYS(exit),
                  SCMP_SYS(exit_group),
                  SCMP_SYS(rt_sigreturn),
                  SCMP_SYS(rt_sigprocmask),
                  SCMP_SYS(rt_sigaction),
                  SCMP_SYS(sigaltstack),
                  SCMP_SYS(getpid),
                  SCMP_SYS(gettid),
                  SCMP_SYS(clock_gettime),
                  SCMP_SYS(gettimeofday),
                  SCMP_SYS(time),
                  SCMP_SYS(getrandom),
                  SCMP_SYS(sched_yield),
                  SCMP_SYS(restart_syscall)});
    filter.allow_if(SCMP_SYS(mmap), is_not_executable());
    filter.allow_if(SCMP_SYS(mprotect), is_not_executable());
    filter.allow_if(SCMP_SYS(read), is_number(0, protocol::channel_descriptor));
    for (const int output :
         {protocol::channel_descriptor, STDOUT_FILENO, protocol::complaints_descriptor}) {
        filter.allow_if(SCMP_SYS(write), is_number(0, static_cast<scmp_datum_t>(output)));
    }
#ifdef __SANITIZE_ADDRESS__
    // The sanitizers find out by means of a pipe whether memory can be read.
    filter.allow({SCMP_SYS(pipe), SCMP_SYS(pipe2), SCMP_SYS(write), SCMP_SYS(close)});
#endif
    // How `abort` ends this process.
    filter.allow_if(SCMP_SYS(tgkill), is_number(0, static_cast<scmp_datum_t>(getpid())));
    filter.fail({SCMP_SYS(fstat), SCMP_SYS(newfstatat), SCMP_SYS(ioctl), SCMP_SYS(lseek)});
    filter.load();
}

} // namespace

void close_what_is_not_ours() {
    close_range(protocol::file_descriptor + 1, ~0U, 0);
}

void enter_sandbox(std::size_t mapped_size) {
    prctl(PR_SET_DUMPABLE, 0);
    limit_resources(mapped_size);
    load_filter();
}

} // namespace krv::jet_reader
