"""Settings in a property bag: every key in its order, defaults, what a stored control starts with."""

import random
from typing import Any, Dict, List

import krvlist
from form import BUTTON_FACE, BUTTONS, FUNCTION_BUTTONS, Form
from scenarios import scenario

BEFORE = [
    ("BackColor", BUTTON_FACE), ("Enabled", True), ("MsgTitle", "Rolda"), ("Rows", 2), ("Cols", 2), ("Cols", 2),
    ("Row", 0), ("ButtonsHeight", 0), ("LineNumberColumn", -1), ("Connect", "Access;"), ("DataBaseName", ""),
    ("RecordSource", ""), ("ReadOnlyRecordset", 0),
]
COLUMN = [
    ("ColWidth", 0), ("ColAlignment", 0), ("Caption", ""), ("ColEditable", True), ("ColIsKey", 0),
    ("ColFromRecord", 0), ("ColDataField", ""), ("ColFormat", ""), ("ColIsNecessary", False),
    ("ColFieldLength", 0), ("ColFieldType", 12),
]
AFTER = [
    ("AddVisible", True), ("InsertVisible", -1), ("DeleteVisible", -1), ("CopyVisible", -1), ("OkVisible", -1),
    ("AutoAdd", -1), ("AutoStartInputOnClick", True), ("MoveWithTab", False), ("KeyAdd", 116), ("KeyInsert", 117),
    ("KeyDelete", 118), ("KeyCopy", 119), ("KeyOK", 13), ("AddCaption", "aggiungi"),
    ("InsertCaption", "inserisci"), ("DeleteCaption", "elimina"), ("CopyCaption", "copia"),
]
#: Every key with a value that is not its default, those of a column at one of three.
OTHER: Dict[str, Any] = {
    "BackColor": 0x00C0FFEE, "Enabled": False, "MsgTitle": "Ordini", "Rows": 6, "Cols": 3, "Row": 2,
    "ButtonsHeight": 300.5, "LineNumberColumn": 1, "Connect": "Provider=SQLite;Data Source=a.db",
    "DataBaseName": "c:\\a.mdb", "RecordSource": "SELECT 1", "ReadOnlyRecordset": True,
    "ColWidth0": 1200, "ColAlignment0": 7, "Caption0": "Codice", "ColEditable0": False, "ColIsKey0": 1,
    "ColFromRecord0": 2, "ColDataField0": "codice", "ColFormat0": "#,##0.00", "ColIsNecessary0": True,
    "ColFieldLength0": 9, "ColFieldType0": 3, "Caption2": "Nato il", "ColIsKey2": -32768, "ColFieldType2": 133,
    "AddVisible": False, "InsertVisible": False, "DeleteVisible": False, "CopyVisible": False, "OkVisible": False,
    "AutoAdd": False, "AutoStartInputOnClick": False, "MoveWithTab": True, "KeyAdd": 112, "KeyInsert": 113,
    "KeyDelete": 114, "KeyCopy": 115, "KeyOK": 32, "AddCaption": "nuovo", "InsertCaption": "",
    "DeleteCaption": "via", "CopyCaption": "ancora",
}


def keys(cols: int) -> List[str]:
    """The keys in their order for so many columns."""
    columns = [key + str(col) for col in range(cols) for key, _ in COLUMN]
    return [key for key, _ in BEFORE] + columns + [key for key, _ in AFTER]


def loaded(form: Form, bag: Dict[str, Any], id: str = "L2") -> krvlist.List:
    """A stored control, all of whose events are heard."""
    control = form.server.load(id, bag)
    control.listen("*")
    return control


@scenario
def a_new_control_writes_every_key_in_its_order(form: Form) -> None:
    writes = form.list.save().writes
    form.equal([key for key, _, _ in writes], keys(1))
    form.equal(len(set(key for key, _, _ in writes)), 40)
    columns = [(key + "0", default) for key, default in COLUMN]
    form.equal([(key, default) for key, _, default in writes], BEFORE + columns + AFTER)
    form.tells()


@scenario
def a_new_control_stores_only_what_differs(form: Form) -> None:
    want = {
        "Rows": 1, "Cols": 1, "ButtonsHeight": 255, "Connect": "", "ColWidth0": 960, "ColAlignment0": 9,
        "ColFieldType0": 0,
    }
    form.equal(form.list.save().bag, want)


@scenario
def an_empty_bag_gives_defaults_of_its_own(form: Form) -> None:
    control = loaded(form, {})
    form.equal((control.Rows, control.Cols, control.Row), (1, 2, -1))
    form.equal([control.ColFieldType[col] for col in range(2)], [12, 12])
    form.equal([control.ColEditable[col] for col in range(2)], [True, True])
    form.equal(control.columns("Grid")["ColWidth"], [0, 0])
    form.equal(control.columns("GridIn")["ColWidth"], [0, 0])
    form.equal((control.Connect, control.LineNumberColumn, control.AutoAdd), ("Access;", -1, True))
    form.equal([control.part(name)["Visible"] for name in BUTTONS], [True] * 5)
    form.equal([control.part(name)["Caption"] for name in FUNCTION_BUTTONS],
               ["aggiungi (F5)", "inserisci (F6)", "copia (F8)", "elimina (F7)"])
    form.fails(9, lambda: control.ColDataField[2])
    form.tells()


