"""What the scenarios of the property page share."""

import contextlib
import functools
import sqlite3
from typing import Any, Callable, Dict, List, Optional, Sequence, Tuple

import krvlist
from form import Form
from scenarios import Scenario, scenario

ENTRIES = (
    "txtDataBaseName", "txRecordSource", "txConnection", "txtCols", "txtRows", "txtLineNumberColumn",
    "txtCaption", "txtColWidth", "txtFieldLength", "txtFormat",
)
LIST_FLAGS = (
    "chkOkVisible", "chkCopyVisible", "chkDeleteVisible", "chkInsertVisible", "chkAddVisible",
    "chkEnabled", "chkAutoAdd",
)
FLAGS = (*LIST_FLAGS, "chkEditable", "chkIsNecessary")
COMBOS = ("cmbAlignment", "cmbDataField", "cmbDataType")
EDITORS = (*ENTRIES, *FLAGS, *COMBOS, "TabStrip1")

MARK = "pageChanged {}"
ERASE = "this will erase some of the existing columns. confirm?"
PROVIDER = "Using this property will set a Jet.OLEDB Provider. Ok?"
BUILD = "build list structure?"
RANGE = "the value is out of range"
NO_DATABASE = "Error opening database"

# property, array, editor, the values of three columns
COLUMNS: Sequence[Tuple[str, str, str, Tuple[Any, Any, Any]]] = (
    ("ColWidth", "colWidths", "txtColWidth", (1000, 1100, 1200)),
    ("ColAlignment", "colAlignments", "cmbAlignment", (1, 7, 4)),
    ("Caption", "colCaptions", "txtCaption", ("Codice", "Nome", "Nato il")),
    ("ColEditable", "colEditable", "chkEditable", (False, True, False)),
    ("ColDataField", "colDataFields", "cmbDataField", ("codice", "nome", "nato")),
    ("ColIsNecessary", "colNecessary", "chkIsNecessary", (True, True, False)),
    ("ColFieldLength", "colFieldLengths", "txtFieldLength", (9, 30, 10)),
    ("ColFormat", "colFormats", "txtFormat", ("0", "", "dd/mm/yyyy")),
    ("ColFieldType", "colFieldTypes", "cmbDataType", (3, 202, 133)),
)
ARRAYS = tuple(array for _, array, _, _ in COLUMNS)


def page_scenario(function: Scenario) -> Scenario:
    """A scenario of the page: what can be seen of the page at its end is compared, too."""

    @functools.wraps(function)
    def play(form: Form) -> None:
        function(form)
        for name in EDITORS:
            form.server.request("page.part", name=name)
        form.server.request("page.state")

    return scenario(play)


def control_of(form: Form, cols: int = 3, id: Optional[str] = None) -> krvlist.List:
    """The control, or a further one, whose first three columns have settings of their own."""
    control = form.list if id is None else form.new(id)
    control.AutoAdd = False
    control.Cols = cols
    for name, _, _, values in COLUMNS:
        for col in range(min(cols, 3)):
            getattr(control, name)[col] = values[col]
    form.happened()
    return control


def page_on(form: Form, *controls: Any) -> krvlist.Page:
    """The page on these controls; what that told is forgotten."""
    page = form.server.open_page(*controls)
    form.happened()
    return page


def page_of(form: Form, cols: int = 3) -> krvlist.Page:
    """The page on the control with so many columns."""
    return page_on(form, control_of(form, cols))


def text(page: krvlist.Page, name: str) -> str:
    value: str = page.part(name)["Text"]
    return value


def texts(page: krvlist.Page, *names: str) -> List[str]:
    return [text(page, name) for name in names]


def tabs(page: krvlist.Page) -> Tuple[List[str], int]:
    """The captions, and the selected tab."""
    strip = page.part("TabStrip1")
    return strip["Tabs"], strip["SelectedItem"]


def arrays(page: krvlist.Page, *names: str) -> List[List[Any]]:
    held = page.state().arrays
    return [held[name] for name in names]


def array(page: krvlist.Page, name: str) -> List[Any]:
    return arrays(page, name)[0]


def focused(page: krvlist.Page) -> List[str]:
    return [name for name in EDITORS if page.part(name)["Focused"]]


def messages(form: Form) -> List[str]:
    """Texts of the boxes since the last time; the rest of the news is forgotten."""
    return [line[8:].rsplit(" [", 1)[0] for line in form.happened() if line.startswith("message ")]


def replies(form: Form, *given: Any) -> None:
    """Answers boxes one after the other, further ones with yes; what can be called is called first
    and may give the answer."""
    waiting = list(given)

    @form.server.on_message
    def answer(text: str, buttons: str, title: str) -> Any:
        reply = waiting.pop(0) if waiting else "yes"
        return reply() or "yes" if callable(reply) else reply


def database(form: Form, fields: Dict[str, str], name: str = "page.db") -> str:
    """The connection string of a new database with the table clienti."""
    path = form.file(name)
    with contextlib.closing(sqlite3.connect(path)) as connection:
        columns = ", ".join(f'"{field}" {declared}' for field, declared in fields.items())
        connection.execute(f"CREATE TABLE clienti ({columns})")
        connection.commit()
    return f"Provider=SQLite;Data Source={path}"


def opened_source(
    form: Form, page: krvlist.Page, connect: str, source: str = "clienti", reply: Any = "no"
) -> None:
    """Types connection and record source and leaves the latter; the question is answered so."""
    replies(form, reply)
    page.text("txConnection", connect)
    page.fill("txRecordSource", source)
    replies(form)


def raising(action: Callable[[], Any]) -> Optional[int]:
    """The number of the error with which the action ends; None for none."""
    try:
        action()
    except krvlist.ControlError as error:
        return error.number
    return None
