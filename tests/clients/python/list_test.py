"""The client's face of a control, with the real server. `KRVLIST_SERVER` names its program."""

import datetime
import decimal
import pathlib
import signal
import tempfile
import unittest
from unittest import mock

import clients  # noqa: F401
import krvlist


class WithServer(unittest.TestCase):
    def setUp(self):
        self.server = krvlist.Server(region="it-IT", timeout=60)
        self.addCleanup(self.server.close)
        self.list = self.server.new("L1")


class Members(WithServer):
    def test_properties_are_attributes(self):
        self.list.Cols = 3
        self.list.AddCaption = "nuovo"
        self.assertEqual((self.list.Cols, self.list.AddCaption, self.list.Enabled), (3, "nuovo", True))

    def test_indexed_properties_take_brackets(self):
        self.list.Cols = 3
        self.list.Rows = 1
        self.list.ColFormat[2] = "dd/mm/yyyy"
        self.list.TextMatrix[0, 1] = "x"
        self.assertEqual((self.list.ColFormat[2], self.list.TextMatrix[0, 1]), ("dd/mm/yyyy", "x"))

    def test_indexes_travel_in_their_own_kinds_like_values(self):
        sent = []
        self.server.watch(lambda direction, message: sent.append(message) if direction == "sent" else None)
        zero, day = decimal.Decimal(0), datetime.date(2024, 3, 5)
        for use in (
            lambda: self.list.TextMatrix[zero, day],
            lambda: self.list.put("TextMatrix", zero, day, "x"),
            lambda: self.list.call("TextMatrix", zero, day),
        ):
            with self.assertRaises(krvlist.ControlError):
                use()
            self.assertEqual(sent[-1]["params"]["args"], [{"decimal": "0"}, {"date": "2024-03-05 00:00:00"}])

    def test_what_no_line_can_hold_is_an_error_and_changes_nothing(self):
        for value in (float("nan"), float("inf"), "\ud800", "x" * 2**24, 10**400):
            with self.assertRaises(krvlist.ProtocolError):
                self.list.OKCaption = value
        with self.assertRaises(krvlist.ProtocolError):
            self.list.TextMatrix[float("nan"), 0] = "x"
        self.assertEqual(self.list.OKCaption, "conferma riga")

    def test_unknown_names_are_attribute_errors(self):
        for name in ("cols", "NoSuch", "_private"):
            with self.assertRaises(AttributeError):
                getattr(self.list, name)
            with self.assertRaises(AttributeError):
                setattr(self.list, name, 1)
        self.assertFalse(hasattr(self.list, "NoSuch"))

    def test_methods_and_indexed_properties_cannot_be_assigned(self):
        for name in ("Refresh", "ColFormat"):
            with self.assertRaises(AttributeError):
                setattr(self.list, name, "x")

    def test_members_are_listed(self):
        self.assertTrue({"Cols", "Refresh", "TextMatrix", "call"} <= set(dir(self.list)))
        self.assertEqual(len(self.server.members), 75)
        self.assertEqual(list(self.server.events)[0], "KeyDown")

    def test_methods_are_called_with_arguments_in_order_or_by_name(self):
        self.list.Rows = 2
        self.assertIsNone(self.list.Svuota(NeverAdd=True))
        self.assertIsNone(self.list.SetFont(12))
        self.assertEqual((self.list.Rows, self.list.part("Grid")["FontSize"]), (0, 12))
        with self.assertRaises(TypeError):
            self.list.Svuota(Never=True)

    def test_call_gives_the_arguments_back(self):
        result = self.list.call("SetFont", 10)
        self.assertEqual((result.value, result.args), (None, [10]))

    def test_errors_of_the_control_have_number_description_and_source(self):
        with self.assertRaises(krvlist.ControlError) as caught:
            self.list.ColFormat[1]
        error = caught.exception
        self.assertEqual(error.number, 9)
        self.assertTrue(error.description and isinstance(error.source, str))

    def test_errors_of_the_protocol_have_a_code(self):
        with self.assertRaises(krvlist.ProtocolError) as caught:
            self.list.part("nothing")
        self.assertEqual(caught.exception.code, -32602)

    def test_objects_are_references(self):
        button = self.server.object("button")
        self.list.GiveFocusTo = button
        self.assertEqual(self.list.GiveFocusTo, button)
        self.list.GiveFocusTo = None
        self.assertIsNone(self.list.GiveFocusTo)


