"""The property page: its lists, its tabs, the column that it shows."""

import krvlist
from form import Form
from page_form import (
    ARRAYS, COLUMNS, EDITORS, MARK, array, control_of, page_of, page_on, page_scenario, tabs, text, texts,
)

TYPES = (
    ("Big Integer", 20), ("Binary", 128), ("Boolean", 11), ("Byte String", 8), ("Chapter", 136),
    ("Char (string)", 129), ("Currency", 6), ("Date/Time", 7), ("Date", 133), ("Time", 134),
    ("TimeStamp", 135), ("Decimal", 14), ("Double", 5), ("Empty", 0), ("ErrorCode", 10), ("FileTime", 64),
    ("Guid", 72), ("Long", 3), ("LongVarBinary", 205), ("LongVarChar", 201), ("LongWChar", 203),
    ("Numeric", 131), ("PropVariant", 138), ("Single", 4), ("Integer", 2), ("TinyInteger", 16),
    ("UnsignedBigInteger", 21), ("UnsignedLong", 19), ("UnsignedInteger", 18), ("UnsignedTinyInteger", 17),
    ("UserDefined", 132), ("VarBinary", 204), ("VarChar(String)", 200), ("Variant", 12), ("VarNumeric", 139),
    ("VarWChar(string)", 202), ("WChar(string)", 130),
)


@page_scenario
def the_lists_have_their_entries_in_their_order(form: Form) -> None:
    page = page_of(form)
    types, alignments = page.part("cmbDataType"), page.part("cmbAlignment")
    form.equal(list(zip(types["List"], types["ItemData"])), TYPES)
    form.equal(alignments["List"], ["Auto align", "Left align", "Right align", "Center align"])
    form.equal(page.part("cmbDataField")["List"], [])


@page_scenario
def there_is_one_tab_and_one_entry_for_each_column(form: Form) -> None:
    page = page_of(form, 5)
    form.equal(tabs(page), (["col0", "col1", "col2", "col3", "col4"], 1))
    form.equal([len(array(page, name)) for name in ARRAYS], [5] * 9)


@page_scenario
def a_tab_shows_its_column(form: Form) -> None:
    page = page_of(form)
    shown = []
    for tab in (1, 2, 3, 2):
        page.click("TabStrip1", tab)
        entries = texts(page, "txtColWidth", "txtCaption", "cmbDataField", "txtFormat", "txtFieldLength")
        flags = [page.part(name)["Value"] for name in ("chkEditable", "chkIsNecessary")]
        positions = [page.part(name)["ListIndex"] for name in ("cmbAlignment", "cmbDataType")]
        shown.append([*entries, *flags, *positions])
    second = ["1100", "Nome", "nome", "", "30", 1, 1, 2, 35]
    form.equal(
        shown,
        [
            ["1000", "Codice", "codice", "0", "9", 0, 1, 1, 17],
            second,
            ["1200", "Nato il", "nato", "dd/mm/yyyy", "10", 0, 0, 3, 8],
            second,
        ],
    )
    form.equal([array(page, name) for _, name, _, _ in COLUMNS], [values for *_, values in COLUMNS])


@page_scenario
def the_fourth_tab_edits_entry_3(form: Form) -> None:
    control = control_of(form, 4)
    control.Caption[3] = "quarta"
    page = page_on(form, control)
    page.click("TabStrip1", 4)
    form.equal((tabs(page)[0][3], text(page, "txtCaption")), ("col3", "quarta"))
    page.text("txtCaption", "altra")
    form.equal(array(page, "colCaptions"), ["Codice", "Nome", "Nato il", "altra"])


@page_scenario
def showing_a_column_marks_the_page(form: Form) -> None:
    page = page_of(form)
    form.equal(page.state().changed, False)
    page.click("TabStrip1", 2)
    form.equal(page.state().changed, True)
    # Width, alignment, caption, editable, data field, type, and the format and the length; both
    # columns are necessary.
    form.tells(*[MARK] * 8)


@page_scenario
def showing_the_same_column_again_marks_the_page_by_its_lists_alone(form: Form) -> None:
    page = page_of(form)
    page.click("TabStrip1", 1)
    form.tells(MARK, MARK)


@page_scenario
def a_type_that_is_no_entry_shows_none_and_stays(form: Form) -> None:
    control = control_of(form)
    control.ColFieldType[0] = 9
    control.ColFieldType[1] = 0
    page = page_on(form, control)
    form.equal((page.part("cmbDataType")["ListIndex"], text(page, "cmbDataType")), (-1, ""))
    page.click("TabStrip1", 2)
    form.equal(text(page, "cmbDataType"), "Empty")
    form.equal(array(page, "colFieldTypes"), [9, 0, 133])


