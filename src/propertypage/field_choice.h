#pragma once

#include "propertypage/page_state.h"

#include <cstdint>

namespace krv::propertypage {

/// The list of the record source's fields, and what choosing one proposes for the column.
class FieldChoice {
public:
    /// The state outlives this.
    explicit FieldChoice(PageState& page)
        : page_(page) {}

    /// Fills the list anew, from the record source when one was opened. The box keeps its text.
    void list_fields();

    /// An entry was chosen for the selected column: stores it, selects the field's type, which is
    /// fixed then, and proposes length, format and width by it.
    /// \throws RuntimeError 3265 for a field that the record source has no more; 381 for a type
    ///         that is not in the list of types; 6 for a field too long for 16 bits
    void choose();

private:
    void propose(std::int32_t type, std::int32_t defined_size);
    void propose_characters(std::int32_t defined_size);

    PageState& page_;
};

} // namespace krv::propertypage
