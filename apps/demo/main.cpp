// A list on the orders of the sample shop, or on any table or query of a SQLite or Jet database.

#include "demo_window.h"
#include "options.h"
#include "source.h"
#include "text_table.h"
#include "working_copy.h"

#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"

#include <QApplication>
#include <QPixmap>

#include <iostream>

namespace {

using namespace krv;

constexpr int failed = 1;
constexpr int wrong_usage = 2;

QStringList arguments_of(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return arguments;
}

/// Text output needs no screen, and a picture can be taken without one.
void choose_platform(const demo::Options& options) {
    const bool has_screen =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const bool only_text = options.print && options.screenshot.isEmpty();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") &&
        (only_text || (options.headless() && !has_screen))) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

/// Nobody can answer a box: the text goes to the error output, and the program fails in the end.
void print_messages_of(qt::KarvoListWidget& widget, bool& message_shown) {
    widget.set_message_handler([&](std::string_view text, platform::MessageButtons buttons) {
        std::cerr << "krvlist-demo: " << text << '\n';
        message_shown = true;
        return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok
                                                       : platform::MessageAnswer::no;
    });
}

bool write_picture(demo::DemoWindow& window, const QString& file) {
    window.show();
    // The first turns lay the window out, the next ones draw what the loading changed.
    for (int turn = 0; turn < 5; ++turn) {
        QApplication::processEvents();
    }
    if (window.grab().save(file, "PNG")) {
        return true;
    }
    std::cerr << "krvlist-demo: cannot write " << file.toStdString() << '\n';
    return false;
}

int run_headless(demo::DemoWindow& window, const demo::Options& options, bool& message_shown) {
    print_messages_of(window.widget(), message_shown);
    window.load();
    if (message_shown) {
        return failed;
    }
    if (options.print) {
        demo::print_table(std::cout, window.widget().list(), *options.print);
    }
    const bool drawn = options.screenshot.isEmpty() || write_picture(window, options.screenshot);
    return drawn && !message_shown && std::cout.flush() ? 0 : failed;
}

int run(const QApplication& application, const demo::Options& options) {
    bool message_shown = false;
    const bool works_on_copy = options.shows_sample() && options.stores();
    demo::Source source = demo::find_source(
        options, works_on_copy ? demo::working_copy(KRV_SAMPLE_DATABASE) : KRV_SAMPLE_DATABASE);
    if (!options.stores()) {
        source.table.clear();
    } else if (source.is_jet) {
        std::cerr << "krvlist-demo: " << source.database
                  << " is a Jet database; it is shown, and nothing is stored in it\n";
    }
    demo::DemoWindow window(source);
    if (options.size) {
        window.resize(*options.size);
    }
    if (options.headless()) {
        return run_headless(window, options, message_shown);
    }
    if (source.table.empty()) {
        window.make_read_only(); // a row that nobody stores is not to be confirmed
    }
    window.show();
    window.load();
    return application.exec();
}

} // namespace

int main(int argc, char** argv) {
    demo::Options options;
    try {
        options = demo::parse_options(arguments_of(argc, argv));
    } catch (const demo::UsageError& error) {
        std::cerr << "krvlist-demo: " << error.what() << "\n\n" << demo::usage().toStdString();
        return wrong_usage;
    }
    if (options.help) {
        std::cout << demo::usage().toStdString();
        return 0;
    }
    choose_platform(options);
    int qt_argc = 1;
    const QApplication application(qt_argc, argv);
    try {
        return run(application, options);
    } catch (const std::exception& error) {
        std::cerr << "krvlist-demo: " << error.what() << '\n';
        return failed;
    }
}
