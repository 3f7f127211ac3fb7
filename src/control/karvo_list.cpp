#include "krv/control/karvo_list.h"

#include "control/rooms.h"

#include <utility>

namespace krv {

KarvoList::KarvoList(const Constituents& constituents, const Surroundings& surroundings)
    : rooms_(std::make_unique<Rooms>(constituents, surroundings)) {
    const Constituents& parts = constituents;
    parts.GridIn.SetVisible(false);
    parts.InpFld.SetVisible(false);
    for (platform::Button* button :
         {&parts.btnOK, &parts.btnCopy, &parts.btnInsert, &parts.btnDelete}) {
        button->SetVisible(false);
    }
    parts.btnOK.SetCaption("conferma riga");
    parts.Line1.SetX1(-1);
    parts.Line1.SetX2(-1);
    rooms_->buttons.EvidenziaFunzione(0);
}

KarvoList::~KarvoList() = default;

void KarvoList::InitProperties() {
    ControlState& state = rooms_->state;
    const Constituents& parts = state.parts;
    state.edit.Editing = false;
    state.edit.Adding = false;
    state.edit.Inserting = false;
    state.AutoAdd = true;
    for (platform::Button* button : parts.buttons()) {
        button->SetHeight(255);
    }
    parts.Grid.SetRows(1);
    parts.Grid.SetCols(1);
    parts.GridIn.SetCols(1);
    state.LineNumberColumn = -1;
    state.columns.Resize(parts.Grid.Cols() - 1);
    for (std::int32_t col = 0; col < parts.Grid.Cols(); ++col) {
        state.columns.SetColEditable(col, true);
    }
    FunctionButtons& buttons = rooms_->buttons;
    for (const Function function : all_functions) {
        buttons.set_visible(function, true);
    }
    buttons.OkVisible = true;
    parts.btnOK.SetVisible(true);
    buttons.set_caption(Function::add, "aggiungi");
    buttons.set_caption(Function::insert, "inserisci");
    buttons.set_caption(Function::remove, "elimina");
    buttons.set_caption(Function::copy, "copia");
    state.AutoStartInputOnClick = true;
    state.host.application.SetTitle("Rolda");
    rooms_->start_listening();
}

void KarvoList::ReadProperties(platform::PropertyBag& bag) {
    rooms_->stop_listening();
    rooms_->CloseField(); // its column may go
    rooms_->state.parts.InpFld.SetVisible(false);
    const auto go_on = [this] {
        // A change of the current row that still waits is none that the user made.
        rooms_->state.edit.LastRowSel = rooms_->state.parts.Grid.RowSel();
        rooms_->start_listening();
    };
    try {
        persistence::read_properties(rooms_->settings(), bag);
    } catch (...) {
        go_on();
        throw;
    }
    go_on();
}

void KarvoList::WriteProperties(platform::PropertyBag& bag) const {
    persistence::write_properties(rooms_->settings(), bag);
}

// --- State ---------------------------------------------------------------------------------------

bool KarvoList::Adding() const {
    return rooms_->state.edit.Adding;
}

bool KarvoList::Inserting() const {
    return rooms_->state.edit.Inserting;
}

bool KarvoList::Editing() const {
    return rooms_->state.edit.Editing;
}

bool KarvoList::Modified() const {
    return rooms_->state.edit.Modified;
}

bool KarvoList::InputModified() const {
    return rooms_->state.parts.btnOK.Visible();
}

std::string KarvoList::InputArray(std::int32_t col) const {
    return std::string(rooms_->state.parts.GridIn.TextMatrix(1, col));
}

void KarvoList::SetInputArray(std::int32_t col, std::string_view text) {
    const Constituents& parts = rooms_->state.parts;
    parts.GridIn.SetTextMatrix(1, col, text);
    parts.btnOK.SetVisible(true);
    rooms_->changed("InputArray");
}

bool KarvoList::AutoAdd() const {
    return rooms_->state.AutoAdd;
}

void KarvoList::SetAutoAdd(bool value) {
    rooms_->state.AutoAdd = value;
    rooms_->changed("AutoAdd");
}

bool KarvoList::AutoStartInputOnClick() const {
    return rooms_->state.AutoStartInputOnClick;
}

void KarvoList::SetAutoStartInputOnClick(bool value) {
    rooms_->state.AutoStartInputOnClick = value;
    rooms_->changed("AutoStartInputOnClick");
}

std::shared_ptr<platform::Object> KarvoList::GiveFocusTo() const {
    return rooms_->state.GiveFocusTo;
}

void KarvoList::SetGiveFocusTo(std::shared_ptr<platform::Object> object) {
    rooms_->state.GiveFocusTo = std::move(object);
    rooms_->changed("GiveFocusTo");
}

bool KarvoList::MoveWithTab() const {
    return !rooms_->state.parts.btnAdd.TabStop();
}

void KarvoList::SetMoveWithTab(bool value) {
    rooms_->state.parts.btnAdd.SetTabStop(!value);
    rooms_->changed("MoveWithTab");
}

bool KarvoList::Enabled() const {
    return rooms_->state.parts.btnAdd.Enabled();
}

void KarvoList::SetEnabled(bool enabled) {
    const Constituents& parts = rooms_->state.parts;
    for (platform::Button* button : parts.buttons()) {
        button->SetEnabled(enabled);
    }
    rooms_->changed("Enabled");
}

std::string KarvoList::MsgTitle() const {
    return rooms_->state.host.application.Title();
}

void KarvoList::SetMsgTitle(std::string_view /*title*/) {
    // Deliberate: the title belongs to the application; a put marks the form as changed and no
    // more.
    rooms_->state.host.application.SetTitle(MsgTitle());
    rooms_->changed("MsgTitle");
}

// --- Record source -------------------------------------------------------------------------------

std::string KarvoList::Connect() const {
    return rooms_->source.Connect;
}

void KarvoList::SetConnect(std::string_view connect) {
    rooms_->source.Connect = connect;
    rooms_->changed("Connect");
}

std::string KarvoList::DataBaseName() const {
    return rooms_->source.DataBaseName;
}

void KarvoList::SetDataBaseName(std::string_view path) {
    rooms_->source.DataBaseName = path;
    rooms_->changed("DataBaseName");
}

std::string KarvoList::Recordsource() const {
    return rooms_->source.Recordsource;
}

void KarvoList::SetRecordsource(std::string_view New_RecordSource) {
    rooms_->source.Recordsource = New_RecordSource;
    rooms_->changed("Recordsource");
}

bool KarvoList::ReadOnlyRecordset() const {
    return rooms_->source.ReadOnlyRecordset;
}

void KarvoList::SetReadOnlyRecordset(bool nReadOnly) {
    rooms_->source.ReadOnlyRecordset = nReadOnly;
    rooms_->changed("ReadOnlyRecordset");
}

std::shared_ptr<platform::Recordset> KarvoList::Recordset() const {
    return rooms_->source.recordset;
}

void KarvoList::SetRecordset(std::shared_ptr<platform::Recordset> recordset) {
    rooms_->source.recordset = std::move(recordset);
    rooms_->changed("Recordset");
}

void KarvoList::Refresh() {
    rooms_->loading.Refresh();
}

void KarvoList::Clear() {
    rooms_->loading.Clear();
}

void KarvoList::Svuota(bool NeverAdd) {
    rooms_->loading.Svuota(NeverAdd);
}

void KarvoList::CloseAll() {
    rooms_->source.CloseAll();
}

void KarvoList::CloseRecordset() {
    CloseAll();
}

// --- Row commands ---------------------------------------------------------------------------------

bool KarvoList::Add() {
    if (rooms_->state.parts.btnAdd.Visible()) {
        rooms_->Add();
    }
    return false;
}

bool KarvoList::Insert() {
    if (rooms_->state.parts.btnInsert.Visible()) {
        rooms_->Insert();
    }
    return false;
}

bool KarvoList::Delete() {
    rooms_->Delete();
    return false;
}

bool KarvoList::Copy() {
    rooms_->Copy();
    return false;
}

bool KarvoList::OK() {
    rooms_->Confirm();
    return false;
}

void KarvoList::RowClick(std::int32_t Row, std::int16_t& Button, std::int16_t& Shift) {
    rooms_->interaction.RowClick(Row, Button, Shift);
}

bool KarvoList::SetInput(std::int32_t Col) {
    return rooms_->editor.SetInput(Col);
}

// --- Events --------------------------------------------------------------------------------------

void KarvoList::subscribe(KarvoListEvents& listener) {
    rooms_->state.events.subscribe(listener);
}

void KarvoList::unsubscribe(KarvoListEvents& listener) {
    rooms_->state.events.unsubscribe(listener);
}

const platform::Formatter& KarvoList::formatter() const noexcept {
    return rooms_->state.host.formatter;
}

std::weak_ptr<const void> KarvoList::watch() const {
    return rooms_->state.life.watch();
}

} // namespace krv
