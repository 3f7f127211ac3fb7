#pragma once

#include "krv/qt/karvo_list_widget.h"

#include <QUiLoader>

namespace krv::testing {

/// Loads forms with controls of this program, as a host does.
class FormLoader final : public QUiLoader {
public:
    QWidget*
    createWidget(const QString& class_name, QWidget* parent, const QString& name) override {
        if (class_name != QLatin1String("krv::qt::KarvoListWidget")) {
            return QUiLoader::createWidget(class_name, parent, name);
        }
        auto* const widget = new qt::KarvoListWidget(parent);
        widget->setObjectName(name);
        return widget;
    }
};

} // namespace krv::testing
