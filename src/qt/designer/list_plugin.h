#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace krv::qt {

/// The control in Qt Designer's widget box, and in programs whose `QUiLoader` loads Designer's
/// plugins. Only Designer initialises a plugin; elsewhere the control is one in use.
class ListPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    QString domXml() const override;

    bool isContainer() const override { return false; }

    bool isInitialized() const override { return in_designer_; }

    void initialize(QDesignerFormEditorInterface* designer) override;
    QWidget* createWidget(QWidget* parent) override;

private:
    bool in_designer_ = false;
};

} // namespace krv::qt