@page_scenario
def an_odd_alignment_shows_as_automatic_and_becomes_0_once_shown(form: Form) -> None:
    for odd in (2, 3, 5, 6, 8, 9):
        control = control_of(form)
        control.ColAlignment[0] = control.ColAlignment[1] = odd
        page = page_on(form, control)
        form.equal(text(page, "cmbAlignment"), "Auto align")
        form.equal(array(page, "colAlignments"), [0, odd, 4])
        page.click("TabStrip1", 2)
        form.equal(array(page, "colAlignments"), [0, 0, 4])


@page_scenario
def a_data_field_that_is_no_entry_shows_all_the_same(form: Form) -> None:
    page = page_of(form)
    form.equal((text(page, "cmbDataField"), page.part("cmbDataField")["ListIndex"]), ("codice", -1))


@page_scenario
def nothing_has_the_focus_at_first_and_clicks_move_none(form: Form) -> None:
    page = page_of(form)
    for click in (("TabStrip1", 2), ("chkEditable",), ("cmbAlignment", 1)):
        page.click(*click)
    form.equal([name for name in EDITORS if page.part(name)["Focused"]], [])


@page_scenario
def the_focus_goes_from_editor_to_editor_and_to_none(form: Form) -> None:
    page = page_of(form)
    for name in (*EDITORS, "txtCols"):
        page.enter(name)
        form.equal([each for each in EDITORS if page.part(each)["Focused"]], [name])
    page.leave("txtRows")
    form.equal(page.part("txtCols")["Focused"], True)
    page.leave("txtCols")
    form.equal([name for name in EDITORS if page.part(name)["Focused"]], [])
    form.tells()


@page_scenario
def the_page_and_the_form_have_a_focus_each(form: Form) -> None:
    page = page_of(form)
    form.list.focus("Grid")
    page.enter("txtRows")
    form.equal((form.focused(), page.part("txtRows")["Focused"]), (["Grid"], True))
    form.list.focus("outside")
    form.equal((form.focused(), page.part("txtRows")["Focused"]), ([], True))


@page_scenario
def there_is_no_page_before_one_is_opened_and_a_fresh_one_each_time(form: Form) -> None:
    page = page_of(form)
    page.text("txtCaption", "mai applicata")
    page.enter("txtCaption")
    page = page_on(form, form.list)
    form.equal((text(page, "txtCaption"), page.part("txtCaption")["Focused"]), ("Codice", False))
    form.equal(page.state().changed, False)


@page_scenario
def editors_that_are_not_there_are_refused(form: Form) -> None:
    page = page_of(form)
    for name in ("txtcaption", "CommonDialog1", "", "Label1"):
        form.refused(-32602, lambda: page.part(name))
        form.refused(-32602, lambda: page.enter(name))
        form.refused(-32602, lambda: page.text(name, "x"))
        form.refused(-32602, lambda: page.click(name, 0))
    for name in ("TabStrip1", "cmbDataField", "cmbAlignment"):
        form.refused(-32602, lambda: page.click(name))
    form.refused(-32602, lambda: page.select("no such control"))
    form.refused(-32602, lambda: form.server.open_page("no such control"))
    form.equal(text(page, "txtCols"), "3")


@page_scenario
def what_is_not_for_typing_or_clicking_is_error_438(form: Form) -> None:
    page = page_of(form)
    for name in ("chkEnabled", "TabStrip1", "cmbAlignment", "cmbDataType"):
        form.fails(438, lambda: page.text(name, "x"))
    for name in ("txtCaption", "txtCols"):
        form.fails(438, lambda: page.click(name))
    form.tells()


@page_scenario
def entries_and_tabs_that_are_not_there_are_errors(form: Form) -> None:
    page = page_of(form)
    for index in (-1, 4, 65536):
        form.fails(380, lambda: page.click("cmbAlignment", index))
    for index in (-1, 0, 4):
        form.fails(35600, lambda: page.click("TabStrip1", index))
    form.equal(tabs(page), (["col0", "col1", "col2"], 1))
    form.tells()


@page_scenario
def a_page_without_a_control_has_no_tabs(form: Form) -> None:
    form.fails(9, lambda: form.server.open_page())
    page = krvlist.Page(form.server.request)
    form.equal(tabs(page), ([], 0))
    form.fails(9, lambda: page.text("txtCaption", "x"))
    form.fails(9, page.apply)
    page.fill("txtCols", "2")
    form.equal(tabs(page), (["col0", "col1"], 1))
    page.text("txtCaption", "y")
    form.equal(array(page, "colCaptions"), ["y", ""])
