#include "providers/jet/reader_session.h"

#include "krv/standard/data_error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace krv::providers::jet {

namespace {

using protocol::Answer;
using standard::DataError;
namespace data_error_number = standard::data_error_number;

std::string fate_in_words(int status) {
    if (status >= 0 && WIFSIGNALED(status)) {
        return " (signal " + std::to_string(WTERMSIG(status)) + ")";
    }
    if (status >= 0 && WIFEXITED(status)) {
        return " (exit status " + std::to_string(WEXITSTATUS(status)) + ")";
    }
    return "";
}

[[noreturn]] void raise_answer(const Payload& payload) {
    FrameReader reader(payload.bytes());
    const auto number = reader.take<std::int32_t>();
    const auto native_code = reader.take<std::int32_t>();
    std::string text(reader.take_text());
    reader.require_end();
    throw DataError(number, std::move(text), layer, native_code);
}

} // namespace

std::uint32_t ReaderSession::ask(protocol::Request kind, const FrameWriter& payload) {
    require_alive();
    const std::uint32_t request = ++last_request_;
    pending_[request];
    const auto size = static_cast<std::uint32_t>(payload.size());
    std::array<std::byte, protocol::head_size> head{};
    std::memcpy(head.data(), &size, sizeof size);
    std::memcpy(head.data() + sizeof size, &request, sizeof request);
    head.back() = static_cast<std::byte>(kind);
    start_waiting();
    send(head);
    send(payload.bytes());
    return request;
}

Payload ReaderSession::answer(std::uint32_t request, Answer expected) {
    start_waiting();
    Pending& pending = pending_.at(request);
    while (!pending.frame) {
        require_alive();
        receive_frame();
    }
    Frame frame = std::move(*pending.frame);
    pending_.erase(request);
    if (frame.kind == Answer::error) {
        try {
            raise_answer(frame.payload);
        } catch (const BadFrame&) {
            refuse();
        }
    }
    if (frame.kind != expected) {
        refuse();
    }
    return std::move(frame.payload);
}

void ReaderSession::forget(std::uint32_t request) noexcept {
    const auto pending = pending_.find(request);
    if (pending == pending_.end()) {
        return;
    }
    if (pending->second.frame) {
        pending_.erase(pending);
    } else {
        pending->second.is_forgotten = true;
    }
}

void ReaderSession::start_waiting() noexcept {
    began_ = Clock::now();
    last_sign_ = began_;
}

/// Until the channel can be used, or the reader must be given up.
void ReaderSession::wait(Wish wish) {
    using std::chrono::milliseconds;
    const auto now = Clock::now();
    auto left = std::chrono::duration_cast<milliseconds>(last_sign_ + patience_.silence - now);
    if (patience_.answer.count() > 0) {
        const auto whole =
            std::chrono::duration_cast<milliseconds>(began_ + patience_.answer - now);
        if (whole.count() <= 0) {
            fail("The reader of the database file took too long.", data_error_number::timeout);
        }
        left = std::min(left, whole);
    }
    if (left.count() <= 0) {
        fail("The reader of the database file does not answer; the file may be damaged.",
             data_error_number::unspecified);
    }
    const short events = wish == Wish::read ? POLLIN : POLLIN | POLLOUT;
    std::array<pollfd, 2> polled = {pollfd{process_.channel(), events, 0},
                                    pollfd{process_.complaints(), POLLIN, 0}};
    const int count = poll(polled.data(), polled.size(), static_cast<int>(left.count()) + 1);
    if (count > 0 && polled[1].revents != 0) {
        report_death(); // it complains, or is about to end
    }
    if (wish == Wish::read_or_write && (polled[0].revents & POLLIN) != 0) {
        receive_frame(); // the reader may be unable to listen before it is rid of an answer
    }
}

void ReaderSession::send(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(process_.channel(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count > 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            wait(Wish::read_or_write);
        } else if (errno != EINTR) {
            report_death();
        }
    }
}

void ReaderSession::receive(std::byte* place, std::size_t size) {
    while (size > 0) {
        const ssize_t count = recv(process_.channel(), place, size, 0);
        if (count > 0) {
            place += count;
            size -= static_cast<std::size_t>(count);
            last_sign_ = Clock::now();
        } else if (count == 0) {
            report_death();
        } else if (errno == EAGAIN) {
            wait(Wish::read);
        } else if (errno != EINTR) {
            report_death();
        }
    }
}

void ReaderSession::receive_frame() {
    std::array<std::byte, protocol::head_size> head{};
    receive(head.data(), head.size());
    std::uint32_t size = 0;
    std::uint32_t request = 0;
    std::memcpy(&size, head.data(), sizeof size);
    std::memcpy(&request, head.data() + sizeof size, sizeof request);
    const auto kind = static_cast<Answer>(head.back());
    const auto pending = pending_.find(request);
    if (size > protocol::largest_payload || pending == pending_.end() || pending->second.frame) {
        refuse();
    }
    if (kind == Answer::progress) {
        return size == 0 ? void() : refuse();
    }
    Payload payload{std::make_unique_for_overwrite<std::byte[]>(size), size};
    receive(payload.data.get(), size);
    refuse_complaints();
    if (pending->second.is_forgotten) {
        pending_.erase(pending);
    } else {
        pending->second.frame = Frame{kind, std::move(payload)};
    }
}

void ReaderSession::require_alive() const {
    if (process_.channel() < 0) {
        throw DataError(data_error_number::unspecified,
                        "The reader of the database file has ended; the connection is of no more "
                        "use.",
                        layer);
    }
}

/// What the reader prints is never good: the library that it reads with prints when a file makes no
/// sense to it, and goes on with less than the whole.
void ReaderSession::refuse_complaints() {
    std::array<char, 256> text{};
    if (read(process_.complaints(), text.data(), text.size()) > 0) {
        fail("The database file is damaged or of an unknown kind; it is not read.",
             data_error_number::unspecified);
    }
}

void ReaderSession::refuse() {
    fail("The reader of the database file gave an answer that makes no sense.",
         data_error_number::unspecified);
}

void ReaderSession::report_death() {
    refuse_complaints();
    const std::string fate = fate_in_words(process_.end());
    throw DataError(data_error_number::unspecified,
                    "The reader of the database file ended unexpectedly" + fate +
                        "; the file may be damaged.",
                    layer);
}

void ReaderSession::fail(const std::string& text, std::int32_t number) {
    process_.end();
    throw DataError(number, text, layer);
}

} // namespace krv::providers::jet
