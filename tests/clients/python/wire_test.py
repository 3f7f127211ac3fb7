"""The line to the server, with servers that end, keep silent or talk nonsense."""

import datetime
import decimal
import json
import os
import pathlib
import stat
import sys
import tempfile
import time
import unittest
from unittest import mock

import clients  # noqa: F401
import krvlist
import krvlist_wire

# A server played by a few lines of Python, which come last.
SCRIPT = """#!{python}
import json, os, sys, time
def read():
    line = sys.stdin.readline()
    return json.loads(line) if line else sys.exit(0)
def write(message):
    sys.stdout.write(json.dumps(message) + "\\n")
    sys.stdout.flush()
def answer(request, result):
    write({{"jsonrpc": "2.0", "id": request["id"], "result": result}})
{body}
"""


class Scripted(unittest.TestCase):
    """Cases with a server that a few lines of Python play."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.program = pathlib.Path(folder.name) / "server"

    def line(self, body, serve=lambda method, params: None, timeout=20):
        self.program.write_text(SCRIPT.format(python=sys.executable, body=body), "utf-8")
        self.program.chmod(self.program.stat().st_mode | stat.S_IXUSR)
        line = krvlist_wire.Line([str(self.program)], serve=serve, timeout=timeout)
        self.addCleanup(line.close)
        return line


class Death(Scripted):
    def test_a_server_that_ends_is_named_with_its_status_and_last_words(self):
        line = self.line("read(); sys.stderr.write('out of paper\\n'); sys.exit(3)")
        with self.assertRaises(krvlist.ServerGone) as caught:
            line.request("get")
        self.assertEqual(str(caught.exception), "the server ended during 'get' (status 3)\nout of paper")

    def test_nothing_can_be_asked_of_a_server_that_ended(self):
        line = self.line("read()")
        for _ in range(2):
            with self.assertRaises(krvlist.ServerGone):
                line.request("get")
        self.assertFalse(line.is_open)

    def test_a_silent_server_is_given_up_after_the_timeout(self):
        line = self.line("time.sleep(60)", timeout=0.5)
        start = time.monotonic()
        with self.assertRaisesRegex(krvlist.ServerGone, "gave no answer to 'get' in 0.5 s"):
            line.request("get")
        self.assertLess(time.monotonic() - start, 20)

    def test_a_server_that_does_not_read_is_given_up_after_the_timeout(self):
        line = self.line("time.sleep(60)", timeout=0.5)
        with self.assertRaises(krvlist.ServerGone):
            line.request("put", {"value": "x" * 10_000_000})

    def test_a_server_that_talks_nonsense_is_given_up(self):
        for said in ("print('hello', flush=True)", "write([1])"):
            line = self.line(f"read(); {said}; time.sleep(60)")
            with self.assertRaisesRegex(krvlist.ServerGone, "said what is no message"):
                line.request("get")

    def test_an_answer_to_no_request_is_given_up(self):
        line = self.line("answer({'id': 77}, 1); time.sleep(60)")
        with self.assertRaisesRegex(krvlist.ServerGone, "answered what it was not asked"):
            line.request("get")

    def test_a_server_that_ends_inside_an_event_ends_the_request(self):
        body = "read(); write({'id': 's1', 'method': 'event', 'params': {}}); sys.exit(0)"
        line = self.line(body, serve=lambda method, params: {})
        with self.assertRaises(krvlist.ServerGone):
            line.request("call")

    def test_a_closed_line_says_so(self):
        line = self.line("read()")
        line.close()
        line.close()
        with self.assertRaisesRegex(krvlist.ServerGone, "was closed"):
            line.request("get")


class Refusals(Scripted):
    """Lines that cannot be written or that the server cannot read."""

    REFUSES_FIRST = """
