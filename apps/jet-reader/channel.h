#pragma once

#include "providers/jet/frame_bytes.h"
#include "providers/jet/protocol.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace krv::jet_reader {

/// Called from time to time while something takes long, so that the program sees that it goes on.
using Pulse = std::function<void()>;

/// The reader's end of the conversation.
class Channel {
public:
    struct Request {
        std::uint32_t number = 0;
        providers::jet::protocol::Request kind{};
        std::vector<std::byte> payload;
    };

    explicit Channel(int descriptor)
        : descriptor_(descriptor) {}

    /// Waits for a request.
    /// \return nothing when the program has closed its end
    /// \throws BadFrame for one that is larger than any that makes sense
    std::optional<Request> receive();

    /// Answers the request that was received last.
    void answer(providers::jet::protocol::Answer kind, std::span<const std::byte> payload);

    /// Tells the program that the work goes on, when it has heard nothing for a while.
    void pulse();

private:
    using Clock = std::chrono::steady_clock;

    bool read_all(std::span<std::byte> place);
    void write_all(std::span<const std::byte> bytes);

    int descriptor_;
    std::uint32_t request_ = 0;
    Clock::time_point last_sign_ = Clock::now();
};

} // namespace krv::jet_reader
