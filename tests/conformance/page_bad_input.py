"""The property page when the host does what it should not while the page waits, and at bad input."""

from typing import Any, Callable, Dict, List

import krvlist
from form import Form
from page_form import (
    BUILD, ERASE, MARK, NO_DATABASE, array, control_of, database, focused, messages, page_of, page_on,
    page_scenario, raising, replies, tabs, text, texts,
)

FIELDS = {"codice": "INTEGER", "nome": "VARCHAR(50)"}


def doomed(form: Form, cols: int = 5) -> krvlist.Page:
    """A page on a further control, whose captions are "vecchia"."""
    control = control_of(form, cols, "L2")
    for col in range(cols):
        control.Caption[col] = "vecchia"
    return page_on(form, control)


def in_question(form: Form, act: Callable[[], Any], reply: str = "yes") -> List[Any]:
    """The act is done once, in the next box, which is answered so; what came of it."""
    outcome: List[Any] = []

    def once() -> str:
        if not outcome:
            outcome.append(None)
            outcome[0] = raising(act)
        return reply

    replies(form, *[once] * 3)
    return outcome


def old_control(form: Form) -> krvlist.List:
    return form.server.controls["L2"]


# What a host does in a question; "L1" is a control of 3 columns that is not selected.
ACTS: Dict[str, Callable[[Form, krvlist.Page], Any]] = {
    "opens a page": lambda form, page: form.server.open_page("L1"),
    "opens a page on nothing": lambda form, page: form.server.open_page(),
    "selects another control": lambda form, page: page.select("L1"),
    "selects the same control": lambda form, page: page.select("L2"),
    "selects nothing": lambda form, page: page.select(),
    "deletes the control": lambda form, page: old_control(form).delete(),
    "applies": lambda form, page: page.apply(),
    "types a count": lambda form, page: page.text("txtCols", "4"),
    "types too much": lambda form, page: page.text("txtCols", "40000"),
    "clicks a tab": lambda form, page: page.click("TabStrip1", 1),
    "leaves the count": lambda form, page: page.fill("txtCols", "2"),
    "takes columns away": lambda form, page: old_control(form).put("Cols", 1),
    "types a caption": lambda form, page: page.text("txtCaption", "nuova"),
    "yields": lambda form, page: form.server.yield_(),
}

# What brings a question about.
WAYS: Dict[str, Callable[[krvlist.Page], Any]] = {
    "leaving the count": lambda page: page.fill("txtCols", "2"),
    "clicking a tab": lambda page: (page.text("txtCols", "2"), page.click("TabStrip1", 5)),
    "applying": lambda page: (page.text("txtCols", "2"), page.apply()),
    "selecting fewer columns": lambda page: page.select("L1"),
    "leaving the database name": lambda page: (
        page.text("txConnection", "Provider=x"), page.fill("txtDataBaseName", "a.mdb")),
}


def meddle(form: Form, way: str, act: str, reply: str) -> None:
    control_of(form)
    page = doomed(form)
    outcome = in_question(form, lambda: ACTS[act](form, page), reply)
    error = raising(lambda: WAYS[way](page))
    form.trace.append(f"--- {act} while {way}, {reply}: {outcome}, then {error}")
    held = page.state().arrays
    form.equal([len(values) for values in held.values()], [len(tabs(page)[0])] * 9)
    replies(form)
    raising(lambda: page.fill("txtCols", "3"))
    form.equal(len(tabs(page)[0]), 3)
    control = form.server.controls.get("L2")
    if control is not None:
        form.look(control)
        control.delete()


def hosts_that_meddle_while(way: str) -> Callable[[Form], None]:
    """A scenario: every act in the question, with both answers. Tabs and arrays stay alike, and the
    page works afterwards."""

    def play(form: Form) -> None:
        for reply in ("yes", "no"):
            for act in ACTS:
                meddle(form, way, act, reply)

    play.__name__ = "a_host_may_meddle_while_" + way.replace(" ", "_")
    return play


