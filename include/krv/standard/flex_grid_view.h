#pragma once

#include <cstdint>

namespace krv::standard {

/// Whoever draws a `FlexGrid`. Called inside the grid's members, after the change and before the
/// row/column change is raised; must not change the grid. Rows that come or go and another layout
/// may mean other limits of scrolling too, without a call of `scrolled`. Cheap calls only: loading
/// a list makes one `cells_changed` a cell.
class FlexGridView {
public:
    /// Texts of these rows, both included, are different.
    virtual void cells_changed(std::int32_t first_row, std::int32_t last_row) = 0;
    virtual void rows_inserted(std::int32_t first_row, std::int32_t count) = 0;
    virtual void rows_removed(std::int32_t first_row, std::int32_t count) = 0;
    /// Column count, widths, heights, alignment or font: everything may have to be drawn anew.
    virtual void layout_changed() = 0;
    /// Current cell or selection.
    virtual void selection_changed() = 0;
    /// The horizontal or vertical offset is another one.
    virtual void scrolled() = 0;

protected:
    ~FlexGridView() = default;
};

} // namespace krv::standard
