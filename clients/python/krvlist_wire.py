"""The line to a krvlist-server: its process, JSON-RPC messages, errors and values.

Programs use `krvlist`, which offers controls over this line.
"""

from __future__ import annotations

import dataclasses
import datetime
import decimal
import json
import os
import pathlib
import queue
import shutil
import subprocess
import threading
import time
from collections import deque
from typing import Any, Callable, Deque, Dict, Mapping, Optional, Sequence, Set, Tuple

#: One JSON-RPC message.
Message = Dict[str, Any]

#: Number of an error that a handler raised without naming one.
UNNUMBERED_ERROR = 440

#: Bytes of the longest line that the server reads, its end not counted.
LONGEST_LINE = 16 * 1024 * 1024

_INVALID_REQUEST = -32600

# A line longer than what a pipe takes in one go may wait for a reader that never comes.
_SAFE_LINE_BYTES = 32 * 1024


class KrvListError(Exception):
    """Any error of this client but those of the host's own handlers."""


class ControlError(KrvListError):
    """A run-time error of the control or of its data: `number`, `description`, `source`."""

    def __init__(self, number: int, description: str, source: str) -> None:
        super().__init__(f"error {number}: {description}")
        self.number = number
        self.description = description
        self.source = source


class ProtocolError(KrvListError):
    """The server refused a request, or said what it should not; `code` is JSON-RPC's."""

    def __init__(self, code: int, text: str) -> None:
        super().__init__(f"{text} ({code})")
        self.code = code


class ServerGone(KrvListError):
    """The server ended or gave no answer in time. Nothing further can be asked of it."""


class HostError(Exception):
    """Raise it in an event handler to raise an error in the control."""

    def __init__(self, number: int, text: str, source: str = "host") -> None:
        super().__init__(text)
        self.number = number
        self.source = source


@dataclasses.dataclass(frozen=True)
class ObjectRef:
    """An object that lives in the server: a recordset, or something of the host with a focus."""

    name: str


class NotServed(Exception):
    """The server asked for something that this client does not know."""


def find_program(path: Optional[os.PathLike[str] | str] = None) -> str:
    """The server's program: `path`, else `KRVLIST_SERVER`, else the release build beside this file,
    else krvlist-server on the PATH.

    Raises FileNotFoundError when there is none; `path` and the variable are taken as they are.
    """
    named = path or os.environ.get("KRVLIST_SERVER")
    if named:
        return os.fspath(named)
    checkout = pathlib.Path(__file__).resolve().parents[2]
    built = checkout / "build" / "release" / "apps" / "server" / "krvlist-server"
    if built.is_file():
        return str(built)
    installed = shutil.which("krvlist-server")
    if installed:
        return installed
    raise FileNotFoundError(
        "krvlist-server not found: build it with scripts/build release krvlist-server, or name it in KRVLIST_SERVER"
    )


def to_json(value: Any) -> Any:
    """A Python value as the protocol writes it."""
    if isinstance(value, ObjectRef):
        return {"object": value.name}
    if isinstance(value, decimal.Decimal):
        return {"decimal": format(value, "f")}
    if isinstance(value, datetime.datetime):
        return {"date": value.isoformat(" ", "seconds")}
    if isinstance(value, datetime.date):
        return {"date": f"{value.isoformat()} 00:00:00"}
    if isinstance(value, (bytes, bytearray)):
        return {"hex": bytes(value).hex()}
    return value


def from_json(value: Any) -> Any:
    """What the protocol writes as a Python value: Decimal, datetime, bytes, ObjectRef and the plain
    ones."""
    if not isinstance(value, dict) or len(value) != 1:
        return value
    kind, content = next(iter(value.items()))
    if kind == "object":
        return ObjectRef(content)
    if kind == "decimal":
        return decimal.Decimal(content)
    if kind == "date":
        return datetime.datetime.fromisoformat(content)
    if kind == "hex":
        return bytes.fromhex(content)
    return value


def _line_of(message: Message) -> bytes:
    """The message as it is sent; ValueError or TypeError when no line can hold it."""
    line = json.dumps(message, ensure_ascii=False, allow_nan=False).encode("utf-8")
    if len(line) > LONGEST_LINE:
        raise ValueError(f"{len(line)} bytes are more than the {LONGEST_LINE} that the server reads")
    return line + b"\n"


def _error_of(answer: Mapping[str, Any]) -> KrvListError:
    data = answer.get("data")
    if isinstance(data, dict) and "Number" in data:
        return ControlError(data["Number"], data.get("Description", ""), data.get("Source", ""))
    return ProtocolError(answer.get("code", 0), answer.get("message", ""))


