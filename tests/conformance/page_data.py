"""The property page: its database and record source, the fields that a column can show."""

import pathlib

import krvlist
from form import Form
from page_form import (
    BUILD, ERASE, MARK, NO_DATABASE, PROVIDER, array, arrays, control_of, database, focused, messages,
    opened_source, page_of, page_on, page_scenario, replies, tabs, text, texts,
)

FIELDS = {"codice": "INTEGER", "nome": "VARCHAR(50)", "saldo": "CURRENCY"}
PROPOSED = ("colFieldLengths", "colFormats", "colWidths")


def jet(path: str) -> str:
    return f"Provider= Microsoft.Jet.OLEDB.4.0; Data Source={path};"


def plain_page(form: Form, cols: int = 1) -> krvlist.Page:
    """Columns of width 1234, length 7 and format "x"."""
    control = control_of(form, 1)
    control.Cols = cols
    for col in range(cols):
        control.ColWidth[col], control.ColFieldLength[col], control.ColFormat[col] = 1234, 7, "x"
        control.ColFieldType[col], control.ColDataField[col] = 0, ""
    return page_on(form, control)


def listed(form: Form, page: krvlist.Page, fields: dict) -> None:
    """The source of these fields is open, its fields are listed."""
    opened_source(form, page, database(form, fields))
    page.enter("cmbDataField")
    form.happened()


# --- The database ---


@page_scenario
def a_double_click_on_the_database_name_asks_for_a_file(form: Form) -> None:
    page = page_of(form)
    form.server.on_open_file(lambda title, filter, folder: "c:\\db.mdb")
    page.double_click("txtDataBaseName")
    asked = 'openfile {filter: "*.mdb", folder: "c:\\\\", title: "Selezione DataBase"}'
    form.tells(asked, MARK)
    form.equal(texts(page, "txtDataBaseName", "txConnection"), ["c:\\db.mdb", ""])
    form.server.on_open_file(lambda title, filter, folder: "")
    page.double_click("txtDataBaseName")
    form.tells(asked, MARK)
    form.equal(text(page, "txtDataBaseName"), "")
    form.server.on_open_file(None)


@page_scenario
def a_cancelled_or_broken_dialog_leaves_the_database_name(form: Form) -> None:
    page = page_of(form)
    page.text("txtDataBaseName", "old.mdb")
    form.happened()

    def broken(*_: str) -> str:
        raise krvlist.HostError(20476, "no dialog")

    for handler in (None, lambda *_: None, broken):
        form.server.on_open_file(handler)
        page.double_click("txtDataBaseName")
        form.equal(text(page, "txtDataBaseName"), "old.mdb")
    form.equal([line.split()[0] for line in form.happened()], ["openfile"] * 3)
    form.server.on_open_file(None)


@page_scenario
def only_the_database_name_asks_for_a_file(form: Form) -> None:
    page = page_of(form)
    for name in ("txRecordSource", "txConnection", "txtCols", "cmbDataField", "chkEnabled", "TabStrip1"):
        page.double_click(name)
    form.tells()


@page_scenario
def leaving_an_empty_database_name_changes_nothing(form: Form) -> None:
    page = page_of(form)
    page.text("txConnection", "Provider=x")
    form.happened()
    page.enter("txtDataBaseName")
    page.leave("txtDataBaseName")
    form.tells()
    form.equal(text(page, "txConnection"), "Provider=x")


@page_scenario
def leaving_a_database_name_sets_an_empty_connection_without_asking(form: Form) -> None:
    page = page_of(form)
    page.fill("txtDataBaseName", "c:\\db.mdb")
    form.tells(MARK, MARK)
    form.equal(text(page, "txConnection"), jet("c:\\db.mdb"))


