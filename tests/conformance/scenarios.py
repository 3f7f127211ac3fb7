"""Scenarios: functions that drive a control, each played on every backend and compared.

A module of scenarios decorates its functions:

    @scenario
    def hidden_buttons_keep_their_place(form):
        ...

Each function checks what it expects by itself. Afterwards the complete traces of the backends, and
all that can be seen of the control at the end, have to be equal.
"""

from __future__ import annotations

import difflib
import pathlib
import types
import unittest
from typing import Callable, Dict, List, Optional

import krvlist
from form import Form

Scenario = Callable[[Form], None]


def scenario(function: Scenario) -> Scenario:
    """Marks a function as a scenario."""
    setattr(function, "is_scenario", True)
    return function


def scenarios_of(module: types.ModuleType) -> List[Scenario]:
    """The scenarios of a module, in their order."""
    return [value for value in vars(module).values() if getattr(value, "is_scenario", False)]


class Stage:
    """The servers that scenarios are played on, one a backend, started when needed."""

    def __init__(self, program: str, backends: List[str], folder: pathlib.Path) -> None:
        self.backends = backends
        self._program = program
        self._folder = folder
        self._servers: Dict[str, krvlist.Server] = {}

    def play(self, function: Scenario, backend: str) -> List[str]:
        """Plays a scenario and gives its trace."""
        try:
            form = Form(self._server(backend), self._folder)
            function(form)
            form.leave()
        except BaseException:
            # What a failed scenario left behind is nobody's concern: the next one starts afresh.
            if backend in self._servers:
                self._servers.pop(backend).close()
            raise
        return form.trace

    def close(self) -> Dict[str, Optional[int]]:
        """Ends the servers; gives the backends whose server did not end with 0, and its status."""
        for server in self._servers.values():
            server.close()
        statuses = {backend: server.exit_status for backend, server in self._servers.items()}
        return {backend: status for backend, status in statuses.items() if status != 0}

    def _server(self, backend: str) -> krvlist.Server:
        server = self._servers.get(backend)
        if server is None or not server.is_open:
            server = krvlist.Server(
                self._program,
                backend,
                "it-IT",
                timeout=60,
                environment={"QT_QPA_PLATFORM": "offscreen"},
            )
            self._servers[backend] = server
        return server


class ScenarioTest(unittest.TestCase):
    """A scenario as a test: it passes on each backend, with the same trace."""

    def __init__(self, function: Scenario, stage: Stage) -> None:
        super().__init__()
        self._function = function
        self._stage = stage

    def id(self) -> str:
        return f"{self._function.__module__}.{self._function.__name__}"

    __str__ = id

    def shortDescription(self) -> None:
        return None

    def runTest(self) -> None:
        traces: Dict[str, List[str]] = {}
        for backend in self._stage.backends:
            with self.subTest(backend=backend):
                traces[backend] = self._stage.play(self._function, backend)
        first, *others = self._stage.backends
        for other in others:
            if first in traces and other in traces:
                self._compare(first, traces[first], other, traces[other])

    def _compare(self, first: str, first_trace: List[str], other: str, other_trace: List[str]) -> None:
        if first_trace != other_trace:
            lines = difflib.unified_diff(first_trace, other_trace, first, other, lineterm="", n=6)
            self.fail("the backends differ:\n" + "\n".join(lines))
