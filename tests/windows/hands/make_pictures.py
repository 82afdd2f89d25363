"""Takes pictures of the pages in page_host and of its viewer with the crop box.

Usage: make_pictures.py PAGE_HOST_EXE PICTURE FOLDER WORK_FOLDER

PICTURE is shown in the viewer. FOLDER gets a PNG with a palette for each page, and viewer.png;
WORK_FOLDER gets the output of the program.
The display is DISPLAY, the Windows is WINEPREFIX, in which the module is registered."""

import os
import sys

import hand
import screen
from control_map import PRESETS
from host import Host
from screen import Rect

PAGE_COLOURS, VIEWER_COLOURS = 32, 96
MARGIN = 4
OFFSET_GUNS = 4
# A box with a visible distance from all edges of the picture, in percent.
BOX = {5000: "12", 5001: "85", 5002: "10", 5003: "90"}


def _area_with_tabs(report):
    """The tabs and the page below them."""
    rects = [*report.tabs, report.front.rect]
    return screen.inset(Rect(min(rect.left for rect in rects), min(rect.top for rect in rects),
                             max(rect.right for rect in rects),
                             max(rect.bottom for rect in rects)), -MARGIN)


def _take(area, colours, file):
    """The pointer rests elsewhere, so that no control is highlighted and no tool-tip is shown."""
    screen.save_part(area, colours, file)
    print(f"{file}: {os.path.getsize(file)} bytes")


def _show_box(host):
    hand.choose(host, host.page("V_Ruvex").control(PRESETS), OFFSET_GUNS)
    for number, text in BOX.items():
        hand.type_number(host, host.page("Cropping").control(number), text)


def take_pictures(host, folder):
    screen.move_to(hand.idle_place(host.report()))
    for page in host.report().pages:
        host.page(page.title)
        screen.move_to(hand.idle_place(host.report()))
        name = page.title.lower().replace(" ", "-").replace("_", "-")
        _take(_area_with_tabs(host.report()), PAGE_COLOURS, os.path.join(folder, f"{name}.png"))
    _show_box(host)
    screen.move_to(hand.idle_place(host.report()))
    _take(host.report().viewer, VIEWER_COLOURS, os.path.join(folder, "viewer.png"))


def main():
    program, picture, folder, work = sys.argv[1:]
    host = Host(program, work, "--picture", picture)
    try:
        take_pictures(host, folder)
        host.close()
    finally:
        host.kill()
    print("end: pictures")


if __name__ == "__main__":
    main()