for _way in WAYS:
    _scenario = page_scenario(hosts_that_meddle_while(_way))
    globals()[_scenario.__name__] = _scenario


DATA_TEXTS = ("txtDataBaseName", "txRecordSource", "txConnection", "txtLineNumberColumn")


def select_within(form: Form, leave: Callable[[krvlist.Page], Any], reply: str) -> krvlist.Page:
    """Another control is selected while the page waits; its texts are its own afterwards."""
    other = control_of(form)
    for name in ("DataBaseName", "Recordsource", "Connect"):
        other.put(name, "sua " + name)
    page = doomed(form)
    in_question(form, lambda: page.select("L1"), reply)

    def choose(title: str, filter: str, folder: str) -> str:
        page.select("L1")
        return "c:\\altra.mdb"

    form.server.on_open_file(choose)
    leave(page)
    form.server.on_open_file(None)
    form.equal([text(page, name) for name in DATA_TEXTS], ["sua DataBaseName", "sua Recordsource", "sua Connect", "-1"])
    return page


@page_scenario
def a_selection_inside_the_provider_question_keeps_its_own_texts(form: Form) -> None:
    for reply in ("yes", "no"):
        select_within(form, WAYS["leaving the database name"], reply)
        form.server.controls["L2"].delete()


@page_scenario
def a_selection_inside_the_file_dialog_keeps_its_own_texts(form: Form) -> None:
    select_within(form, lambda page: page.double_click("txtDataBaseName"), "yes")


@page_scenario
def a_selection_inside_the_range_message_gets_no_focus_of_the_other(form: Form) -> None:
    page = select_within(form, lambda page: page.fill("txtLineNumberColumn", "40"), "ok")
    form.equal(focused(page), [])


@page_scenario
def a_page_opened_in_a_question_takes_the_place_of_the_other(form: Form) -> None:
    control_of(form)
    page = doomed(form)
    in_question(form, lambda: form.server.open_page("L1"))
    page.fill("txtCols", "2")
    form.equal((messages(form), tabs(page)), ([ERASE], (["col0", "col1", "col2"], 1)))
    form.equal(array(page, "colCaptions"), ["Codice", "Nome", "Nato il"])
    form.equal((text(page, "txtCols"), page.state().changed), ("3", False))


@page_scenario
def a_page_opened_in_the_question_of_applying_ends_it(form: Form) -> None:
    control_of(form)
    page = doomed(form)
    page.text("txtCaption", "mai applicata")
    page.text("txtCols", "2")
    form.happened()
    in_question(form, lambda: form.server.open_page("L1"))
    page.apply()
    form.equal([line for line in form.happened() if "changed" in line], [])
    form.equal((old_control(form).Cols, old_control(form).Caption[0]), (5, "vecchia"))


@page_scenario
def another_selection_in_the_question_of_loading_counts(form: Form) -> None:
    control_of(form)
    third = control_of(form, 2, "L3")
    third.Connect = "Provider=terzo;"
    page = doomed(form)
    in_question(form, lambda: page.select("L3"))
    page.select("L1")
    form.equal(array(page, "colCaptions"), ["Codice", "Nome"])
    form.equal(texts(page, "txtCols", "txConnection"), ["2", "Provider=terzo;"])
    page.text("txtCaption", "nuova")
    page.apply()
    form.equal((third.Caption[0], form.list.Caption[0]), ("nuova", "Codice"))


@page_scenario
def a_control_deleted_in_the_question_of_applying_is_error_91(form: Form) -> None:
    page = doomed(form)
    page.text("txtCols", "2")
    form.happened()
    in_question(form, lambda: old_control(form).delete())
    form.fails(91, page.apply)
    form.tells(f"message {ERASE} [yesno] Rolda")
    form.equal((len(tabs(page)[0]), page.state().changed), (2, True))
    form.fails(91, page.apply)
    form.tells()


