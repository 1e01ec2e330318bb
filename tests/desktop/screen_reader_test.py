# SPDX-License-Identifier: MIT
"""What a screen reader hears of the program, on the accessibility bus."""

import datetime
import re
import subprocess
import unittest
import zoneinfo

from desktop import spoken
from desktop.case import DesktopTest

BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")


class ScreenReaderTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.today = datetime.datetime.now(BERLIN)

    def write_note_of_today(self, window, text):
        window.find("push button", spoken.day(self.today)).press()
        window.find("text", f"Note of {spoken.day(self.today)}").wait_for_state("focused")
        window.type(text)
        window.key("Escape")

    def test_a_new_month_is_announced(self):
        window = self.start()
        shown = f"{self.today:%B %Y}"
        with spoken.Announcements() as announced:
            window.key("ctrl+t")
            announced.wait_for(window, shown)
            window.find("push button", "Next Month").press()
            after = (self.today.replace(day=1) + datetime.timedelta(days=31)).strftime("%B %Y")
            announced.wait_for(window, after)

    def test_found_notes_lists_and_pages_are_announced(self):
        window = self.start()
        self.write_note_of_today(window, "Choir")
        with spoken.Announcements() as announced:
            window.key("ctrl+f")
            window.find("text", "Search notes").wait_for_state("focused")
            window.type("choir\n")
            announced.wait_for(window, "Notes found: 1")
            window.key("ctrl+shift+y")
            announced.wait_for(window, f"{self.today:%Y} Notes. Notes in the list: 1")
            window.key("ctrl+2")
            week = window.find("label", re.compile(rf"^\w+ \d+, {self.today.year}$|^\w+ \d+, {self.today.year - 1}$"))
            announced.wait_for(window, f"For week beginning: {week.name}")
            window.key("ctrl+3")
            announced.wait_for(window, f"{self.today:%B %Y}")

    def test_a_row_is_said_when_its_edit_is_left_and_says_its_date_once(self):
        window = self.start()
        self.write_note_of_today(window, "Choir")
        cell = window.find("table cell", "Note: Choir")
        cell.wait_for_state("focused")
        self.assertEqual(cell.description, "")
        window.find("table cell", re.compile(r"^Date: .*, today$"))

    def test_the_window_is_called_by_its_name_on_every_page(self):
        window = self.start()
        for page in ("ctrl+2", "ctrl+3", "ctrl+1"):
            window.key(page)
            window.find("frame", "Velumora")
        name = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "velumora", "getwindowname"], check=True,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              env=self.home.environment | self.session.environment).stdout
        self.assertEqual(name.strip(), "Velumora", "and so in the desktop's list of windows")


if __name__ == "__main__":
    unittest.main(verbosity=2)
