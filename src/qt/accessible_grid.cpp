#include "qt/accessible_grid.h"

#include "krv/qt/grid_view.h"
#include "krv/standard/flex_grid.h"
#include "qt/accessible_table.h"

#include <QAccessible>

#include <algorithm>
#include <mutex>

namespace krv::qt {

namespace {

QAccessibleInterface* make_table(const QString& /*class_name*/, QObject* object) {
    auto* const view = qobject_cast<GridView*>(object);
    return view != nullptr ? new AccessibleTable(*view) : nullptr;
}

QAccessibleTableModelChangeEvent::ModelChangeType type_of(ModelChanges::Kind kind) {
    switch (kind) {
    case ModelChanges::Kind::data:
        return QAccessibleTableModelChangeEvent::DataChanged;
    case ModelChanges::Kind::insertion:
        return QAccessibleTableModelChangeEvent::RowsInserted;
    case ModelChanges::Kind::removal:
        return QAccessibleTableModelChangeEvent::RowsRemoved;
    default:
        return QAccessibleTableModelChangeEvent::ModelReset;
    }
}

} // namespace

void ModelChanges::add_data(std::int32_t first_row, std::int32_t last_row) {
    // Inserted rows report their new texts as well: the insertion says it all.
    if (kind == Kind::none) {
        *this = {Kind::data, first_row, last_row};
    }
}

void ModelChanges::add_insertion(std::int32_t first_row, std::int32_t count) {
    if (kind == Kind::none) {
        *this = {Kind::insertion, first_row, first_row + count - 1};
    } else if (kind == Kind::insertion && first_row == last + 1) {
        last += count;
    } else {
        kind = Kind::reset;
    }
}

void ModelChanges::add_removal(std::int32_t first_row, std::int32_t count) {
    if (kind == Kind::none) {
        *this = {Kind::removal, first_row, first_row + count - 1};
    } else {
        kind = Kind::reset;
    }
}

void install_accessible_grid() {
    static std::once_flag once;
    std::call_once(once, [] { QAccessible::installFactory(make_table); });
}

std::unique_ptr<QAccessibleTableModelChangeEvent> change_event(GridView& view,
                                                               const ModelChanges& changes) {
    auto event = std::make_unique<QAccessibleTableModelChangeEvent>(&view, type_of(changes.kind));
    if (changes.kind != ModelChanges::Kind::reset) {
        // Screen readers count data rows; the caption row is a header to them.
        const std::int32_t last = changes.kind == ModelChanges::Kind::removal
                                      ? changes.last
                                      : std::min(changes.last, view.grid().Rows() - 1);
        event->setFirstRow(std::max(0, changes.first - 1));
        event->setLastRow(std::max(0, last - 1));
        event->setFirstColumn(0);
        event->setLastColumn(view.grid().Cols() - 1);
    }
    return event;
}

void notify_changes(GridView& view, const ModelChanges& changes) {
    if (changes.kind != ModelChanges::Kind::none && QAccessible::isActive()) {
        QAccessible::updateAccessibility(change_event(view, changes).get());
    }
}

void notify_selection(GridView& view) {
    if (!QAccessible::isActive()) {
        return;
    }
    const int cell = cell_index(view.grid(), view.grid().Row(), view.grid().Col());
    if (view.hasFocus()) {
        QAccessibleEvent focus(&view, QAccessible::Focus);
        focus.setChild(cell);
        QAccessible::updateAccessibility(&focus);
    }
    QAccessibleEvent selection(&view, QAccessible::Selection);
    selection.setChild(cell);
    QAccessible::updateAccessibility(&selection);
}

} // namespace krv::qt
