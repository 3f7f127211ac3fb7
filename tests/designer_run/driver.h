#pragma once

#include <QObject>
#include <QtDesigner/QDesignerFormEditorPluginInterface>

namespace krv::designer_run {

class Steps;

/// Sits in a Qt Designer as a plugin and plays the script that KRV_DESIGNER_RUN names.
class Driver : public QObject, public QDesignerFormEditorPluginInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.Designer.QDesignerFormEditorPluginInterface")
    Q_INTERFACES(QDesignerFormEditorPluginInterface)

public:
    bool isInitialized() const override { return designer_ != nullptr; }

    void initialize(QDesignerFormEditorInterface* designer) override;

    QAction* action() const override { return nullptr; }

    QDesignerFormEditorInterface* core() const override { return designer_; }

private:
    QDesignerFormEditorInterface* designer_ = nullptr;
};

// The scripts.

/// A person places a control, sets it up on its page from a database, and saves the form.
void play_person(Steps& steps, QDesignerFormEditorInterface& designer);

/// Settings by chance go through Designer's own files; then two controls, then a broken file.
void play_files(Steps& steps, QDesignerFormEditorInterface& designer);

} // namespace krv::designer_run
