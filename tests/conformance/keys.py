"""Keys that go down on the control and its parts."""

import krvlist
from form import BUTTONS, Form
from scenarios import scenario

TAB, ENTER, END, LEFT, UP, RIGHT, DOWN = 9, 13, 35, 37, 38, 39, 40
MODIFIERS = (0, krvlist.SHIFT, krvlist.CTRL, krvlist.ALT, krvlist.SHIFT + krvlist.CTRL + krvlist.ALT)


def keyed(form: Form, rows: int = 0) -> krvlist.List:
    """A quiet control; its current row is the caption row and its confirm button hidden."""
    control = form.quiet(3, rows)
    control.OkVisible = False
    form.happened()
    return control


@scenario
def keys_without_a_use_are_raised(form: Form) -> None:
    control = keyed(form)
    for code in (65, 27, END, LEFT, RIGHT, 231, 0, -1, 32767):
        for shift in MODIFIERS:
            control.SendKeys(code, shift)
            form.tells(f"KeyDown(KeyCode={code}, Shift={shift}, Col=-1)")


@scenario
def Tab_never_reaches_the_host(form: Form) -> None:
    control = keyed(form, rows=2)
    control.KeyOK = TAB
    form.happened()
    for shift in MODIFIERS:
        control.SendKeys(TAB, shift)
    control.key(TAB, part="Grid")
    control.key(TAB, krvlist.SHIFT, part="Grid")
    form.equal(control.Row, -1)
    form.tells()


@scenario
def keys_of_hidden_buttons_do_nothing(form: Form) -> None:
    control = keyed(form, rows=2)
    for name in ("Add", "Insert", "Delete", "Copy"):
        control.put(f"{name}Visible", False)
    form.happened()
    for code in (116, 117, 118, 119):
        for shift in MODIFIERS:
            control.SendKeys(code, shift)
    form.equal((control.Rows, control.Adding, control.Inserting), (2, False, False))
    form.tells()


@scenario
def the_first_command_of_a_shared_key_decides(form: Form) -> None:
    control = keyed(form, rows=2)
    control.AddVisible = False
    for name in ("KeyAdd", "KeyInsert", "KeyDelete", "KeyCopy"):
        control.put(name, 120)
    form.happened()
    control.SendKeys(120, 0)
    form.equal((control.Rows, control.Adding, control.Inserting), (2, False, False))
    form.tells()


@scenario
def the_confirm_key_does_nothing_while_its_button_is_hidden(form: Form) -> None:
    control = keyed(form, rows=2)
    control.SendKeys(ENTER, 0)
    control.KeyOK = 65
    control.SendKeys(65, 0)
    form.equal((control.Rows, control.Modified), (2, False))
    form.tells("changed KeyOK")
    control.SendKeys(ENTER, 0)
    form.tells("KeyDown(KeyCode=13, Shift=0, Col=-1)")


@scenario
def the_confirm_key_is_matched_before_the_arrows(form: Form) -> None:
    control = keyed(form, rows=3)
    control.KeyOK = DOWN
    control.SendKeys(DOWN, 0)
    form.equal(control.Row, -1)
    form.tells("changed KeyOK")


@scenario
def arrows_move_the_list_row(form: Form) -> None:
    control = keyed(form, rows=3)
    moves = []
    for code in (DOWN, DOWN, DOWN, DOWN, UP, UP, UP):
        control.SendKeys(code, 0)
        grid = control.part("Grid")
        moves.append([grid[name] for name in ("Row", "RowSel", "Col", "ColSel")])
    rows = (1, 2, 3, 3, 2, 1, 1)
    form.equal(moves, [[row, row, 0, 2] for row in rows])
    form.tells()


@scenario
def arrows_move_with_any_modifier(form: Form) -> None:
    control = keyed(form, rows=6)
    for row, shift in enumerate(MODIFIERS):
        control.SendKeys(DOWN, shift)
        form.equal(control.Row, row)
    for row, shift in enumerate(MODIFIERS):
        control.SendKeys(UP, shift)
        form.equal(control.Row, max(3 - row, 0))
    form.tells()


@scenario
def arrows_never_reach_the_host(form: Form) -> None:
    control = form.list
    for code in (UP, DOWN):
        control.SendKeys(code, 0)
        control.key(code, part="Grid")
        control.key(code, part="btnCopy")
    form.equal(control.Row, -1)
    form.tells()


@scenario
def keys_on_every_button_reach_the_same_handling(form: Form) -> None:
    control = form.list
    for part in BUTTONS:
        control.key(65, krvlist.SHIFT, part=part)
        form.tells("KeyDown(KeyCode=65, Shift=1, Col=-1)")
        form.equal(form.focused(), [part])


@scenario
def keys_outside_the_control_are_not_its_own(form: Form) -> None:
    keyed(form, rows=2)
    form.list.focus("outside")
    for code in (65, DOWN, 116):
        form.list.key(code)
    form.equal(form.list.Row, -1)
    form.tells()


@scenario
def keys_cannot_go_to_hidden_or_disabled_parts(form: Form) -> None:
    control = keyed(form)
    for part in ("GridIn", "InpFld", "btnAdd", "btnOK", "Line1"):
        form.fails(5, lambda: control.key(65, part=part))
    form.tells()


@scenario
def typed_text_is_a_key_for_each_character(form: Form) -> None:
    control = form.list
    control.focus("btnAdd")
    control.type("aB7à")
    codes = ((65, 0), (66, 1), (55, 0), (231, 0))
    form.tells(*[f"KeyDown(KeyCode={code}, Shift={shift}, Col=-1)" for code, shift in codes])
