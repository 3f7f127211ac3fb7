#!/usr/bin/env python3
"""A host that listens: typing a letter goes to the next row that begins with it.

The control has no use for letters and raises `KeyDown` for them. The handler moves the current row
and takes the key away; it keeps Escape for itself, and everything else goes its way. The host also
follows the rows, keeps one of them from being deleted and answers the question for the others.
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

import krvlist  # noqa: E402

TOWNS = ("Ancona", "Bari", "Bologna", "Cagliari", "Firenze", "Genova", "Milano", "Modena", "Napoli")
LETTER_A, LETTER_Z, ESCAPE, END, DOWN, F7 = 65, 90, 27, 35, 40, 118


class TownList:
    """The host: a list of towns that can be searched."""

    def __init__(self, server: krvlist.Server) -> None:
        self.list = server.new("towns")
        self.list.AutoStartInputOnClick = False
        self.list.Caption[0] = "Città"
        self.list.Rows = len(TOWNS)
        for row, town in enumerate(TOWNS):
            self.list.TextMatrix[row, 0] = town
        self.list.on("KeyDown")(self.key_down)
        self.list.on("RowSelect")(lambda Row: print(f"    RowSelect {Row}"))
        self.list.on("DeleteClick")(self.delete_click)
        self.list.on("AfterRowDelete")(lambda: print(f"    {self.list.Rows} rows are left"))
        self.list.on_property_changed(lambda name: print(f"    changed: {name}"))
        server.on_message(self.message)

    def key_down(self, KeyCode: int, Shift: int) -> dict:
        """Gives the arguments that it changes: a key code of 0 means that the key is used up."""
        print(f"    KeyDown {KeyCode}, shift {Shift}")
        if LETTER_A <= KeyCode <= LETTER_Z:
            self.go_to(chr(KeyCode))
            return {"KeyCode": 0}
        if KeyCode == ESCAPE:
            self.list.Row = 0
            return {"KeyCode": 0}
        return {}

    def delete_click(self) -> dict:
        """Milano stays."""
        print(f"    DeleteClick on {self.current()}")
        return {"Cancel": self.current() == "Milano"}

    def go_to(self, letter: str) -> None:
        """The next row with this letter, from the top again after the last."""
        rows = self.list.Rows
        for row in ((self.list.Row + step) % rows for step in range(1, rows + 1)):
            if self.list.TextMatrix[row, 0].startswith(letter):
                self.list.Row = row
                return

    def message(self, text: str, buttons: str, title: str) -> str:
        print(f"    {title}: {text}")
        return "yes"

    def current(self) -> str:
        row = self.list.Row
        return "no row" if row < 0 else self.list.TextMatrix[row, 0]


def main() -> int:
    with krvlist.Server() as server:
        towns = TownList(server)
        towns.list.focus("Grid")
        for what, act in (
            ("type m", lambda: towns.list.type("m")),
            ("delete (F7), which the host refuses", lambda: towns.list.key(F7)),
            ("type m again", lambda: towns.list.type("m")),
            ("type bb", lambda: towns.list.type("bb")),
            ("arrow down, which the list handles itself", lambda: towns.list.key(DOWN)),
            ("End, which the host lets pass", lambda: towns.list.key(END)),
            ("delete (F7), answered with yes", lambda: towns.list.key(F7)),
            ("Escape", lambda: towns.list.key(ESCAPE)),
            ("a key that cannot run a command", lambda: setattr(towns.list, "KeyAdd", LETTER_A)),
        ):
            print(what)
            act()
            print(f"  -> {towns.current()}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
