#include "server/line_channel.h"
#include "server/server_fixture.h"

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <thread>
#include <vector>

namespace krv::server {

namespace {

using testing::make_pipe;

/// Two pipes with a channel between them; a thread writes what the channel is to read.
class LineChannelTest : public ::testing::Test {
protected:
    LineChannelTest() { std::signal(SIGPIPE, SIG_IGN); }

    ~LineChannelTest() override {
        for (const int end : {input_[0], output_[0], output_[1]}) {
            close(end);
        }
    }

    /// All lines that come of the input, those that were too long as "!".
    std::vector<std::string> lines_of(const std::string& input) {
        std::thread writer([&] {
            for (std::string_view rest = input; !rest.empty();) {
                const ssize_t count = write(input_[1], rest.data(), rest.size());
                ASSERT_GT(count, 0);
                rest.remove_prefix(static_cast<std::size_t>(count));
            }
            close(input_[1]);
        });
        std::vector<std::string> lines;
        while (const auto line = channel_.read(Waiting::for_a_request)) {
            lines.emplace_back(line->too_long ? "!" : line->text);
        }
        writer.join();
        return lines;
    }

    std::array<int, 2> input_ = make_pipe();
    std::array<int, 2> output_ = make_pipe();
    PollWaiter waiter_{input_[0]};
    LineChannel channel_{input_[0], output_[1], waiter_};
};

using Lines = std::vector<std::string>;

TEST_F(LineChannelTest, reads_line_by_line_to_the_end) {
    EXPECT_EQ(lines_of("a\n\nb c\nlast"), (Lines{"a", "", "b c", "last"}));
}

TEST_F(LineChannelTest, reads_nothing_from_an_empty_input) {
    EXPECT_EQ(lines_of(""), Lines{});
}

TEST_F(LineChannelTest, takes_16_MiB_and_skips_longer_lines) {
    const std::string longest(LineChannel::longest_line, 'x');
    EXPECT_EQ(lines_of(longest + "\n" + longest + "x\nafter\n"), (Lines{longest, "!", "after"}));
}

TEST_F(LineChannelTest, skips_100_MB) {
    EXPECT_EQ(lines_of("a\n" + std::string(100'000'000, '[') + "\nb\n"), (Lines{"a", "!", "b"}));
}

TEST_F(LineChannelTest, skips_a_last_line_without_end) {
    EXPECT_EQ(lines_of("a\n" + std::string(LineChannel::longest_line + 1, 'x')), (Lines{"a", "!"}));
}

TEST_F(LineChannelTest, reads_no_more_when_nobody_hears_the_answers) {
    ASSERT_EQ(write(input_[1], "a\nb\n", 4), 4);
    EXPECT_EQ(channel_.read(Waiting::for_a_request)->text, "a");
    close(std::exchange(output_[0], -1));
    channel_.write("x");
    EXPECT_FALSE(channel_.read(Waiting::for_a_request));
    close(input_[1]);
}

TEST_F(LineChannelTest, writes_all_of_a_line_to_a_slow_reader) {
    fcntl(output_[1], F_SETFL, fcntl(output_[1], F_GETFL) | O_NONBLOCK);
    const std::string text(1'000'000, 'y');
    std::string read_text;
    std::thread reader([&] {
        char chunk[4096];
        while (read_text.size() <= text.size()) {
            const ssize_t count = read(output_[0], chunk, sizeof chunk);
            ASSERT_GT(count, 0);
            read_text.append(chunk, static_cast<std::size_t>(count));
        }
    });
    channel_.write(text);
    reader.join();
    EXPECT_TRUE(read_text == text + "\n");
    close(input_[1]);
}

/// Reads a line itself, in the middle of another reading.
class ReadingWaiter final : public InputWaiter {
public:
    void wait(Waiting waiting) override {
        inner.wait(waiting);
        waits.push_back(waiting);
        if (waits.size() == 1) {
            read_within = std::string(channel->read(Waiting::for_an_answer)->text);
        }
    }

    explicit ReadingWaiter(int input)
        : inner(input) {}

    PollWaiter inner;
    LineChannel* channel = nullptr;
    std::string read_within;
    std::vector<Waiting> waits;
};

TEST_F(LineChannelTest, can_be_read_while_it_waits) {
    ReadingWaiter waiter(input_[0]);
    LineChannel channel(input_[0], output_[1], waiter);
    waiter.channel = &channel;
    ASSERT_EQ(write(input_[1], "inner\nouter\n", 12), 12);
    const auto line = channel.read(Waiting::for_a_request);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->text, "outer");
    EXPECT_EQ(waiter.read_within, "inner");
    EXPECT_EQ(waiter.waits, (std::vector{Waiting::for_a_request, Waiting::for_an_answer}));
    close(input_[1]);
}

} // namespace

} // namespace krv::server
