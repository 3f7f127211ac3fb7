"""Hosts that go on with the next row, or reload, inside an event: no text goes into the wrong row."""

from typing import Any, Callable

from editable_list import (
    ADD, CONFIRM, DROP, START, after, answers, before, editable, editor, flags, line, offer, open_field,
    opened, pending, rows, shown, tells,
)
from form import Form
from keys import ENTER
from scenarios import scenario


def once(form: Form, event: str, act: Callable[[], Any]) -> None:
    """The host does this the first time that the event is raised, and changes nothing of it."""
    is_first = [True]

    def do() -> None:
        if is_first:
            is_first.clear()
            act()

    form.list.on(event)(do)


@scenario
def a_row_added_after_a_confirmed_one_stays_open(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    once(form, "AfterRowUpdated", control.Add)
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(1, 0), after(1), ADD, START)
    form.equal((line(form), editor(form), flags(form)), ([""] * 3, (0, ""), "Adding Editing Modified"))
    control.type("next")
    control.key(ENTER)
    tells(form, offer(0, "next"), CONFIRM, before(-1, 0), after(-1))
    form.equal(rows(form), [["a0", "b0", "c0"], ["a1", "b1", "new"], ["a2", "b2", "c2"], ["next", "", ""]])


@scenario
def a_row_opened_after_a_confirmed_one_stays_open(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    once(form, "AfterRowUpdated", lambda: control.RowClick(0, 1, 0))
    control.OK()
    form.server.yield_()
    tells(
        form, CONFIRM, before(1, 0), after(1), *opened(0),
        f"ListClick(Button=1, Shift=0, x=500, y={control.RowPos[0] + 100}, Row=0, Col=0)",
    )
    form.equal((line(form), flags(form), shown(form).split()[0]), (["a0", "b0", "c0"], "Modified", "GridIn"))
    control.InputArray[0] = "x"
    control.OK()
    form.equal([row[0] for row in rows(form)], ["x", "a1", "a2"])


@scenario
def a_list_reloaded_after_each_row_is_browsed_again(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    once(form, "AfterRowUpdated", control.Refresh)
    control.OK()
    form.server.yield_()
    tells(form, CONFIRM, before(1, 0), after(1))
    form.equal((editor(form), control.Row, rows(form)[1]), (None, -1, ["a1", "b1", "new"]))


@scenario
def a_list_reloaded_while_a_field_is_offered_takes_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    once(form, "BeforeFieldUpdate", control.Refresh)
    control.focus("Grid")
    tells(form, offer(0, "xy"))
    form.equal((editor(form), flags(form), shown(form), control.Row), (None, "", "btnAdd", -1))
    control.OK()
    form.tells()
    form.equal([row[0] for row in rows(form)], ["a0", "a1", "a2"])


@scenario
def a_confirm_while_a_field_is_offered_waits_for_it(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    once(form, "BeforeFieldUpdate", control.OK)
    control.focus("Grid")
    tells(form, offer(0, "xy"))
    form.equal((line(form), flags(form), editor(form)), (["xy", "b1", "c1"], "InputModified", None))
    control.OK()
    form.equal(rows(form)[1], ["xy", "b1", "c1"])


@scenario
def a_row_left_while_its_field_is_offered_takes_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    answers(form, "yes")
    once(form, "BeforeFieldUpdate", lambda: control.put("Row", -1))
    control.focus("Grid")
    tells(form, offer(0, "xy"), DROP, "changed Row")
    form.equal((editor(form), flags(form), shown(form), control.Row), (None, "", "btnAdd", -1))
    form.equal([row[0] for row in rows(form)], ["a0", "a1", "a2"])


@scenario
def a_row_moved_to_while_its_field_is_offered_is_opened_clean(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    answers(form, "yes")
    once(form, "BeforeFieldUpdate", lambda: control.put("Row", 2))
    control.focus("Grid")
    tells(form, offer(0, "xy"), DROP, *opened(2), "changed Row")
    form.equal((line(form), flags(form)), (["a2", "b2", "c2"], ""))
