#pragma once

#include "providers/servers/child_process.h"
#include "support/temporary_folder.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace krv::testing {

/// What must occur nowhere: the password of every server of the tests.
inline const std::string canary_password = "zq7Kanarie;w\"d{}=x";

/// A database server of a test program's own: on loopback, in a temporary folder, as an ordinary
/// user.
class DatabaseServer {
public:
    virtual ~DatabaseServer() = default;

    /// For the list and its friends, with the password.
    std::string connection_string() const { return connection_string(canary_password); }

    virtual std::string connection_string(const std::string& password) const = 0;

    /// Ends it as a lost machine would.
    void kill() { process_.reset(); }

    /// Starts it and waits until it answers.
    void start();

    /// Stops and goes on with all that it does.
    void send(int signal) const { process_->send(signal); }

    const std::filesystem::path& folder() const { return folder_.path(); }

    int port() const { return port_; }

protected:
    virtual std::unique_ptr<ChildProcess> launch() = 0;

    /// What it writes into its log when it can be used.
    virtual std::string ready_text() const = 0;

    TemporaryFolder folder_;
    int port_ = free_port();

private:
    std::size_t times_ready() const;

    std::unique_ptr<ChildProcess> process_;
};

/// Null where PostgreSQL or its driver is not installed; started when first asked for, once a
/// program.
DatabaseServer* postgresql();
std::string why_no_postgresql();

/// The same of MariaDB.
DatabaseServer* mariadb();
std::string why_no_mariadb();

/// Path of a driver's library; empty when it is not installed.
std::string driver_library(const std::string& file);

/// Those that have been asked for.
std::vector<const DatabaseServer*> running_servers();

/// Ends the servers.
void end_servers();

} // namespace krv::testing
