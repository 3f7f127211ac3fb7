"""Keys and buttons while a row is open: which part a key is for, and which buttons can be clicked."""

import krvlist
from editable_list import (
    ADD, CONFIRM, COPY, DELETE, DROP, F5, INSERT, START, answers, cancel, editable, editor, flags, line,
    offer, open_field, open_row, opened, pending, shown, tells,
)
from form import Form
from keys import ENTER
from scenarios import scenario


@scenario
def keys_on_the_input_line_go_to_the_control(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    for code in (65, 32, 27):
        control.key(code, krvlist.SHIFT, part="GridIn")
        form.tells(f"KeyDown(KeyCode={code}, Shift=1, Col=-1)")
    control.key(38, part="GridIn")
    tells(form, *opened(0))
    control.key(40, part="GridIn")
    tells(form, *opened(1))
    control.key(F5, part="GridIn")
    tells(form, ADD, START)
    form.equal((line(form), editor(form), form.focused()), ([""] * 3, (0, ""), ["InpFld"]))


@scenario
def arrows_on_the_input_line_do_not_move_in_it(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.mouse("GridIn", "press", 1000, 300)
    form.server.yield_()
    for code in (37, 39):
        control.key(code, part="GridIn")
        form.equal(control.part("GridIn")["Col"], 1)
    told = [row for row in form.happened() if "KeyDown" in row]
    form.equal(told, [f"KeyDown(KeyCode={code}, Shift=0, Col=-1)" for code in (37, 39)])


@scenario
def Enter_and_blank_on_a_button_click_it_alone(form: Form) -> None:
    control = editable(form)
    for event in ("AddClick", "InsertClick", "CopyClick", "DeleteClick", "OKClick"):
        cancel(form, event)
    pending(form, 1)
    buttons = (("btnAdd", ADD), ("btnInsert", INSERT), ("btnCopy", COPY), ("btnDelete", DELETE), ("btnOK", CONFIRM))
    for part, told in buttons:
        for code in (ENTER, 32):
            control.key(code, part=part)
            form.tells(told)
    form.equal((line(form), flags(form)), (["a1", "b1", "new"], "InputModified"))


@scenario
def other_keys_on_a_button_go_to_the_control(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    for part in ("btnAdd", "btnInsert", "btnCopy", "btnDelete"):
        control.key(65, part=part)
        form.tells("KeyDown(KeyCode=65, Shift=0, Col=-1)")
    control.key(40, part="btnCopy")
    form.tells(*opened(2))


@scenario
def a_clicked_button_takes_the_open_field_first(form: Form) -> None:
    control = editable(form)
    for part, told in (("btnCopy", COPY), ("btnDelete", DELETE), ("btnInsert", INSERT), ("btnOK", CONFIRM)):
        open_row(form, -1)
        open_field(form, 1)
        control.type("xy")
        form.happened()
        cancel(form, told.split("(")[0])
        control.click(part)
        tells(form, offer(0, "xy"), told)
        form.equal((line(form), editor(form), form.focused()), (["xy", "b1", "c1"], None, [part]))
        answers(form, "yes")
        control.Row = -1
        form.server.yield_()


@scenario
def a_button_that_goes_under_the_pointer_passes_the_focus_on(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.click("btnOK")
    form.equal((shown(form), form.focused(), flags(form)), ("btnAdd btnInsert btnCopy btnDelete", [], "Modified"))


@scenario
def disabled_buttons_take_no_click_in_an_open_row(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.Enabled = False
    form.happened()
    for part in ("btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"):
        control.click(part)
    form.tells()
    form.equal((line(form), flags(form)), (["a1", "b1", "new"], "InputModified"))


@scenario
def Copy_stops_when_the_kept_row_is_gone_from_the_list(form: Form) -> None:
    control = editable(form)
    pending(form, 2)
    answers(form, "no", "no")
    control.Rows = 2
    form.server.yield_()
    form.tells("changed Rows", DROP)
    control.Copy()
    form.server.yield_()
    form.tells(COPY, DROP)
    form.equal((line(form), flags(form)), (["a2", "b2", "new"], "InputModified"))


@scenario
def the_editor_stays_where_it_is_when_its_column_is_gone(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    control.Cols = 2
    form.server.yield_()
    before_resize = form.rectangle("InpFld")
    control.resize(7000, 4000)
    form.equal((form.rectangle("InpFld"), editor(form)), (before_resize, None))


@scenario
def the_highlight_moves_with_its_button(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = 0
    open_row(form, 1)
    control.Copy()
    form.server.yield_()
    seen = []
    for width in (6000, 8000):
        control.resize(width, 3000)
        marks = control.part("Line1")
        button = control.part("btnCopy")
        seen.append([marks["X1"] == button["Left"], marks["X2"] == button["Left"] + button["Width"]])
    form.equal(seen, [[True, True]] * 2)
