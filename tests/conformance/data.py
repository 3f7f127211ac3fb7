"""The record source, and loading and clearing the list."""

import contextlib
import datetime
import decimal
import sqlite3

import krvlist
from form import Form
from scenarios import scenario

TITLE = "[ok] Rolda"
NO_NAME = f"message Nome Database (Jet 4.0) non specificato {TITLE}"
BAD_CONNECT = f"message Errore nella stringa di connessione al database {TITLE}"
BAD_SOURCE = f"message Errore in RecordSource {TITLE}"


def shop(form: Form) -> str:
    """The connection string of a new database with the table Ordini: three rows."""
    path = form.file("shop.db")
    with contextlib.closing(sqlite3.connect(path)) as database:
        database.execute("CREATE TABLE Ordini (Numero INTEGER, Data DATE, Totale CURRENCY, Note TEXT)")
        rows = ((1, "2024-03-05", 1234.5, "a"), (2, None, 0, None), (3, "1999-12-31", -7.25, ""))
        database.executemany("INSERT INTO Ordini VALUES (?, ?, ?, ?)", rows)
        database.commit()
    return f"Provider=SQLite;Data Source={path}"


def bound(form: Form, connect: str) -> krvlist.List:
    """The control over that table, one column a field and one without."""
    control = form.quiet(5)
    control.Connect = connect
    control.Recordsource = "Ordini"
    for col, field in enumerate(("Numero", "Data", "Totale", "   ", "Note")):
        control.ColDataField[col] = field
    control.ColFormat[1] = "dd/mm/yyyy"
    control.ColFormat[2] = "#,##0.00"
    form.happened()
    return control


@scenario
def Refresh_loads_formatted_rows(form: Form) -> None:
    control = bound(form, shop(form))
    control.Refresh()
    rows = [
        ["1", "05/03/2024", "1.234,50", "", "a"],
        ["2", "", "0,00", "", ""],
        ["3", "31/12/1999", "-7,25", "", ""],
    ]
    form.equal(control.cells("Grid"), [[""] * 5, *rows])
    form.equal((control.Rows, control.Row, control.Modified, control.InputModified), (3, -1, False, False))
    form.tells()


@scenario
def Refresh_of_an_empty_table_leaves_the_captions(form: Form) -> None:
    connect = shop(form)
    control = bound(form, connect)
    control.Caption[0] = "Numero"
    control.Refresh()
    form.server.data_execute(connect, "DELETE FROM Ordini")
    control.Refresh()
    form.equal((control.cells("Grid"), control.Row), ([["Numero", "", "", "", ""]], -1))
    form.equal(form.of_parts(("GridIn", "InpFld"), "Visible"), [False, False])


@scenario
def a_query_is_a_source_too(form: Form) -> None:
    control = bound(form, shop(form))
    control.Recordsource = "SELECT Numero, Data, Totale, Note FROM Ordini WHERE Numero > 1 ORDER BY Numero DESC"
    control.Refresh()
    form.equal([row[0] for row in control.cells("Grid", 1)], ["3", "2"])


@scenario
def an_empty_source_keeps_the_rows_and_resets(form: Form) -> None:
    control = bound(form, shop(form))
    control.Refresh()
    control.Recordsource = ""
    control.Row = 1
    form.happened()
    control.Refresh()
    form.equal((control.Rows, control.Row, control.Recordset), (3, -1, None))
    form.tells()


@scenario
def a_missing_database_name_is_said(form: Form) -> None:
    control = form.quiet(1, rows=2)
    control.Recordsource = "Ordini"
    for connect in ("", "Access;", "access", "ACCESS 97"):
        control.Connect = connect
        form.happened()
        control.Refresh()
        form.tells(NO_NAME)
        form.equal((control.Connect, control.Rows), (connect, 2))


@scenario
def the_built_connection_string_stays(form: Form) -> None:
    control = form.quiet(1, rows=2)
    control.Recordsource = "Ordini"
    for connect in ("", "access;", "Access 97"):
        control.Connect = connect
        control.DataBaseName = "C:\\db.mdb"
        form.happened()
        control.Refresh()
        form.tells(BAD_CONNECT)
        built = "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=C:\\db.mdb;"
        form.equal((control.Connect, control.Rows), (built, 2))
    control.DataBaseName = "other.mdb"  # a built string is no longer the default one
    control.Refresh()
    form.equal(control.Connect, built)


@scenario
def a_bad_connection_string_is_said(form: Form) -> None:
    control = form.quiet(1, rows=2)
    control.Recordsource = "Ordini"
    for connect in ("ACC", "Provider=NoSuchProvider"):
        control.Connect = connect
        form.happened()
        control.Refresh()
        form.tells(BAD_CONNECT)
        form.equal((control.Connect, control.Rows), (connect, 2))


