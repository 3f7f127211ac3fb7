"""Hosts that do what they should not inside the events: whatever comes of it, it is the same on every
backend, the server goes on, and a new control works."""

from typing import Callable, Dict, List

import krvlist
from form import GRIDS, PARTS, Form
from keys import ENTER
from scenarios import scenario

Act = Callable[[Form, krvlist.List], None]


def fail() -> None:
    raise krvlist.HostError(1234, "not now")


ACTS: Dict[str, Act] = {
    "Refresh": lambda form, control: control.Refresh(),
    "Clear": lambda form, control: control.Clear(),
    "Svuota": lambda form, control: control.Svuota(),
    "Svuota_for_good": lambda form, control: control.Svuota(True),
    "Add": lambda form, control: control.Add(),
    "Insert": lambda form, control: control.Insert(),
    "Copy": lambda form, control: control.Copy(),
    "Delete": lambda form, control: control.Delete(),
    "OK": lambda form, control: control.OK(),
    "CloseAll": lambda form, control: control.CloseAll(),
    "SetInput": lambda form, control: control.SetInput(2),
    "RowClick": lambda form, control: control.RowClick(0, 1, 0),
    "another_row": lambda form, control: control.put("Row", 2),
    "no_row": lambda form, control: control.put("Row", -1),
    "no_rows": lambda form, control: control.put("Rows", 0),
    "one_column": lambda form, control: control.put("Cols", 1),
    "input": lambda form, control: control.put("InputArray", 1, "host"),
    "disabled": lambda form, control: control.put("Enabled", False),
    "a_turn": lambda form, control: form.server.yield_(),
    "the_focus": lambda form, control: control.focus("outside"),
    "typing": lambda form, control: control.type("m"),
    "a_resize": lambda form, control: control.resize(7000, 4000),
    "delete": lambda form, control: control.delete(),
    "an_error": lambda form, control: fail(),
}


def field(control: krvlist.List, col: int = 0) -> None:
    control.SetInput(col)
    control.server.yield_()


def changed_field(control: krvlist.List) -> None:
    field(control)
    control.type("xy")


WAYS: Dict[str, Callable[[krvlist.List], None]] = {
    "KeyDown": lambda control: control.SendKeys(65, 1),
    "ListClick": lambda control: control.click("Grid", 60, 400),
    "LineEditStart": lambda control: control.Add(),
    "InputLineClick": lambda control: control.click("GridIn", 1000, 300),
    "InputLineDblClick": lambda control: (changed_field(control), control.double_click("InpFld", 60, 60)),
    "InputFieldClick": lambda control: (field(control), control.click("InpFld", 60, 60)),
    "InputFieldChange": changed_field,
    "AfterRowDelete": lambda control: control.Delete(),
    "AfterRowUpdated": lambda control: (changed_field(control), control.key(ENTER)),
    "AddClick": lambda control: (changed_field(control), control.key(116)),
    "InsertClick": lambda control: (changed_field(control), control.key(117)),
    "DeleteClick": lambda control: (changed_field(control), control.key(118)),
    "BeforeFieldUpdate": lambda control: (changed_field(control), control.key(39)),
    "BeforeRowUpdate": lambda control: (changed_field(control), control.key(ENTER)),
    "CopyClick": lambda control: (changed_field(control), control.key(119)),
    "OKClick": lambda control: (changed_field(control), control.click("btnOK")),
    "RowSelect": lambda control: control.RowClick(2, 1, 0),
}
AUTOMATIC = ("AutoAdd", "AutoStartInputOnClick", "MoveWithTab")


def doomed(form: Form, id: str, settings: List[str]) -> krvlist.List:
    """A control with three rows, the second of them open."""
    control = form.new(id)
    control.AutoAdd = control.AutoStartInputOnClick = False
    control.Cols = control.Rows = 3
    for col in range(3):
        control.ColEditable[col] = True
        for row in range(3):
            control.TextMatrix[row, col] = f"{'abc'[col]}{row}"
    control.LineNumberColumn = 2
    control.Row = 1
    control.server.yield_()
    for name in settings:
        control.put(name, True)
    return control


