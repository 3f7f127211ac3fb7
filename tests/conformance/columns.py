"""Columns: their settings, the two grids that hold some of them, rows and counts."""

from form import LONG_MAX, LONG_MIN, Form
from scenarios import scenario

# name, value of a new column, another value
ARRAYS = (
    ("ColEditable", False, True),
    ("ColIsNecessary", False, True),
    ("ColFieldLength", 0, 32767),
    ("ColFieldType", 0, 202),
    ("ColFormat", "", "dd/mm/yyyy"),
    ("ColDataField", "", "Città"),
    ("ColFromRecord", 0, 2),
    ("ColIsKey", 0, 1),
)


def settings(form: Form, col: int) -> list:
    return [form.list.get(name, col) for name, _, _ in ARRAYS]


@scenario
def a_new_control_has_one_editable_column_and_no_rows(form: Form) -> None:
    form.equal((form.list.Cols, form.list.Rows, form.list.Row), (1, 0, -1))
    form.equal(settings(form, 0), [True, False, 0, 0, "", "", 0, 0])


@scenario
def column_indexes_end_before_Cols(form: Form) -> None:
    form.list.Cols = 3
    form.equal(form.list.ColDataField[2], "")
    for name, _, value in ARRAYS:
        for col in (-1, 3, LONG_MIN, LONG_MAX):
            form.fails(9, lambda: form.list.get(name, col))
            form.fails(9, lambda: form.list.put(name, col, value))
    form.equal([settings(form, col) for col in (1, 2)], [[new for _, new, _ in ARRAYS]] * 2)
    form.tells("changed Cols")


@scenario
def settings_of_a_column_are_stored_and_notified_by_name(form: Form) -> None:
    form.list.Cols = 3
    form.happened()
    for name, new, value in ARRAYS:
        form.list.put(name, 2, value)
        form.equal([form.list.get(name, col) for col in (1, 2)], [new, value])
        form.tells(f"changed {name}")


@scenario
def growing_keeps_settings_and_shrinking_discards_them(form: Form) -> None:
    control = form.quiet(3)
    for name, _, value in ARRAYS:
        for col in range(3):
            control.put(name, col, value)
    kept, new = [v for _, _, v in ARRAYS], [n for _, n, _ in ARRAYS]
    control.Cols = 5
    form.equal([settings(form, col) for col in range(5)], [kept] * 3 + [new] * 2)
    control.Cols = 2
    control.Cols = 3
    form.equal([settings(form, col) for col in range(3)], [kept] * 2 + [new])


@scenario
def both_grids_get_the_column_count(form: Form) -> None:
    form.list.Cols = 7
    form.equal(form.of_parts(("Grid", "GridIn"), "Cols"), [7, 7])
    form.tells("changed Cols")


@scenario
def a_column_count_below_1_is_refused(form: Form) -> None:
    control = form.quiet(3)
    for number, cols in ((9, 0), (9, -1), (6, LONG_MIN)):
        form.fails(number, lambda: setattr(control, "Cols", cols))
    form.equal(control.Cols, 3)
    form.tells()


@scenario
def record_tags_are_16_bits_wide(form: Form) -> None:
    control = form.quiet(1)
    for name in ("ColFromRecord", "ColIsKey"):
        for value in (2, -32768, 32767):
            control.put(name, 0, value)
            form.equal(control.get(name, 0), value)
        form.happened()
        for value in (70000, 32768, -32769):
            form.fails(6, lambda: control.put(name, 0, value))
        form.fails(9, lambda: control.put(name, 1, 70000))
        form.equal(control.get(name, 0), 32767)
        form.tells()


@scenario
def captions_stand_in_both_grids(form: Form) -> None:
    control = form.quiet(2, rows=1)
    control.Caption[1] = "Città"
    form.tells("changed Caption")
    form.equal(control.Caption[1], "Città")
    form.equal(control.cells("Grid"), [["", "Città"], ["a0", "b0"]])
    form.equal(control.cells("GridIn"), [["", "Città"], ["", ""]])


@scenario
def a_caption_number_beyond_the_columns_counts_cells(form: Form) -> None:
    control = form.quiet(2, rows=1)
    form.equal(control.Caption[2], "a0")
    control.Caption[3] = "x"
    form.equal((control.TextMatrix[0, 1], control.InputArray[1]), ("x", "x"))
    form.fails(381, lambda: control.Caption[4])
    form.fails(381, lambda: control.Caption[-1])
    form.tells("changed Caption")


