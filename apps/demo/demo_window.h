#pragma once

#include <QMainWindow>

namespace krv::qt {

class KarvoListWidget;

} // namespace krv::qt

namespace krv::demo {

struct Source;

/// The list in a window, with a count of its rows at the foot.
class DemoWindow : public QMainWindow {
public:
    explicit DemoWindow(const Source& source);

    qt::KarvoListWidget& widget() const noexcept { return *widget_; }

    /// Loads the records and counts them.
    /// \throws RuntimeError for a value that cannot be read or shown
    void load();

private:
    qt::KarvoListWidget* widget_;
};

} // namespace krv::demo
