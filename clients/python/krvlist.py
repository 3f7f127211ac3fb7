"""Python client of the KarvoList control: starts krvlist-server and drives controls by name.

    import krvlist

    with krvlist.Server() as server:
        list = server.new("orders")
        list.Cols = 2
        list.ColFormat[1] = "dd/mm/yyyy"

        @list.on("BeforeFieldUpdate")
        def check(ColInEdit, Value, Cancel):
            return {"Value": Value.strip()}

        list.Refresh()
        print(list.TextMatrix[0, 1])

Names in PascalCase are the control's own: its properties, methods and events, as `describe` lists
them. Names in snake_case are the client's. Columns and public rows count from 0, positions and sizes
are twips, colours unsigned 32-bit numbers. Python 3.9 or later, standard library only. One thread.
"""

from __future__ import annotations

import inspect
import os
from typing import (
    Any, Callable, Dict, Iterable, List as ListOf, Mapping, NamedTuple, Optional, Sequence, Tuple, Union,
)

from krvlist_page import Page, PageState, open_page
from krvlist_wire import (
    ControlError, HostError, KrvListError, Line, Message, NotServed, ObjectRef, ProtocolError,
    ServerGone, find_program, from_json, to_json,
)

__all__ = [
    "ALT", "CTRL", "CallResult", "ControlError", "Event", "HostError", "IndexedProperty",
    "KrvListError", "List", "Member", "Method", "ObjectRef", "Page", "PageState", "Parameter",
    "ProtocolError", "SHIFT", "Saved", "Server", "ServerGone", "find_program",
]

#: Shift states of keys and mouse buttons; added together.
SHIFT, CTRL, ALT = 1, 2, 4

#: Gets the arguments that it names in its parameters; may give those by reference that it changes.
EventHandler = Callable[..., Optional[Mapping[str, Any]]]
#: (text, buttons "ok" or "yesno", title) -> "ok", "yes", "no", or a Boolean for yes and no.
MessageHandler = Callable[[str, str, str], Union[str, bool, None]]
#: (title, filter, folder) -> the chosen file, or None.
FileHandler = Callable[[str, str, str], Optional[str]]


class Parameter(NamedTuple):
    """A parameter of a member or event, or the index of a property."""

    name: str
    type: str
    byref: bool
    optional: bool


class Member(NamedTuple):
    """A property ("property") or method ("method") of the control."""

    name: str
    kind: str
    type: Optional[str]
    params: Tuple[Parameter, ...]
    get: bool
    put: bool
    putref: bool


class Event(NamedTuple):
    """An event of the control."""

    id: int
    name: str
    params: Tuple[Parameter, ...]


class CallResult(NamedTuple):
    """What a method gave: its result, None for none, and the arguments as it left them."""

    value: Any
    args: ListOf[Any]


class Saved(NamedTuple):
    """A stored control: the bag, and every write into it as (key, value, default), in order."""

    bag: Dict[str, Any]
    writes: ListOf[Tuple[str, Any, Any]]


