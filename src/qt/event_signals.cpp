#include "qt/event_signals.h"

#include <QPointer>

namespace krv::qt {

namespace {

/// Lets slots change a text: what they left goes back while the widget, and so the text, is there.
template <class Emit>
void offer(KarvoListWidget& widget, std::string& value, Emit emit_signal) {
    const QPointer<KarvoListWidget> alive(&widget);
    const QString before = QString::fromStdString(value);
    QString text = before;
    emit_signal(&text);
    if (alive && text != before) {
        value = text.toStdString();
    }
}

} // namespace

void EventSignals::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift, std::int32_t Col) {
    emit widget_.KeyDown(&KeyCode, &Shift, Col);
}

void EventSignals::KeyPress(std::int16_t& KeyAscii) {
    emit widget_.KeyPress(&KeyAscii);
}

void EventSignals::ListClick(std::int16_t& Button,
                             std::int16_t& Shift,
                             float& x,
                             float& y,
                             std::int32_t Row,
                             std::int32_t Col) {
    emit widget_.ListClick(&Button, &Shift, &x, &y, Row, Col);
}

void EventSignals::LineEditStart(bool Adding) {
    emit widget_.LineEditStart(Adding);
}

void EventSignals::InputLineClick(
    std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) {
    emit widget_.InputLineClick(&Button, &Shift, &x, &y, Col);
}

void EventSignals::InputLineDblClick(std::int32_t Col, std::string& Value) {
    offer(widget_, Value, [&](QString* text) { emit widget_.InputLineDblClick(Col, text); });
}

void EventSignals::InputFieldClick(
    std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) {
    emit widget_.InputFieldClick(&Button, &Shift, &x, &y, Col);
}

void EventSignals::InputFieldChange(std::int32_t Col, std::string& Value) {
    offer(widget_, Value, [&](QString* text) { emit widget_.InputFieldChange(Col, text); });
}

void EventSignals::AfterRowDelete(std::int32_t DeletedRow) {
    emit widget_.AfterRowDelete(DeletedRow);
}

void EventSignals::AfterRowUpdated(std::int32_t UpdatedRow) {
    emit widget_.AfterRowUpdated(UpdatedRow);
}

void EventSignals::AddClick(bool& Cancel) {
    emit widget_.AddClick(&Cancel);
}

void EventSignals::InsertClick(bool& Cancel) {
    emit widget_.InsertClick(&Cancel);
}

void EventSignals::DeleteClick(bool& Cancel) {
    emit widget_.DeleteClick(&Cancel);
}

void EventSignals::BeforeFieldUpdate(std::int32_t ColInEdit, std::string& Value, bool& Cancel) {
    offer(widget_, Value, [&](QString* text) {
        emit widget_.BeforeFieldUpdate(ColInEdit, text, &Cancel);
    });
}

void EventSignals::BeforeRowUpdate(std::int32_t RowInEdit,
                                   std::int32_t ColInEdit,
                                   bool& Cancel,
                                   bool& ExternalHandling) {
    emit widget_.BeforeRowUpdate(RowInEdit, ColInEdit, &Cancel, &ExternalHandling);
}

void EventSignals::CopyClick(bool& Cancel) {
    emit widget_.CopyClick(&Cancel);
}

void EventSignals::OKClick(bool& Cancel) {
    emit widget_.OKClick(&Cancel);
}

void EventSignals::RowSelect(std::int32_t& Row) {
    emit widget_.RowSelect(&Row);
}

} // namespace krv::qt
