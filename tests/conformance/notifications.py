"""Names under which the control says that a property changed."""

from form import Form
from scenarios import scenario

# property, indexes, value, what is told; in interface order
PUTS = (
    ("BackColor", (), 255, "BackColor"),
    ("ButtonsHeight", (), 300, "ButtonsHeight"),
    ("Connect", (), "x", "Connect"),
    ("KeyAdd", (), 112, "KeyAdd"),
    ("KeyCopy", (), 113, "KeyCopy"),
    ("KeyDelete", (), 114, "KeyDelete"),
    ("KeyInsert", (), 115, "KeyInsert"),
    ("KeyOK", (), 65, "KeyOK"),
    ("MoveWithTab", (), False, "MoveWithTab"),
    ("MsgTitle", (), "x", "MsgTitle"),
    ("Enabled", (), False, "Enabled"),
    ("Rows", (), 2, "Rows"),
    ("Caption", (0,), "x", "Caption"),
    ("ColEditable", (0,), True, "ColEditable"),
    ("ColIsNecessary", (0,), True, "ColIsNecessary"),
    ("ColFieldLength", (0,), 1, "ColFieldLength"),
    ("ColFieldType", (0,), 1, "ColFieldType"),
    ("ColFormat", (0,), "x", "ColFormat"),
    ("LineNumberColumn", (), 0, "LineNumberColumn"),
    ("ColDataField", (0,), "x", "ColDataField"),
    ("ColFromRecord", (0,), 1, "ColFromRecord"),
    ("ColIsKey", (0,), 1, "ColIsKey"),
    ("Cols", (), 2, "Cols"),
    ("Recordsource", (), "x", "Recordsource"),
    ("ReadOnlyRecordset", (), True, "ReadOnlyRecordset"),
    ("DataBaseName", (), "x", "DataBaseName"),
    ("Row", (), 0, "Row"),
    ("ColWidth", (0,), 100, "ColWidth"),
    ("ColAlignment", (0,), 1, "ColAlignment"),
    ("TopRow", (), 1, None),
    ("TextMatrix", (0, 0), "x", None),
    ("InputArray", (0,), "x", "InputArray"),
    ("AddCaption", (), "x", "AddCaption"),
    ("AddColor", (), 1, "AddColor"),
    ("InsertCaption", (), "x", "InsertCaption"),
    ("InsertColor", (), 1, "InserColor"),  # the name under which stored settings know it
    ("DeleteCaption", (), "x", "DeleteCaption"),
    ("DeleteColor", (), 1, "DeleteColor"),
    ("CopyCaption", (), "x", "CopyCaption"),
    ("CopyColor", (), 1, "CopyColor"),
    ("EvidenziaColor", (), 1, "EvidenziaColor"),
    ("OKCaption", (), "x", "OKCaption"),
    ("OkColor", (), 1, "OkColor"),
    ("AddVisible", (), False, "AddVisible"),
    ("InsertVisible", (), False, "InsertVisible"),
    ("DeleteVisible", (), False, "DeleteVisible"),
    ("CopyVisible", (), False, "CopyVisible"),
    ("OkVisible", (), False, "OkVisible"),
    ("AutoAdd", (), False, "AutoAdd"),
    ("AutoStartInputOnClick", (), False, "AutoStartInputOnClick"),
)


@scenario
def every_put_tells_its_name_once(form: Form) -> None:
    put = [name for name, _, _, _ in PUTS]
    form.equal(put, [m.name for m in form.server.members.values() if m.put])
    for name, indexes, value, told in PUTS:
        form.list.put(name, *indexes, value)
        form.tells(*([f"changed {told}"] if told else []))


@scenario
def puts_by_reference_tell_their_names(form: Form) -> None:
    form.list.GiveFocusTo = None
    form.list.Recordset = None
    form.tells("changed GiveFocusTo", "changed Recordset")


@scenario
def a_value_that_is_there_already_is_told_all_the_same(form: Form) -> None:
    form.list.AutoAdd = True
    form.list.Cols = 1
    form.tells("changed AutoAdd", "changed Cols")


@scenario
def methods_tell_no_property(form: Form) -> None:
    form.list.SetFont(10)
    form.list.EvidenziaFunzione(1)
    form.list.CloseAll()
    form.tells()
