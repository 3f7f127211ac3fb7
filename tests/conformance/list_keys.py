"""Keys on the list grid, and what the host makes of them."""

import krvlist
from form import Form
from keys import DOWN, END, UP, keyed
from scenarios import scenario


@scenario
def a_key_on_the_list_moves_one_row(form: Form) -> None:
    control = keyed(form, rows=50)
    rows = []
    for code in (DOWN, DOWN, UP, DOWN):
        control.key(code, part="Grid")
        rows.append(control.Row)
    form.equal(rows, [0, 1, 0, 1])
    form.tells()


@scenario
def the_list_scrolls_after_the_row(form: Form) -> None:
    control = keyed(form, rows=50)
    control.focus("Grid")
    for _ in range(30):
        control.key(DOWN)
    form.equal(control.Row, 29)
    top = control.TopRow
    visible = range(top, top + 2215 // 240 - 1)
    form.equal(30 in visible or 30 == visible.stop, True)
    form.equal(control.RowPos[29] + 240 <= 2215, True)


@scenario
def home_and_end_scroll_the_list_alone(form: Form) -> None:
    control = keyed(form, rows=50)
    control.key(END, part="Grid")
    end = control.TopRow
    form.equal((control.Row, end > 1), (-1, True))
    control.key(36)
    form.equal(control.TopRow, 1)
    form.tells("KeyDown(KeyCode=35, Shift=0, Col=-1)", "KeyDown(KeyCode=36, Shift=0, Col=-1)")


@scenario
def the_host_may_swallow_a_key(form: Form) -> None:
    control = keyed(form, rows=50)

    @control.on("KeyDown")
    def swallow(KeyCode: int) -> dict:
        return {"KeyCode": 0}

    control.key(END, part="Grid")
    form.equal(control.TopRow, 1)
    form.tells("KeyDown(KeyCode=35, Shift=0, Col=-1)")


@scenario
def the_host_may_turn_a_key_into_another(form: Form) -> None:
    control = keyed(form, rows=50)
    control.on("KeyDown")(lambda KeyCode: {"KeyCode": END} if KeyCode == 65 else None)
    control.key(65, part="Grid")
    turned = control.TopRow
    control.key(END)
    form.equal((turned > 1, control.TopRow), (True, turned))
@scenario
def typed_text_reaches_the_host_from_the_list(form: Form) -> None:
    control = keyed(form)
    control.focus("Grid")
    control.type("aB 7à")
    codes = ((65, 0), (66, 1), (32, 0), (55, 0), (231, 0))
    form.tells(*[f"KeyDown(KeyCode={code}, Shift={shift}, Col=-1)" for code, shift in codes])