class Events(WithServer):
    def test_handlers_get_the_arguments_that_they_name(self):
        got = []
        self.list.on("KeyDown")(lambda KeyCode, Col: got.append((KeyCode, Col)))
        self.list.on("KeyDown")(lambda **named: got.append(named))
        self.list.on("KeyDown")(lambda: got.append("none"))
        self.list.SendKeys(65, 1)
        self.assertEqual(got, [(65, -1), {"KeyCode": 65, "Shift": 1, "Col": -1}, "none"])

    def test_later_handlers_see_what_earlier_ones_changed(self):
        got = []
        self.list.on("KeyDown")(lambda: {"KeyCode": 66})
        self.list.on("KeyDown")(lambda KeyCode: got.append(KeyCode))
        self.list.SendKeys(65, 0)
        self.assertEqual(got, [66])

    def test_handlers_may_be_taken_away(self):
        got = []
        self.list.on("KeyDown")(lambda KeyCode: got.append(KeyCode))
        self.list.SendKeys(65, 0)
        self.list.off("KeyDown")
        self.list.SendKeys(66, 0)
        self.assertEqual(got, [65])

    def test_unknown_events_are_value_errors(self):
        with self.assertRaises(ValueError):
            self.list.on("NoSuch")

    def test_an_error_of_the_host_is_an_error_of_the_call(self):
        @self.list.on("KeyDown")
        def fail():
            raise krvlist.HostError(1234, "not now")

        with self.assertRaises(krvlist.ControlError) as caught:
            self.list.SendKeys(65, 0)
        error = caught.exception
        self.assertEqual((error.number, error.description, error.source), (1234, "not now", "host"))

    def test_a_mistake_in_a_handler_comes_out_of_the_call(self):
        self.list.on("KeyDown")(lambda: 1 // 0)
        with self.assertRaises(ZeroDivisionError):
            self.list.SendKeys(65, 0)
        self.assertEqual(self.list.Cols, 1)

    def test_a_change_that_no_line_can_hold_comes_out_of_the_call(self):
        for value, kind in (
            (float("nan"), ValueError),
            ("\ud800", ValueError),
            ("x" * 2**24, ValueError),
            (10**400, krvlist.ProtocolError),
        ):
            self.list.on("KeyDown")(lambda: {"KeyCode": value})
            with self.assertRaises(kind):
                self.list.SendKeys(65, 0)
            self.list.off("KeyDown")
        self.assertEqual(self.list.Cols, 1)

    def test_an_interrupt_in_a_handler_comes_out_of_the_call(self):
        @self.list.on("KeyDown")
        def interrupt():
            raise KeyboardInterrupt

        for _ in range(2):
            with self.assertRaises(KeyboardInterrupt):
                self.list.SendKeys(65, 0)
        self.assertEqual(self.list.Cols, 1)

    def test_an_error_of_the_control_in_a_handler_comes_out_with_its_number(self):
        self.list.on("KeyDown")(lambda: self.list.ColFormat[99])
        received = []
        self.server.watch(lambda direction, message: received.append(message) if "error" in message else None)
        with self.assertRaises(krvlist.ControlError) as caught:
            self.list.SendKeys(65, 0)
        self.assertEqual(caught.exception.number, 9)
        self.assertEqual([message["error"]["data"]["Number"] for message in received], [9, 9, 9])

    def test_a_handler_of_an_event_that_cannot_be_heard_is_not_registered(self):
        got = []
        with mock.patch.object(krvlist.List, "listen", side_effect=krvlist.ProtocolError(-32602, "no")):
            with self.assertRaises(krvlist.ProtocolError):
                self.list.on("KeyDown")(lambda: got.append("refused"))
        self.list.on("KeyDown")(lambda: got.append("heard"))
        self.list.SendKeys(65, 0)
        self.assertEqual(got, ["heard"])

    def test_requests_nest_in_handlers(self):
        got = []
        self.list.on("KeyDown")(lambda: got.append(self.list.Cols))
        self.list.SendKeys(65, 0)
        self.assertEqual(got, [1])

    def test_changed_properties_are_heard(self):
        got = []
        self.list.on_property_changed(got.append)
        self.list.Cols = 2
        self.list.InsertColor = 1
        self.assertEqual(got, ["Cols", "InserColor"])

    def test_a_control_may_delete_itself_in_its_event(self):
        self.list.on("KeyDown")(self.list.delete)
        self.list.key(65, part="btnAdd")
        self.assertEqual(self.server.controls, {})


class Host(WithServer):
    def test_message_boxes_are_answered_by_the_handler(self):
        boxes = []

        @self.server.on_message
        def answer(text, buttons, title):
            boxes.append((text, buttons, title))

        self.list.KeyAdd = 1
        text = "The value must be between vbKeyF1 and vbKeyF12."
        self.assertEqual(boxes, [(text, "ok", "Rolda")])
        self.server.answer("*", "ok")
        self.list.KeyAdd = 1
        self.assertEqual(len(boxes), 1)

    def test_message_boxes_without_a_handler_do_not_block(self):
        self.list.KeyAdd = 1
        self.assertEqual(self.list.KeyAdd, 116)

    def test_the_title_is_read_and_set(self):
        self.server.title = "Magazzino"
        self.assertEqual((self.server.title, self.list.MsgTitle), ("Magazzino", "Magazzino"))

    def test_a_person_types_and_clicks(self):
        keys = []
        self.list.on("KeyDown")(lambda KeyCode, Shift: keys.append((KeyCode, Shift)))
        self.list.focus("btnAdd")
        self.list.type("aB")
        self.list.key(27, krvlist.CTRL)
        self.list.focus("outside")
        self.list.click("Grid")
        self.assertEqual(keys, [(65, 0), (66, 1), (27, 2)])
        self.assertTrue(self.list.part("Grid")["Focused"])

    def test_parts_cells_and_measures_are_seen(self):
        self.list.Rows = 2
        self.list.TextMatrix[1, 0] = "x"
        self.assertEqual(self.list.cells(), [[""], [""], ["x"]])
        self.assertEqual(self.list.cells("Grid", 2, 2), [["x"]])
        measures = self.list.columns()
        self.assertEqual((measures["ColWidth"], measures["ColPos"]), ([960], [0]))
        self.assertEqual(self.list.rows("Grid", 0, 1), {"RowHeight": [240, 240], "RowPos": [0, 240]})
        self.list.resize(7000, 4000)
        self.server.yield_()
        self.assertEqual(self.list.part("control")["Width"], 7000)

    def test_conversions_are_those_of_the_control(self):
        self.assertEqual(self.server.convert("Format", "Double", "1234.5", "#,##0.00"), "1.234,50")
        self.assertEqual(self.server.convert("CLng", "String", "12,5"), 12)

    def test_a_server_that_was_killed_is_an_error_and_no_hang(self):
        self.server._line._process.send_signal(signal.SIGKILL)
        with self.assertRaises(krvlist.ServerGone):
            self.list.Cols
        self.assertFalse(self.server.is_open)

    def test_a_context_manager_ends_the_server(self):
        with krvlist.Server() as server:
            self.assertIsNone(server.exit_status)
        self.assertEqual((server.exit_status, server.is_open), (0, False))

    def test_a_wrong_program_is_an_error(self):
        with self.assertRaises(OSError):
            krvlist.Server(pathlib.Path(tempfile.gettempdir(), "no", "such", "server"))


if __name__ == "__main__":
    unittest.main()