class Server:
    """A running krvlist-server with one form. A context manager; `close` ends the server."""

    def __init__(
        self,
        path: Optional[os.PathLike[str] | str] = None,
        backend: str = "headless",
        region: Optional[str] = None,
        *,
        timeout: float = 30,
        environment: Optional[Mapping[str, str]] = None,
    ) -> None:
        """Starts the server.

        `path`: the program, found by `find_program` when not given. `backend`: "headless" or "qt".
        `region`: regional settings such as "it-IT"; the system's when not given. `timeout`: seconds
        that the server may be silent while an answer is due. `environment`: further variables.
        """
        command = [find_program(path), "--backend", backend]
        command += ["--region", region] if region else []
        #: The controls that this client placed, by id.
        self.controls: Dict[str, List] = {}
        self._message_handler: Optional[MessageHandler] = None
        self._file_handler: Optional[FileHandler] = None
        self._page_handler: Optional[Callable[[], None]] = None
        self._line = Line(command, serve=self._serve, timeout=timeout, environment=environment)
        try:
            #: Name, version and backend of the server.
            self.info: Dict[str, str] = self.request("initialize")
            described = self.request("describe")
        except BaseException:
            self._line.close()
            raise
        #: Properties and methods by name, in interface order.
        self.members: Dict[str, Member] = {m["name"]: _member(m) for m in described["members"]}
        #: Events by name, in the order of their numbers.
        self.events: Dict[str, Event] = {e["name"]: _event(e) for e in described["events"]}
        #: Enumerations: constants by name.
        self.enums: Dict[str, Dict[str, int]] = described["enums"]

    def __enter__(self) -> Server:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Ends the server and its controls. Does nothing the second time."""
        self._line.close()

    @property
    def is_open(self) -> bool:
        """Whether the server runs and can be asked."""
        return self._line.is_open

    @property
    def exit_status(self) -> Optional[int]:
        """What the server ended with, negative for a signal; None while it runs."""
        return self._line.exit_status

    def request(self, method: str, **params: Any) -> Any:
        """Any request of the protocol, for what has no method here.

        Raises ControlError, ProtocolError, ServerGone, and what a handler raised meanwhile.
        """
        return self._line.request(method, params)

    def watch(self, trace: Optional[Callable[[str, Message], None]]) -> None:
        """Hands every message to `trace("sent" or "received", message)`, or ends that with None."""
        self._line.trace = trace

    # --- Controls ---

    def new(self, id: str) -> List:
        """Places a new control on the form, 6000 x 3000 twips, with its defaults."""
        self.request("control.new", id=id)
        return self._add(id)

    def load(self, id: str, bag: Mapping[str, Any]) -> List:
        """Places a stored control, with the settings of its bag."""
        self.request("control.load", id=id, bag=dict(bag))
        return self._add(id)

    def _add(self, id: str) -> List:
        self.controls[id] = List(self, id)
        return self.controls[id]

    def _forget(self, id: str) -> None:
        self.controls.pop(id, None)

    def open_page(self, *lists: Union[List, str]) -> Page:
        """Opens the property page on these controls and reads the first one; a page that is open
        goes. Its questions come as message boxes, its file dialog to `on_open_file`."""
        return open_page(self.request, lists)

    # --- The host ---

    @property
    def title(self) -> str:
        """The application's title, which message boxes show."""
        return str(self.request("host.title")["value"])

    @title.setter
    def title(self, value: str) -> None:
        self.request("host.title", value=value)

    def region(self, value: str) -> None:
        """Regional settings of everything made from now on: "it-IT", "en-US", "C", ..."""
        self.request("host.region", value=value)

    def yield_(self) -> None:
        """Gives the server's message loop one turn."""
        self.request("host.yield")

    def wait(self, seconds: float) -> None:
        """Serves events for so long, as when a person works at the window of the "qt" backend."""
        self._line.wait(seconds)

    def object(self, name: str, focusable: bool = True) -> ObjectRef:
        """Makes an object of the host, for `GiveFocusTo`."""
        return ObjectRef(self.request("host.object", name=name, focusable=focusable)["object"])

    def on_message(self, handler: Optional[MessageHandler]) -> Optional[MessageHandler]:
        """Sets who answers message boxes. Without one, and at None from it, OK boxes are answered
        with ok and questions with no, as if they were closed. May be used as a decorator."""
        self._message_handler = handler
        return handler

    def answer(self, text: str, reply: Optional[str]) -> None:
        """Has the server answer boxes with this text ("*": all) by itself: "ok", "yes", "no"; None
        takes it back."""
        self.request("answer", text=text, reply=reply)

    def on_open_file(self, handler: Optional[FileHandler]) -> Optional[FileHandler]:
        """Sets who chooses files; without one, file dialogs are cancelled."""
        self._file_handler = handler
        return handler

    def on_page_changed(self, handler: Optional[Callable[[], None]]) -> Optional[Callable[[], None]]:
        """Sets who hears that the property page was changed."""
        self._page_handler = handler
        return handler

    def convert(self, function: str, kind: str, value: str = "", pattern: Optional[str] = None) -> Any:
        """A conversion of the control: "Format", "CStr", "Val", "CDate", ... of a value of a kind
        ("Double", "Date", "Null", ...) given as text. The result is a text, number or date text."""
        params = {"function": function, "value": {"kind": kind, "value": value}}
        result = self.request("value.convert", **params, **({} if pattern is None else {"pattern": pattern}))
        return next(iter(result.values()))

    # --- Data of the host ---

    def data_open(self, connect: str, source: str, cursor: int = 0, lock: int = 1) -> ObjectRef:
        """Opens a recordset of the host, for `Recordset` or to be read."""
        params = {"connect": connect, "source": source, "cursor": cursor, "lock": lock}
        return ObjectRef(self.request("data.open", **params)["object"])

    def data_state(self, recordset: ObjectRef) -> Dict[str, Any]:
        """State, EOF, Source, CursorType, LockType and, while it is open, the Fields."""
        state: Dict[str, Any] = self.request("data.state", object=recordset.name)
        for field in state.get("Fields", []):
            field["Value"] = from_json(field.get("Value"))
        return state

    def data_read(self, recordset: ObjectRef, max: int = 100) -> ListOf[ListOf[Any]]:
        """The next rows, at most so many; none at the end."""
        return _rows(self.request("data.read", object=recordset.name, max=max))

    def data_execute(
        self, connect: str, sql: str, params: Sequence[Any] = ()
    ) -> Tuple[int, ListOf[ListOf[Any]]]:
        """Carries out a statement with bound parameters: rows affected, and rows given."""
        result = self.request(
            "data.execute", connect=connect, sql=sql, params=_values(params)
        )
        return result["affected"], _rows(result)

    # --- Requests of the server ---

    def _serve(self, method: str, params: Message) -> Any:
        if method == "event":
            control = self.controls.get(params["id"])
            return control._raise_event(params["name"], params["args"]) if control else {}
        if method == "propertyChanged":
            control = self.controls.get(params["id"])
            return control._raise_property_changed(params["name"]) if control else None
        if method == "message":
            return self._answer_message(params["text"], params["buttons"], params["title"])
        if method == "openfile":
            ask = self._file_handler
            file = ask(params["title"], params["filter"], params["folder"]) if ask else None
            return None if file is None else {"file": file}
        if method == "pageChanged":
            return self._page_handler() if self._page_handler else None
        raise NotServed(f"unknown request {method}")

    def _answer_message(self, text: str, buttons: str, title: str) -> str:
        ask = self._message_handler
        answer = ask(text, buttons, title) if ask else None
        if buttons == "ok":
            return "ok"
        if isinstance(answer, bool):
            return "yes" if answer else "no"
        return answer or "no"


