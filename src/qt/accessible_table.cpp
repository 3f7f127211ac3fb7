#include "qt/accessible_table.h"

#include "krv/qt/grid_view.h"
#include "krv/standard/flex_grid.h"

#include <algorithm>
#include <limits>

namespace krv::qt {

namespace {

std::int64_t key_of(std::int32_t row, std::int32_t col) {
    return static_cast<std::int64_t>(row) << 32 | static_cast<std::uint32_t>(col);
}

QList<int> numbers_between(std::pair<int, int> range) {
    QList<int> numbers;
    for (int number = range.first; number <= range.second; ++number) {
        numbers.append(number);
    }
    return numbers;
}

} // namespace

int cell_index(const standard::FlexGrid& grid, std::int32_t row, std::int32_t col) {
    const std::int64_t index = static_cast<std::int64_t>(row) * grid.Cols() + col;
    return index <= std::numeric_limits<int>::max() ? static_cast<int>(index) : -1;
}

AccessibleTable::AccessibleTable(GridView& view)
    : QAccessibleWidget(&view, QAccessible::Table) {}

AccessibleTable::~AccessibleTable() {
    forget_cells();
}

GridView* AccessibleTable::view() const {
    return static_cast<GridView*>(object());
}

const standard::FlexGrid& AccessibleTable::grid() const {
    return view()->grid();
}

QAccessibleInterface* AccessibleTable::cell(std::int32_t grid_row, std::int32_t col) const {
    if (grid_row < 0 || grid_row >= grid().Rows() || col < 0 || col >= grid().Cols()) {
        return nullptr;
    }
    const std::int64_t key = key_of(grid_row, col);
    if (const auto found = cells_.find(key); found != cells_.end()) {
        uses_.splice(uses_.begin(), uses_, found->second.use);
        return QAccessible::accessibleInterface(found->second.id);
    }
    if (cells_.size() >= most_cells) {
        forget_least_used();
    }
    auto* const made = new AccessibleCell(*view(), grid_row, col);
    uses_.push_front(key);
    cells_[key] = {QAccessible::registerAccessibleInterface(made), uses_.begin()};
    return made;
}

void AccessibleTable::forget_least_used() const {
    const auto oldest = cells_.find(uses_.back());
    QAccessible::deleteAccessibleInterface(oldest->second.id);
    cells_.erase(oldest);
    uses_.pop_back();
}

void AccessibleTable::forget_cells() const {
    while (!cells_.empty()) {
        forget_least_used();
    }
}

QAccessibleInterface* AccessibleTable::childAt(int x, int y) const {
    const QPoint point = view()->viewport()->mapFromGlobal(QPoint(x, y));
    return cell(view()->row_at(point), view()->col_at(point));
}

QAccessibleInterface* AccessibleTable::child(int index) const {
    const std::int32_t cols = grid().Cols();
    return index < 0 ? nullptr : cell(index / cols, index % cols);
}

QAccessibleInterface* AccessibleTable::focusChild() const {
    return view()->hasFocus() ? cell(grid().Row(), grid().Col()) : nullptr;
}

int AccessibleTable::childCount() const {
    const std::int64_t cells = static_cast<std::int64_t>(grid().Rows()) * grid().Cols();
    return static_cast<int>(std::min<std::int64_t>(cells, std::numeric_limits<int>::max()));
}

int AccessibleTable::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const wanted = dynamic_cast<const AccessibleCell*>(child);
    return wanted != nullptr && wanted->isValid()
               ? cell_index(grid(), wanted->grid_row(), wanted->columnIndex())
               : -1;
}

QAccessible::State AccessibleTable::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.selectable = true;
    return state;
}

void* AccessibleTable::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* AccessibleTable::cellAt(int row, int column) const {
    return row < 0 ? nullptr : cell(row + 1, column);
}

QString AccessibleTable::columnDescription(int column) const {
    if (column < 0 || column >= grid().Cols()) {
        return {};
    }
    const std::string_view caption = grid().TextMatrix(0, column);
    return QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
}

QString AccessibleTable::rowDescription(int row) const {
    return row >= 0 && row < rowCount() ? QString::number(row + 1) : QString();
}

int AccessibleTable::columnCount() const {
    return grid().Cols();
}

int AccessibleTable::rowCount() const {
    return grid().Rows() - 1;
}

std::pair<int, int> AccessibleTable::selected_row_range() const {
    const auto [first, last] = std::minmax({grid().Row(), grid().RowSel()});
    return {std::max(first, 1) - 1, last - 1};
}

std::pair<int, int> AccessibleTable::selected_column_range() const {
    const auto [first, last] = std::minmax({grid().Col(), grid().ColSel()});
    return {first, last};
}

int AccessibleTable::selectedCellCount() const {
    const auto rows = selected_row_range();
    const auto columns = selected_column_range();
    const std::int64_t count = static_cast<std::int64_t>(rows.second - rows.first + 1) *
                               (columns.second - columns.first + 1);
    return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

QList<QAccessibleInterface*> AccessibleTable::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (const int column : numbers_between(selected_column_range())) {
            // More than are kept at once would push out those handed over already.
            if (cells.size() < static_cast<qsizetype>(most_cells / 2)) {
                cells.append(cellAt(row, column));
            }
        }
    }
    return cells;
}

int AccessibleTable::selectedRowCount() const {
    const auto [first, last] = selected_row_range();
    return last - first + 1;
}

QList<int> AccessibleTable::selectedRows() const {
    return numbers_between(selected_row_range());
}

bool AccessibleTable::isRowSelected(int row) const {
    const auto [first, last] = selected_row_range();
    return row >= first && row <= last;
}

// A column counts as selected when all of its rows are.

int AccessibleTable::selectedColumnCount() const {
    return static_cast<int>(selectedColumns().size());
}

QList<int> AccessibleTable::selectedColumns() const {
    const bool all_rows = rowCount() > 0 && selectedRowCount() == rowCount();
    return all_rows ? numbers_between(selected_column_range()) : QList<int>();
}

bool AccessibleTable::isColumnSelected(int column) const {
    return selectedColumns().contains(column);
}

bool AccessibleTable::selectRow(int row) {
    return row >= 0 && row < rowCount() && view()->click_row(row + 1);
}

void AccessibleTable::modelChange(QAccessibleTableModelChangeEvent* event) {
    // Cells know only their place, so other texts in it leave them right; a place that is gone
    // does not.
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) {
        forget_cells();
    }
}

} // namespace krv::qt
