"""Leaving a field: what is offered to the host, and what comes into the input line."""

import krvlist
from editable_list import (
    ADD, START, answers, close_field, editable, editor, fill, flags, line, offer, open_field, open_row,
    place, shown, tells, text,
)
from form import Form
from scenarios import scenario

PATTERNS = ("", "dd/mm/yyyy", "d mmm yyyy", "#,##0.00", "0%", "hh:nn", ">", "@@@@@")
CELLS = ("text", "05/03/2001", "5 mar 2001", "1.234,50", "50%", "13:05", "TEXT", "   ab")


def patterned(form: Form) -> krvlist.List:
    """A list with a column for each of the patterns, one row."""
    control = editable(form, 0, len(PATTERNS))
    for col, pattern in enumerate(PATTERNS):
        control.ColFormat[col] = pattern
        control.ColWidth[col] = 600
    fill(control, [list(CELLS)])
    form.happened()
    return control


@scenario
def a_field_that_is_only_entered_is_not_offered(form: Form) -> None:
    patterned(form)
    open_row(form, 0)
    for col in range(len(PATTERNS)):
        place(form, col)
    close_field(form)
    tells(form)
    form.equal((line(form), flags(form)), (list(CELLS), ""))


@scenario
def the_same_value_typed_again_is_not_offered(form: Form) -> None:
    control = patterned(form)
    open_row(form, 0)
    for col, value in enumerate(("text", "05/03/2001", "05/03/2001", "1234,50", "0,5")):
        place(form, col)
        control.type(value)
    close_field(form)
    form.equal(line(form), list(CELLS))
    form.equal([told for told in form.happened() if "Before" in told], [])


@scenario
def typed_values_are_stored_by_the_pattern(form: Form) -> None:
    control = patterned(form)
    open_row(form, 0)
    typed = ("new", "1/2/2003", "1/2/2003", "7,255", "0,25", "9:5", "new", "xyz")
    for col, value in enumerate(typed):
        place(form, col)
        control.type(value)
    close_field(form)
    told = [told for told in form.happened() if "Before" in told]
    form.equal(told, [offer(col, value) for col, value in enumerate(typed)])
    stored = ["new", "01/02/2003", "1 feb 2003", "7,26", "25%", "09:05", "NEW", "  xyz"]
    form.equal((line(form), flags(form)), (stored, "InputModified"))


@scenario
def a_text_that_a_pattern_cannot_take_stays(form: Form) -> None:
    control = patterned(form)
    open_row(form, 0)
    for col in range(1, 6):
        place(form, col)
        control.type("abc")
    close_field(form)
    form.equal(line(form)[1:6], ["abc"] * 5)


@scenario
def a_stored_field_shows_the_confirm_button_even_an_unwanted_one(form: Form) -> None:
    control = editable(form)
    control.OkVisible = False
    open_field(form, 0)
    control.type("new")
    form.happened()
    form.server.yield_()
    control.focus("outside")
    form.tells(offer(0, "new"))
    form.equal((line(form), flags(form), editor(form)), (["new", "b0", "c0"], "InputModified", None))


@scenario
def the_host_may_rewrite_a_field(form: Form) -> None:
    control = patterned(form)
    open_row(form, 0)
    for col, value in ((0, "host"), (3, "1000"), (1, "2/1/1999")):
        place(form, col)
        control.type("9")
        form.happened()
        control.on("BeforeFieldUpdate")(lambda: {"Value": value})
        close_field(form)
        form.tells(offer(col, "9"), *text(col, value))
        control.off("BeforeFieldUpdate")
        control.listen("*")
    form.equal(line(form)[:4], ["host", "02/01/1999", CELLS[2], "1.000,00"])


@scenario
def the_host_may_empty_a_field(form: Form) -> None:
    control = patterned(form)
    control.on("BeforeFieldUpdate")(lambda: {"Value": ""})
    open_row(form, 0)
    for col in range(5):
        place(form, col)
        control.type("9")
    close_field(form)
    form.equal(line(form), [""] * 5 + list(CELLS[5:]))


