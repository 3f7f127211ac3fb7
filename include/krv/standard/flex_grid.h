#pragma once

#include "krv/platform/units.h"
#include "krv/standard/flex_grid_view.h"
#include "krv/standard/measures.h"
#include "krv/standard/message_queue.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace krv::standard {

class CellStore;
class ColumnMeasures;
class RowHeights;

/// How a person's press selects: the whole row from column 0, or the pressed cell.
enum class GridSelection { by_row, free };

/// The grid that every backend shares: texts, sizes, current cell, selection and scrolling, with
/// no pixels. A backend draws it as a `FlexGridView` and hands it the mouse.
///
/// Members in PascalCase are those of `platform::Grid`, with the same ranges, units and errors;
/// errors carry the grid's name as source and leave the grid unchanged. Rows and columns count from
/// 0; row 0 holds the captions and never scrolls. A new grid has 2 rows, 2 columns, row 0 and
/// column 0 current. Not for use by several threads at once, reading included.
///
/// The row/column change is the last act of the member that raises it: its handler may call the
/// grid again, throw, or destroy the grid.
class FlexGrid {
public:
    /// \param name   source of the grid's errors
    /// \param queue  takes the row/column changes that wait for the next turn; outlives the grid
    FlexGrid(std::string name,
             MessageQueue& queue,
             GridSelection selection = GridSelection::by_row);
    ~FlexGrid();
    FlexGrid(const FlexGrid&) = delete;
    FlexGrid& operator=(const FlexGrid&) = delete;

    // Shape

    std::int32_t Rows() const noexcept { return rows_; }

    void SetRows(std::int32_t rows);

    std::int32_t Cols() const noexcept { return cols_; }

    void SetCols(std::int32_t cols);
    void Clear();

    // Texts

    /// Valid until the grid changes. Text of the grid itself may be given to the setters.
    std::string_view TextMatrix(std::int32_t row, std::int32_t col) const;
    void SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text);
    std::string_view TextArray(std::int32_t index) const;
    void SetTextArray(std::int32_t index, std::string_view text);
    void AddItem(std::string_view item);
    void AddItem(std::string_view item, std::int32_t index);
    void RemoveItem(std::int32_t index);

    // Current cell and selection

    std::int32_t Row() const noexcept { return row_; }

    void SetRow(std::int32_t row);

    std::int32_t Col() const noexcept { return col_; }

    void SetCol(std::int32_t col);

    std::int32_t RowSel() const noexcept { return row_sel_; }

    void SetRowSel(std::int32_t row);

    std::int32_t ColSel() const noexcept { return col_sel_; }

    void SetColSel(std::int32_t col);

    /// Whether the cell lies in the block between the current cell and the selection's other
    /// corner.
    bool is_selected(std::int32_t row, std::int32_t col) const noexcept;

    // Sizes, places, alignment

    std::int32_t TopRow() const;
    void SetTopRow(std::int32_t row);
    bool RowIsVisible(std::int32_t row) const;
    /// Places too far away for 32 bits read as the nearest number there is.
    platform::Twips ColPos(std::int32_t col) const;
    platform::Twips RowPos(std::int32_t row) const;
    platform::Twips ColWidth(std::int32_t col) const;
    void SetColWidth(std::int32_t col, platform::Twips width);
    platform::Twips RowHeight(std::int32_t row) const;
    void SetRowHeight(std::int32_t row, platform::Twips height);
    std::int16_t ColAlignment(std::int32_t col) const;
    void SetColAlignment(std::int32_t col, std::int16_t alignment);

    float FontSize() const noexcept { return font_size_; }

    /// Rows whose height nobody set take the new font's default height; the others stay.
    /// \param points  more than 0, at most 2160
    /// \throws RuntimeError 380 outside
    void SetFontSize(float points);

    // What a backend needs

    /// Who draws the grid, not owned; null for none.
    void set_view(FlexGridView* view) noexcept { view_ = view; }

    /// Called for every row/column change, inside the assignment or in a turn of the queue.
    void set_on_row_col_change(std::function<void()> handler);

    GridSelection selection() const noexcept { return selection_; }

    /// Size of the area in which the grid is seen, captions included; 0 by 0 at first. Negative
    /// counts as 0. Pulls the scrolling back to its new limits.
    void set_view_size(platform::Twips width, platform::Twips height);

    platform::Twips view_width() const noexcept { return view_width_; }

    platform::Twips view_height() const noexcept { return view_height_; }

    /// Heights of all rows, captions included.
    std::int64_t content_height() const;
    /// Widths of all columns.
    std::int64_t content_width() const;

    /// Twips of the data rows that are scrolled out above, 0 to `max_scroll_y()`. `TopRow` is the
    /// row at this offset. It follows the top row when rows above it change their height.
    std::int64_t scroll_y() const;
    /// Clipped to 0 to `max_scroll_y()`.
    void set_scroll_y(std::int64_t offset);
    /// Top edge of the last useful `TopRow`: from there the last rows fit, so up to one row of
    /// empty space follows them. More only when the last row alone is higher than the view.
    std::int64_t max_scroll_y() const;

    /// Twips of the columns that are scrolled out on the left, 0 to `max_scroll_x()`.
    std::int64_t scroll_x() const noexcept { return scroll_x_; }

    /// Clipped to 0 to `max_scroll_x()`.
    void set_scroll_x(std::int64_t offset);
    std::int64_t max_scroll_x() const;

    /// Scrolls as little as needed to show the whole cell, or its top left when it is larger than
    /// the view. -1 leaves that direction alone; so do the caption row and hidden rows and columns.
    /// \throws RuntimeError 30009, 30010 for other cells that are not there
    void ensure_visible(std::int32_t row, std::int32_t col);

    /// Moves `TopRow` by so many shown rows, downwards when positive (the mouse wheel).
    void scroll_rows(std::int32_t rows);

    /// Page up 33, page down 34, End 35, Home 36: scrolls, moves no cell.
    /// \return whether it was one of these keys
    bool scroll_by_key(std::int16_t key_code);

    /// Row at a height within the view: 0 on the captions, -1 above them and below the last row.
    std::int32_t row_at(platform::Twips y) const;
    /// Column at a place within the view; -1 left of the first and right of the last column.
    std::int32_t col_at(platform::Twips x) const;

    // A person's mouse: places within the view. Only the current cell and the selection are the
    // grid's own affair; the backend raises the mouse events, in its order, around these calls.

    /// Moves the current cell to the pressed one (by row: to the row's column 0, the row selected
    /// up to its last column), scrolls it into view and raises at most one row/column change.
    /// Beside the cells nothing moves. \return whether a cell was pressed
    bool mouse_press(platform::Twips x, platform::Twips y);
    /// Between a press on a cell and its release: moves `RowSel` (free: `ColSel` too) to the
    /// pointer; beside the cells they stay. The current cell does not move.
    void mouse_drag(platform::Twips x, platform::Twips y);

    /// Ends a drag; the selection stays as it is.
    void mouse_release() noexcept { dragging_ = false; }

    /// All the memory that the grid holds, spare room included.
    std::size_t memory_bytes() const noexcept;

