#include "qt/designer/list_task_menu.h"

#include "krv/qt/karvo_list_widget.h"
#include "qt/designer/control_dialog.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QExtensionManager>

namespace krv::qt {

namespace {

/// The first selected control of a form; the one whose menu it is when none is selected.
KarvoListWidget& first_selected(QDesignerFormWindowInterface& form, KarvoListWidget& of_the_menu) {
    const QDesignerFormWindowCursorInterface& cursor = *form.cursor();
    for (int i = 0; i < cursor.selectedWidgetCount(); ++i) {
        if (auto* const widget = qobject_cast<KarvoListWidget*>(cursor.selectedWidget(i))) {
            return *widget;
        }
    }
    return of_the_menu;
}

} // namespace

ListTaskMenu::ListTaskMenu(KarvoListWidget& widget, QObject* parent)
    : QObject(parent)
    , widget_(&widget)
    , edit_(new QAction(tr("Edit list..."), this)) {
    edit_->setObjectName("edit_karvo_list");
    connect(edit_, &QAction::triggered, this, &ListTaskMenu::edit_list);
}

void ListTaskMenu::edit_list() {
    if (widget_ == nullptr) {
        return;
    }
    if (auto* const form = QDesignerFormWindowInterface::findFormWindow(widget_.data())) {
        edit_control(*form, first_selected(*form, *widget_));
    }
}

void ListTaskMenuFactory::install(QDesignerFormEditorInterface& designer) {
    QExtensionManager* const manager = designer.extensionManager();
    manager->registerExtensions(new ListTaskMenuFactory(manager),
                                Q_TYPEID(QDesignerTaskMenuExtension));
}

QObject*
ListTaskMenuFactory::createExtension(QObject* object, const QString& iid, QObject* parent) const {
    auto* const widget = qobject_cast<KarvoListWidget*>(object);
    if (widget == nullptr || iid != Q_TYPEID(QDesignerTaskMenuExtension)) {
        return nullptr;
    }
    return new ListTaskMenu(*widget, parent);
}

} // namespace krv::qt
