#include "qt_main.h"

#include "server/line_channel.h"
#include "server/qt_form.h"
#include "server/server.h"

#include <QApplication>
#include <QEventLoop>
#include <QSocketNotifier>

#include <utility>

namespace krv::server {

namespace {

/// Waits in Qt's event loop, so that the window stays alive.
class QtWaiter final : public InputWaiter {
public:
    explicit QtWaiter(int input)
        : input_(input) {}

    /// A person is kept out while an answer is awaited: whatever asked is in the middle of its work.
    void wait(Waiting waiting) override {
        // A notifier for this wait alone: between waits the input is left alone.
        const QSocketNotifier notifier(input_, QSocketNotifier::Read);
        const bool is_idle = waiting == Waiting::for_a_request;
        QCoreApplication::processEvents(
            QEventLoop::WaitForMoreEvents |
            (is_idle ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents));
    }

private:
    int input_;
};

} // namespace

bool has_screen() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

int serve_qt(std::shared_ptr<platform::DataAccess> data,
             standard::RegionalSettings region,
             int input,
             int output) {
    int argc = 1;
    char name[] = "krvlist-server";
    char* argv[] = {name, nullptr};
    const QApplication application(argc, argv);
    // The window may be closed by a person; the server ends with its input.
    QApplication::setQuitOnLastWindowClosed(false);
    QtWaiter waiter(input);
    LineChannel channel(input, output, waiter);
    Server server(make_qt_form(), std::move(data), std::move(region), channel);
    server.run();
    return 0;
}

} // namespace krv::server
