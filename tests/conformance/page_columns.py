"""The property page: the editors of a column, the column count and the line numbers."""

from form import Form
from page_form import (
    ARRAYS, ERASE, LIST_FLAGS, MARK, RANGE, array, arrays, control_of, focused, messages, page_of, page_on,
    page_scenario, replies, tabs, text,
)


@page_scenario
def each_editor_marks_the_page_and_stores_for_its_column(form: Form) -> None:
    page = page_of(form)
    page.click("TabStrip1", 2)
    form.happened()
    for name, new in (
        ("txtCaption", "Cognome"),
        ("txtColWidth", "1500"),
        ("txtFieldLength", "12"),
        ("txtFormat", "0.00"),
        ("cmbDataField", "cognome"),
    ):
        page.text(name, new)
        form.tells(MARK)
        page.text(name, new)
        form.tells()
    page.click("chkEditable")
    page.click("chkIsNecessary")
    page.click("cmbAlignment", 3)
    page.click("cmbDataType", 12)
    page.click("cmbDataType", 12)
    form.tells(*[MARK] * 5)
    held = page.state().arrays
    form.equal(
        {name: values[1] for name, values in held.items()},
        {
            "colWidths": 1500, "colAlignments": 4, "colCaptions": "Cognome", "colEditable": False,
            "colDataFields": "cognome", "colFieldTypes": 5, "colNecessary": False, "colFormats": "0.00",
            "colFieldLengths": 12,
        },
    )
    form.equal([held["colCaptions"][col] for col in (0, 2)], ["Codice", "Nato il"])


@page_scenario
def editors_of_the_list_only_mark_the_page(form: Form) -> None:
    page = page_of(form)
    before = page.state().arrays
    for name in LIST_FLAGS:
        page.click(name)
        form.tells(MARK)
    for name in ("txtCols", "txtRows", "txtLineNumberColumn", "txtDataBaseName", "txRecordSource", "txConnection"):
        page.text(name, "7")
        form.tells(MARK)
    form.equal((page.state().arrays, tabs(page)[0]), (before, ["col0", "col1", "col2"]))


@page_scenario
def nothing_is_written_before_apply(form: Form) -> None:
    page = page_of(form)
    before = form.look(form.list)
    page.text("txtCaption", "x")
    page.text("txtColWidth", "5")
    page.click("cmbAlignment", 0)
    page.click("chkEnabled")
    page.fill("txtCols", "6")
    form.equal(form.look(form.list), before)


@page_scenario
def alignments_are_stored_by_their_position(form: Form) -> None:
    page = page_of(form)
    stored = []
    for position in range(4):
        page.click("cmbAlignment", position)
        stored.append(array(page, "colAlignments")[0])
    form.equal(stored, [0, 1, 7, 4])


@page_scenario
def a_number_is_what_its_text_begins_with(form: Form) -> None:
    page = page_of(form)
    for typed, stored in (
        ("12 twips", 12), ("x1", 0), ("", 0), ("-7", -7), ("2.5", 2), ("3.5", 4), ("2,9", 2), (" 1 2", 12),
        ("32767", 32767), ("-32768", -32768), ("32767.4", 32767), ("&HFF", 255),
    ):
        for editor, name in (("txtColWidth", "colWidths"), ("txtFieldLength", "colFieldLengths")):
            page.text(editor, typed)
            form.equal(array(page, name)[0], stored)


@page_scenario
def a_number_beyond_16_bits_is_error_6_and_not_stored(form: Form) -> None:
    page = page_of(form)
    for typed in ("32768", "-32769", "32767.5", "99999999999", "1e300"):
        for editor in ("txtColWidth", "txtFieldLength"):
            form.fails(6, lambda: page.text(editor, typed))
            form.tells(MARK)
            form.equal(text(page, editor), typed)
    form.equal(arrays(page, "colWidths", "colFieldLengths"), [[1000, 1100, 1200], [9, 30, 10]])
    page.click("TabStrip1", 2)
    page.click("TabStrip1", 1)
    form.equal(text(page, "txtColWidth"), "1000")