@scenario
def widths_stand_in_both_grids(form: Form) -> None:
    control = form.quiet(3)
    for index, width in enumerate((0, 40000, 300)):
        control.ColWidth[index] = width
    form.tells(*["changed ColWidth"] * 3)
    form.equal([control.ColWidth[i] for i in range(3)], [0, 40000, 300])
    form.equal([control.columns(g)["ColWidth"] for g in ("Grid", "GridIn")], [[0, 40000, 300]] * 2)
    control.ColWidth[2] = -1
    form.equal(control.ColWidth[2], 960)


@scenario
def the_grid_refuses_bad_widths(form: Form) -> None:
    control = form.quiet(2)
    form.fails(30010, lambda: control.ColWidth[2])
    form.fails(30010, lambda: control.put("ColWidth", -1, 100))
    form.fails(30014, lambda: control.put("ColWidth", 0, -2))
    form.equal(control.ColWidth[0], 960)
    form.tells()


@scenario
def alignments_pass_unchanged_and_16_bits_wide(form: Form) -> None:
    control = form.quiet(2)
    for value in (0, 1, 2, 4, 7, 9):
        control.ColAlignment[1] = value
        form.equal(control.ColAlignment[1], value)
    form.equal([control.columns(g)["ColAlignment"] for g in ("Grid", "GridIn")], [[9, 9]] * 2)
    form.tells(*["changed ColAlignment"] * 6)
    form.fails(6, lambda: control.put("ColAlignment", 5, 70000))
    form.fails(30004, lambda: control.put("ColAlignment", 2, 1))
    form.fails(30005, lambda: control.put("ColAlignment", 0, 10))
    form.tells()


@scenario
def Rows_counts_data_rows(form: Form) -> None:
    control = form.quiet(1)
    control.Rows = 5
    form.equal((control.Rows, control.part("Grid")["Rows"], control.part("GridIn")["Rows"]), (5, 6, 2))
    control.Rows = 0
    form.equal((control.Rows, control.cells("Grid")), (0, [[""]]))
    form.tells("changed Rows", "changed Rows")
    form.fails(6, lambda: setattr(control, "Rows", LONG_MAX))
    form.fails(30009, lambda: setattr(control, "Rows", -1))
    form.equal(control.Rows, 0)
    form.tells()


@scenario
def rows_made_again_come_back_empty(form: Form) -> None:
    control = form.quiet(2, rows=3)
    control.Rows = 1
    control.Rows = 2
    form.equal(control.cells("Grid", 1), [["a0", "b0"], ["", ""]])


@scenario
def positions_are_0_outside_the_data_rows(form: Form) -> None:
    control = form.quiet(2, rows=3)
    form.equal([control.RowPos[row] for row in (-1, 0, 1, 2, 3)], [0, 240, 480, 720, 0])
    form.equal([control.ColPos[col] for col in (0, 1)], [0, 960])
    form.fails(30010, lambda: control.ColPos[2])


@scenario
def cells_are_counted_by_public_rows(form: Form) -> None:
    control = form.quiet(2, rows=2)
    control.TextMatrix[1, 1] = "tab\tand line\nend"
    form.equal(control.cells("Grid", 2), [["a1", "tab\tand line\nend"]])
    control.TextMatrix[-1, 0] = "caption"
    form.equal(control.Caption[0], "caption")
    for row, col in ((2, 0), (-2, 0), (0, 2), (0, -1)):
        form.fails(381, lambda: control.TextMatrix[row, col])
    form.tells()


@scenario
def Row_translates_and_TopRow_does_not(form: Form) -> None:
    control = form.quiet(1, rows=100)
    form.equal((control.Row, control.TopRow), (-1, 1))
    control.Row = 40
    control.TopRow = control.Row
    form.equal((control.Row, control.TopRow, control.part("Grid")["Row"]), (40, 40, 41))
    form.tells("changed Row")
    control.TopRow = 0
    form.equal(control.TopRow, 1)
    form.fails(30009, lambda: setattr(control, "Row", 100))
    form.fails(30009, lambda: setattr(control, "Row", -2))
    form.fails(30009, lambda: setattr(control, "TopRow", 101))
    form.tells()