def meddle(form: Form, event: str, act: Act, id: str, settings: List[str]) -> None:
    """Brings the event about, and has the host do the act in it the first time."""
    control = doomed(form, id, settings)
    is_first = [True]

    def meddler() -> None:
        if is_first:
            is_first.clear()
            act(form, control)

    control.on(event)(meddler)
    steps: List[Callable[[], None]] = [lambda: WAYS[event](control), form.server.yield_]
    steps += [lambda: control.key(ENTER), lambda: control.focus("outside")]
    for step in steps:
        try:
            step()
        except (krvlist.ControlError, krvlist.ProtocolError) as error:
            form.trace.append(f"    {error}")
    form.equal(is_first, [])  # it was brought about
    settle(form, control)


def settle(form: Form, control: krvlist.List) -> None:
    """What can be seen of what is left comes into the trace; then it goes."""
    if control.id in form.server.controls:
        for part in PARTS:
            control.part(part)
        for grid in GRIDS:
            control.cells(grid)
        for name in ("Adding", "Inserting", "Editing", "Modified", "MoveWithTab", "Row", "Cols"):
            control.get(name)
        control.focus("outside")
        control.delete()
    form.refused(-32602, lambda: control.Cols)


def works(form: Form) -> None:
    """A new control of this server does what it is for."""
    control = doomed(form, "fresh", [])
    form.happened()
    control.SetInput(1)
    form.server.yield_()
    control.type("new")
    control.key(ENTER)
    form.equal((control.TextMatrix[1, 1], control.Modified, control.Editing), ("new", True, False))
    form.equal([told.split("(")[0] for told in form.happened() if "Change" not in told], [
        f"fresh: {name}" for name in ("BeforeFieldUpdate", "OKClick", "BeforeRowUpdate", "AfterRowUpdated")
    ])
    control.delete()


def hosts_that_meddle_in(event: str) -> Callable[[Form], None]:
    """A scenario: every act in this event, with and without the automatic settings, an edit that is
    pending once dropped and once kept."""

    def play(form: Form) -> None:
        for answer, settings in (("yes", []), ("no", list(AUTOMATIC))):
            form.server.on_message(lambda text, buttons, title: "yes" if "eliminazione" in text else answer)
            for name, act in ACTS.items():
                form.trace.append(f"--- {name} in {event}, {answer}, {settings}")
                meddle(form, event, act, f"{name} {answer}", settings)
            works(form)

    play.__name__ = play.__qualname__ = f"hosts_that_meddle_in_{event}"
    play.__module__ = __name__
    return scenario(play)


for _event in WAYS:
    globals()[f"hosts_that_meddle_in_{_event}"] = hosts_that_meddle_in(_event)


@scenario
def every_event_is_meddled_in(form: Form) -> None:
    form.equal(sorted([*WAYS, "KeyPress"]), sorted(form.server.events))  # KeyPress is never raised


@scenario
def a_host_that_calls_a_command_in_its_own_event_ends_with_an_error(form: Form) -> None:
    for command in ("Add", "Insert", "Copy", "Delete", "OK"):
        control = doomed(form, command, [])
        control.InputArray[0] = "changed"
        control.on(f"{command}Click")(lambda: control.call(command) and None)
        form.fails(28, lambda: control.call(command))
        settle(form, control)
        works(form)


@scenario
def a_host_that_clicks_in_every_click_ends_with_an_error(form: Form) -> None:
    control = doomed(form, "clicked", [])
    control.on("ListClick")(lambda: control.RowClick(0, 1, 0))
    form.fails(28, lambda: control.RowClick(0, 1, 0))
    settle(form, control)
    works(form)


@scenario
def a_control_that_goes_takes_no_other_with_it(form: Form) -> None:
    other = doomed(form, "other", [])
    changed_field(other)
    for event in ("BeforeFieldUpdate", "AddClick", "RowSelect", "LineEditStart"):
        control = doomed(form, event, [])
        other.SetInput(0)
        form.server.yield_()
        control.on(event)(control.delete)
        try:
            WAYS[event](control)
        except krvlist.ProtocolError as error:
            form.equal(error.code, -32602)
        form.refused(-32602, lambda: control.Cols)
    form.equal((other.InputArray[0], other.cells("Grid", 2, 2)), ("xy", [["a1", "b1", "c1"]]))
    works(form)
