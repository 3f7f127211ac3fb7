#pragma once

#include "control/column_model.h"
#include "control/edit_state.h"
#include "control/event_list.h"

#include "krv/control/constituents.h"
#include "krv/platform/life.h"

#include <memory>

namespace krv {

namespace editing {
class Commands;
}

/// The state that all routines of one control share.
struct ControlState {
    ControlState(const Constituents& constituents, const Surroundings& surroundings)
        : parts(constituents)
        , host(surroundings) {}

    Constituents parts;
    Surroundings host;

    ColumnModel columns;
    EditState edit;

    bool AutoAdd = false;
    bool AutoStartInputOnClick = false;
    std::int32_t LineNumberColumn = -1;
    std::shared_ptr<platform::Object> GiveFocusTo;

    EventList events;

    /// Set before the first routine runs; lives as long as this state.
    editing::Commands* commands = nullptr;

    platform::LifeToken life;
};

} // namespace krv
