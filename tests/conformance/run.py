#!/usr/bin/env python3
"""Plays scenarios on the backends and compares what they do.

    run.py [--server PROGRAM] [--backend NAME]... [-k TEXT] [-v] [MODULE...]

All modules and both backends unless some are named; -k keeps the scenarios whose name holds TEXT.
"""

import argparse
import importlib
import pathlib
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.dont_write_bytecode = True
sys.path[:0] = [str(HERE), str(HERE.parents[1] / "clients" / "python")]

import krvlist  # noqa: E402
from scenarios import ScenarioTest, Stage, scenarios_of  # noqa: E402

NO_SCENARIOS = {"editable_list", "form", "harness_test", "page_form", "run", "scenarios"}


def all_modules() -> list:
    return sorted(p.stem for p in HERE.glob("*.py") if p.stem not in NO_SCENARIOS)


def main() -> int:
    parser = argparse.ArgumentParser(description="conformance of the backends")
    parser.add_argument("--server", help="the server's program")
    parser.add_argument("--backend", action="append", choices=("headless", "qt"))
    parser.add_argument("-k", default="", metavar="TEXT", help="only names that hold TEXT")
    parser.add_argument("-v", action="store_true", help="name every scenario")
    parser.add_argument("modules", nargs="*", default=all_modules())
    options = parser.parse_args()
    backends = options.backend or ["headless", "qt"]
    if "qt" not in backends:
        print("Without the qt backend: nothing to compare with, the scenarios run on", *backends)
    with tempfile.TemporaryDirectory(prefix="krvlist-") as folder:
        stage = Stage(krvlist.find_program(options.server), backends, pathlib.Path(folder))
        tests = [
            ScenarioTest(function, stage)
            for name in options.modules
            for function in scenarios_of(importlib.import_module(name))
            if options.k in function.__name__
        ]
        try:
            runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=2 if options.v else 1)
            result = runner.run(unittest.TestSuite(tests))
        finally:
            bad_ends = stage.close()
    for backend, status in bad_ends.items():
        print(f"the server of {backend} ended with {status}")
    if not tests:
        print("no scenario of that name")
    return 0 if tests and result.wasSuccessful() and not bad_ends else 1


if __name__ == "__main__":
    sys.exit(main())
