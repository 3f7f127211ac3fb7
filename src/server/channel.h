#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace krv::server {

/// What the server waits for: a request, with nothing under way, or the answer to something that it
/// asked in the middle of its work.
enum class Waiting : std::uint8_t { for_a_request, for_an_answer };

struct Line {
    std::string_view text; ///< without its end; valid until the next reading
    bool too_long = false; ///< the text was skipped
};

/// Lines from and to the client.
class Channel {
public:
    virtual ~Channel() = default;

    /// The next line; nothing when there will be no more. May be called again from within itself,
    /// by what happens while it waits.
    virtual std::optional<Line> read(Waiting waiting) = 0;

    /// Sends the text as one line. A client that is gone ends the reading, too.
    virtual void write(std::string text) = 0;

    /// Nothing is read from here on.
    virtual void end() = 0;
};

/// How a `LineChannel` waits for its input.
class InputWaiter {
public:
    virtual ~InputWaiter() = default;

    /// Returns when there may be something to read, or sooner.
    virtual void wait(Waiting waiting) = 0;
};

} // namespace krv::server
