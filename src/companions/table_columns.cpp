#include "companions/table_columns.h"

#include "companions/refusal.h"

#include <algorithm>

namespace krv::companions {

namespace {

TableColumn table_column(const KarvoList& list, std::int32_t col) {
    TableColumn column;
    column.col = col;
    column.field = list.ColDataField(col);
    column.caption = list.Caption(col);
    if (is_blank(column.caption)) {
        column.caption = column.field;
    }
    column.type = list.ColFieldType(col);
    column.pattern = list.ColFormat(col);
    column.is_key = list.ColIsKey(col) != krvListRecord;
    column.is_editable = list.ColEditable(col);
    return column;
}

} // namespace

TableColumns table_columns(const KarvoList& list) {
    TableColumns columns;
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        if (!is_blank(list.ColDataField(col)) && list.ColFromRecord(col) == krvListRecord) {
            columns.push_back(table_column(list, col));
        }
    }
    if (std::none_of(columns.begin(), columns.end(), [](const auto& c) { return c.is_key; })) {
        throw Refusal("Nessuna colonna chiave: il record non può essere scritto.");
    }
    return columns;
}

RowTexts list_texts(const KarvoList& list, const TableColumns& columns, std::int32_t row) {
    RowTexts texts;
    for (const TableColumn& column : columns) {
        texts.push_back(list.TextMatrix(row, column.col));
    }
    return texts;
}

RowTexts input_texts(const KarvoList& list, const TableColumns& columns) {
    RowTexts texts;
    for (const TableColumn& column : columns) {
        texts.push_back(list.InputArray(column.col));
    }
    return texts;
}

bool is_blank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace krv::companions
