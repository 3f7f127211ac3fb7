#include "krv/qt/karvo_list_widget.h"

#include "qt/form_settings.h"
#include "qt/karvo_list_rooms.h"

#include <QPointer>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace krv::qt {

namespace {

using platform::Value;
using platform::ValueView;

Value whole(std::int64_t number) {
    return Value(ValueView::long_long(number));
}

/// What is no UTF-8 becomes replacement characters.
std::string valid_utf8(const QByteArray& bytes) {
    return QString::fromUtf8(bytes).toStdString();
}

Value text_of(const QByteArray& bytes) {
    return Value::text(valid_utf8(bytes));
}

} // namespace

void KarvoListWidget::restore_setting(const char* key, const Value& value) noexcept {
    guard_and_lay_out([&](KarvoList& list) { restore(list, key, value); });
}

void KarvoListWidget::guard_and_lay_out(const std::function<void(KarvoList&)>& act) noexcept {
    const QPointer<KarvoListWidget> self(this); // the error handler may destroy it
    guard(act);
    if (self) {
        rooms_->container.resized();
    }
}

QStringList KarvoListWidget::captions_now() const {
    QStringList captions;
    const std::int32_t cols = list().Cols();
    for (std::int32_t col = 0; col < cols; ++col) {
        captions.append(QString::fromStdString(list().Caption(col)));
    }
    return captions;
}

QByteArray KarvoListWidget::Columns() const {
    return refused_columns_.isEmpty() ? QByteArray::fromStdString(columns_text(list()))
                                      : refused_columns_;
}

void KarvoListWidget::SetColumns(const QByteArray& text) {
    // A form may hand over the captions before the columns, or take columns away and, undoing that,
    // bring them back.
    kept_captions_ = captions_now() + kept_captions_.mid(list().Cols());
    refused_columns_.clear();
    guard_and_lay_out([&](KarvoList& list) {
        std::vector<std::string> kept;
        for (const QString& caption : std::as_const(kept_captions_)) {
            kept.push_back(caption.toStdString());
        }
        try {
            restore_columns(list, valid_utf8(text), kept);
        } catch (...) {
            // A form that is saved again keeps what its developer can still mend.
            refused_columns_ = in_designer_ ? text : QByteArray();
            throw;
        }
    });
}

QStringList KarvoListWidget::Captions() const {
    return captions_now();
}

void KarvoListWidget::SetCaptions(const QStringList& captions) {
    kept_captions_ = captions;
    guard([&](KarvoList& list) {
        const std::int32_t cols = list.Cols();
        for (std::int32_t col = 0; col < cols; ++col) {
            const std::string caption = captions.value(col).toStdString();
            rooms_->grid.SetTextMatrix(0, col, caption);
            rooms_->grid_in.SetTextMatrix(0, col, caption);
        }
    });
}

QByteArray KarvoListWidget::StartConnect() const {
    return Connect().toUtf8();
}

void KarvoListWidget::SetStartConnect(const QByteArray& text) {
    restore_setting("Connect", text_of(text));
}

QByteArray KarvoListWidget::StartDataBaseName() const {
    return DataBaseName().toUtf8();
}

void KarvoListWidget::SetStartDataBaseName(const QByteArray& path) {
    restore_setting("DataBaseName", text_of(path));
}

QByteArray KarvoListWidget::StartRecordsource() const {
    return Recordsource().toUtf8();
}

void KarvoListWidget::SetStartRecordsource(const QByteArray& text) {
    restore_setting("RecordSource", text_of(text));
}

QString KarvoListWidget::StartTitle() const {
    return MsgTitle();
}

void KarvoListWidget::SetStartTitle(const QString& title) {
    rooms_->application.SetTitle(title.toStdString());
}

int KarvoListWidget::StartRow() const {
    return Row();
}

void KarvoListWidget::SetStartRow(int row) {
    awaited_row_ = row;
    if (row < Rows()) {
        awaited_row_ = -1;
        restore_setting("Row", whole(std::int64_t{row} + 1));
    }
}

void KarvoListWidget::go_to_awaited_row() {
    if (awaited_row_ >= 0 && awaited_row_ < Rows()) {
        SetStartRow(awaited_row_);
    }
}

double KarvoListWidget::StartButtonsHeight() const {
    return static_cast<double>(ButtonsHeight());
}

void KarvoListWidget::SetStartButtonsHeight(double twips) {
    restore_setting("ButtonsHeight", Value(ValueView::double_float(twips)));
}

int KarvoListWidget::StartKeyAdd() const {
    return KeyAdd();
}

void KarvoListWidget::SetStartKeyAdd(int code) {
    restore_setting("KeyAdd", whole(code));
}

int KarvoListWidget::StartKeyInsert() const {
    return KeyInsert();
}

void KarvoListWidget::SetStartKeyInsert(int code) {
    restore_setting("KeyInsert", whole(code));
}

int KarvoListWidget::StartKeyDelete() const {
    return KeyDelete();
}

void KarvoListWidget::SetStartKeyDelete(int code) {
    restore_setting("KeyDelete", whole(code));
}

int KarvoListWidget::StartKeyCopy() const {
    return KeyCopy();
}

void KarvoListWidget::SetStartKeyCopy(int code) {
    restore_setting("KeyCopy", whole(code));
}

} // namespace krv::qt
