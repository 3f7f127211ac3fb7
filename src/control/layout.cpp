#include "control/layout.h"

#include "control/control_state.h"
#include "control/function_buttons.h"

#include <array>

namespace krv {

namespace {

using platform::TwipsSingle;

void keep_least_size(platform::Container& container) {
    if (container.Width() < least_width) {
        container.SetWidth(least_width);
    }
    if (container.Height() < least_height) {
        container.SetHeight(least_height);
    }
}

/// One row, left to right; the confirm button takes what is left.
void place_buttons_in_row(const Constituents& parts, TwipsSingle width) {
    const TwipsSingle button_width = width > 10000 ? 2000 : (width + width) / 10;
    // Deliberate: Copy stands before Delete, unlike the order of the properties.
    const std::array<platform::Button*, 5> row = {
        &parts.btnAdd, &parts.btnInsert, &parts.btnCopy, &parts.btnDelete, &parts.btnOK};
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
        row[i]->SetWidth(button_width);
    }
    for (std::size_t i = 1; i < row.size(); ++i) {
        row[i]->SetLeft(row[i - 1]->Left() + row[i - 1]->Width());
    }
    parts.btnOK.SetWidth(width - parts.btnOK.Left());
}

void stack_rows(const Constituents& parts, TwipsSingle height) {
    parts.Grid.SetHeight(height - parts.GridIn.Height() - parts.btnAdd.Height() - 20);
    parts.Line1.SetY1(height - 10);
    parts.Line1.SetY2(height - 10);
    parts.GridIn.SetTop(parts.Grid.Height());
    parts.btnAdd.SetTop(parts.GridIn.Top() + parts.GridIn.Height());
    for (platform::Button* button :
         {&parts.btnInsert, &parts.btnDelete, &parts.btnCopy, &parts.btnOK}) {
        button->SetTop(parts.btnAdd.Top());
    }
}

} // namespace

void place_editor_over(const Constituents& parts, std::int32_t col) {
    const platform::Grid& line = parts.GridIn;
    parts.InpFld.Move(static_cast<TwipsSingle>(line.ColPos(col)) + editor_indent,
                      line.Top() + static_cast<TwipsSingle>(line.RowPos(1)),
                      static_cast<TwipsSingle>(line.ColWidth(col)) + editor_indent,
                      static_cast<TwipsSingle>(line.RowHeight(1)));
}

std::int32_t column_at(const platform::Grid& grid, float x) {
    std::int32_t col = grid.Cols() - 1;
    while (col >= 0 && static_cast<float>(grid.ColPos(col)) > x) {
        --col;
    }
    return col;
}

void lay_out(ControlState& state, FunctionButtons& buttons) {
    const Constituents& parts = state.parts;
    platform::Container& container = state.host.container;
    keep_least_size(container);
    const TwipsSingle width = container.Width();
    const TwipsSingle height = container.Height();
    parts.Grid.SetWidth(width);
    parts.GridIn.SetWidth(width);
    place_buttons_in_row(parts, width);
    stack_rows(parts, height);
    if (state.edit.ColInEdit >= 0 && state.edit.ColInEdit < parts.GridIn.Cols()) {
        place_editor_over(parts, state.edit.ColInEdit);
    }
    buttons.place_line();
}

} // namespace krv
