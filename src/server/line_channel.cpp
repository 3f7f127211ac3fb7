#include "server/line_channel.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace krv::server {

namespace {

constexpr std::size_t chunk = std::size_t{64} * 1024;

void poll_for(int descriptor, short events, int timeout_ms) {
    pollfd waiting{descriptor, events, 0};
    poll(&waiting, 1, timeout_ms);
}

/// Also true at the end of the input.
bool is_readable(int descriptor) {
    pollfd waiting{descriptor, POLLIN, 0};
    return poll(&waiting, 1, 0) > 0;
}

} // namespace

void PollWaiter::wait(Waiting /*waiting*/) {
    poll_for(descriptor_, POLLIN, -1);
}

std::optional<Line> LineChannel::read(Waiting waiting) {
    while (!closed_) {
        if (const auto line = take_line()) {
            return line;
        }
        if (input_ended_) {
            return take_rest();
        }
        waiter_.wait(waiting);
        // While it waited, a reading within this one may have taken what there was.
        if (!closed_ && !input_ended_ && is_readable(input_)) {
            fill();
        }
    }
    return std::nullopt;
}

std::optional<Line> LineChannel::take_line() {
    const auto end = buffer_.find('\n', searched_);
    if (end == std::string::npos) {
        searched_ = buffer_.size();
        if (skipping_ || buffer_.size() - begin_ > longest_line) {
            skipping_ = true;
            buffer_.clear();
            begin_ = searched_ = 0;
        }
        return std::nullopt;
    }
    Line line{std::string_view(buffer_).substr(begin_, end - begin_), false};
    if (skipping_ || line.text.size() > longest_line) {
        line = {{}, true};
    }
    skipping_ = false;
    begin_ = searched_ = end + 1;
    return line;
}

std::optional<Line> LineChannel::take_rest() {
    closed_ = true;
    if (skipping_) {
        return Line{{}, true};
    }
    const std::string_view rest = std::string_view(buffer_).substr(begin_);
    return rest.empty() ? std::nullopt : std::optional(Line{rest, false});
}

void LineChannel::fill() {
    buffer_.erase(0, begin_);
    searched_ -= begin_;
    begin_ = 0;
    const std::size_t size = buffer_.size();
    buffer_.resize(size + chunk);
    const ssize_t count = ::read(input_, buffer_.data() + size, chunk);
    buffer_.resize(size + static_cast<std::size_t>(count > 0 ? count : 0));
    const bool try_again = count < 0 && (errno == EINTR || errno == EAGAIN);
    input_ended_ = count <= 0 && !try_again;
}

void LineChannel::write(std::string text) {
    text += '\n';
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t count = ::write(output_, rest.data(), rest.size());
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            poll_for(output_, POLLOUT, -1);
        } else if (errno != EINTR) {
            closed_ = true;
            return;
        }
    }
}

} // namespace krv::server