@page_scenario
def long_and_odd_texts_are_kept(form: Form) -> None:
    page = page_of(form)
    for typed in ("x" * 40000, "àèì 😀", "a\tb", " ", "\ufeffq"):
        for editor, name in (("txtCaption", "colCaptions"), ("cmbDataField", "colDataFields")):
            page.text(editor, typed)
            form.equal((text(page, editor), array(page, name)[0]), (typed, typed))


# --- The column count ---


@page_scenario
def reducing_5_to_3_at_no_restores_5(form: Form) -> None:
    page = page_of(form, 5)
    before = page.state().arrays
    replies(form, "no")
    page.enter("txtCols")
    page.text("txtCols", "3")
    page.leave("txtCols")
    form.tells(MARK, f"message {ERASE} [yesno] Rolda", MARK)
    form.equal((text(page, "txtCols"), tabs(page)[0], page.state().arrays), ("5", [f"col{i}" for i in range(5)], before))


@page_scenario
def reducing_5_to_3_at_yes_removes_the_last_tabs(form: Form) -> None:
    page = page_of(form, 5)
    replies(form)
    page.fill("txtCols", "3")
    form.tells(MARK, f"message {ERASE} [yesno] Rolda")
    form.equal(tabs(page), (["col0", "col1", "col2"], 1))
    form.equal([len(values) for values in page.state().arrays.values()], [3] * 9)
    form.equal(array(page, "colCaptions"), ["Codice", "Nome", "Nato il"])


@page_scenario
def a_greater_count_adds_empty_columns(form: Form) -> None:
    page = page_of(form)
    page.fill("txtCols", "5")
    form.tells(MARK)
    form.equal(tabs(page), (["col0", "col1", "col2", "col3", "col4"], 1))
    page.click("TabStrip1", 5)
    new = [array(page, name)[4] for name in ARRAYS]
    form.equal(new, [0, 0, "", False, "", False, 0, "", 0])
    form.equal([text(page, name) for name in ("cmbAlignment", "cmbDataType")], ["Auto align", "Empty"])


@page_scenario
def columns_that_were_removed_come_back_empty(form: Form) -> None:
    page = page_of(form)
    replies(form)
    page.fill("txtCols", "1")
    page.fill("txtCols", "3")
    form.equal(array(page, "colCaptions"), ["Codice", "", ""])


@page_scenario
def the_count_is_rounded_half_to_even_and_at_least_1(form: Form) -> None:
    for typed, count in (
        ("2.5", 2), ("3.5", 4), ("1.6", 2), ("4 colonne", 4), ("0.5", 1), ("0", 1), ("-3", 1), ("", 1), ("abc", 1),
    ):
        page = page_of(form)
        replies(form)
        page.fill("txtCols", typed)
        form.equal((len(tabs(page)[0]), text(page, "txtCols")), (count, str(count)))


@page_scenario
def more_than_32767_columns_are_error_6_before_any_tab_changes(form: Form) -> None:
    page = page_of(form)
    for typed in ("32768", "32767.5", "1e300"):
        page.enter("txtCols")
        page.text("txtCols", typed)
        form.fails(6, lambda: page.leave("txtCols"))
        form.fails(6, lambda: page.click("TabStrip1", 1))
        form.fails(6, page.apply)
    form.equal((tabs(page)[0], messages(form)), (["col0", "col1", "col2"], []))
    form.equal(form.list.Cols, 3)


@page_scenario
def when_the_selected_tab_goes_the_one_selected_then_is_shown(form: Form) -> None:
    page = page_of(form, 5)
    replies(form)
    page.click("TabStrip1", 5)
    page.fill("txtCols", "2")
    form.equal((tabs(page), text(page, "txtCaption")), ((["col0", "col1"], 2), "Nome"))
    page.text("txtCaption", "x")
    form.equal(array(page, "colCaptions"), ["Codice", "x"])


@page_scenario
def a_selected_tab_that_stays_is_left_as_it_is(form: Form) -> None:
    page = page_of(form, 5)
    replies(form)
    page.click("TabStrip1", 2)
    form.fails(6, lambda: page.text("txtColWidth", "40000"))
    page.fill("txtCols", "3")
    form.equal((tabs(page)[1], text(page, "txtColWidth")), (2, "40000"))


