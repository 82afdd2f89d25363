"""What page_host reports about its windows and the effect's properties."""

import dataclasses

from screen import Rect, expect

VISIBLE = 0x10000000
DISABLED = 0x08000000
TAB_STOP = 0x00010000


@dataclasses.dataclass
class Control:
    """A control of a page. What its kind does not have is None."""
    id: int
    kind: str
    rect: Rect
    text: str
    style: int
    focus: bool
    tip: str
    checked: bool
    selection: int
    opened: bool
    items: list
    number: dict
    colour: list

    @property
    def shown(self):
        return bool(self.style & VISIBLE)

    @property
    def enabled(self):
        return not self.style & DISABLED

    @property
    def tab_stop(self):
        return bool(self.style & TAB_STOP) and self.shown and self.enabled


@dataclasses.dataclass
class Page:
    title: str
    rect: Rect
    controls: list

    def control(self, number):
        found = [control for control in self.controls if control.id == number]
        expect(len(found) == 1, f"{self.title} has {len(found)} controls {number}")
        return found[0]

    @property
    def focused(self):
        """The control with the focus; None if it is elsewhere."""
        return next((control for control in self.controls if control.focus), None)


def _control(entry):
    return Control(id=entry["id"], kind=entry["class"], rect=Rect(*entry["rect"]),
                   text=entry["text"], style=entry["style"], focus=entry["focus"],
                   tip=entry.get("tip", ""), checked=entry.get("checked"),
                   selection=entry.get("selection"), opened=entry.get("opened"),
                   items=entry.get("items"), number=entry.get("number"),
                   colour=entry.get("colour"))


class Report:
    """One report; `json` is what the program wrote."""

    def __init__(self, json):
        self.window = Rect(*json["window"])
        self.tabs = [Rect(*rect) for rect in json["tabs"]]
        self.pages = [Page(entry["title"], Rect(*entry["rect"]),
                           [_control(control) for control in entry["controls"]])
                      for entry in json["pages"]]
        self.front = self.pages[json["front"]]
        self.viewer = Rect(*json["viewer"]["rect"])
        self.picture = Rect(*json["viewer"]["picture"])
        self.undo_count = json["undo"]["count"]
        self.undo_name = json["undo"]["name"]
        self.redo_count = json["undo"]["redo"]
        self.values = {entry["name"]: entry["value"] for entry in json["properties"]}
        self.property_count = len(json["properties"])

    def page(self, title):
        found = [page for page in self.pages if page.title == title]
        expect(len(found) == 1, f"{len(found)} pages are called {title}")
        return found[0]
