// Sets up a list without a form designer: its property page, a preview, a file of its settings.

#include "../demo/text_table.h"
#include "designer_window.h"
#include "options.h"

#include "krv/control/karvo_list.h"
#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/qt/list_preview.h"
#include "krv/qt/property_page.h"

#include <QApplication>
#include <QFileInfo>
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
void choose_platform(const designer::Options& options) {
    const bool has_screen =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    const bool only_text = options.headless() && options.screenshot.isEmpty();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") &&
        (only_text || (options.headless() && !has_screen))) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

QPalette dark_palette() {
    const QColor window(0x2b, 0x2b, 0x2b);
    const QColor text(0xe6, 0xe6, 0xe6);
    QPalette palette(text,
                     window,
                     window.lighter(150),
                     window.darker(150),
                     window.lighter(120),
                     text,
                     QColor(0x1e, 0x1e, 0x1e));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, text);
        palette.setColor(QPalette::Inactive, role, text);
        palette.setColor(QPalette::Disabled, role, text.darker(170));
    }
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// Where nobody can answer, the questions are answered, and messages go to the error output: the
/// program fails in the end.
void answer_for_nobody(designer::DesignerWindow& window, bool builds, bool& message_shown) {
    designer::DesignerWindow::Questions questions;
    questions.unsaved = [](const QString&) { return designer::DesignerWindow::Unsaved::discard; };
    questions.file_to_open = [] { return std::nullopt; };
    questions.file_to_save = [] { return std::nullopt; };
    questions.message = [builds, &message_shown](std::string_view text,
                                                 platform::MessageButtons buttons) {
        if (buttons == platform::MessageButtons::yes_no) {
            return builds ? platform::MessageAnswer::yes : platform::MessageAnswer::no;
        }
        std::cerr << "krvlist-designer: " << text << '\n';
        message_shown = true;
        return platform::MessageAnswer::ok;
    };
    window.set_questions(std::move(questions));
}

void put_settings(designer::DesignerWindow& window, const designer::Options& options) {
    const auto control = window.document().SelectedControls(0);
    for (const designer::Setting& setting : options.settings) {
        std::vector<platform::Value> indexes;
        if (setting.column) {
            indexes.push_back(platform::Value(platform::ValueView::long_integer(*setting.column)));
        }
        control->Put(
            setting.name.toStdString(), indexes, platform::Value::text(setting.text.toStdString()));
    }
    if (!options.settings.empty()) {
        window.show_control();
    }
}

/// As a developer does: into the record source and out of it again.
bool build_structure(designer::DesignerWindow& window) {
    auto* const source = window.page().findChild<QWidget*>("txRecordSource");
    source->setFocus(Qt::OtherFocusReason);
    return window.page().commit();
}

bool write_picture(designer::DesignerWindow& window, const QString& file) {
    window.show();
    // The first turns lay the window out, the next ones draw what the loading changed.
    for (int turn = 0; turn < 5; ++turn) {
        QApplication::processEvents();
    }
    if (window.grab().save(file, "PNG")) {
        return true;
    }
    std::cerr << "krvlist-designer: cannot write " << file.toStdString() << '\n';
    return false;
}

bool print(designer::DesignerWindow& window, std::int32_t rows) {
    std::cout << window.document().text() << '\n';
    const bool is_bound = !window.document().list().Recordsource().empty();
    const bool loaded = !is_bound || window.load_data();
    if (loaded && is_bound) {
        demo::print_table(std::cout, window.preview().widget().list(), rows);
    }
    return loaded && std::cout.flush().good();
}

bool run_headless(designer::DesignerWindow& window, const designer::Options& options) {
    if (!window.apply() || (options.saves && !window.save())) {
        return false;
    }
    if (options.print && !print(window, *options.print)) {
        return false;
    }
    return options.screenshot.isEmpty() || write_picture(window, options.screenshot);
}

bool open(designer::DesignerWindow& window, const designer::Options& options) {
    if (options.file.isEmpty()) {
        return true;
    }
    if (options.saves && !QFileInfo::exists(options.file)) {
        window.document().save(std::filesystem::path(options.file.toStdU16String()));
        return true;
    }
    return window.open_file(options.file);
}

int run(const QApplication& application, const designer::Options& options) {
    bool message_shown = false;
    designer::DesignerWindow window(designer::make_surroundings());
    if (options.size) {
        window.resize(*options.size);
    }
    if (options.headless()) {
        answer_for_nobody(window, options.builds, message_shown);
    }
    const bool opened = open(window, options);
    if (!opened && options.headless()) {
        return failed;
    }
    put_settings(window, options);
    if (opened && options.builds && !build_structure(window) && options.headless()) {
        return failed;
    }
    if (opened && options.loads) {
        window.load_data();
    }
    if (options.headless()) {
        return run_headless(window, options) && !message_shown ? 0 : failed;
    }
    window.show();
    return application.exec();
}

} // namespace

int main(int argc, char** argv) {
    designer::Options options;
    try {
        options = designer::parse_options(arguments_of(argc, argv));
    } catch (const designer::UsageError& error) {
        std::cerr << "krvlist-designer: " << error.what() << "\n\n"
                  << designer::usage().toStdString();
        return wrong_usage;
    }
    if (options.help || options.version) {
        std::cout << (options.help ? designer::usage().toStdString()
                                   : "krvlist-designer " KRV_VERSION "\n");
        return 0;
    }
    choose_platform(options);
    int qt_argc = 1;
    const QApplication application(qt_argc, argv);
    if (options.dark) {
        QApplication::setPalette(dark_palette());
    }
    try {
        return run(application, options);
    } catch (const std::exception& error) {
        std::cerr << "krvlist-designer: " << error.what() << '\n';
        return failed;
    }
}
