#pragma once

#include <QAction>
#include <QPointer>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

class QDesignerFormEditorInterface;

namespace krv::qt {

class KarvoListWidget;

/// "Edit list..." in the context menu of a control on a form; a double click does the same.
class ListTaskMenu : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    ListTaskMenu(KarvoListWidget& widget, QObject* parent);

    QAction* preferredEditAction() const override { return edit_; }

    QList<QAction*> taskActions() const override { return {edit_}; }

private:
    void edit_list();

    QPointer<KarvoListWidget> widget_;
    QAction* edit_;
};

class ListTaskMenuFactory : public QExtensionFactory {
    Q_OBJECT

public:
    /// Gives the controls of this Designer their menu.
    static void install(QDesignerFormEditorInterface& designer);

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;

private:
    using QExtensionFactory::QExtensionFactory;
};

} // namespace krv::qt
