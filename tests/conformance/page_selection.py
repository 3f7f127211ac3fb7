"""The property page: a selected control is read, and what was set up is written."""

import krvlist
from form import Form
from page_form import (
    COLUMNS, ERASE, MARK, array, arrays, control_of, messages, page_of, page_on, page_scenario, replies,
    tabs, text, texts,
)

WIDE = (
    "AutoAdd", "OkVisible", "CopyVisible", "DeleteVisible", "InsertVisible", "AddVisible", "Cols", "Rows",
    "LineNumberColumn", "Enabled", "DataBaseName", "Connect", "Recordsource",
)
COLUMN = (
    "ColWidth", "ColAlignment", "Caption", "ColEditable", "ColDataField", "ColIsNecessary",
    "ColFieldLength", "ColFormat", "ColFieldType",
)
FLAGS = {
    "AutoAdd": "chkAutoAdd", "OkVisible": "chkOkVisible", "CopyVisible": "chkCopyVisible",
    "DeleteVisible": "chkDeleteVisible", "InsertVisible": "chkInsertVisible", "AddVisible": "chkAddVisible",
    "Enabled": "chkEnabled",
}
TEXTS = {
    "Rows": "txtRows", "LineNumberColumn": "txtLineNumberColumn", "DataBaseName": "txtDataBaseName",
    "Cols": "txtCols", "Recordsource": "txRecordSource", "Connect": "txConnection",
}


def news_of_control(form: Form) -> list:
    return [line for line in form.happened() if line != MARK]


def changes(*names: str) -> list:
    return [f"changed {name}" for name in names]


# --- Loading ---


@page_scenario
def flags_are_read_as_checked_and_unchecked(form: Form) -> None:
    control = control_of(form)
    for value in (True, False):
        for flag in FLAGS:
            setattr(control, flag, value)
        page = page_on(form, control)
        form.equal([page.part(box)["Value"] for box in FLAGS.values()], [int(value)] * 7)


@page_scenario
def each_flag_has_its_own_box(form: Form) -> None:
    control = control_of(form)
    for flag in FLAGS:
        for each in FLAGS:
            setattr(control, each, each == flag)
        page = page_on(form, control)
        checked = [each for each, box in FLAGS.items() if page.part(box)["Value"] == 1]
        form.equal(checked, [flag])


@page_scenario
def texts_and_numbers_are_read_as_text(form: Form) -> None:
    control = control_of(form)
    control.Rows, control.LineNumberColumn = 4, 2
    control.DataBaseName, control.Connect = "c:\\db.mdb", "Provider=x;"
    control.Recordsource = "SELECT * FROM clienti"
    page = page_on(form, control)
    form.equal(
        texts(page, *TEXTS.values()), ["4", "2", "c:\\db.mdb", "3", "SELECT * FROM clienti", "Provider=x;"]
    )


@page_scenario
def columns_are_read_and_the_first_one_shown(form: Form) -> None:
    page = page_of(form)
    form.equal([array(page, name) for _, name, _, _ in COLUMNS], [values for *_, values in COLUMNS])
    form.equal((tabs(page)[1], text(page, "txtCaption")), (1, "Codice"))


@page_scenario
def loading_tells_the_control_nothing_and_leaves_the_page_unchanged(form: Form) -> None:
    control = control_of(form)
    control.Connect, control.Recordsource = "Provider=x;", "clienti"
    form.happened()
    page = form.server.open_page(control)
    form.equal(news_of_control(form), [])
    form.equal((page.state().changed, page.state().data_open), (False, False))


@page_scenario
def only_the_first_of_two_controls_is_read_and_written(form: Form) -> None:
    first, second = control_of(form), control_of(form, 3, "L2")
    second.Caption[0] = "altra"
    before = form.look(second)
    page = page_on(form, first, second)
    form.equal(text(page, "txtCaption"), "Codice")
    page.text("txtCaption", "nuova")
    form.happened()
    page.apply()
    form.equal(news_of_control(form), changes(*WIDE, *COLUMN * 3))
    form.equal((first.Caption[0], form.look(second)), ("nuova", before))


@page_scenario
def another_selection_replaces_what_was_not_applied(form: Form) -> None:
    first, second = control_of(form), control_of(form, 2, "L2")
    page = page_on(form, first)
    replies(form)
    page.text("txtCaption", "mai applicata")
    page.text("txtDataBaseName", "mai.mdb")
    page.click("TabStrip1", 3)
    form.happened()
    page.select(second)
    form.equal((messages(form), tabs(page)), ([ERASE], (["col0", "col1"], 1)))
    form.equal(texts(page, "txtCaption", "txtDataBaseName"), ["Codice", ""])
    form.equal((page.state().changed, first.Caption[0]), (False, "Codice"))


