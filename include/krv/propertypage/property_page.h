#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/dialog_controls.h"
#include "krv/platform/formatter.h"
#include "krv/platform/host.h"
#include "krv/platform/property_page_site.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace krv {

/// The editors of the page. A backend makes them and hands them over; they outlive the page.
struct PageEditors {
    // The whole list
    platform::EntryBox& txtDataBaseName;
    platform::EntryBox& txRecordSource;
    platform::EntryBox& txConnection;
    platform::EntryBox& txtCols;
    platform::EntryBox& txtRows;
    platform::EntryBox& txtLineNumberColumn;
    platform::CheckBox& chkOkVisible;
    platform::CheckBox& chkCopyVisible;
    platform::CheckBox& chkDeleteVisible;
    platform::CheckBox& chkInsertVisible;
    platform::CheckBox& chkAddVisible;
    platform::CheckBox& chkEnabled;
    platform::CheckBox& chkAutoAdd;
    // One column
    platform::TabStrip& TabStrip1;
    platform::EntryBox& txtCaption;
    platform::EntryBox& txtColWidth;
    platform::ComboBox& cmbAlignment;
    platform::ComboBox& cmbDataField;
    platform::ComboBox& cmbDataType;
    platform::EntryBox& txtFieldLength;
    platform::EntryBox& txtFormat;
    platform::CheckBox& chkEditable;
    platform::CheckBox& chkIsNecessary;
    // Shown on demand
    platform::FileDialog& CommonDialog1;
};

/// What the page asks of the program that shows it. Everything outlives the page.
struct PageSurroundings {
    platform::PropertyPageSite& site;
    platform::Application& application;
    platform::DataAccess& data_access;
    const platform::Formatter& formatter;
};

enum class EditorKind : std::uint8_t { entry, check, list, combo, tabs };

/// Whether an editor is for the whole list or for the column of the selected tab.
enum class EditorScope : std::uint8_t { list, column };

/// An editor of the page and the text that stands beside it; tabs have none.
struct PageLabel {
    std::string_view editor;
    EditorKind kind;
    EditorScope scope;
    std::string_view label;
};

/// Every editor with its label, in the order in which a reader meets them.
std::span<const PageLabel> page_labels();

/// The page's working copy of the columns: nine arrays, one entry a tab, entry k for tab k + 1.
struct PageColumns {
    std::vector<std::int16_t> colWidths;
    std::vector<std::int32_t> colAlignments;
    std::vector<std::string> colCaptions;
    std::vector<bool> colEditable;
    std::vector<std::string> colDataFields;
    std::vector<std::int16_t> colFieldTypes;
    std::vector<bool> colNecessary;
    std::vector<std::string> colFormats;
    std::vector<std::int16_t> colFieldLengths;
};

/// The property page of a `KarvoList`: a developer sets up the list's columns on it, if wanted from
/// the fields of its record source.
///
/// It works on a copy of the first selected control's settings and writes nothing before
/// `ApplyChanges`. Editors tell it of changes inside the call that causes them; getting and losing
/// the focus is queued. Errors of an editor's handler come out of the editor's member or of the turn
/// in which it was told.
class pKrvList {
public:
    /// Creates the page: no tabs, the two fixed lists filled, nothing selected, not changed.
    pKrvList(const PageEditors& editors, const PageSurroundings& surroundings);
    ~pKrvList();

    pKrvList(const pKrvList&) = delete;
    pKrvList& operator=(const pKrvList&) = delete;

    /// The designer's selection changed: reads the first selected control into the editors and
    /// shows its first column. May ask whether tabs beyond its columns go.
    /// \throws RuntimeError 91 for a control that is gone, 9 for an empty selection, what the
    ///         control and the editors raise; what was read before stays
    void SelectionChanged();

    /// Writes the page to the first selected control by the names of its properties; editors and
    /// arrays stay as they are.
    /// \throws as `SelectionChanged`; what was written before stays written
    void ApplyChanges();

    /// The working copy.
    const PageColumns& columns() const noexcept;

    /// Whether a record source has been opened from the page; never false again.
    bool pageDataOpen() const noexcept;

private:
    struct Rooms;
    std::unique_ptr<Rooms> rooms_;
};

} // namespace krv
