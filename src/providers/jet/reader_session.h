#pragma once

#include "providers/jet/frame_bytes.h"
#include "providers/jet/protocol.h"
#include "providers/jet/reader_process.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace krv::providers::jet {

/// The payload of an answer.
struct Payload {
    std::unique_ptr<std::byte[]> data;
    std::size_t size = 0;

    std::span<const std::byte> bytes() const noexcept { return {data.get(), size}; }
};

/// How long to wait for a reader.
struct Patience {
    std::chrono::milliseconds silence; ///< without any sign of life
    std::chrono::milliseconds answer;  ///< for one answer in all; 0 for no end
};

/// A conversation with a reader. Requests may be made ahead; answers are kept until they are asked
/// for. A reader that dies, falls silent, complains or does not keep to the protocol is ended, and
/// everything asked of it from then on fails with -2147467259.
class ReaderSession {
public:
    ReaderSession(const std::string& program, const Descriptor& file, Patience patience)
        : process_(program, file)
        , patience_(patience) {}

    /// \return the number under which the answer is to be waited for, or forgotten
    std::uint32_t ask(protocol::Request kind, const FrameWriter& payload);

    /// Waits for the answer to a request, once.
    /// \throws DataError what the reader answers instead; -2147217871 when it takes too long
    Payload answer(std::uint32_t request, protocol::Answer expected);

    Payload
    ask_and_wait(protocol::Request kind, const FrameWriter& payload, protocol::Answer expected) {
        return answer(ask(kind, payload), expected);
    }

    /// The answer is dropped when it comes. Asking it anew is pointless, but harmless.
    void forget(std::uint32_t request) noexcept;

    /// Ends the reader: what it said makes no sense.
    [[noreturn]] void refuse();

private:
    using Clock = std::chrono::steady_clock;

    struct Frame {
        protocol::Answer kind = protocol::Answer::progress;
        Payload payload;
    };

    struct Pending {
        bool is_forgotten = false;
        std::optional<Frame> frame;
    };

    enum class Wish { read, read_or_write };

    void start_waiting() noexcept;
    void wait(Wish wish);
    void send(std::span<const std::byte> bytes);
    void receive(std::byte* place, std::size_t size);
    void receive_frame();
    void require_alive() const;
    void refuse_complaints();
    [[noreturn]] void fail(const std::string& text, std::int32_t number);
    [[noreturn]] void report_death();

    ReaderProcess process_;
    Patience patience_;
    std::map<std::uint32_t, Pending> pending_;
    std::uint32_t last_request_ = 0;
    Clock::time_point began_;
    Clock::time_point last_sign_;
};

} // namespace krv::providers::jet
