#include "options.h"

#include <QRegularExpression>

namespace krv::designer {

namespace {

constexpr int largest_side = 16384;

Setting setting_of(const QString& text) {
    static const QRegularExpression form("^(\\w+)(?:\\((\\d{1,5})\\))?=(.*)$",
                                         QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) {
        throw UsageError("--apply needs NAME=VALUE or NAME(COLUMN)=VALUE");
    }
    Setting setting{match.captured(1), {}, match.captured(3)};
    if (!match.captured(2).isEmpty()) {
        setting.column = match.captured(2).toInt();
    }
    return setting;
}

QSize size_of(const QString& text) {
    static const QRegularExpression form("^(\\d{1,5})x(\\d{1,5})$");
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (!match.hasMatch() || size.isEmpty() || size.width() > largest_side ||
        size.height() > largest_side) {
        throw UsageError("--size needs WxH in pixels, for example 1100x640");
    }
    return size;
}

std::int32_t count_of(const QString& text) {
    bool is_number = false;
    const std::int32_t count = text.toInt(&is_number);
    if (!is_number || count < 0) {
        throw UsageError("--print needs a number of rows, 0 or more");
    }
    return count;
}

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
            } else if (options_.file.isEmpty()) {
                options_.file = argument;
            } else {
                throw UsageError("give one file of settings only");
            }
        }
        if (options_.saves && options_.file.isEmpty() && !options_.help) {
            throw UsageError("--save needs a file of settings");
        }
        return options_;
    }

private:
    void take_option(const QString& option) {
        if (!take_flag(option) && !take_value(option)) {
            throw UsageError("unknown option " + option.toStdString());
        }
    }

    bool take_flag(const QString& option) {
        bool* const flag = option == "--help" || option == "-h" ? &options_.help
                           : option == "--version"              ? &options_.version
                           : option == "--build"                ? &options_.builds
                           : option == "--load"                 ? &options_.loads
                           : option == "--save"                 ? &options_.saves
                           : option == "--dark"                 ? &options_.dark
                                                                : nullptr;
        if (flag != nullptr) {
            *flag = true;
        }
        return flag != nullptr;
    }

    bool take_value(const QString& option) {
        if (option == "--connect") {
            options_.settings.push_back({"Connect", {}, value_of(option)});
        } else if (option == "--source") {
            options_.settings.push_back({"Recordsource", {}, value_of(option)});
        } else if (option == "--apply") {
            options_.settings.push_back(setting_of(value_of(option)));
        } else if (option == "--screenshot") {
            options_.screenshot = value_of(option);
        } else if (option == "--print") {
            options_.print = count_of(value_of(option));
        } else if (option == "--size") {
            options_.size = size_of(value_of(option));
        } else {
            return false;
        }
        return true;
    }

    QString value_of(const QString& option) {
        if (place_ >= arguments_.size() || arguments_[place_].isEmpty()) {
            throw UsageError(option.toStdString() + " needs a value");
        }
        return arguments_[place_++];
    }

    const QStringList& arguments_;
    qsizetype place_ = 0;
    Options options_;
};

} // namespace

Options parse_options(const QStringList& arguments) {
    return Parser(arguments).parse();
}

QString usage() {
    return R"(usage: krvlist-designer [options] [FILE.krv]

Sets up a list for database forms: opens a file of settings, or starts with new ones, shows the
property page of the list and a preview of it, and saves the file.

  --connect STRING       connection string, in place of the file's
  --source TEXT          table or query, in place of the file's
  --apply NAME=VALUE     put any property of the list, NAME(COLUMN)=VALUE for a column's; repeatable
  --build                build one column for each field of the source
  --load                 show the records of the source in the preview

Without a window:

  --save                 save FILE.krv and end; it is made when it is not there
  --print N              print the settings, the captions and the first N rows and end
  --screenshot FILE.png  write a picture of the window and end
  --size WxH             size of the window in pixels
  --dark                 take the picture in a dark theme
  --help                 show this text
  --version              show the version

Ends with 0, with 1 when a file or the data cannot be read, shown or written, with 2 for a wrong
command line.
)";
}

} // namespace krv::designer
