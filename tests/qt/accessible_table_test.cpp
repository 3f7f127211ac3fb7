#include "qt/accessible_table.h"

#include "qt/accessible_grid.h"

#include "qt/grid_fixture.h"

#include <QAccessible>

namespace krv::qt::testing {

namespace {

class AccessibleTables : public GridTest {
protected:
    AccessibleTables() { add_rows(5); }

    QAccessibleInterface& table() { return *QAccessible::queryAccessibleInterface(&view); }

    QAccessibleTableInterface& cells() { return *table().tableInterface(); }

    static QString name(QAccessibleInterface* of) {
        return of != nullptr ? of->text(QAccessible::Name) : QString("none");
    }
};

} // namespace

TEST_F(AccessibleTables, count_data_rows_and_describe_columns_by_their_captions) {
    EXPECT_EQ(table().role(), QAccessible::Table);
    EXPECT_EQ(cells().rowCount(), 5);
    EXPECT_EQ(cells().columnCount(), 3);
    EXPECT_EQ(cells().columnDescription(1), "col1");
    EXPECT_EQ(cells().columnDescription(3), "");
    EXPECT_EQ(cells().columnDescription(-1), "");
}

TEST_F(AccessibleTables, give_the_text_and_place_of_a_cell) {
    QAccessibleInterface* const cell_of_grid = cells().cellAt(2, 1);
    EXPECT_EQ(name(cell_of_grid), "b3");
    EXPECT_EQ(cell_of_grid->role(), QAccessible::Cell);
    EXPECT_EQ(cell_of_grid->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(cell_of_grid->tableCellInterface()->columnIndex(), 1);
    EXPECT_EQ(name(cell_of_grid->tableCellInterface()->columnHeaderCells().value(0)), "col1");
    EXPECT_EQ(cell_of_grid->rect().size(), view.cell_rect(3, 1).size());
    EXPECT_EQ(cell_of_grid->parent(), &table());
    EXPECT_EQ(table().childAt(cell_of_grid->rect().center().x(), cell_of_grid->rect().center().y()),
              cell_of_grid);
}

TEST_F(AccessibleTables, have_no_cells_outside) {
    EXPECT_EQ(cells().cellAt(5, 0), nullptr);
    EXPECT_EQ(cells().cellAt(-1, 0), nullptr);
    EXPECT_EQ(cells().cellAt(0, 3), nullptr);
    EXPECT_EQ(table().child(-1), nullptr);
    EXPECT_EQ(table().child(18), nullptr);
}

TEST_F(AccessibleTables, number_their_children_by_rows_captions_first) {
    EXPECT_EQ(table().childCount(), 18);
    EXPECT_EQ(name(table().child(0)), "col0");
    EXPECT_EQ(table().child(0)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(name(table().child(17)), "c5");
    EXPECT_EQ(table().indexOfChild(table().child(7)), 7);
}

TEST_F(AccessibleTables, a_text_that_changed_is_read_anew) {
    QAccessibleInterface* const cell_of_grid = cells().cellAt(0, 0);
    grid.SetTextMatrix(1, 0, "new");
    EXPECT_EQ(name(cell_of_grid), "new");
}

TEST_F(AccessibleTables, know_the_selected_row) {
    EXPECT_EQ(cells().selectedRowCount(), 0);
    grid.SetRow(2);
    grid.SetColSel(2);
    EXPECT_EQ(cells().selectedRows(), QList<int>{1});
    EXPECT_TRUE(cells().isRowSelected(1));
    EXPECT_FALSE(cells().isRowSelected(0));
    EXPECT_EQ(cells().selectedCellCount(), 3);
    EXPECT_TRUE(cells().cellAt(1, 2)->state().selected);
    EXPECT_TRUE(cells().cellAt(1, 0)->state().active);
    EXPECT_FALSE(cells().cellAt(0, 0)->state().selected);
    QStringList names;
    for (QAccessibleInterface* const selected : cells().selectedCells()) {
        names.append(name(selected));
    }
    EXPECT_EQ(names, (QStringList{"a2", "b2", "c2"}));
}

TEST_F(AccessibleTables, selecting_a_row_is_a_click_on_it) {
    view.set_owner(this);
    show();
    EXPECT_TRUE(cells().selectRow(3));
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(told.size(), 3U);
    EXPECT_FALSE(cells().selectRow(5));
    EXPECT_FALSE(cells().selectRow(-1));
}

TEST_F(AccessibleTables, the_current_cell_has_the_focus_with_the_view) {
    show();
    view.setFocus();
    grid.SetRow(2);
    EXPECT_EQ(name(table().focusChild()), "a2");
}

TEST_F(AccessibleTables, keep_few_cells_of_a_million_rows) {
    grid.SetRows(1'000'001);
    auto& made = dynamic_cast<AccessibleTable&>(table());
    EXPECT_EQ(made.cells_kept(), 0U);
    for (int row = 0; row < 5000; ++row) {
        EXPECT_NE(cells().cellAt(row * 200, 1), nullptr);
    }
    EXPECT_EQ(made.cells_kept(), AccessibleTable::most_cells);
    EXPECT_EQ(table().childCount(), 3'000'003);
}

TEST_F(AccessibleTables, a_cell_of_a_row_that_is_gone_is_no_longer_valid) {
    QAccessibleInterface* const last = cells().cellAt(4, 0);
    grid.SetRows(3);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(name(last), "");
}

namespace {

/// Kind and rows of what screen readers would be told.
std::string told_of(GridView& view, const ModelChanges& changes) {
    const auto event = change_event(view, changes);
    return std::to_string(event->modelChangeType()) + " " + std::to_string(event->firstRow()) +
           "-" + std::to_string(event->lastRow());
}

const std::string reset = "0 -1--1";

} // namespace

TEST_F(AccessibleTables, changed_texts_are_told_by_data_rows) {
    ModelChanges changes;
    changes.add_data(2, 3);
    EXPECT_EQ(told_of(view, changes), "1 1-2");
}

TEST_F(AccessibleTables, a_load_is_told_as_one_insertion) {
    ModelChanges changes;
    for (int row = 3; row < 6; ++row) {
        changes.add_insertion(row, 1);
        changes.add_data(row, row);
    }
    EXPECT_EQ(told_of(view, changes), "2 2-4");
}

TEST_F(AccessibleTables, removed_rows_are_told_by_their_former_numbers) {
    ModelChanges changes;
    changes.add_removal(7, 2);
    EXPECT_EQ(told_of(view, changes), "4 6-7");
}

TEST_F(AccessibleTables, changes_in_several_places_are_told_as_a_new_table) {
    ModelChanges insertions;
    insertions.add_insertion(4, 1);
    insertions.add_insertion(2, 1);
    EXPECT_EQ(told_of(view, insertions), reset);
    ModelChanges both;
    both.add_insertion(4, 1);
    both.add_removal(4, 1);
    EXPECT_EQ(told_of(view, both), reset);
    ModelChanges after_data;
    after_data.add_data(1, 1);
    after_data.add_insertion(2, 1);
    EXPECT_EQ(told_of(view, after_data), reset);
}

TEST_F(AccessibleTables, forget_cells_when_rows_come_or_go_and_keep_them_when_texts_change) {
    auto& made = dynamic_cast<AccessibleTable&>(table());
    cells().cellAt(0, 0);
    ModelChanges changes;
    changes.add_data(1, 1);
    made.modelChange(change_event(view, changes).get());
    EXPECT_EQ(made.cells_kept(), 1U);
    changes.add_reset();
    made.modelChange(change_event(view, changes).get());
    EXPECT_EQ(made.cells_kept(), 0U);
}

} // namespace krv::qt::testing