read(); write({"id": None, "error": {"code": -32700, "message": "not JSON"}})
answer(read(), "second")
"""

    def test_what_no_line_can_hold_is_refused_before_it_is_sent(self):
        line = self.line("answer(read(), 'well')")
        recursive = []
        recursive.append(recursive)
        too_long = "x" * krvlist_wire.LONGEST_LINE
        for value in (float("nan"), float("inf"), [-float("inf")], "\ud800", {"\udc00": 1}, recursive, too_long):
            with self.assertRaises(krvlist.ProtocolError):
                line.request("put", {"value": value})
        with self.assertRaises(TypeError):
            line.request("put", {"value": object()})
        self.assertEqual(line.request("get"), "well")

    def test_a_line_of_the_greatest_length_is_sent(self):
        line = self.line("answer(read(), 'well')")
        rest = len(json.dumps({"jsonrpc": "2.0", "id": 1, "method": "put", "params": {"value": ""}}))
        self.assertEqual(line.request("put", {"value": "x" * (krvlist_wire.LONGEST_LINE - rest)}), "well")

    def test_an_error_without_an_id_answers_the_request_sent_last(self):
        line = self.line(self.REFUSES_FIRST)
        with self.assertRaises(krvlist.ProtocolError) as caught:
            line.request("put")
        self.assertEqual(caught.exception.code, -32700)
        self.assertEqual(line.request("get"), "second")

    def test_an_error_without_an_id_answers_the_answer_sent_last(self):
        body = """
request = read()
write({"id": "s1", "method": "event", "params": {}})
read(); write({"id": None, "error": {"code": -32700, "message": "not JSON"}})
answer(request, read()["error"]["data"]["Number"])
answer(read(), "well")
"""
        sent = []
        line = self.line(body, serve=lambda method, params: {"Value": 1})
        line.trace = lambda direction, message: sent.append(message) if direction == "sent" else None
        with self.assertRaisesRegex(krvlist.ProtocolError, "not JSON"):
            line.request("call")
        self.assertEqual(sent[2]["id"], "s1")
        self.assertEqual(sent[2]["error"]["data"]["Number"], 440)
        self.assertEqual(line.request("get"), "well")

    def test_an_answer_that_is_refused_while_waiting_is_error_440(self):
        body = """
write({"id": "s1", "method": "event", "params": {}})
read(); write({"id": None, "error": {"code": -32700, "message": "not JSON"}})
number = read()["error"]["data"]["Number"]
answer(read(), number)
"""
        line = self.line(body, serve=lambda method, params: {})
        with self.assertRaisesRegex(krvlist.ProtocolError, "not JSON"):
            line.wait(20)
        self.assertEqual(line.request("get"), 440)

    def test_an_error_without_an_id_to_no_line_is_given_up(self):
        fail = 'write({"id": None, "error": {"code": -32700, "message": "not JSON"}})'
        for body in (
            f"request = read(); write({{'id': 's1', 'method': 'event'}}); read(); {fail}; read(); {fail}",
            fail,
        ):
            line = self.line(body + "; time.sleep(60)", serve=lambda method, params: {})
            with self.assertRaisesRegex(krvlist.ServerGone, "answered what it was not asked"):
                line.wait(20) if body == fail else line.request("call")


class Serving(Scripted):
    RELAY = """
request = read()
write({"id": "s1", "method": "event", "params": {"n": 1}})
nested = read()
answer(nested, "nested")
reply = read()
answer(request, [nested["method"], reply])
"""
    ONE_EVENT = """
