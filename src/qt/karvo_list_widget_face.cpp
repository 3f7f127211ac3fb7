#include "krv/qt/karvo_list_widget.h"

#include "control/failures.h"
#include "qt/focus_target.h"
#include "qt/karvo_list_rooms.h"
#include "qt/qt_text.h"

#include <QPointer>

#include <string_view>
#include <type_traits>

namespace krv::qt {

namespace {

/// A value of Qt as the property of the list takes it.
/// \throws RuntimeError 6 for a number that does not fit
template <class Parameter, class Value>
auto native(const Value& value) {
    if constexpr (std::is_same_v<Value, QString>) {
        return value.toStdString();
    } else if constexpr (std::is_same_v<Parameter, std::int16_t>) {
        return narrow<std::int16_t>(value);
    } else {
        static_assert(std::is_same_v<Parameter, Value>);
        return value;
    }
}

} // namespace

void KarvoListWidget::guard(const std::function<void(KarvoList&)>& act) noexcept {
    rooms_->surface->guard([&] { act(list()); });
}

template <class Parameter, class Value>
void KarvoListWidget::put(void (KarvoList::*setter)(Parameter), const Value& value) noexcept {
    guard([&](KarvoList& list) { (list.*setter)(native<Parameter>(value)); });
}

uint KarvoListWidget::BackColor() const {
    return list().BackColor();
}

void KarvoListWidget::SetBackColor(uint color) {
    put(&KarvoList::SetBackColor, color);
}

float KarvoListWidget::ButtonsHeight() const {
    return list().ButtonsHeight();
}

void KarvoListWidget::SetButtonsHeight(float twips) {
    put(&KarvoList::SetButtonsHeight, twips);
}

float KarvoListWidget::ButtonsWidth() const {
    return list().ButtonsWidth();
}

bool KarvoListWidget::Adding() const {
    return list().Adding();
}

QString KarvoListWidget::Connect() const {
    return qt_text(list().Connect());
}

void KarvoListWidget::SetConnect(const QString& text) {
    put(&KarvoList::SetConnect, text);
}

bool KarvoListWidget::InputModified() const {
    return list().InputModified();
}

int KarvoListWidget::KeyAdd() const {
    return list().KeyAdd();
}

void KarvoListWidget::SetKeyAdd(int value) {
    put(&KarvoList::SetKeyAdd, value);
}

int KarvoListWidget::KeyCopy() const {
    return list().KeyCopy();
}

void KarvoListWidget::SetKeyCopy(int value) {
    put(&KarvoList::SetKeyCopy, value);
}

int KarvoListWidget::KeyDelete() const {
    return list().KeyDelete();
}

void KarvoListWidget::SetKeyDelete(int value) {
    put(&KarvoList::SetKeyDelete, value);
}

int KarvoListWidget::KeyInsert() const {
    return list().KeyInsert();
}

void KarvoListWidget::SetKeyInsert(int value) {
    put(&KarvoList::SetKeyInsert, value);
}

int KarvoListWidget::KeyOK() const {
    return list().KeyOK();
}

void KarvoListWidget::SetKeyOK(int value) {
    put(&KarvoList::SetKeyOK, value);
}

bool KarvoListWidget::MoveWithTab() const {
    return list().MoveWithTab();
}

void KarvoListWidget::SetMoveWithTab(bool value) {
    put(&KarvoList::SetMoveWithTab, value);
}

bool KarvoListWidget::Modified() const {
    return list().Modified();
}

QString KarvoListWidget::MsgTitle() const {
    return qt_text(list().MsgTitle());
}

void KarvoListWidget::SetMsgTitle(const QString& text) {
    put(&KarvoList::SetMsgTitle, text);
}

bool KarvoListWidget::Editing() const {
    return list().Editing();
}

bool KarvoListWidget::Inserting() const {
    return list().Inserting();
}

bool KarvoListWidget::Enabled() const {
    return list().Enabled();
}

void KarvoListWidget::SetEnabled(bool value) {
    put(&KarvoList::SetEnabled, value);
}

int KarvoListWidget::Rows() const {
    return list().Rows();
}

void KarvoListWidget::SetRows(int value) {
    const QPointer<KarvoListWidget> self(this);
    if (in_designer_) {
        // Fewer rows move the current one, which a control in use would open.
        restore_setting("Rows",
                        platform::Value(platform::ValueView::long_long(std::int64_t{value} + 1)));
    } else {
        put(&KarvoList::SetRows, value);
    }
    if (self) {
        go_to_awaited_row();
    }
}

int KarvoListWidget::LineNumberColumn() const {
    return list().LineNumberColumn();
}

void KarvoListWidget::SetLineNumberColumn(int value) {
    put(&KarvoList::SetLineNumberColumn, value);
}

int KarvoListWidget::Cols() const {
    return list().Cols();
}

void KarvoListWidget::SetCols(int value) {
    put(&KarvoList::SetCols, value);
}

QString KarvoListWidget::Recordsource() const {
    return qt_text(list().Recordsource());
}

void KarvoListWidget::SetRecordsource(const QString& text) {
    put(&KarvoList::SetRecordsource, text);
}

bool KarvoListWidget::ReadOnlyRecordset() const {
    return list().ReadOnlyRecordset();
}

void KarvoListWidget::SetReadOnlyRecordset(bool value) {
    put(&KarvoList::SetReadOnlyRecordset, value);
}

QString KarvoListWidget::DataBaseName() const {
    return qt_text(list().DataBaseName());
}

void KarvoListWidget::SetDataBaseName(const QString& text) {
    put(&KarvoList::SetDataBaseName, text);
}

int KarvoListWidget::Row() const {
    return list().Row();
}

void KarvoListWidget::SetRow(int value) {
    put(&KarvoList::SetRow, value);
}

int KarvoListWidget::TopRow() const {
    return list().TopRow();
}

void KarvoListWidget::SetTopRow(int value) {
    put(&KarvoList::SetTopRow, value);
}

QString KarvoListWidget::AddCaption() const {
    return qt_text(list().AddCaption());
}

void KarvoListWidget::SetAddCaption(const QString& text) {
    put(&KarvoList::SetAddCaption, text);
}

uint KarvoListWidget::AddColor() const {
    return list().AddColor();
}

void KarvoListWidget::SetAddColor(uint color) {
    put(&KarvoList::SetAddColor, color);
}

QString KarvoListWidget::InsertCaption() const {
    return qt_text(list().InsertCaption());
}

void KarvoListWidget::SetInsertCaption(const QString& text) {
    put(&KarvoList::SetInsertCaption, text);
}

uint KarvoListWidget::InsertColor() const {
    return list().InsertColor();
}

void KarvoListWidget::SetInsertColor(uint color) {
    put(&KarvoList::SetInsertColor, color);
}

QString KarvoListWidget::DeleteCaption() const {
    return qt_text(list().DeleteCaption());
}

void KarvoListWidget::SetDeleteCaption(const QString& text) {
    put(&KarvoList::SetDeleteCaption, text);
}

uint KarvoListWidget::DeleteColor() const {
    return list().DeleteColor();
}

void KarvoListWidget::SetDeleteColor(uint color) {
    put(&KarvoList::SetDeleteColor, color);
}

QString KarvoListWidget::CopyCaption() const {
    return qt_text(list().CopyCaption());
}

void KarvoListWidget::SetCopyCaption(const QString& text) {
    put(&KarvoList::SetCopyCaption, text);
}

uint KarvoListWidget::CopyColor() const {
    return list().CopyColor();
}

void KarvoListWidget::SetCopyColor(uint color) {
    put(&KarvoList::SetCopyColor, color);
}

uint KarvoListWidget::EvidenziaColor() const {
    return list().EvidenziaColor();
}

void KarvoListWidget::SetEvidenziaColor(uint color) {
    put(&KarvoList::SetEvidenziaColor, color);
}

QString KarvoListWidget::OKCaption() const {
    return qt_text(list().OKCaption());
}

void KarvoListWidget::SetOKCaption(const QString& text) {
    put(&KarvoList::SetOKCaption, text);
}

uint KarvoListWidget::OkColor() const {
    return list().OkColor();
}

void KarvoListWidget::SetOkColor(uint color) {
    put(&KarvoList::SetOkColor, color);
}

bool KarvoListWidget::AddVisible() const {
    return list().AddVisible();
}

void KarvoListWidget::SetAddVisible(bool value) {
    put(&KarvoList::SetAddVisible, value);
}

bool KarvoListWidget::InsertVisible() const {
    return list().InsertVisible();
}

void KarvoListWidget::SetInsertVisible(bool value) {
    put(&KarvoList::SetInsertVisible, value);
}

bool KarvoListWidget::DeleteVisible() const {
    return list().DeleteVisible();
}

void KarvoListWidget::SetDeleteVisible(bool value) {
    put(&KarvoList::SetDeleteVisible, value);
}

bool KarvoListWidget::CopyVisible() const {
    return list().CopyVisible();
}

void KarvoListWidget::SetCopyVisible(bool value) {
    put(&KarvoList::SetCopyVisible, value);
}

bool KarvoListWidget::OkVisible() const {
    return list().OkVisible();
}

void KarvoListWidget::SetOkVisible(bool value) {
    put(&KarvoList::SetOkVisible, value);
}

bool KarvoListWidget::AutoAdd() const {
    return list().AutoAdd();
}

void KarvoListWidget::SetAutoAdd(bool value) {
    put(&KarvoList::SetAutoAdd, value);
}

bool KarvoListWidget::AutoStartInputOnClick() const {
    return list().AutoStartInputOnClick();
}

void KarvoListWidget::SetAutoStartInputOnClick(bool value) {
    put(&KarvoList::SetAutoStartInputOnClick, value);
}

void KarvoListWidget::SetGiveFocusTo(QWidget* widget) {
    guard([&](KarvoList& list) {
        list.SetGiveFocusTo(
            widget != nullptr ? std::make_shared<FocusTarget>(rooms_->surface, *widget) : nullptr);
    });
}

void KarvoListWidget::Refresh() {
    guard([](KarvoList& list) { list.Refresh(); });
}

void KarvoListWidget::Clear() {
    guard([](KarvoList& list) { list.Clear(); });
}

void KarvoListWidget::CloseAll() {
    guard([](KarvoList& list) { list.CloseAll(); });
}

void KarvoListWidget::Add() {
    guard([](KarvoList& list) { list.Add(); });
}

void KarvoListWidget::Insert() {
    guard([](KarvoList& list) { list.Insert(); });
}

void KarvoListWidget::Delete() {
    guard([](KarvoList& list) { list.Delete(); });
}

void KarvoListWidget::Copy() {
    guard([](KarvoList& list) { list.Copy(); });
}

void KarvoListWidget::OK() {
    guard([](KarvoList& list) { list.OK(); });
}

void KarvoListWidget::CloseRecordset() {
    guard([](KarvoList& list) { list.CloseRecordset(); });
}

void KarvoListWidget::Svuota() {
    guard([](KarvoList& list) { list.Svuota(); });
}

} // namespace krv::qt
