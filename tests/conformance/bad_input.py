"""Input that is too long, of the wrong kind or out of place: what was typed is never lost."""

import krvlist
from editable_list import (
    ADD, CONFIRM, COPY, F5, INSERT, NO_COLUMN, START, adding, after, before, close_field, editable,
    editor, fill, flags, line, numbered, offer, open_field, open_row, pending, place, rows, tells, text,
)
from form import Form
from keys import ENTER, TAB
from scenarios import scenario


def fail_in(form: Form, event: str) -> None:
    """The host's handler of this event raises an error, from now on."""

    def fail() -> None:
        raise krvlist.HostError(1234, "not now")

    form.list.on(event)(fail)


def heal(form: Form, event: str) -> None:
    form.list.off(event)
    form.list.listen("*")


@scenario
def a_text_longer_than_the_field_is_kept(form: Form) -> None:
    control = editable(form)
    control.ColFieldLength[0] = 3
    control.TextMatrix[0, 0] = "longer than that"
    open_field(form, 0)
    form.equal((editor(form), control.part("InpFld")["MaxLength"]), ((0, "longer than that"), 3))
    control.key(35)
    control.type("x")
    form.equal(editor(form), (0, "longer than that"))
    control.key(8)
    form.equal(editor(form), (0, "longer than tha"))
    control.key(ENTER)
    form.equal(rows(form)[0], ["longer than tha", "b0", "c0"])


@scenario
def the_host_may_give_more_than_the_field_takes(form: Form) -> None:
    control = editable(form)
    control.ColFieldLength[0] = 2
    open_field(form, 0)
    control.type("xyz")
    form.equal(editor(form), (0, "xy"))
    control.on("BeforeFieldUpdate")(lambda: {"Value": "0123456789"})
    close_field(form)
    form.equal(line(form)[0], "0123456789")


@scenario
def lengths_count_characters(form: Form) -> None:
    control = editable(form)
    control.ColFieldLength[0] = 3
    open_field(form, 0)
    control.type("àèìò")
    form.equal(editor(form), (0, "àèì"))


