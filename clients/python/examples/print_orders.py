#!/usr/bin/env python3
"""Loads the open orders of the sample shop into a list and prints it as the list shows it.

    print_orders.py [DATABASE [TABLE OR VIEW]]

The columns follow the fields of the source, with a format for dates and one for amounts.
"""

import pathlib
import sys
import unicodedata

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "clients" / "python"))

import krvlist  # noqa: E402

SAMPLE = ROOT / "build" / "release" / "apps" / "demo" / "sample.db"
ROWS_PRINTED = 15

LEFT, RIGHT = 1, 7

# Data-type codes of fields.
CURRENCY, DATE, DECIMAL = 6, 133, 131
NUMBERS = (2, 3, 4, 5, CURRENCY, DECIMAL)
FORMATS = {CURRENCY: "#,##0.00", DATE: "dd/mm/yyyy", DECIMAL: "0.0"}


def make_columns(list: krvlist.List, fields: list) -> None:
    """One column a field, with its name as the caption."""
    list.Cols = len(fields)
    for col, field in enumerate(fields):
        list.Caption[col] = list.ColDataField[col] = field["Name"]
        list.ColFieldType[col] = field["Type"]
        list.ColFormat[col] = FORMATS.get(field["Type"], "")
        list.ColAlignment[col] = RIGHT if field["Type"] in NUMBERS else LEFT


def width_of(text: str) -> int:
    """Places that the text takes on a terminal."""
    return sum(2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)


def print_list(list: krvlist.List) -> None:
    """Captions and first rows, aligned like the columns."""
    rows = list.cells("Grid", 0, min(list.Rows, ROWS_PRINTED))
    widths = [max(map(width_of, texts)) for texts in zip(*rows)]
    at_right = [list.ColAlignment[col] == RIGHT for col in range(list.Cols)]
    for row in rows:
        blanks = [" " * (width - width_of(text)) for text, width in zip(row, widths)]
        cells = [b + t if right else t + b for t, b, right in zip(row, blanks, at_right)]
        print("  ".join(cells).rstrip())
    print(f"{list.Rows} rows")


def main() -> int:
    defaults = [str(SAMPLE), "OrdiniAperti"]
    database, source = (sys.argv[1:] + defaults[len(sys.argv) - 1 :])[:2]
    if not pathlib.Path(database).is_file():
        print(f"{database} is missing; scripts/build release makes the sample", file=sys.stderr)
        return 1
    messages = []
    with krvlist.Server(region="it-IT") as server:
        server.on_message(lambda text, buttons, title: messages.append(text))
        list = server.new("orders")
        list.Connect = f'Provider=SQLite;Data Source="{database}"'
        list.Recordsource = source
        list.ReadOnlyRecordset = True
        list.Refresh()
        if messages:
            print(*messages, file=sys.stderr)
            return 1
        make_columns(list, server.data_state(list.Recordset)["Fields"])
        list.Refresh()
        print_list(list)
    return 0


if __name__ == "__main__":
    sys.exit(main())
