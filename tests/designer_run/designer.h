#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class QAction;
class QDesignerFormEditorInterface;
class QDesignerFormWindowInterface;
class QRect;
class QWidget;

namespace krv::designer_run {

// Looking at a running Qt Designer, and acting on it as a person does.

/// The form that is being edited; null for none.
QDesignerFormWindowInterface* active_form(QDesignerFormEditorInterface& designer);

/// The controls on a form, in the order of their making.
QList<QWidget*> controls(QDesignerFormWindowInterface& form);

/// What the form has for a property of one of its widgets.
QVariant property(QDesignerFormWindowInterface& form, QWidget& widget, const char* name);

/// The open dialog of this class; null when another one, or none, is in front.
QWidget* open_dialog(const char* class_name);

/// The text of the message box in front; null for none.
QString message_text();
void answer_message(const QString& button);

/// What Designer itself complains about in a window of its own; empty for nothing.
QString shown_error();
void close_error();

/// Types into an editor of the dialog in front, in place of what it holds.
void type_into(const char* editor, const QString& text);

/// The action with this shortcut.
QAction* action_with(const QKeySequence& shortcut);

void run_xdotool(const QStringList& arguments);

/// Writes a picture of the screen, or of a part of it.
void take_picture(const QString& file, const QRect& part);

} // namespace krv::designer_run
