"""State of the control as a whole: flags, the input line's values, title, tab stop, focus object."""

import krvlist
from form import BUTTONS, GRIDS, TAB_STOPS, Form
from scenarios import scenario


@scenario
def a_new_control_shows_the_defaults(form: Form) -> None:
    control = form.list
    want = {
        "BackColor": 0x8000000F, "ButtonsHeight": 255, "ButtonsWidth": 1200, "Adding": False, "Connect": "",
        "InputModified": True, "KeyAdd": 116, "KeyCopy": 119, "KeyDelete": 118, "KeyInsert": 117, "KeyOK": 13,
        "MoveWithTab": False, "Modified": False, "MsgTitle": "Rolda", "Editing": False, "Inserting": False,
        "Enabled": True, "Rows": 0, "LineNumberColumn": -1, "Cols": 1, "Recordsource": "", "Recordset": None,
        "ReadOnlyRecordset": False, "DataBaseName": "", "Row": -1, "TopRow": 1, "GiveFocusTo": None,
        "AddCaption": "aggiungi", "AddColor": 0x8000000F, "InsertCaption": "inserisci",
        "InsertColor": 0x8000000F, "DeleteCaption": "elimina", "DeleteColor": 0x8000000F,
        "CopyCaption": "copia", "CopyColor": 0x8000000F, "EvidenziaColor": 0, "OKCaption": "conferma riga",
        "OkColor": 0x8000000F, "AddVisible": True, "InsertVisible": True, "DeleteVisible": True,
        "CopyVisible": True, "OkVisible": True, "AutoAdd": True, "AutoStartInputOnClick": True,
    }
    plain = [m.name for m in form.server.members.values() if m.kind == "property" and not m.params]
    form.equal({name: control.get(name) for name in plain}, want)
    form.tells()


@scenario
def the_input_line_and_the_editor_start_hidden(form: Form) -> None:
    form.equal(form.of_parts((*GRIDS, "InpFld", *BUTTONS), "Visible"), [True, False, False] + [True] * 5)
    line = form.list.part("Line1")
    form.equal((line["X1"], line["X2"]), (-1, -1))


@scenario
def writing_a_value_offers_the_confirm_command(form: Form) -> None:
    control = form.quiet(2)
    control.OkVisible = False
    form.equal(control.InputModified, False)
    form.happened()
    control.InputArray[0] = "x"
    form.equal((control.InputModified, control.part("btnOK")["Visible"], control.OkVisible), (True, True, False))
    form.equal(control.cells("GridIn"), [["", ""], ["x", ""]])
    form.tells("changed InputArray")


@scenario
def a_refused_value_does_not_offer_the_confirm_command(form: Form) -> None:
    control = form.quiet(2)
    control.OkVisible = False
    form.happened()
    for col in (2, -1):
        form.fails(381, lambda: control.put("InputArray", col, "x"))
    form.equal(control.InputModified, False)
    form.tells()


@scenario
def a_write_of_the_title_leaves_the_title(form: Form) -> None:
    form.server.title = "Magazzino"
    form.list.MsgTitle = "X"
    form.equal((form.list.MsgTitle, form.server.title), ("Magazzino", "Magazzino"))
    form.tells("changed MsgTitle")


@scenario
def MoveWithTab_is_the_missing_tab_stop_of_the_add_button(form: Form) -> None:
    control = form.list
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True] * 8)
    control.MoveWithTab = True
    form.equal(control.MoveWithTab, True)
    form.equal(form.of_parts(TAB_STOPS, "TabStop"), [True, True, True, False, True, True, True, True])
    control.MoveWithTab = False
    form.equal((control.MoveWithTab, control.part("btnAdd")["TabStop"]), (False, True))
    form.tells("changed MoveWithTab", "changed MoveWithTab")


@scenario
def Enabled_is_that_of_the_buttons_alone(form: Form) -> None:
    form.list.Enabled = False
    form.equal(form.list.Enabled, False)
    form.equal(form.of_parts((*GRIDS, "InpFld", *BUTTONS), "Enabled"), [True] * 3 + [False] * 5)
    form.list.Enabled = True
    form.equal(form.of_parts(BUTTONS, "Enabled"), [True] * 5)
    form.tells("changed Enabled", "changed Enabled")


@scenario
def any_line_number_column_is_stored(form: Form) -> None:
    for value in (3, -1, 2147483647, -2147483648):
        form.list.LineNumberColumn = value
        form.equal(form.list.LineNumberColumn, value)
    form.tells(*["changed LineNumberColumn"] * 4)


@scenario
def flags_are_stored(form: Form) -> None:
    for name in ("AutoAdd", "AutoStartInputOnClick", "ReadOnlyRecordset"):
        for value in (False, True):
            setattr(form.list, name, value)
            form.equal(form.list.get(name), value)
        form.tells(f"changed {name}", f"changed {name}")


@scenario
def the_focus_object_is_held_until_it_is_replaced(form: Form) -> None:
    control = form.list
    for name in ("first", "second"):
        control.GiveFocusTo = form.server.object(name)
        form.equal(control.GiveFocusTo, krvlist.ObjectRef(name))
    control.GiveFocusTo = None
    form.equal(control.GiveFocusTo, None)
    form.tells(*["changed GiveFocusTo"] * 3)


@scenario
def states_cannot_be_written(form: Form) -> None:
    for name in ("Adding", "Inserting", "Editing", "Modified", "InputModified", "ButtonsWidth"):
        form.fails(383, lambda: setattr(form.list, name, True))
    form.tells()


@scenario
def two_controls_of_a_form_have_their_own_state(form: Form) -> None:
    other = form.new("L2")
    form.list.Cols = 3
    other.Cols = 2
    other.AddCaption = "altro"
    form.equal((form.list.Cols, form.list.AddCaption, other.Cols, other.AddCaption), (3, "aggiungi", 2, "altro"))
    form.tells("changed Cols", "L2: changed Cols", "L2: changed AddCaption")
