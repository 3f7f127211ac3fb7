#pragma once

#include "krv/platform/data_access.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace krv {

struct ControlState;
class FunctionButtons;

namespace data {

class RecordSource;

/// Fills the list from the record source and empties it.
///
/// A host may destroy the control in any turn of the message loop that these routines give, and in
/// the events behind it; they end there without touching it again.
class ListLoading {
public:
    ListLoading(ControlState& state, RecordSource& source, FunctionButtons& buttons);

    void Refresh();
    void Clear();
    void Svuota(bool never_add);

private:
    enum class AutomaticAdd { allowed, withheld };

    void fill();
    void fill_row(std::int32_t grid_row, const platform::Fields& fields);
    std::string_view cell_text(platform::ValueView value, const std::string& pattern);
    void reset_after_refresh();
    void reset_after_emptying(AutomaticAdd automatic_add);

    ControlState& state_;
    RecordSource& source_;
    FunctionButtons& buttons_;
    std::string formatted_; // one buffer for all cells
};

} // namespace data

} // namespace krv
