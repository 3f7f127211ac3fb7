"""Deleting the current row of the list."""

from editable_list import (
    DELETE, DROP, F7, REMOVE, YELLOW, adding, answers, cancel, editable, editor, fill, flags, go, line,
    lit, numbered, open_field, open_row, opened, pending, place, rows, selection, shown, tells, text,
)
from form import Form
from scenarios import scenario


def removed(row: int) -> str:
    return f"AfterRowDelete(DeletedRow={row})"


@scenario
def an_inner_row_is_removed_after_a_question(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    answers(form, "yes")
    form.equal(control.Delete(), False)
    form.tells(DELETE, REMOVE, removed(2))
    form.equal((rows(form), selection(form)[0]), ([["a0", "b0", "c0"], ["a2", "b2", "c2"]], 2))
    form.equal((shown(form), flags(form)), ("btnAdd btnInsert btnCopy btnDelete", "Modified"))


@scenario
def the_last_row_is_removed_and_the_one_above_stays_closed(form: Form) -> None:
    control = editable(form)
    open_row(form, 2)
    answers(form, "yes")
    control.Delete()
    form.server.yield_()
    form.tells(DELETE, REMOVE, *opened(1), removed(2))
    form.equal((rows(form), control.Row), ([["a0", "b0", "c0"], ["a1", "b1", "c1"]], 1))
    form.equal((shown(form), flags(form)), ("btnAdd btnInsert btnCopy btnDelete", "Modified"))


@scenario
def the_only_row_leaves_the_captions(form: Form) -> None:
    control = editable(form, 1)
    open_row(form, 0)
    answers(form, "yes")
    control.Delete()
    form.server.yield_()
    form.tells(DELETE, REMOVE, removed(0))
    form.equal((control.cells("Grid"), control.Row, selection(form)), ([["A", "B", "C"]], -1, [0, 0, 0, 0]))
    form.equal((shown(form), flags(form)), ("btnAdd", "Modified"))


@scenario
def No_leaves_the_list_and_the_highlight(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    open_row(form, 1)
    answers(form, "no")
    control.key(F7, part="Grid")
    form.tells(DELETE, REMOVE)
    form.equal((control.Rows, flags(form), lit(form)), (3, "", ["btnDelete"]))
    form.equal((line(form), shown(form)), (["a1", "b1", "c1"], "GridIn btnAdd btnInsert btnCopy btnDelete"))


@scenario
def a_cancelled_Delete_takes_the_highlight_away(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    open_row(form, 1)
    control.EvidenziaFunzione(4)
    cancel(form, "DeleteClick")
    control.Delete()
    form.tells(DELETE)
    form.equal((control.Rows, flags(form), lit(form)), (3, "", []))


@scenario
def Delete_without_a_current_row_is_silent(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    form.happened()
    form.equal(control.Delete(), False)
    form.tells(DELETE)
    form.equal((control.Rows, flags(form), lit(form)), (3, "", []))


@scenario
def the_highlight_goes_after_the_deletion(form: Form) -> None:
    control = editable(form)
    control.EvidenziaColor = YELLOW
    open_row(form, 1)
    seen = []
    form.server.on_message(lambda text, buttons, title: seen.append(lit(form)) or "yes")
    control.on("AfterRowDelete")(lambda: seen.append(lit(form)))
    control.Delete()
    form.equal((seen, lit(form)), ([["btnDelete"]] * 2, []))


@scenario
def the_rows_below_are_renumbered(form: Form) -> None:
    answers(form, *["yes"] * 5)
    for row in range(5):
        control = numbered(form, "1", "2", "3", "4", "5")
        open_row(form, row)
        control.Delete()
        form.server.yield_()
        texts = [f"b{number}" for number in range(5) if number != row]
        form.equal(rows(form), [[str(number + 1), text] for number, text in enumerate(texts)])
        control.Svuota(True)


@scenario
def renumbering_goes_on_from_the_row_above(form: Form) -> None:
    answers(form, "yes", "yes")
    control = numbered(form, "10", "x", "30", "")
    open_row(form, 1)
    control.Delete()
    form.equal([row[0] for row in rows(form)], ["10", "11", "12"])
    control = numbered(form, "10", "20", "30")
    open_row(form, 0)
    control.Delete()
    form.equal([row[0] for row in rows(form)], ["1", "2"])


@scenario
def a_row_chosen_while_the_buttons_were_disabled_counts_itself(form: Form) -> None:
    control = numbered(form, "1", "2", "3", "4", "5")
    control.Enabled = False
    go(form, 2)
    form.equal((shown(form), line(form)), ("btnAdd", ["", ""]))
    control.Enabled = True
    form.happened()
    answers(form, "yes")
    control.Delete()
    form.tells(DELETE, REMOVE, *opened(2), removed(3))
    form.equal((shown(form), flags(form)), ("btnAdd btnInsert btnCopy btnDelete", "Modified"))
    form.equal(rows(form), [[str(number + 1), text] for number, text in enumerate(("b0", "b1", "b3", "b4"))])


@scenario
def Delete_runs_without_its_button(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.DeleteVisible = False
    form.happened()
    answers(form, "yes")
    control.SendKeys(F7, 0)
    form.tells()
    control.Delete()
    form.tells(DELETE, REMOVE, removed(2))


@scenario
def a_pending_edit_goes_with_its_row(form: Form) -> None:
    control = editable(form)
    pending(form, 1)
    answers(form, "yes")
    control.Delete()
    form.server.yield_()
    form.tells(DELETE, REMOVE, removed(2))
    form.equal((rows(form)[1], flags(form)), (["a2", "b2", "c2"], "Modified"))


@scenario
def the_open_field_of_a_deleted_row_is_not_offered(form: Form) -> None:
    control = editable(form)
    open_field(form, 1)
    control.type("xy")
    form.happened()
    cancel(form, "BeforeFieldUpdate")
    answers(form, "yes")
    control.key(F7)
    form.tells(DELETE, REMOVE, removed(2))
    form.equal((editor(form), flags(form), control.Rows), (None, "Modified", 2))


@scenario
def a_pending_insertion_ends_with_Delete(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)
    control.Insert()
    form.server.yield_()
    control.type("xy")
    form.happened()
    answers(form, "yes")
    control.Delete()
    form.server.yield_()
    tells(form, DELETE, REMOVE, removed(2))
    form.equal((flags(form), [row[0] for row in rows(form)]), ("Modified", ["a0", "a2"]))
    open_row(form, 0)
    control.InputArray[0] = "x"
    control.OK()
    form.equal([row[0] for row in rows(form)], ["x", "a2"])


@scenario
def Delete_over_a_new_row_is_silent(form: Form) -> None:
    control = editable(form)
    adding(form, "one")
    control.Delete()
    form.server.yield_()
    form.tells(DELETE)
    form.equal((line(form), flags(form), control.Rows), (["one", "", ""], "Adding InputModified", 3))


@scenario
def the_last_row_with_a_pending_edit_asks_once_for_each(form: Form) -> None:
    control = editable(form)
    pending(form, 2)
    answers(form, "yes", "yes")
    control.Delete()
    form.server.yield_()
    form.tells(DELETE, REMOVE, DROP, *opened(1), removed(2))
    form.equal(([row[0] for row in rows(form)], flags(form)), (["a0", "a1"], "Modified"))


@scenario
def deleting_all_rows_one_by_one(form: Form) -> None:
    control = numbered(form, "1", "2", "3", "4")
    answers(form, *["yes"] * 4)
    open_row(form, 2)
    left = []
    for _ in range(4):
        control.Delete()
        form.server.yield_()
        left.append([control.Row, *[" ".join(row) for row in rows(form)]])
    form.equal(left, [[2, "1 b0", "2 b1", "3 b3"], [1, "1 b0", "2 b1"], [0, "1 b0"], [-1]])
    form.equal((control.cells("Grid")[0], flags(form)), (["A", "B"], "Modified"))
    control.Delete()
    form.equal(form.happened()[-1], DELETE)


@scenario
def a_row_removed_by_the_host_under_the_question_is_not_removed_twice(form: Form) -> None:
    control = editable(form)
    open_row(form, 1)

    @form.server.on_message
    def shorten(text: str, buttons: str, title: str) -> str:
        control.Rows = 0
        return "yes"

    control.Delete()
    form.server.yield_()
    form.equal((control.Rows, control.Row), (0, -1))
    form.equal([told for told in form.happened() if "AfterRowDelete" in told], [])


@scenario
def a_deleted_row_may_be_filled_again(form: Form) -> None:
    control = editable(form, 1)
    open_row(form, 0)
    answers(form, "yes")
    control.Delete()
    form.server.yield_()
    fill(control, [["x", "y", "z"]])
    form.happened()
    go(form, 0)
    form.tells(*opened(0), "changed Row")
    place(form, 1)
    form.equal((line(form), editor(form)), (["x", "y", "z"], (1, "y")))
