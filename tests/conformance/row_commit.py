"""Confirming the row in the input line into the list."""

from editable_list import (
    ADD, CONFIRM, NEEDED, START, YELLOW, adding, after, before, cancel, close_field, editable, editor,
    flags, go, line, lit, numbered, object_of_host, offer, open_field, open_row, opened, pending, place,
    rows, shown, tells, text,
)
from form import Form
from keys import ENTER
from scenarios import scenario

ROW_COMMANDS = "btnAdd btnInsert btnCopy btnDelete"


@scenario
def a_changed_row_overwrites_its_row_of_the_list(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    pending(form, 1)
    control.EvidenziaFunzione(2)
    form.equal(control.OK(), False)
    form.tells(CONFIRM, before(1, 0), after(1))
    form.equal(rows(form), [["a0", "b0", "c0"], ["a1", "b1", "new"], ["a2", "b2", "c2"]])
    form.equal((shown(form), flags(form), lit(form), control.Row), (ROW_COMMANDS, "Modified", [], 1))


@scenario
def an_untouched_row_is_not_confirmed(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.OK()
    form.tells()
    form.equal((shown(form), flags(form)), (f"GridIn {ROW_COMMANDS}", ""))
    control.Add()
    form.server.yield_()
    form.happened()
    control.key(ENTER)
    form.tells()
    form.equal((line(form), control.Rows, flags(form)), ([""] * 3, 3, "Adding"))


@scenario
def the_open_field_is_stored_first(form: Form) -> None:
    ways = (
        lambda control: control.OK(),
        lambda control: control.click("btnOK"),
        lambda control: control.key(ENTER),
    )
    for way in ways:
        control = editable(form)
        open_field(form, 1, 2)
        control.type("xy")
        form.happened()
        way(control)
        form.server.yield_()
        form.tells(offer(2, "xy"), CONFIRM, before(1, 2), after(1))
        form.equal((rows(form)[1], control.Editing), (["a1", "b1", "xy"], False))
        control.Svuota(True)


@scenario
def a_cancelled_confirm_leaves_the_row_open(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    cancel(form, "OKClick")
    control.OK()
    form.tells(CONFIRM)
    form.equal((line(form), flags(form), rows(form)[1]), (["a1", "b1", "new"], "InputModified", ["a1", "b1", "c1"]))


@scenario
def a_refused_row_goes_back_to_its_field(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeRowUpdate")
    control.key(ENTER)
    tells(form, offer(2, "xy"), CONFIRM, before(1, 2))
    form.equal((editor(form), form.focused(), flags(form)), ((2, "xy"), ["InpFld"], "Editing InputModified"))
    form.equal(rows(form)[1], ["a1", "b1", "c1"])


@scenario
def a_refused_row_goes_to_the_hosts_object(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1")
    open_field(form, 1, 2)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeRowUpdate")
    control.OK()
    form.server.yield_()
    tells(form, offer(2, "xy"), CONFIRM, before(1, 2))
    form.equal((editor(form), form.focused(), line(form)), (None, [], ["a1", "b1", "xy"]))
    object_of_host(form, "o2", focusable=False)
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(1, 2))
    form.equal((editor(form), form.focused()), ((2, "xy"), ["InpFld"]))


@scenario
def a_refused_row_without_usable_columns_is_no_error(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    for col in range(3):
        control.ColEditable[col] = False
    form.happened()
    cancel(form, "BeforeRowUpdate")
    control.OK()
    form.server.yield_()
    form.tells(CONFIRM, before(1, 0))
    form.equal((editor(form), line(form), flags(form)), (None, ["a1", "b1", "new"], "InputModified"))


@scenario
def a_host_that_stores_the_row_itself_closes_it(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.on("BeforeRowUpdate")(lambda: {"ExternalHandling": True})
    control.ColIsNecessary[0] = True
    control.InputArray[0] = ""
    form.happened()
    control.OK()
    form.tells(CONFIRM, before(1, 0), after(1), *text(0, ""))
    form.equal((rows(form)[1], flags(form), shown(form)), (["a1", "b1", "c1"], "", ROW_COMMANDS))


@scenario
def a_refusal_comes_before_external_handling(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.on("BeforeRowUpdate")(lambda: {"ExternalHandling": True, "Cancel": True})
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(1, 0))
    form.equal((editor(form), flags(form)), ((0, "a1"), "Editing InputModified"))


@scenario
def external_handling_of_a_new_row_appends_nothing(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.on("BeforeRowUpdate")(lambda: {"ExternalHandling": True})
    control.OK()
    form.tells(CONFIRM, before(-1, 0), after(-1), *text(0, "one"))
    form.equal((control.Rows, flags(form), shown(form)), (3, "", "btnAdd"))


@scenario
def the_first_necessary_column_without_a_value_is_asked_for(form: Form) -> None:
    control = editable(form)
    control.ColIsNecessary[1] = control.ColIsNecessary[2] = True
    adding(form, "one", "   ")
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(-1, 0), NEEDED)
    form.equal((editor(form), form.focused(), control.Rows), ((1, "   "), ["InpFld"], 3))
    control.type("two")
    form.happened()
    control.OK()
    form.server.yield_()
    tells(form, offer(1, "two"), CONFIRM, before(-1, 1), NEEDED)
    form.equal(editor(form), (2, ""))
    control.type("three")
    control.key(ENTER)
    form.equal((rows(form)[3:], flags(form)), ([["one", "two", "three"]], "Modified"))


@scenario
def a_necessary_column_that_cannot_be_edited_gets_no_editor(form: Form) -> None:
    control = editable(form)
    control.ColIsNecessary[1] = True
    control.ColEditable[1] = False
    adding(form, "one")
    control.OK()
    form.server.yield_()
    form.tells(CONFIRM, before(-1, 0), NEEDED)
    form.equal((editor(form), control.Rows, flags(form)), (None, 3, "Adding InputModified"))
    control.InputArray[1] = "by the host"
    control.OK()
    form.equal(rows(form)[3:], [["one", "by the host", ""]])


@scenario
def other_white_space_is_a_value(form: Form) -> None:
    control = editable(form)
    control.ColIsNecessary[0] = True
    for value in ("\n", "\u00a0", "0"):
        adding(form, value)
        control.OK()
    form.equal([row[0] for row in rows(form)[3:]], ["\n", "\u00a0", "0"])


@scenario
def a_necessary_value_may_come_from_the_host_in_time(form: Form) -> None:
    control = editable(form)
    control.ColIsNecessary[2] = True
    adding(form, "one")
    control.on("BeforeRowUpdate")(lambda: control.put("InputArray", 2, "given"))
    control.OK()
    form.equal(rows(form)[3:], [["one", "", "given"]])


@scenario
def a_confirmed_row_shows_the_buttons_that_are_wanted(form: Form) -> None:
    control = editable(form)
    for add_visible, insert_visible, want in (
        (True, True, "btnAdd btnInsert"), (True, False, "btnAdd"), (False, True, "btnInsert"), (False, False, ""),
    ):
        go(form, -1)
        pending(form, 1)
        control.InsertVisible, control.AddVisible = insert_visible, add_visible
        control.on("AfterRowUpdated")(lambda: (control.put("AddVisible", add_visible), None)[1])
        control.OK()
        seen = [part for part in shown(form).split() if part in ("btnAdd", "btnInsert")]
        form.equal(" ".join(seen), want)


@scenario
def an_appended_row_does_not_show_the_insert_button(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.OK()
    form.equal(shown(form), "btnAdd")
    pending(form, 0)
    control.OK()
    form.equal(shown(form), ROW_COMMANDS)


@scenario
def a_confirm_without_a_row_of_the_list_overwrites_nothing(form: Form) -> None:
    control = editable(form)
    control.OkVisible = True
    control.InputArray[0] = "x"
    form.happened()
    control.OK()
    form.tells(CONFIRM, before(-1, 0), after(-1), *text(0, "x"))
    form.equal((control.cells("Grid")[0], flags(form), control.Rows), (["A", "B", "C"], "Modified", 3))
    pending(form, 2)
    control.Rows = 2
    form.happened()
    form.server.on_message(lambda text, buttons, title: "no")
    control.OK()
    form.equal((rows(form), flags(form)), ([["a0", "b0", "c0"], ["a1", "b1", "c1"]], "Modified"))


@scenario
def every_confirmed_row_is_followed_by_two_automatic_ones(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.AutoAdd = True
    form.happened()
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(-1, 0), after(-1), *[ADD, START] * 2)
    form.equal((line(form), editor(form), flags(form)), ([""] * 3, (0, ""), "Adding Editing Modified"))
    control.AutoAdd = False
    open_row(form, 1)
    control.InputArray[0] = "x"
    control.AutoAdd = True
    form.happened()
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(1, 0), after(1), *[ADD, START] * 2)
    form.equal([row[0] for row in rows(form)], ["a0", "x", "a2", "one"])


@scenario
def a_row_that_lacks_a_value_is_not_emptied_by_Enter(form: Form) -> None:
    control = editable(form)
    control.ColIsNecessary[2] = True
    adding(form, "one")
    place(form, 1)
    control.type("two")
    control.AutoAdd = True
    form.happened()
    control.key(ENTER)
    tells(form, offer(1, "two"), CONFIRM, before(-1, 1), NEEDED)
    form.equal((line(form), editor(form), flags(form)), (["one", "two", ""], (2, ""), "Adding Editing InputModified"))


@scenario
def a_row_that_the_host_refuses_is_not_emptied_by_Enter(form: Form) -> None:
    control = editable(form)
    for event in ("BeforeFieldUpdate", "OKClick", "BeforeRowUpdate"):
        adding(form, "one")
        place(form, 1)
        control.type("two")
        control.AutoAdd = True
        form.happened()
        cancel(form, event)
        control.key(ENTER)
        form.equal([told for told in form.happened() if told in (ADD, START)], [])
        form.equal((line(form)[0], control.Rows, control.Adding), ("one", 3, True))
        control.off(event)
        control.listen("*")
        control.AutoAdd = False
        close_field(form)


@scenario
def a_tab_in_a_value_shifts_no_column(form: Form) -> None:
    control = editable(form)
    adding(form, "x\ty", "two\t", "\t")
    control.OK()
    open_row(form, 1)
    control.Insert()
    for col, value in enumerate(("i\tj", "k", "l")):
        control.InputArray[col] = value
    control.OK()
    pending(form, 0, 1, "b\tb")
    control.OK()
    texts = [["a0", "b\tb", "c0"], ["i j", "k", "l"], ["a1", "b1", "c1"], ["a2", "b2", "c2"], ["x y", "two ", " "]]
    form.equal(rows(form), texts)


@scenario
def AfterRowUpdated_sees_the_stored_row(form: Form) -> None:
    control = editable(form)
    seen = []
    control.on("AfterRowUpdated")(lambda: seen.append([rows(form)[-1], flags(form), shown(form)]))
    adding(form, "one", "two", "three")
    control.OK()
    form.equal(seen, [[["one", "two", "three"], "Adding Modified", "GridIn btnAdd"]])


@scenario
def a_row_opened_after_the_confirm_is_confirmed_anew(form: Form) -> None:
    control = numbered(form, "1", "2")
    adding(form)
    control.InputArray[1] = "x"
    control.OK()
    form.happened()
    go(form, 2)
    form.tells(*opened(2), "changed Row")
    control.InputArray[1] = "y"
    control.OK()
    form.equal(rows(form), [["1", "b0"], ["2", "b1"], ["3", "y"]])
