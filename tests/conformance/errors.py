"""Which error a wrong request gets, and what values become of each other."""

import krvlist
from form import LONG_MIN, Form
from scenarios import scenario


@scenario
def unknown_members_are_error_438(form: Form) -> None:
    form.fails(438, lambda: form.list.get("NoSuchMember"))
    form.fails(438, lambda: form.list.put("NoSuchMember", 1))
    form.fails(438, lambda: form.list.call("NoSuchMember"))
    form.tells()


@scenario
def members_used_as_what_they_are_not_are_error_438(form: Form) -> None:
    form.fails(438, lambda: form.list.get("Refresh"))
    form.fails(438, lambda: form.list.call("Cols"))
    form.fails(438, lambda: form.list.request("putref", name="Cols", args=[], value=2))
    form.equal(form.list.Cols, 1)


@scenario
def puts_that_a_property_does_not_take_are_error_383(form: Form) -> None:
    form.fails(383, lambda: form.list.put("Adding", True))
    form.fails(383, lambda: form.list.put("GiveFocusTo", None))
    form.fails(383, lambda: form.list.put("Recordset", None))
    form.tells()


@scenario
def a_wrong_number_of_arguments_is_error_450(form: Form) -> None:
    control = form.quiet(2, rows=1)
    form.fails(450, lambda: control.get("Caption"))
    form.fails(450, lambda: control.get("Caption", 0, 0))
    form.fails(450, lambda: control.get("Cols", 0))
    form.fails(450, lambda: control.get("TextMatrix", 0))
    form.fails(450, lambda: control.put("ColFormat", "x"))
    form.fails(450, lambda: control.call("SendKeys", 65))
    form.fails(450, lambda: control.call("Svuota", True, True))
    form.fails(450, lambda: control.call("SetFont"))
    form.tells()


@scenario
def values_of_the_wrong_kind_are_error_13(form: Form) -> None:
    control = form.list
    for name, value in (
        ("AutoAdd", "abc"), ("AutoAdd", None), ("LineNumberColumn", "abc"), ("LineNumberColumn", ""),
        ("LineNumberColumn", [1]), ("LineNumberColumn", None), ("AddCaption", None), ("BackColor", "red"),
    ):
        form.fails(13, lambda: control.put(name, value))
    form.fails(13, lambda: control.request("putref", name="GiveFocusTo", args=[], value=5))
    form.fails(13, lambda: control.call("EvidenziaFunzione", "two"))
    form.fails(13, lambda: control.get("Caption", "first"))
    form.equal((control.AutoAdd, control.LineNumberColumn, control.AddCaption), (True, -1, "aggiungi"))
    form.tells()


@scenario
def values_out_of_range_are_error_6(form: Form) -> None:
    control = form.list
    for name, value in (
        ("KeyAdd", 40000), ("KeyOK", -32769), ("LineNumberColumn", 2**31), ("LineNumberColumn", LONG_MIN - 1),
        ("LineNumberColumn", "99999999999"), ("BackColor", 2**32), ("ButtonsHeight", 1e39),
    ):
        form.fails(6, lambda: control.put(name, value))
    form.fails(6, lambda: control.put("ColFieldLength", 0, 40000))
    form.fails(6, lambda: control.put("ColFieldType", 0, "40000"))
    form.fails(6, lambda: control.call("SendKeys", 40000, 0))
    form.tells()


@scenario
def objects_that_are_not_there_are_error_424(form: Form) -> None:
    for name in ("GiveFocusTo", "Recordset"):
        form.fails(424, lambda: setattr(form.list, name, krvlist.ObjectRef("nobody")))
    form.tells()


@scenario
def an_object_that_is_no_recordset_is_error_13(form: Form) -> None:
    host_object = form.server.object("button")
    form.fails(13, lambda: setattr(form.list, "Recordset", host_object))
    form.tells()


@scenario
def text_for_numbers_is_read_by_the_region(form: Form) -> None:
    for text, number in (("12", 12), ("12,6", 13), ("12.6", 126), (" 7 ", 7), ("-3", -3), ("2,5", 2), ("3,5", 4)):
        form.list.LineNumberColumn = text
        form.equal(form.list.LineNumberColumn, number)
    form.server.region("en-US")
    other = form.new("L2")
    other.LineNumberColumn = "12.6"
    form.equal(other.LineNumberColumn, 13)


@scenario
def fractions_round_half_to_even(form: Form) -> None:
    for value, number in ((2.5, 2), (3.5, 4), (-2.5, -2), (2.4, 2), (2.6, 3)):
        form.list.LineNumberColumn = value
        form.equal(form.list.LineNumberColumn, number)


@scenario
def Booleans_take_numbers_and_texts(form: Form) -> None:
    for value, flag in ((0, False), (7, True), ("False", False), ("true", True), ("0", False), ("-1", True)):
        form.list.AutoAdd = not flag
        form.list.AutoAdd = value
        form.equal(form.list.AutoAdd, flag)
    form.list.LineNumberColumn = True
    form.equal(form.list.LineNumberColumn, -1)


@scenario
def colours_come_with_or_without_sign(form: Form) -> None:
    for value, colour in ((-2147483633, 0x8000000F), (0x8000000F, 0x8000000F), (255, 255), (-1, 0xFFFFFFFF)):
        form.list.AddColor = value
        form.equal(form.list.AddColor, colour)


@scenario
def numbers_become_text(form: Form) -> None:
    for value, text in ((12, "12"), (-3, "-3"), (1.5, "1,5"), ("", "")):
        form.list.AddCaption = value
        form.equal(form.list.AddCaption, text)


@scenario
def parts_and_controls_that_are_not_there_are_refused(form: Form) -> None:
    control = form.list
    form.refused(-32602, lambda: control.part("btnNone"))
    form.refused(-32602, lambda: control.focus("btnNone"))
    form.refused(-32602, lambda: control.key(65, part="btnNone"))
    form.refused(-32602, lambda: control.click("btnNone"))
    form.refused(-32602, lambda: control.cells("btnAdd", 0, 0))
    form.refused(-32602, lambda: form.server.request("get", id="nobody", name="Cols", args=[]))
    form.refused(-32601, lambda: form.server.request("no.such.request"))


@scenario
def a_second_control_of_an_id_is_error_457(form: Form) -> None:
    form.fails(457, lambda: form.server.request("control.new", id="L1"))
    form.equal(form.list.Cols, 1)


@scenario
def arguments_come_back_as_they_were_passed(form: Form) -> None:
    form.equal(tuple(form.list.call("SetFont", 0)), (None, [0]))
    form.equal(tuple(form.list.call("Svuota", True)), (None, [True]))
    form.equal(tuple(form.list.call("CloseAll")), (None, []))
