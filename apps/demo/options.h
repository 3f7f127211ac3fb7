#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <stdexcept>

namespace krv::demo {

/// What the command line asks for.
struct Options {
    QString file;       ///< empty: the sample database
    QString source;     ///< table or query
    QString screenshot; ///< picture to write; empty for none
    std::optional<std::int32_t> print;
    std::optional<QSize> size;
    bool read_only = false;
    bool help = false;

    bool shows_sample() const { return file.isEmpty(); }

    /// Nobody looks at a window and nobody can answer a message box.
    bool headless() const { return print.has_value() || !screenshot.isEmpty(); }

    /// Whether what the user confirms goes into the database.
    bool stores() const { return !read_only && !headless(); }
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

} // namespace krv::demo
