"""Lists that are ready to be edited, what is seen while a row is edited, and what is told."""

from typing import Any, List, Optional, Sequence, Tuple

import krvlist
from form import BUTTONS, Form

ESCAPE, F5, F6, F7, F8 = 27, 116, 117, 118, 119
TITLE = "Rolda"
DROP = f"message confermi annullamento modifiche? [yesno] {TITLE}"
REMOVE = f"message confermi eliminazione riga selezionata? [yesno] {TITLE}"
NEEDED = f"message il campo è necessario [ok] {TITLE}"
NO_COLUMN = f"message non ci sono colonne editabili [ok] {TITLE}"
NO_ROW = f"message deve essere selezionata la riga prima di cui inserire [ok] {TITLE}"
ADD, INSERT, DELETE, COPY = (f"{name}Click(Cancel=false)" for name in ("Add", "Insert", "Delete", "Copy"))
CONFIRM = "OKClick(Cancel=false)"
START = "LineEditStart(Adding=true)"
YELLOW = 0x00FFFF

# --- What is told ---


def opened(row: int) -> List[str]:
    """An existing row comes into the input line."""
    return [f"RowSelect(Row={row})", START]


def text(col: int, *values: str) -> List[str]:
    """The editor's text becomes these, one after the other."""
    return [f'InputFieldChange(Col={col}, Value="{value}")' for value in values]


def offer(col: int, value: str) -> str:
    """A field is offered to the host."""
    return f'BeforeFieldUpdate(ColInEdit={col}, Value="{value}", Cancel=false)'


def before(row: int, col: int) -> str:
    """A row is offered to the host."""
    return f"BeforeRowUpdate(RowInEdit={row}, ColInEdit={col}, Cancel=false, ExternalHandling=false)"


def after(row: int) -> str:
    """A row was confirmed."""
    return f"AfterRowUpdated(UpdatedRow={row})"


def tells(form: Form, *want: str) -> None:
    """As `Form.tells`, the changes of the editor's text left out."""
    form.equal([line for line in form.happened() if "InputFieldChange" not in line], want)


# --- Lists ---


def editable(form: Form, rows: int = 3, cols: int = 3) -> krvlist.List:
    """A list without automatic row and without input on a click: every column editable, captions "A",
    "B", cells "a0", "b0", "a1"; no row is current, nothing open, the focus outside."""
    control = form.list
    control.AutoAdd = control.AutoStartInputOnClick = False
    control.Cols = cols
    for col in range(cols):
        control.ColEditable[col] = True
        control.Caption[col] = chr(65 + col)
    control.Refresh()
    fill(control, [[f"{chr(97 + col)}{row}" for col in range(cols)] for row in range(rows)])
    form.happened()
    return control


def numbered(form: Form, *numbers: str) -> krvlist.List:
    """Such a list whose column 0 carries these line numbers and cannot be edited; the other cells are
    "b0", "b1"."""
    control = editable(form, 0, 2)
    fill(control, [[number, f"b{row}"] for row, number in enumerate(numbers)])
    control.LineNumberColumn = 0
    control.ColEditable[0] = False
    form.happened()
    return control


def fill(control: krvlist.List, texts: Sequence[Sequence[str]]) -> None:
    """Makes these the rows of the list."""
    control.Rows = len(texts)
    for row, cells in enumerate(texts):
        for col, cell in enumerate(cells):
            control.TextMatrix[row, col] = cell


# --- Steps ---


def go(form: Form, row: int) -> None:
    """The host makes a row current, or none."""
    form.list.Row = row
    form.server.yield_()


def open_row(form: Form, row: int) -> None:
    """A row in the input line, no field of it open; nothing of it is told."""
    go(form, row)
    form.happened()


def open_field(form: Form, row: int, col: int = 0) -> None:
    """A row in the input line and one of its fields open; nothing of it is told."""
    open_row(form, row)
    place(form, col)
    form.happened()


def place(form: Form, col: int) -> None:
    """The editor over a column of the open row."""
    form.equal(form.list.SetInput(col), True)
    form.server.yield_()


def close_field(form: Form) -> None:
    """No field open: no column beyond the last can be edited."""
    form.equal(form.list.SetInput(form.list.Cols), False)
    form.server.yield_()


def pending(form: Form, row: int, col: int = 2, value: str = "new") -> None:
    """A row in the input line, a cell of it rewritten and not confirmed, no field open."""
    open_field(form, row)
    close_field(form)
    form.list.InputArray[col] = value
    form.happened()


def adding(form: Form, *texts: str) -> None:
    """A new row of these texts in the input line, not confirmed, no field open."""
    form.list.Add()
    form.server.yield_()
    close_field(form)
    for col, value in enumerate(texts):
        form.list.InputArray[col] = value
    form.happened()


def answers(form: Form, *replies: str) -> None:
    """The next message boxes are answered so."""
    left = list(replies)
    form.server.on_message(lambda text, buttons, title: left.pop(0))


def cancel(form: Form, event: str) -> None:
    """The host cancels this event each time."""
    form.list.on(event)(lambda: {"Cancel": True})


def object_of_host(form: Form, name: str, focusable: bool = True) -> None:
    """An object of the host in GiveFocusTo."""
    form.server.request("host.object", name=name, focusable=focusable)
    form.list.GiveFocusTo = krvlist.ObjectRef(name)
    form.happened()


# --- What is seen ---


def line(form: Form) -> List[str]:
    """Texts of the input line."""
    return form.list.cells("GridIn", 1)[0]


def rows(form: Form) -> List[List[str]]:
    """Texts of the list's rows."""
    return form.list.cells("Grid", 1) if form.list.Rows else []


def editor(form: Form) -> Optional[Tuple[int, str]]:
    """The column that the editor stands over and its text; None while it is hidden."""
    seen = form.list.part("InpFld")
    if not seen["Visible"]:
        return None
    lefts = form.list.columns("GridIn")["ColPos"]
    # Hidden columns begin where the next one does: the last of them counts.
    return max(col for col, left in enumerate(lefts) if left == seen["Left"] - 35), seen["Text"]


def caret(form: Form) -> List[Any]:
    """The editor's text, and where its selection starts and how long it is."""
    part = form.list.part("InpFld")
    return [part[name] for name in ("Text", "SelStart", "SelLength")]


def selection(form: Form) -> List[int]:
    """Row, Col, RowSel and ColSel of the list, the captions being row 0."""
    grid = form.list.part("Grid")
    return [grid[name] for name in ("Row", "Col", "RowSel", "ColSel")]


def shown(form: Form) -> str:
    """The visible ones of the input line, the editor and the buttons, as words."""
    names = [part for part in ("GridIn", "InpFld", *BUTTONS) if form.list.part(part)["Visible"]]
    return " ".join(names)


def flags(form: Form) -> str:
    """The flags of the edit state that are True, as words."""
    names = ("Adding", "Inserting", "Editing", "Modified", "InputModified")
    return " ".join(name for name in names if form.list.get(name))


def lit(form: Form) -> List[str]:
    """The buttons that have the highlight's colour, YELLOW."""
    return [part for part in BUTTONS if form.list.part(part)["BackColor"] == YELLOW]


def of_row(form: Form) -> List[Any]:
    """The input line, its editor, the flags."""
    return [line(form), editor(form), flags(form)]
