"""Starts page_host in Wine, reads its reports, and ends it."""

import json
import os
import subprocess
import time

import screen
from in_step import check_in_step
from report import Report
from screen import Failure, expect, wait_for

START_SECONDS = 30
REPORT_SECONDS = 10
END_SECONDS = 15


class Host:
    """A running page_host. `folder` gets its output and its reports."""

    def __init__(self, program, folder, *options):
        self.folder = os.path.abspath(folder)
        self.file = os.path.join(self.folder, "report.json")
        self.last_file = os.path.join(self.folder, "last-report.json")
        self.output = open(os.path.join(self.folder, "page_host.txt"), "w+b")
        self._remove_report()
        windows_file = "Z:" + self.file.replace("/", "\\")
        self.process = subprocess.Popen(
            ["wine", program, "--report", windows_file, *options],
            stdin=subprocess.DEVNULL, stdout=self.output, stderr=subprocess.STDOUT)
        self._wait_for_window()
        self._turn_pages()

    def _remove_report(self):
        if os.path.exists(self.file):
            os.remove(self.file)

    def _check_alive(self):
        expect(self.process.poll() is None, "page_host has ended")

    def _wait_for_window(self):
        """Presses F12 until the program answers, as its window comes up at some time."""
        def answered():
            self._check_alive()
            screen.keys("F12")
            end = time.monotonic() + 0.3
            while time.monotonic() < end:
                if os.path.exists(self.file):
                    return True
                time.sleep(0.02)
            return False
        wait_for(answered, START_SECONDS, "window of page_host")
        self._settle()

    def _settle(self):
        """Waits until the reports of all keys pressed so far are written."""
        last = None
        while last != (last := os.stat(self.file).st_mtime_ns):
            time.sleep(0.2)

    def _turn_pages(self):
        """Shows every page once: a page shows, hides and enables its controls from then on."""
        report = self.look()
        for index in range(1, len(report.pages) + 1):
            screen.keys("ctrl+Tab")
            wanted = report.pages[index % len(report.pages)].title
            front = self.look().front.title
            expect(front == wanted, f"Ctrl+Tab brings {front} to the front, not {wanted}")

    def look(self):
        """A report, asked for by F12, without a comparison."""
        self._check_alive()
        self._remove_report()
        screen.keys("F12")

        def written():
            self._check_alive()
            return os.path.exists(self.file)
        wait_for(written, REPORT_SECONDS, "report")
        os.replace(self.file, self.last_file)
        with open(self.last_file, encoding="utf-8") as file:
            return Report(json.load(file))

    def report(self, typed=None):
        """A report in which every control shows its property. `typed`: see check_in_step."""
        report = self.look()
        check_in_step(report, typed)
        return report

    def page(self, title):
        """Brings a page to the front by a click on its tab."""
        report = self.look()
        if report.front.title == title:
            return report.front
        screen.click(screen.middle(report.tabs[[page.title for page in report.pages].index(title)]))
        report = self.report()
        expect(report.front.title == title, f"{report.front.title} is in front, not {title}")
        return report.front

    def close(self):
        """Closes the window as a user does; the program has to end in order."""
        self._check_alive()
        # Ctrl+Tab gives the focus to the tabs: in a list, Alt+F4 would open that.
        screen.keys("ctrl+Tab", "alt+F4")
        try:
            status = self.process.wait(END_SECONDS)
        except subprocess.TimeoutExpired as error:
            raise Failure("page_host does not end") from error
        self.output.seek(0)
        lines = self.output.read().decode("utf-8", "replace").splitlines()
        expect(status == 0, f"page_host ended with status {status}")
        expect(lines and lines[-1] == "end: page_host", f"page_host ended early: {lines}")

    def kill(self):
        """Ends the program in any case."""
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.output.close()
