"""The members and events of the control, as it describes them."""

from form import Form
from scenarios import scenario

# Properties in order: name, type, indexes ("&": by reference), access (R get, W put, S put by reference).
PROPERTIES = """
BackColor             OLE_COLOR       -             RW
ButtonsHeight         Single          -             RW
ButtonsWidth          Single          -             R
Adding                Boolean         -             R
Connect               String          -             RW
InputModified         Boolean         -             R
KeyAdd                Integer         -             RW
KeyCopy               Integer         -             RW
KeyDelete             Integer         -             RW
KeyInsert             Integer         -             RW
KeyOK                 Integer         -             RW
MoveWithTab           Boolean         -             RW
Modified              Boolean         -             R
MsgTitle              String          -             RW
Editing               Boolean         -             R
Inserting             Boolean         -             R
Enabled               Boolean         -             RW
Rows                  Long            -             RW
Caption               String          Col           RW
ColEditable           Boolean         Col           RW
ColIsNecessary        Boolean         Col           RW
ColFieldLength        Integer         Col           RW
ColFieldType          Integer         Col           RW
ColFormat             String          Col           RW
LineNumberColumn      Long            -             RW
ColDataField          String          Col           RW
ColFromRecord         krvListRecords  Col           RW
ColIsKey              krvListRecords  Col           RW
Cols                  Long            -             RW
ColPos                Long            Col           R
RowPos                Long            Row           R
Recordsource          String          -             RW
Recordset             Recordset       -             RS
ReadOnlyRecordset     Boolean         -             RW
DataBaseName          String          -             RW
Row                   Long            -             RW
ColWidth              Long            &Index        RW
ColAlignment          Long            &Index        RW
TopRow                Long            -             RW
TextMatrix            String          &Row,&Col     RW
GiveFocusTo           Object          -             RS
InputArray            String          &Col          RW
AddCaption            String          -             RW
AddColor              OLE_COLOR       -             RW
InsertCaption         String          -             RW
InsertColor           OLE_COLOR       -             RW
DeleteCaption         String          -             RW
DeleteColor           OLE_COLOR       -             RW
CopyCaption           String          -             RW
CopyColor             OLE_COLOR       -             RW
EvidenziaColor        OLE_COLOR       -             RW
OKCaption             String          -             RW
OkColor               OLE_COLOR       -             RW
AddVisible            Boolean         -             RW
InsertVisible         Boolean         -             RW
DeleteVisible         Boolean         -             RW
CopyVisible           Boolean         -             RW
OkVisible             Boolean         -             RW
AutoAdd               Boolean         -             RW
AutoStartInputOnClick Boolean         -             RW
"""

# Methods in order: name, result, parameters.
METHODS = """
Refresh            -
SendKeys           -       KeyCode:Integer  Shift:Integer
Clear              -
CloseAll           -
Add                Boolean
Insert             Boolean
Delete             Boolean
Copy               Boolean
OK                 Boolean
EvidenziaFunzione  -       Funzione:Integer
RowClick           -       &Row:Long  &Button:Integer  &Shift:Integer
SetInput           Boolean &Col:Long
SetFont            -       &FontSize:Single
CloseRecordset     -
Svuota             -       &NeverAdd:Boolean?
"""

# Events by number.
EVENTS = """
1  KeyDown           &KeyCode:Integer &Shift:Integer Col:Long
2  KeyPress          &KeyAscii:Integer
3  ListClick         &Button:Integer &Shift:Integer &x:Single &y:Single Row:Long Col:Long
4  LineEditStart     Adding:Boolean
5  InputLineClick    &Button:Integer &Shift:Integer &x:Single &y:Single Col:Long
6  InputLineDblClick Col:Long &Value:String
7  InputFieldClick   &Button:Integer &Shift:Integer &x:Single &y:Single Col:Long
8  InputFieldChange  Col:Long &Value:String
9  AfterRowDelete    DeletedRow:Long
10 AfterRowUpdated   UpdatedRow:Long
11 AddClick          &Cancel:Boolean
12 InsertClick       &Cancel:Boolean
13 DeleteClick       &Cancel:Boolean
14 BeforeFieldUpdate ColInEdit:Long &Value:String &Cancel:Boolean
15 BeforeRowUpdate   RowInEdit:Long ColInEdit:Long &Cancel:Boolean &ExternalHandling:Boolean
16 CopyClick         &Cancel:Boolean
17 OKClick           &Cancel:Boolean
18 RowSelect         &Row:Long
"""


def table(text: str) -> list:
    return [line.split() for line in text.strip().splitlines()]


def spelled(param: dict) -> str:
    """A parameter as in the tables above."""
    optional = "?" if param.get("optional") else ""
    return f"{'&' if param['byref'] else ''}{param['name']}:{param['type']}{optional}"


@scenario
def it_has_75_members_and_18_events(form: Form) -> None:
    described = form.server.request("describe")
    form.equal((len(described["members"]), len(described["events"])), (75, 18))
    form.equal((len(table(PROPERTIES)), len(table(METHODS)), len(table(EVENTS))), (60, 15, 18))


@scenario
def properties_have_their_types_indexes_and_access(form: Form) -> None:
    rows = []
    for member in form.server.request("describe")["members"]:
        if member["kind"] == "property":
            indexes = ",".join(spelled(p).partition(":")[0] for p in member["params"]) or "-"
            marks = zip("RWS", (member["get"], member["put"], member["putref"]))
            rows.append([member["name"], member["type"], indexes, "".join(m for m, has in marks if has)])
    form.equal(rows, table(PROPERTIES))


@scenario
def indexes_are_long_numbers(form: Form) -> None:
    members = form.server.request("describe")["members"]
    types = {p["type"] for m in members if m["kind"] == "property" for p in m["params"]}
    form.equal(sorted(types), ["Long"])


@scenario
def methods_have_their_parameters_and_results(form: Form) -> None:
    rows = []
    for member in form.server.request("describe")["members"]:
        if member["kind"] == "method":
            rows.append([member["name"], member["type"] or "-", *map(spelled, member["params"])])
    form.equal(rows, table(METHODS))


@scenario
def properties_come_before_methods(form: Form) -> None:
    kinds = [m["kind"] for m in form.server.request("describe")["members"]]
    form.equal(kinds, ["property"] * 60 + ["method"] * 15)


@scenario
def events_have_their_numbers_and_parameters(form: Form) -> None:
    events = form.server.request("describe")["events"]
    form.equal([[str(e["id"]), e["name"], *map(spelled, e["params"])] for e in events], table(EVENTS))


@scenario
def there_are_two_enumerations(form: Form) -> None:
    want = {
        "krvAlignment": {"krvauto": 0, "krvleft": 1, "krvcenter": 4, "krvright": 7},
        "krvListRecords": {"krvListRecord": 0, "krvRec1": 1, "krvRec2": 2},
    }
    form.equal(form.server.request("describe")["enums"], want)
