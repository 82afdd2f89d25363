"""Lists, check boxes, buttons, presets, and the order of the tab stops."""

import hand
import screen
from control_map import COLOUR_TV, GREY_TV, PRESETS, RESETS, TINTED_TV
from screen import expect

TV_TYPE, CONTRAST, CHIP = 1000, 1002, 1009
FISH_EYE, FILTER = 1113, 1116
BLUR, REPEAT_FRAMES, BORDER_ALPHA = 1111, 1112, 1117
GREY_PRESET, NIGHT_PRESET = 3, 7
NIGHT_TINT = {"Tint Colour R": 24, "Tint Colour G": 64.5, "Tint Colour B": 30}
NIGHT_CHIP = [61, 164, 76]
# More than the tab stops of the window beside its pages: tabs, viewer and time.
STOPS_ELSEWHERE = 8


def tv_type(host):
    """By the mouse; the tint group and the guns follow (see in_step)."""
    for value in (TINTED_TV, GREY_TV, COLOUR_TV):
        before = host.report()
        after = hand.choose(host, host.page("V_Ruvex").control(TV_TYPE), value)
        expect(hand.changed(before, after) == {"TV Type": value}, "TV Type is not chosen")
        hand.check_one_step(host, before, after)


def other_lists(host):
    """Every other list, by the mouse: its last item, then its first one, then the one before."""
    for title, numbers in (("Shash", (1100,)), ("Effects", (1106, 1117)),
                           ("Cropping", (5004, 5005))):
        for number in numbers:
            control = host.page(title).control(number)
            for item in (len(control.items) - 1, 0, control.selection):
                after = hand.choose(host, control, item)
                expect(after.front.control(number).selection == item, "an item is not chosen")


def check_boxes(host):
    """One by the mouse, one by the blank."""
    before = host.report()
    hand.click(host.page("Effects").control(FISH_EYE))
    clicked = host.report()
    expect(hand.changed(before, clicked) == {"Fish Eye": 1}, "the mouse does not check the box")
    hand.check_one_step(host, before, clicked)
    screen.keys("Tab")
    focused = host.report().front.focused
    expect(focused and focused.id == FILTER, "Tab goes to the next check box")
    screen.keys("space")
    after = host.report()
    expect(hand.changed(clicked, after) == {"Filter": 1}, "the blank does not check the box")
    screen.keys("space")
    hand.click(after.front.control(FISH_EYE))
    expect(host.report().values == before.values, "the boxes are not cleared again")


def _check_preset(host, before, after):
    expect(after.page("V_Ruvex").control(PRESETS).text == "Presets...",
           "the list of presets does not show its title")
    hand.check_one_step(host, before, after)


def _check_no_change(before, after):
    expect(after.values == before.values, "the same preset again changes a value")
    expect(after.undo_count == before.undo_count, "the same preset again is a step")
    expect(after.page("V_Ruvex").control(PRESETS).text == "Presets...",
           "the list of presets does not show its title")


def presets_by_mouse(host):
    """The same one twice, then another one."""
    presets = host.page("V_Ruvex").control(PRESETS)
    before = host.report()
    grey = hand.choose(host, presets, GREY_PRESET)
    expect(grey.values["TV Type"] == GREY_TV and grey.values["Num Ghosts"] == 4,
           "Bad B&W TV is not set")
    _check_preset(host, before, grey)
    before = host.report()
    _check_no_change(before, hand.choose(host, presets, GREY_PRESET))
    before = host.report()
    night = hand.choose(host, presets, NIGHT_PRESET)
    tint = {name: night.values[name] for name in NIGHT_TINT}
    expect(tint == NIGHT_TINT, f"NightVision sets the tint {tint}")
    chip = night.page("V_Ruvex").control(CHIP)
    expect(chip.shown and chip.colour[:3] == NIGHT_CHIP, f"its chip has {chip.colour}")
    _check_preset(host, before, night)


def _focus_presets(host):
    control = host.page("V_Ruvex").control(CONTRAST)
    focused = hand.focus_before(host, control, 2)
    expect(focused and focused.id == PRESETS, "the list of presets has no focus")
    # The pointer would choose the item that it lies over.
    screen.move_to(hand.idle_place(host.look()))
    return host.report()


def _choose_by_keys(host, opening, *item_keys):
    """Focuses the list of presets, opens it with a key, and chooses with other ones and Enter."""
    before = _focus_presets(host)
    screen.keys(opening)
    expect(host.report().page("V_Ruvex").control(PRESETS).opened, f"{opening} opens no list")
    screen.keys(*item_keys, "Return")
    after = host.report()
    shown = after.page("V_Ruvex").control(PRESETS)
    expect(shown.text == "Presets..." and not shown.opened,
           f"after {opening} and {item_keys} the list shows '{shown.text}'")
    return before, after


# How the list is opened, how an item is chosen, and TV Type and Seed of its preset.
PRESET_KEYS = ((("F4", "Down", "Down", "Down"), (GREY_TV, 20)),
               (("alt+Down", "Down"), (COLOUR_TV, 7)),
               (("alt+Down", "n"), (TINTED_TV, 30)))


