# SPDX-License-Identifier: MIT
"""The pages of the week and the month: notes are read there, and the month is printed."""

import datetime
import os
import pathlib
import plistlib
import stat
import subprocess
import unittest
import zoneinfo

from desktop import spoken
from desktop.case import DesktopTest
from gi.repository import Atspi

BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")
NOTE = "Dentist at <nine> & half past"


class PagesTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.today = datetime.datetime.now(BERLIN)
        self.opened = self.home.path / "opened"
        self.viewer = self._install_viewer()

    def _install_viewer(self):
        """Makes a program that remembers what it is asked to show the user's viewer of everything."""
        programs = self.home.path / "bin"
        programs.mkdir()
        viewer = programs / "xdg-open"
        viewer.write_text(f'#!/bin/sh\nprintf "%s\\n" "$1" >> "{self.opened}"\n')
        viewer.chmod(0o755)
        return {"PATH": f"{programs}:{os.environ['PATH']}"}

    def start_with_note_of_today(self):
        window = self.start(environment=self.viewer)
        window.find("push button", spoken.day(self.today)).press()
        note = window.find("text", f"Note of {spoken.day(self.today)}")
        note.wait_for_state("focused")
        window.type(NOTE)
        note.wait_for_text(NOTE)
        return window

    def test_the_week_and_the_month_show_a_note_that_was_just_typed(self):
        window = self.start_with_note_of_today()
        window.key("ctrl+2")
        window.find("label", "For week beginning:")
        window.find("text", spoken.day(self.today)).wait_for_text(NOTE)
        window.key("alt+Next")
        window.wait_until_gone("text", spoken.day(self.today))
        window.find("push button", "Previous Week").press()
        window.find("text", spoken.day(self.today)).wait_for_text(NOTE)

        window.key("ctrl+3")
        title = f"{self.today:%B} {self.today:%Y}"
        window.find("label", title)
        window.find("text", spoken.day(self.today)).wait_for_text(NOTE)
        window.key("ctrl+Next")
        window.wait_until_gone("label", title)
        window.find("push button", "Previous Month").press()
        window.find("label", title)

    def test_the_keyboard_reaches_a_note_and_opens_all_of_it(self):
        window = self.start_with_note_of_today()
        window.key("ctrl+3")
        window.find("push button", "Print…").focus()
        window.key("Tab")
        window.find("text", spoken.day(self.today)).wait_for_state("focused")
        window.key("Return")
        window.wait_until(lambda: len(window.find_all("text", spoken.day(self.today))) == 2, "the whole note")
        window.key("Escape")
        window.wait_until(lambda: len(window.find_all("text", spoken.day(self.today))) == 1, "the page alone")

    def test_a_search_without_a_match_is_heard_and_one_with_a_match_leaves_word_on_the_pages(self):
        self.home.folder.mkdir(mode=0o700)
        first = self.today.replace(day=1, hour=0, minute=0, second=0, microsecond=0)
        notes = [(first, "Choir"), (first.replace(day=2), "Fair"), (first.replace(day=3), "Choir again")]
        (self.home.folder / "TALV VeluMora").write_bytes(plistlib.dumps(
            [{"NoteDateKey": day.astimezone(datetime.timezone.utc).replace(tzinfo=None), "NoteDataKey": text}
             for day, text in notes]))
        window = self.start(environment=self.viewer)
        heard = []
        listener = Atspi.EventListener.new(lambda event: heard.append(event.source.get_description()))
        listener.register("object:property-change:accessible-description")
        self.addCleanup(listener.deregister, "object:property-change:accessible-description")

        field = window.find("text", "Search notes")
        field.focus()
        window.type("nowhere")
        for times in (1, 2):
            window.key("Return")
            window.wait_until(lambda: heard.count("No note contains “nowhere”") >= times, f"the word {times} times")
        window.key("Escape")
        field.wait_for_text("")

        window.type("choir")
        window.key("Return")
        window.wait_until_gone("table cell", "Note: Fair")
        window.key("ctrl+3")
        window.find("label", "Notes of this month shown: 2 of 3")
        window.key("ctrl+p")
        window.wait_until(lambda: self.opened.exists() and self.opened.read_text(), "the viewer")
        printed = subprocess.run(["pdftotext", str(self.home.runtime / "velumora/MyPrintedView.pdf"), "-"], check=True,
                                 capture_output=True, stdin=subprocess.DEVNULL, text=True).stdout
        self.assertIn("Choir again", printed)
        self.assertNotIn("shown", printed)
        show_all = window.find("push button", "Show All Notes")
        self.assertEqual(show_all.description, "Notes of this month shown: 2 of 3")
        show_all.focus()
        window.key("space")
        window.wait_until_gone("push button", "Show All Notes")
        window.find("text", spoken.day(first.replace(day=2))).wait_for_text("Fair")

    def test_the_month_is_printed_and_nothing_is_left_of_it(self):
        window = self.start_with_note_of_today()
        window.key("ctrl+p")
        window.wait_until(lambda: self.opened.exists() and self.opened.read_text(), "the viewer")
        printed = self.home.runtime / "velumora" / "MyPrintedView.pdf"
        self.assertTrue(self.opened.read_text().strip().endswith(str(printed)))
        self.assertEqual(stat.S_IMODE(printed.stat().st_mode), 0o600)
        self.assertEqual(stat.S_IMODE(printed.parent.stat().st_mode), 0o700)
        text = subprocess.run(["pdftotext", "-layout", str(printed), "-"], check=True, capture_output=True,
                              stdin=subprocess.DEVNULL, text=True).stdout
        for each in (f"{self.today:%B} {self.today:%Y}", "Dentist at", "<nine>"):
            self.assertIn(each, text)
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)
        self.assertEqual(list(pathlib.Path(printed.parent).iterdir()), [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
