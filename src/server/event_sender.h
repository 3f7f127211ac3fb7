#pragma once

#include "server/client.h"
#include "server/object_table.h"

#include "krv/control/automation.h"
#include "krv/platform/formatter.h"

#include <bitset>
#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace krv::server {

/// Sends the events of one control to the client and brings back what the client changes.
class EventSender final : public automation::EventSink {
public:
    /// \param id  the control's
    EventSender(Client& client,
                ObjectTable& objects,
                std::shared_ptr<const platform::Formatter> formatter,
                std::string id)
        : client_(client)
        , objects_(objects)
        , formatter_(std::move(formatter))
        , id_(std::move(id)) {}

    /// From now on these events, and no others.
    /// \param names  an array of event names, or "*" for all
    /// \throws RpcError -32602 for anything else; what is listened to stays
    void listen(const Json& names);

    /// \throws RuntimeError as the client's answer says (440 when it gives no number), 13 for a value
    ///         that does not convert; SessionEnded
    void raise(const automation::Event& event, std::span<platform::Value> arguments) override;

private:
    static constexpr std::size_t most_events = 32;

    void take_back(const automation::Event& event,
                   const Json& changes,
                   std::span<platform::Value> arguments) const;

    Client& client_;
    ObjectTable& objects_;
    std::shared_ptr<const platform::Formatter> formatter_;
    std::string id_;
    std::bitset<most_events> listened_;
};

} // namespace krv::server