class Line:
    """A running server. Requests nest: while one waits, `serve` carries out what the server asks
    for, and may make further requests. To be used from one thread."""

    def __init__(
        self,
        command: Sequence[str],
        *,
        serve: Callable[[str, Message], Any],
        timeout: float,
        environment: Optional[Mapping[str, str]] = None,
    ) -> None:
        """`serve(method, params)` gives the answer to a request of the server, or hears a
        notification. `timeout`: seconds that the server may stay silent while an answer is due."""
        self.timeout = timeout
        #: Hears every message: "sent" or "received", and the message.
        self.trace: Optional[Callable[[str, Message], None]] = None
        self._serve = serve
        self._last_id = 0
        self._last_sent: Optional[Message] = None
        self._abandoned: Set[int] = set()
        self._gone: Optional[ServerGone] = None
        self._incoming: queue.Queue[Message | ValueError | None] = queue.Queue()
        self._log: Deque[str] = deque(maxlen=20)
        self._process = subprocess.Popen(
            list(command),
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env={**os.environ, **(environment or {})},
        )
        self._threads = [self._start(self._read_messages), self._start(self._read_log)]

    @property
    def is_open(self) -> bool:
        """Whether requests can be made."""
        return self._gone is None

    @property
    def exit_status(self) -> Optional[int]:
        """What the server ended with, negative for a signal; None while it runs."""
        return self._process.poll()

    def request(self, method: str, params: Optional[Message] = None) -> Any:
        """Sends a request and gives its result. What a handler raised meanwhile, but a HostError,
        comes out here."""
        self._last_id += 1
        own_id = self._last_id
        message = {"jsonrpc": "2.0", "id": own_id, "method": method, "params": params or {}}
        try:
            line = _line_of(message)
        except ValueError as error:
            raise ProtocolError(_INVALID_REQUEST, f"'{method}' cannot be sent: {error}") from error
        self._send(message, line, method)
        failure: Optional[BaseException] = None
        while True:
            try:
                answer = self._receive(self.timeout, method)
                if answer.get("id") == own_id and "method" not in answer:
                    break
                if _has_no_id(answer) and self._last_sent is message:
                    break  # the server could not read the request
                failure = _first(failure, self._take(answer, method))
            except ServerGone:
                if failure is not None and not isinstance(failure, Exception):
                    raise failure
                raise
            except BaseException:
                self._abandoned.add(own_id)
                raise
        if failure is not None:
            raise failure
        if "error" in answer:
            raise _error_of(answer["error"])
        return answer.get("result")

    def wait(self, seconds: float) -> None:
        """Serves what the server asks for by itself, such as events of a person at a window."""
        end = time.monotonic() + seconds
        while (rest := end - time.monotonic()) > 0:
            try:
                message = self._incoming.get(timeout=rest)
            except queue.Empty:
                return
            failure = self._take(self._checked(message, "waiting"), "waiting")
            if failure is not None:
                raise failure

    def close(self) -> None:
        """Ends the server. Does nothing the second time."""
        if self._gone is None:
            self._gone = ServerGone("the server was closed")
        stdin = self._process.stdin
        assert stdin is not None
        try:
            stdin.close()
        except OSError:
            pass  # it ended before
        try:
            self._process.wait(min(self.timeout, 10))
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        for thread in self._threads:
            thread.join(1)
        for stream in (self._process.stdout, self._process.stderr):
            assert stream is not None
            stream.close()

    # --- Messages ---

    def _take(self, message: Message, doing: str) -> Optional[BaseException]:
        """Serves what is not the answer that is waited for; gives what comes out of it."""
        if "method" in message:
            return self._answer(message)
        answered = message.get("id")
        if isinstance(answered, int) and answered in self._abandoned:
            self._abandoned.remove(answered)
            return None
        last = self._last_sent
        if not _has_no_id(message) or last is None or "method" in last:
            raise self._give_up(f"answered what it was not asked during '{doing}': {message}")
        # The server could not read the handler's answer and waits for another.
        error = _error_of(message["error"])
        reply = {"jsonrpc": "2.0", "id": last["id"], "error": _error_answer(UNNUMBERED_ERROR, str(error), "host")}
        self._send(reply, _line_of(reply), doing)
        self._last_sent = None
        return error

    def _answer(self, message: Message) -> Optional[BaseException]:
        """Serves a request or notification; gives what the handler raised, if it is the host's."""
        reply: Message = {"jsonrpc": "2.0", "id": message.get("id")}
        failure: Optional[BaseException] = None
        try:
            reply["result"] = self._serve(message["method"], message.get("params") or {})
            line = _line_of(reply)
        except BaseException as error:  # the host's own fault comes out of its request
            failure = None if isinstance(error, (NotServed, HostError)) else error
            if failure is not None and self._gone is not None:
                raise
            reply, line, failure = _failed(message.get("id"), error, failure)
        if "id" in message:
            try:
                self._send(reply, line, message["method"])
            except ServerGone:
                if failure is not None and not isinstance(failure, Exception):
                    raise failure
                raise
        return failure

    def _send(self, message: Message, line: bytes, doing: str) -> None:
        if self._gone is not None:
            raise ServerGone(str(self._gone))
        if self.trace is not None:
            self.trace("sent", message)
        self._last_sent = message
        stdin = self._process.stdin
        assert stdin is not None
        guard = threading.Timer(self.timeout, self._process.kill)
        if len(line) > _SAFE_LINE_BYTES:
            guard.start()
        try:
            stdin.write(line)
            stdin.flush()
        except OSError:
            raise self._give_up(f"ended before '{doing}'") from None
        finally:
            guard.cancel()

    def _receive(self, seconds: float, doing: str) -> Message:
        try:
            message = self._incoming.get(timeout=seconds)
        except queue.Empty:
            raise self._give_up(f"gave no answer to '{doing}' in {seconds:g} s") from None
        return self._checked(message, doing)

    def _checked(self, message: Message | ValueError | None, doing: str) -> Message:
        if message is None:
            raise self._give_up(f"ended during '{doing}'")
        if isinstance(message, ValueError):
            raise self._give_up(f"said what is no message during '{doing}': {message}")
        if self.trace is not None:
            self.trace("received", message)
        return message

    def _give_up(self, what: str) -> ServerGone:
        """Puts the server away and gives the error that says why."""
        try:
            status: Optional[int] = self._process.wait(1 if what.startswith("ended") else 0)
        except subprocess.TimeoutExpired:
            status = None
            self._process.kill()
            self._process.wait()
        self._threads[1].join(1)
        text = f"the server {what}" + ("" if status is None else f" (status {status})")
        self._gone = ServerGone("\n".join([text, *self._log]))
        return self._gone

    # --- The process's output ---

    def _start(self, read: Callable[[], None]) -> threading.Thread:
        thread = threading.Thread(target=read, daemon=True)
        thread.start()
        return thread

    def _read_messages(self) -> None:
        assert self._process.stdout is not None
        for line in self._process.stdout:
            try:
                message = json.loads(line)
                self._incoming.put(message if isinstance(message, dict) else ValueError(line))
            except ValueError:
                self._incoming.put(ValueError(line))
        self._incoming.put(None)

    def _read_log(self) -> None:
        assert self._process.stderr is not None
        for line in self._process.stderr:
            self._log.append(line.decode("utf-8", "replace").rstrip())