class List:
    """One control. Its properties are attributes, `list.Cols = 3`; indexed ones take the index in
    brackets, `list.TextMatrix[0, 1]`; its methods are called, `list.RowClick(0, 1, 0)`."""

    __slots__ = ("server", "id", "_handlers", "_changed_handlers", "_heard")

    server: Server
    id: str
    _handlers: Dict[str, ListOf[EventHandler]]
    _changed_handlers: ListOf[Callable[[str], None]]
    _heard: Union[str, ListOf[str]]

    def __init__(self, server: Server, id: str) -> None:
        """The control of that id, which exists; use `Server.new` and `Server.load`."""
        object.__setattr__(self, "server", server)
        object.__setattr__(self, "id", id)
        object.__setattr__(self, "_handlers", {})
        object.__setattr__(self, "_changed_handlers", [])
        object.__setattr__(self, "_heard", [])

    # --- Members by name ---

    def __getattr__(self, name: str) -> Any:
        member = self._member(name)
        if member.kind == "method":
            return Method(self, member)
        return IndexedProperty(self, member) if member.params else self.get(name)

    def __setattr__(self, name: str, value: Any) -> None:
        member = self._member(name)
        if member.kind == "method":
            raise AttributeError(f"{name} is a method")
        if member.params:
            raise AttributeError(f"{name} needs an index: {name}[{', '.join(p.name for p in member.params)}]")
        if member.putref and not member.put:
            self.request("putref", name=name, args=[], value=to_json(value))
        else:
            self.put(name, value)

    def __dir__(self) -> Iterable[str]:
        return [*super().__dir__(), *self.server.members]

    def _member(self, name: str) -> Member:
        member = self.server.members.get(name)
        if member is None:
            raise AttributeError(f"the control has no member {name!r}")
        return member

    def request(self, method: str, **params: Any) -> Any:
        """Any request of the protocol about this control."""
        return self.server.request(method, id=self.id, **params)

    def get(self, name: str, *args: Any) -> Any:
        """Reads a property by name, known to `describe` or not."""
        return from_json(self.request("get", name=name, args=_values(args))["value"])

    def put(self, name: str, *args_and_value: Any) -> None:
        """Writes a property by name: its indexes, if any, then the value."""
        *args, value = args_and_value
        self.request("put", name=name, args=_values(args), value=to_json(value))

    def call(self, name: str, *args: Any) -> CallResult:
        """Calls a method by name; `args` of the result are the arguments as it left them."""
        result = self.request("call", name=name, args=_values(args))
        return CallResult(from_json(result["value"]), [from_json(value) for value in result["args"]])

    # --- Events ---

    def on(self, event: str) -> Callable[[EventHandler], EventHandler]:
        """Decorates a handler of an event. It gets the arguments that its parameters name, and may
        give a dictionary of the by-reference ones that it changes; handlers of one event run in the
        order of their registration and see what the ones before changed. A HostError that it raises
        is raised in the control; what else it raises comes out of the request that is under way."""
        if event not in self.server.events:
            raise ValueError(f"the control has no event {event!r}")

        def register(handler: EventHandler) -> EventHandler:
            if self._heard != "*" and event not in self._heard:
                self.listen([*self._heard, event])
            self._handlers.setdefault(event, []).append(handler)
            return handler

        return register

    def off(self, event: str) -> None:
        """Takes the event's handlers away."""
        self._handlers.pop(event, None)
        if event in self._heard:
            self.listen([name for name in self._heard if name != event])

    def listen(self, events: Union[str, Sequence[str]]) -> None:
        """Has the server send these events and no others; "*": all. `on` and `off` see to it."""
        self.request("listen", events=events)
        object.__setattr__(self, "_heard", events if isinstance(events, str) else list(events))

    def on_property_changed(self, handler: Callable[[str], None]) -> Callable[[str], None]:
        """Registers who hears the names of changed properties. May be used as a decorator."""
        self._changed_handlers.append(handler)
        return handler

    def _raise_event(self, name: str, args: Mapping[str, Any]) -> Dict[str, Any]:
        offered = dict(args)
        changed: Dict[str, Any] = {}
        for handler in list(self._handlers.get(name, ())):
            changes = handler(**_accepted(handler, offered)) or {}
            changed.update(changes)
            offered.update(changes)
        return {key: to_json(value) for key, value in changed.items()}

    def _raise_property_changed(self, name: str) -> None:
        for handler in list(self._changed_handlers):
            handler(name)

    # --- A person ---

    def key(self, code: int, shift: int = 0, part: Optional[str] = None) -> None:
        """Presses a key where the focus is, or on a part that gets the focus first."""
        self.request("input.key", code=code, shift=shift, **({"part": part} if part else {}))

    def type(self, text: str) -> None:
        """Types the text where the focus is."""
        self.request("input.text", text=text)

    def mouse(
        self, part: str, action: str, x: float = 10, y: float = 10, button: int = 1, shift: int = 0
    ) -> None:
        """A mouse action on a part: "press", "move", "release", "click", "dblclick"; twips from its
        top left; buttons 1 left, 2 right, 4 middle."""
        params = {"button": button, "shift": shift, "x": x, "y": y}
        self.request("input.mouse", part=part, action=action, **params)

    def click(self, part: str, x: float = 10, y: float = 10, button: int = 1, shift: int = 0) -> None:
        """Presses and releases a mouse button on a part."""
        self.mouse(part, "click", x, y, button, shift)

    def double_click(self, part: str, x: float = 10, y: float = 10) -> None:
        """Double-clicks a part."""
        self.mouse(part, "dblclick", x, y)

    def focus(self, part: str) -> None:
        """Moves the focus to a part, or to "outside", a text box of the form."""
        self.request("host.focus", part=part)

    def resize(self, width: float, height: float) -> None:
        """Resizes the control, as the form does."""
        self.request("host.resize", width=width, height=height)

    # --- What is seen ---

    def part(self, name: str) -> Dict[str, Any]:
        """Properties of a part ("Grid", "InpFld", "btnAdd", ...) or of "control"."""
        properties: Dict[str, Any] = self.request("part", name=name)
        return properties

    def cells(self, part: str = "Grid", first: int = 0, last: Optional[int] = None) -> ListOf[ListOf[str]]:
        """Texts of a grid's rows, the captions being row 0; to the last row when none is given."""
        if last is None:
            last = self.part(part)["Rows"] - 1
        rows: ListOf[ListOf[str]] = self.request("cells", part=part, **{"from": first, "to": last})["rows"]
        return rows

    def columns(self, part: str = "Grid") -> Dict[str, ListOf[int]]:
        """ColWidth, ColAlignment and ColPos of a grid, one number a column."""
        measures: Dict[str, ListOf[int]] = self.request("geometry", part=part, cols=True)
        return measures

    def rows(self, part: str, first: int, last: int) -> Dict[str, ListOf[int]]:
        """RowHeight and RowPos of a grid's rows."""
        measures: Dict[str, ListOf[int]] = self.request("geometry", part=part, rows=[first, last])
        return measures

    # --- Life ---

    def save(self) -> Saved:
        """Has the control write its settings."""
        result = self.request("control.save")
        return Saved(result["bag"], [(key, value, default) for key, value, default in result["writes"]])

    def delete(self) -> None:
        """Takes the control away; allowed inside its events."""
        self.request("control.delete")
        self.server._forget(self.id)


