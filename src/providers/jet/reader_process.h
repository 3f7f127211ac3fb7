#pragma once

#include "providers/jet/descriptor.h"

#include <string>

#include <sys/types.h>

namespace krv::providers::jet {

inline constexpr const char* layer = "Jet";

/// A running reader: the process and our ends of its descriptors. Ends it when destroyed.
class ReaderProcess {
public:
    /// Starts the program with no arguments, no environment and nothing open but its ends and the
    /// database file.
    /// \throws DataError -2147467259 when it cannot be started
    ReaderProcess(const std::string& program, const Descriptor& file);
    ReaderProcess(const ReaderProcess&) = delete;
    ReaderProcess& operator=(const ReaderProcess&) = delete;

    ~ReaderProcess() { end(); }

    /// Requests and answers; does not block. -1 once the process has been ended.
    int channel() const noexcept { return channel_.number(); }

    /// What the process prints; does not block.
    int complaints() const noexcept { return complaints_.number(); }

    /// Kills the process when it still runs and takes leave of it, so that nothing is left of it.
    /// \return how it ended, as the system tells it (`waitpid`); -1 when that is not known
    int end() noexcept;

private:
    Descriptor channel_;
    Descriptor complaints_;
    pid_t process_ = -1;
};

} // namespace krv::providers::jet