@scenario
def a_bag_without_Cols_reads_two_columns(form: Form) -> None:
    control = loaded(form, {f"ColWidth{col}": 100 + col for col in range(4)})
    form.equal(control.Cols, 2)
    form.equal(control.columns("Grid")["ColWidth"], [100, 101])
    form.equal(control.columns("GridIn")["ColWidth"], [100, 101])


@scenario
def three_columns_come_back_in_both_grids(form: Form) -> None:
    first = form.quiet(3)
    for col, (width, caption) in enumerate(((0, "a"), (1100, ""), (1200, "c"))):
        first.ColWidth[col] = width
        first.Caption[col] = caption
    bag = first.save().bag
    form.equal([f"ColWidth{col}" in bag for col in range(4)], [False, True, True, False])
    form.equal([f"Caption{col}" in bag for col in range(4)], [True, False, True, False])
    control = loaded(form, bag)
    for grid in ("Grid", "GridIn"):
        form.equal(control.columns(grid)["ColWidth"], [0, 1100, 1200])
        form.equal(control.cells(grid, 0, 0), [["a", "", "c"]])


@scenario
def a_height_of_0_is_not_stored_and_comes_back_as_255(form: Form) -> None:
    form.list.ButtonsHeight = 0
    saved = form.list.save()
    form.equal("ButtonsHeight" in saved.bag, False)
    form.equal([write for write in saved.writes if write[0] == "ButtonsHeight"], [("ButtonsHeight", 0, 0)])
    control = loaded(form, saved.bag)
    form.equal([control.part(name)["Height"] for name in BUTTONS], [255] * 5)


@scenario
def a_height_of_255_is_stored(form: Form) -> None:
    form.equal(form.list.save().bag["ButtonsHeight"], 255)


@scenario
def key_texts_are_exact(form: Form) -> None:
    bag = {"Recordsource": "a", "recordSource": "b", "OKVisible": False, "KeyOk": 32, "MSGTITLE": "x", "ColWidth00": 9}
    control = loaded(form, bag)
    form.equal((control.Recordsource, control.OkVisible, control.KeyOK, form.server.title), ("", True, 13, "Rolda"))
    form.equal(control.ColWidth[0], 0)


@scenario
def every_setting_comes_back(form: Form) -> None:
    first = loaded(form, OTHER)
    saved = first.save()
    for key, value in OTHER.items():
        form.equal((key, saved.bag[key]), (key, value))
    form.equal([key for key, _, _ in saved.writes], keys(3))
    second = loaded(form, saved.bag, "L3")
    form.equal(second.save().writes, saved.writes)
    form.equal(form.look(second), form.look(first))
    form.tells()


@scenario
def flags_are_written_as_flags_and_colours_without_sign(form: Form) -> None:
    control = loaded(form, {"ReadOnlyRecordset": -1, "AutoAdd": 0, "BackColor": -2147483633, "Enabled": "false"})
    written = {key: value for key, value, _ in control.save().writes}
    form.equal([written[key] for key in ("ReadOnlyRecordset", "AutoAdd", "BackColor", "Enabled")],
               [True, False, BUTTON_FACE, False])


@scenario
def texts_are_read_by_the_regional_settings(form: Form) -> None:
    control = loaded(form, {"Rows": "4", "ColWidth0": "1.200,5", "ButtonsHeight": "300,5", "ColFieldType1": "3"})
    form.equal((control.Rows, control.ColWidth[0], control.ButtonsHeight, control.ColFieldType[1]), (3, 1200, 300.5, 3))


@scenario
def what_does_not_convert_leaves_no_control_but_the_title(form: Form) -> None:
    form.fails(13, lambda: form.server.load("L2", {"MsgTitle": "prima", "Rows": "molte", "Connect": "mai"}))
    form.equal(form.server.title, "prima")
    form.refused(-32602, lambda: form.server.request("control.save", id="L2"))
    control = loaded(form, {"MsgTitle": "poi"})
    form.equal((form.server.title, control.Rows), ("poi", 1))


@scenario
def an_error_names_its_key(form: Form) -> None:
    refused = (("Rows", "molte", 13), ("ColIsKey1", 32768, 6), ("KeyOK", 1e9, 6), ("ColAlignment0", 10, 30005))
    for key, value, number in refused:
        error = form.fails(number, lambda: form.server.load("L2", {key: value}))
        form.equal(key in str(error), True)


@scenario
def every_key_refuses_null_and_every_number_refuses_words(form: Form) -> None:
    for key, default in BEFORE + [(key + "1", default) for key, default in COLUMN] + AFTER:
        form.fails(13, lambda: form.server.load("L2", {key: None}))
        if not isinstance(default, str):
            form.fails(13, lambda: form.server.load("L2", {key: "abc"}))
    form.tells()


