#include "big_table.h"
#include "jet_fixture.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace krv::providers {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

#ifdef __SANITIZE_ADDRESS__
constexpr bool memory_is_limited = false; // the sanitizer maps terabytes for itself
#else
constexpr bool memory_is_limited = true;
#endif

/// The processes that this one has started.
std::vector<pid_t> children() {
    const std::string self = std::to_string(getpid());
    std::ifstream list("/proc/" + self + "/task/" + self + "/children");
    return {std::istream_iterator<pid_t>(list), {}};
}

class JetHostileTest : public JetTest {
protected:
    JetHostileTest() {
        options.silence = std::chrono::milliseconds(700);
        options.answer = std::chrono::milliseconds(1500);
    }

    /// Has the hostile reader do something.
    void play(const std::string& act) {
        options.reader = folder.file(act);
        std::filesystem::create_symlink(KRV_JET_HOSTILE, options.reader);
    }

    void expect_end(const std::string& act, const std::string& beginning) {
        SCOPED_TRACE(act);
        play(act);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_THAT(error_of([&] { open(file_); }), StartsWith(beginning));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
        EXPECT_FALSE(has_children());
    }

    std::string file_ = sample();
};

constexpr const char* killed = "-2147467259: The reader of the database file ended unexpectedly "
                               "(signal 31)"; // SIGSYS

TEST_F(JetHostileTest, what_a_reader_has_no_business_with_ends_it) {
    for (const char* act : {"opens-a-file",
                            "opens-by-its-folder",
                            "removes-a-file",
                            "connects",
                            "starts-a-process",
                            "runs-a-program",
                            "kills-its-parent",
                            "makes-code",
                            "pulses-and-sleeps"}) {
        expect_end(act, killed);
    }
}

TEST_F(JetHostileTest, a_reader_that_takes_without_measure_is_stopped) {
    if (memory_is_limited) {
        expect_end("takes-4-GiB", "-2147467259: The reader of the database file ended");
    }
    expect_end("answers-1-GiB", "-2147467259: The reader of the database file gave an answer");
    expect_end("complains-1-GiB", "-2147467259: The database file is damaged");
    expect_end("promises-much", "-2147467259: The reader of the database file does not answer");
}

TEST_F(JetHostileTest, a_reader_that_loops_is_not_waited_for) {
    expect_end("loops", "-2147467259: The reader of the database file does not answer");
    expect_end("pulses-for-ever", "-2147217871: The reader of the database file took too long");
}

TEST_F(JetHostileTest, a_reader_that_ends_is_noticed_at_once) {
    expect_end("dies",
               "-2147467259: The reader of the database file ended unexpectedly (signal 9)");
    expect_end("ends",
               "-2147467259: The reader of the database file ended unexpectedly (exit status 0)");
    expect_end("answers-half", "-2147467259: The reader of the database file ended unexpectedly");
}

TEST_F(JetHostileTest, an_answer_that_makes_no_sense_ends_the_reader) {
    for (const char* act : {"answers-too-long",
                            "answers-unasked",
                            "answers-nothing",
                            "answers-otherwise",
                            "answers-no-kind",
                            "errs-badly"}) {
        expect_end(act, "-2147467259: The reader of the database file gave an answer");
    }
}

TEST_F(JetHostileTest, rows_that_do_not_parse_end_the_reader) {
    for (const char* act : {"rows-too-few",
                            "rows-and-more",
                            "rows-of-no-kind",
                            "rows-of-objects",
                            "rows-with-long-text",
                            "rows-with-bad-text",
                            "rows-with-bad-scale",
                            "rows-none-but-more"}) {
        SCOPED_TRACE(act);
        play(act);
        const auto connection = open(file_);
        const auto cursor = connection->open_table({"t"});
        EXPECT_THAT(error_of([&] {
                        while (cursor->step()) {
                        }
                    }),
                    StartsWith("-2147467259: The reader of the database file gave an answer"));
    }
    play("rows-fine");
    EXPECT_EQ(rows(*open(file_)->open_table({"t"})), std::vector<Texts>{{"Long 1"}});
}

TEST_F(JetHostileTest, a_reader_killed_half_way_makes_an_error_and_no_short_list) {
    const auto connection = open(write(big_file(60'000), "grande.mdb"));
    const auto cursor = connection->open_table({"Grande"});
    ASSERT_TRUE(cursor->step());
    ASSERT_EQ(children().size(), 1U);
    kill(children().front(), SIGKILL);
    std::size_t count = 1;
    const std::string error = error_of([&] {
        while (cursor->step()) {
            ++count;
        }
    });
    EXPECT_THAT(error, StartsWith("-2147467259: "));
    EXPECT_LT(count, 60'000U);
    EXPECT_THAT(error_of([&] { connection->open_table({"Grande"}); }),
                StartsWith("-2147467259: The reader of the database file has ended"));
    EXPECT_FALSE(has_children());
}

TEST_F(JetHostileTest, a_reader_that_is_stopped_half_way_is_given_up) {
    const auto connection = open(write(big_file(60'000), "grande.mdb"));
    const auto cursor = connection->open_table({"Grande"});
    ASSERT_TRUE(cursor->step());
    kill(children().front(), SIGSTOP);
    EXPECT_THAT(error_of([&] {
                    while (cursor->step()) {
                    }
                }),
                StartsWith("-2147467259: "));
    EXPECT_FALSE(has_children());
}

TEST_F(JetHostileTest, a_file_cut_while_it_is_read_makes_an_error) {
    const std::string path = write(big_file(60'000), "grande.mdb");
    const auto connection = open(path);
    const auto cursor = connection->open_table({"Grande"});
    ASSERT_TRUE(cursor->step());
    std::filesystem::resize_file(path, 8192);
    EXPECT_THAT(error_of([&] {
                    while (cursor->step()) {
                    }
                }),
                StartsWith("-2147467259: "));
}

TEST_F(JetHostileTest, a_reader_that_is_not_there_is_named) {
    options.reader = folder.file("niente");
    EXPECT_THAT(error_of([&] { open(file_); }), HasSubstr("cannot be started"));
    EXPECT_FALSE(has_children());
}

TEST_F(JetHostileTest, a_reader_gets_no_arguments_no_environment_and_only_its_own_descriptors) {
    setenv("KRV_TEST_SECRET", "dal chiamante", 1);
    const int kept_open = dup(STDOUT_FILENO); // not closed when a program is run
    const auto connection = open(file_, "Jet OLEDB:Database Password=Segreto1");
    ASSERT_EQ(children().size(), 1U);
    const std::string process = "/proc/" + std::to_string(children().front());
    const std::string arguments = krv::testing::read_file(process + "/cmdline");
    EXPECT_EQ(arguments, std::string(KRV_JET_READER) + '\0');
    EXPECT_EQ(krv::testing::read_file(process + "/environ"), "");
    std::error_code unreadable;
    const std::filesystem::directory_iterator descriptors(process + "/fd", unreadable);
    if (!unreadable) { // another user's look is not allowed
        EXPECT_EQ(std::distance(begin(descriptors), end(descriptors)), 3);
    }
    close(kept_open);
    unsetenv("KRV_TEST_SECRET");
}

TEST_F(JetHostileTest, the_reader_started_by_hand_says_what_it_is) {
    const std::string output = folder.file("out");
    const std::string command =
        std::string(KRV_JET_READER) + " --help </dev/null >" + output + " 2>&1";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2);
    EXPECT_THAT(krv::testing::read_file(output), HasSubstr("started by the library"));
}

} // namespace
} // namespace krv::providers
