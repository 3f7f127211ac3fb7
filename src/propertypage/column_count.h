#pragma once

#include "propertypage/column_editors.h"
#include "propertypage/page_state.h"

#include <cstdint>

namespace krv::propertypage {

/// Keeps tabs and arrays as many as `txtCols` says.
class ColumnCount {
public:
    /// Both outlive this.
    ColumnCount(PageState& page, ColumnEditors& editors)
        : page_(page)
        , editors_(editors) {}

    /// The columns that `txtCols` asks for: a text without a number, or one below 1, asks for 1.
    /// \throws RuntimeError 6 above 32,767
    std::int32_t wanted() const;

    /// Adds tabs, or removes the last ones once the developer agrees, resizes the arrays and shows
    /// the count of the tabs. Shows the column of the tab selected then when the selected one went.
    /// The page may be gone, or hold another selection, when this returns.
    /// \throws RuntimeError as `wanted`, before any tab changes
    void synchronise();

    /// A tab was selected: shows its column.
    void tab_selected();

    /// `txtLineNumberColumn` is left: a column beyond the last one is refused.
    void check_line_number_column();

private:
    void add_tabs(std::int32_t count);
    void remove_tabs(std::int32_t count);

    PageState& page_;
    ColumnEditors& editors_;
};

} // namespace krv::propertypage
