"""Longer roads: what a person and a host do one after the other."""

import contextlib
import sqlite3

import krvlist
from editable_list import (
    ADD, CONFIRM, COPY, DROP, ESCAPE, F5, F6, F7, F8, INSERT, NEEDED, START, YELLOW, after, answers,
    before, close_field, editable, editor, flags, go, line, lit, numbered, object_of_host, offer,
    open_row, opened, place, rows, shown, tells,
)
from form import Form
from keys import DOWN, ENTER, LEFT, RIGHT, TAB
from scenarios import scenario

FIELDS = (("codice", ""), ("nome", ""), ("nato", "dd/mm/yyyy"), ("saldo", "#,##0.00"))
LOADED = [
    ["C1", "Anna", "31/05/1980", "1.234,50"], ["C2", "Bruno", "", "0,00"], ["C3", "Carla", "01/12/1975", "-7,25"],
]


def database(form: Form) -> str:
    """A new database file with the table clienti: three rows."""
    path = form.file("clienti.mdb")
    with contextlib.closing(sqlite3.connect(path)) as clients:
        clients.execute("CREATE TABLE clienti (codice VARCHAR(5), nome VARCHAR(20), nato DATE, saldo CURRENCY)")
        people = (("C1", "Anna", "1980-05-31", 1234.5), ("C2", "Bruno", None, 0), ("C3", "Carla", "1975-12-01", -7.25))
        clients.executemany("INSERT INTO clienti VALUES (?, ?, ?, ?)", people)
        clients.commit()
    return path


def bound(form: Form, path: str) -> krvlist.List:
    """A list over that table by the file's name, not yet loaded."""
    control = editable(form, 0, 4)
    for col, (field, pattern) in enumerate(FIELDS):
        control.ColDataField[col] = field
        control.ColFormat[col] = pattern
    control.DataBaseName = path
    control.Recordsource = "clienti"
    control.AutoStartInputOnClick = control.AutoAdd = True
    control.EvidenziaColor = YELLOW
    form.happened()
    return control


@scenario
def from_the_file_to_a_new_row_that_the_host_stores(form: Form) -> None:
    path = database(form)
    control = bound(form, path)
    control.ColIsNecessary[1] = True
    connect = f"Provider=SQLite;Data Source={path}"

    def store() -> None:
        values = [control.InputArray[col] for col in range(2)]
        form.server.data_execute(connect, "INSERT INTO clienti (codice, nome) VALUES (?, ?)", values)

    control.on("AfterRowUpdated")(store)
    form.happened()
    control.Refresh()
    form.tells()
    form.equal((rows(form), control.Row, shown(form)), (LOADED, -1, "btnAdd"))
    form.equal(control.Connect, f"Provider= Microsoft.Jet.OLEDB.4.0; Data Source={path};")
    y = control.RowPos[1] + 60
    control.click("Grid", 1000, y)
    tells(form, *opened(1), f"ListClick(Button=1, Shift=0, x=1000, y={y}, Row=1, Col=1)")
    form.equal((line(form), editor(form), flags(form)), (LOADED[1], (0, "C2"), "Editing"))
    control.key(F5)
    tells(form, ADD, START)
    form.equal((line(form), editor(form), lit(form)), ([""] * 4, (0, ""), ["btnAdd"]))
    control.type("C4")
    control.key(ENTER)
    tells(form, offer(0, "C4"), CONFIRM, before(-1, 0), NEEDED)
    form.equal((editor(form), control.Rows), ((1, ""), 3))
    control.type("Dario")
    control.key(ENTER)
    tells(form, offer(1, "Dario"), CONFIRM, before(-1, 1), after(-1), *[ADD, START] * 3)
    form.equal(rows(form), [*LOADED, ["C4", "Dario", "", ""]])
    form.equal((line(form), editor(form), flags(form)), ([""] * 4, (0, ""), "Adding Editing Modified"))
    stored = form.server.data_execute(connect, "SELECT codice, nome, nato FROM clienti WHERE codice = ?", ["C4"])
    form.equal(stored[1], [["C4", "Dario", None]])
    control.Refresh()
    tells(form)
    form.equal((rows(form), flags(form), shown(form)), ([*LOADED, ["C4", "Dario", "", ""]], "Adding", "btnAdd"))


@scenario
def Refresh_in_the_middle_of_an_edit_asks_and_offers_nothing(form: Form) -> None:
    control = bound(form, database(form))
    control.Refresh()
    control.RowClick(1, 1, 0)
    form.server.yield_()
    control.type("typed")
    form.happened()
    control.Refresh()
    form.server.yield_()
    tells(form)
    form.equal((rows(form), flags(form), editor(form), shown(form)), (LOADED, "", None, "btnAdd"))
    control.RowClick(1, 1, 0)
    form.server.yield_()
    tells(form, *opened(1), f"ListClick(Button=1, Shift=0, x=500, y={control.RowPos[1] + 100}, Row=1, Col=0)")
    form.equal((line(form), editor(form)), (LOADED[1], (0, "C2")))


