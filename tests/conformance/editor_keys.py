"""Keys that move the field editor and the caret in it."""

import krvlist
from editable_list import (
    caret, close_field, editable, editor, flags, line, object_of_host, offer, open_field, place,
    selection, tells, text,
)
from form import TAB_STOPS, Form
from keys import DOWN, END, LEFT, MODIFIERS, RIGHT, TAB, UP
from scenarios import scenario


@scenario
def Tab_moves_right_once_for_a_MoveWithTab(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    control.type("x")
    form.happened()
    control.key(TAB)
    form.tells(offer(0, "x"), *text(1, "b0"))
    form.equal((editor(form), line(form), control.MoveWithTab), ((1, "b0"), ["x", "b0", "c0"], False))
    control.key(TAB)
    form.equal((editor(form), form.focused(), control.Editing), (None, ["btnAdd"], False))


@scenario
def Tab_moves_on_while_the_host_asks_for_it_again(form: Form) -> None:
    control = editable(form, cols=4)
    control.ColEditable[2] = False
    open_field(form, 0)
    walk = []
    for shift in (0, 0, 0, krvlist.SHIFT, krvlist.SHIFT, krvlist.SHIFT):
        stands = editor(form)[0]
        close_field(form)
        control.MoveWithTab = True
        place(form, stands)
        control.key(TAB, shift)
        walk.append([editor(form)[0], control.MoveWithTab])
    form.equal(walk, [[col, False] for col in (1, 3, 3, 1, 0, 0)])


@scenario
def Tab_in_the_last_column_stays(form: Form) -> None:
    for last in (2, 1):
        control = editable(form)
        control.ColEditable[2] = last == 2
        control.MoveWithTab = True
        open_field(form, 0, last)
        control.key(TAB)
        form.tells()
        form.equal((editor(form), flags(form)), ((last, f"{'abc'[last]}0"), "Editing"))
        form.equal((form.focused(), control.MoveWithTab), (["InpFld"], False))
        control.Svuota(True)


@scenario
def Shift_Tab_in_the_first_column_stays(form: Form) -> None:
    for first in (0, 1):
        control = editable(form)
        control.ColEditable[0] = first == 0
        control.MoveWithTab = True
        open_field(form, 0, first)
        control.key(TAB, krvlist.SHIFT)
        form.tells()
        form.equal((editor(form), form.focused()), ((first, f"{'ab'[first]}0"), ["InpFld"]))
        control.Svuota(True)


@scenario
def Shift_Tab_moves_left_past_columns_that_cannot_be_edited(form: Form) -> None:
    control = editable(form, cols=4)
    control.ColEditable[2] = False
    control.ColWidth[1] = 0
    control.MoveWithTab = True
    open_field(form, 0, 3)
    control.type("x")
    form.happened()
    control.key(TAB, krvlist.SHIFT)
    form.tells(offer(3, "x"), *text(0, "a0"))
    form.equal((editor(form), line(form)), ((0, "a0"), ["a0", "b0", "c0", "x"]))


@scenario
def Tab_with_other_modifiers_is_swallowed(form: Form) -> None:
    control = editable(form)
    control.MoveWithTab = True
    open_field(form, 0)
    control.type("xy")
    form.happened()
    for shift in (krvlist.CTRL, krvlist.ALT, krvlist.SHIFT + krvlist.CTRL, 7):
        control.key(TAB, shift)
        form.equal((editor(form), form.focused(), control.MoveWithTab), ((0, "xy"), ["InpFld"], True))
    form.tells()


@scenario
def arrows_move_the_caret_inside_the_text(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 1)
    control.type("abcd")
    form.happened()
    carets = []
    for key in (LEFT, LEFT, RIGHT, 36, RIGHT, END):
        control.key(key)
        carets.append(caret(form)[1])
    form.equal((carets, editor(form)), ([3, 2, 3, 0, 1, 4], (1, "abcd")))
    form.tells()


@scenario
def arrows_at_the_ends_of_the_text_move_the_field(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 1)
    control.key(LEFT)  # all is selected, the selection starts at 0
    form.equal(editor(form), (0, "a0"))
    control.key(RIGHT)
    form.equal((editor(form), caret(form)), ((0, "a0"), ["a0", 2, 0]))
    control.key(RIGHT)
    form.equal(editor(form), (1, "b0"))
    form.tells(*text(0, "a0"), *text(1, "b0"))


@scenario
def arrows_with_Ctrl_move_the_field_from_anywhere(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 1)
    control.type("abcd")
    control.key(LEFT)
    form.happened()
    control.key(RIGHT, krvlist.CTRL)
    form.tells(offer(1, "abcd"), *text(2, "c0"))
    control.key(END)
    control.key(LEFT, krvlist.CTRL)
    form.tells(*text(1, "abcd"))
    form.equal((editor(form), line(form)), ((1, "abcd"), ["a0", "abcd", "c0"]))


@scenario
def arrows_at_the_outer_columns_stay(form: Form) -> None:
    control = editable(form)
    open_field(form, 0, 0)
    control.key(LEFT)
    form.equal((editor(form), form.focused()), ((0, "a0"), ["InpFld"]))
    place(form, 2)
    control.key(RIGHT, krvlist.CTRL)
    form.equal((editor(form), form.focused()), ((2, "c0"), ["InpFld"]))
    tells(form)


@scenario
def up_and_down_do_nothing_in_the_editor(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    for shift in MODIFIERS:
        control.key(UP, shift)
        control.key(DOWN, shift)
    form.tells()
    form.equal((selection(form)[0], editor(form), flags(form)), (2, (0, "a1"), "Editing"))


@scenario
def the_hosts_object_comes_before_the_columns(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1")
    for key, shift in ((RIGHT, krvlist.CTRL), (LEFT, 0), (TAB, 0), (TAB, krvlist.SHIFT)):
        control.MoveWithTab = key == TAB
        open_field(form, 0, 1)
        control.key(key, shift)
        tells(form)
        form.equal((form.focused(), editor(form), flags(form)), ([], None, ""))
        form.equal((line(form), form.of_parts(TAB_STOPS, "TabStop")), (["a0", "b0", "c0"], [True] * 8))


@scenario
def text_is_stored_when_the_hosts_object_takes_the_focus(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1")
    open_field(form, 0, 1)
    control.type("xy")
    form.happened()
    control.key(RIGHT)
    form.tells(offer(1, "xy"))
    form.equal((line(form), flags(form), form.focused()), (["a0", "xy", "c0"], "InputModified", []))


@scenario
def an_object_that_takes_no_focus_leaves_the_columns(form: Form) -> None:
    control = editable(form)
    object_of_host(form, "o1", focusable=False)
    open_field(form, 0, 1)
    control.key(RIGHT, krvlist.CTRL)
    form.equal(editor(form), (2, "c0"))
    control.key(LEFT)
    form.equal(editor(form), (1, "b0"))
    control.GiveFocusTo = None
    control.key(LEFT)
    form.equal(editor(form), (0, "a0"))
