#include "designer_window.h"

#include "krv/control/karvo_list.h"
#include "krv/platform/error.h"
#include "krv/qt/karvo_list_widget.h"
#include "krv/qt/list_preview.h"
#include "krv/qt/property_page.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include <utility>

namespace krv::designer {

namespace {

constexpr QSize start_size(1100, 640);
const char* const program_title = "KarvoList Designer";

QString shown_name(const Document& document) {
    return document.file().empty() ? DesignerWindow::tr("untitled.krv")
                                   : QString::fromStdString(document.file().filename().string());
}

std::filesystem::path path_of(const QString& file) {
    return std::filesystem::path(file.toStdU16String());
}

/// The text of an error, with its number.
QString text_of(const std::exception& error) {
    const auto* const failure = dynamic_cast<const platform::RuntimeError*>(&error);
    const QString text = QString::fromUtf8(error.what());
    return failure == nullptr
               ? text
               : text + "\n\n" + DesignerWindow::tr("Error %1").arg(failure->number());
}

DesignerWindow::Unsaved ask_about_changes(QWidget& window, const QString& name) {
    const auto answer =
        QMessageBox::question(&window,
                              QString(),
                              DesignerWindow::tr("Save the changes to %1?").arg(name),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    return answer == QMessageBox::Save      ? DesignerWindow::Unsaved::save
           : answer == QMessageBox::Discard ? DesignerWindow::Unsaved::discard
                                            : DesignerWindow::Unsaved::cancel;
}

std::optional<QString> chosen(const QString& file) {
    return file.isEmpty() ? std::nullopt : std::optional<QString>(file);
}

} // namespace

DesignerWindow::DesignerWindow(Surroundings surroundings)
    : surroundings_(std::move(surroundings)) {
    const QString filter = tr("List settings (*.krv);;All files (*)");
    questions_.unsaved = [this](const QString& name) { return ask_about_changes(*this, name); };
    questions_.file_to_open = [this, filter] {
        return chosen(QFileDialog::getOpenFileName(this, QString(), QString(), filter));
    };
    questions_.file_to_save = [this, filter] {
        QFileDialog dialog(this, QString(), QString(), filter);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix("krv"); // before the dialog asks about a file that is there
        dialog.selectFile(shown_name(*document_));
        return dialog.exec() == QDialog::Accepted ? chosen(dialog.selectedFiles().value(0))
                                                  : std::nullopt;
    };
    make_menus();
    resize(start_size);
    take(std::make_unique<Document>(surroundings_));
}

DesignerWindow::~DesignerWindow() {
    // The page works on the document, which goes before the children do.
    delete takeCentralWidget();
}

void DesignerWindow::set_questions(Questions questions) {
    questions_ = std::move(questions);
    page_->set_message_handler(questions_.message);
    preview_->set_message_handler(questions_.message);
}

void DesignerWindow::make_menus() {
    const auto add = [this](QMenu* menu, const QString& text, QKeySequence keys, auto act) {
        QAction* const action = menu->addAction(text);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, [this, act] { (this->*act)(); });
    };
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    add(file, tr("&New"), QKeySequence::New, &DesignerWindow::new_file);
    add(file, tr("&Open..."), QKeySequence::Open, &DesignerWindow::open);
    add(file, tr("&Save"), QKeySequence::Save, &DesignerWindow::save);
    add(file, tr("Save &As..."), QKeySequence::SaveAs, &DesignerWindow::save_as);
    file->addSeparator();
    add(file, tr("&Quit"), QKeySequence::Quit, &DesignerWindow::close);
    QMenu* const list = menuBar()->addMenu(tr("&List"));
    add(list, tr("&Apply"), QKeySequence(Qt::CTRL | Qt::Key_Return), &DesignerWindow::apply);
    add(list, tr("&Load data"), QKeySequence(Qt::CTRL | Qt::Key_L), &DesignerWindow::load_data);
    add(list,
        tr("Show &examples"),
        QKeySequence(Qt::CTRL | Qt::Key_E),
        &DesignerWindow::show_examples);
}

void DesignerWindow::set_up_page() {
    page_ = new qt::PropertyPageWidget(
        {*document_, surroundings_.data_access, surroundings_.formatter});
    preview_ = new qt::ListPreview(surroundings_.data_access, surroundings_.formatter);
    page_->set_message_handler(questions_.message);
    preview_->set_message_handler(questions_.message);
    preview_->widget().set_error_handler(
        [this](const std::exception_ptr& error) { page_->report(error); });
    auto* const box = new QGroupBox(tr("Preview"));
    (new QVBoxLayout(box))->addWidget(preview_);
    auto* const halves = new QSplitter;
    halves->addWidget(page_);
    halves->addWidget(box);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    halves->setSizes({page_->minimumSizeHint().width(), start_size.width()});
    setCentralWidget(halves);
    connect(page_, &qt::PropertyPageWidget::draftChanged, this, &DesignerWindow::show_draft);
}

void DesignerWindow::take(std::unique_ptr<Document> document) {
    delete takeCentralWidget();
    document_ = std::move(document);
    set_up_page();
    show_control();
    // A control gives the program its own start-up title; this one is ours again.
    QGuiApplication::setApplicationDisplayName(program_title);
    statusBar()->clearMessage();
}

void DesignerWindow::show_control() {
    attempt([this] {
        page_->load();
        preview_->follow(*document_->SelectedControls(0));
    });
    show_draft();
}

void DesignerWindow::show_draft() {
    preview_->show_draft(page_->draft());
    show_title();
}

void DesignerWindow::show_title() {
    setWindowTitle(shown_name(*document_) + "[*]");
    setWindowModified(is_modified());
}

bool DesignerWindow::is_modified() const {
    return page_->has_edits() || document_->is_modified();
}

void DesignerWindow::tell(const QString& text) {
    if (const qt::MessageHandler handler = questions_.message) {
        handler(text.toStdString(), platform::MessageButtons::ok);
    } else {
        QMessageBox::warning(this, QString(), text);
    }
}

bool DesignerWindow::attempt(const std::function<void()>& act) {
    try {
        act();
        return true;
    } catch (const std::exception& error) {
        tell(text_of(error));
        return false;
    }
}

// Files

bool DesignerWindow::open_file(const QString& file) {
    std::unique_ptr<Document> opened;
    if (!attempt([&] { opened = std::make_unique<Document>(surroundings_, path_of(file)); })) {
        QGuiApplication::setApplicationDisplayName(program_title);
        return false;
    }
    take(std::move(opened));
    return true;
}

bool DesignerWindow::may_leave() {
    if (!page_->commit()) {
        return false;
    }
    if (!is_modified()) {
        return true;
    }
    switch (questions_.unsaved(shown_name(*document_))) {
    case Unsaved::save:
        return save();
    case Unsaved::discard:
        return true;
    case Unsaved::cancel:
        break;
    }
    return false;
}

bool DesignerWindow::new_file() {
    if (!may_leave()) {
        return false;
    }
    take(std::make_unique<Document>(surroundings_));
    return true;
}

bool DesignerWindow::open() {
    if (!may_leave()) {
        return false;
    }
    const std::optional<QString> file = questions_.file_to_open();
    return file && open_file(*file);
}

bool DesignerWindow::save() {
    return document_->file().empty()
               ? save_as()
               : save_to(QString::fromStdU16String(document_->file().u16string()));
}

bool DesignerWindow::save_as() {
    const std::optional<QString> file = questions_.file_to_save();
    return file && save_to(*file);
}

bool DesignerWindow::save_to(const QString& file) {
    const bool saved = apply() && attempt([&] { document_->save(path_of(file)); });
    show_title();
    if (saved) {
        statusBar()->showMessage(tr("Saved"));
    }
    return saved;
}

// The list

bool DesignerWindow::apply() {
    const bool applied = page_->apply();
    show_title();
    return applied;
}

bool DesignerWindow::load_data() {
    if (!page_->commit()) {
        return false;
    }
    show_draft();
    const bool loaded = attempt([this] { preview_->load(); });
    statusBar()->showMessage(tr("Rows: %1").arg(preview_->widget().list().Rows()));
    return loaded;
}

void DesignerWindow::show_examples() {
    preview_->show_examples();
    statusBar()->clearMessage();
}

void DesignerWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(may_leave());
}

} // namespace krv::designer
