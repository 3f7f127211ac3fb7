#pragma once

#include "krv/qt/error_handler.h"
#include "krv/standard/message_queue.h"
#include "qt/form_loop.h"

#include <QPointer>
#include <QWidget>

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace krv::qt {

class PartHandle;

/// What the parts of one control share: the focus, the keys of the surface, the place where errors
/// of handlers go. Nothing is thrown through Qt's event loop.
///
/// Shared, because a handler may destroy the control while a turn or a person's act is under way.
/// Parts, too, outlive every activity of the loop in which their surface was closed.
class Surface : public std::enable_shared_from_this<Surface> {
public:
    using Act = std::function<void()>;

    /// \param root  the control's widget; calls `close` when it goes
    static std::shared_ptr<Surface> make(QWidget& root);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    QWidget& root() const noexcept { return *root_; }

    const std::shared_ptr<FormLoop>& loop() const noexcept { return loop_; }

    standard::MessageQueue& queue() noexcept { return loop_->queue(); }

    /// In tab order. Parts outlive the use of the surface, which ends with `close`.
    void add(PartHandle& part);
    /// From here on nothing is delivered and nothing is noticed.
    void close() noexcept;
    /// As `close`; the focus, if it was inside, moves on by tab order, and only the part that gets
    /// it is told.
    void leave();

    bool closed() const noexcept { return closed_; }

    /// Delivers what waits for any control; the first error comes out.
    void turn() { loop_->turn(); }

    /// Finds out where the form's focus is and queues the notifications that follow from it. An
    /// inactive window keeps its focus, so a message box takes it from nobody.
    void sync_focus();
    /// The two halves of that, for `FormLoop`: what an old part and an old control are told, and
    /// then a new part.
    void notice_loss();
    void notice_gain();

    bool has_focus(const PartHandle& part) const;
    /// Gives the part the focus, unless it has it.
    /// \throws RuntimeError 5, from `source`, when the part cannot take it
    void give_focus(const PartHandle& part, const std::string& source);
    /// Whether the focus is on a part or on the surface itself.
    bool has_focus_inside() const;
    /// The part that the widget was made for; null for any other widget.
    PartHandle* part_of(const QWidget& widget) const;
    /// Gives the focus to the next tab stop of the form behind this part; to none when there is
    /// none.
    void move_focus_on(const PartHandle& from);

    /// Whether Tab is for the key handler of the part with the focus instead of moving the focus.
    bool tab_reaches(const PartHandle& part) const;

    /// Runs a notification; when it lets out an error, this control's error handler gets it where
    /// nobody waits for it.
    void deliver(const Act& notification);

    /// Runs something that Qt called for; errors are reported.
    void guard(const Act& act) noexcept;

    /// Delivers what waits before a person's act; errors are reported. The control may be gone
    /// afterwards.
    void turn_of_its_own() noexcept;

    /// Runs what a widget noticed of a person's act, without turns: errors are reported, in a script
    /// kept for it.
    /// \return whether nothing was let out
    bool take_act(const Act& act) noexcept;

    /// Works through something that a person did: what waits first, then the act, then what follows
    /// from it. Errors are reported, and the act follows all the same. The control may be gone
    /// afterwards. In a script neither is done: see `FormLoop::Script`.
    /// \return whether the act was run and let nothing out
    bool person_acts(const Act& act) noexcept;

    /// `person_acts` for a key: the list follows its current row when the key moved it.
    void key_acts(const Act& act) noexcept;

    /// Called before a key is worked through; what it returns is called after it.
    void set_key_follower(std::function<Act()> follower) { key_begins_ = std::move(follower); }

    /// Called in a turn when the focus has left the control and is still elsewhere.
    void set_on_exit_focus(Act handler) { on_exit_focus_ = std::move(handler); }

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

    /// Writes the error to Qt's log as a warning.
    static void log(const std::exception_ptr& error) noexcept;

private:
    explicit Surface(QWidget& root);

    PartHandle* part_with(const QWidget* focused) const;
    QWidget* form_focus() const;
    bool takes_tab(const QWidget& widget) const;
    QWidget* next_tab_stop(QWidget& start, const QWidget* passed_over) const;

    QPointer<QWidget> root_;
    std::shared_ptr<FormLoop> loop_;
    standard::LifeToken life_;
    std::vector<PartHandle*> parts_;
    PartHandle* focused_ = nullptr;
    PartHandle* gaining_ = nullptr;
    bool inside_ = false;
    bool closed_ = false;
    std::function<Act()> key_begins_;
    Act on_exit_focus_;
    std::function<void(std::int16_t&, std::int16_t&)> on_key_down_;
    ErrorHandler error_handler_;
};

} // namespace krv::qt
