#include "control/automation/native.h"

#include <array>
#include <cstddef>
#include <tuple>

namespace krv::automation {

namespace {

/// The converted arguments of an event, taken over all at once: an argument that does not convert
/// leaves the others as they were.
template <class... Arguments, std::size_t... I>
void take_over(const Event& event,
               std::array<platform::Value, sizeof...(Arguments)>& values,
               const platform::Formatter& formatter,
               std::tuple<Arguments&...> arguments,
               std::index_sequence<I...>) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (event.parameters[i].by_ref) {
            values[i] = convert(values[i], event.parameters[i].type, formatter);
        }
    }
    (...,
     (event.parameters[I].by_ref
          ? static_cast<void>(std::get<I>(arguments) = native_of<Arguments>(values[I]))
          : static_cast<void>(0)));
}

} // namespace

template <class... Arguments>
void EventForwarder::forward(std::int16_t id, Arguments&... arguments) {
    const Event& event = events()[static_cast<std::size_t>(id) - 1];
    const platform::Formatter& formatter = formatter_; // the sink may destroy this forwarder
    std::array<platform::Value, sizeof...(Arguments)> values{value_of(arguments)...};
    sink_.raise(event, values);
    take_over<Arguments...>(
        event, values, formatter, std::tie(arguments...), std::index_sequence_for<Arguments...>());
}

void EventForwarder::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift, std::int32_t Col) {
    forward(1, KeyCode, Shift, Col);
}

void EventForwarder::KeyPress(std::int16_t& KeyAscii) {
    forward(2, KeyAscii);
}

void EventForwarder::ListClick(std::int16_t& Button,
                               std::int16_t& Shift,
                               float& x,
                               float& y,
                               std::int32_t Row,
                               std::int32_t Col) {
    forward(3, Button, Shift, x, y, Row, Col);
}

void EventForwarder::LineEditStart(bool Adding) {
    forward(4, Adding);
}

void EventForwarder::InputLineClick(
    std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) {
    forward(5, Button, Shift, x, y, Col);
}

void EventForwarder::InputLineDblClick(std::int32_t Col, std::string& Value) {
    forward(6, Col, Value);
}

void EventForwarder::InputFieldClick(
    std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) {
    forward(7, Button, Shift, x, y, Col);
}

void EventForwarder::InputFieldChange(std::int32_t Col, std::string& Value) {
    forward(8, Col, Value);
}

void EventForwarder::AfterRowDelete(std::int32_t DeletedRow) {
    forward(9, DeletedRow);
}

void EventForwarder::AfterRowUpdated(std::int32_t UpdatedRow) {
    forward(10, UpdatedRow);
}

void EventForwarder::AddClick(bool& Cancel) {
    forward(11, Cancel);
}

void EventForwarder::InsertClick(bool& Cancel) {
    forward(12, Cancel);
}

void EventForwarder::DeleteClick(bool& Cancel) {
    forward(13, Cancel);
}

void EventForwarder::BeforeFieldUpdate(std::int32_t ColInEdit, std::string& Value, bool& Cancel) {
    forward(14, ColInEdit, Value, Cancel);
}

void EventForwarder::BeforeRowUpdate(std::int32_t RowInEdit,
                                     std::int32_t ColInEdit,
                                     bool& Cancel,
                                     bool& ExternalHandling) {
    forward(15, RowInEdit, ColInEdit, Cancel, ExternalHandling);
}

void EventForwarder::CopyClick(bool& Cancel) {
    forward(16, Cancel);
}

void EventForwarder::OKClick(bool& Cancel) {
    forward(17, Cancel);
}

void EventForwarder::RowSelect(std::int32_t& Row) {
    forward(18, Row);
}

} // namespace krv::automation
