#pragma once

#include "krv/headless/activity.h"
#include "krv/headless/focus.h"
#include "krv/headless/headless_application.h"
#include "krv/headless/headless_control.h"
#include "krv/headless/headless_text_box.h"
#include "krv/headless/host_object.h"
#include "krv/headless/person.h"
#include "krv/standard/message_queue.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace krv::headless {

/// A form without a screen: a message queue, an application, a text box of its own and the surfaces
/// of any number of controls, one part of all that with the focus or none. None at first.
///
/// It outlives its controls and what works with them, and is not destroyed inside an event.
class HeadlessForm {
public:
    explicit HeadlessForm(std::string title = "krvList3");
    ~HeadlessForm();
    HeadlessForm(const HeadlessForm&) = delete;
    HeadlessForm& operator=(const HeadlessForm&) = delete;

    standard::MessageQueue& queue() noexcept { return queue_; }

    Focus& focus() noexcept { return focus_; }

    HeadlessApplication& application() noexcept { return application_; }

    /// Who types and clicks on this form.
    Person& person() noexcept { return person_; }

    /// The text box "outside" that is in no control, first in tab order.
    HeadlessTextBox& outside() noexcept { return outside_; }

    /// Places a control behind the others in tab order; sizes in twips. Owned by the form.
    HeadlessControl& add_control(platform::TwipsSingle width = 6000,
                                 platform::TwipsSingle height = 3000);

    /// Takes a control away, after the `KarvoList` that works with it was destroyed; allowed inside
    /// any event of it. Nothing more is heard of the control, and the focus, if it was there, moves
    /// on by tab order. The surface's memory stays until nothing can be running in it.
    void remove_control(HeadlessControl& control);

    /// Removed controls whose memory is still held.
    std::size_t removed_controls() const noexcept { return removed_.size(); }

    /// An object that controls can hand the focus to.
    std::shared_ptr<HostObject> make_object(std::string name, FocusRole role);

    /// One turn of the message loop: delivers what is queued, in order, until nothing is.
    /// \throws the first error out of a handler; what was still queued stays queued
    void turn();

    /// Expires when the form is destroyed.
    std::weak_ptr<const void> watch() const { return life_.watch(); }

private:
    friend class Activity;

    standard::LifeToken life_;
    int activities_ = 0;
    Focus focus_;
    standard::MessageQueue queue_;
    HeadlessApplication application_;
    HeadlessTextBox outside_;
    Person person_;
    std::vector<std::unique_ptr<HeadlessControl>> removed_;
    std::vector<std::unique_ptr<HeadlessControl>> controls_;
};

} // namespace krv::headless
