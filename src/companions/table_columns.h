#pragma once

#include "krv/control/karvo_list.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace krv::companions {

/// A column of a list that shows a field of the table.
struct TableColumn {
    std::int32_t col = 0;
    std::string field;
    std::string caption; ///< for messages, never empty
    std::int16_t type = 0;
    std::string pattern;
    bool is_key = false;
    bool is_editable = false;
};

using TableColumns = std::vector<TableColumn>;

/// Texts of a row in the order of its `TableColumns`.
using RowTexts = std::vector<std::string>;

/// In the order of the list.
/// \throws Refusal without a key column
TableColumns table_columns(const KarvoList& list);

/// Of a row of the list. \throws RuntimeError 381 for a row that is not there
RowTexts list_texts(const KarvoList& list, const TableColumns& columns, std::int32_t row);

RowTexts input_texts(const KarvoList& list, const TableColumns& columns);

/// The control's own rule for fields that are necessary.
bool is_blank(std::string_view text);

} // namespace krv::companions
