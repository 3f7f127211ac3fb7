#pragma once

#include "krv/platform/dialog_controls.h"
#include "krv/qt/file_chooser.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <optional>
#include <string>

namespace krv::qt {

/// The filters of a dialog of Qt: a bare pattern, or descriptions and patterns in turn, between bars,
/// with patterns between semicolons. All files come last.
QStringList name_filters(const QString& filter);

/// The folder, or the user's own when it is not there.
QString folder_to_open(const QString& folder);

/// The desktop's dialog for a file that exists.
class QtFileDialog final : public platform::FileDialog {
public:
    explicit QtFileDialog(QWidget& page)
        : page_(&page) {}

    void SetDialogTitle(std::string_view title) override { request_.title = title; }

    void SetFilter(std::string_view filter) override { request_.filter = filter; }

    void SetInitDir(std::string_view folder) override { request_.folder = folder; }

    void ShowOpen() override;

    std::string FileName() const override { return file_name_; }

    /// Asked instead of showing the dialog; empty shows it again.
    void set_chooser(FileChooser chooser) { chooser_ = std::move(chooser); }

private:
    std::optional<std::string> choose() const;

    QPointer<QWidget> page_;
    FileRequest request_;
    FileChooser chooser_;
    std::string file_name_;
};

} // namespace krv::qt
