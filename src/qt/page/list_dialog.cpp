#include "krv/qt/list_dialog.h"

#include "krv/qt/list_preview.h"
#include "qt/page/property_page_rooms.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace krv::qt {

namespace {

constexpr QSize start_size(1000, 620);

QWidget* framed(const QString& title, QWidget* content) {
    auto* const box = new QGroupBox(title);
    auto* const layout = new QVBoxLayout(box);
    layout->addWidget(content);
    return box;
}

} // namespace

ListDialog::ListDialog(PropertyPageSupplies supplies, QWidget* parent)
    : QDialog(parent)
    , page_(new PropertyPageWidget(supplies, this))
    , preview_(new ListPreview(nullptr, supplies.formatter, this)) {
    setWindowTitle(tr("KarvoList"));
    auto* const halves = new QSplitter(this);
    halves->addWidget(page_);
    halves->addWidget(framed(tr("Preview"), preview_));
    halves->setStretchFactor(0, 0);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    halves->setSizes({page_->minimumSizeHint().width(), start_size.width()});
    auto* const buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel, this);
    for (QAbstractButton* button : buttons->buttons()) {
        // A press that takes the focus would leave the editor, whose questions swallow the release.
        button->setFocusPolicy(Qt::TabFocus);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(halves, 1);
    layout->addWidget(buttons);
    resize(start_size);

    connect(buttons, &QDialogButtonBox::accepted, this, &ListDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ListDialog::reject);
    connect(
        buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, [this] { apply(); });
    connect(page_, &PropertyPageWidget::draftChanged, this, &ListDialog::show_preview);

    page_->load();
    preview_->follow(*supplies.site.SelectedControls(0));
    show_preview();
}

void ListDialog::show_preview() {
    preview_->show_draft(page_->draft());
}

bool ListDialog::apply() {
    if (!page_->apply()) {
        return false;
    }
    const QPointer<ListDialog> self = this;
    emit applied();
    return self != nullptr;
}

void ListDialog::accept() {
    if (apply()) {
        QDialog::accept();
    }
}

void ListDialog::reject() {
    const QPointer<ListDialog> self = this;
    if (page_->has_edits() &&
        page_->rooms().application.MsgBox(tr("discard changes?").toStdString(),
                                          platform::MessageButtons::yes_no) !=
            platform::MessageAnswer::yes) {
        return;
    }
    if (self) {
        QDialog::reject();
    }
}

} // namespace krv::qt