@scenario
def dates_and_amounts_that_are_only_looked_at_stay(form: Form) -> None:
    control = bound(form, database(form))
    control.AutoAdd = False
    control.Refresh()
    form.happened()
    for row in range(3):
        control.RowClick(row, 1, 0)
        form.server.yield_()
        for _ in range(3):
            control.key(RIGHT, krvlist.CTRL)
        control.key(ENTER)
    form.equal((rows(form), control.Modified), (LOADED, False))
    form.equal([told for told in form.happened() if "Before" in told or "OKClick" in told], [])


@scenario
def dates_and_amounts_that_are_typed_are_formatted(form: Form) -> None:
    control = bound(form, database(form))
    control.AutoAdd = False
    control.Refresh()
    control.RowClick(1, 1, 0)
    form.server.yield_()
    place(form, 2)
    control.type("1/2/99")
    control.key(RIGHT)
    control.type("9876,5")
    control.key(ENTER)
    form.equal(rows(form)[1], ["C2", "Bruno", "01/02/1999", "9.876,50"])


@scenario
def insert_in_the_middle_copy_change_and_confirm(form: Form) -> None:
    control = numbered(form, "1", "2", "3")
    go(form, 1)
    control.key(F6, part="Grid")
    control.type("between")
    control.key(ENTER)
    form.equal(rows(form), [["1", "b0"], ["2", "between"], ["3", "b1"], ["4", "b2"]])
    tells(form, *opened(1), "changed Row", INSERT, offer(1, "between"), CONFIRM, before(1, 1), after(1))
    control.RowClick(1, 1, 0)
    form.happened()
    control.key(F8, part="Grid")
    control.key(35)
    control.type(" again")
    control.key(ENTER)
    tells(form, COPY, offer(1, "between again"), CONFIRM, before(-1, 1), after(-1))
    form.equal(rows(form)[3:], [["4", "b2"], ["5", "between again"]])
    answers(form, "yes")
    control.RowClick(0, 1, 0)
    control.key(F7, part="Grid")
    form.equal([row[0] for row in rows(form)], ["1", "2", "3", "4"])
    form.equal((shown(form), flags(form)), ("btnAdd btnInsert btnCopy btnDelete", "Modified"))


@scenario
def no_and_then_yes_to_dropping_an_edit(form: Form) -> None:
    control = editable(form)
    control.AutoStartInputOnClick = True
    y = control.RowPos[2] + 60
    control.click("Grid", 60, control.RowPos[0] + 60)
    control.type("mine")
    form.happened()
    answers(form, "no", "yes")
    control.click("Grid", 60, y)
    click = f"ListClick(Button=1, Shift=0, x=60, y={y}, Row={{}}, Col=0)"
    tells(form, offer(0, "mine"), DROP, click.format(0))
    form.equal((line(form), editor(form), flags(form)), (["mine", "b0", "c0"], (0, "mine"), "Editing InputModified"))
    control.click("Grid", 60, y)
    tells(form, DROP, *opened(2), click.format(2))
    form.equal((line(form), editor(form), flags(form)), (["a2", "b2", "c2"], (0, "a2"), "Editing"))
    form.equal(rows(form)[0], ["a0", "b0", "c0"])


