"""Clicks and row changes in the list: which row comes into the input line, and what is asked before."""

import krvlist
from editable_list import (
    DROP, F6, START, adding, answers, cancel, editable, editor, flags, go, line, offer, open_field,
    open_row, opened, pending, rows, selection, shown, tells,
)
from form import Form
from keys import DOWN, UP
from scenarios import scenario

BROWSING = "btnAdd"
ROW_OPEN = "GridIn btnAdd btnInsert btnCopy btnDelete"


def y_of(form: Form, row: int) -> int:
    """A height inside a row of the list."""
    return int(form.list.RowPos[row]) + 100


@scenario
def a_row_that_becomes_current_comes_into_the_input_line(form: Form) -> None:
    editable(form)
    form.equal(shown(form), BROWSING)
    go(form, 1)
    form.tells(*opened(1), "changed Row")
    form.equal((line(form), shown(form), flags(form)), (["a1", "b1", "c1"], ROW_OPEN, ""))


@scenario
def the_first_run_on_the_caption_row_does_nothing(form: Form) -> None:
    control = editable(form)
    control.CopyVisible = True
    control.mouse("Grid", "press", 100, 100)
    form.equal((selection(form)[0], control.part("btnCopy")["Visible"]), (0, True))
    form.tells("changed CopyVisible")