@page_scenario
def another_connection_is_replaced_at_yes_only(form: Form) -> None:
    page = page_of(form)
    page.text("txConnection", "Provider=x")
    form.happened()
    replies(form, "no", "yes")
    page.fill("txtDataBaseName", "a.mdb")
    form.tells(MARK, f"message {PROVIDER} [yesno] Rolda", MARK)
    form.equal(texts(page, "txtDataBaseName", "txConnection"), ["", "Provider=x"])
    page.enter("txtDataBaseName")
    page.leave("txtDataBaseName")
    form.tells()
    page.fill("txtDataBaseName", "b.mdb")
    form.tells(MARK, f"message {PROVIDER} [yesno] Rolda", MARK)
    form.equal(texts(page, "txtDataBaseName", "txConnection"), ["b.mdb", jet("b.mdb")])


@page_scenario
def a_blank_is_a_database_name(form: Form) -> None:
    page = page_of(form)
    page.fill("txtDataBaseName", " ")
    form.equal(text(page, "txConnection"), jet(" "))


# --- The record source ---


@page_scenario
def a_record_source_without_connection_or_text_opens_nothing(form: Form) -> None:
    page = page_of(form)
    page.fill("txRecordSource", "clienti")
    page.text("txConnection", database(form, FIELDS))
    page.fill("txRecordSource", "")
    form.equal((messages(form), page.state().data_open), ([], False))


@page_scenario
def a_database_that_does_not_open_is_shown(form: Form) -> None:
    page = page_of(form)
    before = page.state().arrays
    for connect in ("Provider=SQLite;Data Source=" + form.file("none.db"), "Provider=None;", "a", "x=\"y"):
        opened_source(form, page, connect)
        form.equal(messages(form), [NO_DATABASE])
    form.equal((page.state().data_open, page.state().arrays, focused(page)), (False, before, []))


@page_scenario
def a_record_source_that_does_not_open_is_shown_and_gets_the_focus_back(form: Form) -> None:
    page = page_of(form)
    before = page.state().arrays
    for source in ("nessuna", "SELECT", "DELETE FROM clienti"):
        opened_source(form, page, database(form, FIELDS), source)
        (shown,) = messages(form)
        form.equal((shown.startswith("Error in RecordSource: "), len(shown) > 23), (True, True))
        form.equal(focused(page), ["txRecordSource"])
        page.text("txRecordSource", "")
        page.leave("txRecordSource")
    form.equal((page.state().data_open, page.state().arrays), (False, before))


@page_scenario
def no_opens_the_data_and_builds_nothing(form: Form) -> None:
    page = page_of(form)
    before = page.state().arrays
    opened_source(form, page, database(form, FIELDS))
    form.tells(MARK, MARK, f"message {BUILD} [yesno] Rolda")
    form.equal((page.state().data_open, page.state().arrays, text(page, "txtCols")), (True, before, "3"))


