"""The mouse on the list, and RowClick, which stands for it."""

import krvlist
from editable_list import DROP, answers, editable, go, line, open_row, opened, pending, selection
from form import Form
from scenarios import scenario


def clicked(row: int, x: int, y: int, col: int, button: int = 1, shift: int = 0) -> str:
    return f"ListClick(Button={button}, Shift={shift}, x={x}, y={y}, Row={row}, Col={col})"


@scenario
def a_click_finds_the_column_by_its_left_edge(form: Form) -> None:
    control = editable(form)
    control.ColWidth[1] = 0
    go(form, 0)
    form.happened()
    for x, col in ((0, 0), (945, 0), (960, 2), (1905, 2), (1920, 2), (5000, 2)):
        control.mouse("Grid", "click", x, 300)
        form.tells(clicked(0, x, 300, col))


@scenario
def a_click_left_of_the_first_column_finds_none(form: Form) -> None:
    control = editable(form)
    open_row(form, 0)
    control.mouse("Grid", "press", 30, 300)
    control.mouse("Grid", "release", -30, 300)
    form.tells(clicked(0, -30, 300, -1))


@scenario
def a_click_tells_button_and_shift(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    for button in (1, 2, 4):
        for shift in (0, krvlist.SHIFT, krvlist.CTRL, krvlist.ALT + krvlist.SHIFT):
            control.click("Grid", 60, 600, button, shift)
            form.tells(clicked(1, 60, 600, 0, button, shift))


@scenario
def a_click_on_the_captions_is_not_told(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.click("Grid", 60, 60)
    control.click("Grid", 60, 60)
    form.tells()


@scenario
def a_click_below_the_rows_tells_the_current_one(form: Form) -> None:
    control = editable(form)
    control.click("Grid", 60, 2000)
    form.tells()
    open_row(form, 1)
    control.click("Grid", 60, 2000)
    form.tells(clicked(1, 60, 2000, 0))


@scenario
def a_drag_leaves_one_row(form: Form) -> None:
    control = editable(form, 6)
    control.mouse("Grid", "press", 60, 300)
    form.tells(*opened(0))
    for y in (500, 800, 1100):
        control.mouse("Grid", "move", 60, y)
    form.equal(selection(form)[:1] + line(form), [1, "a0", "b0", "c0"])
    control.mouse("Grid", "release", 60, 1100)
    form.equal((selection(form)[0], selection(form)[2]), (1, 1))
    form.tells(clicked(0, 60, 1100, 0))


@scenario
def a_press_opens_and_the_release_tells(form: Form) -> None:
    control = editable(form)
    control.mouse("Grid", "press", 60, 600)
    form.tells(*opened(1))
    form.equal(line(form), ["a1", "b1", "c1"])
    control.mouse("Grid", "release", 60, 600)
    form.tells(clicked(1, 60, 600, 0))


@scenario
def RowClick_acts_as_a_click(form: Form) -> None:
    control = editable(form)
    result = control.call("RowClick", 1, 2, 3)
    y = control.RowPos[1] + 100
    form.tells(*opened(1), clicked(1, 500, y, 0, 2, 3))
    form.equal((result.value, result.args), (None, [1, 2, 3]))
    form.equal((selection(form), line(form)), ([2, 0, 2, 2], ["a1", "b1", "c1"]))


@scenario
def RowClick_gives_back_what_the_host_made_of_the_click(form: Form) -> None:
    control = editable(form)
    control.on("ListClick")(lambda: {"Button": 4, "Shift": 7, "x": 1.5, "y": -2.0, "Row": 9, "Col": 9})
    form.equal(control.call("RowClick", 1, 1, 0).args, [1, 4, 7])


@scenario
def RowClick_scrolls_to_a_row_out_of_sight(form: Form) -> None:
    control = editable(form, 50)
    control.RowClick(30, 1, 0)
    form.equal((control.TopRow, control.RowPos[30], control.Row), (31, 240, 30))
    y = 240 + 100
    form.tells(*opened(30), clicked(30, 500, y, 0))


@scenario
def RowClick_does_not_scroll_while_the_row_above_shows(form: Form) -> None:
    control = editable(form, 50)
    visible = 2215 // 240  # caption row and whole rows below it
    last_seen = visible if 2215 % 240 else visible - 1
    control.RowClick(last_seen, 1, 0)
    form.equal((control.TopRow, control.Row), (1, last_seen))
    form.happened()
    control.RowClick(last_seen + 1, 1, 0)
    form.equal((control.TopRow, control.Row), (last_seen + 2, last_seen + 1))


@scenario
def RowClick_of_the_first_row_never_scrolls(form: Form) -> None:
    control = editable(form, 50)
    control.TopRow = 20
    control.RowClick(0, 1, 0)
    form.equal((control.TopRow, control.Row), (20, 0))
    control.RowClick(1, 1, 0)
    form.equal((control.TopRow, control.Row), (2, 1))


@scenario
def RowClick_of_the_open_row_tells_the_click_alone(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.RowClick(1, 1, 0)
    form.tells(clicked(1, 500, control.RowPos[1] + 100, 0))


@scenario
def RowClick_opens_a_confirmed_row_again(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.OK()
    form.happened()
    control.RowClick(1, 1, 0)
    form.tells(clicked(1, 500, control.RowPos[1] + 100, 0), *opened(1))


@scenario
def RowClick_ends_when_the_edited_row_is_kept(form: Form) -> None:
    control = editable(form)
    pending(form, 0)
    answers(form, "no", "yes")
    control.RowClick(2, 1, 0)
    form.tells(DROP)
    form.equal((control.Row, line(form)), (0, ["a0", "b0", "new"]))
    control.RowClick(2, 1, 0)
    form.tells(DROP, *opened(2), clicked(2, 500, control.RowPos[2] + 100, 0))


@scenario
def RowClick_of_no_row_fails_and_changes_nothing(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    for row, number in ((3, 30009), (4, 30009), (-1, 30009), (-2, 30009), (2147483647, 6), (-2147483648, 30009)):
        form.fails(number, lambda: control.RowClick(row, 1, 0))
        form.equal((control.Row, line(form)), (1, ["a1", "b1", "c1"]))
        form.tells()


@scenario
def ListClick_may_move_the_row(form: Form) -> None:
    control = editable(form)
    open_row(form, 0)

    def elsewhere(Row: int) -> None:
        if Row == 1:
            control.Row = 2

    control.on("ListClick")(elsewhere)
    control.RowClick(1, 1, 0)
    y = control.RowPos[1] + 100
    form.tells(*opened(1), clicked(1, 500, y, 0), *opened(2), "changed Row")
    form.equal((control.Row, line(form)), (2, ["a2", "b2", "c2"]))