@page_scenario
def columns_that_are_kept_at_no_survive_the_selection(form: Form) -> None:
    first, second = control_of(form, 5), control_of(form, 2, "L2")
    second.Caption[1] = "seconda"
    page = page_on(form, first)
    page.click("TabStrip1", 5)
    page.text("txtCaption", "quinta")
    replies(form, "no")
    page.select(second)
    form.equal(array(page, "colCaptions"), ["Codice", "seconda", "Nato il", "", "quinta"])
    form.equal((len(tabs(page)[0]), text(page, "txtCols")), (5, "5"))
    page.apply()
    form.equal([second.Caption[col] for col in range(second.Cols)], ["Codice", "seconda", "Nato il", "", "quinta"])


@page_scenario
def the_question_comes_between_the_database_name_and_the_record_source(form: Form) -> None:
    first, second = control_of(form, 5), control_of(form, 3, "L2")
    for control, letter in ((first, "a"), (second, "b")):
        for name in ("DataBaseName", "Recordsource", "Connect"):
            setattr(control, name, f"{letter} {name}")
    page = page_on(form, first)
    seen = []
    replies(form, lambda: seen.append(texts(page, *TEXTS.values())))
    page.select(second)
    form.equal(seen, [["0", "-1", "b DataBaseName", "3", "a Recordsource", "a Connect"]])
    form.equal(text(page, "txConnection"), "b Connect")


@page_scenario
def what_the_host_changes_is_seen_at_the_next_selection(form: Form) -> None:
    page = page_of(form)
    form.list.Caption[0] = "nuova"
    page.click("TabStrip1", 1)
    form.equal(text(page, "txtCaption"), "Codice")
    page.select(form.list)
    form.equal(text(page, "txtCaption"), "nuova")


# --- Applying ---


@page_scenario
def applying_writes_everything_in_its_order(form: Form) -> None:
    page = page_of(form)
    form.happened()
    page.apply()
    form.tells(*changes(*WIDE, *COLUMN * 3))
    form.equal(page.state().changed, False)


@page_scenario
def every_setting_is_applied(form: Form) -> None:
    control = control_of(form)
    for flag in FLAGS:
        setattr(control, flag, False)
    page = page_on(form, control)
    for name, new in zip(TEXTS.values(), ("4", "2", "d.mdb", "4", "clienti", "Provider=x;")):
        page.text(name, new)
    for box in FLAGS.values():
        page.click(box)
    page.fill("txtCols", "4")
    page.click("TabStrip1", 4)
    for name, new in (
        ("txtColWidth", "777"), ("txtCaption", "Altro"), ("cmbDataField", "altro"), ("txtFieldLength", "12"),
        ("txtFormat", "0.00"),
    ):
        page.text(name, new)
    page.click("cmbAlignment", 3)
    page.click("cmbDataType", 6)
    page.click("chkEditable")
    page.click("chkIsNecessary")
    page.apply()
    form.equal([getattr(control, name) for name in TEXTS], [4, 2, "d.mdb", 4, "clienti", "Provider=x;"])
    form.equal([getattr(control, flag) for flag in FLAGS], [True] * 7)
    form.equal([getattr(control, name)[3] for name in COLUMN], [777, 4, "Altro", True, "altro", True, 12, "0.00", 6])
    form.equal([control.Caption[col] for col in range(3)], ["Codice", "Nome", "Nato il"])


@page_scenario
def raising_3_to_5_applies_two_empty_columns(form: Form) -> None:
    page = page_of(form)
    page.text("txtCols", "5")
    form.happened()
    page.apply()
    form.tells(*changes(*WIDE, *COLUMN * 5))
    control = form.list
    for col in (3, 4):
        form.equal([getattr(control, name)[col] for name in COLUMN], [0, 0, "", False, "", False, 0, "", 0])
    form.equal(control.Cols, 5)


@page_scenario
def fewer_columns_are_asked_about_before_anything_is_written(form: Form) -> None:
    page = page_of(form)
    page.click("chkAddVisible")
    page.text("txtCols", "2")
    form.happened()
    replies(form)
    page.apply()
    form.tells(f"message {ERASE} [yesno] Rolda", *changes(*WIDE, *COLUMN * 2))
    form.equal((form.list.Cols, form.list.AddVisible), (2, False))


@page_scenario
def no_to_fewer_columns_applies_them_all(form: Form) -> None:
    page = page_of(form)
    page.text("txtCols", "2")
    replies(form, "no")
    form.happened()
    page.apply()
    form.tells(f"message {ERASE} [yesno] Rolda", MARK, *changes(*WIDE, *COLUMN * 3))
    form.equal(form.list.Cols, 3)


