"""Opening a row in the middle of the list, and one filled from another row."""

from editable_list import (
    CONFIRM, COPY, DROP, F6, F8, INSERT, NO_COLUMN, NO_ROW, START, YELLOW, adding, after, answers,
    before, cancel, editable, editor, fill, flags, go, line, lit, numbered, offer, open_field, open_row,
    opened, pending, rows, selection, shown, tells, text,
)
from form import Form
from keys import ENTER
from scenarios import scenario

# --- Insert ---


@scenario
def Insert_without_a_current_row_says_so(form: Form) -> None:
    control = editable(form)
    control.Insert()  # its button is hidden
    form.tells()
    control.InsertVisible = True
    form.happened()
    control.Insert()
    form.tells(INSERT, NO_ROW)
    form.equal((shown(form), flags(form), line(form)), ("btnAdd btnInsert", "", [""] * 3))
    open_row(form, 1)
    go(form, -1)
    form.happened()
    control.SendKeys(F6, 0)  # hidden again
    form.tells()
    control.InsertVisible = True
    form.happened()
    control.SendKeys(F6, 0)
    form.tells(INSERT, NO_ROW)
    form.equal((flags(form), line(form)), ("", ["a1", "b1", "c1"]))


@scenario
def Insert_opens_an_empty_row_before_the_current_one(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    open_row(form, 1)
    form.equal(control.Insert(), False)
    form.tells(INSERT)
    form.equal((line(form), flags(form), lit(form)), ([""] * 3, "Inserting", ["btnInsert"]))
    form.equal((shown(form), selection(form)[0]), ("GridIn InpFld btnAdd btnInsert", 2))
    form.server.yield_()
    form.equal((editor(form), flags(form)), ((0, ""), "Inserting Editing"))


@scenario
def an_inserted_row_is_renumbered_with_all_below(form: Form) -> None:
    for row, numbers in ((0, "12345"), (1, "12345"), (3, "12345")):
        control = numbered(form, "1", "2", "3", "4")
        open_row(form, row)
        control.key(F6, part="Grid")
        form.equal((line(form), editor(form)), ([str(row + 1), ""], (1, "")))
        control.type("new")
        form.happened()
        control.key(ENTER)
        form.tells(offer(1, "new"), CONFIRM, before(row, 1), after(row))
        texts = [f"b{number}" for number in range(4)]
        texts.insert(row, "new")
        form.equal(rows(form), [list(pair) for pair in zip(numbers, texts)])
        form.equal((flags(form), selection(form)[0]), ("Modified", row + 1))
        control.Svuota(True)


@scenario
def renumbering_goes_on_from_the_row_above(form: Form) -> None:
    control = numbered(form, "10", "20", "30")
    open_row(form, 1)
    control.Insert()
    form.server.yield_()
    form.equal(line(form), ["20", ""])
    control.type("new")
    control.key(ENTER)
    form.equal([row[0] for row in rows(form)], ["10", "11", "12", "13"])


@scenario
def a_row_inserted_first_begins_with_1(form: Form) -> None:
    control = numbered(form, "10", "x", "")
    open_row(form, 0)
    control.Insert()
    form.server.yield_()
    control.type("new")
    control.key(ENTER)
    form.equal([row[0] for row in rows(form)], ["1", "2", "3", "4"])


@scenario
def an_inserted_row_without_line_numbers_leaves_the_others(form: Form) -> None:
    control = editable(form)
    open_row(form, 2)
    control.Insert()
    form.server.yield_()
    control.type("new")
    control.key(ENTER)
    form.equal([row[0] for row in rows(form)], ["a0", "a1", "new", "a2"])


@scenario
def a_cancelled_Insert_changes_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "InsertClick")
    control.Insert()
    form.server.yield_()
    form.tells(INSERT)
    form.equal((editor(form), line(form), flags(form)), ((0, "xy"), ["a1", "b1", "c1"], "Editing InputModified"))


