#pragma once

#include "krv/control/constituents.h"
#include "krv/control/enumerations.h"
#include "krv/control/events.h"
#include "krv/platform/data_access.h"
#include "krv/platform/property_store.h"
#include "krv/platform/units.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace krv {

/// A list of records with an input line: the control, without a screen of its own.
///
/// A backend makes the constituents and hands them over; the host sets properties and calls
/// methods. Columns count from 0. Public rows count data rows from 0: public row r is row r + 1 of
/// `Grid`.
///
/// Unless a member says otherwise, a put ends by notifying the container that the property changed,
/// under the property's own name; a put that fails notifies nothing. Where the host's code may run
/// (message boxes, turns of the message loop, notifications, events) it may call the control again
/// or destroy it. Errors are `platform::RuntimeError`; "error 9 when `col` is outside" means a
/// column below 0 or not below `Cols()`, and that nothing is stored.
class KarvoList {
public:
    /// Hides the input line, the field editor and every function button but `btnAdd`. Everything
    /// referred to outlives the control. Call `InitProperties` or `ReadProperties` before the control
    /// is used.
    KarvoList(const Constituents& constituents, const Surroundings& surroundings);
    ~KarvoList();

    KarvoList(const KarvoList&) = delete;
    KarvoList& operator=(const KarvoList&) = delete;

    /// Start-up of a newly placed control: one column, no rows, the default captions, keys and
    /// flags, the application title "Rolda". Notifies nothing. From here on the control reacts to
    /// its parts and its size: the host places it now, and the container's `Resize` lays it out.
    void InitProperties();

    /// Start-up of a stored control, in place of `InitProperties`: reads every setting in its fixed
    /// order and applies each at once. Notifies nothing, loads nothing, lays nothing out: the host
    /// places the control now. May be called again, to take over other settings; an open field is
    /// closed then, its text goes nowhere. A key that the bag lacks has the bag's default, which is
    /// not always that of a new control.
    /// \throws RuntimeError 13 or 6 for a stored value that does not convert, the key in its text; 6
    ///         for more than 32,767 columns, before the first one is read; what a grid refuses; what
    ///         the bag raises. What was read before stays, and the control is usable.
    void ReadProperties(platform::PropertyBag& bag);

    /// Writes every setting in the same order, from the live state: captions, widths, alignments,
    /// rows and current row as the list grid has them. Changes and notifies nothing.
    /// \throws RuntimeError 6 for more than 32,767 columns, before anything is written; what the bag
    ///         raises
    void WriteProperties(platform::PropertyBag& bag) const;

    // --- Columns -------------------------------------------------------------------------------

    /// Number of columns, the same in both grids. Source: `Grid.Cols`.
    std::int32_t Cols() const;
    /// Resizes the eight column arrays, then `Grid`, then `GridIn`. Columns that remain keep their
    /// settings; new ones start with False, 0 and "", default width and alignment.
    /// \throws RuntimeError 6 for the least 32-bit value, 9 for other values below 1, 7 when the
    ///         arrays' memory cannot be had: nothing changes; 30006 from a grid that lacks memory,
    ///         the arrays are resized by then
    void SetCols(std::int32_t cols);

    /// Whether the user may edit the column in the input line.
    /// \throws RuntimeError 9 when `col` is outside
    bool ColEditable(std::int32_t col) const;
    void SetColEditable(std::int32_t col, bool value);

    /// Whether a row needs a value in the column before it can be confirmed.
    /// \throws RuntimeError 9 when `col` is outside
    bool ColIsNecessary(std::int32_t col) const;
    void SetColIsNecessary(std::int32_t col, bool value);

    /// Longest text that the editor takes, in characters; 0 and less mean any length.
    /// \throws RuntimeError 9 when `col` is outside
    std::int16_t ColFieldLength(std::int32_t col) const;
    void SetColFieldLength(std::int32_t col, std::int16_t value);