request = read()
write({"id": "s1", "method": "event", "params": {}})
answer(request, read())
"""

    def test_requests_nest_inside_what_the_server_asks(self):
        got = []

        def serve(method, params):
            got.append(line.request("inside"))
            return {"changed": params["n"] + 1}

        line = self.line(self.RELAY, serve)
        reply = {"jsonrpc": "2.0", "id": "s1", "result": {"changed": 2}}
        self.assertEqual(line.request("outside"), ["inside", reply])
        self.assertEqual(got, ["nested"])

    def test_an_error_of_the_host_is_the_answer(self):
        def serve(method, params):
            raise krvlist.HostError(7, "no", "here")

        answer = self.line(self.ONE_EVENT, serve).request("call")
        data = {"Number": 7, "Description": "no", "Source": "here"}
        self.assertEqual(answer["error"], {"code": -32000, "message": "no", "data": data})

    def test_an_unknown_request_of_the_server_is_refused(self):
        def serve(method, params):
            raise krvlist_wire.NotServed("what?")

        answer = self.line(self.ONE_EVENT, serve).request("call")
        self.assertEqual(answer["error"], {"code": -32601, "message": "what?"})

    def test_another_exception_is_error_440_and_comes_out_of_the_request(self):
        sent = []

        def serve(method, params):
            raise KeyError("lost")

        line = self.line(self.ONE_EVENT, serve)
        line.trace = lambda direction, message: sent.append(message) if direction == "sent" else None
        with self.assertRaises(KeyError):
            line.request("call")
        self.assertEqual(sent[1]["error"]["data"]["Number"], 440)
        self.assertTrue(line.is_open)

    def answered(self, raised=None, given=None):
        """The error that a handler's exception or answer becomes, and what comes out of the request,
        after which the line is open."""
        sent = []

        def serve(method, params):
            if raised is not None:
                raise raised
            return given

        line = self.line(self.ONE_EVENT + "answer(read(), 'well')", serve)
        line.trace = lambda direction, message: sent.append(message) if direction == "sent" else None
        try:
            line.request("call")
            came_out = None
        except BaseException as error:
            came_out = error
        self.assertEqual(line.request("get"), "well")
        return sent[1]["error"]["data"], came_out

    def test_an_answer_that_no_line_can_hold_is_error_440(self):
        too_long = "x" * krvlist_wire.LONGEST_LINE
        for given, kind in (
            ({"Value": float("nan")}, ValueError),
            ({"Value": "\ud800"}, ValueError),
            ({"Value": too_long}, ValueError),
            ({"Value": object()}, TypeError),
        ):
            answer, came_out = self.answered(given=given)
            self.assertEqual(answer["Number"], 440)
            self.assertIsInstance(came_out, kind)

    def test_an_error_whose_text_no_line_can_hold_is_error_440(self):
        class Mute(Exception):
            def __str__(self):
                raise RuntimeError("no words")

        for raised in (krvlist.HostError(7, "\ud800"), KeyError("x" * krvlist_wire.LONGEST_LINE), Mute()):
            answer, came_out = self.answered(raised)
            self.assertEqual(answer["Number"], 440)
            self.assertIsInstance(came_out, Exception)

    def test_an_interrupt_is_answered_before_it_comes_out(self):
        for raised in (KeyboardInterrupt(), SystemExit(2)):
            answer, came_out = self.answered(raised)
            self.assertEqual(answer["Number"], 440)
            self.assertIs(came_out, raised)

    def test_an_interrupt_comes_out_of_a_server_that_ended_by_it(self):
        def serve(method, params):
            raise KeyboardInterrupt

        line = self.line("read(); write({'id': 's1', 'method': 'event'}); sys.exit(0)", serve)
        with self.assertRaises(KeyboardInterrupt):
            line.request("call")
        self.assertFalse(line.is_open)

    def test_an_interrupted_request_of_a_handler_leaves_the_line_in_step(self):
        body = """