@scenario
def the_caption_row_hides_the_commands_of_a_row(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.click("Grid", 100, 100)
    form.tells()
    form.equal((control.Row, shown(form), line(form)), (-1, "GridIn btnAdd", ["a1", "b1", "c1"]))


@scenario
def No_keeps_the_edited_row_selected_across_all_columns(form: Form) -> None:
    editable(form)
    pending(form, 1)
    answers(form, "no")
    go(form, 2)
    form.tells(DROP, "changed Row")
    form.equal((selection(form), line(form)), ([2, 0, 2, 2], ["a1", "b1", "new"]))
    form.equal((shown(form), flags(form)), (f"{ROW_OPEN} btnOK", "InputModified"))


@scenario
def No_gives_the_editor_the_focus_when_a_click_starts_the_input(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.AutoStartInputOnClick = True
    form.happened()
    answers(form, "no")
    go(form, 0)
    tells(form, DROP, "changed Row")
    form.equal((editor(form), form.focused(), flags(form)), ((0, "a1"), ["InpFld"], "Editing InputModified"))


@scenario
def Yes_drops_the_edit_and_opens_the_other_row(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    answers(form, "yes")
    control.click("Grid", 1000, y_of(form, 2))
    click = f"ListClick(Button=1, Shift=0, x=1000, y={y_of(form, 2)}, Row=2, Col=1)"
    form.tells(DROP, *opened(2), click)
    form.equal((line(form), control.TextMatrix[1, 2], flags(form)), (["a2", "b2", "c2"], "c1", ""))
    form.equal(shown(form), ROW_OPEN)


@scenario
def Yes_on_the_caption_row_leaves_no_row_open(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    answers(form, "yes")
    control.click("Grid", 100, 100)
    form.tells(DROP)
    form.equal((control.Row, shown(form), flags(form)), (-1, BROWSING, ""))


@scenario
def a_row_opened_after_a_dropped_new_row_is_overwritten(form: Form) -> None:
    control = editable(form)
    adding(form, "x")
    form.equal(flags(form), "Adding InputModified")
    answers(form, "yes")
    go(form, 1)
    form.equal(flags(form), "")
    control.InputArray[0] = "y"
    control.OK()
    form.equal((control.Rows, control.TextMatrix[1, 0]), (3, "y"))


@scenario
def a_row_opened_after_a_dropped_insertion_is_overwritten(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.key(F6, part="Grid")
    control.type("x")
    form.equal((flags(form), editor(form)), ("Inserting Editing", (0, "x")))
    answers(form, "yes")
    control.on("BeforeFieldUpdate")(lambda: {"Cancel": True})  # is not asked for a dropped edit
    go(form, 2)
    form.equal((flags(form), line(form)), ("", ["a2", "b2", "c2"]))
    control.InputArray[0] = "y"
    control.OK()
    form.equal((control.Rows, [control.TextMatrix[row, 0] for row in range(3)]), (3, ["a0", "a1", "y"]))


@scenario
def one_typed_character_is_asked_for_too(form: Form) -> None:
    control = editable(form)
    control.TextMatrix[1, 0] = ""
    open_field(form, 1)
    control.type("x")
    form.equal(control.InputModified, False)
    answers(form, "no", "yes")
    form.happened()
    go(form, 2)
    tells(form, DROP, "changed Row")
    form.equal((control.Row, editor(form), line(form)), (1, (0, "x"), ["", "b1", "c1"]))
    go(form, 2)
    tells(form, DROP, offer(0, "x"), *opened(2), "changed Row")
    form.equal((line(form), control.TextMatrix[1, 0]), (["a2", "b2", "c2"], ""))


@scenario
def a_new_row_without_changes_is_left_without_a_question(form: Form) -> None:
    control = editable(form)
    control.Add()
    form.server.yield_()
    form.happened()
    go(form, 0)
    tells(form, *opened(0), "changed Row")
    form.equal((flags(form), line(form)), ("", ["a0", "b0", "c0"]))


@scenario
def No_restores_nothing_when_the_edited_row_is_gone(form: Form) -> None:
    for rows in (2, 0):
        control = editable(form)
        pending(form, 2)
        answers(form, "no")
        control.Rows = rows
        form.server.yield_()
        form.tells("changed Rows", DROP)
        form.equal((control.Row, line(form), flags(form)), (rows - 1, ["a2", "b2", "new"], "InputModified"))
        answers(form, "yes")
        control.Svuota(True)


@scenario
def a_refused_field_gives_row_and_selection_back(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.SendKeys(DOWN, 0)
    tells(form, offer(2, "xy"))
    form.equal((selection(form), editor(form), form.focused()), ([2, 0, 2, 2], (2, "c1"), ["InpFld"]))


@scenario
def a_click_out_of_a_refused_field_is_dropped(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    control.click("Grid", 100, y_of(form, 2))
    tells(form, offer(0, "xy"))
    form.equal((control.Row, editor(form), line(form)), (1, (0, "a1"), ["a1", "b1", "c1"]))


@scenario
def disabled_buttons_leave_the_input_line_alone(form: Form) -> None:
    control = editable(form)
    open_row(form, 0)
    control.Enabled = False
    form.happened()
    control.click("Grid", 100, y_of(form, 2))
    form.tells(f"ListClick(Button=1, Shift=0, x=100, y={y_of(form, 2)}, Row=2, Col=0)")
    form.equal((control.Row, line(form)), (2, ["a0", "b0", "c0"]))


@scenario
def the_same_row_again_opens_nothing(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    go(form, 1)
    form.tells("changed Row")
    control.click("Grid", 100, y_of(form, 1))
    form.tells(f"ListClick(Button=1, Shift=0, x=100, y={y_of(form, 1)}, Row=1, Col=0)")


@scenario
def a_click_opens_the_last_row_again_when_no_row_is_open(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.OK()
    form.happened()
    form.equal(shown(form), "btnAdd btnInsert btnCopy btnDelete")
    y = y_of(form, 1)
    control.click("Grid", 100, y)
    form.tells(f"ListClick(Button=1, Shift=0, x=100, y={y}, Row=1, Col=0)", *opened(1))
    form.equal((line(form), shown(form)), (["a1", "b1", "new"], ROW_OPEN))


@scenario
def a_row_that_comes_into_the_input_line_is_not_modified(form: Form) -> None:
    control = editable(form)
    control.OkVisible = True
    form.equal(control.InputModified, True)
    form.happened()
    go(form, 1)
    form.tells(*opened(1), "changed Row")
    form.equal((control.InputModified, shown(form)), (False, ROW_OPEN))


@scenario
def wanted_buttons_show_with_the_row(form: Form) -> None:
    control = editable(form)
    control.InsertVisible = control.DeleteVisible = control.CopyVisible = False
    seen = []
    for number, name in enumerate(("InsertVisible", "DeleteVisible", "CopyVisible")):
        control.put(name, True)
        control.on("LineEditStart")(lambda: seen.append(shown(form)))
        go(form, number)
        control.off("LineEditStart")
        control.listen("*")
    want = "GridIn btnAdd btnInsert", "GridIn btnAdd btnInsert btnDelete", ROW_OPEN
    form.equal(seen, want)


@scenario
def a_click_starts_the_input_when_it_is_wanted(form: Form) -> None:
    control = editable(form)
    control.ColEditable[0] = False
    control.AutoStartInputOnClick = True
    form.happened()
    y = y_of(form, 1)
    control.click("Grid", 2000, y)
    tells(form, *opened(1), f"ListClick(Button=1, Shift=0, x=2000, y={y}, Row=1, Col=2)")
    form.equal((editor(form), form.focused(), flags(form)), ((1, "b1"), ["InpFld"], "Editing"))


@scenario
def a_list_without_editable_columns_opens_rows_without_a_message(form: Form) -> None:
    control = editable(form)
    for col in range(3):
        control.ColEditable[col] = False
    control.AutoStartInputOnClick = True
    form.happened()
    go(form, 1)
    form.tells(*opened(1), "changed Row")
    form.equal((editor(form), line(form)), (None, ["a1", "b1", "c1"]))


@scenario
def a_row_change_inside_RowSelect_is_refused(form: Form) -> None:
    control = editable(form)

    def elsewhere() -> None:
        control.off("RowSelect")
        control.listen("*")
        control.Row = 2

    control.on("RowSelect")(elsewhere)
    control.Row = 1
    form.tells("RowSelect(Row=1)", "changed Row", START, "changed Row")
    form.equal((control.Row, line(form)), (2, ["a1", "b1", "c1"]))
    go(form, 0)
    form.tells(*opened(0), "changed Row")


@scenario
def an_error_in_RowSelect_lets_the_next_row_open(form: Form) -> None:
    control = editable(form)

    def fail() -> None:
        raise krvlist.HostError(1234, "no")

    control.on("RowSelect")(fail)
    form.fails(1234, lambda: control.put("Row", 1))
    control.off("RowSelect")
    control.listen("*")
    form.happened()
    go(form, 2)
    form.tells(*opened(2), "changed Row")


@scenario
def the_caption_row_keeps_a_pending_edit_at_No(form: Form) -> None:
    editable(form)
    pending(form, 0)
    answers(form, "no")
    go(form, -1)
    form.tells(DROP, "changed Row")
    form.equal((selection(form), shown(form)), ([1, 0, 1, 2], f"{ROW_OPEN} btnOK"))


@scenario
def arrows_ask_for_a_pending_edit(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    answers(form, "no", "yes")
    control.SendKeys(DOWN, 0)
    tells(form, offer(0, "xy"), DROP)
    form.equal((selection(form), line(form), editor(form)), ([2, 0, 2, 2], ["xy", "b1", "c1"], None))
    control.SendKeys(UP, 0)
    tells(form, DROP, *opened(0))
    form.equal((selection(form), line(form)), ([1, 0, 1, 2], ["a0", "b0", "c0"]))