    /// Data-type code of the bound field (3 whole number, 5 double, 133 date, 202 text, ...); kept
    /// for the host, not used by the control.
    /// \throws RuntimeError 9 when `col` is outside
    std::int16_t ColFieldType(std::int32_t col) const;
    void SetColFieldType(std::int32_t col, std::int16_t value);

    /// Pattern that formats the column's values, for example "#,##0.00" or "dd/mm/yyyy"; empty for
    /// plain conversion to text.
    /// \throws RuntimeError 9 when `col` is outside
    std::string ColFormat(std::int32_t col) const;
    void SetColFormat(std::int32_t col, std::string_view value);

    /// Field of the recordset that the column shows; empty or blanks for none.
    /// \throws RuntimeError 9 when `col` is outside
    std::string ColDataField(std::int32_t col) const;
    void SetColDataField(std::int32_t col, std::string_view value);

    /// Marks the record that a column's value belongs to: a tag for the host, not used by the
    /// control.
    /// \throws RuntimeError 9 when `col` is outside; then 6 for a value outside -32768 to 32767
    krvListRecords ColFromRecord(std::int32_t col) const;
    void SetColFromRecord(std::int32_t col, krvListRecords value);

    /// Marks the column as part of the row's key (not 0): a tag for the host, not used by the
    /// control.
    /// \throws RuntimeError 9 when `col` is outside; then 6 for a value outside -32768 to 32767
    krvListRecords ColIsKey(std::int32_t col) const;
    void SetColIsKey(std::int32_t col, krvListRecords value);

    /// Caption of a column. Source: `Grid.TextArray(col)`; a put writes `Grid`, then `GridIn`.
    /// \throws RuntimeError 381 from the grid for a number that is no cell of it. The number counts
    ///         cells row by row, so one beyond the captions reaches a data cell; where `GridIn` has
    ///         none, a put has written `Grid` by then.
    std::string Caption(std::int32_t col) const;
    void SetCaption(std::int32_t col, std::string_view caption);

    /// Width of a column in twips; 0 hides it, a put of -1 gives the default width of 960.
    /// Source: `Grid`; a put writes `Grid`, then `GridIn`.
    /// \throws RuntimeError 30010 from the grid for a bad column, 30014 for other negative widths
    platform::Twips ColWidth(std::int32_t index) const;
    void SetColWidth(std::int32_t index, platform::Twips width);

    /// Alignment of a column, a `krvAlignment` or another value that grids know (0 to 9).
    /// Source: `Grid`; a put narrows to 16 bits, then writes `Grid`, then `GridIn`.
    /// \throws RuntimeError 6 outside 16 bits, before a grid is asked; 30004 from the grid for a
    /// bad
    ///         column, 30005 for a value that grids do not know
    std::int32_t ColAlignment(std::int32_t index) const;
    void SetColAlignment(std::int32_t index, std::int32_t alignment);

    /// Left edge of a column in twips within the list grid, scrolling included. Source: `Grid`.
    /// \throws RuntimeError 30010 from the grid for a bad column
    platform::Twips ColPos(std::int32_t col) const;

    /// Column that carries each row's line number, -1 for none; any 32-bit value is stored.
    std::int32_t LineNumberColumn() const;
    void SetLineNumberColumn(std::int32_t col);

    // --- Rows ----------------------------------------------------------------------------------

    /// Number of data rows, the caption row not counted. Source: `Grid.Rows` - 1.
    std::int32_t Rows() const;
    /// Keeps the rows that remain; new rows are empty. `GridIn` is not touched.
    /// \throws RuntimeError 6 for the largest 32-bit value, 30009 from the grid below 0
    void SetRows(std::int32_t rows);

    /// Current public row, -1 while the caption row is current. Source: `Grid.Row` - 1.
    std::int32_t Row() const;
    /// Opens the row in the input line, after asking about a pending edit: the row stays where it was
    /// when the user keeps the edit. Raises `RowSelect`, then `LineEditStart`.
    /// \throws RuntimeError 30009 from the grid outside -1 to Rows() - 1, 6 for the largest 32-bit
    ///         value
    void SetRow(std::int32_t row);