@page_scenario
def a_control_deleted_in_the_question_of_loading_is_error_91(form: Form) -> None:
    page = doomed(form)
    control_of(form, 2, "L3")
    in_question(form, lambda: form.server.controls["L3"].delete())
    form.fails(91, lambda: page.select("L3"))
    form.equal((len(tabs(page)[0]), text(page, "txtCols")), (2, "2"))


@page_scenario
def a_control_deleted_in_the_turn_of_applying_is_error_91(form: Form) -> None:
    control = form.new("L2")
    control.AutoAdd = control.AutoStartInputOnClick = control.OkVisible = False
    control.Cols, control.Rows = 2, 5
    control.Row = 4
    form.server.yield_()
    page = page_on(form, control)
    control.Rows = 2  # a row change waits for a turn

    @control.on("RowSelect")
    def delete() -> None:
        control.delete()

    form.happened()
    form.fails(91, page.apply)
    told = [line for line in form.happened() if "changed " in line]
    form.equal(told[-1], "L2: changed Cols")


@page_scenario
def a_page_on_a_control_that_is_gone_writes_and_reads_nothing(form: Form) -> None:
    page = doomed(form)
    page.text("txtCaption", "x")
    old_control(form).delete()
    form.happened()
    form.fails(91, page.apply)
    form.refused(-32602, lambda: page.select("L2"))
    form.tells()
    form.equal((page.state().changed, text(page, "txtCaption")), (True, "x"))
    page.fill("txtCols", "6")
    form.equal(len(tabs(page)[0]), 6)


@page_scenario
def another_control_of_the_same_id_is_not_written(form: Form) -> None:
    page = doomed(form)
    old_control(form).delete()
    again = form.new("L2")
    form.fails(91, page.apply)
    form.equal(again.Cols, 1)
    form.tells()
    replies(form)
    page.select("L2")
    form.equal(text(page, "txtCols"), "1")


@page_scenario
def an_error_of_an_event_in_the_turn_of_applying_comes_out(form: Form) -> None:
    control = form.list
    control.AutoAdd = control.AutoStartInputOnClick = control.OkVisible = False
    control.Cols, control.Rows = 2, 5
    control.Row = 4
    form.server.yield_()
    page = page_on(form, control)
    page.text("txtRows", "6")
    control.Rows = 2

    @control.on("RowSelect")
    def fail() -> None:
        raise krvlist.HostError(1234, "not now")

    form.happened()
    form.fails(1234, page.apply)
    form.equal([line for line in form.happened() if line.startswith("changed")][-1], "changed Cols")
    form.equal((control.Rows, page.state().changed), (2, True))
    control.off("RowSelect")
    control.listen("*")
    page.apply()
    form.equal(control.Rows, 6)


@page_scenario
def questions_may_stand_upon_each_other(form: Form) -> None:
    page = doomed(form)
    replies(form, lambda: page.fill("txtCols", "3") or "no", "yes")
    page.fill("txtCols", "2")
    form.equal(messages(form), [ERASE, ERASE])
    form.equal((len(tabs(page)[0]), text(page, "txtCols")), (3, "3"))


@page_scenario
def another_source_in_the_question_of_building_counts(form: Form) -> None:
    page = doomed(form, 1)
    first, second = database(form, FIELDS), database(form, {"solo": "DATE"}, "other.db")

    def open_other() -> None:
        page.text("txConnection", second)
        page.fill("txRecordSource", "clienti")

    page.text("txConnection", first)
    in_question(form, open_other)
    page.fill("txRecordSource", "clienti")
    form.equal(messages(form), [BUILD, BUILD])
    form.equal((array(page, "colCaptions"), len(tabs(page)[0])), (["solo"], 1))


