// The members of KarvoList that concern the function buttons.

#include "krv/control/karvo_list.h"

#include "control/rooms.h"

namespace krv {

std::int16_t KarvoList::KeyAdd() const {
    return rooms_->buttons.key(Function::add);
}

void KarvoList::SetKeyAdd(std::int16_t code) {
    rooms_->put_key(Function::add, code, "KeyAdd");
}

std::int16_t KarvoList::KeyInsert() const {
    return rooms_->buttons.key(Function::insert);
}

void KarvoList::SetKeyInsert(std::int16_t code) {
    rooms_->put_key(Function::insert, code, "KeyInsert");
}

std::int16_t KarvoList::KeyDelete() const {
    return rooms_->buttons.key(Function::remove);
}

void KarvoList::SetKeyDelete(std::int16_t code) {
    rooms_->put_key(Function::remove, code, "KeyDelete");
}

std::int16_t KarvoList::KeyCopy() const {
    return rooms_->buttons.key(Function::copy);
}

void KarvoList::SetKeyCopy(std::int16_t code) {
    rooms_->put_key(Function::copy, code, "KeyCopy");
}

std::int16_t KarvoList::KeyOK() const {
    return rooms_->buttons.KeyOK;
}

void KarvoList::SetKeyOK(std::int16_t code) {
    rooms_->buttons.KeyOK = code;
    rooms_->changed("KeyOK");
}

std::string KarvoList::AddCaption() const {
    return rooms_->buttons.caption(Function::add);
}

void KarvoList::SetAddCaption(std::string_view caption) {
    rooms_->buttons.set_caption(Function::add, caption);
    rooms_->changed("AddCaption");
}

std::string KarvoList::InsertCaption() const {
    return rooms_->buttons.caption(Function::insert);
}

void KarvoList::SetInsertCaption(std::string_view caption) {
    rooms_->buttons.set_caption(Function::insert, caption);
    rooms_->changed("InsertCaption");
}

std::string KarvoList::DeleteCaption() const {
    return rooms_->buttons.caption(Function::remove);
}

void KarvoList::SetDeleteCaption(std::string_view caption) {
    rooms_->buttons.set_caption(Function::remove, caption);
    rooms_->changed("DeleteCaption");
}

std::string KarvoList::CopyCaption() const {
    return rooms_->buttons.caption(Function::copy);
}

void KarvoList::SetCopyCaption(std::string_view caption) {
    rooms_->buttons.set_caption(Function::copy, caption);
    rooms_->changed("CopyCaption");
}

std::string KarvoList::OKCaption() const {
    return rooms_->state.parts.btnOK.Caption();
}

void KarvoList::SetOKCaption(std::string_view caption) {
    rooms_->state.parts.btnOK.SetCaption(caption);
    rooms_->changed("OKCaption");
}

bool KarvoList::AddVisible() const {
    return rooms_->buttons.visible(Function::add);
}

void KarvoList::SetAddVisible(bool visible) {
    rooms_->buttons.set_visible(Function::add, visible);
    rooms_->changed("AddVisible");
}

bool KarvoList::InsertVisible() const {
    return rooms_->buttons.visible(Function::insert);
}

void KarvoList::SetInsertVisible(bool visible) {
    rooms_->buttons.set_visible(Function::insert, visible);
    rooms_->changed("InsertVisible");
}

bool KarvoList::DeleteVisible() const {
    return rooms_->buttons.visible(Function::remove);
}

void KarvoList::SetDeleteVisible(bool visible) {
    rooms_->buttons.set_visible(Function::remove, visible);
    rooms_->changed("DeleteVisible");
}

bool KarvoList::CopyVisible() const {
    return rooms_->buttons.visible(Function::copy);
}

void KarvoList::SetCopyVisible(bool visible) {
    rooms_->buttons.set_visible(Function::copy, visible);
    rooms_->changed("CopyVisible");
}

bool KarvoList::OkVisible() const {
    return rooms_->buttons.OkVisible;
}

void KarvoList::SetOkVisible(bool visible) {
    rooms_->buttons.OkVisible = visible;
    rooms_->state.parts.btnOK.SetVisible(visible);
    rooms_->changed("OkVisible");
}

platform::OleColor KarvoList::AddColor() const {
    return rooms_->state.parts.btnAdd.BackColor();
}

void KarvoList::SetAddColor(platform::OleColor color) {
    rooms_->put_color(rooms_->state.parts.btnAdd, color, "AddColor");
}

platform::OleColor KarvoList::InsertColor() const {
    return rooms_->state.parts.btnInsert.BackColor();
}

void KarvoList::SetInsertColor(platform::OleColor color) {
    // Deliberate: stored settings know the colour under this name.
    rooms_->put_color(rooms_->state.parts.btnInsert, color, "InserColor");
}

platform::OleColor KarvoList::DeleteColor() const {
    return rooms_->state.parts.btnDelete.BackColor();
}

void KarvoList::SetDeleteColor(platform::OleColor color) {
    rooms_->put_color(rooms_->state.parts.btnDelete, color, "DeleteColor");
}

platform::OleColor KarvoList::CopyColor() const {
    return rooms_->state.parts.btnCopy.BackColor();
}

void KarvoList::SetCopyColor(platform::OleColor color) {
    rooms_->put_color(rooms_->state.parts.btnCopy, color, "CopyColor");
}

platform::OleColor KarvoList::OkColor() const {
    return rooms_->state.parts.btnOK.BackColor();
}

void KarvoList::SetOkColor(platform::OleColor color) {
    rooms_->put_color(rooms_->state.parts.btnOK, color, "OkColor");
}

platform::OleColor KarvoList::EvidenziaColor() const {
    return rooms_->buttons.EvidenziaColor;
}

void KarvoList::SetEvidenziaColor(platform::OleColor color) {
    rooms_->buttons.EvidenziaColor = color;
    rooms_->changed("EvidenziaColor");
}

void KarvoList::EvidenziaFunzione(std::int16_t Funzione) {
    rooms_->buttons.EvidenziaFunzione(Funzione);
}

// --- Appearance and keys -------------------------------------------------------------------------

platform::OleColor KarvoList::BackColor() const {
    return rooms_->state.host.container.BackColor();
}

void KarvoList::SetBackColor(platform::OleColor color) {
    rooms_->state.host.container.SetBackColor(color);
    rooms_->changed("BackColor");
}

platform::TwipsSingle KarvoList::ButtonsHeight() const {
    return rooms_->state.parts.btnAdd.Height();
}

void KarvoList::SetButtonsHeight(platform::TwipsSingle height) {
    const Constituents& parts = rooms_->state.parts;
    for (platform::Button* button : parts.buttons()) {
        button->SetHeight(height);
    }
    rooms_->Resize();
    rooms_->changed("ButtonsHeight");
}

platform::TwipsSingle KarvoList::ButtonsWidth() const {
    return rooms_->state.parts.btnAdd.Width();
}

void KarvoList::SetFont(float FontSize) {
    set_font(rooms_->state, FontSize);
}

void KarvoList::SendKeys(std::int16_t KeyCode, std::int16_t Shift) {
    rooms_->KeyDown(KeyCode, Shift);
}

} // namespace krv