class IndexedProperty:
    """A property with indexes: `list.ColFormat[2]`, `list.TextMatrix[0, 1] = "x"`."""

    def __init__(self, list: List, member: Member) -> None:
        self._list = list
        self._member = member

    def __getitem__(self, index: Any) -> Any:
        return self._list.get(self._member.name, *_indexes(index))

    def __setitem__(self, index: Any, value: Any) -> None:
        self._list.put(self._member.name, *_indexes(index), value)


class Method:
    """A method of the control; calling it gives its result, None for none. Arguments may be named."""

    def __init__(self, list: List, member: Member) -> None:
        self._list = list
        self._member = member

    def __call__(self, *args: Any, **named: Any) -> Any:
        given = [*args]
        for parameter in self._member.params[len(args):]:
            if parameter.name not in named:
                break
            given.append(named.pop(parameter.name))
        if named:
            raise TypeError(f"{self._member.name} cannot take {', '.join(named)} here")
        return self._list.call(self._member.name, *given).value


def _parameters(described: Sequence[Message]) -> Tuple[Parameter, ...]:
    return tuple(
        Parameter(p["name"], p["type"], p["byref"], p.get("optional", False)) for p in described
    )


def _member(described: Message) -> Member:
    access = (bool(described.get(name)) for name in ("get", "put", "putref"))
    params = _parameters(described["params"])
    return Member(described["name"], described["kind"], described["type"], params, *access)


def _event(described: Message) -> Event:
    return Event(described["id"], described["name"], _parameters(described["params"]))


def _indexes(index: Any) -> Tuple[Any, ...]:
    return index if isinstance(index, tuple) else (index,)


def _values(values: Iterable[Any]) -> ListOf[Any]:
    return [to_json(value) for value in values]


def _rows(result: Message) -> ListOf[ListOf[Any]]:
    return [[from_json(value) for value in row] for row in result["rows"]]


def _accepted(handler: EventHandler, offered: Mapping[str, Any]) -> Dict[str, Any]:
    """The arguments that the handler has parameters for."""
    try:
        parameters = inspect.signature(handler).parameters
    except (TypeError, ValueError):
        return dict(offered)
    if any(p.kind is inspect.Parameter.VAR_KEYWORD for p in parameters.values()):
        return dict(offered)
    return {name: value for name, value in offered.items() if name in parameters}
