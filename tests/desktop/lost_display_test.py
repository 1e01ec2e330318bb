# SPDX-License-Identifier: MIT
"""The X server dies under the program in the middle of typing; what the program saved before it ended is read back."""

import datetime
import plistlib
import unittest
import zoneinfo

from desktop import spoken
from desktop.case import DesktopTest

NOTES = "TALV VeluMora"
EVENTS = "TALV Events"
BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")


class LostDisplayTest(DesktopTest):
    def test_the_edit_and_the_important_dates_are_saved_and_no_draft_is_left(self):
        self.home.folder.mkdir(mode=0o700)
        ada = {"EventDateKey": datetime.datetime(1990, 5, 4), "EventNameKey": "Ada"}
        (self.home.folder / EVENTS).write_bytes(plistlib.dumps([ada]))
        day = datetime.datetime.now(BERLIN).replace(day=2)
        window = self.start()
        window.find("push button", "Add Date").press()
        window.find("push button", spoken.day(day)).press()
        window.find("text", spoken.NOTE_EDITOR).wait_for_state("focused")
        window.type("not lost")
        window.find("text", spoken.NOTE_EDITOR).wait_for_text("not lost")

        self.session.end_display()
        self.assertEqual(window.wait_for_end(), 1, "the toolkit ends the process")
        self.assertEqual([note["NoteDataKey"] for note in self.home.table(NOTES)], ["not lost"])
        self.assertEqual([date["EventNameKey"] for date in self.home.table(EVENTS)],
                         ["Ada", "** put new date Description here **"])
        self.assertFalse((self.home.path / ".local/state/velumora/Draft").exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
