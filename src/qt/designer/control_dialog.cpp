#include "qt/designer/control_dialog.h"

#include "krv/control/control_object.h"
#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/qt/list_dialog.h"
#include "krv/standard/memory_bag.h"
#include "krv/standard/regional_settings.h"
#include "krv/standard/value_formatter.h"
#include "qt/designer/page_data.h"

#include <QMessageBox>
#include <QMetaProperty>
#include <QPointer>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <utility>
#include <vector>

namespace krv::qt {

namespace {

/// A selection of one control: the copy that the page works on.
class CopySite final : public platform::PropertyPageSite {
public:
    explicit CopySite(KarvoList& list)
        : control_(std::make_shared<automation::ControlObject>(list)) {}

    std::int32_t SelectedControlsCount() const override { return 1; }

    std::shared_ptr<platform::AutomationObject> SelectedControls(std::int32_t index) override {
        if (index != 0) {
            throw platform::RuntimeError(9, "Subscript out of range", "krvList3");
        }
        return control_;
    }

    bool Changed() const override { return changed_; }

    void SetChanged(bool changed) override { changed_ = changed; }

private:
    std::shared_ptr<automation::ControlObject> control_;
    bool changed_ = false;
};

using Changes = std::vector<std::pair<QString, QVariant>>;

/// What a form file would hold differently of the two, in the order in which it is put.
Changes differences(const KarvoListWidget& before, const KarvoListWidget& after) {
    Changes changes;
    const QMetaObject& meta = KarvoListWidget::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        const QVariant value = property.read(&after);
        if (property.isStored() && property.isWritable() && value != property.read(&before)) {
            changes.emplace_back(property.name(), value);
        }
    }
    return changes;
}

void write(QDesignerFormWindowInterface& form, KarvoListWidget& widget, const Changes& changes) {
    if (changes.empty()) {
        return;
    }
    form.beginCommand(QObject::tr("Edit list"));
    for (const auto& [name, value] : changes) {
        form.cursor()->setWidgetProperty(&widget, name, value);
    }
    form.endCommand();
}

void take_over(const KarvoListWidget& from, KarvoListWidget& to) {
    standard::MemoryBag bag;
    from.list().WriteProperties(bag);
    to.list().ReadProperties(bag);
}

void show_dialog(QDesignerFormWindowInterface& form, KarvoListWidget& widget) {
    KarvoListWidget copy{KarvoListWidget::InDesigner()};
    take_over(widget, copy);
    CopySite site(copy.list());
    // The form may be closed by a program while the dialog is open, and take it along.
    const QPointer<ListDialog> dialog = new ListDialog(
        {site,
         make_page_data(),
         std::make_shared<standard::ValueFormatter>(standard::system_regional_settings())},
        form.window());
    dialog->setWindowTitle(QObject::tr("Edit list - %1").arg(widget.objectName()));
    QObject::connect(dialog, &ListDialog::applied, &widget, [&] {
        write(form, widget, differences(widget, copy));
    });
    QObject::connect(&widget, &QObject::destroyed, dialog, [dialog] {
        dialog->done(QDialog::Rejected); // nothing is left to apply to
    });
    dialog->exec();
    delete dialog;
}

} // namespace

void edit_control(QDesignerFormWindowInterface& form, KarvoListWidget& widget) {
    const QPointer<QWidget> window = form.window();
    try {
        show_dialog(form, widget);
    } catch (const std::exception& error) {
        QMessageBox box(QMessageBox::Warning,
                        QObject::tr("Edit list"),
                        QString::fromUtf8(error.what()),
                        QMessageBox::Ok,
                        window);
        box.setTextFormat(Qt::PlainText); // texts of a database are no markup
        box.exec();
    }
}

} // namespace krv::qt