@scenario
def a_bad_source_is_said(form: Form) -> None:
    control = bound(form, shop(form))
    control.Refresh()
    for source in ("Nessuno", "SELECT FROM", " ", "DELETE FROM Ordini"):
        control.Recordsource = source
        form.happened()
        control.Refresh()
        form.tells(BAD_SOURCE)
    form.equal(control.Rows, 3)


@scenario
def an_unknown_field_is_error_3265_and_keeps_what_was_loaded(form: Form) -> None:
    control = bound(form, shop(form))
    control.ColDataField[2] = "Nessuno"
    form.fails(3265, control.Refresh)
    form.equal(control.cells("Grid", 1), [["1", "05/03/2024", "", "", ""]])


@scenario
def CloseAll_releases_the_recordset_and_may_be_repeated(form: Form) -> None:
    control = bound(form, shop(form))
    for close in (control.CloseAll, control.CloseRecordset):
        control.Refresh()
        held = control.Recordset
        form.equal(form.server.data_state(held)["State"], 1)
        close()
        close()
        form.equal((control.Recordset, form.server.data_state(held)["State"], control.Rows), (None, 0, 3))
    form.tells()


@scenario
def Refresh_closes_the_hosts_recordset(form: Form) -> None:
    connect = shop(form)
    control = bound(form, connect)
    own = form.server.data_open(connect, "Ordini")
    control.Recordset = own
    form.equal((control.Recordset, control.Rows), (own, 0))
    form.tells("changed Recordset")
    control.Refresh()
    form.equal((form.server.data_state(own)["State"], control.Recordset == own), (0, False))


@scenario
def ReadOnlyRecordset_decides_the_lock(form: Form) -> None:
    control = bound(form, shop(form))
    for read_only, lock in ((True, 1), (False, 2)):
        control.ReadOnlyRecordset = read_only
        control.Refresh()
        state = form.server.data_state(control.Recordset)
        form.equal([state[name] for name in ("CursorType", "LockType", "Source", "EOF")], [2, lock, "Ordini", True])


@scenario
def Svuota_keeps_captions_and_Clear_does_not(form: Form) -> None:
    control = form.quiet(2, rows=3)
    control.Caption[0] = "Nome"
    control.InputArray[1] = "x"
    control.Svuota(NeverAdd=True)
    form.equal((control.cells("Grid"), control.cells("GridIn")), ([["Nome", ""]], [["Nome", ""], ["", ""]]))
    form.equal(control.InputModified, False)
    control.Rows = 2
    control.TextMatrix[0, 0] = "a"
    control.Clear()
    form.equal((control.cells("Grid"), control.cells("GridIn")), ([["", ""]] * 3, [["", ""]] * 2))


@scenario
def Svuota_with_NeverAdd_starts_no_row(form: Form) -> None:
    control = form.quiet(1, rows=1)
    control.AutoAdd = True
    control.Enabled = True
    form.happened()
    control.Svuota(True)
    form.equal((control.Rows, control.Adding, control.part("GridIn")["Visible"]), (0, False, False))
    form.tells()


@scenario
def clearing_shows_the_add_button_that_is_wanted(form: Form) -> None:
    control = form.quiet(1, rows=1)
    for wanted in (False, True):
        control.AddVisible = wanted
        control.Svuota()
        form.equal(control.part("btnAdd")["Visible"], wanted)


@scenario
def the_host_reads_typed_values(form: Form) -> None:
    own = form.server.data_open(shop(form), "SELECT * FROM Ordini ORDER BY Numero")
    form.equal([f["Name"] for f in form.server.data_state(own)["Fields"]], ["Numero", "Data", "Totale", "Note"])
    rows = form.server.data_read(own, 2)
    form.equal([rows[0][0], rows[0][1] == datetime.datetime(2024, 3, 5), rows[0][3]], [1, True, "a"])
    form.equal([decimal.Decimal(str(rows[0][2])) == decimal.Decimal("1234.5"), rows[1][1]], [True, None])
    form.equal((len(form.server.data_read(own, 10)), form.server.data_read(own, 10)), (1, []))


@scenario
def the_host_carries_out_statements_with_bound_values(form: Form) -> None:
    connect = shop(form)
    text = "it's; DROP TABLE Ordini --"
    affected, rows = form.server.data_execute(connect, "UPDATE Ordini SET Note = ? WHERE Numero < ?", [text, 3])
    form.equal((affected, rows), (2, []))
    affected, rows = form.server.data_execute(connect, "SELECT Note FROM Ordini ORDER BY Numero")
    form.equal((affected, rows), (0, [[text], [text], [""]]))


@scenario
def the_regions_format_values(form: Form) -> None:
    texts = []
    for region in ("it-IT", "en-US", "C"):
        form.server.region(region)
        texts.append(form.server.convert("Format", "Double", "1234.5", "#,##0.00"))
    form.equal(texts, ["1.234,50", "1,234.50", "1,234.50"])
