#include "providers/servers/database_server.h"

#include <csignal>
#include <stdexcept>

namespace krv::testing {

namespace {

std::string newest_postgresql(const std::string& program) {
    std::vector<std::string> paths;
    for (int version = 20; version >= 11; --version) {
        paths.push_back("/usr/lib/postgresql/" + std::to_string(version) + "/bin/" + program);
    }
    paths.push_back("/usr/local/pgsql/bin/" + program);
    paths.push_back("/usr/bin/" + program);
    return first_existing(paths);
}

/// A value in braces, as ODBC wants it.
std::string braced(const std::string& value) {
    std::string result = "{";
    for (const char c : value) {
        result.append(c == '}' ? 2 : 1, c);
    }
    return result + '}';
}

void require_end(const std::vector<std::string>& arguments, const std::filesystem::path& log) {
    if (!ChildProcess(arguments, log, SIGKILL).succeeds()) {
        throw std::runtime_error(arguments.front() + " failed:\n" + read_file(log.string()));
    }
}

class Postgresql final : public DatabaseServer {
public:
    Postgresql() {
        give_to_children(folder());
        const std::string secret = folder_.write("secret", canary_password);
        give_to_children(secret);
        require_end({newest_postgresql("initdb"),
                     "--pgdata=" + data(),
                     "--username=karvo",
                     "--pwfile=" + secret,
                     "--auth=scram-sha-256",
                     "--encoding=UTF8",
                     "--locale=C.UTF-8",
                     "--no-sync"},
                    folder() / "initdb.log");
        std::filesystem::remove(secret);
    }

    std::string connection_string(const std::string& password) const override {
        return "Driver=" + driver_library("psqlodbcw.so") +
               ";Server=127.0.0.1;Port=" + std::to_string(port_) +
               ";Database=postgres;UID=karvo;PWD=" + braced(password);
    }

protected:
    std::unique_ptr<ChildProcess> launch() override {
        const std::vector<std::string> arguments = {newest_postgresql("postgres"),
                                                    "-D",
                                                    data(),
                                                    "-p",
                                                    std::to_string(port_),
                                                    "-c",
                                                    "listen_addresses=127.0.0.1",
                                                    "-c",
                                                    "unix_socket_directories=" + folder().string(),
                                                    "-c",
                                                    "fsync=off",
                                                    "-c",
                                                    "log_statement=all"};
        return std::make_unique<ChildProcess>(arguments, folder() / "server.log", SIGQUIT);
    }

    std::string ready_text() const override { return "ready to accept connections"; }

private:
    std::string data() const { return (folder() / "data").string(); }
};

class Mariadb final : public DatabaseServer {
public:
    Mariadb() {
        give_to_children(folder());
        require_end({first_existing({"/usr/bin/mariadb-install-db"}),
                     "--no-defaults",
                     "--datadir=" + data(),
                     "--auth-root-authentication-method=normal",
                     "--skip-test-db"},
                    folder() / "install.log");
        std::string quoted;
        for (const char c : canary_password) {
            quoted.append(c == '\'' ? 2 : 1, c);
        }
        give_to_children(
            folder_.write("users.sql",
                          "CREATE DATABASE IF NOT EXISTS karvo CHARACTER SET utf8mb4;\n"
                          "CREATE USER IF NOT EXISTS karvo@localhost IDENTIFIED BY '" +
                              quoted +
                              "';\n"
                              "GRANT ALL ON *.* TO karvo@localhost;\n"));
    }

    std::string connection_string(const std::string& password) const override {
        return "Driver=" + driver_library("libmaodbc.so") +
               ";Server=127.0.0.1;Port=" + std::to_string(port_) +
               ";Database=karvo;UID=karvo;PWD=" + braced(password);
    }

protected:
    std::unique_ptr<ChildProcess> launch() override {
        const std::vector<std::string> arguments = {
            first_existing({"/usr/sbin/mariadbd", "/usr/bin/mariadbd"}),
            "--no-defaults",
            "--datadir=" + data(),
            "--socket=" + (folder() / "socket").string(),
            "--pid-file=" + (folder() / "pid").string(),
            "--port=" + std::to_string(port_),
            "--bind-address=127.0.0.1",
            "--skip-log-bin",
            "--sync-frm=OFF",
            "--innodb-flush-log-at-trx-commit=0",
            "--innodb-buffer-pool-size=32M",
            "--init-file=" + (folder() / "users.sql").string()};
        return std::make_unique<ChildProcess>(arguments, folder() / "server.log", SIGKILL);
    }

    std::string ready_text() const override { return "ready for connections"; }

private:
    std::string data() const { return (folder() / "data").string(); }
};

std::unique_ptr<DatabaseServer>& postgresql_slot() {
    static std::unique_ptr<DatabaseServer> server;
    return server;
}

std::unique_ptr<DatabaseServer>& mariadb_slot() {
    static std::unique_ptr<DatabaseServer> server;
    return server;
}

template <class Server>
DatabaseServer* started(std::unique_ptr<DatabaseServer>& slot) {
    if (!slot) {
        slot = std::make_unique<Server>();
        slot->start();
    }
    return slot.get();
}

} // namespace

void DatabaseServer::start() {
    const std::size_t before = times_ready();
    process_ = launch();
    const bool is_there =
        comes_true([&] { return times_ready() > before || !process_->is_running(); },
                   std::chrono::seconds(30));
    if (!is_there || !process_->is_running()) {
        throw std::runtime_error("a server does not start:\n" +
                                 read_file((folder() / "server.log").string()));
    }
}

std::size_t DatabaseServer::times_ready() const {
    const std::string log = read_file((folder() / "server.log").string());
    const std::string text = ready_text();
    std::size_t count = 0;
    for (std::size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) {
        ++count;
    }
    return count;
}

std::string driver_library(const std::string& file) {
    return first_existing({"/usr/lib/x86_64-linux-gnu/odbc/" + file,
                           "/usr/lib/aarch64-linux-gnu/odbc/" + file,
                           "/usr/lib64/" + file,
                           "/usr/lib/odbc/" + file,
                           "/usr/local/lib/" + file});
}

std::string why_no_postgresql() {
    if (newest_postgresql("initdb").empty()) {
        return "PostgreSQL is not installed (package postgresql)";
    }
    return driver_library("psqlodbcw.so").empty()
               ? "its ODBC driver is not installed (package odbc-postgresql)"
               : "";
}

std::string why_no_mariadb() {
    if (first_existing({"/usr/sbin/mariadbd", "/usr/bin/mariadbd"}).empty()) {
        return "MariaDB is not installed (package mariadb-server)";
    }
    return driver_library("libmaodbc.so").empty()
               ? "its ODBC driver is not installed (package odbc-mariadb)"
               : "";
}

DatabaseServer* postgresql() {
    return why_no_postgresql().empty() ? started<Postgresql>(postgresql_slot()) : nullptr;
}

DatabaseServer* mariadb() {
    return why_no_mariadb().empty() ? started<Mariadb>(mariadb_slot()) : nullptr;
}

std::vector<const DatabaseServer*> running_servers() {
    std::vector<const DatabaseServer*> servers;
    for (const auto* slot : {&postgresql_slot(), &mariadb_slot()}) {
        if (*slot) {
            servers.push_back(slot->get());
        }
    }
    return servers;
}

void end_servers() {
    postgresql_slot().reset();
    mariadb_slot().reset();
}

} // namespace krv::testing