@scenario
def a_stored_value_is_told_as_a_change_and_may_be_changed_there(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("new")
    form.happened()
    control.on("BeforeFieldUpdate")(lambda: {"Value": "host"})
    control.on("InputFieldChange")(lambda Value: {"Value": Value.upper()})
    close_field(form)
    form.tells(offer(0, "new"), *text(0, "host", "HOST"))
    form.equal(line(form), ["HOST", "b0", "c0"])


@scenario
def a_field_is_offered_once_however_it_is_left(form: Form) -> None:
    ways = (
        lambda control: control.focus("outside"),
        lambda control: control.focus("Grid"),
        lambda control: control.SetInput(1),
        lambda control: control.click("GridIn", 2000, 300),
        lambda control: control.key(39, krvlist.CTRL),
        lambda control: control.OK(),
        lambda control: control.SendKeys(13, 0),
    )
    for way in ways:
        control = editable(form)
        open_field(form, 0)
        control.type("x")
        form.happened()
        way(control)
        form.server.yield_()
        form.equal([told for told in form.happened() if "BeforeField" in told], [offer(0, "x")])
        control.Svuota(True)
        control.focus("outside")


@scenario
def Add_without_an_open_field_offers_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    close_field(form)
    control.InputArray[0] = "other"  # the hidden editor still holds the old text
    form.happened()
    answers(form, "yes")
    control.Add()
    form.server.yield_()
    form.equal([told for told in form.happened() if "BeforeField" in told], [])
    form.equal((line(form), control.TextMatrix[0, 0]), (["", "", ""], "a0"))


@scenario
def a_host_that_opens_another_field_keeps_it(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("new")
    form.happened()

    def other() -> dict:
        control.off("BeforeFieldUpdate")
        control.listen("*")
        control.SetInput(2)
        form.server.yield_()
        control.type("more")
        return {"Value": "host"}

    control.on("BeforeFieldUpdate")(other)
    control.focus("outside")
    form.equal(line(form)[0], "host")
    form.equal((editor(form), line(form)[1:]), ((2, "more"), ["b0", "c0"]))


@scenario
def a_refusal_after_another_field_was_opened_leaves_that_one(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("new")
    form.happened()

    def other() -> dict:
        control.off("BeforeFieldUpdate")
        control.listen("*")
        control.SetInput(2)
        form.server.yield_()
        return {"Cancel": True}

    control.on("BeforeFieldUpdate")(other)
    control.focus("outside")
    form.equal((editor(form), line(form)), ((2, "c0"), ["a0", "b0", "c0"]))


@scenario
def a_column_that_goes_in_the_offer_is_not_stored(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 2)
    control.type("new")
    form.happened()
    control.on("BeforeFieldUpdate")(lambda: control.put("Cols", 2))
    control.focus("outside")
    form.equal((line(form), control.Cols, control.Editing), (["a0", "b0"], 2, False))


@scenario
def an_error_in_the_offer_keeps_what_was_typed(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("new")

    def fail() -> None:
        raise krvlist.HostError(1234, "no")

    control.on("BeforeFieldUpdate")(fail)
    form.fails(1234, lambda: control.focus("outside"))
    control.off("BeforeFieldUpdate")
    control.listen("*")
    form.server.yield_()
    form.equal((editor(form), line(form), form.focused()), ((0, "new"), ["a0", "b0", "c0"], ["InpFld"]))
    form.happened()
    close_field(form)
    form.tells(offer(0, "new"))
    form.equal(line(form), ["new", "b0", "c0"])


@scenario
def the_start_of_a_new_row_after_a_stored_field_is_told_in_order(form: Form) -> None:
    control = editable(form, 0)
    control.Add()
    form.server.yield_()
    form.tells(ADD, START)
    form.equal((shown(form), editor(form)), ("GridIn InpFld btnAdd", (0, "")))
    control.type("x")
    form.happened()
    answers(form, "no")
    control.Add()
    form.server.yield_()
    tells(form, ADD, offer(0, "x"), START)
