#pragma once

#include "krv/platform/life.h"

#include <deque>
#include <functional>
#include <memory>
#include <utility>

namespace krv::standard {

using platform::LifeToken;

/// What waits for the next turn of the message loop: focus notifications, a person's keys and
/// presses, current-cell changes that the grid's structure forced. One queue a form.
class MessageQueue {
public:
    using Notification = std::function<void()>;

    /// Appends; `on_post` is told, so that a real message loop can plan a turn. Dropped when the
    /// owner, a part of the form, is gone by its turn.
    void post(const LifeToken& owner, Notification notification);

    /// One turn: delivers in order until the queue is empty, what is posted meanwhile included. A
    /// turn inside a turn does the same. The first error of a handler leaves the turn; the rest
    /// stays queued.
    void turn();

    bool empty() const noexcept { return waiting_.empty(); }

    /// Called after every `post`; empty for none.
    void set_on_post(std::function<void()> on_post) { on_post_ = std::move(on_post); }

private:
    struct Waiting {
        std::weak_ptr<const void> owner;
        Notification notification;
    };

    std::deque<Waiting> waiting_;
    std::function<void()> on_post_;
};

} // namespace krv::standard
