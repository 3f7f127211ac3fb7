#include "designer.h"
#include "driver.h"
#include "steps.h"

#include "krv/qt/karvo_list_widget.h"

#include "support/bag_texts.h"
#include "support/form_loader.h"
#include "support/random_settings.h"
#include "support/text_of_forms.h"

#include <QAction>
#include <QBuffer>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPushButton>
#include <QTest>
#include <QUndoStack>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>

#include <memory>

namespace krv::designer_run {

namespace {

using krv::testing::FormLoader;
using krv::testing::RandomSettings;
using qt::KarvoListWidget;

QString form_with(const QString& widgets) {
    return "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">" +
           widgets +
           "</widget><customwidgets><customwidget><class>krv::qt::KarvoListWidget</class>"
           "<extends>QWidget</extends><header>krv/qt/karvo_list_widget.h</header></customwidget>"
           "</customwidgets></ui>";
}

QString control_with(const QString& name, const QString& properties) {
    return "<widget class=\"krv::qt::KarvoListWidget\" name=\"" + name + "\">" + properties +
           "</widget>";
}

QString settings_of(KarvoListWidget& widget) {
    standard::MemoryBag bag;
    widget.list().WriteProperties(bag);
    QString text;
    for (const std::string& line : krv::testing::texts_of(bag)) {
        text += QString::fromStdString(line) + "\n";
    }
    return text;
}

QString settings_of_form(const QString& ui) {
    QBuffer file;
    file.setData(ui.toUtf8());
    FormLoader loader;
    const std::unique_ptr<QWidget> form(loader.load(&file));
    auto* const widget = form ? form->findChild<KarvoListWidget*>() : nullptr;
    return widget != nullptr ? settings_of(*widget) : "no control in the form";
}

/// Gives the control on the form what another one has, property by property.
void put(QDesignerFormWindowInterface& form, QWidget& control, const KarvoListWidget& from) {
    const QMetaObject& meta = KarvoListWidget::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (property.isStored() && property.isWritable()) {
            form.cursor()->setWidgetProperty(&control, property.name(), property.read(&from));
        }
    }
}

/// One set of settings: into the form by Designer's undo, out as a file, into a form again.
void survive(Steps& steps, QDesignerFormWindowInterface& form, std::uint32_t seed) {
    standard::MemoryBag bag = krv::testing::as_forms_hold(RandomSettings(seed).bag());
    KarvoListWidget wanted{KarvoListWidget::InDesigner()};
    wanted.list().ReadProperties(bag);
    form.setContents(form_with(control_with("list", "")));
    put(form, *controls(form).front(), wanted);
    const QString file = form.contents();
    const QString what = QString("settings %1").arg(seed);
    steps.check_equal(settings_of_form(file), settings_of(wanted), what + ", loaded");
    form.setContents(file);
    steps.check_equal(form.contents(), file, what + ", read and written by Designer");
}

/// A form of ours that Designer reads and writes without a difference.
void read_and_write(Steps& steps, QDesignerFormWindowInterface& form, const QString& path) {
    QFile file(path);
    const bool is_open = file.open(QIODevice::ReadOnly);
    steps.check(is_open, path + " is there");
    const QString text = QString::fromUtf8(file.readAll());
    form.setContents(text);
    steps.check_equal(form.contents(), text, path + ", as Designer writes it");
}

QAction& edit_action(QDesignerFormWindowInterface& form, QWidget& control) {
    return *qt_extension<QDesignerTaskMenuExtension*>(form.core()->extensionManager(), &control)
                ->preferredEditAction();
}

void play_two_controls(Steps& steps, QDesignerFormEditorInterface& designer) {
    steps.add(
        "edit two selected controls",
        [&designer] { return active_form(designer) != nullptr; },
        [&designer] {
            QDesignerFormWindowInterface& form = *active_form(designer);
            form.setContents(form_with(control_with("one", "") + control_with("two", "")));
            form.clearSelection(false);
            for (QWidget* control : controls(form)) {
                form.selectWidget(control, true);
            }
            edit_action(form, *controls(form).back()).trigger();
        });
    steps.add(
        "name a column",
        [] { return open_dialog("krv::qt::ListDialog") != nullptr; },
        [] {
            type_into("txtCaption", "Totale");
            auto* const buttons =
                open_dialog("krv::qt::ListDialog")->findChild<QDialogButtonBox*>();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
    steps.add(
        "look at both",
        [] { return open_dialog("krv::qt::ListDialog") == nullptr; },
        [&designer, &steps] {
            QDesignerFormWindowInterface& form = *active_form(designer);
            QStringList captions;
            for (QWidget* control : controls(form)) {
                captions += control->property("Captions").toStringList();
            }
            captions.sort();
            steps.check_equal(captions.join("|"), "|Totale", "captions of both controls");
            QWidget* const first = form.cursor()->selectedWidget(0);
            steps.check_equal(first->property("Captions").toStringList().join("|"),
                              "Totale",
                              "captions of the first selected control");
            form.commandHistory()->undo();
            steps.check_equal(
                first->property("Captions").toStringList().join("|"), "", "captions, undone");
        });
}

void play_a_broken_file(Steps& steps, QDesignerFormEditorInterface& designer) {
    steps.add(
        "load a form with a broken text",
        [] { return true; },
        [&designer] {
            active_form(designer)->setContents(form_with(control_with(
                "broken",
                "<property name=\"Columns\" stdset=\"0\"><cstring>ColWidth=1500\nColWidth=wide"
                "</cstring></property>")));
        });
    steps.add(
        "read the message",
        [] { return !shown_error().isEmpty(); },
        [&steps] {
            steps.check(shown_error().contains("Invalid Columns, line 2: 'wide' is neither"),
                        "message: " + shown_error());
            close_error();
        });
    steps.add(
        "look at what was loaded",
        [] { return shown_error().isEmpty(); },
        [&designer, &steps] {
            QDesignerFormWindowInterface& form = *active_form(designer);
            steps.check_equal(property(form, *controls(form).front(), "Columns").toString(),
                              "ColWidth=1500\nColWidth=wide",
                              "columns of the broken file, kept to be mended");
            steps.check_equal(controls(form).front()->property("Cols").toString(),
                              "2",
                              "count of the columns that were taken");
        });
}

} // namespace

void play_files(Steps& steps, QDesignerFormEditorInterface& designer) {
    steps.add(
        "settings by chance, and forms of ours",
        [&designer] { return active_form(designer) != nullptr; },
        [&designer, &steps] {
            const int count = qEnvironmentVariableIntValue("KRV_SEEDS");
            steps.check(count > 0, "no settings asked for");
            for (int seed = 1; seed <= count; ++seed) {
                survive(steps, *active_form(designer), static_cast<std::uint32_t>(seed));
            }
            for (const QString& path : qEnvironmentVariable("KRV_FORMS").split(':')) {
                read_and_write(steps, *active_form(designer), path);
            }
        });
    play_two_controls(steps, designer);
    play_a_broken_file(steps, designer);
}

} // namespace krv::designer_run
