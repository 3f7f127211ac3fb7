"""What a scenario works with: a form with a control, the trace of all that passes, and checks."""

from __future__ import annotations

import json
import pathlib
import struct
import unittest
from typing import Any, Callable, List

import krvlist

BUTTONS = ("btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK")  # as they stand, left to right
FUNCTION_BUTTONS = BUTTONS[:4]
GRIDS = ("Grid", "GridIn")
PARTS = ("control", *GRIDS, "InpFld", *BUTTONS, "Line1")
TAB_STOPS = (*GRIDS, "InpFld", *BUTTONS)
BUTTON_FACE = 0x8000000F
LONG_MIN, LONG_MAX = -(2**31), 2**31 - 1

_check = unittest.TestCase()
_check.maxDiff = None


def single(number: float) -> float:
    """The number as a 32-bit float."""
    return float(struct.unpack("<f", struct.pack("<f", number))[0])


def text_of(value: Any) -> str:
    """A value on one line, alike for 3 and 3.0."""
    if isinstance(value, float) and value.is_integer():
        value = int(value)
    if isinstance(value, dict):
        inside = ", ".join(f"{key}: {text_of(value[key])}" for key in sorted(value))
        return "{" + inside + "}"
    if isinstance(value, list):
        return "[" + ", ".join(map(text_of, value)) + "]"
    return json.dumps(value, ensure_ascii=False)


class Form:
    """A form of one backend with a new control, `list`. All that passes between host and server is
    written into `trace`; what the control tells the host also waits in `happened`."""

    def __init__(self, server: krvlist.Server, folder: pathlib.Path) -> None:
        self.server = server
        self.trace: List[str] = []
        self._news: List[str] = []
        self._folder = folder
        server.region("it-IT")
        server.title = "Rolda"
        server.watch(self._write)
        self.list = self.new("L1")

    def new(self, id: str) -> krvlist.List:
        """A further control, all of whose events are heard; the focus is outside."""
        control = self.server.new(id)
        control.listen("*")
        control.focus("outside")
        self.happened()
        return control

    def quiet(self, cols: int = 2, rows: int = 0) -> krvlist.List:
        """The control with so many columns and rows and cells such as "a0", "b0", "a1"; it opens no
        row by itself, and moving to a row does nothing more, because the buttons are disabled."""
        control = self.list
        control.AutoAdd = False
        control.Enabled = False
        control.Cols = cols
        control.Rows = rows
        for row in range(rows):
            for col in range(cols):
                control.TextMatrix[row, col] = f"{chr(97 + col)}{row}"
        self.happened()
        return control

    def file(self, name: str) -> str:
        """A path where no file is."""
        path = self._folder / name
        path.unlink(missing_ok=True)
        return str(path)

    # --- Checks ---

    def happened(self) -> List[str]:
        """Events, changed properties and message boxes since the last time, one line each."""
        news, self._news = self._news, []
        return news

    def equal(self, got: Any, want: Any) -> None:
        """The two are equal, fractions in 32 bits, and Booleans are not numbers."""
        got, want = _plain(got), _plain(want)
        _check.assertEqual(got, want)
        _check.assertEqual(text_of(got), text_of(want))

    def tells(self, *want: str) -> None:
        """This, in this order, and nothing else, happened since the last time."""
        _check.assertEqual(self.happened(), list(want))

    def fails(self, number: int, action: Callable[[], Any]) -> krvlist.ControlError:
        """The action ends with this run-time error."""
        with _check.assertRaises(krvlist.ControlError) as caught:
            action()
        _check.assertEqual(caught.exception.number, number, str(caught.exception))
        return caught.exception

    def refused(self, code: int, action: Callable[[], Any]) -> None:
        """The server refuses the request with this code."""
        with _check.assertRaises(krvlist.ProtocolError) as caught:
            action()
        _check.assertEqual(caught.exception.code, code, str(caught.exception))

    def of_parts(self, parts: Any, name: str) -> List[Any]:
        """One property of several parts."""
        return [self.list.part(part)[name] for part in parts]

    def rectangle(self, part: str) -> List[float]:
        """Left, Top, Width, Height of a part."""
        properties = self.list.part(part)
        return [properties[name] for name in ("Left", "Top", "Width", "Height")]

    def focused(self) -> List[str]:
        """Names of whatever has the focus."""
        return [part for part in TAB_STOPS if self.list.part(part)["Focused"]]

    # --- The end ---

    def look(self, control: krvlist.List) -> List[Any]:
        """All that can be seen of a control."""
        seen: List[Any] = [control.part(name) for name in PARTS]
        for grid in GRIDS:
            seen += [control.cells(grid), control.columns(grid)]
            seen.append(control.rows(grid, 0, control.part(grid)["Rows"] - 1))
        for member in self.server.members.values():
            if member.get and not member.params:
                seen.append(control.get(member.name))
            elif member.get and [p.name for p in member.params] != ["Row", "Col"]:
                if member.name != "RowPos":
                    seen += [control.get(member.name, col) for col in range(control.Cols)]
        return seen

    def leave(self) -> None:
        """Writes what can be seen into the trace and takes the controls away."""
        for control in list(self.server.controls.values()):
            self.look(control)
            control.focus("outside")
            control.delete()
        self.server.request("host.title")
        self.server.watch(None)
        self.server.on_message(None)
        self.server.answer("*", None)

    # --- The trace ---

    def _write(self, direction: str, message: krvlist.Message) -> None:
        params = message.get("params") or {}
        if direction == "sent" and "method" in message:
            lines = [f"> {message['method']} {text_of(params)}"]
        elif direction == "sent":
            lines = [f"  host: {_outcome(message)}"]
        elif "method" not in message:
            lines = _lines_of(message)
        else:
            lines = [self._news_of(message["method"], params)]
            self._news += lines
        self.trace += lines

    def _news_of(self, method: str, params: krvlist.Message) -> str:
        control = params.get("id", "L1")
        who = "" if control == "L1" else f"{control}: "
        if method == "event":
            event = self.server.events[params["name"]]
            known = [p.name for p in event.params]
            args = sorted(params["args"], key=known.index)
            inside = ", ".join(f"{name}={text_of(params['args'][name])}" for name in args)
            number = "" if params["dispid"] == event.id else f" as {params['dispid']}"
            return f"{who}{params['name']}({inside}){number}"
        if method == "propertyChanged":
            return f"{who}changed {params['name']}"
        if method == "message":
            return f"message {params['text']} [{params['buttons']}] {params['title']}"
        return f"{method} {text_of(params)}"


def _plain(value: Any) -> Any:
    """A value with lists for tuples, names for objects, and fractions as the interface has them."""
    if isinstance(value, (tuple, list)):
        return [_plain(item) for item in value]
    if isinstance(value, dict):
        return {key: _plain(item) for key, item in value.items()}
    if isinstance(value, float):
        return single(value)
    return value.name if isinstance(value, krvlist.ObjectRef) else value


def _outcome(message: krvlist.Message) -> str:
    return text_of(message["error"] if "error" in message else message.get("result"))


def _lines_of(answer: krvlist.Message) -> List[str]:
    """A result, one line for each property of a part."""
    result = answer.get("result")
    if isinstance(result, dict) and len(result) > 4:
        return [f"    {key}: {text_of(result[key])}" for key in sorted(result)]
    return [f"< {_outcome(answer)}"]
