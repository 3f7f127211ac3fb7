// Takes one picture of the control over the demo's sample database, as the documentation shows it:
// a row opened from the list, the Add button marked.
//
//   krvlist-gallery FILE.png [--size WxH] [--dark]      sizes in twips
//
// The density of the picture is Qt's: QT_SCALE_FACTOR, QT_FONT_DPI.

#include "../demo/column_plan.h"
#include "../demo/options.h"
#include "../demo/source.h"

#include "krv/qt/grid_view.h"
#include "krv/qt/karvo_list_widget.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QImageWriter>
#include <QRegularExpression>

#include <cstdio>
#include <exception>

namespace {

using namespace krv;

constexpr std::int32_t opened_row = 3;
constexpr std::int16_t add_function = 1;

struct Picture {
    QString file;
    platform::TwipsSingle width = 12000;
    platform::TwipsSingle height = 4500;
    bool dark = false;
};

Picture parse(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Takes a picture of the control.");
    parser.addHelpOption();
    parser.addPositionalArgument("file", "PNG file to write.");
    parser.addOption({"size", "Size in twips, 12000x4500 when missing.", "WxH", "12000x4500"});
    parser.addOption({"dark", "Take it in a dark theme."});
    parser.process(application);
    const QRegularExpressionMatch size =
        QRegularExpression("^([1-9]\\d{0,4})x([1-9]\\d{0,4})$").match(parser.value("size"));
    if (parser.positionalArguments().size() != 1 || !size.hasMatch()) {
        parser.showHelp(2);
    }
    return {parser.positionalArguments().first(),
            size.captured(1).toFloat(),
            size.captured(2).toFloat(),
            parser.isSet("dark")};
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
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

void deliver_events() {
    // The first turns lay the window out, the next ones draw what the loading changed.
    for (int turn = 0; turn < 5; ++turn) {
        QApplication::processEvents();
    }
}

void load(qt::KarvoListWidget& widget, const demo::Source& source) {
    KarvoList& list = widget.list();
    demo::set_up_columns(list, source.columns);
    list.SetConnect(source.connect);
    list.SetRecordsource(source.records);
    list.SetReadOnlyRecordset(true);
    list.Refresh();
}

bool write(const QPixmap& pixmap, const QString& file) {
    QImageWriter writer(file, "png");
    writer.setCompression(100);
    writer.setText("Software", "krvlist-gallery");
    if (writer.write(pixmap.toImage().convertToFormat(QImage::Format_RGB888))) {
        return true;
    }
    std::fprintf(stderr,
                 "krvlist-gallery: cannot write %s: %s\n",
                 qPrintable(file),
                 qPrintable(writer.errorString()));
    return false;
}

bool take(const Picture& picture) {
    bool refused = false;
    const demo::Source source = demo::find_source({});
    qt::KarvoListWidget widget(source.data_access, source.formatter);
    widget.set_message_handler([&](std::string_view text, platform::MessageButtons buttons) {
        std::fprintf(stderr, "krvlist-gallery: %s\n", std::string(text).c_str());
        refused = true;
        return buttons == platform::MessageButtons::ok ? platform::MessageAnswer::ok
                                                       : platform::MessageAnswer::no;
    });
    widget.container().SetWidth(picture.width);
    widget.container().SetHeight(picture.height);
    widget.show();
    widget.activateWindow();
    load(widget, source);
    deliver_events();
    widget.findChild<qt::GridView*>("Grid")->click_row(opened_row);
    widget.list().EvidenziaFunzione(add_function);
    deliver_events();
    return write(widget.grab(), picture.file) && !refused;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    const Picture picture = parse(application);
    if (picture.dark) {
        QApplication::setPalette(dark_palette());
    }
    try {
        return take(picture) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "krvlist-gallery: %s\n", error.what());
        return 1;
    }
}
