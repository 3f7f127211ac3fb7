#pragma once

#include "krv/platform/controls.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv::platform {

/// What a grid tells its owner. `x` and `y` are twips from the grid's top left.
class GridEvents {
public:
    virtual void KeyDown(std::int16_t& /*key_code*/, std::int16_t& /*shift*/) {}

    virtual void
    MouseDown(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

    virtual void
    MouseUp(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

    /// A press and a release on the grid; comes after `MouseUp`.
    virtual void Click(std::int16_t /*button*/, std::int16_t /*shift*/, float /*x*/, float /*y*/) {}

    virtual void DblClick() {}

    /// The current cell moved: raised inside the assignment or key that moved it, or in the next
    /// turn of the message loop when rows or columns that went away moved it.
    virtual void RowColChange() {}

protected:
    ~GridEvents() = default;
};

/// A grid of texts with one fixed row (row 0, the captions), a current cell and a selection.
///
/// Rows and columns count from 0, the caption row included. Every error leaves the grid unchanged.
/// Errors carry the grid's name as source.
class Grid : public Part {
public:
    // Shape

    virtual std::int32_t Rows() const = 0;
    /// Keeps the rows that remain, drops the others, makes new ones empty with the default height.
    /// \throws RuntimeError 30009 below 1, 30006 when memory cannot be had
    virtual void SetRows(std::int32_t rows) = 0;
    virtual std::int32_t Cols() const = 0;
    /// Keeps the columns that remain, drops the others, makes new ones empty with default width and
    /// alignment.
    /// \throws RuntimeError 30010 below 1, 30006 when memory cannot be had
    virtual void SetCols(std::int32_t cols) = 0;
    /// Empties every text, captions included; keeps shape, sizes, alignments, scrolling and the
    /// current cell.
    virtual void Clear() = 0;

    // Texts (UTF-8, kept exactly)

    /// Valid until the grid changes.
    /// \throws RuntimeError 381 when there is no such cell
    virtual std::string_view TextMatrix(std::int32_t row, std::int32_t col) const = 0;
    /// \throws RuntimeError 381 when there is no such cell, 30006 when memory cannot be had
    virtual void SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text) = 0;
    /// The cell with the number row x `Cols` + column; `TextArray(c)` is the caption of column c.
    /// \throws RuntimeError 381 when there is no such cell
    virtual std::string_view TextArray(std::int32_t index) const = 0;
    /// \throws RuntimeError 381 when there is no such cell, 30006 when memory cannot be had
    virtual void SetTextArray(std::int32_t index, std::string_view text) = 0;

    // Rows. `item` is split at tab characters; missing fields are empty, surplus ones dropped.

    /// Appends a row.
    /// \throws RuntimeError 30006 when memory cannot be had
    virtual void AddItem(std::string_view item) = 0;
    /// Inserts a row before row `index`, 1 to Rows() (Rows() appends). Current cell, selection and
    /// `TopRow` keep their numbers.
    /// \throws RuntimeError 30001 for the caption row, 30009 for another row that is not there
    virtual void AddItem(std::string_view item, std::int32_t index) = 0;
    /// \throws RuntimeError 30000 for the caption row, 30002 for a row that is not there, 30015 for
    ///         the last row below the captions
    virtual void RemoveItem(std::int32_t index) = 0;

    // Current cell and selection. Setting them never scrolls.

    virtual std::int32_t Row() const = 0;
    /// Collapses the selection to the current cell, also when the value is the old one; then raises
    /// `RowColChange` inside the call when the value is new.
    /// \throws RuntimeError 30009 outside 0 to Rows() - 1
    virtual void SetRow(std::int32_t row) = 0;
    virtual std::int32_t Col() const = 0;
    /// As `SetRow`.
    /// \throws RuntimeError 30010 outside 0 to Cols() - 1
    virtual void SetCol(std::int32_t col) = 0;
    /// The selection's other corner.
    virtual std::int32_t RowSel() const = 0;
    /// \throws RuntimeError 30009 outside 0 to Rows() - 1
    virtual void SetRowSel(std::int32_t row) = 0;
    virtual std::int32_t ColSel() const = 0;
    /// \throws RuntimeError 30010 outside 0 to Cols() - 1
    virtual void SetColSel(std::int32_t col) = 0;

    // Scrolling and geometry, in twips within the grid, scrolling included

    /// Uppermost visible row below the captions; 1 at rest and with captions only.
    virtual std::int32_t TopRow() const = 0;
    /// A value beyond the last useful one becomes that one; 0 becomes 1.
    /// \throws RuntimeError 30009 when negative or above Rows() - 1
    virtual void SetTopRow(std::int32_t row) = 0;
    /// True when any part of the row shows; hidden rows never do, the caption row always does.
    /// \throws RuntimeError 30009 when there is no such row
    virtual bool RowIsVisible(std::int32_t row) const = 0;
    /// Left edge; negative or beyond the width when scrolled out.
    /// \throws RuntimeError 30010 when there is no such column
    virtual Twips ColPos(std::int32_t col) const = 0;
    /// Top edge; negative or beyond the height when scrolled out.
    /// \throws RuntimeError 30009 when there is no such row
    virtual Twips RowPos(std::int32_t row) const = 0;
    /// 960 at first; 0 means hidden.
    /// \throws RuntimeError 30010 when there is no such column
    virtual Twips ColWidth(std::int32_t col) const = 0;
    /// -1 gives the default width back.
    /// \throws RuntimeError 30010 when there is no such column, 30014 for other negative widths
    virtual void SetColWidth(std::int32_t col, Twips width) = 0;
    /// 240 at first; 0 means hidden.
    /// \throws RuntimeError 30009 when there is no such row
    virtual Twips RowHeight(std::int32_t row) const = 0;
    /// -1 gives the default height back, which follows the font size.
    /// \throws RuntimeError 30009 when there is no such row, 30013 for other negative heights
    virtual void SetRowHeight(std::int32_t row, Twips height) = 0;
    /// 0 to 8 (left, centre, right; top, centre, bottom in each), 9 general: text left, numbers
    /// right. 9 at first; 0 is drawn like 9.
    /// \throws RuntimeError 30004 when there is no such column
    virtual std::int16_t ColAlignment(std::int32_t col) const = 0;
    /// \throws RuntimeError 30004 when there is no such column, 30005 for another value
    virtual void SetColAlignment(std::int32_t col, std::int16_t alignment) = 0;

    /// The one listener, not owned; null for none.
    virtual void SetEvents(GridEvents* events) = 0;
};

} // namespace krv::platform
