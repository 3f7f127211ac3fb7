#pragma once

#include "krv/qt/error_handler.h"
#include "krv/standard/message_queue.h"

#include <QPointer>
#include <QWidget>

#include <exception>
#include <functional>
#include <memory>
#include <vector>

namespace krv::qt {

class PartHandle;

/// What the parts of one control share: the queue of notifications, the focus, the place where
/// errors of handlers go. Nothing is thrown through Qt's event loop.
///
/// Shared, because a handler may destroy the control while a turn or a person's act is under way.
class Surface : public std::enable_shared_from_this<Surface> {
public:
    /// \param root  the control's widget; calls `close` when it goes
    static std::shared_ptr<Surface> make(QWidget& root);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    QWidget& root() const noexcept { return *root_; }

    standard::MessageQueue& queue() noexcept { return queue_; }

    /// In tab order. Parts outlive the use of the surface, which ends with `close`.
    void add(PartHandle& part);
    /// From here on nothing is delivered and nothing is noticed.
    void close() noexcept;

    bool closed() const noexcept { return closed_; }

    /// Delivers what waits; the first error comes out.
    void turn();

    /// Finds out where the form's focus is and queues the notifications that follow from it. An
    /// inactive window keeps its focus, so a message box takes it from nobody.
    void sync_focus();
    bool has_focus(const PartHandle& part) const;
    /// Gives the focus to the next tab stop of the form behind this part; to none when there is
    /// none.
    void move_focus_on(const PartHandle& from);

    /// Whether Tab is for the key handler of the part with the focus instead of moving the focus.
    bool tab_reaches(const PartHandle& part) const;

    /// Runs something that Qt called for; errors are reported.
    template <class Act>
    void guard(Act act) noexcept {
        const std::shared_ptr<Surface> self = shared_from_this();
        try {
            act();
        } catch (...) {
            self->report(std::current_exception());
        }
    }

    /// Works through something that a person did: what waits first, then the act, then what follows
    /// from it. Errors are reported, and the act follows all the same. The control may be gone
    /// afterwards.
    template <class Act>
    void person_acts(Act act) noexcept {
        const std::shared_ptr<Surface> self = shared_from_this();
        const auto turn_of_its_own = [&] {
            if (!self->closed_) {
                self->guard([&] { self->turn(); });
            }
        };
        turn_of_its_own();
        if (!self->closed_) {
            self->guard(act);
        }
        turn_of_its_own();
    }

    /// `person_acts` for a key: the list follows its current row when the key moved it.
    template <class Act>
    void key_acts(Act act) noexcept {
        const std::shared_ptr<Surface> self = shared_from_this();
        const std::function<void()> follow = self->key_begins_ ? self->key_begins_() : nullptr;
        self->person_acts(std::move(act));
        if (!self->closed_ && follow) {
            follow();
        }
    }

    /// Called before a key is worked through; what it returns is called after it.
    void set_key_follower(std::function<std::function<void()>()> follower) {
        key_begins_ = std::move(follower);
    }

    /// Called in a turn when the focus has left the control and is still elsewhere.
    void set_on_exit_focus(std::function<void()> handler) { on_exit_focus_ = std::move(handler); }

    /// Handles the keys of the surface and those that a part leaves to it.
    void set_on_key_down(std::function<void(std::int16_t&, std::int16_t&)> handler) {
        on_key_down_ = std::move(handler);
    }

    void key_down(std::int16_t& key_code, std::int16_t& shift) const {
        if (const auto handler = on_key_down_) { // a copy: the handler may close the surface
            handler(key_code, shift);
        }
    }

    void set_error_handler(ErrorHandler handler) { error_handler_ = std::move(handler); }

    /// Hands the error to the host's handler, else to the log. Never throws.
    void report(const std::exception_ptr& error) noexcept;

private:
    explicit Surface(QWidget& root);

    void plan_turn();
    void planned_turn() noexcept;
    PartHandle* part_with(const QWidget* focused) const;
    QWidget* form_focus() const;
    bool takes_tab(const QWidget& widget) const;

    QPointer<QWidget> root_;
    standard::MessageQueue queue_;
    standard::LifeToken life_;
    std::vector<PartHandle*> parts_;
    PartHandle* focused_ = nullptr;
    bool inside_ = false;
    bool closed_ = false;
    bool planned_ = false;
    std::function<std::function<void()>()> key_begins_;
    std::function<void()> on_exit_focus_;
    std::function<void(std::int16_t&, std::int16_t&)> on_key_down_;
    ErrorHandler error_handler_;
    QMetaObject::Connection focus_watch_;
};

} // namespace krv::qt
