"""The colour chips and the system's colour dialog."""

import hand
import screen
from control_map import TINTED_TV
from screen import NewWindow, expect

TV_TYPE, TINT_CHIP, CROP_CHIP = 1000, 1009, 5006
DIALOG_SECONDS = 10
# Keys that go to the dialog's entries in its English texts.
ENTRIES = ("alt+r", "alt+g", "alt+b")


def _type_colour(host, chip, colour, end):
    """Opens the dialog by a click, types three components of 0..255 and ends it with a key."""
    opened = NewWindow()
    hand.click(chip)
    # A tool-tip is a new window too.
    opened.wait(DIALOG_SECONDS, "colour dialog", lambda rect: rect.bottom - rect.top > 100)
    for key, component in zip(ENTRIES, colour):
        screen.keys(key)
        screen.type_text(str(component))
    screen.keys(end)
    return host.report()


def _check_colour(host, title, number, names, steps):
    """Cancel, then OK, in the dialog of one chip; undo takes OK back in `steps` steps."""
    chip = host.page(title).control(number)
    before = host.report()
    cancelled = _type_colour(host, chip, (9, 99, 199), "Escape")
    expect(cancelled.values == before.values, "a cancelled dialog changes a value")
    expect(cancelled.undo_count == before.undo_count, "a cancelled dialog is a step")
    colour = (200, 100, 51)
    after = _type_colour(host, chip, colour, "Return")
    wanted = {name: component * 100.0 / 255 for name, component in zip(names, colour)}
    expect(hand.changed(before, after) == wanted, f"OK gives {hand.changed(before, after)}")
    expect(after.front.control(number).colour[:3] == list(colour), "the chip has another colour")
    expect(after.undo_count == before.undo_count + steps,
           f"OK makes {after.undo_count - before.undo_count} steps, not {steps}")
    for _ in range(steps):
        undone = hand.undo(host)
    expect(undone.values == before.values, "undo does not bring the percentages back")


def tint_colour(host):
    """One step for all three components."""
    hand.choose(host, host.page("V_Ruvex").control(TV_TYPE), TINTED_TV)
    _check_colour(host, "V_Ruvex", TINT_CHIP,
                  ("Tint Colour R", "Tint Colour G", "Tint Colour B"), 1)


def crop_colour(host):
    """The crop page writes the components as three steps."""
    _check_colour(host, "Cropping", CROP_CHIP,
                  ("Crop Colour R", "Crop Colour G", "Crop Colour B"), 3)


def space_opens_dialog(host):
    """The blank opens the dialog of the chip with the focus; Escape closes it."""
    page = host.page("Cropping")
    before = host.report()
    focused = hand.focus_before(host, page.control(5008), 1)
    expect(focused and focused.id == CROP_CHIP, "the chip has no focus")
    opened = NewWindow()
    screen.keys("space")
    opened.wait(DIALOG_SECONDS, "colour dialog", lambda rect: rect.bottom - rect.top > 100)
    screen.keys("Escape")
    expect(host.report().values == before.values, "a cancelled dialog changes a value")


STEPS = (tint_colour, crop_colour, space_opens_dialog)