    /// First visible row as the grid itself numbers it (1 is public row 0). A put scrolls there, or
    /// as far as there are rows to show. Notifies nothing.
    /// \throws RuntimeError 30009 from the grid when negative or above Rows()
    std::int32_t TopRow() const;
    void SetTopRow(std::int32_t grid_row);

    /// Text of a list cell by its public row; row -1 is the caption row. A put notifies nothing.
    /// \throws RuntimeError 381 from the grid for a cell that is not there, 6 for the largest row
    std::string TextMatrix(std::int32_t row, std::int32_t col) const;
    void SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text);

    /// Top of a list row in twips, measured in the list grid.
    /// \param row  public row, 0 to Rows() - 1; the caption row is not counted
    /// \return     0 for any other row, never an error
    /// Source: `Grid.RowPos(row + 1)`.
    platform::Twips RowPos(std::int32_t row) const;

    // --- State ---------------------------------------------------------------------------------

    /// Whether a new row is being entered through the input line.
    bool Adding() const;
    /// Whether the row being entered will go before the current row.
    bool Inserting() const;
    /// Whether the field editor has the focus.
    bool Editing() const;
    /// Whether the list's data changed since they were loaded.
    bool Modified() const;
    /// Whether the input line holds changes not yet confirmed. Source: `btnOK.Visible`.
    bool InputModified() const;

    /// Text of the input line in a column. Source: `GridIn.TextMatrix(1, col)`; a put also shows
    /// `btnOK`, so that the row can be confirmed.
    /// \throws RuntimeError 381 from the grid for a bad column; `btnOK` stays as it was then
    std::string InputArray(std::int32_t col) const;
    void SetInputArray(std::int32_t col, std::string_view text);

    /// Whether a new row is opened at once after a confirmed row and after the list was emptied.
    bool AutoAdd() const;
    void SetAutoAdd(bool value);

    /// Whether a click on a list row starts its editing.
    bool AutoStartInputOnClick() const;
    void SetAutoStartInputOnClick(bool value);

    /// Object that gets the focus when the user leaves the input line; null for none. Shared.
    std::shared_ptr<platform::Object> GiveFocusTo() const;
    void SetGiveFocusTo(std::shared_ptr<platform::Object> object);

    /// Whether Tab moves between the fields. Source: the inverse of `btnAdd.TabStop`; a put writes
    /// that tab stop alone.
    bool MoveWithTab() const;
    void SetMoveWithTab(bool value);

    /// Whether the function buttons are enabled. Source: `btnAdd.Enabled`; a put writes `btnAdd`,
    /// `btnInsert`, `btnDelete`, `btnCopy`, `btnOK` in this order. Grids and editor stay enabled.
    bool Enabled() const;
    void SetEnabled(bool enabled);

    /// Title of every message box. Source: the application's title, which a put leaves as it is: it
    /// assigns the title to itself and only notifies.
    std::string MsgTitle() const;
    void SetMsgTitle(std::string_view title);

    // --- Function buttons ----------------------------------------------------------------------

    /// Function keys, 112 (F1) to 123 (F12). A put recomposes the button's caption; a code outside
    /// shows a message and changes and notifies nothing.
    std::int16_t KeyAdd() const;
    void SetKeyAdd(std::int16_t code);
    std::int16_t KeyInsert() const;
    void SetKeyInsert(std::int16_t code);
    std::int16_t KeyDelete() const;
    void SetKeyDelete(std::int16_t code);
    std::int16_t KeyCopy() const;
    void SetKeyCopy(std::int16_t code);
    /// Key that confirms a row: any 16-bit code.
    std::int16_t KeyOK() const;
    void SetKeyOK(std::int16_t code);

    /// Caption without its key mark. A put makes the button show "text (F5)".
    std::string AddCaption() const;
    void SetAddCaption(std::string_view caption);
    std::string InsertCaption() const;
    void SetInsertCaption(std::string_view caption);
    std::string DeleteCaption() const;
    void SetDeleteCaption(std::string_view caption);
    std::string CopyCaption() const;
    void SetCopyCaption(std::string_view caption);
    /// Source: the caption of `btnOK`, which has no key mark.
    std::string OKCaption() const;
    void SetOKCaption(std::string_view caption);

    /// Whether the host wants the button shown at all. A put stores the flag and shows or hides the
    /// button; the control hides and shows it further as the work goes on.
    bool AddVisible() const;
    void SetAddVisible(bool visible);
    bool InsertVisible() const;
    void SetInsertVisible(bool visible);
    bool DeleteVisible() const;
    void SetDeleteVisible(bool visible);
    bool CopyVisible() const;
    void SetCopyVisible(bool visible);
    bool OkVisible() const;
    void SetOkVisible(bool visible);

    /// Colour that marks the active function's button; 0 or a system colour: the highlight line
    /// does.
    platform::OleColor EvidenziaColor() const;
    void SetEvidenziaColor(platform::OleColor color);

    /// Marks a function button: 1 Add, 2 Insert, 3 Delete, 4 Copy; 0 takes the mark away; any other
    /// number does nothing.
    void EvidenziaFunzione(std::int16_t Funzione);

    /// Colours of the buttons' faces. Source: `BackColor` of the button.
    platform::OleColor AddColor() const;
    void SetAddColor(platform::OleColor color);
    platform::OleColor InsertColor() const;
    /// Notifies "InserColor": hosts know the property by that name in their stored settings.
    void SetInsertColor(platform::OleColor color);
    platform::OleColor DeleteColor() const;
    void SetDeleteColor(platform::OleColor color);
    platform::OleColor CopyColor() const;
    void SetCopyColor(platform::OleColor color);
    platform::OleColor OkColor() const;
    void SetOkColor(platform::OleColor color);

    // --- Appearance and keys -------------------------------------------------------------------

    /// Background colour of the control's own surface.
    platform::OleColor BackColor() const;
    void SetBackColor(platform::OleColor color);

    /// Height of the function buttons in twips. Source: `btnAdd.Height`; a put gives all five the
    /// height and lays the control out.
    platform::TwipsSingle ButtonsHeight() const;
    void SetButtonsHeight(platform::TwipsSingle height);
    /// Width of the function buttons but the confirm button, in twips. Source: `btnAdd.Width`.
    platform::TwipsSingle ButtonsWidth() const;

    /// Gives every part the font size, in points, and the present rows the height that goes with it;
    /// 0 does nothing. The control is not laid out anew.
    /// \throws RuntimeError 380 for a negative size or one above 2160: nothing changed
    void SetFont(float FontSize);

    /// Handles a key as if it went down on the control: a command, a move in the list, else `KeyDown`.
    void SendKeys(std::int16_t KeyCode, std::int16_t Shift);

    // --- Record source -------------------------------------------------------------------------

    /// Connection string. Empty, or beginning with "access" in any letter case, it stands for the
    /// database file in `DataBaseName`, and `Refresh` replaces it by the string built from that.
    std::string Connect() const;
    void SetConnect(std::string_view connect);

    /// Path of a database file.
    std::string DataBaseName() const;
    void SetDataBaseName(std::string_view path);

    /// Table name or query; empty for none (a blank is not empty). Notifies "Recordsource".
    std::string Recordsource() const;
    void SetRecordsource(std::string_view New_RecordSource);

    /// Whether the recordset is opened with the read-only lock type (1) instead of the pessimistic
    /// (2).
    bool ReadOnlyRecordset() const;
    void SetReadOnlyRecordset(bool nReadOnly);

    /// The open recordset, or the one that the host set; null for none. A put only stores the
    /// reference; the next `Refresh` or `CloseAll` closes it.
    std::shared_ptr<platform::Recordset> Recordset() const;
    void SetRecordset(std::shared_ptr<platform::Recordset> recordset);

    /// Closes what is open, opens the record source and loads all its records into the list, one
    /// row a record; then resets the edit state. With an empty `Recordsource` only the reset runs.
    ///
    /// What keeps the source from opening is shown in a message box: the list stays as it was and
    /// no error is raised. Asks nothing and offers no field.
    /// \throws RuntimeError 6 when a key's number leaves 16 bits (before anything is closed);
    ///         3265 for a column whose field the recordset lacks, 13 or 6 for a value that cannot be shown,
    ///         and what the engine raises while reading: rows loaded until then stay, no reset
    ///         runs; what a handler lets out in the reset's turn of the message loop: the buttons
    ///         and `Modified` are not reset then
    void Refresh();

    /// Empties every text of both grids, captions included, and resets the edit state; the rows
    /// stay. With `AutoAdd` a new row is opened.
    void Clear();

    /// Removes every row, keeps the captions, and resets the edit state. With `AutoAdd` a new row
    /// is opened, unless `NeverAdd` is True.
    void Svuota(bool NeverAdd = false);

    /// Closes and releases recordset and connection, the host's recordset included. Never fails.
    void CloseAll();
    /// The same as `CloseAll`.
    void CloseRecordset();

    // --- Row commands --------------------------------------------------------------------------

    // The result is False whatever the command did: hosts learn the outcome from the events and the
    // state properties. Each gives the message loop turns, may ask the user, and raises its event
    // first, which may cancel it. Errors of handlers come out.

    /// While `btnAdd` is visible: opens an empty new row that will be appended; asks about a pending
    /// edit of another row first.
    /// \throws RuntimeError 381 without the column of the line numbers, 6 for more than 32,768
    ///         columns; no row is opened
    bool Add();
    /// While `btnInsert` is visible: opens an empty new row that will go before the current one.
    /// \throws RuntimeError as `Add`
    bool Insert();
    /// Asks, then removes the current row from the list and numbers the rows below anew.
    /// \throws RuntimeError 381 without the column of the line numbers; the row stays
    bool Delete();
    /// Opens a new row with the current row's texts that will be appended; asks about a pending edit
    /// first.
    /// \throws RuntimeError 381 without the column of the line numbers; no row is opened
    bool Copy();
    /// Confirms the open row into the list; does nothing while `btnOK` is hidden. A refused field or
    /// row, or a necessary column without a value, leaves the row open.
    /// \throws RuntimeError 381 when a row is inserted without the column of the line numbers, 30006
    ///         from a grid that lacks memory; the row stays open
    bool OK();

    /// Acts as a click on a public row, which is scrolled into view and made current; ends there when
    /// the user keeps a pending edit. `Button` and `Shift` come back as the listeners of `ListClick`
    /// left them.
    /// \throws RuntimeError 30009 from the grid without such a row, 6 for the largest 32-bit value
    void RowClick(std::int32_t Row, std::int16_t& Button, std::int16_t& Shift);

    /// Puts the field editor on a column of the input line, after committing the open field.
    /// \return whether it stands there; False without an open row, for a column that is hidden, not
    ///         editable or not there, and when the host refuses the open field
    bool SetInput(std::int32_t Col);

    // --- Events --------------------------------------------------------------------------------

    /// Adds a listener behind the others; one that is there already stays where it is. It is not
    /// owned, and unsubscribes before it goes. One that is added inside an event hears the next.
    void subscribe(KarvoListEvents& listener);
    /// The listener hears nothing any more, also of an event under way.
    void unsubscribe(KarvoListEvents& listener);

    /// The formatter that the control was made with.
    const platform::Formatter& formatter() const noexcept;

    /// Expires when the control is destroyed.
    std::weak_ptr<const void> watch() const;

private:
    class Rooms;

    std::unique_ptr<Rooms> rooms_;
};

} // namespace krv