def presets_by_keyboard(host):
    """The list is opened by F4 or by Alt with an arrow key; arrow keys or a letter move to a
    preset. Each twice in a row."""
    for keys, wanted in PRESET_KEYS:
        before, after = _choose_by_keys(host, *keys)
        expect((after.values["TV Type"], after.values["Seed"]) == wanted,
               f"{keys} set another preset")
        _check_preset(host, before, after)
        _check_no_change(*_choose_by_keys(host, *keys))


def presets_not_chosen(host):
    """Arrow keys in the opened list, and then Escape; the wheel over the closed list."""
    before = _focus_presets(host)
    screen.keys("F4", "Down", "Down")
    expect(host.look().values == before.values, "arrow keys choose a preset before Enter does")
    screen.keys("Escape")
    _check_no_change(before, host.report())
    before = _focus_presets(host)
    screen.move_to(screen.middle(before.front.control(PRESETS).rect))
    screen.turn_wheel(-2)
    _check_no_change(before, host.report())


def wheel_over_lists(host):
    """The wheel changes a list with the focus, and no other."""
    lists = host.page("Effects")
    hand.focus_before(host, lists.control(BLUR), 1)
    before = host.report()
    expect(before.front.focused is None, "a control of the page has the focus")
    border = lists.control(BORDER_ALPHA)
    screen.move_to(screen.middle(border.rect))
    screen.turn_wheel(-1)
    expect(host.report().values == before.values, "the wheel changes a list without the focus")
    hand.click(lists.control(REPEAT_FRAMES))
    screen.keys("Tab")
    expect(host.report().front.control(BORDER_ALPHA).focus, "the list has no focus")
    screen.move_to(screen.middle(border.rect))
    screen.turn_wheel(-1)
    after = host.report()
    expect(hand.changed(before, after) == {"Border Alpha": 1}, "the wheel does not move the list")
    hand.check_one_step(host, before, after)
    hand.undo(host)


def undo_and_redo(host):
    """All properties come back, step by step, through several kinds of edits."""
    page = host.page("V_Ruvex")
    reports = [host.report()]
    reports.append(hand.choose(host, page.control(PRESETS), GREY_PRESET))
    reports.append(hand.type_number(host, page.control(CONTRAST), "-33.25"))
    reports.append(hand.choose(host, page.control(PRESETS), NIGHT_PRESET))
    for earlier in reversed(reports[:-1]):
        expect(hand.undo(host).values == earlier.values, "undo does not restore all properties")
    for later in reports[1:]:
        expect(hand.redo(host).values == later.values, "redo does not restore all properties")


def resets(host):
    """Reset on each page, by the mouse, after all pages have other values than at the start."""
    for title, number in RESETS.items():
        before = host.report()
        hand.click(host.page(title).control(number))
        after = host.report()
        expect(after.undo_count == before.undo_count + bool(hand.changed(before, after)),
               f"Reset of {title} is not one step")
    expect(after.values == host.first_values, "Reset does not bring back the first values: "
           f"{[name for name in after.values if after.values[name] != host.first_values[name]]}")


def _follows(former, latter):
    """Whether a control comes after another one for a reader, from the left and from the top."""
    below = latter.rect.top >= former.rect.bottom
    beside = latter.rect.left >= former.rect.right
    # A chip stands in the middle of the rows of its numbers.
    upward = latter.rect.top < former.rect.top and former.colour is None
    return below or (beside and not upward)


def _walk(host, title):
    """The tab stops of a page, in the order in which the Tab key reaches them."""
    page = host.page(title)
    wanted = [control.id for control in page.controls if control.tab_stop]
    reached = []
    for _ in range(2 * len(wanted) + STOPS_ELSEWHERE):
        screen.keys("Tab")
        focused = host.report().front.focused
        if focused and reached and focused.id == reached[0]:
            break
        if focused and (reached or focused.id == wanted[0]):
            reached.append(focused.id)
    expect(reached == wanted, f"{title}: Tab reaches {reached}, the dialog has {wanted}")
    return [page.control(number) for number in reached]


def _check_walk(host, title):
    stops = _walk(host, title)
    print("    " + title + ": " + " ".join(str(control.id) for control in stops))
    for former, latter in zip(stops, stops[1:]):
        expect(_follows(former, latter),
               f"{title}: {latter.id} comes after {former.id}, against the reading order")


def tab_stops(host):
    """On every page, in reading order, with all controls enabled; on the first one for all three
    types of TV."""
    hand.click(host.page("Effects").control(FISH_EYE))
    for value in (TINTED_TV, GREY_TV, COLOUR_TV):
        hand.choose(host, host.page("V_Ruvex").control(TV_TYPE), value)
        _check_walk(host, "V_Ruvex")
    for page in host.report().pages[1:]:
        _check_walk(host, page.title)
    hand.click(host.page("Effects").control(FISH_EYE))


STEPS = (tv_type, other_lists, check_boxes, tab_stops, presets_by_mouse, presets_by_keyboard,
         presets_not_chosen, wheel_over_lists, undo_and_redo, resets)
