"""Fields that the host refuses: where the focus goes, and what stops."""

from editable_list import (
    ADD, CONFIRM, DROP, F5, adding, after, answers, before, cancel, caret, close_field, editable, editor,
    flags, go, line, object_of_host, offer, open_field, opened, place, tells, text,
)
from form import TAB_STOPS, Form
from keys import DOWN, ENTER, TAB
from scenarios import scenario

@scenario
def a_refused_field_is_edited_again_with_its_old_text(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("x")
    control.OkVisible = False
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.focus("outside")
    form.tells(offer(0, "x"), *text(0, "a0"))
    form.equal(caret(form), ["a0", 0, 2])
    form.equal((form.focused(), flags(form), line(form)), (["InpFld"], "Editing", ["a0", "b0", "c0"]))


@scenario
def a_refused_field_goes_to_the_hosts_object(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1")
    open_field(form, 0)
    control.type("x")
    control.OkVisible = False
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.focus("btnAdd")
    form.tells(offer(0, "x"))
    form.equal((form.focused(), editor(form), flags(form), line(form)), ([], None, "", ["a0", "b0", "c0"]))


@scenario
def a_refused_field_stays_when_the_hosts_object_takes_no_focus(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1", focusable=False)
    open_field(form, 0)
    control.type("x")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.focus("outside")
    form.tells(offer(0, "x"), *text(0, "a0"))
    form.equal((form.focused(), editor(form)), (["InpFld"], (0, "a0")))


@scenario
def a_refused_field_keeps_the_tab_stops_away(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    control.type("x")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    form.equal(control.SetInput(1), False)
    form.server.yield_()
    form.equal((editor(form), form.focused(), control.MoveWithTab), ((0, "a0"), ["InpFld"], True))
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [False] * 8)
    control.off("BeforeFieldUpdate")
    control.listen("*")
    close_field(form)
    form.equal((control.MoveWithTab, form.of_parts(TAB_STOPS, "TabStop")), (False, [True] * 8))


@scenario
def a_refusal_counts_for_nothing_while_an_edit_is_dropped(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    answers(form, "yes")
    go(form, 2)
    tells(form, DROP, offer(0, "xy"), *opened(2), "changed Row")
    form.equal((line(form), editor(form)), (["a2", "b2", "c2"], None))


@scenario
def Add_stops_at_a_refused_field(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    form.equal(control.Add(), False)
    form.server.yield_()
    tells(form, ADD, offer(0, "xy"))
    form.equal((editor(form), flags(form), control.Row), ((0, "a0"), "Editing InputModified", 0))


@scenario
def a_field_refused_in_a_new_row_keeps_the_row(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    place(form, 1)
    control.type("x")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    for command in (control.OK, control.Add):
        command()
        form.server.yield_()
        form.equal((line(form), editor(form), control.Rows), (["one", "", ""], (1, ""), 3))
        control.type("x")
    form.equal(flags(form), "Adding Editing InputModified")


@scenario
def a_key_meant_for_another_part_is_dropped(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    cancel(form, "BeforeFieldUpdate")
    for part, code in (("Grid", F5), ("Grid", DOWN), ("GridIn", 65), ("btnAdd", ENTER), ("btnDelete", 32)):
        control.type("xy")
        form.happened()
        control.key(code, part=part)
        tells(form, offer(0, "xy"))
        form.equal((editor(form), form.focused(), control.Row), ((0, "a1"), ["InpFld"], 1))


@scenario
def the_control_that_takes_the_focus_back_keeps_the_tab_stops_away(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    control.type("x")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.focus("outside")
    form.tells(offer(0, "x"), *text(0, "a0"))
    form.server.yield_()
    form.equal((editor(form), form.focused(), control.MoveWithTab), ((0, "a0"), ["InpFld"], True))
    control.key(TAB)
    form.tells(*text(1, "b0"))
    form.equal((editor(form), control.MoveWithTab), ((1, "b0"), False))


@scenario
def a_field_refused_once_may_be_left_at_the_second_time(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("bad")
    form.happened()
    control.on("BeforeFieldUpdate")(lambda Value: {"Cancel": Value == "bad"})
    control.click("Grid", 60, 300)
    form.equal(editor(form), (0, "a1"))
    control.type("good")
    answers(form, "yes")
    control.click("Grid", 60, 300)
    form.equal((control.Row, line(form), editor(form)), (0, ["a0", "b0", "c0"], None))
    told = [told for told in form.happened() if "InputFieldChange" not in told]
    click = "ListClick(Button=1, Shift=0, x=60, y=300, Row=0, Col=0)"
    form.equal(told, [offer(0, "bad"), offer(0, "good"), DROP, *opened(0), click])


@scenario
def a_refused_field_stops_the_confirm_for_good(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.key(ENTER)
    tells(form, offer(0, "xy"))
    form.equal((editor(form), flags(form)), ((0, "a1"), "Editing InputModified"))
    control.key(ENTER)  # the field is unchanged now, the row still counts as modified
    tells(form, CONFIRM, before(1, 0), after(1))
    form.equal(control.TextMatrix[1, 0], "a1")