@page_scenario
def a_count_with_words_is_applied_as_its_number(form: Form) -> None:
    page = page_of(form)
    page.text("txtCols", "4 colonne")
    page.apply()
    form.equal((form.list.Cols, text(page, "txtCols")), (4, "4"))


@page_scenario
def numbers_are_converted_by_the_control(form: Form) -> None:
    page = page_of(form)
    page.text("txtRows", "12,6")
    page.apply()
    form.equal((form.list.Rows, text(page, "txtRows")), (13, "12,6"))
    for typed, number in (("", 13), ("abc", 13), ("4 righe", 13), ("99999999999", 6)):
        page.text("txtRows", typed)
        form.happened()
        form.fails(number, page.apply)
        form.tells(*changes(*WIDE[:7]))
        form.equal((form.list.Rows, page.state().changed), (13, True))


@page_scenario
def a_width_that_the_grid_refuses_stops_the_applying_at_its_column(form: Form) -> None:
    page = page_of(form)
    page.text("txtCaption", "prima")
    page.click("TabStrip1", 2)
    page.text("txtColWidth", "-20")
    page.text("txtCaption", "seconda")
    form.happened()
    form.fails(30014, page.apply)
    form.tells(*changes(*WIDE, *COLUMN))
    form.equal([form.list.Caption[col] for col in range(3)], ["prima", "Nome", "Nato il"])
    form.equal(page.state().changed, True)


@page_scenario
def an_odd_alignment_is_written_as_0_only_where_it_was_shown(form: Form) -> None:
    control = control_of(form)
    control.ColAlignment[0] = control.ColAlignment[1] = 2
    page_on(form, control).apply()
    form.equal([control.ColAlignment[col] for col in range(3)], [0, 2, 4])


@page_scenario
def the_message_loop_turns_once_behind_the_column_count(form: Form) -> None:
    control = form.quiet(2, 5)
    control.Enabled, control.OkVisible, control.AutoStartInputOnClick = True, False, False
    control.Row = 4
    form.server.yield_()
    page = page_on(form, control)
    page.text("txtRows", "5")
    control.Rows = 2  # the current row is clamped; that waits for a turn
    form.happened()
    page.apply()
    told = news_of_control(form)
    form.equal(told[:7], changes(*WIDE[:7]))
    form.equal([line.split("(")[0] for line in told[7:9]], ["RowSelect", "LineEditStart"])
    form.equal(told[9:], changes(*WIDE[7:], *COLUMN * 2))


@page_scenario
def what_was_applied_is_read_again(form: Form) -> None:
    page = page_of(form)
    page.click("TabStrip1", 2)
    page.text("txtCaption", "Cognome")
    page.click("cmbAlignment", 3)
    page.apply()
    page = page_on(form, form.list)
    page.click("TabStrip1", 2)
    form.equal(texts(page, "txtCaption", "cmbAlignment"), ["Cognome", "Center align"])


@page_scenario
def applying_leaves_page_and_tab_as_they_are(form: Form) -> None:
    page = page_of(form)
    page.click("TabStrip1", 3)
    page.text("txtCaption", "x")
    before = (tabs(page), page.state().arrays)
    page.apply()
    form.equal((tabs(page), page.state().arrays), before)
    page.apply()
    form.equal(page.state().changed, False)


@page_scenario
def applying_asks_and_opens_nothing(form: Form) -> None:
    page = page_of(form)
    page.text("txtDataBaseName", form.file("none.db"))
    page.text("txRecordSource", "clienti")
    page.text("txConnection", "Provider=x;")
    form.happened()
    page.apply()
    form.equal((messages(form), form.list.Recordset, page.state().data_open), ([], None, False))


@page_scenario
def typing_into_any_text_of_the_list_marks_the_page(form: Form) -> None:
    for name in TEXTS.values():
        page = page_of(form)
        form.equal(page.state().changed, False)
        page.text(name, "9")
        form.equal(page.state().changed, True)
        form.tells(MARK)


@page_scenario
def the_region_of_the_page_is_that_of_its_opening(form: Form) -> None:
    form.server.region("en-US")
    control = form.server.new("L2")
    page = page_on(form, control)
    page.text("txtRows", "1,200")
    page.apply()
    form.equal(control.Rows, 1200)
    form.server.region("it-IT")
    form.equal(arrays(page, "colCaptions"), [[""]])


@page_scenario
def a_stored_control_is_set_up_like_a_new_one(form: Form) -> None:
    stored = control_of(form).save()
    control = form.server.load("L2", stored.bag)
    control.listen("*")
    page = page_on(form, control)
    form.equal([array(page, name) for _, name, _, _ in COLUMNS], [values for *_, values in COLUMNS])
    page.text("txtCaption", "x")
    page.apply()
    form.equal(control.save().bag["Caption0"], "x")
    assert isinstance(control, krvlist.List)