@scenario
def tabs_and_line_ends_that_are_typed_do_not_come_into_the_text(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    control.type("ab\tcd")
    form.equal((editor(form), line(form)), ((1, "cd"), ["ab", "b0", "c0"]))
    form.happened()
    control.type("e\n")
    tells(form, offer(1, "cde"), CONFIRM, before(0, 1), after(0))
    form.equal(rows(form)[0], ["ab", "cde", "c0"])


@scenario
def tabs_and_line_ends_in_cells_come_through_the_editor(form: Form) -> None:
    control = editable(form)
    values = ("x\ty", "one\ntwo", "a\r\nb")
    fill(control, [list(values)])
    open_row(form, 0)
    for col in range(3):
        place(form, col)
    close_field(form)
    tells(form)
    form.equal((line(form), flags(form)), (list(values), ""))
    control.InputArray[2] = "new"
    control.OK()
    form.equal(rows(form), [["x\ty", "one\ntwo", "new"]])


@scenario
def line_ends_stay_in_new_rows(form: Form) -> None:
    control = editable(form)
    adding(form, "one\ntwo", "\t\tx", "a\r\nb")
    control.OK()
    form.equal(rows(form)[3:], [["one\ntwo", "  x", "a\r\nb"]])


@scenario
def tabs_that_the_host_gives_shift_no_column(form: Form) -> None:
    control = editable(form)
    control.Add()
    form.server.yield_()
    control.on("BeforeFieldUpdate")(lambda: {"Value": "x\ty\tz"})
    control.type("1")
    control.key(ENTER)
    form.equal(rows(form)[3:], [["x y z", "", ""]])


@scenario
def a_list_without_a_usable_column_says_so_each_time(form: Form) -> None:
    control = editable(form)
    for col in range(3):
        control.ColEditable[col] = False
    open_row(form, 1)
    for command, told in (("Insert", [INSERT]), ("Copy", [COPY]), ("Add", [ADD, START])):
        control.call(command)
        form.server.yield_()
        form.tells(*told, NO_COLUMN)
    form.equal(editor(form), None)
    control.InputArray[0] = "by the host"
    control.OK()
    form.equal(rows(form)[3:], [["by the host", "", ""]])


@scenario
def a_line_number_column_beyond_the_last_is_an_error_and_loses_nothing(form: Form) -> None:
    control = editable(form)
    for col in (3, 99, 2147483647):
        for command in ("Add", "Insert", "Copy"):
            control.LineNumberColumn = col
            open_row(form, 1)
            form.fails(381, lambda: control.call(command))
            form.server.yield_()
            form.equal(rows(form), [[f"{name}{row}" for name in "abc"] for row in range(3)])
            control.LineNumberColumn = -1
            open_row(form, 0)
            adding(form, command)
            control.OK()
            form.equal(rows(form)[3:], [[command, "", ""]])
            control.Rows = 3
            form.server.yield_()


@scenario
def a_row_inserted_under_a_bad_line_number_column_stays_open(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.Insert()
    form.server.yield_()
    control.type("new")
    control.LineNumberColumn = 7
    for _ in range(2):
        form.fails(381, control.OK)
        form.equal((control.Rows, line(form), flags(form)), (3, ["new", "", ""], "Inserting InputModified"))
    control.LineNumberColumn = -1
    control.OK()
    form.equal([row[0] for row in rows(form)], ["a0", "new", "a1", "a2"])


@scenario
def a_row_overwritten_under_a_bad_line_number_column_is_stored(form: Form) -> None:
    control = editable(form)
    pending(form, 0, 0, "x")
    control.LineNumberColumn = 7
    form.happened()
    control.OK()
    form.tells(CONFIRM, before(0, 0), after(0), *text(0, "x"))
    form.equal(rows(form)[0], ["x", "b0", "c0"])


@scenario
def negative_line_number_columns_mean_none(form: Form) -> None:
    control = editable(form)
    for col in (-1, -2, -2147483648):
        control.LineNumberColumn = col
        adding(form, "one")
        control.OK()
    form.equal([row[0] for row in rows(form)[3:]], ["one"] * 3)


@scenario
def line_numbers_that_are_none_count_as_0(form: Form) -> None:
    control = numbered(form, "x", "?", "--")
    open_row(form, 2)
    control.Insert()
    form.server.yield_()
    form.equal(line(form), ["--", ""])
    control.type("new")
    control.key(ENTER)
    form.equal([row[0] for row in rows(form)], ["x", "?", "1", "2"])


@scenario
def more_columns_than_the_counter_holds_are_error_6(form: Form) -> None:
    control = editable(form, 0, 3)
    control.Cols = 32769
    form.happened()
    form.fails(6, control.Add)
    form.server.yield_()
    form.tells(ADD)
    form.equal((flags(form), control.part("GridIn")["Visible"]), ("", False))
    control.Rows = 1
    control.TextMatrix[0, 32768] = "last"
    open_row(form, 0)
    form.fails(6, control.Insert)
    control.Cols = 3
    adding(form, "one")
    control.OK()
    form.equal(rows(form)[1:], [["one", "", ""]])
    control.Svuota(True)


@scenario
def the_last_column_that_the_counter_holds_works(form: Form) -> None:
    control = editable(form, 0, 3)
    control.Cols = 32768
    control.ColEditable[32767] = True
    adding(form, "one")
    control.InputArray[32767] = "last"
    control.OK()
    form.equal((control.TextMatrix[0, 0], control.TextMatrix[0, 32767]), ("one", "last"))
    control.Cols = 3


@scenario
def an_error_in_any_event_of_the_confirm_loses_no_text(form: Form) -> None:
    for event in ("BeforeFieldUpdate", "InputFieldChange", "OKClick", "BeforeRowUpdate", "AfterRowUpdated"):
        control = editable(form)
        open_field(form, 1, 2)
        control.type("typed")
        fail_in(form, event)
        if event == "InputFieldChange":
            control.on("BeforeFieldUpdate")(lambda: {"Value": "typed!"})
        form.fails(1234, control.OK)
        heal(form, event)
        heal(form, "BeforeFieldUpdate")
        form.server.yield_()
        if event != "AfterRowUpdated":
            form.equal((control.TextMatrix[1, 2], flags(form).replace("Editing ", "")), ("c1", "InputModified"))
            control.OK()
            form.server.yield_()
        form.equal(control.TextMatrix[1, 2].rstrip("!"), "typed")
        control.Svuota(True)


@scenario
def an_error_in_the_events_of_Add_leaves_a_row_that_can_be_used(form: Form) -> None:
    for event in ("AddClick", "LineEditStart"):
        control = editable(form)
        fail_in(form, event)
        form.fails(1234, control.Add)
        heal(form, event)
        form.server.yield_()
        control.key(F5, part="Grid")
        control.type(event)
        control.key(ENTER)
        form.equal(rows(form)[3:], [[event, "", ""]])
        control.Svuota(True)


@scenario
def an_error_in_AfterRowDelete_comes_after_the_removal(form: Form) -> None:
    control = editable(form)
    form.server.on_message(lambda text, buttons, title: "yes")
    open_row(form, 1)
    fail_in(form, "AfterRowDelete")
    form.fails(1234, control.Delete)
    heal(form, "AfterRowDelete")
    form.equal([row[0] for row in rows(form)], ["a0", "a2"])
    control.Delete()
    form.equal([row[0] for row in rows(form)], ["a0"])


@scenario
def an_error_while_a_field_is_left_by_a_click_keeps_it(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("typed")
    fail_in(form, "BeforeFieldUpdate")
    form.fails(1234, lambda: control.click("Grid", 60, 300))
    form.server.yield_()
    heal(form, "BeforeFieldUpdate")
    form.equal((editor(form), form.focused()), ((0, "typed"), ["InpFld"]))
    form.happened()
    close_field(form)
    form.tells(offer(0, "typed"))


@scenario
def an_error_in_the_double_click_keeps_cell_and_text(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("typed")
    fail_in(form, "InputLineDblClick")
    form.fails(1234, lambda: control.double_click("InpFld", 60, 60))
    heal(form, "InputLineDblClick")
    form.server.yield_()
    form.equal((editor(form), line(form)), ((0, "typed"), ["a1", "b1", "c1"]))
    form.equal((form.focused(), flags(form)), (["InpFld"], "Editing InputModified"))


@scenario
def an_error_while_a_key_moves_the_field_keeps_it(form: Form) -> None:
    control = editable(form)
    for key, shift in ((39, krvlist.CTRL), (37, krvlist.CTRL), (TAB, 0), (TAB, krvlist.SHIFT), (ENTER, 0), (F5, 0)):
        control.MoveWithTab = key == TAB
        open_field(form, 1, 1)
        control.type("typed")
        fail_in(form, "BeforeFieldUpdate")
        form.fails(1234, lambda: control.key(key, shift))
        heal(form, "BeforeFieldUpdate")
        form.server.yield_()
        form.equal((editor(form), line(form)), ((1, "typed"), ["a1", "b1", "c1"]))
        control.key(27)
        control.OkVisible = False
        close_field(form)
        control.Row = -1
        form.server.yield_()
        form.happened()


@scenario
def values_out_of_range_change_nothing_in_an_open_row(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("typed")
    form.happened()
    form.fails(381, lambda: control.put("InputArray", 3, "x"))
    form.fails(381, lambda: control.put("InputArray", -1, "x"))
    form.fails(30009, lambda: control.put("Row", 3))
    form.fails(30009, lambda: control.put("Row", -2))
    form.fails(13, lambda: control.call("SetInput", "x"))
    form.fails(6, lambda: control.call("SetInput", 1e10))
    form.fails(450, lambda: control.call("SetInput"))
    form.tells()
    form.equal((editor(form), flags(form)), ((0, "typed"), "Editing InputModified"))


@scenario
def texts_of_all_kinds_come_through_unchanged(form: Form) -> None:
    control = editable(form)
    values = ("\U0001f600 è ß 日本", "' \" ; --", "x" * 20000)
    adding(form, *values)
    control.OK()
    form.equal(rows(form)[3:], [list(values)])
    open_row(form, 3)
    for col in range(3):
        place(form, col)
        form.equal(editor(form), (col, values[col]))
    close_field(form)
    tells(form)


@scenario
def a_field_that_is_typed_beyond_the_basic_plane(form: Form) -> None:
    control = editable(form)
    open_field(form, 0)
    control.type("a\U0001f600b")
    form.equal(editor(form), (0, "a\U0001f600b"))
    control.key(39)  # the caret is at the end: the next field
    form.equal((editor(form), line(form)), ((1, "b0"), ["a\U0001f600b", "b0", "c0"]))
    form.equal(text(1, "b0")[0] in form.happened(), True)