@page_scenario
def a_click_on_a_tab_brings_the_tabs_to_the_count_first(form: Form) -> None:
    page = page_of(form)
    replies(form)
    page.text("txtCols", "5")
    form.equal(len(tabs(page)[0]), 3)
    page.click("TabStrip1", 2)
    form.equal((tabs(page), text(page, "txtCaption")), ((["col0", "col1", "col2", "col3", "col4"], 2), "Nome"))
    page.text("txtCols", "2")
    page.click("TabStrip1", 5)
    form.equal((messages(form), tabs(page), text(page, "txtCaption")), ([ERASE], (["col0", "col1"], 2), "Nome"))


@page_scenario
def going_on_to_another_editor_leaves_the_count(form: Form) -> None:
    page = page_of(form)
    page.enter("txtCols")
    page.text("txtCols", "4")
    page.enter("txtRows")
    form.equal((len(tabs(page)[0]), focused(page)), (4, ["txtRows"]))


@page_scenario
def hundreds_of_columns_come_and_go(form: Form) -> None:
    page = page_of(form)
    replies(form)
    page.fill("txtCols", "300")
    page.click("TabStrip1", 300)
    page.text("txtCaption", "ultima")
    form.equal((tabs(page)[0][299], array(page, "colCaptions")[299]), ("col299", "ultima"))
    page.fill("txtCols", "3")
    form.equal((tabs(page), text(page, "txtCaption")), ((["col0", "col1", "col2"], 3), "Nato il"))


# --- The column of the line numbers ---


@page_scenario
def with_4_columns_a_line_number_column_of_3_is_accepted_and_4_refused(form: Form) -> None:
    page = page_of(form, 4)
    page.fill("txtLineNumberColumn", "3")
    form.tells(MARK)
    form.equal(focused(page), [])
    page.fill("txtLineNumberColumn", "4")
    form.tells(MARK, f"message {RANGE} [ok] Rolda")
    form.equal((focused(page), text(page, "txtLineNumberColumn")), (["txtLineNumberColumn"], "4"))


@page_scenario
def there_is_no_lower_bound_for_the_line_number_column(form: Form) -> None:
    page = page_of(form, 4)
    for typed in ("0", "-1", "-40", "", "abc", "3 e"):
        page.fill("txtLineNumberColumn", typed)
        form.equal((messages(form), focused(page)), ([], []))
    for typed in ("3.5", "40", "99999999999"):
        page.fill("txtLineNumberColumn", typed)
        form.equal((messages(form), focused(page)), ([RANGE], ["txtLineNumberColumn"]))


@page_scenario
def the_line_number_column_is_compared_with_the_typed_count(form: Form) -> None:
    page = page_of(form, 4)
    page.text("txtCols", "6")
    page.fill("txtLineNumberColumn", "5")
    form.equal((messages(form), len(tabs(page)[0])), ([], 4))
    page.text("txtCols", "")
    page.fill("txtLineNumberColumn", "0")
    form.equal(messages(form), [RANGE])


@page_scenario
def a_refused_line_number_column_takes_the_focus_back(form: Form) -> None:
    page = page_of(form, 4)
    page.enter("txtLineNumberColumn")
    page.text("txtLineNumberColumn", "9")
    page.enter("txtCaption")
    form.equal((messages(form), focused(page)), ([RANGE], ["txtLineNumberColumn"]))
    page.text("txtLineNumberColumn", "2")
    page.enter("txtCaption")
    form.equal((messages(form), focused(page)), ([], ["txtCaption"]))


@page_scenario
def two_refused_editors_leave_the_developer_in_peace(form: Form) -> None:
    page = page_of(form, 4)
    page.text("txConnection", "Provider=SQLite;Data Source=" + form.file("none.db"))
    page.text("txRecordSource", "nessuna")
    page.text("txtLineNumberColumn", "9")
    form.happened()
    page.enter("txtLineNumberColumn")
    page.enter("txRecordSource")
    form.equal((messages(form), focused(page)), ([RANGE], ["txtLineNumberColumn"]))


@page_scenario
def another_title_stands_on_the_boxes_of_the_page(form: Form) -> None:
    page = page_on(form, control_of(form, 4))
    form.server.title = "Gestione"
    page.fill("txtLineNumberColumn", "4")
    form.tells(MARK, f"message {RANGE} [ok] Gestione")