@scenario
def Insert_over_a_pending_row_asks_nothing_and_leaves_it_modified(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    control.Insert()
    form.server.yield_()
    tells(form, INSERT)
    form.equal((line(form), rows(form)[1]), ([""] * 3, ["a1", "b1", "c1"]))
    form.equal(flags(form), "Inserting Editing InputModified")


@scenario
def Insert_offers_no_open_field(form: Form) -> None:
    control = editable(form)
    cancel(form, "BeforeFieldUpdate")
    open_field(form, 1)
    control.type("xy")
    form.happened()
    control.Insert()
    form.server.yield_()
    form.tells(INSERT, *text(0, ""))
    form.equal((line(form), editor(form)), ([""] * 3, (0, "")))


@scenario
def Insert_without_editable_columns_says_so(form: Form) -> None:
    control = editable(form)
    for col in range(3):
        control.ColWidth[col] = 0
    open_row(form, 1)
    control.Insert()
    form.tells(INSERT, NO_COLUMN)
    form.equal((shown(form), flags(form)), ("GridIn btnAdd btnInsert", "Inserting"))


@scenario
def an_inserted_row_left_at_No_stays_and_at_Yes_goes(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.Insert()
    form.server.yield_()
    control.type("xy")
    form.happened()
    answers(form, "no", "yes")
    go(form, 0)
    tells(form, DROP, "changed Row")
    form.equal((editor(form), control.Row, flags(form)), ((0, "xy"), 1, "Inserting Editing InputModified"))
    go(form, 0)
    tells(form, DROP, offer(0, "xy"), *opened(0), "changed Row")
    form.equal((control.Rows, flags(form), line(form)), (3, "", ["a0", "b0", "c0"]))


# --- Copy ---


@scenario
def Copy_opens_a_new_row_with_the_texts_of_the_current_one(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    open_row(form, 1)
    form.equal(control.Copy(), False)
    form.tells(COPY)
    form.equal((line(form), flags(form), lit(form)), (["a1", "b1", "c1"], "Adding", ["btnCopy"]))
    form.equal((shown(form), selection(form)), ("GridIn InpFld btnAdd", [0, 0, 0, 0]))
    form.server.yield_()
    form.equal((editor(form), flags(form)), ((0, "a1"), "Adding Editing"))


@scenario
def a_copy_that_was_changed_is_appended(form: Form) -> None:
    control = numbered(form, "1", "2", "7")
    open_row(form, 0)
    control.key(F8, part="Grid")
    form.equal((line(form), editor(form)), (["8", "b0"], (1, "b0")))
    control.type("changed")
    form.happened()
    control.key(ENTER)
    form.tells(offer(1, "changed"), CONFIRM, before(-1, 1), after(-1))
    form.equal(rows(form), [["1", "b0"], ["2", "b1"], ["7", "b2"], ["8", "changed"]])
    form.equal((flags(form), shown(form)), ("Modified", "btnAdd"))


@scenario
def an_unchanged_copy_is_not_confirmed(form: Form) -> None:
    control = editable(form)
    open_row(form, 0)
    control.Copy()
    form.server.yield_()
    form.happened()
    control.OK()
    form.tells()
    form.equal((control.Rows, flags(form), line(form)), (3, "Adding", ["a0", "b0", "c0"]))


@scenario
def Copy_without_a_current_row_copies_the_captions(form: Form) -> None:
    control = editable(form)
    control.Copy()
    form.server.yield_()
    form.tells(COPY, *text(0, "A"))
    form.equal((line(form), editor(form), flags(form)), (["A", "B", "C"], (0, "A"), "Adding Editing"))
    control.type("x")
    control.key(ENTER)
    form.equal(rows(form)[3:], [["x", "B", "C"]])


@scenario
def a_cancelled_Copy_changes_nothing(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "CopyClick")
    control.Copy()
    form.server.yield_()
    form.tells(COPY)
    form.equal((editor(form), line(form), flags(form)), ((0, "xy"), ["a1", "b1", "c1"], "Editing InputModified"))


@scenario
def Copy_that_is_answered_No_puts_the_texts_back(form: Form) -> None:
    control = editable(form)
    pending(form, 1, 0, "mine")
    answers(form, "no")
    control.Copy()
    form.server.yield_()
    form.tells(COPY, DROP)
    form.equal((line(form), flags(form), selection(form)), (["mine", "b1", "c1"], "InputModified", [2, 0, 2, 2]))


@scenario
def Copy_that_is_answered_Yes_copies_the_row_of_the_list(form: Form) -> None:
    control = editable(form)
    pending(form, 1, 0, "mine")
    answers(form, "yes")
    control.Copy()
    form.server.yield_()
    tells(form, COPY, DROP)
    form.equal((line(form), flags(form), editor(form)), (["a1", "b1", "c1"], "Adding Editing", (0, "a1")))


@scenario
def Copy_of_a_typed_field_at_No_keeps_it(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    answers(form, "no")
    control.Copy()
    form.server.yield_()
    form.tells(COPY, DROP)
    form.equal((editor(form), line(form), control.Row), ((0, "xy"), ["a1", "b1", "c1"], 1))


@scenario
def Copy_over_a_pending_new_row_asks_nothing(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.Copy()
    form.server.yield_()
    tells(form, COPY)
    form.equal((line(form), flags(form)), (["A", "B", "C"], "Adding Editing InputModified"))


@scenario
def Copy_without_editable_columns_says_so(form: Form) -> None:
    control = editable(form)
    for col in range(3):
        control.ColEditable[col] = False
    open_row(form, 1)
    control.Copy()
    form.tells(COPY, NO_COLUMN)
    form.equal((shown(form), flags(form), line(form)), ("GridIn btnAdd", "Adding", ["a1", "b1", "c1"]))


@scenario
def a_copied_tab_becomes_a_blank_in_the_new_row(form: Form) -> None:
    control = editable(form)
    control.TextMatrix[1, 0] = "x\ty"
    open_row(form, 1)
    control.Copy()
    form.server.yield_()
    control.InputArray[1] = "new"
    control.OK()
    form.equal(rows(form)[1:], [["x\ty", "b1", "c1"], ["a2", "b2", "c2"], ["x y", "new", "c1"]])


@scenario
def copies_of_one_row_after_another(form: Form) -> None:
    control = numbered(form, "1")
    fill(control, [["1", "b0"]])
    for number in range(2, 5):
        control.RowClick(0, 1, 0)
        control.Copy()
        form.server.yield_()
        control.type(f"copy {number}")
        control.key(ENTER)
    form.equal(rows(form), [["1", "b0"], *[[str(number), f"copy {number}"] for number in range(2, 5)]])
    form.equal([told for told in form.happened() if told == START], [START] * 3)
