"""The crop box in the viewer, and its switch on the help page."""

import hand
import screen
from screen import Rect, expect

HIDE_CONTROLS = 1119
CROP_LEFT = 5000
# 0.9, 0.9, 0.1 in 8 bits.
LEFT_COLOUR = (230, 230, 26)
# Pixels by which a line and the pointer may differ.
NEAR = 3
# How far the line is dragged, in parts of the picture's width.
DRAG_SHARE = 0.25


def _left_line(report):
    """The middle of the left line on the screen."""
    picture = report.picture
    width = picture.right - picture.left
    x = picture.left + width * report.values["Crop Left"] / 100
    return (round(x), screen.middle(picture)[1])


def _line_shown(report):
    """Whether there are pixels of the line's colour near its place. The pointer, which would
    highlight the line, goes away first."""
    screen.move_to(hand.idle_place(report))
    x, y = _left_line(report)
    rows = screen.pixels(Rect(x - NEAR, y - 20, x + NEAR + 1, y + 20))
    return sum(LEFT_COLOUR in row for row in rows) > len(rows) // 2


def _drag_distance(report):
    return round((report.picture.right - report.picture.left) * DRAG_SHARE)


def _begin_drag(host):
    """Presses the button on the left line and moves to the right; gives the report before."""
    host.page("Cropping")
    before = host.report()
    screen.move_to(_left_line(before))
    screen.press_button(_left_line(before))
    screen.move_by(_drag_distance(before), 0, moves=8)
    return before


def drag_left_line(host):
    """Crop Left changes when the button goes up, not before; one undo step."""
    before = _begin_drag(host)
    during = host.report()
    expect(during.values == before.values, "a value changes while the button is down")
    expect(during.undo_count == before.undo_count, "the drag is a step before it ends")
    screen.release_button()
    after = host.report()
    changed = hand.changed(before, after)
    wanted = before.values["Crop Left"] + 100 * DRAG_SHARE
    tolerance = 100 * NEAR / (before.picture.right - before.picture.left)
    expect(set(changed) == {"Crop Left"}, f"the drag changes {changed}")
    expect(abs(changed["Crop Left"] - wanted) <= tolerance, f"the drag gives {changed}")
    expect(after.front.control(CROP_LEFT).number["value"] == changed["Crop Left"],
           "the page shows another number")
    screen.wait_for(lambda: _line_shown(after), 5, "line at its new place")
    hand.check_one_step(host, before, after)
    hand.undo(host)


def escape_ends_drag(host):
    """Escape ends a drag where it is, as one step; what the pointer does then is no part of it."""
    before = _begin_drag(host)
    screen.keys("Escape")
    ended = host.report()
    expect(set(hand.changed(before, ended)) == {"Crop Left"}, "Escape does not end the drag")
    screen.move_by(40, 0)
    screen.release_button()
    after = host.report()
    expect(after.values == ended.values, "the pointer moves the line after the end of the drag")
    hand.check_one_step(host, before, after)
    hand.undo(host)


def press_beside_lines(host):
    """A drag that begins in the picture, away from all lines, changes nothing."""
    host.page("Cropping")
    before = host.report()
    x, y = screen.middle(before.picture)
    screen.press_button((x - 30, y - 20))
    screen.move_by(60, 40)
    screen.release_button()
    after = host.report()
    expect(after.values == before.values, "a press beside the lines changes a value")
    expect(after.undo_count == before.undo_count, "a press beside the lines is a step")


def hidden_controls(host):
    """With the controls hidden on the help page, there is no line, and nothing to drag."""
    hand.click(host.page("Help").control(HIDE_CONTROLS))
    expect(host.report().front.control(HIDE_CONTROLS).checked, "the box is not checked")
    before = _begin_drag(host)
    screen.release_button()
    after = host.report()
    expect(after.values == before.values, "hidden lines can be dragged")
    expect(not _line_shown(after), "the hidden line is shown")
    hand.click(host.page("Help").control(HIDE_CONTROLS))
    host.page("Cropping")
    shown = host.report()
    screen.wait_for(lambda: _line_shown(shown), 5, "line after hiding it")


STEPS = (drag_left_line, escape_ends_drag, press_beside_lines, hidden_controls)
