#include "channel.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

#include <unistd.h>

namespace krv::jet_reader {

namespace {

namespace protocol = providers::jet::protocol;
using Head = std::array<std::byte, protocol::head_size>;

constexpr std::uint32_t largest_request = 4U * 1024 * 1024;
constexpr std::chrono::milliseconds pulse_interval{200};

} // namespace

std::optional<Channel::Request> Channel::receive() {
    Head head{};
    if (!read_all(head)) {
        return std::nullopt;
    }
    std::uint32_t size = 0;
    std::memcpy(&size, head.data(), sizeof size);
    std::memcpy(&request_, head.data() + sizeof size, sizeof request_);
    if (size > largest_request) {
        throw providers::jet::BadFrame();
    }
    Request request{request_, static_cast<protocol::Request>(head.back()), {}};
    request.payload.resize(size);
    if (!read_all(request.payload)) {
        return std::nullopt;
    }
    last_sign_ = Clock::now();
    return request;
}

void Channel::answer(protocol::Answer kind, std::span<const std::byte> payload) {
    const auto size = static_cast<std::uint32_t>(payload.size());
    Head head{};
    std::memcpy(head.data(), &size, sizeof size);
    std::memcpy(head.data() + sizeof size, &request_, sizeof request_);
    head.back() = static_cast<std::byte>(kind);
    write_all(head);
    write_all(payload);
}

void Channel::pulse() {
    const auto now = Clock::now();
    if (now - last_sign_ >= pulse_interval) {
        last_sign_ = now;
        answer(protocol::Answer::progress, {});
    }
}

bool Channel::read_all(std::span<std::byte> place) {
    while (!place.empty()) {
        const ssize_t count = read(descriptor_, place.data(), place.size());
        if (count == 0) {
            return false;
        }
        if (count > 0) {
            place = place.subspan(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

void Channel::write_all(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "write");
        }
    }
}

} // namespace krv::jet_reader
