#pragma once

#include "krv/platform/host.h"
#include "krv/qt/message_handler.h"
#include "qt/surface.h"

#include <memory>
#include <optional>
#include <string>

namespace krv::qt {

/// The host's program as the control sees it. The title is the application's display name.
class QtApplication : public platform::Application {
public:
    explicit QtApplication(std::shared_ptr<Surface> surface)
        : surface_(std::move(surface)) {}

    std::string Title() const override;
    void SetTitle(std::string_view title) override;
    platform::MessageAnswer MsgBox(std::string_view text,
                                   platform::MessageButtons buttons) override;
    void Yield() override;

    /// From here on the title is this control's own, and the program's stays as it is.
    void keep_title() { kept_title_.emplace(); }

    /// Instead of showing boxes; empty shows them again.
    void set_message_handler(MessageHandler handler) { message_handler_ = std::move(handler); }

private:
    std::shared_ptr<Surface> surface_;
    MessageHandler message_handler_;
    std::optional<std::string> kept_title_;
};

} // namespace krv::qt
