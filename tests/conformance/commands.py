"""Row commands as a host sees them: results, function keys, vetoes, the field being edited."""

import krvlist
from form import TAB_STOPS, Form, single
from scenarios import scenario

KEYS = (("Add", 116), ("Insert", 117), ("Delete", 118), ("Copy", 119))
QUESTION = "message confermi eliminazione riga selezionata? [yesno] Rolda"
OPENED = ("RowSelect(Row={0})", "LineEditStart(Adding=true)", "changed Row")


def editable(form: Form, rows: int = 3, row: int = -1) -> krvlist.List:
    """A control with two editable columns and cells such as "a0", "b0", at a row or none; nothing
    opens by itself."""
    control = form.quiet(2, rows)
    control.AutoStartInputOnClick = False
    control.ColEditable[1] = control.Enabled = True
    control.OkVisible = False
    if row >= 0:
        control.Row = row
    form.happened()
    return control


@scenario
def commands_give_False_whatever_they_did(form: Form) -> None:
    form.server.on_message(lambda text, buttons, title: "yes")
    control = editable(form, row=1)
    form.equal((control.Delete(), control.Rows, control.Modified), (False, 2, True))
    form.equal((control.Add(), control.Adding), (False, True))
    control.InputArray[0] = "x"
    form.equal((control.OK(), control.Adding, control.cells("Grid", 3)), (False, False, [["x", ""]]))
    control.Row = 0
    form.equal((control.Insert(), control.Inserting), (False, True))
    control.Svuota(True)
    form.equal((control.Delete(), control.Copy(), control.Rows), (False, False, 0))


@scenario
def Add_and_Insert_of_hidden_buttons_do_nothing(form: Form) -> None:
    control = editable(form, row=0)
    control.AddVisible = control.InsertVisible = False
    form.happened()
    form.equal((control.Add(), control.Insert()), (False, False))
    form.equal((control.Adding, control.Inserting), (False, False))
    form.tells()


@scenario
def Delete_and_Copy_run_with_hidden_buttons(form: Form) -> None:
    control = editable(form, row=0)
    for command in ("Delete", "Copy"):
        control.put(f"{command}Visible", False)
        control.on(f"{command}Click")(lambda: {"Cancel": True})
        form.happened()
        form.equal(control.call(command).value, False)
        form.tells(f"{command}Click(Cancel=false)")


@scenario
def function_keys_run_their_commands_with_any_modifier(form: Form) -> None:
    control = editable(form, row=0)
    for command, key in KEYS:
        control.on(f"{command}Click")(lambda: {"Cancel": True})
        for shift in (0, krvlist.SHIFT, krvlist.CTRL, krvlist.ALT):
            control.SendKeys(key, shift)
            form.tells(f"{command}Click(Cancel=false)")
    form.equal((control.Rows, control.Adding, control.Inserting), (3, False, False))


@scenario
def the_first_of_two_commands_with_one_key_runs(form: Form) -> None:
    control = editable(form, row=0)
    for command, _ in KEYS:
        control.on(f"{command}Click")(lambda: {"Cancel": True})
    for first, second in zip(KEYS, KEYS[1:]):
        for number, (command, _) in enumerate(KEYS):
            control.put(f"Key{command}", 120 if command in (first[0], second[0]) else 112 + number)
        form.happened()
        control.SendKeys(120, 0)
        form.tells(f"{first[0]}Click(Cancel=false)")


@scenario
def a_function_key_comes_before_the_confirm_key(form: Form) -> None:
    control = editable(form)
    control.OkVisible = True
    control.KeyOK = 116
    control.on("AddClick")(lambda: {"Cancel": True})
    form.happened()
    control.SendKeys(116, 0)
    form.tells("AddClick(Cancel=false)")


@scenario
def the_confirm_key_runs_while_its_button_shows(form: Form) -> None:
    control = editable(form, row=0)
    control.on("OKClick")(lambda: {"Cancel": True})
    control.SendKeys(13, 0)
    form.tells()
    control.InputArray[0] = "x"
    control.SendKeys(13, 0)
    form.tells("changed InputArray", "OKClick(Cancel=false)")


@scenario
def a_vetoed_command_changes_nothing(form: Form) -> None:
    control = editable(form, row=1)
    before = control.cells("Grid"), control.cells("GridIn"), control.part("btnCopy")["Visible"]
    for command, _ in KEYS:
        control.on(f"{command}Click")(lambda: {"Cancel": True})
        control.call(command)
        form.tells(f"{command}Click(Cancel=false)")
    form.equal((control.cells("Grid"), control.cells("GridIn"), control.part("btnCopy")["Visible"]), before)
    form.equal((control.Adding, control.Inserting, control.Modified), (False, False, False))


@scenario
def a_row_that_is_to_be_deleted_is_asked_for(form: Form) -> None:
    control = editable(form, row=1)
    answers = ["no", "yes"]
    form.server.on_message(lambda text, buttons, title: answers.pop(0))
    control.key(118, part="Grid")
    form.tells("DeleteClick(Cancel=false)", QUESTION)
    form.equal((control.Rows, control.Modified), (3, False))
    control.key(118, part="Grid")
    form.tells("DeleteClick(Cancel=false)", QUESTION, "AfterRowDelete(DeletedRow=2)")
    form.equal((control.cells("Grid", 1), control.Modified), ([["a0", "b0"], ["a2", "b2"]], True))


