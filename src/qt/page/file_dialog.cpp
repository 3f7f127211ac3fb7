#include "qt/page/file_dialog.h"

#include "krv/platform/error.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace krv::qt {

namespace {

constexpr std::int32_t cancelled = 32755;

QString patterns_of(QString patterns) {
    return patterns.replace(QLatin1Char(';'), QLatin1Char(' ')).simplified();
}

} // namespace

QStringList name_filters(const QString& filter) {
    const QStringList fields = filter.split(QLatin1Char('|'));
    QStringList filters;
    if (fields.size() < 2) {
        filters.append(patterns_of(filter));
    }
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        filters.append(fields[i].simplified() + " (" + patterns_of(fields[i + 1]) + ')');
    }
    filters.removeAll(QString());
    filters.append(QFileDialog::tr("All Files (*)"));
    return filters;
}

QString folder_to_open(const QString& folder) {
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void QtFileDialog::ShowOpen() {
    std::optional<std::string> file;
    if (chooser_) {
        const FileChooser chooser = chooser_; // a copy: it may replace itself
        file = chooser(request_);
    } else {
        file = choose();
    }
    if (!file) {
        throw platform::RuntimeError(cancelled, "Cancel was selected.", "CommonDialog1");
    }
    file_name_ = std::move(*file);
}

std::optional<std::string> QtFileDialog::choose() const {
    // The page, and the window with it, may go while the dialog is open.
    const QPointer<QFileDialog> dialog =
        new QFileDialog(page_ ? page_->window() : nullptr, QString::fromStdString(request_.title));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(name_filters(QString::fromStdString(request_.filter)));
    dialog->setDirectory(folder_to_open(QString::fromStdString(request_.folder)));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    std::optional<std::string> file;
    if (accepted && dialog && !dialog->selectedFiles().isEmpty()) {
        file = QDir::toNativeSeparators(dialog->selectedFiles().first()).toStdString();
    }
    delete dialog;
    return file;
}

} // namespace krv::qt
