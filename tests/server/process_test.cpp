#include "server/rpc_client.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace krv::server {

namespace {

using testing::RpcClient;

/// The program with these arguments, its input and output in our hands.
class Program {
public:
    explicit Program(const std::vector<std::string>& arguments) {
        std::signal(SIGPIPE, SIG_IGN);
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe");
        }
        id_ = fork();
        if (id_ == 0) {
            run(arguments, input[0], output[1]);
        }
        close(input[0]);
        close(output[1]);
        client = std::make_unique<RpcClient>(output[0], input[1]);
    }

    ~Program() {
        client.reset();
        if (id_ > 0) {
            kill(id_, SIGKILL);
            waitpid(id_, nullptr, 0);
        }
    }

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Waits for the end. \return its status, -1 when a signal ended it
    int status() {
        int status = 0;
        waitpid(std::exchange(id_, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::unique_ptr<RpcClient> client;

private:
    [[noreturn]] static void run(const std::vector<std::string>& arguments, int input, int output) {
        const int silence = open("/dev/null", O_WRONLY);
        dup2(input, STDIN_FILENO);
        dup2(output, STDOUT_FILENO);
        dup2(silence, STDERR_FILENO);
        std::signal(SIGPIPE, SIG_DFL);
        std::vector<char*> argv = {const_cast<char*>(KRV_SERVER)};
        for (const std::string& argument : arguments) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        execv(KRV_SERVER, argv.data());
        _exit(127);
    }

    pid_t id_ = -1;
};

void make_control(RpcClient& client) {
    client.request("control.new", {{"id", "L1"}});
    client.request("listen", {{"id", "L1"}, {"events", "*"}});
}

/// Leaves the program in the middle of an event.
void raise_an_event(RpcClient& client) {
    make_control(client);
    client.send({{"jsonrpc", "2.0"},
                 {"id", "key"},
                 {"method", "call"},
                 {"params", {{"id", "L1"}, {"name", "SendKeys"}, {"args", {65, 0}}}}});
    ASSERT_EQ(client.receive().at("method"), "event");
}

TEST(ServerProgram, serves_until_it_is_shut_down) {
    Program program({});
    EXPECT_EQ(program.client->request("initialize").at("backend"), "headless");
    EXPECT_EQ(program.client->request("shutdown"), Json::object());
    EXPECT_THROW(program.client->receive(), testing::Silence);
    EXPECT_EQ(program.status(), 0);
}

TEST(ServerProgram, ends_with_its_input) {
    Program program({"--backend", "headless"});
    program.client->hang_up();
    EXPECT_EQ(program.status(), 0);
}

TEST(ServerProgram, ends_when_the_client_dies_in_the_middle_of_an_event) {
    Program program({});
    raise_an_event(*program.client);
    program.client.reset();
    EXPECT_EQ(program.status(), 0);
}

TEST(ServerProgram, ends_when_the_input_ends_in_the_middle_of_a_line) {
    Program program({});
    raise_an_event(*program.client);
    program.client->send_line(R"({"jsonrpc": "2.0",)");
    program.client->hang_up();
    EXPECT_EQ(program.status(), 0);
}

TEST(ServerProgram, ends_when_nobody_hears_it) {
    Program program({});
    make_control(*program.client);
    program.client->stop_listening();
    program.client->send({{"jsonrpc", "2.0"}, {"id", 1}, {"method", "initialize"}});
    EXPECT_EQ(program.status(), 0);
}

TEST(ServerProgram, shuts_down_in_the_middle_of_an_event) {
    Program program({});
    raise_an_event(*program.client);
    EXPECT_EQ(program.client->request("shutdown"), Json::object());
    EXPECT_EQ(program.status(), 0);
}

TEST(ServerProgram, takes_the_region_as_an_option) {
    for (const auto& [region, number] :
         {std::pair("--region=it-IT", 13), std::pair("--region=en-US", 126)}) {
        Program program({region});
        make_control(*program.client);
        const Json member = {{"id", "L1"}, {"name", "LineNumberColumn"}, {"args", Json::array()}};
        Json put = member;
        put["value"] = "12,6";
        program.client->request("put", put);
        EXPECT_EQ(program.client->request("get", member).at("value"), number);
    }
}

TEST(ServerProgram, refuses_what_it_does_not_understand) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"--backend"},
                                               {"--backend", "x11"},
                                               {"--region", "xx-YY"},
                                               {"--unknown"},
                                               {"--help=yes"},
                                               {"file"}}) {
        EXPECT_EQ(Program(arguments).status(), 2) << arguments.front();
    }
}

TEST(ServerProgram, tells_usage_and_version) {
    EXPECT_EQ(Program({"--help"}).status(), 0);
    EXPECT_EQ(Program({"--version"}).status(), 0);
}

} // namespace

} // namespace krv::server
