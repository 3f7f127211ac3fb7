#include "demo_window.h"

#include "source.h"

#include "krv/qt/karvo_list_widget.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QStatusBar>
#include <QVBoxLayout>

namespace krv::demo {

namespace {

constexpr QSize start_size(1190, 600);
constexpr int margin_px = 8;

QString text_of(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

DemoWindow::DemoWindow(const Source& source)
    : widget_(new qt::KarvoListWidget(source.data_access, source.formatter))
    , data_access_(source.data_access) {
    auto* const middle = new QWidget(this);
    auto* const layout = new QVBoxLayout(middle);
    layout->setContentsMargins(margin_px, margin_px, margin_px, 0);
    layout->addWidget(widget_);
    setCentralWidget(middle);
    setWindowTitle(text_of(source.records) + " – " +
                   QFileInfo(text_of(source.database)).fileName());
    // The control gives the program its own start-up title; this one is ours again.
    QGuiApplication::setApplicationDisplayName("krvList3");
    statusBar()->addPermanentWidget(new QLabel(text_of(source.region), this));
    resize(start_size);

    KarvoList& list = widget_->list();
    set_up_columns(list, source.columns);
    // The file's bare name does where it cannot be taken for more of the connection string.
    if (source.database.find_first_of(";\"'{") == std::string::npos) {
        list.SetDataBaseName(source.database);
    } else {
        list.SetConnect(source.connect);
    }
    list.SetRecordsource(source.records);
    list.SetReadOnlyRecordset(true);
    list.SetAutoAdd(false);
    list.SetAutoStartInputOnClick(true);
    if (!source.table.empty()) {
        writer_ = std::make_unique<companions::RecordWriter>(
            list,
            *data_access_,
            widget_->application(),
            companions::RecordWriterSettings{.table = source.table, .connect = source.connect});
    }
    for (const auto event :
         {&qt::KarvoListWidget::AfterRowUpdated, &qt::KarvoListWidget::AfterRowDelete}) {
        connect(widget_, event, this, &DemoWindow::show_count);
    }
    connect(widget_, &qt::KarvoListWidget::propertyChanged, this, [this](const QString& name) {
        if (name == "Rows") { // a row that could not be deleted comes back
            show_count();
        }
    });
}

void DemoWindow::make_read_only() {
    KarvoList& list = widget_->list();
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        list.SetColEditable(col, false);
    }
    list.SetAddVisible(false);
    list.SetInsertVisible(false);
    list.SetDeleteVisible(false);
    list.SetCopyVisible(false);
    list.SetOkVisible(false);
    statusBar()->addPermanentWidget(new QLabel("sola lettura", this));
}

void DemoWindow::load() {
    widget_->list().Refresh();
    show_count();
}

void DemoWindow::show_count() {
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    statusBar()->showMessage(QString("%1 righe").arg(italian.toString(widget_->list().Rows())));
}

} // namespace krv::demo
