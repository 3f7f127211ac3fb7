"""The mouse on the input line and on the field editor."""

from typing import List

import krvlist
from editable_list import (
    adding, cancel, close_field, editable, editor, flags, line, offer, open_field, open_row, place,
    tells, text,
)
from form import Form
from scenarios import scenario


def on_line(x: int, y: int, col: int, button: int = 1, shift: int = 0) -> str:
    return f"InputLineClick(Button={button}, Shift={shift}, x={x}, y={y}, Col={col})"


def on_field(x: int, y: int, col: int, button: int = 1, shift: int = 0) -> List[str]:
    """Both events of a press on the editor."""
    args = f"(Button={button}, Shift={shift}, x={x}, y={y}, Col={col})"
    return [f"InputLineClick{args}", f"InputFieldClick{args}"]


def twice(col: int, value: str) -> str:
    return f'InputLineDblClick(Col={col}, Value="{value}")'


@scenario
def a_press_on_the_input_line_opens_the_pressed_field(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.mouse("GridIn", "press", 1000, 300, 1, krvlist.SHIFT)
    form.tells(on_line(1000, 300, 1, 1, krvlist.SHIFT), *text(1, "b1"))
    form.equal((editor(form), form.focused(), flags(form)), ((1, "b1"), ["InpFld"], "Editing"))


@scenario
def a_press_on_the_captions_of_the_input_line_counts_too(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.mouse("GridIn", "press", 2000, 60)
    form.tells(on_line(2000, 60, 2), *text(2, "c1"))


@scenario
def a_press_on_a_column_that_cannot_be_edited_closes_the_field(form: Form) -> None:
    control = editable(form)
    control.ColEditable[1] = False
    open_field(form, 0)
    control.type("x")
    form.happened()
    control.mouse("GridIn", "press", 1000, 300)
    form.equal((editor(form), line(form)), (None, ["x", "b0", "c0"]))
    form.tells(offer(0, "x"), on_line(1000, 300, 1))


@scenario
def a_press_right_of_the_columns_opens_the_current_one(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.mouse("GridIn", "press", 1000, 300)
    form.happened()
    control.mouse("GridIn", "press", 5000, 300)
    form.tells(on_line(5000, 300, 2))
    form.equal(editor(form), (1, "b1"))


@scenario
def a_press_left_of_the_first_column_tells_none(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.mouse("GridIn", "press", -30, 300)
    form.equal(form.happened()[:1], [on_line(-30, 300, -1)])


@scenario
def a_press_out_of_a_refused_field_is_dropped(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    for part, x in (("GridIn", 1000), ("btnAdd", 60), ("Grid", 60)):
        control.click(part, x, 300)
        tells(form, offer(0, "xy"))
        form.equal((editor(form), flags(form)), ((0, "a1"), "Editing InputModified"))
        control.type("xy")
        form.happened()
    control.off("BeforeFieldUpdate")
    control.listen("*")


@scenario
def a_press_on_the_editor_is_told_twice(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    for button, shift in ((1, 0), (2, krvlist.CTRL), (4, krvlist.ALT)):
        control.mouse("InpFld", "press", 60, 105, button, shift)
        control.mouse("InpFld", "release", 60, 105, button, shift)
        form.tells(*on_field(60, 105, 2, button, shift))
    form.equal((editor(form), form.focused()), ((2, "c1"), ["InpFld"]))


@scenario
def the_second_event_tells_what_the_first_left(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    seen = []
    control.on("InputLineClick")(lambda: {"Button": 9, "Shift": 8, "x": 7.5, "y": 6})
    control.on("InputFieldClick")(lambda Button, Shift, x, y, Col: seen.append([Button, Shift, x, y, Col]))
    control.mouse("InpFld", "press", 60, 105)
    form.equal(seen, [[9, 8, 7.5, 6, 2]])


@scenario
def a_double_click_takes_the_value_of_the_host(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    control.on("InputLineDblClick")(lambda: {"Value": "looked up"})
    control.double_click("InpFld", 60, 105)
    form.tells(
        *on_field(60, 105, 0), *on_field(60, 105, 0), *text(0, ""), offer(0, ""), twice(0, "xy"),
        *text(0, "a1", "looked up"),
    )
    form.equal((editor(form), line(form)), ((0, "looked up"), ["a1", "b1", "c1"]))
    form.equal(flags(form), "Editing InputModified")
    control.off("InputLineDblClick")
    control.listen("*")
    close_field(form)
    form.tells(offer(0, "looked up"))
    form.equal(line(form), ["looked up", "b1", "c1"])


@scenario
def a_double_click_leaves_an_unmodified_row_so(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.double_click("InpFld", 60, 105)
    form.tells(
        *on_field(60, 105, 0), *on_field(60, 105, 0), *text(0, ""), offer(0, ""), twice(0, "a1"), *text(0, "a1"),
    )
    form.equal((editor(form), line(form), flags(form)), ((0, "a1"), ["a1", "b1", "c1"], "Editing"))


@scenario
def a_double_click_on_an_empty_field_offers_nothing(form: Form) -> None:
    control = editable(form)
    control.TextMatrix[1, 0] = ""
    open_field(form, 1)
    control.on("InputLineDblClick")(lambda: {"Value": "z"})
    control.double_click("InpFld", 60, 105)
    tells(form, *on_field(60, 105, 0), *on_field(60, 105, 0), twice(0, ""))
    form.equal((editor(form), line(form), flags(form)), ((0, "z"), ["", "b1", "c1"], "Editing"))


@scenario
def what_the_host_wrote_in_the_emptied_commit_is_undone(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.on("BeforeFieldUpdate")(lambda: {"Value": "meddled"})
    control.on("InputLineDblClick")(lambda: {"Value": "z"})
    control.double_click("InpFld", 60, 105)
    form.equal((editor(form), line(form), flags(form)), ((0, "z"), ["a1", "b1", "c1"], "Editing"))


@scenario
def a_double_click_on_the_line_with_an_open_field_takes_it_along(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    control.on("InputLineDblClick")(lambda: {"Value": "z"})
    control.double_click("GridIn", 60, 60)
    told = form.happened()
    form.equal([row for row in told if "DblClick" in row], [twice(0, "xy")])
    form.equal((editor(form), line(form)), ((0, "z"), ["xy", "b1", "c1"]))


@scenario
def a_double_click_on_the_line_without_a_field_drops_the_value(form: Form) -> None:
    control = editable(form)
    control.ColEditable[1] = False
    open_field(form, 1, 0)
    close_field(form)
    control.on("InputLineDblClick")(lambda: {"Value": "z"})
    control.double_click("GridIn", 1000, 300)
    tells(form, on_line(1000, 300, 1), on_line(1000, 300, 1), twice(0, ""))
    form.equal((editor(form), line(form), flags(form)), (None, ["a1", "b1", "c1"], ""))


@scenario
def a_double_click_puts_back_what_the_host_wrote_into_the_cell(form: Form) -> None:
    control = editable(form)
    control.ColEditable[1] = False
    open_field(form, 1, 0)
    close_field(form)

    def write() -> None:
        control.InputArray[0] = "written"
        control.InputArray[2] = "kept"

    control.on("InputLineDblClick")(write)
    control.double_click("GridIn", 1000, 300)
    form.equal((line(form), control.InputModified), (["a1", "b1", "kept"], False))


@scenario
def a_double_click_whose_field_is_refused_keeps_the_cell(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.double_click("InpFld", 60, 105)
    form.equal([row for row in form.happened() if "DblClick" in row], [twice(0, "xy")])
    form.equal((editor(form), line(form), form.focused()), ((0, "xy"), ["a1", "b1", "c1"], ["InpFld"]))


@scenario
def a_host_that_opens_another_field_in_the_double_click_gets_it(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.on("InputLineDblClick")(lambda: control.SetInput(2) and None)
    control.double_click("InpFld", 60, 105)
    form.equal((editor(form), line(form), form.focused()), ((2, "c1"), ["a1", "b1", "c1"], ["InpFld"]))


@scenario
def clicks_on_a_new_row_move_the_editor(form: Form) -> None:
    control = editable(form)
    adding(form)
    place(form, 0)
    control.type("x")
    form.happened()
    control.click("GridIn", 2000, 300)
    form.tells(offer(0, "x"), on_line(2000, 300, 2), *text(2, ""))
    form.equal((editor(form), line(form)), ((2, ""), ["x", "", ""]))
