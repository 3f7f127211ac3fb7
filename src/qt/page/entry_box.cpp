#include "qt/page/entry_box.h"

#include <QLineEdit>

#include <limits>
#include <utility>

namespace krv::qt {

QtEntryBox::QtEntryBox(Surface& surface, std::string name)
    : QtEditor(surface, std::move(name))
    , edit_(new Gated<QLineEdit>(*this, &surface.root())) {
    edit_->setMaxLength(std::numeric_limits<int>::max());
    adopt(edit_);
    QObject::connect(edit_, &QLineEdit::textChanged, edit_, [this] { notice_text(); });
}

std::string QtEntryBox::Text() const {
    return edit_->text().toStdString();
}

void QtEntryBox::SetText(std::string_view text) {
    const QString next = qt_text(text);
    if (next == edit_->text()) {
        return;
    }
    assigning_ = true;
    edit_->setText(next);
    edit_->setCursorPosition(0);
    assigning_ = false;
    told_ = next;
    tell(&platform::EditorEvents::Change);
}

void QtEntryBox::type(const QString& text) {
    if (is_enabled()) {
        edit_->selectAll();
        edit_->insert(text);
    }
}

void QtEntryBox::notice_text() {
    if (!assigning_ && std::exchange(told_, edit_->text()) != edit_->text()) {
        tell_of_person(&platform::EditorEvents::Change);
    }
}

} // namespace krv::qt
