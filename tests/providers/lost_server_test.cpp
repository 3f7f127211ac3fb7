// Servers that refuse, stay silent, die and come back.

#include "krv/standard/data_error.h"
#include "providers/servers/database_server.h"
#include "providers/test_engines.h"
#include "support/errors.h"
#include "support/list_test.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>

namespace krv {
namespace {

using testing::canary_password;
using testing::connected;
using testing::DatabaseServer;
using ::testing::ElementsAre;
using testing::error_number_of;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::int32_t unspecified = -2147467259;
constexpr std::int32_t login_refused = -2147217843;
constexpr std::int32_t malformed = -2147217805;

struct Server {
    std::string name;
    DatabaseServer* (*get)();
    std::string (*why_missing)();
    std::string numbers; ///< a query of 20000 rows with the column n
};

void PrintTo(const Server& server, std::ostream* out) {
    *out << server.name;
}

/// Accepts connections and says nothing.
class SilentServer {
public:
    SilentServer()
        : port_(testing::free_port())
        , listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port_));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            listen(listener_, 8) != 0) {
            throw std::runtime_error("no listener");
        }
    }

    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    ~SilentServer() { close(listener_); }

    int port() const { return port_; }

private:
    int port_;
    int listener_;
};

class LostServer : public testing::ListTest, public ::testing::WithParamInterface<Server> {
protected:
    void SetUp() override {
        if (const std::string why = GetParam().why_missing(); !why.empty()) {
            GTEST_SKIP() << GetParam().name << ": " << why;
        }
        server = GetParam().get();
        place(*access);
    }

    void TearDown() override {
        if (server != nullptr) {
            server->kill();
            server->start();
        }
    }

    std::shared_ptr<platform::Recordset> open_numbers() {
        auto records = access->CreateRecordset();
        records->Open(GetParam().numbers,
                      connected(*access, server->connection_string()),
                      2,
                      2,
                      platform::ado::command_unknown);
        return records;
    }

    /// Goes through the rows until the server's end shows, and expects it to show as an error.
    /// \return rows that were read
    std::int64_t read_on(platform::Recordset& records) {
        std::int64_t rows = 0;
        try {
            for (; !records.Eof(); records.MoveNext()) {
                EXPECT_EQ(records.Fields().Item(0).Value().as_whole(), ++rows);
            }
            // MariaDB's driver (3.1.15) holds the whole result when the first row comes.
            EXPECT_EQ(rows, 20000) << "a short list without an error";
        } catch (const standard::DataError& error) {
            EXPECT_EQ(error.number(), unspecified);
            EXPECT_THAT(error.description(), Not(HasSubstr(canary_password)));
            EXPECT_FALSE(records.Eof());
            EXPECT_EQ(error_number_of([&] { records.MoveNext(); }), unspecified);
        }
        return rows;
    }

    void set_up_list() {
        list().SetAutoAdd(false);
        list().SetConnect(server->connection_string());
        list().SetRecordsource(GetParam().numbers);
        list().SetColDataField(0, "n");
    }

    DatabaseServer* server = nullptr;
    std::shared_ptr<platform::DataAccess> access = testing::full_data_access();
};

TEST_P(LostServer, killed_before_the_open_it_is_an_error_of_the_open) {
    const auto connection = connected(*access, server->connection_string());
    server->kill();
    auto records = access->CreateRecordset();
    EXPECT_EQ(error_number_of([&] { records->Open(GetParam().numbers, connection, 2, 2, 1); }),
              unspecified);
    EXPECT_EQ(records->State(), platform::ado::state_closed);
    EXPECT_EQ(error_number_of([&] { connected(*access, server->connection_string()); }),
              unspecified);
}

TEST_P(LostServer, killed_at_the_first_row_the_list_is_never_short_without_an_error) {
    const auto records = open_numbers();
    server->kill();
    EXPECT_GE(read_on(*records), 1);
}