@scenario
def a_host_that_cancels_each_event_once(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    refused = set()
    events = ("AddClick", "InsertClick", "CopyClick", "DeleteClick", "BeforeFieldUpdate", "OKClick", "BeforeRowUpdate")

    def once(event: str) -> None:
        def veto() -> dict:
            is_first = event not in refused
            refused.add(event)
            return {"Cancel": is_first}

        control.on(event)(veto)

    for event in events:
        once(event)
    answers(form, "yes", "yes", "yes")
    go(form, 1)
    states = []
    for key in (F7, F8, F6, F5):
        control.key(key, part="Grid")
        states.append([line(form)[0], flags(form), control.Rows])
    form.equal(states, [["a1", "", 3]] * 4)
    control.key(F5, part="Grid")
    form.happened()
    control.type("one")
    control.key(ENTER)
    tells(form, offer(0, "one"))
    form.equal((line(form)[0], editor(form), control.Rows), ("", (0, ""), 3))
    control.type("two")
    form.happened()
    control.key(ENTER)
    tells(form, offer(0, "two"), CONFIRM)
    form.equal((line(form)[0], editor(form), control.Rows), ("two", None, 3))
    place(form, 0)
    control.key(ENTER)
    tells(form, CONFIRM, before(-1, 0))
    form.equal((editor(form), control.Rows), ((0, "two"), 3))
    control.key(ENTER)
    tells(form, CONFIRM, before(-1, 0), after(-1))
    form.equal((rows(form)[3:], refused == set(events)), ([["two", "", ""]], True))


@scenario
def a_host_that_rewrites_what_it_is_asked(form: Form) -> None:
    control = editable(form)
    control.on("InputFieldChange")(lambda Value: {"Value": Value.replace(" ", "_")})
    control.on("BeforeFieldUpdate")(lambda Value: {"Value": f"<{Value}>"})
    control.on("RowSelect")(lambda: {"Row": 99})
    control.on("KeyDown")(lambda: {"KeyCode": 0, "Shift": 0})
    go(form, 1)
    form.equal(control.Row, 1)
    place(form, 0)
    control.type("a b")
    control.key(LEFT, krvlist.CTRL)
    form.equal(line(form), ["<ba_>", "b1", "c1"])  # a rewritten text has its caret in front
    control.OK()
    form.equal((rows(form)[1], control.Row), (["<ba_>", "b1", "c1"], 1))


@scenario
def a_host_that_stores_every_row_itself(form: Form) -> None:
    control = editable(form)
    saved = []

    def store(RowInEdit: int) -> dict:
        values = [control.InputArray[col] for col in range(3)]
        saved.append([RowInEdit, *values])
        if RowInEdit >= 0 and not control.Inserting:
            for col, value in enumerate(values):
                control.TextMatrix[RowInEdit, col] = value.upper()
        return {"ExternalHandling": True}

    control.on("BeforeRowUpdate")(store)
    go(form, 1)
    place(form, 1)
    control.type("changed")
    control.key(ENTER)
    control.key(F5, part="Grid")
    control.type("added")
    control.key(ENTER)
    go(form, 0)
    control.key(F6, part="Grid")
    control.type("inserted")
    control.key(ENTER)
    form.equal(saved, [[1, "a1", "changed", "c1"], [-1, "added", "", ""], [0, "inserted", "", ""]])
    form.equal((rows(form), flags(form)), ([["a0", "b0", "c0"], ["A1", "CHANGED", "C1"], ["a2", "b2", "c2"]], ""))


@scenario
def GiveFocusTo_set_taken_and_unset(form: Form) -> None:
    control = editable(form)
    open_row(form, 0)
    walk = []
    for name, focusable in (("o1", True), ("o2", False), (None, False)):
        if name:
            object_of_host(form, name, focusable)
        else:
            control.GiveFocusTo = None
        place(form, 0)
        control.type(f"by {name}")
        control.key(RIGHT)
        walk.append([editor(form), form.focused(), line(form)[0]])
        control.focus("outside")
    want = [[None, [], "by o1"], [(1, "b0"), ["InpFld"], "by o2"], [(1, "b0"), ["InpFld"], "by None"]]
    form.equal(walk, want)


@scenario
def MoveWithTab_through_a_whole_row_both_ways(form: Form) -> None:
    control = editable(form)
    control.Add()
    form.server.yield_()
    for col, shift in ((0, 0), (1, 0), (2, krvlist.SHIFT), (1, krvlist.SHIFT), (0, krvlist.SHIFT)):
        close_field(form)
        control.MoveWithTab = True
        place(form, col)
        control.type(f"{col}{shift}")
        control.key(TAB, shift)
        form.equal(editor(form)[0], max(col + (-1 if shift else 1), 0))
    form.equal((line(form), control.MoveWithTab), (["01", "11", "21"], False))
    control.key(ENTER)
    form.equal(rows(form)[3:], [["01", "11", "21"]])


@scenario
def Escape_and_back_to_the_list_by_keys(form: Form) -> None:
    control = editable(form)
    control.AutoStartInputOnClick = True
    form.happened()
    control.key(DOWN, part="Grid")
    form.equal((editor(form), form.focused()), ((0, "a0"), ["InpFld"]))
    control.type("typed")
    control.key(ESCAPE)
    form.equal((editor(form), line(form)), ((0, "a0"), ["a0", "b0", "c0"]))
    answers(form, "yes")
    form.happened()
    control.key(DOWN, part="Grid")
    tells(form, DROP, *opened(1))
    form.equal((editor(form), control.Row), ((0, "a1"), 1))


@scenario
def two_lists_are_edited_side_by_side(form: Form) -> None:
    control = editable(form)
    other = form.new("L2")
    other.AutoAdd = False
    other.Cols = 1
    other.ColEditable[0] = True
    go(form, 1)
    place(form, 0)
    control.type("here")
    other.Add()
    form.server.yield_()
    form.equal((control.InputArray[0], control.Editing, other.Editing), ("here", False, True))
    other.type("there")
    other.key(ENTER)
    form.equal((other.cells("Grid", 1), control.TextMatrix[1, 0]), ([["there"]], "a1"))
    control.OK()
    form.equal((control.TextMatrix[1, 0], other.Rows), ("here", 1))
