"""The font size that every part takes."""

from form import BUTTONS, PARTS, Form, single
from scenarios import scenario


def row_heights(form: Form, grid: str) -> list:
    return form.list.rows(grid, 0, form.list.part(grid)["Rows"] - 1)["RowHeight"]


@scenario
def parts_start_with_8_25_points(form: Form) -> None:
    form.equal(form.of_parts(("control", "Grid", "GridIn", "InpFld", *BUTTONS), "FontSize"), [8.25] * 9)
    form.quiet(1, rows=2)
    form.equal((row_heights(form, "Grid"), row_heights(form, "GridIn")), ([240] * 3, [240] * 2))


@scenario
def SetFont_gives_every_part_the_size(form: Form) -> None:
    form.list.SetFont(12)
    form.equal(form.of_parts(("control", "Grid", "GridIn", "InpFld", *BUTTONS), "FontSize"), [12] * 9)
    form.tells()


@scenario
def rows_get_the_text_height_times_1_4(form: Form) -> None:
    # The text "A" is 195 twips high at 8.25 points, other sizes in proportion, by steps of 15.
    form.quiet(1, rows=3)
    for size, text in ((8.25, 195), (8, 195), (9, 210), (10, 240), (12, 285), (20, 480), (36, 855)):
        form.list.SetFont(size)
        height = text * 14 // 10
        form.equal(row_heights(form, "Grid"), [height] * 4)
        form.equal(row_heights(form, "GridIn"), [height] * 2)
        form.equal(round(form.list.part("GridIn")["Height"], 2), 2 * height + 30)
        form.equal(round(form.list.part("InpFld")["Height"], 2), height)


@scenario
def rows_made_later_take_the_default_of_the_size(form: Form) -> None:
    control = form.quiet(1, rows=1)
    control.SetFont(20)
    control.Rows = 2
    form.equal(row_heights(form, "Grid"), [672, 672, 525])


@scenario
def SetFont_0_changes_nothing(form: Form) -> None:
    control = form.quiet(2, rows=2)
    before = [control.part(part) for part in PARTS], row_heights(form, "Grid")
    control.SetFont(0)
    form.equal(([control.part(part) for part in PARTS], row_heights(form, "Grid")), before)
    form.tells()


@scenario
def SetFont_does_not_lay_out(form: Form) -> None:
    control = form.list
    grid, top = form.rectangle("Grid"), control.part("GridIn")["Top"]
    control.SetFont(20)
    form.equal((form.rectangle("Grid"), control.part("GridIn")["Top"]), (grid, top))
    control.ButtonsHeight = 300
    form.equal(round(control.part("Grid")["Height"], 2), 3000 - 1374 - 300 - 20)


@scenario
def the_size_is_a_single(form: Form) -> None:
    form.list.SetFont(9.7)
    form.equal(form.of_parts(("Grid", "GridIn", "btnAdd"), "FontSize"), [single(9.7)] * 3)


@scenario
def a_negative_size_is_refused(form: Form) -> None:
    form.fails(380, lambda: form.list.SetFont(-1))
    form.equal(form.list.part("Grid")["FontSize"], 8.25)
