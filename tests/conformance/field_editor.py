"""The field editor over the cells of the input line: where it stands, what it shows, who watches it."""

from editable_list import (
    adding, before, cancel, caret, close_field, editable, editor, fill, flags, go, line, object_of_host,
    offer, open_field, open_row, pending, place, tells, text,
)
from form import TAB_STOPS, Form
from scenarios import scenario


@scenario
def SetInput_without_an_open_row_is_False(form: Form) -> None:
    control = editable(form)
    before = control.part("InpFld")
    for col in (0, 2, 3, -1):
        form.equal(control.SetInput(col), False)
    form.server.yield_()
    form.equal((control.part("InpFld"), flags(form)), (before, ""))
    form.tells()


@scenario
def SetInput_takes_visible_editable_columns_alone(form: Form) -> None:
    control = editable(form, cols=5)
    control.ColWidth[1] = 0
    control.ColEditable[2] = False
    open_row(form, 1)
    got = []
    for col in (0, 1, 2, 3, 4, 5, 99, -1, 2147483647, -2147483648):
        result = control.call("SetInput", col)
        form.server.yield_()
        got.append([result.value, result.args, editor(form)])
    want = [[True, [0], (0, "a1")], [False, [1], None], [False, [2], None]]
    want += [[True, [3], (3, "d1")], [True, [4], (4, "e1")]]
    want += [[False, [col], None] for col in (5, 99, -1, 2147483647, -2147483648)]
    form.equal(got, want)
    form.tells(*text(0, "a1"), *text(3, "d1"), *text(4, "e1"))


@scenario
def the_editor_stands_35_twips_beside_its_column(form: Form) -> None:
    control = editable(form)
    control.ColWidth[0], control.ColWidth[1] = 1500, 15
    open_row(form, 0)
    top = control.part("GridIn")["Top"] + control.rows("GridIn", 0, 1)["RowPos"][1]
    for col, left, width in ((0, 0, 1500), (1, 1500, 15), (2, 1515, 960)):
        place(form, col)
        form.equal(form.rectangle("InpFld"), [left + 35, top, width + 35, 240])


@scenario
def the_editor_takes_the_length_of_its_column(form: Form) -> None:
    control = editable(form)
    control.ColFieldLength[0], control.ColFieldLength[1] = 3, -1
    open_row(form, 0)
    lengths = []
    for col in range(3):
        place(form, col)
        control.type("12345")
        lengths.append([control.part("InpFld")["Text"], control.part("InpFld")["MaxLength"] if col != 1 else "any"])
    form.equal(lengths, [["123", 3], ["12345", "any"], ["12345", 0]])


@scenario
def an_opened_field_is_selected_and_edited(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    form.equal(control.SetInput(1), True)
    form.equal((form.focused(), control.Editing), (["InpFld"], False))
    form.tells()
    form.server.yield_()
    form.tells(*text(1, "b1"))
    form.equal(caret(form), ["b1", 0, 2])
    form.equal(flags(form), "Editing")


@scenario
def the_editor_shows_dates_in_one_form_and_numbers_plain(form: Form) -> None:
    control = editable(form, 0, 5)
    patterns = ("", "dd/mm/yyyy", "d mmmm yyyy", "#,##0.00", "Dddd")
    for col, pattern in enumerate(patterns):
        control.ColFormat[col] = pattern
    fill(control, [["1.234,50", "05/03/2001", "5 marzo 2001", "1.234,50", "05/03/2001"]])
    open_row(form, 0)
    texts = []
    for col in range(5):
        place(form, col)
        texts.append(control.part("InpFld")["Text"])
    form.equal(texts, ["1.234,50", "05/03/2001", "05/03/2001", "1234,5", "05/03/2001"])
    close_field(form)
    form.equal(form.list.InputModified, False)
    form.equal([row for row in form.happened() if "BeforeFieldUpdate" in row], [])


@scenario
def a_text_that_a_pattern_cannot_take_is_shown_as_it_is(form: Form) -> None:
    control = editable(form)
    control.ColFormat[0], control.ColFormat[1] = "dd/mm/yyyy", "0.00"
    open_field(form, 0, 0)
    form.equal(editor(form), (0, "a0"))
    place(form, 1)
    form.equal((editor(form), control.InputModified), ((1, "b0"), False))
    tells(form)


@scenario
def tab_stops_are_left_alone_without_MoveWithTab(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True] * 8)
    close_field(form)
    form.equal((form.of_parts(TAB_STOPS, "TabStop"), control.MoveWithTab), ([True] * 8, False))


