#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace krv::designer {

/// A property to be put: its name, its column where it has one, and the text.
struct Setting {
    QString name;
    std::optional<std::int32_t> column;
    QString text;
};

/// What the command line asks for.
struct Options {
    QString file; ///< empty: new settings
    std::vector<Setting> settings;
    QString screenshot; ///< picture to write; empty for none
    std::optional<std::int32_t> print;
    std::optional<QSize> size;
    bool builds = false;
    bool loads = false;
    bool saves = false;
    bool dark = false;
    bool help = false;
    bool version = false;

    /// Nobody looks at a window and nobody can answer a message box.
    bool headless() const { return print.has_value() || !screenshot.isEmpty() || saves; }
};

/// A command line that makes no sense; the text says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// \param arguments  without the program's name
/// \throws UsageError
Options parse_options(const QStringList& arguments);

QString usage();

} // namespace krv::designer
