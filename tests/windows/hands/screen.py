"""The mouse, the keyboard and the pixels of an X display, through xdotool and ImageMagick."""

import collections
import re
import subprocess
import time

Rect = collections.namedtuple("Rect", "left top right bottom")
"""A rectangle in pixels of the screen; right and bottom are outside it."""

LEFT_BUTTON, WHEEL_UP, WHEEL_DOWN = 1, 4, 5


class Failure(Exception):
    """What a step has found wrong."""


def expect(condition, message):
    """Raises Failure with this message unless the condition holds."""
    if not condition:
        raise Failure(message)


def wait_for(found, seconds, what):
    """Polls `found()` until it gives something true, and returns that. Failure after `seconds`."""
    end = time.monotonic() + seconds
    while True:
        result = found()
        if result:
            return result
        expect(time.monotonic() < end, f"no {what} within {seconds} s")
        time.sleep(0.01)


def middle(rect):
    return ((rect.left + rect.right) // 2, (rect.top + rect.bottom) // 2)


def inset(rect, margin):
    """The rectangle without a margin, in pixels, at each side."""
    return Rect(rect.left + margin, rect.top + margin, rect.right - margin, rect.bottom - margin)


def _run(*words):
    return subprocess.run(words, check=True, timeout=20, capture_output=True).stdout


def input_events(*words):
    """Sends events, given as arguments of xdotool, in this order."""
    _run("xdotool", *map(str, words))


def move_to(point):
    input_events("mousemove", *point)


def click(point):
    input_events("mousemove", *point, "click", LEFT_BUTTON)


def press_button(point):
    input_events("mousemove", *point, "mousedown", LEFT_BUTTON)


def release_button():
    input_events("mouseup", LEFT_BUTTON)


def move_by(dx, dy, moves=4):
    """Moves the pointer in several parts, as a hand does; dx and dy are in pixels."""
    words = []
    done_x = done_y = 0
    for part in range(1, moves + 1):
        x, y = dx * part // moves, dy * part // moves
        words += ["mousemove_relative", "--", x - done_x, y - done_y]
        done_x, done_y = x, y
    input_events(*words)


def turn_wheel(notches):
    """Positive for away from the user."""
    button = WHEEL_UP if notches > 0 else WHEEL_DOWN
    input_events("click", "--repeat", abs(notches), "--delay", 5, button)


def keys(*names):
    """Presses and releases keys, named as X names them: "Tab", "ctrl+z"."""
    input_events("key", "--delay", 2, *names)


def type_text(text):
    input_events("type", "--delay", 2, "--", text)


def screenshot(file):
    _run("import", "-window", "root", str(file))


def _part(rect):
    return f"{rect.right - rect.left}x{rect.bottom - rect.top}+{rect.left}+{rect.top}"


def save_part(rect, colours, file):
    """A part of the screen as a PNG with a palette, always with the same bytes for the same
    pixels."""
    _run("import", "-window", "root", "-crop", _part(rect), "+repage", "+dither", "-colors",
         str(colours), "-strip", "-define", "png:exclude-chunks=date,time", f"png8:{file}")


def pixels(rect):
    """The rows of a part of the screen, each a list of (red, green, blue)."""
    width, height = rect.right - rect.left, rect.bottom - rect.top
    data = _run("import", "-window", "root", "-crop", _part(rect), "+repage", "-depth", "8",
                "rgb:-")
    expect(len(data) == width * height * 3, f"{_part(rect)} is not on the screen")
    colours = list(zip(data[0::3], data[1::3], data[2::3]))
    return [colours[row * width:(row + 1) * width] for row in range(height)]


def shown_windows():
    """The rectangles of all windows on the screen, by their numbers."""
    found = {}
    for number in subprocess.run(["xdotool", "search", "--onlyvisible", "--name", ".*"],
                                 timeout=20, capture_output=True).stdout.split():
        shape = subprocess.run(["xdotool", "getwindowgeometry", "--shell", number],
                               timeout=20, capture_output=True, text=True).stdout
        values = {name: int(value) for name, value in re.findall(r"(\w+)=(-?\d+)", shape)}
        if "WIDTH" in values:
            found[int(number)] = Rect(values["X"], values["Y"], values["X"] + values["WIDTH"],
                                      values["Y"] + values["HEIGHT"])
    return found


class NewWindow:
    """Finds the window that is opened after this was made."""

    def __init__(self):
        self.before = shown_windows()

    def wait(self, seconds, what, fits=lambda rect: True):
        """The rectangle of the first window that was not there before and fits."""
        def new():
            after = shown_windows()
            return [rect for number, rect in after.items()
                    if self.before.get(number) != rect and fits(rect)]
        return wait_for(new, seconds, what)[0]