@scenario
def MoveWithTab_takes_all_tab_stops_until_the_field_is_left(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    form.equal((form.of_parts(TAB_STOPS, "TabStop"), control.MoveWithTab), ([False] * 8, True))
    form.equal((editor(form), flags(form), form.focused()), ((0, "a0"), "Editing", ["InpFld"]))
    place(form, 1)
    form.equal((form.of_parts(TAB_STOPS, "TabStop"), control.MoveWithTab), ([True] * 8, False))
    form.equal((editor(form), form.focused()), ((1, "b0"), ["InpFld"]))


@scenario
def a_refused_field_stays_when_another_is_asked_for(form: Form) -> None:
    for with_tab in (False, True):
        control = editable(form)
        control.MoveWithTab = with_tab
        open_field(form, 0)
        control.type("xy")
        form.happened()
        cancel(form, "BeforeFieldUpdate")
        form.equal(control.SetInput(1), False)
        form.server.yield_()
        tells(form, offer(0, "xy"))
        form.equal((editor(form), form.focused(), line(form)), ((0, "a0"), ["InpFld"], ["a0", "b0", "c0"]))
        control.off("BeforeFieldUpdate")
        control.listen("*")
        control.Svuota(True)


@scenario
def SetInput_is_False_when_the_refused_focus_went_to_the_hosts_object(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1")
    open_field(form, 0)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    form.equal(control.SetInput(1), False)
    form.server.yield_()
    tells(form, offer(0, "xy"))
    form.equal((editor(form), form.focused(), flags(form)), (None, [], "InputModified"))


@scenario
def the_host_may_rewrite_what_is_typed(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.on("InputFieldChange")(lambda Value: {"Value": Value.upper()})
    control.type("x")
    form.tells(*text(0, "x", "X"))
    form.equal(caret(form), ["X", 0, 0])
    control.key(35)
    control.type("Y")
    form.equal(editor(form), (0, "XY"))


@scenario
def typed_text_left_alone_is_told_once_a_character(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("abc")
    form.equal(caret(form), ["abc", 3, 0])
    form.tells(*text(0, "a", "ab", "abc"))


@scenario
def a_host_that_always_changes_the_text_ends_with_an_error(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.on("InputFieldChange")(lambda Value: {"Value": Value + "x"})
    form.fails(28, lambda: control.type("a"))
    control.off("InputFieldChange")
    control.listen("*")
    control.type("b")
    form.equal((editor(form)[1][:1], control.Editing), ("b", True))


@scenario
def InputArray_is_the_cell_of_the_input_line(form: Form) -> None:
    control = editable(form)
    open_row(form, 2)
    form.equal([control.InputArray[col] for col in range(3)], ["a2", "b2", "c2"])
    control.InputArray[1] = "new"
    form.tells("changed InputArray")
    form.equal((line(form), control.InputModified), (["a2", "new", "c2"], True))


@scenario
def the_column_of_the_editor_outlives_it(form: Form) -> None:
    control = editable(form)
    control.ColEditable[0] = False
    open_field(form, 0, 2)
    close_field(form)
    control.double_click("GridIn", 60, 300)
    told = [row for row in form.happened() if row.startswith("InputLineDblClick")]
    form.equal(told, ['InputLineDblClick(Col=2, Value="")'])


@scenario
def the_open_field_goes_with_its_column(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0, 2)
    control.type("xy")
    form.happened()
    control.Cols = 2
    form.server.yield_()
    form.tells("changed Cols")
    form.equal((editor(form), flags(form), form.of_parts(TAB_STOPS, "TabStop")), (None, "InputModified", [True] * 8))
    control.OK()
    form.equal([control.TextMatrix[0, col] for col in range(2)], ["a0", "b0"])


@scenario
def the_start_of_a_row_looks_for_the_first_usable_column(form: Form) -> None:
    control = editable(form, cols=4)
    control.ColWidth[0] = 0
    control.ColEditable[1] = False
    control.AutoStartInputOnClick = True
    go(form, 1)
    form.equal(editor(form), (2, "c1"))
    adding(form)
    form.equal(line(form), [""] * 4)


@scenario
def a_pending_row_keeps_its_fields_over_SetInput(form: Form) -> None:
    editable(form)
    pending(form, 1, 0, "x")
    place(form, 0)
    form.equal(editor(form), (0, "x"))
    place(form, 1)
    form.equal((line(form), flags(form)), (["x", "b1", "c1"], "Editing InputModified"))
