"""Keys in the field editor that drop, confirm, start a command or mark the row as modified."""

import krvlist
from editable_list import (
    ADD, CONFIRM, DELETE, DROP, ESCAPE, F5, F6, F7, INSERT, REMOVE, START, adding, after, answers,
    before, cancel, caret, close_field, editable, editor, flags, line, offer, open_field, opened, place,
    rows, selection, shown, tells, text,
)
from form import TAB_STOPS, Form
from keys import DOWN, ENTER, UP
from scenarios import scenario


@scenario
def Escape_gives_the_cells_text_back(form: Form) -> None:
    control = editable(form)
    control.InputArray[2] = "kept"
    open_field(form, 0, 1)
    control.type("x")
    control.OkVisible = False
    form.happened()
    control.key(ESCAPE)
    form.tells(*text(1, "b0"))
    form.equal((editor(form), caret(form), line(form)), ((1, "b0"), ["b0", 0, 2], ["a0", "b0", "c0"]))
    form.equal((form.focused(), flags(form)), (["InpFld"], "Editing"))


@scenario
def Escape_leaves_InputModified_as_it_was(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 1)
    control.type("xy")
    form.equal(control.InputModified, True)
    control.key(ESCAPE)
    form.equal((editor(form), flags(form)), ((1, "b0"), "Editing InputModified"))


@scenario
def Escape_offers_nothing_whatever_the_pattern(form: Form) -> None:
    patterns = ("", "dd/mm/yyyy", "#,##0.00", "0%", "d mmm")
    control = editable(form, 1, 5)
    cells = ("x", "05/03/2001", "1.234,50", "50%", "5 mar")
    for col, (pattern, cell) in enumerate(zip(patterns, cells)):
        control.ColFormat[col] = pattern
        control.TextMatrix[0, col] = cell
    open_field(form, 0)
    for col in range(5):
        place(form, col)
        before_typing = editor(form)
        control.type("9")
        control.key(ESCAPE)
        form.equal(editor(form), before_typing)
    close_field(form)
    tells(form)
    form.equal(line(form), list(cells))


@scenario
def Escape_gives_tab_stops_back(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    control.key(ESCAPE)
    form.equal((editor(form), control.MoveWithTab, form.focused()), ((0, "a0"), False, ["InpFld"]))
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True] * 8)


@scenario
def function_keys_reach_the_commands_and_the_host(form: Form) -> None:
    control = editable(form)
    for event in ("AddClick", "InsertClick", "DeleteClick", "CopyClick"):
        cancel(form, event)
    open_field(form, 0, 1)
    told = []
    for code in range(112, 124):
        control.key(code, krvlist.SHIFT)
        told += form.happened()
    commands = [f"{name}Click(Cancel=false)" for name in ("Add", "Insert", "Delete", "Copy")]
    others = [f"KeyDown(KeyCode={code}, Shift=1, Col=1)" for code in range(112, 124) if code not in range(116, 120)]
    form.equal(told, others[:4] + commands + others[4:])
    form.equal((editor(form), flags(form)), ((1, "b0"), "Editing"))


@scenario
def no_other_key_of_the_editor_reaches_the_host(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 1)
    for code in (32, 65, 33, 34, 35, 36, 45, 8, 46, 17, 231):
        control.key(code)
    tells(form)


@scenario
def the_second_character_in_an_empty_field_modifies_the_row(form: Form) -> None:
    control = editable(form)
    control.TextMatrix[0, 0] = ""
    open_field(form, 0)
    seen = []
    for character in "12":
        control.type(character)
        seen.append(control.InputModified)
    form.equal(seen, [False, True])


@scenario
def leaving_a_field_with_one_character_modifies_the_row(form: Form) -> None:
    control = editable(form)
    control.TextMatrix[0, 0] = ""
    control.OkVisible = False
    open_field(form, 0)
    control.type("1")
    form.equal(control.InputModified, False)
    close_field(form)
    form.equal((control.InputModified, line(form)), (True, ["1", "b0", "c0"]))


