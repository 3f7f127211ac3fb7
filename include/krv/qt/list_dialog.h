#pragma once

#include "krv/qt/property_page.h"

#include <QDialog>

namespace krv::qt {

class ListPreview;

/// The property page of a list in a dialog, with a preview beside it that shows what applying would
/// give. OK and Apply leave the editor that has the focus first, and stop where it holds the
/// developer; what fails while it is applied is shown, and the dialog stays open.
class ListDialog : public QDialog {
    Q_OBJECT

public:
    /// Reads the site's first selected control.
    /// \throws what `pKrvList::SelectionChanged` raises; there is no dialog then
    explicit ListDialog(PropertyPageSupplies supplies, QWidget* parent = nullptr);

    PropertyPageWidget& page() noexcept { return *page_; }

    ListPreview& preview() noexcept { return *preview_; }

    /// \return whether everything was applied and the dialog is still there
    bool apply();

public slots:
    /// Applies and closes.
    void accept() override;
    /// Closes; asks first when edits would be lost.
    void reject() override;

signals:
    /// The page was applied.
    void applied();

private:
    void show_preview();

    PropertyPageWidget* page_;
    ListPreview* preview_;
};

} // namespace krv::qt
