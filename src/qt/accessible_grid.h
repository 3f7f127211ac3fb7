#pragma once

#include <QAccessible>

#include <cstdint>
#include <memory>

namespace krv::qt {

class GridView;

/// What happened to the cells of a view since screen readers were told last.
struct ModelChanges {
    enum class Kind { none, data, insertion, removal, reset };

    Kind kind = Kind::none;
    std::int32_t first = 0;
    std::int32_t last = 0;

    void add_data(std::int32_t first_row, std::int32_t last_row);
    void add_insertion(std::int32_t first_row, std::int32_t count);
    void add_removal(std::int32_t first_row, std::int32_t count);

    void add_reset() { kind = Kind::reset; }
};

/// What screen readers are told about changes that are any.
std::unique_ptr<QAccessibleTableModelChangeEvent> change_event(GridView& view,
                                                               const ModelChanges& changes);

/// Makes `GridView`s known to screen readers as tables.
void install_accessible_grid();

/// Tells screen readers, when there are any.
void notify_changes(GridView& view, const ModelChanges& changes);
/// The current cell and the selection of the view, when a screen reader runs.
void notify_selection(GridView& view);

} // namespace krv::qt
