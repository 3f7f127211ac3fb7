#pragma once

#include "krv/companions/record_writer.h"

#include <QMainWindow>

#include <memory>

namespace krv::qt {

class KarvoListWidget;

} // namespace krv::qt

namespace krv::demo {

struct Source;

/// The list in a window, with a count of its rows at the foot. It stores the rows that the user
/// confirms and deletes in the source's table, if it has one.
class DemoWindow : public QMainWindow {
public:
    explicit DemoWindow(const Source& source);

    qt::KarvoListWidget& widget() const noexcept { return *widget_; }

    /// Takes away everything that changes a row, and says so at the foot.
    void make_read_only();

    /// Loads the records and counts them.
    /// \throws RuntimeError for a value that cannot be read or shown
    void load();

private:
    void show_count();

    qt::KarvoListWidget* widget_;
    std::shared_ptr<platform::DataAccess> data_access_;
    std::unique_ptr<companions::RecordWriter> writer_; // leaves the list before the widget goes
};

} // namespace krv::demo