request = read()
write({"id": "s1", "method": "event", "params": {}})
nested = read()
write({"method": "interrupt"})
reply = read()
answer(nested, 1)
answer(request, reply["id"])
answer(read(), "well")
"""
        def serve(method, params):
            if method == "event":
                line.request("inside")

        line = self.line(body, serve)

        def interrupt(direction, message):
            if message.get("method") == "interrupt":
                raise KeyboardInterrupt

        line.trace = interrupt
        with self.assertRaises(KeyboardInterrupt):
            line.request("call")
        self.assertEqual(line.request("get"), "well")

    def test_an_error_of_the_control_keeps_its_number_and_source(self):
        answer, came_out = self.answered(krvlist.ControlError(9, "Subscript out of range", "krvList3"))
        self.assertEqual(answer, {"Number": 9, "Description": "Subscript out of range", "Source": "krvList3"})
        self.assertIsInstance(came_out, krvlist.ControlError)

    def test_another_server_that_is_gone_is_error_440(self):
        answer, came_out = self.answered(krvlist.ServerGone("the other one"))
        self.assertEqual(answer["Number"], 440)
        self.assertEqual(str(came_out), "the other one")

    def test_what_the_server_asks_by_itself_is_served_while_waiting(self):
        got = []
        line = self.line("write({'method': 'propertyChanged', 'params': {}}); read()", lambda m, p: got.append(m))
        end = time.monotonic() + 20
        while not got and time.monotonic() < end:
            line.wait(0.05)
        self.assertEqual(got, ["propertyChanged"])

    def test_errors_of_the_control_and_of_the_protocol_differ(self):
        line = self.line("""
def fail(error):
    write({"id": read()["id"], "error": error})
fail({"code": -32000, "message": "m", "data": {"Number": 9, "Description": "d", "Source": "s"}})
fail({"code": -32601, "message": "unknown"})
""")
        with self.assertRaises(krvlist.ControlError) as control:
            line.request("get")
        with self.assertRaises(krvlist.ProtocolError) as protocol:
            line.request("nothing")
        error = control.exception
        self.assertEqual((error.number, error.description, error.source), (9, "d", "s"))
        self.assertEqual((protocol.exception.code, str(protocol.exception)), (-32601, "unknown (-32601)"))


class Values(unittest.TestCase):
    def test_values_travel_in_their_own_kinds(self):
        for value, written in (
            (None, None),
            (True, True),
            (1.5, 1.5),
            ("x", "x"),
            (krvlist.ObjectRef("rs1"), {"object": "rs1"}),
            (decimal.Decimal("9007199254740993"), {"decimal": "9007199254740993"}),
            (decimal.Decimal("1E+3"), {"decimal": "1000"}),
            (datetime.datetime(2024, 3, 5, 1, 2, 3), {"date": "2024-03-05 01:02:03"}),
            (b"\x00\xff", {"hex": "00ff"}),
        ):
            self.assertEqual(krvlist_wire.to_json(value), written)
            self.assertEqual(krvlist_wire.from_json(written), value)

    def test_a_day_is_written_with_midnight(self):
        self.assertEqual(krvlist_wire.to_json(datetime.date(899, 1, 2)), {"date": "0899-01-02 00:00:00"})


class Program(unittest.TestCase):
    def test_the_argument_comes_before_the_environment(self):
        with mock.patch.dict(os.environ, {"KRVLIST_SERVER": "/there"}):
            self.assertEqual(krvlist.find_program("/here"), "/here")
            self.assertEqual(krvlist.find_program(), "/there")

    def test_the_path_is_searched_last(self):
        with tempfile.TemporaryDirectory() as folder:
            module = pathlib.Path(folder, "checkout", "clients", "python", "krvlist_wire.py")
            installed = pathlib.Path(folder, "krvlist-server")
            with mock.patch.dict(os.environ, {"PATH": folder}), mock.patch.object(krvlist_wire, "__file__", str(module)):
                os.environ.pop("KRVLIST_SERVER", None)
                with self.assertRaises(FileNotFoundError):
                    krvlist.find_program()
                installed.write_text("")
                installed.chmod(0o755)
                self.assertEqual(krvlist.find_program(), str(installed))
                built = module.parents[2] / "build" / "release" / "apps" / "server" / "krvlist-server"
                built.parent.mkdir(parents=True)
                built.write_text("")
                self.assertEqual(krvlist.find_program(), str(built))


if __name__ == "__main__":
    unittest.main()
