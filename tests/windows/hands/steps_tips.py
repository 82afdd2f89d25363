"""Sizes of the dialogs and tool-tips."""

import pathlib

import control_map
import hand
import screen
from screen import NewWindow, expect

PARAMETERS = pathlib.Path(__file__).parents[3] / "docs" / "parameters.md"
MASTER = 1005
# A number of 82 by 12 dialog units, of which four are 9 pixels wide and eight 17 pixels high.
NUMBER_SIZE = (185, 26)
TIP_SECONDS = 5
HIGHEST_TIP = 100
FEWEST_TEXT_PIXELS = 100


def font(host):
    """Arial with 11 points has base units of 9 by 17 pixels; another font would cut texts."""
    rect = host.page("V_Ruvex").control(MASTER).rect
    size = (rect.right - rect.left, rect.bottom - rect.top)
    expect(size == NUMBER_SIZE, f"a number has {size} pixels; is the font there?")


def _descriptions():
    """What each parameter does, by its label, from the parameters' reference."""
    rows = [line.strip().strip("|").split("|")
            for line in PARAMETERS.read_text(encoding="utf-8").splitlines() if line.startswith("|")]
    return {row[0].strip(): row[-1].strip() for row in rows if len(row) == 7}


def tip_texts(host):
    """Every control with a value has its parameter's description as a tool-tip."""
    descriptions = _descriptions()
    for page in host.report().pages:
        controls = dict(control_map.NUMBERS[page.title])
        controls |= control_map.CHECK_BOXES.get(page.title, {})
        controls |= control_map.LOCAL_CHECK_BOXES.get(page.title, {})
        controls |= {number: name for number, (name, _)
                     in control_map.LISTS.get(page.title, {}).items()}
        controls |= {number: names[0] for number, names
                     in control_map.CHIPS.get(page.title, {}).items()}
        for number, name in controls.items():
            tip = page.control(number).tip
            expect(tip == descriptions[name], f"the tool-tip of {name} is '{tip}'")
        if page.title in control_map.RESETS:
            expect(page.control(control_map.RESETS[page.title]).tip,
                   f"Reset of {page.title} has no tool-tip")


def hover(host):
    """The tool-tip appears below the pointer that rests on a number, and goes with a click."""
    master = host.page("V_Ruvex").control(MASTER)
    screen.move_to(hand.idle_place(host.report()))
    shown = NewWindow()
    screen.move_to(screen.middle(master.rect))
    screen.move_by(2, 0, moves=2)
    tip = shown.wait(TIP_SECONDS, "tool-tip",
                     lambda rect: 5 < rect.bottom - rect.top < HIGHEST_TIP)
    screen.wait_for(lambda: hand.text_pixels(screen.pixels(tip)) > FEWEST_TEXT_PIXELS, TIP_SECONDS,
                    "text in the tool-tip")
    screen.click(screen.middle(master.rect))
    screen.wait_for(lambda: tip not in screen.shown_windows().values(), TIP_SECONDS,
                    "end of the tool-tip")


STEPS = (font, tip_texts, hover)