TEST_P(LostServer, killed_in_the_middle_the_rows_so_far_are_kept) {
    const auto records = open_numbers();
    std::int64_t row = 1;
    for (; row < 10000; ++row) {
        EXPECT_EQ(records->Fields().Item(0).Value().as_whole(), row);
        records->MoveNext();
    }
    server->kill();
    std::int64_t failed = 0;
    try {
        for (; !records->Eof(); records->MoveNext()) {
            EXPECT_EQ(records->Fields().Item(0).Value().as_whole(), row++);
        }
    } catch (const standard::DataError& error) {
        failed = error.number();
    }
    // What had arrived already may be all of it.
    EXPECT_TRUE(failed == unspecified || row == 20001) << row;
    EXPECT_GE(row, 10000);
}

TEST_P(LostServer, killed_at_the_last_row_it_is_an_error_or_the_end) {
    const auto records = open_numbers();
    for (int row = 1; row < 20000; ++row) {
        records->MoveNext();
    }
    EXPECT_EQ(records->Fields().Item(0).Value().as_whole(), 20000);
    server->kill();
    const std::int32_t error = error_number_of([&] { records->MoveNext(); });
    EXPECT_TRUE(error == unspecified || (error == 0 && records->Eof())) << error;
}

TEST_P(LostServer, killed_between_two_loads_the_next_Refresh_after_its_return_works) {
    set_up_list();
    list().Refresh();
    EXPECT_EQ(list().Rows(), 20000);
    EXPECT_THAT(messages(), IsEmpty());
    server->kill();
    list().Refresh();
    EXPECT_THAT(messages(),
                ElementsAre("Errore nella stringa di connessione al database|ok|Rolda"));
    server->start();
    list().Refresh();
    EXPECT_EQ(list().Rows(), 20000);
    EXPECT_EQ(list().TextMatrix(19999, 0), "20000");
    EXPECT_EQ(messages().size(), 1U);
}

TEST_P(LostServer, a_wrong_password_is_a_refused_login_without_the_password) {
    for (const std::string& wrong : {std::string("sbagliata1;}{'\""), canary_password + "x"}) {
        try {
            connected(*access, server->connection_string(wrong));
            ADD_FAILURE();
        } catch (const standard::DataError& error) {
            EXPECT_EQ(error.number(), login_refused) << error.description();
            EXPECT_THAT(error.description(), Not(HasSubstr(wrong)));
            EXPECT_THAT(error.description(), Not(HasSubstr(canary_password)));
        }
    }
}

TEST_P(LostServer, a_server_that_never_answers_is_given_up_after_the_timeout) {
    const SilentServer silent;
    std::string text = server->connection_string();
    const std::string port = "Port=" + std::to_string(server->port());
    text.replace(text.find(port), port.size(), "Port=" + std::to_string(silent.port()));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_LT(error_number_of([&] { connected(*access, text + ";Connect Timeout=2"); }), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
}

TEST_P(LostServer, odd_connection_strings_are_clear_errors) {
    const std::string good = server->connection_string();
    const auto error_of = [&](const std::string& text) {
        return error_number_of([&] { connected(*access, text); });
    };
    EXPECT_EQ(error_of(good + ";Extra=\"offen"), malformed);
    EXPECT_EQ(error_of(good + ";Extra={a}b}c"), 0);
    EXPECT_EQ(error_of(good + ";Unbekannt=1;Nochmal={;}"), 0);
    EXPECT_EQ(error_of(good + ";Lang=" + std::string(100000, 'x')), malformed);
    EXPECT_EQ(error_of(good + ";" + std::string(100000, 'k') + "=1"), malformed);
    EXPECT_EQ(error_of(good + ";SAVEFILE=/tmp/krv_savefile"), 3251);
    EXPECT_EQ(error_of(good + ";Connect Timeout=bald"), malformed);
    for (const char* keyword : {"Server", "Database", "UID", "PWD", "Option", "Driver"}) {
        const std::string long_value(3900, 'x');
        EXPECT_LT(error_of(good + ";" + keyword + "=" + long_value), 1) << keyword;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Every,
    LostServer,
    ::testing::Values(Server{"Postgresql",
                             testing::postgresql,
                             testing::why_no_postgresql,
                             "SELECT n, repeat('x', 1000) AS t FROM generate_series(1, 20000) n"},
                      Server{"Mariadb",
                             testing::mariadb,
                             testing::why_no_mariadb,
                             "SELECT seq AS n, repeat('x', 1000) AS t FROM seq_1_to_20000"}),
    [](const auto& param_info) { return param_info.param.name; });

} // namespace
} // namespace krv
