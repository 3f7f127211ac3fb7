#include "qt/accessible_table.h"

#include "krv/qt/grid_view.h"
#include "krv/standard/flex_grid.h"

#include <QWindow>

namespace krv::qt {

bool AccessibleCell::isValid() const {
    return view_ && row_ < view_->grid().Rows() && col_ < view_->grid().Cols();
}

QWindow* AccessibleCell::window() const {
    return view_ ? view_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* AccessibleCell::parent() const {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

AccessibleTable* AccessibleCell::owner() const {
    return dynamic_cast<AccessibleTable*>(parent());
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Value)) {
        return {};
    }
    const std::string_view text = view_->grid().TextMatrix(row_, col_);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QRect AccessibleCell::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect cell = view_->cell_rect(row_, col_);
    return {view_->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::Role AccessibleCell::role() const {
    return row_ == 0 ? QAccessible::ColumnHeader : QAccessible::Cell;
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const standard::FlexGrid& grid = view_->grid();
    const bool current = row_ == grid.Row() && col_ == grid.Col();
    state.selectable = row_ > 0;
    state.focusable = true;
    state.selected = isSelected();
    state.active = current;
    state.focused = current && view_->hasFocus();
    state.readOnly = true;
    state.disabled = !view_->isEnabled();
    state.offscreen = !view_->viewport()->rect().intersects(view_->cell_rect(row_, col_));
    state.invisible = !view_->isVisible();
    return state;
}

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableCellInterface
               ? static_cast<QAccessibleTableCellInterface*>(this)
               : nullptr;
}

bool AccessibleCell::isSelected() const {
    return isValid() && row_ > 0 && view_->grid().is_selected(row_, col_);
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
    AccessibleTable* const table_of_cell = owner();
    return table_of_cell != nullptr && row_ > 0
               ? QList<QAccessibleInterface*>{table_of_cell->cell(0, col_)}
               : QList<QAccessibleInterface*>{};
}

} // namespace krv::qt
