// The members of KarvoList that concern columns and rows.

#include "krv/control/karvo_list.h"

#include "control/failures.h"
#include "control/rooms.h"

namespace krv {

std::int32_t KarvoList::Cols() const {
    return rooms_->state.parts.Grid.Cols();
}

void KarvoList::SetCols(std::int32_t cols) {
    ControlState& state = rooms_->state;
    state.columns.Resize(add_long(cols, -1));
    if (state.edit.ColInEdit >= cols) { // its column goes away: the text has no cell to go to
        state.commands->CloseField();
        state.parts.InpFld.SetVisible(false);
    }
    state.parts.Grid.SetCols(cols);
    state.parts.GridIn.SetCols(cols);
    rooms_->changed("Cols");
}

bool KarvoList::ColEditable(std::int32_t col) const {
    return rooms_->state.columns.ColEditable(col);
}

void KarvoList::SetColEditable(std::int32_t col, bool value) {
    rooms_->state.columns.SetColEditable(col, value);
    rooms_->changed("ColEditable");
}

bool KarvoList::ColIsNecessary(std::int32_t col) const {
    return rooms_->state.columns.ColIsNecessary(col);
}

void KarvoList::SetColIsNecessary(std::int32_t col, bool value) {
    rooms_->state.columns.SetColIsNecessary(col, value);
    rooms_->changed("ColIsNecessary");
}

std::int16_t KarvoList::ColFieldLength(std::int32_t col) const {
    return rooms_->state.columns.ColFieldLength(col);
}

void KarvoList::SetColFieldLength(std::int32_t col, std::int16_t value) {
    rooms_->state.columns.SetColFieldLength(col, value);
    rooms_->changed("ColFieldLength");
}

std::int16_t KarvoList::ColFieldType(std::int32_t col) const {
    return rooms_->state.columns.ColFieldType(col);
}

void KarvoList::SetColFieldType(std::int32_t col, std::int16_t value) {
    rooms_->state.columns.SetColFieldType(col, value);
    rooms_->changed("ColFieldType");
}

std::string KarvoList::ColFormat(std::int32_t col) const {
    return rooms_->state.columns.ColFormat(col);
}

void KarvoList::SetColFormat(std::int32_t col, std::string_view value) {
    rooms_->state.columns.SetColFormat(col, std::string(value));
    rooms_->changed("ColFormat");
}

std::string KarvoList::ColDataField(std::int32_t col) const {
    return rooms_->state.columns.ColDataField(col);
}

void KarvoList::SetColDataField(std::int32_t col, std::string_view value) {
    rooms_->state.columns.SetColDataField(col, std::string(value));
    rooms_->changed("ColDataField");
}

krvListRecords KarvoList::ColFromRecord(std::int32_t col) const {
    return rooms_->state.columns.ColFromRecord(col);
}

void KarvoList::SetColFromRecord(std::int32_t col, krvListRecords value) {
    rooms_->state.columns.SetColFromRecord(col, value);
    rooms_->changed("ColFromRecord");
}

krvListRecords KarvoList::ColIsKey(std::int32_t col) const {
    return rooms_->state.columns.ColIsKey(col);
}

void KarvoList::SetColIsKey(std::int32_t col, krvListRecords value) {
    rooms_->state.columns.SetColIsKey(col, value);
    rooms_->changed("ColIsKey");
}

std::string KarvoList::Caption(std::int32_t col) const {
    return std::string(rooms_->state.parts.Grid.TextArray(col));
}

void KarvoList::SetCaption(std::int32_t col, std::string_view caption) {
    rooms_->state.parts.Grid.SetTextArray(col, caption);
    rooms_->state.parts.GridIn.SetTextArray(col, caption);
    rooms_->changed("Caption");
}

platform::Twips KarvoList::ColWidth(std::int32_t index) const {
    return rooms_->state.parts.Grid.ColWidth(index);
}

void KarvoList::SetColWidth(std::int32_t index, platform::Twips width) {
    rooms_->state.parts.Grid.SetColWidth(index, width);
    rooms_->state.parts.GridIn.SetColWidth(index, width);
    rooms_->changed("ColWidth");
}

std::int32_t KarvoList::ColAlignment(std::int32_t index) const {
    return rooms_->state.parts.Grid.ColAlignment(index);
}

void KarvoList::SetColAlignment(std::int32_t index, std::int32_t alignment) {
    const auto narrowed = narrow<std::int16_t>(alignment);
    rooms_->state.parts.Grid.SetColAlignment(index, narrowed);
    rooms_->state.parts.GridIn.SetColAlignment(index, narrowed);
    rooms_->changed("ColAlignment");
}

platform::Twips KarvoList::ColPos(std::int32_t col) const {
    return rooms_->state.parts.Grid.ColPos(col);
}

std::int32_t KarvoList::LineNumberColumn() const {
    return rooms_->state.LineNumberColumn;
}

void KarvoList::SetLineNumberColumn(std::int32_t col) {
    rooms_->state.LineNumberColumn = col;
    rooms_->changed("LineNumberColumn");
}

std::int32_t KarvoList::Rows() const {
    return rooms_->state.parts.Grid.Rows() - 1;
}

void KarvoList::SetRows(std::int32_t rows) {
    rooms_->state.parts.Grid.SetRows(add_long(rows, 1));
    rooms_->changed("Rows");
}

std::int32_t KarvoList::Row() const {
    return rooms_->state.parts.Grid.Row() - 1;
}

void KarvoList::SetRow(std::int32_t row) {
    const platform::LifeWatch watch(rooms_->state.life);
    rooms_->state.parts.Grid.SetRow(add_long(row, 1));
    if (!watch.ended()) {
        rooms_->changed("Row");
    }
}

std::int32_t KarvoList::TopRow() const {
    return rooms_->state.parts.Grid.TopRow();
}

void KarvoList::SetTopRow(std::int32_t grid_row) {
    rooms_->state.parts.Grid.SetTopRow(grid_row);
}

std::string KarvoList::TextMatrix(std::int32_t row, std::int32_t col) const {
    return std::string(rooms_->state.parts.Grid.TextMatrix(add_long(row, 1), col));
}

void KarvoList::SetTextMatrix(std::int32_t row, std::int32_t col, std::string_view text) {
    rooms_->state.parts.Grid.SetTextMatrix(add_long(row, 1), col, text);
}

platform::Twips KarvoList::RowPos(std::int32_t row) const {
    const platform::Grid& list = rooms_->state.parts.Grid;
    if (row < 0 || row > list.Rows() - 2) {
        return 0;
    }
    return list.RowPos(row + 1);
}

} // namespace krv
