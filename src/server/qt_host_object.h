#pragma once

#include "qt/form_loop.h"

#include "krv/platform/value.h"

#include <QPointer>

#include <memory>
#include <string>

class QWidget;

namespace krv::server {

/// An object of the host on a window. One that takes the focus is a widget there, at which Tab never
/// stops; it takes none any more when the window is gone.
class QtHostObject final : public platform::Object {
public:
    /// \param window  null for an object that takes no focus
    QtHostObject(QWidget* window, std::shared_ptr<qt::FormLoop> loop, std::string name);
    ~QtHostObject();

    /// \throws RuntimeError 5 when it takes no focus
    void SetFocus() override;

private:
    QPointer<QWidget> widget_;
    std::shared_ptr<qt::FormLoop> loop_;
    std::string name_;
};

} // namespace krv::server
