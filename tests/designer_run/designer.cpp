#include "designer.h"

#include <QAction>
#include <QApplication>
#include <QErrorMessage>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextEdit>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

namespace krv::designer_run {

namespace {

QErrorMessage* error_window() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* const error = qobject_cast<QErrorMessage*>(window); error && error->isVisible()) {
            return error;
        }
    }
    return nullptr;
}

} // namespace

QDesignerFormWindowInterface* active_form(QDesignerFormEditorInterface& designer) {
    return designer.formWindowManager()->activeFormWindow();
}

QList<QWidget*> controls(QDesignerFormWindowInterface& form) {
    QList<QWidget*> found;
    if (form.mainContainer() != nullptr) {
        for (QWidget* widget : form.mainContainer()->findChildren<QWidget*>()) {
            if (widget->inherits("krv::qt::KarvoListWidget") && form.isManaged(widget)) {
                found.append(widget);
            }
        }
    }
    return found;
}

QVariant property(QDesignerFormWindowInterface& form, QWidget& widget, const char* name) {
    const auto* const sheet =
        qt_extension<QDesignerPropertySheetExtension*>(form.core()->extensionManager(), &widget);
    return sheet->property(sheet->indexOf(name));
}

QWidget* open_dialog(const char* class_name) {
    QWidget* const dialog = QApplication::activeModalWidget();
    return dialog != nullptr && dialog->inherits(class_name) ? dialog : nullptr;
}

QString message_text() {
    const auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box != nullptr ? box->text() : QString();
}

void answer_message(const QString& button) {
    for (QPushButton* candidate : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
        if (candidate->text().remove('&') == button) {
            QTest::mouseClick(candidate, Qt::LeftButton);
            return;
        }
    }
}

QString shown_error() {
    const QErrorMessage* const window = error_window();
    return window != nullptr ? window->findChild<QTextEdit*>()->toPlainText() : QString();
}

void close_error() {
    error_window()->reject();
}

void type_into(const char* editor, const QString& text) {
    auto* const edit = QApplication::activeModalWidget()->findChild<QLineEdit*>(editor);
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

QAction* action_with(const QKeySequence& shortcut) {
    for (const QWidget* widget : QApplication::allWidgets()) {
        for (QAction* action : widget->actions()) {
            if (action->shortcut() == shortcut) {
                return action;
            }
        }
    }
    return nullptr;
}

void run_xdotool(const QStringList& arguments) {
    QProcess::startDetached("xdotool", arguments);
}

void take_picture(const QString& file, const QRect& part) {
    QGuiApplication::primaryScreen()
        ->grabWindow(0, part.x(), part.y(), part.width(), part.height())
        .save(file);
}

} // namespace krv::designer_run
