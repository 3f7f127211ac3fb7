#include "options.h"

#include <QRegularExpression>

namespace krv::demo {

namespace {

constexpr int largest_side = 16384;

class Parser {
public:
    explicit Parser(const QStringList& arguments)
        : arguments_(arguments) {}

    Options parse() {
        bool only_names = false;
        while (place_ < arguments_.size()) {
            const QString argument = arguments_[place_++];
            if (!only_names && argument == "--") {
                only_names = true;
            } else if (!only_names && argument.startsWith("-")) {
                take_option(argument);
            } else {
                names_.append(argument);
            }
        }
        take_names();
        return options_;
    }

private:
    void take_option(const QString& option) {
        if (option == "--help" || option == "-h") {
            options_.help = true;
        } else if (option == "--read-only") {
            options_.read_only = true;
        } else if (option == "--screenshot") {
            options_.screenshot = value_of(option);
        } else if (option == "--print") {
            options_.print = count_of(option);
        } else if (option == "--size") {
            options_.size = size_of(option);
        } else {
            throw UsageError("unknown option " + option.toStdString());
        }
    }

    QString value_of(const QString& option) {
        if (place_ >= arguments_.size() || arguments_[place_].isEmpty()) {
            throw UsageError(option.toStdString() + " needs a value");
        }
        return arguments_[place_++];
    }

    std::int32_t count_of(const QString& option) {
        bool is_number = false;
        const std::int32_t count = value_of(option).toInt(&is_number);
        if (!is_number || count < 0) {
            throw UsageError(option.toStdString() + " needs a number of rows, 0 or more");
        }
        return count;
    }

    QSize size_of(const QString& option) {
        static const QRegularExpression form("^(\\d{1,5})x(\\d{1,5})$");
        const QRegularExpressionMatch match = form.match(value_of(option));
        const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
        if (!match.hasMatch() || size.isEmpty() || size.width() > largest_side ||
            size.height() > largest_side) {
            throw UsageError(option.toStdString() + " needs WxH in pixels, for example 960x600");
        }
        return size;
    }

    void take_names() {
        if (names_.size() != 0 && names_.size() != 2 && !options_.help) {
            throw UsageError("give both a database file and a table or query, or neither");
        }
        if (names_.size() == 2) {
            options_.file = names_[0];
            options_.source = names_[1];
        }
    }

    const QStringList& arguments_;
    qsizetype place_ = 0;
    QStringList names_;
    Options options_;
};

} // namespace

Options parse_options(const QStringList& arguments) {
    return Parser(arguments).parse();
}

QString usage() {
    return R"(usage: krvlist-demo [options] [FILE SOURCE]

Shows a table or query of a database in a list: the orders of the sample shop, or SOURCE (the name
of a table or view, or a query) of the database FILE, which is of SQLite or of Jet (.mdb, .accdb).

Rows that are confirmed or deleted are stored: those of the sample in a copy of its own, those of
FILE where SOURCE is a table of SQLite with a primary key. Jet databases are only read.

  --read-only            store nothing
  --screenshot FILE.png  write a picture of the window and end
  --print N              print the captions and the first N rows as text and end
  --size WxH             size of the window in pixels
  --help                 show this text

Ends with 0, with 1 when the data cannot be read or shown, with 2 for a wrong command line.
)";
}

} // namespace krv::demo
