#pragma once

#include "server/channel.h"

#include <cstddef>
#include <string>

namespace krv::server {

/// Waits for input and for nothing else.
class PollWaiter final : public InputWaiter {
public:
    explicit PollWaiter(int descriptor)
        : descriptor_(descriptor) {}

    void wait(Waiting waiting) override;

private:
    int descriptor_;
};

/// Lines over two file descriptors, which stay open. A last line without an end counts as one.
class LineChannel final : public Channel {
public:
    /// 16 MiB.
    static constexpr std::size_t longest_line = std::size_t{16} * 1024 * 1024;

    /// \param waiter  outlives the channel
    LineChannel(int input, int output, InputWaiter& waiter)
        : input_(input)
        , output_(output)
        , waiter_(waiter) {}

    std::optional<Line> read(Waiting waiting) override;
    void write(std::string text) override;

    void end() override { closed_ = true; }

private:
    std::optional<Line> take_line();
    std::optional<Line> take_rest();
    void fill();

    int input_;
    int output_;
    InputWaiter& waiter_;
    std::string buffer_;
    std::size_t begin_ = 0;    ///< of the first line that was not taken
    std::size_t searched_ = 0; ///< no line end in front of this, from `begin_` on
    bool skipping_ = false;
    bool input_ended_ = false;
    bool closed_ = false;
};

} // namespace krv::server