@scenario
def what_the_grids_refuse_is_their_error(form: Form) -> None:
    for bag, number in (
        ({"Rows": 0}, 30009), ({"Cols": 0}, 30010), ({"Cols": -3}, 30010), ({"Row": 2}, 30009), ({"Row": -1}, 30009),
        ({"ColWidth1": -5}, 30014), ({"ColAlignment1": -1}, 30005), ({"Cols": 32768}, 6), ({"Cols": 1e10}, 6),
    ):
        form.fails(number, lambda: form.server.load("L2", bag))


@scenario
def function_keys_are_taken_as_they_are(form: Form) -> None:
    control = loaded(form, {"KeyAdd": 65, "KeyInsert": -32768 + 111})
    form.equal((control.KeyAdd, control.part("btnAdd")["Caption"]), (65, "aggiungi (F-46)"))
    form.equal(control.part("btnInsert")["Caption"], "inserisci (F-32768)")
    form.fails(6, lambda: form.server.load("L3", {"KeyCopy": -32768}))
    form.tells()


@scenario
def a_stored_row_opens_nothing(form: Form) -> None:
    control = loaded(form, {"Rows": 6, "Row": 4, "ColWidth0": 900, "ColWidth1": 900})
    form.server.yield_()
    form.equal(control.Row, 3)
    form.equal([control.part(name)["Visible"] for name in ("GridIn", "InpFld")], [False, False])
    form.equal([control.get(name) for name in ("Adding", "Inserting", "Editing", "Modified")], [False] * 4)
    form.tells()


@scenario
def a_stored_control_is_edited_like_a_new_one(form: Form) -> None:
    bag = {"Rows": 3, "Cols": 2, "ColWidth0": 900, "ColWidth1": 900, "AutoAdd": False}
    control = loaded(form, bag)
    control.focus("Grid")
    control.key(116)
    control.type("uno")
    control.key(39)
    control.type("due")
    control.key(13)
    form.equal(control.Rows, 3)
    form.equal([control.TextMatrix[2, col] for col in range(2)], ["uno", "due"])
    form.equal([line.split("(")[0] for line in form.happened() if "InputFieldChange" not in line][:2],
               ["L2: AddClick", "L2: LineEditStart"])


@scenario
def the_live_state_is_written_while_a_row_is_edited(form: Form) -> None:
    control = loaded(form, {"Rows": 4, "ColWidth0": 900, "ColWidth1": 900})
    control.RowClick(1, 1, 0)
    control.type("x")
    before = control.part("InpFld")
    form.happened()
    written = {key: value for key, value, _ in control.save().writes}
    form.equal((written["Rows"], written["Row"]), (4, 2))
    form.equal(control.part("InpFld"), before)
    form.tells()


@scenario
def settings_are_saved_and_loaded_inside_an_event(form: Form) -> None:
    control = form.list
    seen: List[Any] = []

    @control.on("AddClick")
    def save_and_load(Cancel: bool) -> Dict[str, Any]:
        bag = control.save().bag
        seen.append((bag["Cols"], loaded(form, bag).save().bag == bag))
        return {"Cancel": True}

    control.listen("*")
    control.Add()
    form.equal(seen, [(1, True)])


@scenario
def stored_and_new_controls_have_the_same_size_and_layout(form: Form) -> None:
    control = loaded(form, form.list.save().bag)
    parts = ("control", "Grid", *BUTTONS)
    names = ("Left", "Top", "Width", "Height")
    for part in parts:
        mine, new = control.part(part), form.list.part(part)
        form.equal((part, [mine.get(name) for name in names]), (part, [new.get(name) for name in names]))


@scenario
def more_columns_than_16_bits_count_are_not_written(form: Form) -> None:
    form.list.Cols = 32768
    form.happened()
    form.fails(6, form.list.save)
    form.list.Cols = 1


@scenario
def settings_by_chance_come_back_alike(form: Form) -> None:
    chance = random.Random(17)
    texts = ["", "a", "più", "日本", "\"'&<>", "x\ty\nz", " "]
    for number in range(150):
        cols, rows = chance.randint(1, 4), chance.randint(1, 5)
        bag: Dict[str, Any] = {"Cols": cols, "Rows": rows, "Row": chance.randrange(rows)}
        for key, default in BEFORE + [(k + str(c), d) for c in range(cols) for k, d in COLUMN] + AFTER:
            if key in bag or chance.random() < 0.5:
                continue
            if isinstance(default, bool) or default in (0, -1) and key in ("ReadOnlyRecordset", "AutoAdd", "OkVisible"):
                bag[key] = chance.random() < 0.5
            elif isinstance(default, str):
                bag[key] = chance.choice(texts)
            elif key == "ButtonsHeight":
                bag[key] = chance.randint(1, 4000) / 8
            else:
                bag[key] = chance.randint(0, 9)
        id = f"R{number}"
        first = form.server.load(id, bag)
        saved = first.save()
        first.delete()
        second = form.server.load(id, saved.bag)
        form.equal(second.save(), saved)
        second.delete()
