#pragma once

#include "krv/control/events.h"

#include <memory>
#include <vector>

namespace krv {

/// The listeners of one control, told in the order in which they came.
class EventList {
public:
    EventList() = default;
    /// Listeners that wait for an event under way hear nothing any more.
    ~EventList();
    EventList(const EventList&) = delete;
    EventList& operator=(const EventList&) = delete;

    /// Behind the others; a listener that is there already stays where it is.
    void subscribe(KarvoListEvents& listener);
    void unsubscribe(const KarvoListEvents& listener);

    /// Tells every listener, for example `raise(&KarvoListEvents::AddClick, cancel)`; by-reference
    /// arguments go from one to the next. Listeners may come, go, throw, or destroy the control
    /// and this list meanwhile: those that come hear the next event.
    template <class... Parameters, class... Arguments>
    void raise(void (KarvoListEvents::*event)(Parameters...), Arguments&... arguments) const {
        const std::shared_ptr<const Seats> seats = seats_; // `this` may be gone after any call
        for (const std::shared_ptr<Seat>& seat : *seats) {
            if (seat->listener != nullptr) {
                (seat->listener->*event)(arguments...);
            }
        }
    }

private:
    struct Seat {
        KarvoListEvents* listener; ///< null once it has left
    };

    using Seats = std::vector<std::shared_ptr<Seat>>;

    /// Replaced, never changed: an event under way keeps the one that it began with.
    std::shared_ptr<const Seats> seats_ = std::make_shared<Seats>();
};

} // namespace krv