private:
    /// What a view is told about when it is different.
    struct Stand {
        std::int32_t row, col, row_sel, col_sel, top_row;
        std::int64_t top_offset, scroll_x;
    };

    void check_cell(std::int32_t row, std::int32_t col) const;
    void check_row(std::int32_t row) const;
    void check_col(std::int32_t col) const;
    void check_alignment_col(std::int32_t col) const;
    [[noreturn]] void fail(std::int32_t number, const char* description) const;

    Stand stand() const noexcept;
    void tell_moves(const Stand& before) const;
    void tell_layout(const Stand& before) const;

    void insert_row(std::string_view item, std::int32_t index);
    void plan_clamp(std::int32_t rows, std::int32_t cols);
    void clamp_to_shape() noexcept;
    bool deliver_waiting();
    void
    move_current(std::int32_t row, std::int32_t col, std::int32_t row_sel, std::int32_t col_sel);
    void raise_row_col_change();

    std::int64_t row_edge(std::int32_t row) const;
    std::int64_t body_height() const;
    std::int32_t last_top_row() const;
    void place_top(std::int64_t offset);
    void settle_scroll();
    void show_row(std::int32_t row);
    void show_col(std::int32_t col);
    void page_up();
    void page_down();

    std::string name_;
    MessageQueue& queue_;
    GridSelection selection_;
    FlexGridView* view_ = nullptr;
    std::function<void()> on_row_col_change_;

    std::int32_t rows_ = 2;
    std::int32_t cols_ = 2;
    std::unique_ptr<CellStore> cells_;
    std::unique_ptr<RowHeights> heights_;
    std::unique_ptr<ColumnMeasures> columns_;

    std::int32_t row_ = 0;
    std::int32_t col_ = 0;
    std::int32_t row_sel_ = 0;
    std::int32_t col_sel_ = 0;
    std::int32_t seen_row_ = 0; // current cell as the last row/column change saw it
    std::int32_t seen_col_ = 0;
    bool change_waits_ = false;
    bool dragging_ = false;

    float font_size_ = default_font_size;
    platform::Twips view_width_ = 0;
    platform::Twips view_height_ = 0;
    std::int64_t scroll_x_ = 0;
    std::int32_t top_row_ = 1;
    std::int64_t top_offset_ = 0; // twips of the top row that are scrolled out

    LifeToken life_;
};

} // namespace krv::standard
