# SPDX-License-Identifier: MIT
"""Important dates by keyboard alone, holidays from their sheet, and a note made from a date."""

import datetime
import re
import unittest
import zoneinfo

from desktop.case import DesktopTest

NOTES = "TALV VeluMora"
EVENTS = "TALV Events"
BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")


def midnight(year, month, day):
    """The instant as a property list carries it."""
    local = datetime.datetime(year, month, day, tzinfo=BERLIN)
    return local.astimezone(datetime.timezone.utc).replace(tzinfo=None)


class ImportantDatesTest(DesktopTest):
    def saved(self, window, name, expected):
        window.wait_until(lambda: expected(self.home.table(name)), f"{name} as expected on disk")

    def test_a_birthday_is_entered_by_keyboard_alone_saved_and_spoken(self):
        window = self.start()
        window.key("ctrl+shift+d")
        window.find("spin button", "Date").wait_for_state("focused")
        window.type("12/24/1965")
        window.key("Tab")
        window.find("text", "Description of Friday, December 24, 1965").wait_for_state("focused")
        window.type("Grandma born\nin the snow")
        window.key("Escape")
        window.key("ctrl+s")
        self.saved(window, EVENTS, lambda table: table and table[0]["EventNameKey"] == "Grandma born\nin the snow")
        [event] = self.home.table(EVENTS)
        self.assertEqual(event["EventDateKey"].replace(tzinfo=datetime.timezone.utc).astimezone(BERLIN).date(),
                         datetime.date(1965, 12, 24))
        self.assertEqual(self.home.stamp(EVENTS), ("DATE", "Vel1"))
        window.find("table cell", "Date: Fri, Dec 24, 1965")
        window.find("table cell", "Description: Grandma born\nin the snow")
        window.find("table cell", re.compile("^Since / Until: "))

    def test_ticked_holidays_become_dates_and_notes(self):
        year = datetime.datetime.now(BERLIN).year
        window = self.start()
        window.key("ctrl+shift+h")
        box = window.find("check box", "Independence Day")
        box.press()
        window.find("label", f"July 4, {year}")
        window.find("push button", "Add Dates and Notes").press()
        window.wait_until_gone("dialog")
        self.saved(window, EVENTS, lambda table: table == [{"EventDateKey": midnight(year, 7, 4),
                                                            "EventNameKey": "Independence Day"}])
        self.saved(window, NOTES, lambda table: table == [{"NoteDateKey": midnight(year, 7, 4),
                                                           "NoteDataKey": "Independence Day"}])
        window.key("ctrl+shift+h")
        window.wait_until(lambda: "enabled" not in window.find("check box", "Independence Day").states,
                          "Independence Day greyed")
        window.key("Escape")

    def test_a_right_click_makes_a_note_of_the_same_day_this_year(self):
        year = datetime.datetime.now(BERLIN).year
        window = self.start()
        window.key("ctrl+shift+d")
        window.find("spin button", "Date").wait_for_state("focused")
        window.type("05201990")
        window.key("Tab")
        window.find("text", "Description of Sunday, May 20, 1990").wait_for_state("focused")
        window.type("Ann's birthday")
        window.key("Escape")
        window.find("table cell", "Description: Ann's birthday").click(button=3)
        window.key("Down", "Down", "Return")  # past the heading and the date's own day
        window.find("dialog", "Note Added/Appended")
        window.key("Return")
        window.wait_until_gone("dialog")
        window.find("table cell", "Note: Ann's birthday")
        self.assertIsNone(self.home.table(NOTES), "it is shown, not saved yet")
        window.key("ctrl+s")
        self.saved(window, NOTES, lambda table: table == [{"NoteDateKey": midnight(year, 5, 20),
                                                           "NoteDataKey": "Ann's birthday"}])


if __name__ == "__main__":
    unittest.main(verbosity=2)
