#include "krv/standard/message_queue.h"

namespace krv::standard {

void MessageQueue::post(const LifeToken& owner, Notification notification) {
    waiting_.push_back({owner.watch(), std::move(notification)});
    if (on_post_) {
        on_post_();
    }
}

void MessageQueue::turn() {
    while (!waiting_.empty()) {
        const Waiting next = std::move(waiting_.front());
        waiting_.pop_front();
        if (!next.owner.expired()) {
            next.notification();
        }
    }
}

} // namespace krv::standard
