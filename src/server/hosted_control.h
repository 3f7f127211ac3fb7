#pragma once

#include "server/event_sender.h"
#include "server/form.h"

#include "krv/control/automation.h"

#include <memory>
#include <utility>

namespace krv::server {

/// One control of the server's form with the listener that sends its events.
///
/// Once retired it is only memory that calls under way may still stand on.
class HostedControl {
public:
    HostedControl(std::unique_ptr<FormControl> control,
                  std::unique_ptr<EventSender> sender,
                  std::shared_ptr<const platform::Formatter> formatter)
        : formatter_(std::move(formatter))
        , sender_(std::move(sender))
        , forwarder_(*sender_, *formatter_)
        , control_(std::move(control)) {
        control_->list().subscribe(forwarder_);
    }

    ~HostedControl() { retire(); }

    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;

    /// Takes the control off the form; allowed inside any event of it.
    void retire() {
        if (control_) {
            control_->list().unsubscribe(forwarder_);
            std::exchange(control_, nullptr).reset();
        }
    }

    bool is_retired() const noexcept { return control_ == nullptr; }

    FormControl& form_control() { return *control_; }

    KarvoList& list() { return control_->list(); }

    EventSender& sender() noexcept { return *sender_; }

private:
    std::shared_ptr<const platform::Formatter> formatter_;
    std::unique_ptr<EventSender> sender_;
    automation::EventForwarder forwarder_;
    std::unique_ptr<FormControl> control_;
};

} // namespace krv::server
