#pragma once

#include "krv/qt/karvo_list_widget.h"

#include <cstdint>
#include <string>

namespace krv::qt {

/// Hands the events of a list on as signals of its widget. A slot may destroy the widget, and this
/// with it: nothing of either is touched after a signal.
class EventSignals final : public KarvoListEvents {
public:
    explicit EventSignals(KarvoListWidget& widget)
        : widget_(widget) {}

    void KeyDown(std::int16_t& KeyCode, std::int16_t& Shift, std::int32_t Col) override;
    void KeyPress(std::int16_t& KeyAscii) override;
    void ListClick(std::int16_t& Button,
                   std::int16_t& Shift,
                   float& x,
                   float& y,
                   std::int32_t Row,
                   std::int32_t Col) override;
    void LineEditStart(bool Adding) override;
    void InputLineClick(
        std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) override;
    void InputLineDblClick(std::int32_t Col, std::string& Value) override;
    void InputFieldClick(
        std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) override;
    void InputFieldChange(std::int32_t Col, std::string& Value) override;
    void AfterRowDelete(std::int32_t DeletedRow) override;
    void AfterRowUpdated(std::int32_t UpdatedRow) override;
    void AddClick(bool& Cancel) override;
    void InsertClick(bool& Cancel) override;
    void DeleteClick(bool& Cancel) override;
    void BeforeFieldUpdate(std::int32_t ColInEdit, std::string& Value, bool& Cancel) override;
    void BeforeRowUpdate(std::int32_t RowInEdit,
                         std::int32_t ColInEdit,
                         bool& Cancel,
                         bool& ExternalHandling) override;
    void CopyClick(bool& Cancel) override;
    void OKClick(bool& Cancel) override;
    void RowSelect(std::int32_t& Row) override;

private:
    KarvoListWidget& widget_;
};

} // namespace krv::qt
