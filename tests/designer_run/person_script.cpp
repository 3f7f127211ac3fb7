#include "designer.h"
#include "driver.h"
#include "steps.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTest>
#include <QUndoStack>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerWidgetBoxInterface>

#include <memory>

namespace krv::designer_run {

namespace {

/// Where the control stands in the widget box, on the screen; null while it is not shown.
QPoint entry_in_the_widget_box(QDesignerFormEditorInterface& designer) {
    for (const QListView* view : designer.widgetBox()->findChildren<QListView*>()) {
        if (!view->isVisible()) {
            continue;
        }
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            const QModelIndex index = view->model()->index(row, 0);
            if (index.data().toString() == "KarvoList" && !view->isRowHidden(row)) {
                return view->viewport()->mapToGlobal(view->visualRect(index).center());
            }
        }
    }
    return {};
}

QStringList at(QPoint point) {
    return {"mousemove", QString::number(point.x()), QString::number(point.y())};
}

/// Presses, moves in small steps as a hand does, and lets go.
void drag(QPoint from, QPoint to) {
    QStringList arguments = at(from) + QStringList{"sleep", "0.3", "mousedown", "1"};
    for (int i = 1; i <= 10; ++i) {
        arguments += QStringList{"sleep", "0.05"} + at(from + (to - from) * i / 10);
    }
    run_xdotool(arguments + QStringList{"sleep", "0.3", "mouseup", "1"});
}

/// What the steps of the script share.
struct Person {
    Person(Steps& the_steps, QDesignerFormEditorInterface& the_designer)
        : steps(the_steps)
        , designer(the_designer) {}

    QDesignerFormWindowInterface& form() { return *active_form(designer); }

    QWidget& control() { return *controls(form()).front(); }

    QString columns() { return property(form(), control(), "Columns").toString(); }

    void press(QDialogButtonBox::StandardButton which) {
        auto* const buttons = open_dialog("krv::qt::ListDialog")->findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(which), Qt::LeftButton);
    }

    void picture(const QString& name, const QRect& part = QRect(0, 0, -1, -1)) {
        take_picture(qEnvironmentVariable("KRV_PICTURES") + "/" + name, part);
    }

    Steps& steps;
    QDesignerFormEditorInterface& designer;
    QString columns_at_first;
    QString columns_built;
};

using Shared = std::shared_ptr<Person>;

void place_the_control(const Shared& person) {
    Steps& steps = person->steps;
    steps.add(
        "look for the control in the widget box",
        [person] { return active_form(person->designer) != nullptr; },
        [person] {
            person->designer.topLevel()->window()->setGeometry(
                QGuiApplication::primaryScreen()->geometry());
            auto* const filter = person->designer.widgetBox()->findChild<QLineEdit*>();
            QTest::keyClicks(filter, "Karvo");
        });
    steps.add(
        "drag it onto the form",
        [person] { return !entry_in_the_widget_box(person->designer).isNull(); },
        [person] {
            const QWidget& container = *person->form().mainContainer();
            drag(entry_in_the_widget_box(person->designer),
                 container.mapToGlobal(container.rect().center()));
        });
    steps.add(
        "give it room, and save",
        [person] { return !controls(person->form()).isEmpty(); },
        [person] {
            person->steps.check_equal(
                person->control().objectName(), "karvoList", "name of the control");
            person->form().cursor()->setWidgetProperty(
                &person->control(), "geometry", QRect(10, 10, 570, 300));
            person->columns_at_first = person->columns();
            action_with(QKeySequence::Save)->trigger();
        });
}

void select_column(int col) {
    auto* const tabs = open_dialog("krv::qt::ListDialog")->findChild<QTabBar*>();
    QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(col).center());
}

void set_it_up(const Shared& person) {
    Steps& steps = person->steps;
    steps.add(
        "double click",
        [person] { return !person->form().isDirty(); },
        [person] {
            const QWidget& control = person->control();
            run_xdotool(
                at(control.mapToGlobal(control.rect().center())) +
                QStringList{"sleep", "0.3", "click", "--repeat", "2", "--delay", "60", "1"});
        });
    steps.add(
        "type the source",
        [] { return open_dialog("krv::qt::ListDialog") != nullptr; },
        [] {
            type_into("txConnection",
                      "Provider=SQLite;Data Source=" + qEnvironmentVariable("KRV_SAMPLE"));
            type_into("txRecordSource", "Clienti");
            QTest::keyClick(
                open_dialog("krv::qt::ListDialog")->findChild<QLineEdit*>("txRecordSource"),
                Qt::Key_Tab);
        });
    steps.add(
        "let the page build the structure",
        [] { return message_text() == "build list structure?"; },
        [] { answer_message("Yes"); });
    steps.add(
        "make two columns narrower",
        [] {
            const QWidget* const dialog = open_dialog("krv::qt::ListDialog");
            return dialog != nullptr && dialog->findChild<QLineEdit*>("txtCols")->text() == "7";
        },
        [] {
            select_column(2);
            type_into("txtColWidth", "1900");
            select_column(1);
            type_into("txtColWidth", "3300");
        });
    steps.add(
        "apply",
        [] { return true; },
        [person] {
            person->picture("qt-designer.png");
            person->press(QDialogButtonBox::Apply);
        });
    steps.add(
        "close the page",
        [person] { return person->form().isDirty(); },
        [person] {
            person->columns_built = person->columns();
            person->press(QDialogButtonBox::Ok);
        });
}

void undo_and_redo(const Shared& person) {
    Steps& steps = person->steps;
    steps.add(
        "undo, redo, save",
        [] { return open_dialog("krv::qt::ListDialog") == nullptr; },
        [person] {
            QDesignerFormWindowInterface& form = person->form();
            QUndoStack& history = *form.commandHistory();
            Steps& script = person->steps;
            const QStringList columns = person->columns_built.split('\n');
            script.check_equal(columns.value(1),
                               "ColWidth=3300 ColEditable=false ColDataField=\"RagioneSociale\" "
                               "ColFieldLength=60 ColFieldType=202",
                               "a column made from a field, narrower");
            script.check_equal(history.undoText(), "Edit list", "step of the undo");
            history.undo();
            script.check(!form.isDirty(), "undone is not modified");
            script.check_equal(person->columns(), person->columns_at_first, "columns, undone");
            script.check_equal(property(form, person->control(), "StartConnect").toString(),
                               "",
                               "connection, undone");
            history.redo();
            script.check(form.isDirty(), "redone is modified");
            script.check_equal(person->columns(), person->columns_built, "columns, redone");
            action_with(QKeySequence::Save)->trigger();
        });
    steps.add(
        "look for the properties",
        [person] { return !person->form().isDirty(); },
        [person] {
            auto* const filter = person->designer.propertyEditor()->findChild<QLineEdit*>();
            QTest::keyClicks(filter, "Start");
        });
    steps.add(
        "look at the form",
        [] { return true; },
        [person] {
            const QWidget& window = *person->form().window();
            person->picture("qt-designer-form.png",
                            QRect(window.mapToGlobal(QPoint(0, 0)), window.size()));
        });
}

} // namespace

void play_person(Steps& steps, QDesignerFormEditorInterface& designer) {
    const auto person = std::make_shared<Person>(steps, designer);
    place_the_control(person);
    set_it_up(person);
    undo_and_redo(person);
}

} // namespace krv::designer_run
