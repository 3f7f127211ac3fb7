"""The property page of a KarvoList, as a developer works on it. Part of the client `krvlist`."""

from __future__ import annotations

from typing import Any, Callable, Dict, List, NamedTuple, Optional

__all__ = ["Page", "PageState"]


class PageState(NamedTuple):
    """What the page holds: whether it was changed since it was loaded or applied, whether a record
    source was opened from it, and its nine arrays by name, one entry a tab."""

    changed: bool
    data_open: bool
    arrays: Dict[str, List[Any]]


class Page:
    """The open property page; `Server.open_page` opens it. Its editors go by their own names:
    "txtCaption", "cmbDataField", "TabStrip1", ... Only `enter` and `leave` move its focus."""

    def __init__(self, request: Callable[..., Any]) -> None:
        self._request = request

    # --- What is seen ---

    def part(self, name: str) -> Dict[str, Any]:
        """Properties of an editor: Enabled, Focused, and by its kind Text, Value, ListIndex, List,
        ItemData, Tabs and SelectedItem (from 1)."""
        properties: Dict[str, Any] = self._request("page.part", name=name)
        return properties

    def state(self) -> PageState:
        """What the page holds."""
        state = self._request("page.state")
        return PageState(state["Changed"], state["pageDataOpen"], state["arrays"])

    # --- The developer ---

    def enter(self, name: str) -> None:
        """Gives an editor the focus; the one that had it loses it first."""
        self._request("page.enter", name=name)

    def leave(self, name: str) -> None:
        """Takes the focus away from an editor, to none."""
        self._request("page.leave", name=name)

    def text(self, name: str, text: str) -> None:
        """Replaces the text of an editor as by typing."""
        self._request("page.text", name=name, text=text)

    def fill(self, name: str, text: str) -> None:
        """Enters an editor, replaces its text and leaves it."""
        self.enter(name)
        self.text(name, text)
        self.leave(name)

    def click(self, name: str, index: Optional[int] = None) -> None:
        """Clicks a check box, an entry of a list (from 0) or a tab (from 1)."""
        self._request("page.click", name=name, **({} if index is None else {"index": index}))

    def double_click(self, name: str) -> None:
        """Double-clicks an editor; on "txtDataBaseName" this asks for a file."""
        self._request("page.dblclick", name=name)

    # --- The designer ---

    def select(self, *lists: Any) -> None:
        """Has the designer select other controls; the first one is read."""
        self._request("page.select", ids=_ids(lists))

    def apply(self) -> None:
        """Writes the page to the first selected control."""
        self._request("page.apply")


def _ids(lists: Any) -> List[str]:
    """Ids of controls, given as controls or as ids."""
    return [each if isinstance(each, str) else each.id for each in lists]


def open_page(request: Callable[..., Any], lists: Any) -> Page:
    """Opens a fresh page on these controls, in the place of one that is open."""
    request("page.open", ids=_ids(lists))
    return Page(request)
