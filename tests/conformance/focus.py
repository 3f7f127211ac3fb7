"""The focus, tab order and tab stops."""

import krvlist
from form import BUTTONS, GRIDS, TAB_STOPS, Form
from scenarios import scenario

TAB = 9


@scenario
def Tab_walks_the_parts_in_their_order_and_leaves(form: Form) -> None:
    control = form.list
    control.focus("Grid")
    walk = []
    for _ in range(8):
        control.key(TAB)
        walk.append(form.focused())
    order = ("btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK")
    form.equal(walk, [*[[part] for part in order], [], ["Grid"], ["btnAdd"]])
    form.tells()


@scenario
def Shift_Tab_walks_back(form: Form) -> None:
    control = form.list
    control.focus("btnCopy")
    walk = []
    for _ in range(4):
        control.key(TAB, krvlist.SHIFT)
        walk.append(form.focused())
    form.equal(walk, [["btnInsert"], ["btnAdd"], ["Grid"], []])
    form.tells()


@scenario
def Tab_passes_hidden_and_disabled_parts(form: Form) -> None:
    control = form.list
    control.AddVisible = control.CopyVisible = False
    control.focus("Grid")
    control.key(TAB)
    form.equal(form.focused(), ["btnInsert"])
    control.Enabled = False
    form.equal(form.focused(), [])
    control.focus("Grid")
    control.key(TAB)
    form.equal(form.focused(), [])


@scenario
def hiding_the_part_with_the_focus_passes_it_on(form: Form) -> None:
    control = form.list
    control.focus("btnAdd")
    control.AddVisible = False
    form.equal(form.focused(), ["btnInsert"])
    control.focus("btnOK")
    control.OkVisible = False
    form.equal(form.focused(), [])


@scenario
def the_focus_cannot_go_to_hidden_or_disabled_parts(form: Form) -> None:
    control = form.list
    control.Enabled = False
    control.focus("Grid")
    for part in ("GridIn", "InpFld", *BUTTONS, "Line1"):
        form.fails(5, lambda: control.focus(part))
    form.equal(form.focused(), ["Grid"])


@scenario
def tab_stops_come_back_when_the_control_loses_the_focus(form: Form) -> None:
    control = form.list
    control.focus("Grid")
    control.MoveWithTab = True
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True, True, True, False, True, True, True, True])
    control.focus("outside")
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True] * 8)
    form.equal(control.MoveWithTab, False)
    form.tells("changed MoveWithTab")


@scenario
def tab_stops_stay_while_the_focus_moves_inside(form: Form) -> None:
    control = form.list
    control.focus("Grid")
    control.MoveWithTab = True
    control.focus("btnInsert")
    form.server.yield_()
    form.equal((control.MoveWithTab, control.part("btnAdd")["TabStop"]), (True, False))


@scenario
def tab_stops_stay_when_another_control_loses_the_focus(form: Form) -> None:
    other = form.new("L2")
    form.list.MoveWithTab = True
    other.focus("Grid")
    other.focus("outside")
    form.equal((form.list.MoveWithTab, other.MoveWithTab), (True, False))


@scenario
def the_focus_going_to_another_control_gives_tab_stops_back(form: Form) -> None:
    other = form.new("L2")
    form.list.focus("Grid")
    form.list.MoveWithTab = True
    other.focus("Grid")
    form.equal((form.list.MoveWithTab, form.focused(), other.part("Grid")["Focused"]), (False, [], True))


@scenario
def a_control_without_the_focus_keeps_its_tab_stops(form: Form) -> None:
    form.list.MoveWithTab = True
    form.list.focus("outside")
    form.server.yield_()
    form.equal(form.list.MoveWithTab, True)


@scenario
def Tab_passes_the_add_button_without_a_tab_stop(form: Form) -> None:
    control = form.list
    control.focus("Grid")
    control.MoveWithTab = True
    control.key(TAB)
    form.equal(form.focused(), ["btnInsert"])


@scenario
def a_press_moves_the_focus(form: Form) -> None:
    control = form.quiet(2)
    control.focus("outside")
    control.mouse("Grid", "press", 100, 100)
    form.equal(form.focused(), ["Grid"])
    control.mouse("Grid", "release", 100, 100)
    form.equal((form.focused(), control.Row), (["Grid"], -1))
    form.tells()


@scenario
def the_mouse_does_nothing_on_hidden_and_disabled_parts(form: Form) -> None:
    control = form.quiet(2, rows=2)
    control.focus("outside")
    for part in ("GridIn", "InpFld", "btnAdd", "btnOK"):
        for action in ("press", "move", "release", "click", "dblclick"):
            control.mouse(part, action)
    form.equal((form.focused(), control.Row, control.Rows), ([], -1, 2))
    form.tells()


@scenario
def a_press_on_a_row_makes_it_current(form: Form) -> None:
    control = form.quiet(2, rows=4)
    control.mouse("Grid", "press", 1000, 600)
    grid = control.part("Grid")
    form.equal([grid[name] for name in ("Row", "RowSel", "Col", "ColSel")], [2, 2, 0, 1])


@scenario
def a_press_below_the_rows_moves_nothing(form: Form) -> None:
    control = form.quiet(2, rows=2)
    control.mouse("Grid", "press", 100, 1500)
    form.equal((control.Row, form.focused()), (-1, ["Grid"]))


@scenario
def grids_and_editor_keep_their_tab_stops_without_buttons(form: Form) -> None:
    form.list.Enabled = False
    form.equal(form.of_parts((*GRIDS, "InpFld"), "TabStop"), [True] * 3)
    form.equal(form.of_parts(BUTTONS, "TabStop"), [True] * 5)
