#!/usr/bin/env python3
"""Runs an example to its end: status 0, and output in which the pattern is found.

    run_example.py PATTERN PROGRAM [ARGUMENT...]

The pattern's dot also stands for a line's end.
"""

import os
import re
import subprocess
import sys


def main() -> int:
    pattern, *command = sys.argv[1:]
    environment = {**os.environ, "PYTHONIOENCODING": "utf-8"}
    example = subprocess.run(
        [sys.executable, *command], stdout=subprocess.PIPE, env=environment, encoding="utf-8", check=False
    )
    found = re.search(pattern, example.stdout, re.DOTALL)
    if example.returncode == 0 and found:
        return 0
    sys.stdout.reconfigure(encoding="utf-8")
    print(example.stdout)
    print(f"status {example.returncode}, output {'as expected' if found else f'without {pattern!r}'}")
    return 1


if __name__ == "__main__":
    sys.exit(main())
