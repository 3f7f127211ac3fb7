#pragma once

#include "krv/standard/message_queue.h"

#include <optional>

class QWidget;

namespace krv::qt {

class Surface;

/// What the surface knows of a part.
class PartHandle {
public:
    /// \param surface  outlives the part
    explicit PartHandle(Surface& surface)
        : surface_(surface) {}

    PartHandle(const PartHandle&) = delete;
    PartHandle& operator=(const PartHandle&) = delete;

    Surface& surface() const noexcept { return surface_; }

    /// Null once the widget is gone.
    virtual QWidget* widget() const = 0;
    /// Visible and enabled by its own flags: whether it may hold the focus.
    virtual bool can_take_focus() const = 0;
    virtual bool is_tab_stop() const = 0;

    /// In a turn, after the focus moved.
    virtual void focus_gained() {}

    /// In a turn, after the focus moved.
    virtual void focus_lost() {}

    /// The mouse button that was pressed here is no longer held, and nothing follows from that.
    virtual void let_go() {}

    /// Places the widget anew: the resolution is another one.
    virtual void place() = 0;

    /// Ends with the part's use, `end_life`, which may be long before the part goes.
    const standard::LifeToken& life() const noexcept { return *life_; }

    /// Whoever watches the part takes it for gone; what is queued for it is dropped.
    void end_life() { life_.emplace(); }

protected:
    ~PartHandle() = default;

private:
    Surface& surface_;
    std::optional<standard::LifeToken> life_{std::in_place};
};

} // namespace krv::qt
