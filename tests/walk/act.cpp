#include "walk/act.h"

#include <array>

namespace krv::walk {

namespace {

using Kind = Act::Kind;
using Names = std::vector<std::string>;

Act key(int code, int shift) {
    return {Kind::key, {}, {}, code, shift};
}

Act random_key(Dice& dice) {
    struct Key {
        int code;
        int shift;
    };

    static const std::vector<Key> keys = {
        {9, 0},   {9, 1},   {9, 2},   {13, 0},  {13, 0},  {13, 0}, {27, 0}, {27, 0}, {37, 0},
        {37, 2},  {38, 0},  {38, 0},  {39, 0},  {39, 2},  {40, 0}, {40, 0}, {40, 0}, {116, 0},
        {116, 0}, {117, 0}, {118, 0}, {119, 0}, {120, 0}, {8, 0},  {46, 0}, {36, 0}, {35, 0},
        {33, 0},  {34, 0},  {65, 0},  {65, 1},  {49, 0},  {32, 0}, {86, 2}, {9, 0},  {40, 1},
    };
    const Key& chosen = dice.pick(keys);
    return key(chosen.code, chosen.shift);
}

Act random_text(Dice& dice) {
    static const Names texts = {
        "a", "xy", "1,5", "12", "  ", "05/03/2001", "Città", "31/12/99", "z", "-3", "d\te", "q\n"};
    return {Kind::text, {}, dice.pick(texts), 0, 0};
}

Act random_mouse(Dice& dice) {
    static const Names parts = {"Grid",
                                "Grid",
                                "Grid",
                                "GridIn",
                                "GridIn",
                                "InpFld",
                                "btnAdd",
                                "btnInsert",
                                "btnCopy",
                                "btnDelete",
                                "btnOK",
                                "btnOK"};
    static const std::vector<Kind> kinds = {
        Kind::click, Kind::click, Kind::click, Kind::click, Kind::double_click, Kind::drag};
    Act act{dice.pick(kinds), dice.pick(parts), {}, 0, 0};
    act.a = dice.below(60) * 60 - 30;
    act.b = dice.below(16) * 120 + 15;
    if (act.name != "Grid") {
        act.b = act.name == "GridIn" ? dice.below(4) * 120 + 15 : 100;
    }
    return act;
}

Act random_call(Dice& dice, Manners manners, int rows, int cols) {
    static const Names calls = {"Add",
                                "Insert",
                                "Copy",
                                "Delete",
                                "OK",
                                "SetInput",
                                "SetInput",
                                "RowClick",
                                "RowClick",
                                "Refresh",
                                "SendKeys",
                                "Svuota",
                                "Add",
                                "OK"};
    static const Names wild_calls = {"Clear", "CloseAll", "EvidenziaFunzione", "SetFont"};
    Act act{Kind::call,
            manners == Manners::wild && dice.chance(20) ? dice.pick(wild_calls) : dice.pick(calls),
            {},
            0,
            0};
    if (act.name == "Svuota" && !dice.chance(10)) {
        act.name = "Add"; // else the list hardly ever grows
    }
    if (act.name == "SetInput") {
        act.a = dice.below(cols + 2) - 1;
    } else if (act.name == "RowClick") {
        act.a = rows > 0 ? dice.below(rows) : 0;
    } else if (act.name == "SendKeys") {
        act.a = random_key(dice).a;
    } else if (act.name == "EvidenziaFunzione") {
        act.a = dice.below(6);
    } else if (act.name == "SetFont") {
        act.a = 6 + dice.below(10);
    }
    return act;
}

Act random_put(Dice& dice, Manners manners, int rows, int cols) {
    static const Names texts = {"nuovo", "", "7", "01/02/2003", "a\tb", "due righe\nqui"};
    const int col = 1 + dice.below(cols - 1);
    switch (dice.below(manners == Manners::wild ? 14 : 6)) {
    case 0:
    case 1:
        return {Kind::put, "Row", {}, dice.below(rows + 1) - 1, 0};
    case 2:
        return {Kind::put, "InputArray", dice.pick(texts), col, 0};
    case 3:
        return {Kind::put, "AutoAdd", {}, dice.below(2), 0};
    case 4:
        return {Kind::put, "AutoStartInputOnClick", {}, dice.below(2), 0};
    case 5:
        return {Kind::put, "MoveWithTab", {}, dice.below(2), 0};
    case 6:
        return {Kind::put, "Enabled", {}, dice.chance(80) ? 1 : 0, 0};
    case 7:
        return {Kind::put, "Rows", {}, dice.below(8), 0};
    case 8:
        return {Kind::put, "ColEditable", {}, col, dice.below(2)};
    case 9:
        return {Kind::put, "ColWidth", {}, col, dice.chance(30) ? 0 : 960};
    case 10:
        return {Kind::put, "ColFormat", dice.chance(50) ? "dd/mm/yyyy" : "0.00", col, 0};
    case 11:
        return {Kind::put, "GiveFocusTo", {}, dice.below(3), 0};
    case 12:
        return {Kind::put, "TextMatrix", dice.pick(texts), rows > 0 ? dice.below(rows) : 0, col};
    default:
        return {Kind::put, "Cols", {}, 2 + dice.below(5), 0};
    }
}

} // namespace

Act next_act(Dice& dice, Manners manners, int rows, int cols) {
    static const Names parts = {
        "Grid", "GridIn", "InpFld", "btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"};
    const int roll = dice.below(100);
    if (roll < 34) {
        return random_key(dice);
    }
    if (roll < 50) {
        return random_text(dice);
    }
    if (roll < 68) {
        return random_mouse(dice);
    }
    if (roll < 84) {
        return random_call(dice, manners, rows, cols);
    }
    if (roll < 94) {
        return random_put(dice, manners, rows, cols);
    }
    if (roll < 96) {
        return {Kind::focus_outside, {}, {}, 0, 0};
    }
    if (roll < 99) {
        return {Kind::focus, dice.pick(parts), {}, 0, 0};
    }
    return {Kind::resize, {}, {}, 5000 + dice.below(12) * 500, 1800 + dice.below(8) * 300};
}

std::string Act::describe() const {
    static constexpr std::array<const char*, 10> kinds = {"key",
                                                          "text",
                                                          "click",
                                                          "double click",
                                                          "drag",
                                                          "focus",
                                                          "focus outside",
                                                          "call",
                                                          "put",
                                                          "resize"};
    return std::string(kinds[static_cast<std::size_t>(kind)]) + " " + name + " \"" + text + "\" " +
           std::to_string(a) + " " + std::to_string(b);
}

} // namespace krv::walk
