#pragma once

#include "krv/standard/message_queue.h"

class QWidget;

namespace krv::qt {

/// What the surface knows of a part.
class PartHandle {
public:
    /// Null once the widget is gone.
    virtual QWidget* widget() const = 0;
    /// Visible and enabled by its own flags: whether it may hold the focus.
    virtual bool can_take_focus() const = 0;
    virtual bool is_tab_stop() const = 0;

    /// In a turn, after the focus moved.
    virtual void focus_gained() {}

    /// In a turn, after the focus moved.
    virtual void focus_lost() {}

    /// Places the widget anew: the resolution is another one.
    virtual void place() = 0;

    const standard::LifeToken& life() const noexcept { return life_; }

protected:
    ~PartHandle() = default;

private:
    standard::LifeToken life_;
};

} // namespace krv::qt
