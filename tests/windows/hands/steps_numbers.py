"""Number controls: typing, dragging, the wheel, wrong input."""

import hand
import screen
from screen import expect

CONTRAST, BRIGHTNESS, SEED, MASTER, SPEED = 1002, 1003, 1001, 1005, 1007
VERT_ROLL = 1097
ROLL_TIP = ("The maximum speed of vertical roll (pixels per second) of the image "
            "(when the 'Master Breakup' reaches 100%).")
DRAG_PIXELS, DRAG_STEPS = 100, 50


def typing(host):
    """42.5 and Tab."""
    before = host.report()
    contrast = host.page("V_Ruvex").control(CONTRAST)
    after = hand.type_number(host, contrast, "42.5")
    expect(hand.changed(before, after) == {"TV Contrast": 42.5}, "42.5 is not entered")
    hand.check_one_step(host, before, after)


def dragging(host):
    """100 pixels are 50 steps of 1, shown while the button is down, and one undo step."""
    seed = host.page("V_Ruvex").control(SEED)
    before = host.report()
    hand.press_and_move(seed, DRAG_PIXELS)
    host.report()
    screen.release_button()
    after = host.report()
    wanted = {"Seed": before.values["Seed"] + DRAG_STEPS}
    expect(hand.changed(before, after) == wanted, f"a drag gives {hand.changed(before, after)}")
    hand.check_one_step(host, before, after)


def escape_while_dragging(host):
    """Escape returns to the value before the drag, and leaves no step."""
    speed = host.page("V_Ruvex").control(SPEED)
    before = host.report()
    hand.press_and_move(speed, DRAG_PIXELS)
    expect(host.report().values["Breakup Speed"] == before.values["Breakup Speed"] + DRAG_STEPS,
           "the drag does not begin")
    screen.keys("Escape")
    screen.release_button()
    after = host.report()
    expect(after.values == before.values, "Escape does not take the drag back")
    expect(after.undo_count == before.undo_count, "the cancelled drag is a step")


def wheel(host):
    """The wheel steps the number with the focus, and no other."""
    page = host.page("V_Ruvex")
    hand.click(page.control(SEED))
    screen.keys("Tab")
    before = host.report()
    expect(before.front.focused and before.front.focused.text == "Reset", "Reset has the focus")
    master = page.control(MASTER)
    screen.move_to(screen.middle(master.rect))
    screen.turn_wheel(2)
    expect(host.report().values == before.values, "the wheel changes a number without the focus")
    hand.click(master)
    screen.turn_wheel(3)
    screen.turn_wheel(-1)
    after = host.report()
    wanted = {"Master Breakup": before.values["Master Breakup"] + 2}
    expect(hand.changed(before, after) == wanted, f"the wheel gives {hand.changed(before, after)}")


def widened_range(host):
    """The page widens the range of Vert Roll Speed Max, which its template limits to 1000. The
    tool-tip of a number that was changed begins with the reason."""
    roll = host.page("Breakup 2").control(VERT_ROLL)
    for typed, value, reason in (("10000", 10000, ""), ("10001", 10000, "at most 10000\n"),
                                 ("-10001", -10000, "at least -10000\n"),
                                 ("-10000", -10000, ""), ("9999.5", 9999.5, "")):
        after = hand.type_number(host, roll, typed, "Return")
        expect(after.values["Vert Roll Speed Max"] == value, f"{typed} is taken as "
               f"{after.values['Vert Roll Speed Max']}")
        tip = after.front.control(VERT_ROLL).tip
        expect(tip == reason + ROLL_TIP, f"after {typed} the tool-tip is '{tip}'")


# What is typed into TV Brightness, the key that ends it, and the value then. Before each, it is 7.
WRONG_INPUT = (
    ("abc", "Tab", 7), ("4x", "Tab", 7), ("1e400", "Tab", 7), ("--5", "Tab", 7), (".", "Tab", 7),
    ("99999999999999999999", "Tab", 100), ("-99999999999999999999", "Return", -100),
    ("-0", "Tab", 0), ("1,5", "Tab", 1.5), ("1,5,", "Tab", 7), ("12", "Escape", 7),
    ("nan", "Return", 7), ("inf", "Return", 7))


def wrong_input(host):
    brightness = host.page("V_Ruvex").control(BRIGHTNESS)
    for typed, end, value in WRONG_INPUT:
        hand.type_number(host, brightness, "7", "Return")
        after = hand.type_number(host, brightness, typed, end)
        expect(after.values["TV Brightness"] == value,
               f"'{typed}' and {end}: {after.values['TV Brightness']}")
        shown = after.front.control(BRIGHTNESS).text
        expect(not shown.startswith("-0"), f"'{typed}' is shown as {shown}")


def empty_entry(host):
    """A number from which all characters are deleted stays as it was."""
    brightness = host.page("V_Ruvex").control(BRIGHTNESS)
    before = hand.type_number(host, brightness, "12.25", "Return")
    for deleting in (["BackSpace"] * 5, ["Delete"]):
        hand.click(brightness)
        screen.keys(*deleting)
        typing_nothing = host.report(typed={BRIGHTNESS: ""})
        expect(typing_nothing.values == before.values, "deleting changes a value")
        screen.keys("Tab")
        after = host.report()
        expect(after.values == before.values, "an empty entry changes a value")
        expect(after.undo_count == before.undo_count, "an empty entry is a step")


def copy_and_paste(host):
    """Ctrl+C takes the number, Ctrl+V types it elsewhere."""
    page = host.page("V_Ruvex")
    before = hand.type_number(host, page.control(CONTRAST), "-21.75")
    hand.click(page.control(CONTRAST))
    screen.keys("ctrl+c")
    hand.click(page.control(BRIGHTNESS))
    screen.keys("ctrl+v")
    pasted = host.report(typed={BRIGHTNESS: "-21.75"})
    expect(pasted.values == before.values, "pasting alone changes a value")
    screen.keys("Tab")
    after = host.report()
    expect(hand.changed(before, after) == {"TV Brightness": -21.75}, "the number is not pasted")


STEPS = (typing, dragging, escape_while_dragging, wheel, widened_range, wrong_input, empty_entry,
         copy_and_paste)