@page_scenario
def data_once_open_count_as_open_for_ever(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    opened_source(form, page, "Provider=None;")
    form.equal(page.state().data_open, True)
    page.enter("cmbDataField")
    form.equal(page.part("cmbDataField")["List"], [])


@page_scenario
def a_later_source_replaces_the_fields(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    opened_source(form, page, database(form, {"altro": "INTEGER"}, "other.db"))
    form.equal(page.part("cmbDataField")["List"], list(FIELDS))
    page.enter("cmbDataField")
    form.equal(page.part("cmbDataField")["List"], ["altro"])


@page_scenario
def a_query_is_a_source_too(form: Form) -> None:
    page = page_of(form)
    opened_source(form, page, database(form, FIELDS), "SELECT nome AS n, saldo FROM clienti")
    page.enter("cmbDataField")
    form.equal(page.part("cmbDataField")["List"], ["n", "saldo"])


# --- The fields ---


@page_scenario
def filling_the_list_keeps_the_text_and_selects_the_equal_entry(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    box = page.part("cmbDataField")
    form.equal((box["Text"], box["ListIndex"], box["List"]), ("codice", 0, list(FIELDS)))
    page.enter("txtCaption")
    page.enter("cmbDataField")
    form.tells()
    form.equal(array(page, "colFieldTypes"), [3, 202, 133])


@page_scenario
def letter_case_counts_for_the_equal_entry(form: Form) -> None:
    page = page_of(form)
    page.text("cmbDataField", "Codice")
    listed(form, page, FIELDS)
    form.equal(page.part("cmbDataField")["ListIndex"], -1)
    page.text("cmbDataField", "nome")
    form.equal(page.part("cmbDataField")["ListIndex"], 1)


@page_scenario
def each_type_proposes_length_format_and_width(form: Form) -> None:
    tiny = (7, "x", 1234)
    other = (0, "", 1234)
    for declared, code, proposal in (
        ("TINYINT", 16, tiny),
        ("BYTE", 17, tiny),
        ("SMALLINT", 2, (5, "####0", 550)),
        ("INTEGER", 3, (9, "########0", 800)),
        ("BIGINT", 20, (9, "########0", 800)),
        ("CURRENCY", 6, (9, "###,###,##0", 900)),
        ("SINGLE", 4, (9, "###,##0.0#", 800)),
        ("DOUBLE", 5, (12, "#,##0.0#", 1000)),
        ("NCHAR(12)", 130, (12, "", 1560)),
        ("VARCHAR(50)", 202, (50, "", 6500)),
        ("VARCHAR(252)", 202, (252, "", 32760)),
        ("VARCHAR(253)", 202, (253, "", 32767)),
        ("VARCHAR(32767)", 202, (32767, "", 32767)),
        ("TEXT", 203, other),
        ("BOOLEAN", 11, other),
        ("DATE", 133, other),
        ("TIME", 134, other),
        ("DATETIME", 135, other),
        ("DECIMAL", 131, other),
        ("BLOB", 205, other),
        ("GUID", 72, other),
    ):
        page = plain_page(form)
        listed(form, page, {"prima": "INTEGER", "campo": declared})
        page.click("cmbDataField", 1)
        form.equal([values[0] for values in arrays(page, *PROPOSED)], proposal)
        form.equal(arrays(page, "colDataFields", "colFieldTypes"), [["campo"], [code]])
        types = page.part("cmbDataType")
        form.equal((types["ItemData"][types["ListIndex"]], types["Enabled"]), (code, False))


@page_scenario
def choosing_a_text_of_50_characters(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    page.click("cmbDataField", 1)
    form.equal(texts(page, "txtFieldLength", "txtFormat", "txtColWidth", "txtCaption"), ["50", "", "6500", "Codice"])
    # The field, its type, length, format and width.
    form.tells(*[MARK] * 5)


@page_scenario
def choosing_a_tiny_integer_leaves_length_format_and_width(form: Form) -> None:
    page = page_of(form)
    listed(form, page, {"piccolo": "TINYINT"})
    page.click("cmbDataField", 0)
    form.equal(texts(page, "txtFieldLength", "txtFormat", "txtColWidth"), ["9", "0", "1000"])
    form.equal((text(page, "cmbDataType"), page.part("cmbDataType")["Enabled"]), ("TinyInteger", False))
    form.tells(MARK, MARK)


@page_scenario
def a_field_is_chosen_for_the_column_of_its_tab(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    page.click("TabStrip1", 2)
    page.click("cmbDataField", 2)
    form.equal(array(page, "colDataFields"), ["codice", "saldo", "nato"])
    form.equal(array(page, "colFieldTypes"), [3, 6, 133])


@page_scenario
def the_type_list_is_the_developers_only_for_fields_that_are_no_entries(form: Form) -> None:
    page = page_of(form)
    enabled = []

    def note() -> None:
        enabled.append(page.part("cmbDataType")["Enabled"])

    note()
    listed(form, page, FIELDS)
    note()
    page.click("cmbDataField", 2)
    note()
    page.click("TabStrip1", 3)  # nato is no entry
    note()
    page.click("TabStrip1", 2)  # nome is one
    note()
    page.text("cmbDataField", "altro")
    note()
    page.text("cmbDataField", "saldo")  # an entry, but typed
    note()
    page.click("TabStrip1", 2)
    note()
    form.equal(enabled, [True, True, False, True, False, True, True, False])
    form.equal(arrays(page, "colDataFields", "colFieldTypes"), [["saldo", "saldo", "nato"], [6, 202, 133]])


@page_scenario
def a_click_on_the_disabled_type_list_does_nothing(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    page.click("cmbDataField", 0)
    form.happened()
    page.click("cmbDataType", 5)
    form.fails(5, lambda: page.enter("cmbDataType"))
    form.tells()
    form.equal((text(page, "cmbDataType"), focused(page)), ("Long", ["cmbDataField"]))


@page_scenario
def the_type_list_passes_its_focus_on_when_it_is_disabled(form: Form) -> None:
    page = page_of(form)
    listed(form, page, FIELDS)
    page.enter("cmbDataType")
    page.click("cmbDataField", 0)
    form.equal(focused(page), ["txtFieldLength"])


# --- Building ---


@page_scenario
def yes_builds_a_column_for_each_field(form: Form) -> None:
    control = control_of(form, 1)
    page = page_on(form, control)
    opened_source(form, page, database(form, FIELDS), reply="yes")
    form.equal([line for line in form.happened() if line != MARK], [f"message {BUILD} [yesno] Rolda"])
    form.equal((tabs(page), text(page, "txtCols")), ((["col0", "col1", "col2"], 3), "3"))
    form.equal(
        arrays(page, "colCaptions", "colDataFields", "colFieldTypes", *PROPOSED),
        [
            list(FIELDS), list(FIELDS), [3, 202, 6],
            [9, 50, 9], ["########0", "", "###,###,##0"], [800, 6500, 900],
        ],
    )
    form.equal((page.part("cmbDataField")["List"], focused(page)), (list(FIELDS), []))
    page.apply()
    form.equal([control.Caption[col] for col in range(3)], list(FIELDS))
    form.equal(control.ColFieldLength[1], 50)


@page_scenario
def building_fewer_columns_asks_and_keeps_them_at_no(form: Form) -> None:
    page = page_of(form, 5)
    replies(form, "yes", "no")
    page.text("txConnection", database(form, FIELDS))
    page.fill("txRecordSource", "clienti")
    form.equal(messages(form), [BUILD, ERASE])
    form.equal((tabs(page), text(page, "txtCols")), (([f"col{i}" for i in range(5)], 3), "5"))
    form.equal(array(page, "colCaptions"), [*FIELDS, "", ""])
    replies(form)
    page.enter("txRecordSource")
    page.leave("txRecordSource")
    form.equal((messages(form), array(page, "colCaptions")), ([BUILD, ERASE], list(FIELDS)))


@page_scenario
def a_width_that_the_type_does_not_propose_stays(form: Form) -> None:
    page = plain_page(form)
    opened_source(form, page, database(form, {"attivo": "BOOLEAN", "poi": "BOOLEAN"}), reply="yes")
    form.equal(array(page, "colWidths"), [1234, 0])


@page_scenario
def a_database_that_goes_while_the_question_is_asked_is_built_all_the_same(form: Form) -> None:
    page = page_of(form)
    connect = database(form, FIELDS)
    path = pathlib.Path(connect.split("Data Source=")[1])
    opened_source(form, page, connect, reply=path.unlink)
    form.equal(array(page, "colCaptions"), list(FIELDS))
    page.enter("txRecordSource")
    page.leave("txRecordSource")
    form.equal(messages(form)[-1], NO_DATABASE)


@page_scenario
def a_field_that_a_later_source_lacks_is_stored_but_not_found(form: Form) -> None:
    page = plain_page(form)
    listed(form, page, FIELDS)
    opened_source(form, page, database(form, {"altro": "INTEGER"}, "other.db"))
    form.fails(3265, lambda: page.click("cmbDataField", 1))
    form.equal(arrays(page, "colDataFields", "colFieldTypes", *PROPOSED), [["nome"], [0], [7], ["x"], [1234]])


@page_scenario
def of_two_equal_names_the_first_is_meant(form: Form) -> None:
    page = plain_page(form)
    opened_source(form, page, database(form, FIELDS), "SELECT codice AS c, nome AS C FROM clienti")
    page.enter("cmbDataField")
    page.click("cmbDataField", 1)
    form.equal(arrays(page, "colDataFields", "colFieldTypes"), [["C"], [3]])
