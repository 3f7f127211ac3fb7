#include "qt/page/combo_box.h"

#include <QLineEdit>
#include <QWheelEvent>

#include <limits>
#include <utility>

namespace krv::qt {

namespace {

using namespace platform::error_number;

/// Sets a flag for as long as it lives.
class Assigning {
public:
    explicit Assigning(bool& flag)
        : flag_(flag)
        , before_(std::exchange(flag, true)) {}

    ~Assigning() { flag_ = before_; }

    Assigning(const Assigning&) = delete;
    Assigning& operator=(const Assigning&) = delete;

private:
    bool& flag_;
    bool before_;
};

/// Gives a field its caret and selection back, unless its text has become another one.
class KeptCaret {
public:
    explicit KeptCaret(QLineEdit* field)
        : field_(field) {
        if (field_ != nullptr) {
            text_ = field_->text();
            caret_ = field_->cursorPosition();
            start_ = field_->selectionStart();
            length_ = field_->selectionLength();
        }
    }

    ~KeptCaret() {
        if (field_ == nullptr || field_->text() != text_) {
            return;
        }
        field_->setCursorPosition(caret_);
        if (start_ >= 0) {
            field_->setSelection(start_, length_);
        }
    }

    KeptCaret(const KeptCaret&) = delete;
    KeptCaret& operator=(const KeptCaret&) = delete;

private:
    QLineEdit* field_;
    QString text_;
    int caret_ = 0;
    int start_ = -1;
    int length_ = 0;
};

} // namespace

void ComboWidget::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

QtComboBox::QtComboBox(Surface& surface, std::string name, Typing typing)
    : QtEditor(surface, std::move(name))
    , combo_(new ComboWidget(*this, &surface.root())) {
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo_->setMinimumContentsLength(12);
    if (typing == Typing::allowed) {
        auto* const edit = new Gated<QLineEdit>(*this, combo_);
        edit->setMaxLength(std::numeric_limits<int>::max());
        combo_->setLineEdit(edit);
        // A completion would change what was typed into another entry's text.
        combo_->setCompleter(nullptr);
        QObject::connect(edit, &QLineEdit::textEdited, combo_, [this] { notice_typing(); });
        QObject::connect(edit, &QLineEdit::textChanged, combo_, [this] { notice_text(); });
    }
    adopt(combo_);
    QObject::connect(combo_, qOverload<int>(&QComboBox::activated), combo_, [this](int index) {
        notice_choice(index);
    });
}

QString QtComboBox::shown_text() const {
    return has_field() ? combo_->lineEdit()->text() : combo_->currentText();
}

std::string QtComboBox::Text() const {
    return shown_text().toStdString();
}

std::int16_t QtComboBox::index_of(const QString& text) const {
    return static_cast<std::int16_t>(
        combo_->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void QtComboBox::select(std::int16_t index, const QString& text) {
    const Assigning assigning(assigning_);
    list_index_ = index;
    combo_->setCurrentIndex(index);
    if (has_field() && combo_->lineEdit()->text() != text) {
        combo_->lineEdit()->setText(text);
    }
    told_ = shown_text();
}

void QtComboBox::SetText(std::string_view text) {
    const QString next = qt_text(text);
    if (next == shown_text()) {
        list_index_ = has_field() ? index_of(next) : list_index_;
        return;
    }
    const std::int16_t index = index_of(next);
    if (!has_field() && index < 0 && !next.isEmpty()) {
        throw failure(property_is_read_only, "'Text' property is read-only");
    }
    select(index, next);
    if (has_field()) {
        combo_->lineEdit()->setCursorPosition(0);
    }
    tell(&platform::EditorEvents::Change);
}

std::int16_t QtComboBox::ListCount() const {
    return static_cast<std::int16_t>(combo_->count());
}

void QtComboBox::require_in_list(std::int32_t index) const {
    if (!is_in_list(index)) {
        throw failure(invalid_property_array_index, "Invalid property array index");
    }
}

std::string QtComboBox::List(std::int16_t index) const {
    require_in_list(index);
    return combo_->itemText(index).toStdString();
}

std::int32_t QtComboBox::ItemData(std::int16_t index) const {
    require_in_list(index);
    return combo_->itemData(index).toInt();
}

void QtComboBox::SetItemData(std::int16_t index, std::int32_t data) {
    require_in_list(index);
    combo_->setItemData(index, data);
}

void QtComboBox::SetListIndex(std::int16_t index) {
    if (index != -1 && !is_in_list(index)) {
        throw failure(invalid_property_value, "Invalid property value");
    }
    select(index, index < 0 ? QString() : combo_->itemText(index));
    if (index < 0) {
        touched();
        return;
    }
    tell(&platform::EditorEvents::Click);
}

void QtComboBox::AddItem(std::string_view text, std::int16_t index) {
    if (index < 0 || index > combo_->count() ||
        combo_->count() == std::numeric_limits<std::int16_t>::max()) {
        throw failure(invalid_call, "Invalid procedure call or argument");
    }
    const KeptCaret caret(combo_->lineEdit());
    const QString entry = qt_text(text);
    const QString shown = shown_text();
    std::int16_t selected = list_index_;
    {
        const Assigning assigning(assigning_);
        combo_->insertItem(index, entry);
    }
    if (selected >= index) {
        ++selected;
    } else if (selected < 0 && has_field() && entry == shown) {
        selected = index;
    }
    // Qt selects the first entry of a list by itself, and shows it.
    select(selected, shown);
    touched();
}

void QtComboBox::Clear() {
    const KeptCaret caret(combo_->lineEdit());
    const QString shown = has_field() ? shown_text() : QString();
    {
        const Assigning assigning(assigning_);
        combo_->clear();
    }
    select(-1, shown);
    touched();
}

// What a person does

void QtComboBox::type(const QString& text) {
    if (!has_field()) {
        PageEditor::type(text);
    } else if (is_enabled()) {
        combo_->lineEdit()->selectAll();
        combo_->lineEdit()->insert(text);
    }
}

void QtComboBox::click(std::int32_t index) {
    if (!is_enabled()) {
        return;
    }
    if (!is_in_list(index)) {
        throw failure(invalid_property_value, "Invalid property value");
    }
    notice_choice(index);
}

void QtComboBox::notice_typing() {
    const QString text = shown_text();
    if (std::exchange(told_, text) == text) {
        return;
    }
    list_index_ = index_of(text);
    if (combo_->currentIndex() != list_index_) {
        // Qt's own entry follows, also to none, or it would take the text for a choice when the box
        // is left, and a text that comes back to the old entry for no change.
        const KeptCaret caret(combo_->lineEdit());
        select(list_index_, text);
    }
    tell_of_person(&platform::EditorEvents::Change);
}

/// Text that comes neither from code nor from typing: of a choice that is told next, or of a program
/// that helps a person to type.
void QtComboBox::notice_text() {
    if (!assigning_ && shown_text() != combo_->itemText(combo_->currentIndex())) {
        notice_typing();
    }
}

void QtComboBox::notice_choice(int index) {
    select(static_cast<std::int16_t>(index), combo_->itemText(index));
    tell_of_person(&platform::EditorEvents::Click);
}

} // namespace krv::qt
