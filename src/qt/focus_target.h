#pragma once

#include "krv/platform/value.h"
#include "qt/surface.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace krv::qt {

/// A widget of the host as an object that the control can give the focus to.
class FocusTarget : public platform::Object {
public:
    FocusTarget(const std::shared_ptr<Surface>& surface, QWidget& widget)
        : surface_(surface)
        , widget_(&widget) {}

    /// \throws RuntimeError 91 when the widget is gone, 5 when it cannot take the focus
    void SetFocus() override;

private:
    std::weak_ptr<Surface> surface_;
    QPointer<QWidget> widget_;
};

} // namespace krv::qt
