#pragma once

#include "server/client.h"

#include "krv/platform/host.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace krv::server {

/// Who answers the message boxes of the form: standing answers first, then the client.
class MessageBoxes {
public:
    explicit MessageBoxes(Client& client)
        : client_(client) {}

    /// Boxes with the text, or with any text ("*"), are answered so without asking; nothing takes it
    /// back.
    void set_standing(const std::string& text, std::optional<platform::MessageAnswer> answer);

    /// An answer that the box has no button for, an error or nonsense closes the box: OK, or No.
    /// \throws SessionEnded
    platform::MessageAnswer
    answer(std::string_view text, platform::MessageButtons buttons, std::string_view title);

private:
    std::optional<platform::MessageAnswer> standing(std::string_view text) const;
    std::optional<platform::MessageAnswer>
    asked(std::string_view text, platform::MessageButtons buttons, std::string_view title);

    Client& client_;
    std::map<std::string, platform::MessageAnswer, std::less<>> standing_;
};

/// "ok", "yes", "no"; nothing for anything else.
std::optional<platform::MessageAnswer> message_answer_of(const Json& reply);

} // namespace krv::server
