#pragma once

#include "propertypage/column_count.h"
#include "propertypage/page_state.h"

namespace krv::propertypage {

/// The road between the page and the first selected control, by the names of its properties.
///
/// Either direction ends quietly when, in a message box or a turn of the message loop, the page goes
/// or another selection is read: what is left of it would mix two controls.
class Selection {
public:
    /// Both outlive this.
    Selection(PageState& page, ColumnCount& count)
        : page_(page)
        , count_(count) {}

    /// \throws RuntimeError 9 for an empty selection, 91 for a control that is gone, 6 for one of more
    ///         than 32,767 columns; what was read before stays
    void load();

    /// \throws RuntimeError as `load`, and what the control raises for a value; what was written
    ///         before stays
    void apply();

private:
    PageState& page_;
    ColumnCount& count_;
};

} // namespace krv::propertypage
