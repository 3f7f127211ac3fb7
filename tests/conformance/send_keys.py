"""SendKeys: every key, while no row, a row, a field is open."""

from editable_list import (
    ADD, CONFIRM, DROP, F5, F6, F7, F8, START, adding, after, answers, before, editable, editor, flags,
    line, offer, open_field, open_row, pending, rows, selection, tells,
)
from form import Form
from keys import DOWN, ENTER, MODIFIERS, TAB, UP
from scenarios import scenario

USED = (TAB, ENTER, UP, DOWN, F5, F6, F7, F8)
OTHERS = [code for code in range(256) if code not in USED]


@scenario
def every_other_key_is_told_with_the_column_being_edited(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    for col in (-1, 0, 2):
        if col >= 0:
            open_field(form, 1, col)
        for code in OTHERS:
            control.SendKeys(code, 5)
        form.tells(*[f"KeyDown(KeyCode={code}, Shift=5, Col={col})" for code in OTHERS])
        form.equal((flags(form), line(form)), ("Editing" if col >= 0 else "", ["a1", "b1", "c1"]))


@scenario
def keys_that_are_sent_never_reach_the_text(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    for code in (65, 8, 46, 37, 39, 27, 36, 35):
        control.SendKeys(code, 0)
    form.equal((editor(form), flags(form)), ((0, "xy"), "Editing InputModified"))


@scenario
def a_sent_Tab_does_nothing(form: Form) -> None:
    control = editable(form)
    for col in (None, 1):
        if col is not None:
            control.MoveWithTab = True
            open_field(form, 1, col)
        for shift in MODIFIERS:
            control.SendKeys(TAB, shift)
        form.tells()
    form.equal((editor(form), control.MoveWithTab), ((1, "b1"), True))


@scenario
def a_sent_confirm_key_confirms_the_open_field(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    control.type("xy")
    form.happened()
    control.SendKeys(ENTER, 0)
    form.tells(offer(2, "xy"), CONFIRM, before(1, 2), after(1))
    form.equal((rows(form)[1], flags(form)), (["a1", "b1", "xy"], "Modified"))


@scenario
def a_sent_confirm_key_leaves_an_unchanged_row_open(form: Form) -> None:
    control = editable(form)
    open_field(form, 1, 2)
    control.SendKeys(ENTER, 0)
    form.tells()
    form.equal((editor(form), line(form), flags(form)), (None, ["a1", "b1", "c1"], ""))


@scenario
def a_sent_confirm_key_adds_by_the_commit_alone(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.AutoAdd = True
    form.happened()
    control.SendKeys(ENTER, 0)
    form.server.yield_()
    tells(form, CONFIRM, before(-1, 0), after(-1), *[ADD, START] * 2)


@scenario
def sent_arrows_close_the_field_and_move_the_row(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.SendKeys(DOWN, 0)
    form.server.yield_()
    form.equal((selection(form), line(form), editor(form)), ([3, 0, 3, 2], ["a2", "b2", "c2"], None))
    open_field(form, 2)
    control.SendKeys(DOWN, 0)
    form.equal((selection(form)[0], editor(form)), (3, (0, "a2")))
    control.SendKeys(UP, 0)
    form.server.yield_()
    form.equal((selection(form), line(form), editor(form)), ([2, 0, 2, 2], ["a1", "b1", "c1"], None))
    form.equal([told for told in form.happened() if "message" in told], [])


@scenario
def sent_arrows_ask_for_a_pending_row(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    answers(form, "no", "yes")
    control.SendKeys(DOWN, 0)
    form.tells(DROP)
    form.equal((selection(form), line(form)), ([2, 0, 2, 2], ["a1", "b1", "new"]))
    control.SendKeys(UP, 0)
    form.equal((selection(form), line(form)), ([1, 0, 1, 2], ["a0", "b0", "c0"]))


@scenario
def sent_function_keys_run_their_commands(form: Form) -> None:
    control = editable(form)
    answers(form, "yes")
    states = []
    for code in (F5, F6, F8, F7):
        open_row(form, -1)
        open_row(form, 1)
        control.SendKeys(code, 0)
        form.server.yield_()
        states.append([form.happened()[0], flags(form), control.Rows, line(form)[0]])
    names = [f"{name}Click(Cancel=false)" for name in ("Add", "Insert", "Copy", "Delete")]
    states_of = [["Adding Editing", 3, ""], ["Inserting Editing", 3, ""]]
    states_of += [["Adding Editing", 3, "a1"], ["Modified", 2, "a1"]]
    form.equal(states, [[name, *state] for name, state in zip(names, states_of)])


@scenario
def keys_of_hidden_commands_do_nothing_in_an_open_row(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    for name in ("Add", "Insert", "Copy", "Delete"):
        control.put(f"{name}Visible", False)
    form.happened()
    for code in (F5, F6, F7, F8):
        control.SendKeys(code, 0)
        control.key(code)
    form.tells()
    form.equal((editor(form), flags(form)), ((0, "a1"), "Editing"))