@scenario
def keys_that_change_nothing_leave_the_row_unmodified(form: Form) -> None:
    control = editable(form)
    cancel(form, "AddClick")
    open_field(form, 0)
    for code in (8, 17, 16, 18, 0, 3, UP, DOWN, F5, ESCAPE):
        control.key(code)
        form.equal((code, control.InputModified), (code, False))
    control.key(19)
    form.equal(control.InputModified, True)


@scenario
def typing_in_a_hidden_confirm_button_is_not_shown(form: Form) -> None:
    control = editable(form)
    control.OkVisible = False
    open_field(form, 0)
    control.type("xyz")
    form.equal(control.InputModified, False)
    close_field(form)
    form.equal(control.InputModified, True)


@scenario
def Enter_confirms_the_row(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    control.type("new")
    form.happened()
    control.key(ENTER)
    form.tells(offer(2, "new"), CONFIRM, before(1, 2), after(1))
    form.equal((rows(form)[1], flags(form), editor(form)), (["a1", "b1", "new"], "Modified", None))


@scenario
def Enter_on_an_untouched_row_stores_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.key(ENTER)
    form.tells()
    form.equal((rows(form)[1], shown(form)), (["a1", "b1", "c1"], "GridIn btnAdd btnInsert btnCopy btnDelete"))


@scenario
def Enter_after_an_appended_row_opens_the_next(form: Form) -> None:
    control = editable(form)
    control.Add()
    form.server.yield_()
    control.type("one")
    control.AutoAdd = True
    form.happened()
    control.key(ENTER)
    tells(form, offer(0, "one"), CONFIRM, before(-1, 0), after(-1), *[ADD, START] * 3)
    form.equal((rows(form)[3:], line(form)), ([["one", "", ""]], ["", "", ""]))
    form.equal((editor(form), flags(form), form.focused()), ((0, ""), "Adding Editing Modified", ["InpFld"]))


@scenario
def Enter_after_an_existing_row_adds_by_the_commit_alone(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("one")
    control.AutoAdd = True
    form.happened()
    control.key(ENTER)
    tells(form, offer(0, "one"), CONFIRM, before(1, 0), after(1), *[ADD, START] * 2)
    form.equal((rows(form)[1], flags(form)), (["one", "b1", "c1"], "Adding Editing Modified"))


@scenario
def function_keys_on_a_typed_field_ask_first(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    answers(form, "no")
    control.key(F5)
    tells(form, ADD, offer(0, "xy"), DROP)
    form.equal((line(form), selection(form), flags(form)), (["xy", "b1", "c1"], [2, 0, 2, 2], "InputModified"))
    answers(form, "yes")
    control.key(F7, part="Grid")
    form.tells(DELETE, REMOVE, "AfterRowDelete(DeletedRow=2)")
    form.equal([row[0] for row in rows(form)], ["a0", "a2"])


@scenario
def F6_in_a_typed_field_empties_the_line_without_a_question(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    control.key(F6)
    form.tells(INSERT, *text(0, ""))
    form.equal((line(form), editor(form), flags(form)), (["", "", ""], (0, ""), "Inserting Editing InputModified"))


@scenario
def F7_declined_keeps_what_is_typed(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    answers(form, "no")
    control.key(F7)
    tells(form, DELETE, REMOVE)
    form.equal((editor(form), form.focused(), line(form)), ((0, "xy"), ["InpFld"], ["a1", "b1", "c1"]))


@scenario
def Enter_leaves_a_new_row_with_a_refused_confirm_alone(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.AutoAdd = True
    place(form, 1)
    control.type("two")
    form.happened()
    cancel(form, "OKClick")
    control.key(ENTER)
    tells(form, offer(1, "two"), CONFIRM)
    form.equal((line(form), control.Rows, flags(form)), (["one", "two", ""], 3, "Adding InputModified"))
    answers(form, "yes")
    control.Row = 0
    tells(form, DROP, *opened(0), "changed Row")