@scenario
def arrows_open_the_rows_that_they_reach(form: Form) -> None:
    control = editable(form)
    lines = []
    for code in (40, 40, 38):
        control.key(code, part="Grid")
        lines.append(control.cells("GridIn", 1)[0])
    form.equal(lines, [["a0", "b0"], ["a1", "b1"], ["a0", "b0"]])
    form.tells(*[text.format(row) for row in (0, 1, 0) for text in OPENED[:2]])


@scenario
def a_click_opens_a_row_and_tells_where(form: Form) -> None:
    control = editable(form)
    control.click("Grid", 1000, 600)
    told = [text.format(1) for text in OPENED[:2]]
    form.tells(*told, "ListClick(Button=1, Shift=0, x=1000, y=600, Row=1, Col=1)")


@scenario
def KeyDown_tells_the_column_being_edited(form: Form) -> None:
    control = editable(form, row=0)
    for col in (0, 1):
        form.equal(control.SetInput(col), True)
        form.server.yield_()
        form.equal((control.Editing, form.focused()), (True, ["InpFld"]))
        form.happened()
        control.SendKeys(65, 0)
        control.key(27 + col * 100)
        news = form.happened()
        form.equal(news[0], f"KeyDown(KeyCode=65, Shift=0, Col={col})")


@scenario
def KeyPress_is_not_raised_while_the_editor_is_typed_in(form: Form) -> None:
    control = editable(form, row=0)
    control.SetInput(0)
    form.server.yield_()
    form.happened()
    control.type("xy")
    form.equal(control.part("InpFld")["Text"], "xy")
    form.equal([line for line in form.happened() if line.startswith("KeyPress")], [])


@scenario
def the_host_may_rewrite_or_refuse_a_field(form: Form) -> None:
    control = editable(form, row=0)
    answers = [{"Cancel": True}, {"Value": "REWRITTEN"}]
    control.on("BeforeFieldUpdate")(lambda: answers.pop(0) if answers else None)
    control.SetInput(0)
    form.server.yield_()
    control.type("x")
    control.focus("outside")
    form.equal((control.InputArray[0], form.focused(), control.part("InpFld")["Text"]), ("a0", ["InpFld"], "a0"))
    control.type("y")
    control.focus("outside")
    form.equal((control.InputArray[0], control.part("InpFld")["Visible"]), ("REWRITTEN", False))
    told = [line for line in form.happened() if line.startswith("BeforeFieldUpdate")]
    form.equal(told, [f'BeforeFieldUpdate(ColInEdit=0, Value="{text}", Cancel=false)' for text in "xy"])


@scenario
def MoveWithTab_ends_with_the_edited_field(form: Form) -> None:
    control = editable(form, row=0)
    control.MoveWithTab = True
    form.equal(control.SetInput(0), True)
    form.server.yield_()
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [False] * 8)
    control.focus("outside")
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True] * 8)
    form.equal(control.MoveWithTab, False)


@scenario
def the_open_editor_follows_the_layout(form: Form) -> None:
    control = editable(form, row=0)
    control.SetInput(1)
    form.server.yield_()
    form.equal(form.rectangle("InpFld"), [995, 2455, 995, 240])
    control.ColWidth[0] = 1500
    control.resize(7000, 4001.5)
    form.equal(form.rectangle("InpFld"), [1535, single(4001.5 - 545), 995, 240])
    form.equal((control.Editing, form.focused()), (True, ["InpFld"]))


@scenario
def automatic_rows_are_added_twice(form: Form) -> None:
    control = editable(form)
    control.AutoAdd = True
    control.on("AddClick")(lambda: {"Cancel": True})
    form.happened()
    control.Svuota()
    form.tells("AddClick(Cancel=false)", "AddClick(Cancel=false)")
    control.Svuota(True)
    form.tells()


@scenario
def the_control_may_be_deleted_inside_its_commands(form: Form) -> None:
    def prepared() -> krvlist.List:
        doomed = form.new("L2")
        doomed.AutoAdd = doomed.AutoStartInputOnClick = False
        doomed.Rows = 2
        return doomed

    for event, action in (
        ("AddClick", lambda doomed: doomed.key(116, part="Grid")),
        ("LineEditStart", lambda doomed: doomed.call("Add")),
        ("DeleteClick", lambda doomed: doomed.call("Delete")),
        ("CopyClick", lambda doomed: doomed.click("btnCopy")),
        ("OKClick", lambda doomed: doomed.click("btnOK")),
        ("RowSelect", lambda doomed: doomed.click("Grid", 100, 300)),
        ("BeforeRowUpdate", lambda doomed: (doomed.call("Add"), doomed.put("InputArray", 0, "x"), doomed.call("OK"))),
        ("ListClick", lambda doomed: doomed.call("RowClick", 1, 1, 0)),
    ):
        doomed = prepared()
        doomed.on(event)(doomed.delete)
        action(doomed)
        form.refused(-32602, lambda: doomed.Cols)
    form.equal(form.list.Cols, 1)


@scenario
def the_control_may_be_deleted_under_its_question(form: Form) -> None:
    doomed = form.new("L2")
    doomed.AutoStartInputOnClick = False
    doomed.Rows = 2
    doomed.Row = 0

    @form.server.on_message
    def delete(text: str, buttons: str, title: str) -> bool:
        doomed.delete()
        return True

    doomed.Delete()
    form.refused(-32602, lambda: doomed.Cols)
