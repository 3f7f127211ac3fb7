#pragma once

#include "propertypage/page_state.h"

#include <cstdint>

namespace krv::propertypage {

/// The editors that are for the column of the selected tab. What they tell is stored in that
/// column's entries; each marks the page as changed first.
class ColumnEditors {
public:
    /// The state outlives this.
    explicit ColumnEditors(PageState& page)
        : page_(page) {}

    // \throws RuntimeError 9 without a tab or an entry; 6 for a number that does not fit

    void caption_changed();
    void width_changed();
    void field_length_changed();
    void format_changed();
    /// A field's name was typed: its type is the developer's to choose.
    void data_field_changed();
    void data_type_clicked();
    void alignment_clicked();
    void editable_clicked();
    void necessary_clicked();

    /// Fills the editors from the selected column. They tell what changed, which stores the same
    /// values again and marks the page as changed.
    void show();

private:
    template <class Element, class Array, class Read>
    void store(Array PageColumns::*array, Read read);

    PageState& page_;
};

} // namespace krv::propertypage