@page_scenario
def a_page_opened_in_the_question_of_building_ends_it(form: Form) -> None:
    control_of(form)
    page = doomed(form, 1)
    page.text("txConnection", database(form, FIELDS))
    in_question(form, lambda: form.server.open_page("L1"))
    page.fill("txRecordSource", "clienti")
    form.equal((array(page, "colCaptions"), page.state().data_open), (["Codice", "Nome", "Nato il"], False))


@page_scenario
def a_page_may_be_opened_while_a_file_is_asked_for(form: Form) -> None:
    control_of(form)
    page = doomed(form)

    @form.server.on_open_file
    def choose(title: str, filter: str, folder: str) -> str:
        form.server.open_page("L1")
        return "c:\\db.mdb"

    page.double_click("txtDataBaseName")
    form.server.on_open_file(None)
    form.equal(texts(page, "txtDataBaseName", "txtCaption"), ["", "Codice"])


@page_scenario
def a_database_of_nonsense_is_shown_and_nothing_else(form: Form) -> None:
    page = page_of(form)
    path = form.file("nonsense.db")
    with open(path, "wb") as file:
        file.write(b"no database at all" * 100)
    for connect in (f"Provider=SQLite;Data Source={path}", "=;=;=", "Provider=SQLite", ";" * 100, "x" * 100000):
        page.text("txConnection", connect)
        page.fill("txRecordSource", "clienti")
        form.equal(messages(form), [NO_DATABASE])
    form.equal((page.state().data_open, focused(page)), (False, []))


@page_scenario
def an_error_leaves_what_was_typed_and_the_page_usable(form: Form) -> None:
    page = page_of(form)
    form.fails(6, lambda: page.text("txtColWidth", "99999"))
    page.enter("txtCols")
    page.text("txtCols", "99999")
    form.fails(6, lambda: page.enter("txtRows"))
    form.equal((texts(page, "txtColWidth", "txtCols"), focused(page)), (["99999", "99999"], ["txtRows"]))
    page.enter("txtCols")
    page.text("txtCols", "4")
    page.enter("txtRows")
    page.click("TabStrip1", 4)
    form.equal((text(page, "txtColWidth"), len(tabs(page)[0])), ("0", 4))


@page_scenario
def requests_of_the_wrong_kind_are_refused(form: Form) -> None:
    page = page_of(form)
    request = form.server.request
    for params in ({}, {"ids": "L1"}, {"ids": [1]}, {"ids": ["L1", None]}, {"ids": None}):
        form.refused(-32602, lambda: request("page.open", **params))
        form.refused(-32602, lambda: request("page.select", **params))
    for method in ("page.part", "page.enter", "page.leave", "page.click", "page.dblclick", "page.text"):
        form.refused(-32602, lambda: request(method))
        form.refused(-32602, lambda: request(method, name=1))
    form.refused(-32602, lambda: request("page.text", name="txtCaption"))
    form.refused(-32602, lambda: request("page.text", name="txtCaption", text=5))
    form.refused(-32602, lambda: request("page.click", name="TabStrip1", index="2"))
    form.refused(-32602, lambda: request("page.click", name="TabStrip1", index=1.5))
    form.tells()
    form.equal(texts(page, "txtCaption", "txtCols"), ["Codice", "3"])


@page_scenario
def a_selection_that_is_refused_leaves_the_old_one(form: Form) -> None:
    page = doomed(form, 2)
    form.refused(-32602, lambda: page.select("L2", "nobody"))
    page.text("txtCaption", "nuova")
    page.apply()
    form.equal(old_control(form).Caption[0], "nuova")
    form.equal([line for line in form.happened() if line != MARK][-1], "L2: changed ColFieldType")


@page_scenario
def an_empty_selection_is_error_9_and_the_page_stays_as_it_was(form: Form) -> None:
    page = page_of(form)
    page.text("txtCaption", "x")
    form.happened()
    form.fails(9, page.select)
    form.fails(9, page.apply)
    form.tells()
    form.equal((texts(page, "txtCaption", "txtCols"), page.state().changed), (["x", "3"], True))
