#pragma once

#include "krv/standard/message_queue.h"

#include <QMetaObject>

#include <exception>
#include <functional>
#include <memory>
#include <vector>

class QWidget;

namespace krv::qt {

class PartHandle;
class Surface;

/// What all controls of the application share: the queue of notifications, the view of where the
/// focus is, the memory of removed controls. For the thread of the widgets only.
class FormLoop : public std::enable_shared_from_this<FormLoop> {
public:
    /// The one there is; made when there is none.
    static std::shared_ptr<FormLoop> shared();
    ~FormLoop();
    FormLoop(const FormLoop&) = delete;
    FormLoop& operator=(const FormLoop&) = delete;

    standard::MessageQueue& queue() noexcept { return queue_; }

    /// Controls that were added first are asked first. A surface is removed before it goes.
    void add(Surface& surface) { surfaces_.push_back(&surface); }

    void remove(const Surface& surface) noexcept { std::erase(surfaces_, &surface); }

    /// Delivers what waits; the first error comes out.
    void turn();

    /// As `turn`, called by Qt's event loop: errors are reported, and what stays queued is planned
    /// anew.
    void turn_by_event_loop() noexcept;

    /// Finds out where the focus is and queues the notifications that follow: of the control that
    /// lost it first.
    void sync_focus();

    /// The part that the widget was made for; null for any other widget.
    PartHandle* part_of(const QWidget& widget) const;

    /// Reports an error to the control whose notification let it out, else to the given one.
    void report(const std::exception_ptr& error, Surface* otherwise) noexcept;

    /// Notes whose notification lets an error out.
    void set_failing(const std::weak_ptr<Surface>& surface) { failing_ = surface; }

    /// While one is held, Qt's event loop plans no turns: what is queued waits for `turn` or for a
    /// person.
    class Hold {
    public:
        explicit Hold(std::shared_ptr<FormLoop> loop);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        std::shared_ptr<FormLoop> loop_;
    };

    /// Held while a widget or a notification may be running the host's code.
    class Activity {
    public:
        explicit Activity(std::shared_ptr<FormLoop> loop);
        ~Activity();
        Activity(const Activity&) = delete;
        Activity& operator=(const Activity&) = delete;

    private:
        std::shared_ptr<FormLoop> loop_;
    };

    bool is_active() const noexcept { return activities_ > 0; }

    /// Keeps what is left of a control that went inside an activity until none is under way and
    /// Qt's own handling of its widgets has ended.
    void bury(std::shared_ptr<void> remains) { buried_.push_back(std::move(remains)); }

    /// Frees what was buried; nothing while an activity is under way.
    void free_buried() noexcept;

    /// Held while a program sends a widget what a person would do. The act gets no turns of its
    /// own, since the program's steps are turns already, and the program gets what handlers let
    /// out. Handlers themselves, and what a person does meanwhile, are outside of it.
    class Script {
    public:
        explicit Script(FormLoop& loop);
        ~Script();
        Script(const Script&) = delete;
        Script& operator=(const Script&) = delete;

        /// The first error counts.
        void keep(const std::exception_ptr& error) noexcept;
        void rethrow_error() const;

        /// Suspends the script while handlers run.
        class Pause {
        public:
            explicit Pause(FormLoop& loop);
            ~Pause();
            Pause(const Pause&) = delete;
            Pause& operator=(const Pause&) = delete;

        private:
            FormLoop& loop_;
            Script* script_;
        };

    private:
        FormLoop& loop_;
        Script* outer_;
        std::exception_ptr error_;
    };

    /// Null outside of a script.
    Script* script() const noexcept { return script_; }

private:
    FormLoop();

    void plan_turn();
    void plan_freeing();

    // The buried go before the queue that their parts post to.
    standard::MessageQueue queue_;
    std::vector<std::shared_ptr<void>> buried_;
    std::vector<Surface*> surfaces_;
    std::weak_ptr<Surface> failing_;
    int holds_ = 0;
    int activities_ = 0;
    bool planned_ = false;
    Script* script_ = nullptr;
    QMetaObject::Connection focus_watch_;
};

} // namespace krv::qt
