"""Opening a new row: Add, by its button, its key and by itself."""

from editable_list import (
    ADD, CONFIRM, DROP, F5, NO_COLUMN, START, YELLOW, adding, after, answers, before, cancel, editable,
    editor, fill, flags, go, line, lit, numbered, offer, open_field, open_row, opened, pending, place,
    rows, selection, shown, tells, text,
)
from form import Form
from keys import ENTER
from scenarios import scenario

NEW_ROW = "GridIn InpFld btnAdd"


@scenario
def Add_opens_an_empty_row_at_its_first_field(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    form.happened()
    form.equal(control.Add(), False)
    form.tells(ADD, START)
    form.equal((line(form), shown(form), flags(form), lit(form)), (["", "", ""], NEW_ROW, "Adding", ["btnAdd"]))
    form.server.yield_()
    form.equal((editor(form), form.focused(), flags(form)), ((0, ""), ["InpFld"], "Adding Editing"))


@scenario
def Add_is_alike_by_method_key_and_button(form: Form) -> None:
    ways = (
        lambda control: control.Add(),
        lambda control: control.SendKeys(F5, 0),
        lambda control: control.key(F5, part="Grid"),
        lambda control: control.click("btnAdd"),
        lambda control: control.key(ENTER, part="btnAdd"),
        lambda control: control.key(32, part="btnAdd"),
    )
    for way in ways:
        control = editable(form)
        way(control)
        form.server.yield_()
        form.tells(ADD, START)
        form.equal((line(form), editor(form), flags(form)), ([""] * 3, (0, ""), "Adding Editing"))
        control.focus("outside")
        control.Svuota(True)


@scenario
def Add_on_an_open_row_leaves_it(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    form.equal(shown(form), "GridIn InpFld btnAdd btnInsert btnCopy btnDelete")
    control.key(F5)
    form.tells(ADD, START, *text(0, ""))
    form.equal((shown(form), control.Row, line(form)), (NEW_ROW, -1, [""] * 3))
    form.equal((editor(form), flags(form)), ((0, ""), "Adding Editing"))


@scenario
def Add_does_nothing_more_when_the_edit_is_kept(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    answers(form, "no")
    control.Add()
    form.server.yield_()
    form.tells(ADD, DROP)
    form.equal((line(form), selection(form), flags(form)), (["a1", "b1", "new"], [2, 0, 2, 2], "InputModified"))
    form.equal(shown(form), "GridIn btnAdd btnInsert btnCopy btnDelete btnOK")


@scenario
def Add_after_a_dropped_edit_opens_the_new_row(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    answers(form, "yes")
    control.Add()
    form.server.yield_()
    tells(form, ADD, DROP, START)
    form.equal((line(form), rows(form)[1], flags(form)), ([""] * 3, ["a1", "b1", "c1"], "Adding Editing"))
    form.equal(shown(form), NEW_ROW)


@scenario
def Add_stops_when_the_kept_row_is_gone_from_the_list(form: Form) -> None:
    control = editable(form)
    pending(form, 2)
    control.Rows = 2
    form.happened()
    answers(form, "no", "no")
    control.Add()
    form.server.yield_()
    form.equal([told for told in form.happened() if told == START], [])
    form.equal((line(form), flags(form)), (["a2", "b2", "new"], "InputModified"))


@scenario
def Add_over_a_pending_new_row_empties_it_without_a_question(form: Form) -> None:
    control = editable(form)
    adding(form, "one", "two")
    control.Add()
    form.server.yield_()
    tells(form, ADD, START)
    form.equal((line(form), control.Rows, flags(form)), ([""] * 3, 3, "Adding Editing InputModified"))


@scenario
def the_first_row_of_an_empty_list_gets_the_number_1(form: Form) -> None:
    control = numbered(form)
    control.Caption[0] = "Riga"
    control.Add()
    form.server.yield_()
    form.equal((line(form), editor(form)), (["1", ""], (1, "")))
    control.type("x")
    control.key(ENTER)
    form.equal(rows(form), [["1", "x"]])


@scenario
def a_new_row_is_numbered_after_the_last(form: Form) -> None:
    numbers = []
    for last in ("7", "abc", "", "-3", "2,5", "2.5", "12abc", " 41 ", "1e3", "99999999999"):
        control = numbered(form, "1", last)
        control.Add()
        form.server.yield_()
        numbers.append(line(form)[0])
        control.Svuota(True)
    form.equal(numbers, ["8", "1", "1", "-2", "3", "3.5", "13", "42", "1001", "100000000000"])


@scenario
def a_caption_that_begins_with_digits_counts_as_a_number(form: Form) -> None:
    control = numbered(form)
    control.Caption[0] = "100 pieces"
    control.Add()
    form.equal(line(form)[0], "101")


@scenario
def a_cancelled_Add_changes_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "AddClick")
    control.Add()
    form.server.yield_()
    form.tells(ADD)
    form.equal((editor(form), line(form), flags(form)), ((0, "xy"), ["a1", "b1", "c1"], "Editing InputModified"))


@scenario
def Add_without_editable_columns_says_so(form: Form) -> None:
    control = editable(form)
    for col in range(3):
        control.ColEditable[col] = False
    control.ColEditable[1] = True
    control.ColWidth[1] = 0
    form.happened()
    control.Add()
    form.server.yield_()
    form.tells(ADD, START, NO_COLUMN)
    form.equal((shown(form), flags(form)), ("GridIn btnAdd", "Adding"))


@scenario
def Add_takes_the_first_usable_column(form: Form) -> None:
    control = editable(form, cols=4)
    control.ColEditable[0] = False
    control.ColWidth[1] = 0
    control.Add()
    form.server.yield_()
    form.equal(editor(form), (2, ""))


@scenario
def a_host_may_fill_the_new_row_in_LineEditStart(form: Form) -> None:
    control = editable(form)

    def fill_in() -> None:
        control.InputArray[0] = "default"
        control.InputArray[2] = "last"

    control.on("LineEditStart")(fill_in)
    control.Add()
    form.server.yield_()
    form.equal((line(form), editor(form)), (["default", "", "last"], (0, "default")))
    form.equal(flags(form), "Adding Editing InputModified")
    control.OK()
    form.equal(rows(form)[3:], [["default", "", "last"]])


@scenario
def an_abandoned_new_row_is_not_appended(form: Form) -> None:
    control = editable(form)
    control.Add()
    form.server.yield_()
    go(form, 0)
    form.equal((flags(form), line(form)), ("", ["a0", "b0", "c0"]))
    control.InputArray[0] = "x"
    control.OK()
    form.equal([row[0] for row in rows(form)], ["x", "a1", "a2"])


@scenario
def the_list_starts_a_row_by_itself_when_it_is_emptied(form: Form) -> None:
    for empty in ("Svuota", "Clear"):
        control = editable(form)
        open_row(form, 1)
        control.AutoAdd = True
        form.happened()
        control.call(empty)
        form.server.yield_()
        tells(form, *[ADD, START] * 2)
        form.equal((line(form), editor(form), flags(form)), ([""] * 3, (0, ""), "Adding Editing"))
        control.AutoAdd = False
        control.Svuota(True)
        control.focus("outside")


@scenario
def a_host_that_cancels_the_second_of_two_adds_keeps_the_first(form: Form) -> None:
    control = editable(form)
    cancels = [False, True]
    control.on("AddClick")(lambda: {"Cancel": cancels.pop(0)})
    control.AutoAdd = True
    form.happened()
    control.Svuota()
    form.server.yield_()
    tells(form, ADD, START, ADD)
    form.equal((editor(form), flags(form)), ((0, ""), "Adding Editing"))


@scenario
def three_rows_by_keys_alone(form: Form) -> None:
    control = numbered(form)
    control.Cols = 3
    control.ColEditable[2] = True
    fill(control, [])
    control.AutoAdd = True
    control.focus("Grid")
    form.happened()
    control.key(F5)
    for row in range(3):
        form.equal((line(form), editor(form)), ([str(row + 1), "", ""], (1, "")))
        control.type(f"n{row}")
        control.key(39)  # right, at the end of the text
        control.type(f"v{row}")
        control.key(ENTER)
    adds = [ADD, START] * 3
    told = [[offer(1, f"n{row}"), offer(2, f"v{row}"), CONFIRM, before(-1, 2), after(-1), *adds] for row in range(3)]
    tells(form, ADD, START, *sum(told, []))
    form.equal(rows(form), [[str(row + 1), f"n{row}", f"v{row}"] for row in range(3)])
    form.equal((line(form), editor(form), flags(form)), (["4", "", ""], (1, ""), "Adding Editing Modified"))


@scenario
def a_new_row_left_for_an_existing_one_and_back(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    place(form, 1)
    control.type("two")
    form.happened()
    answers(form, "no", "yes")
    control.click("Grid", 60, 300)
    tells(form, offer(1, "two"), DROP)
    form.equal((line(form), flags(form), control.Row), (["one", "two", ""], "Adding InputModified", -1))
    control.click("Grid", 60, 300)
    form.tells(DROP, *opened(0), "ListClick(Button=1, Shift=0, x=60, y=300, Row=0, Col=0)")
    form.equal((line(form), flags(form), control.Rows), (["a0", "b0", "c0"], "", 3))
