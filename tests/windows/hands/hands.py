"""Drives page_host with the mouse and the keyboard, and compares after each step.

Usage: hands.py PAGE_HOST_EXE FOLDER [STEP...]

FOLDER gets the log and, if a step fails, a screenshot and the last report. The display is DISPLAY,
the Windows is WINEPREFIX, in which the module is registered. The last line is "end: hands ..."."""

import os
import sys
import time
import traceback

import screen
import steps_colours
import steps_crop
import steps_numbers
import steps_pages
import steps_tips
from host import Host
from screen import Failure

PICTURE_SIZE = "480x360"
STEPS = (*steps_tips.STEPS, *steps_numbers.STEPS, *steps_pages.STEPS, *steps_colours.STEPS,
         *steps_crop.STEPS)


def run_step(host, step):
    began = time.monotonic()
    step(host)
    host.report()
    print(f"{step.__name__}: {time.monotonic() - began:.1f} s", flush=True)


def run_steps(program, folder, steps):
    """Whether all steps passed. Ends at the first that fails, as the next ones build on it."""
    host = None
    name = "start"
    try:
        host = Host(program, folder, "--size", PICTURE_SIZE)
        host.first_values = host.report().values
        for step in steps:
            name = step.__name__
            run_step(host, step)
        name = "close"
        host.close()
        return True
    except Exception as error:  # whatever it is, the screen at this moment explains most
        print(f"{name}: {error}", flush=True)
        if not isinstance(error, Failure):
            traceback.print_exc(file=sys.stdout)
        screen.screenshot(os.path.join(folder, f"failed-{name}.png"))
        return False
    finally:
        if host:
            host.kill()


def main():
    program, folder, *names = sys.argv[1:]
    steps = [step for step in STEPS if not names or step.__name__ in names]
    if len(steps) < len(names):
        sys.exit("no such step; there are " + " ".join(step.__name__ for step in STEPS))
    began = time.monotonic()
    passed = run_steps(program, folder, steps)
    print(f"end: hands steps={len(steps)} failed={0 if passed else 1} "
          f"seconds={time.monotonic() - began:.0f}")
    return 0 if passed else 1


if __name__ == "__main__":
    sys.exit(main())
