#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QList>
#include <QPointer>
#include <QRect>
#include <QString>

#include <cstdint>
#include <list>
#include <unordered_map>

namespace krv::standard {

class FlexGrid;

} // namespace krv::standard

namespace krv::qt {

class AccessibleTable;
class GridView;

/// Number of a cell among the children of its table: by rows, the caption row first. Cells beyond
/// the numbers there are get -1.
int cell_index(const standard::FlexGrid& grid, std::int32_t row, std::int32_t col);

/// One cell, captions included. It knows its place only; texts come from the grid when asked for.
class AccessibleCell : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    AccessibleCell(GridView& view, std::int32_t grid_row, std::int32_t col)
        : view_(&view)
        , row_(grid_row)
        , col_(col) {}

    bool isValid() const override;

    QObject* object() const override { return nullptr; }

    QWindow* window() const override;

    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QAccessibleInterface* parent() const override;

    QAccessibleInterface* child(int) const override { return nullptr; }

    int childCount() const override { return 0; }

    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;

    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }

    /// Counts data rows from 0, as the table does.
    int rowIndex() const override { return row_ - 1; }

    int columnIndex() const override { return col_; }

    int rowExtent() const override { return 1; }

    int columnExtent() const override { return 1; }

    QAccessibleInterface* table() const override { return parent(); }

    /// As the grid counts: 0 is the caption row.
    std::int32_t grid_row() const noexcept { return row_; }

private:
    AccessibleTable* owner() const;

    QPointer<GridView> view_;
    std::int32_t row_;
    std::int32_t col_;
};

/// The table that a screen reader sees. Rows are the data rows from 0; the captions describe the
/// columns and are header cells. Cells are made when asked for, and the least used go again.
class AccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit AccessibleTable(GridView& view);
    ~AccessibleTable() override;
    AccessibleTable(const AccessibleTable&) = delete;
    AccessibleTable& operator=(const AccessibleTable&) = delete;

    /// Cells that are kept at the most.
    static constexpr std::size_t most_cells = 1024;

    /// The cell at a place of the grid; null when there is none.
    QAccessibleInterface* cell(std::int32_t grid_row, std::int32_t col) const;

    std::size_t cells_kept() const noexcept { return cells_.size(); }

    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* focusChild() const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }

    QAccessibleInterface* summary() const override { return nullptr; }

    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override;
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    /// As a press on the row does.
    bool selectRow(int row) override;

    bool selectColumn(int) override { return false; }

    bool unselectRow(int) override { return false; }

    bool unselectColumn(int) override { return false; }

    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    struct Kept {
        QAccessible::Id id;
        std::list<std::int64_t>::iterator use;
    };

    /// Selected data rows, from 0; the last below the first when there is none.
    std::pair<int, int> selected_row_range() const;
    std::pair<int, int> selected_column_range() const;
    GridView* view() const;
    const standard::FlexGrid& grid() const;
    void forget_cells() const;
    void forget_least_used() const;

    mutable std::unordered_map<std::int64_t, Kept> cells_;
    mutable std::list<std::int64_t> uses_; ///< keys of the cells, the latest used first
};

} // namespace krv::qt
