#include "control/appearance.h"

#include "control/control_state.h"

#include <cmath>

namespace krv {

namespace {

/// Rows are higher than their text by this factor.
constexpr double row_factor = 1.4;

void set_tab_stops(const ControlState& state, bool tab_stop) {
    for (platform::Part* part : state.host.container.Controls()) {
        try {
            part->SetTabStop(tab_stop);
        } catch (const platform::RuntimeError&) {
            continue; // the line has no tab stop
        }
    }
}

} // namespace

void set_font(const ControlState& state, float size) {
    if (size == 0) {
        return;
    }
    const Constituents& parts = state.parts;
    platform::Container& container = state.host.container;
    container.SetFontSize(size);
    const double height = static_cast<double>(container.TextHeight("A")) * row_factor;
    const auto row_height = static_cast<platform::Twips>(std::nearbyint(height));

    parts.Grid.SetFontSize(size);
    for (platform::Button* button : parts.buttons()) {
        button->SetFontSize(size);
    }
    for (std::int32_t row = 0; row < parts.Grid.Rows(); ++row) {
        parts.Grid.SetRowHeight(row, row_height);
    }
    parts.GridIn.SetFontSize(size);
    parts.GridIn.SetRowHeight(0, row_height);
    parts.GridIn.SetRowHeight(1, row_height);
    parts.GridIn.SetHeight(static_cast<platform::TwipsSingle>(2 * height + 30));
    parts.InpFld.SetFontSize(size);
    parts.InpFld.SetHeight(static_cast<platform::TwipsSingle>(height));
}

void restore_tab_stops(const ControlState& state) {
    set_tab_stops(state, true);
}

void clear_tab_stops(const ControlState& state) {
    set_tab_stops(state, false);
}

} // namespace krv
