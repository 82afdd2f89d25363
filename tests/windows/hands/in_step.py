"""Compares what every control of every page shows with the effect's properties."""

import struct

import control_map
from screen import expect

MOST_DECIMALS = 3


def _single(value):
    """The nearest number in single precision."""
    return struct.unpack("f", struct.pack("f", value))[0]


def chip_component(percent):
    """0..100 % as 0..255, computed in single precision and cut off as the pages do."""
    component = _single(_single(percent) * _single(2.55))
    return max(0, min(255, int(component)))


def number_text(value, decimals):
    text = f"{value:.{decimals}f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def _check_number(control, name, value, typing):
    decimals = 0 if control.id in control_map.WHOLE_NUMBERS else MOST_DECIMALS
    expect(control.kind == control_map.NUMBER and control.number, f"{name} is no number control")
    expect(control.number["decimals"] == decimals, f"{name} has other decimals")
    expect(control.number["value"] == value,
           f"{name} is {value}, its control has {control.number['value']}")
    text = typing if typing is not None else number_text(value, decimals)
    expect(control.text == text, f"{name} is {value}, shown as '{control.text}'")


def _check_list(control, name, items, value):
    expect(control.kind == control_map.LIST, f"{name} is no list")
    expect(control.items == items, f"{name} has the items {control.items}")
    expect(control.selection == value, f"{name} is {value}, item {control.selection} is chosen")
    expect(control.text == items[int(value)], f"{name} shows '{control.text}'")


def _check_chip(control, names, values):
    expect(control.kind == control_map.CHIP and control.colour, f"{names[0]} has no chip")
    wanted = [chip_component(values[name]) for name in names]
    expect(control.colour[:3] == wanted, f"the chip of {names[0]} has {control.colour[:3]}, "
           f"its percentages give {wanted}")


def _check_completeness(report):
    """Each control with a value is one that the map knows."""
    tables = (control_map.NUMBERS, control_map.LISTS, control_map.CHECK_BOXES,
              control_map.LOCAL_CHECK_BOXES, control_map.CHIPS)
    for page in report.pages:
        known = {number for table in tables for number in table.get(page.title, {})}
        present = {control.id for control in page.controls
                   if control.number or control.colour or control.items is not None
                   or control.checked is not None}
        expect(present == known, f"{page.title} has controls with values that differ from the "
               f"list: {sorted(present ^ known)}")


def _check_properties(report):
    expect(report.property_count == control_map.PROPERTY_COUNT,
           f"there are {report.property_count} properties")
    expect(len(report.values) == control_map.PROPERTY_COUNT, "properties have the same name")
    expect(control_map.WITHOUT_CONTROL <= set(report.values), "a property is missing")


def _check_states(report):
    for page, name, wanted, numbers in control_map.SHOWN_WHEN:
        for number in numbers:
            expect(report.page(page).control(number).shown == (report.values[name] in wanted),
                   f"{name} is {report.values[name]}: control {number} is wrongly shown or hidden")
    for page, name, wanted, numbers in control_map.ENABLED_WHEN:
        for number in numbers:
            expect(report.page(page).control(number).enabled == (report.values[name] in wanted),
                   f"{name} is {report.values[name]}: control {number} is wrongly enabled or not")


def check_in_step(report, typed=None):
    """Failure at the first control that does not show its property. `typed` holds the texts, by
    control, that the user is typing."""
    typed = typed or {}
    values = report.values
    _check_properties(report)
    _check_completeness(report)
    for page in report.pages:
        for number, name in control_map.NUMBERS[page.title].items():
            _check_number(page.control(number), name, values[name], typed.get(number))
        for number, (name, items) in control_map.LISTS.get(page.title, {}).items():
            _check_list(page.control(number), name, items, values[name])
        for number, name in control_map.CHECK_BOXES.get(page.title, {}).items():
            checked = page.control(number).checked
            expect(checked == (values[name] != 0), f"{name} is {values[name]}, checked: {checked}")
        for name in control_map.LOCAL_CHECK_BOXES.get(page.title, {}).values():
            expect(values[name] == 0, f"{name} is written: {values[name]}")
        for number, names in control_map.CHIPS.get(page.title, {}).items():
            _check_chip(page.control(number), names, values)
    _check_states(report)
