"""What a user's hand does with the controls of a page."""

import screen
from screen import NewWindow, expect, wait_for

LIST_SECONDS = 5
LIST_BORDER = 1
# The height of a line in the dialogs' font, in pixels.
LOWEST_ITEM = 17
# Fewer pixels of another colour than the item's background are no text.
FEWEST_TEXT_PIXELS = 10


def idle_place(report):
    """A point of the viewer beside the picture. Keys go to the window under the pointer, as there
    is no window manager: it has to stay inside."""
    return (report.viewer.left + 2, report.viewer.top + 2)


def click(control):
    screen.click(screen.middle(control.rect))


def press_and_move(control, pixels):
    """Presses the button on a control and moves sideways; the button stays down."""
    screen.press_button(screen.middle(control.rect))
    screen.move_by(pixels, 0)


def type_number(host, control, text, end="Tab"):
    """Clicks into a number, types and ends with a key. Nothing is entered before that key."""
    before = host.look().values
    click(control)
    screen.type_text(text)
    typing = host.report(typed={control.id: text})
    expect(typing.values == before, f"typing '{text}' already changes a value")
    screen.keys(end)
    return host.report()


def text_pixels(rows):
    colours = [colour for row in rows for colour in row]
    return len(colours) - max(map(colours.count, set(colours)))


def _has_text(rows, item, count):
    """Whether the part of one of `count` items, one below the other, has text."""
    first, last = len(rows) * item // count, len(rows) * (item + 1) // count
    return text_pixels(rows[first + 1:last - 1]) >= FEWEST_TEXT_PIXELS


def _wait_for_items(area, count):
    """Each item of the opened list has its text on the screen."""
    expect(area.top >= 0 and area.left >= 0, "the list is opened beyond the screen")
    expect(area.bottom - area.top >= count * LOWEST_ITEM + 2 * LIST_BORDER,
           f"the opened list has no room for {count} items")

    def visible():
        rows = screen.pixels(screen.inset(area, LIST_BORDER + 1))
        return all(_has_text(rows, item, count) for item in range(count))
    wait_for(visible, LIST_SECONDS, f"text of all {count} items of the opened list")


def _item_place(area, item, count):
    inside = screen.inset(area, LIST_BORDER)
    height = (inside.bottom - inside.top) / count
    return (screen.middle(inside)[0], int(inside.top + height * (item + 0.5)))


def choose(host, control, item):
    """Opens a drop-down list by the mouse, looks at its items, and clicks one of them."""
    opened = NewWindow()
    click(control)
    area = opened.wait(LIST_SECONDS, "opened list", lambda rect: rect.left == control.rect.left)
    report = host.report()
    expect(report.front.control(control.id).opened, "the list does not know that it is open")
    screen.move_to(idle_place(report))
    _wait_for_items(area, len(control.items))
    screen.click(_item_place(area, item, len(control.items)))
    after = host.report()
    expect(not after.front.control(control.id).opened, "the list stays open")
    return after


def focus_before(host, control, steps):
    """Gives the focus to the control that lies `steps` tab stops before a number."""
    click(control)
    screen.keys(*["shift+Tab"] * steps)
    return host.report().front.focused


def undo(host):
    screen.keys("ctrl+z")
    return host.report()


def redo(host):
    screen.keys("ctrl+y")
    return host.report()


def check_one_step(host, before, after):
    """What was done between two reports is one step: it can be undone and redone as a whole."""
    expect(after.undo_count == before.undo_count + 1,
           f"{after.undo_count - before.undo_count} steps instead of one")
    expect(undo(host).values == before.values, "undo does not bring all properties back")
    expect(redo(host).values == after.values, "redo does not bring all properties back")


def changed(before, after):
    """The properties that differ between two reports, with their new values."""
    return {name: value for name, value in after.values.items() if before.values[name] != value}
