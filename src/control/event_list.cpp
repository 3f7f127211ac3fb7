#include "control/event_list.h"

#include <algorithm>

namespace krv {

EventList::~EventList() {
    for (const std::shared_ptr<Seat>& seat : *seats_) {
        seat->listener = nullptr;
    }
}

void EventList::subscribe(KarvoListEvents& listener) {
    const bool is_there = std::any_of(seats_->begin(), seats_->end(), [&](const auto& seat) {
        return seat->listener == &listener;
    });
    if (!is_there) {
        auto seats = std::make_shared<Seats>(*seats_);
        seats->push_back(std::make_shared<Seat>(Seat{&listener}));
        seats_ = std::move(seats);
    }
}

void EventList::unsubscribe(const KarvoListEvents& listener) {
    auto seats = std::make_shared<Seats>(*seats_);
    const auto seat = std::find_if(seats->begin(), seats->end(), [&](const auto& other) {
        return other->listener == &listener;
    });
    if (seat != seats->end()) {
        (*seat)->listener = nullptr;
        seats->erase(seat);
        seats_ = std::move(seats);
    }
}

} // namespace krv
