"""Hosts that do what they should not while a message box of the control stands."""

from typing import Callable, Dict

import krvlist
from form import Form
from keys import ENTER
from meddling_hosts import ACTS, doomed, field, settle, works
from scenarios import scenario


def pending(control: krvlist.List) -> None:
    field(control)
    control.type("xy")


def necessary(control: krvlist.List) -> None:
    control.ColIsNecessary[1] = True
    field(control)
    control.type("xy")
    control.InputArray[1] = "  "
    control.key(ENTER)


def without_columns(control: krvlist.List) -> None:
    for col in range(3):
        control.ColEditable[col] = False
    control.Add()


def inserting(control: krvlist.List) -> None:
    control.Row = -1
    control.InsertVisible = True
    control.Insert()


BOXES: Dict[str, Callable[[krvlist.List], None]] = {
    "dropping_by_the_host": lambda control: (pending(control), control.put("Row", 2)),
    "dropping_by_a_click": lambda control: (pending(control), control.click("Grid", 60, 300)),
    "dropping_by_Add": lambda control: (pending(control), control.key(116)),
    "dropping_by_Copy": lambda control: (pending(control), control.key(119)),
    "dropping_by_RowClick": lambda control: (pending(control), control.RowClick(0, 1, 0)),
    "deleting": lambda control: (pending(control), control.key(118)),
    "a_necessary_value": necessary,
    "no_column": without_columns,
    "no_row_to_insert_before": inserting,
}


def meddle(form: Form, box: str, act: str, reply: str) -> None:
    """Brings the box about; the host does the act under the first one and answers."""
    control = doomed(form, f"{act} {reply}", [])
    is_first = [True]

    @form.server.on_message
    def under(text: str, buttons: str, title: str) -> str:
        if is_first:
            is_first.clear()
            ACTS[act](form, control)
        return reply

    steps = (lambda: BOXES[box](control), form.server.yield_, lambda: control.key(ENTER))
    for step in steps:
        try:
            step()
        except (krvlist.ControlError, krvlist.ProtocolError, krvlist.HostError) as error:
            form.trace.append(f"    {error}")
    form.equal(is_first, [])
    settle(form, control)


def hosts_that_meddle_under(box: str) -> Callable[[Form], None]:
    """A scenario: every act under this box, with both answers."""

    def play(form: Form) -> None:
        for reply in ("yes", "no"):
            for act in ACTS:
                form.trace.append(f"--- {act} under {box}, {reply}")
                meddle(form, box, act, reply)
        works(form)

    play.__name__ = play.__qualname__ = f"hosts_that_meddle_under_{box}"
    play.__module__ = __name__
    return scenario(play)


for _box in BOXES:
    globals()[f"hosts_that_meddle_under_{_box}"] = hosts_that_meddle_under(_box)