def _error_answer(number: int, description: str, source: str) -> Message:
    data = {"Number": number, "Description": description, "Source": source}
    return {"code": -32000, "message": description, "data": data}


def _failed(
    id: Any, error: BaseException, failure: Optional[BaseException]
) -> Tuple[Message, bytes, Optional[BaseException]]:
    """The answer that says what a handler raised, its line, and what comes out of the request."""
    reply: Message = {"jsonrpc": "2.0", "id": id}
    try:
        reply["error"] = _error_answer_to(error)
        return reply, _line_of(reply), failure
    except Exception as unwritable:
        text = f"{type(error).__name__}, whose text cannot be sent"
        reply["error"] = _error_answer(UNNUMBERED_ERROR, text, "host")
        return reply, _line_of(reply), failure or unwritable


def _error_answer_to(error: BaseException) -> Message:
    if isinstance(error, NotServed):
        return {"code": -32601, "message": str(error)}
    if isinstance(error, HostError):
        return _error_answer(error.number, str(error), error.source)
    if isinstance(error, ControlError):
        return _error_answer(error.number, error.description, error.source)
    return _error_answer(UNNUMBERED_ERROR, f"{type(error).__name__}: {error}", "host")


def _has_no_id(answer: Message) -> bool:
    """Whether it is the error that answers a line that the server could not read."""
    return "method" not in answer and "error" in answer and answer.get("id") is None


def _first(one: Optional[BaseException], other: Optional[BaseException]) -> Optional[BaseException]:
    """What comes out when two were raised: the first, but an interrupt before an error."""
    if one is None or (isinstance(one, Exception) and other is not None and not isinstance(other, Exception)):
        return other
    return one
