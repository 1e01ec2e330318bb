# SPDX-License-Identifier: MIT
"""The first day with the program: notes are written, found, kept, deleted; what is on disk is read by other programs."""

import datetime
import signal
import unittest
import zoneinfo

from gi.repository import GLib

from desktop import spoken
from desktop.bus import Connection
from desktop.case import DesktopTest
from desktop.geoclue import LocationService

NOTES = "TALV VeluMora"
BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")
LOGIN_MANAGER = """<node><interface name="org.freedesktop.login1.Manager">
    <method name="Inhibit"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
      <arg type="s" direction="in"/><arg type="h" direction="out"/></method>
  </interface></node>"""
TEXT = "Milk\nBread, 2 loaves\n<Call> Grandma & Sam"


def day_of_this_month(day):
    return datetime.datetime.now(BERLIN).replace(day=day, hour=0, minute=0, second=0, microsecond=0)


def in_file(day):
    """The instant as a property list carries it."""
    return day.astimezone(datetime.timezone.utc).replace(tzinfo=None)


class FirstDayTest(DesktopTest):
    day = day_of_this_month(2)

    def write_note(self, window, day, text):
        window.find("push button", spoken.day(day)).press()
        note = window.find("text", f"Note of {spoken.day(day)}")
        note.wait_for_state("focused")
        window.type(text)
        note.wait_for_text(text)
        window.find("push button", "Today").focus()
        window.find("push button", f"{spoken.day(day)}, has a note")

    def wait_for_notes(self, window, expected):
        window.wait_until(lambda: self.home.table(NOTES) == expected, f"{expected} on disk")

    def test_a_note_is_written_marked_stored_and_there_again(self):
        window = self.start()
        window.find("push button", spoken.day(self.day)).press()
        note = window.find("text", f"Note of {spoken.day(self.day)}")
        one_line = note.rectangle[3]
        note.wait_for_state("focused")
        window.type(TEXT)
        note.wait_for_text(TEXT)
        self.assertEqual(note.rectangle[3], 3 * one_line)
        self.assertIsNone(self.home.table(NOTES), "nothing is written while a note is being typed")

        window.find("text", "Search notes").click()
        window.find("push button", f"{spoken.day(self.day)}, has a note")
        expected = [{"NoteDateKey": in_file(self.day), "NoteDataKey": TEXT}]
        self.wait_for_notes(window, expected)
        self.assertEqual(self.home.table_by_plistutil(NOTES), expected)
        self.assertEqual(self.home.stamp(NOTES), ("NOTE", "Vel1"))
        self.assertEqual((self.home.folder / NOTES).stat().st_mode & 0o777, 0o600)

        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)
        again = self.start()
        again.find("push button", f"{spoken.day(self.day)}, has a note").press()
        again.find("text", f"Note of {spoken.day(self.day)}").wait_for_text(TEXT)

    def test_a_search_shows_the_notes_that_hold_the_words(self):
        window = self.start()
        self.write_note(window, day_of_this_month(3), "Dentist at noon")
        self.write_note(window, day_of_this_month(4), "Choir")
        window.find("table cell", "Note: Choir")
        window.key("ctrl+f")
        window.find("text", "Search notes").wait_for_state("focused")
        window.type("dentist\n")
        window.wait_until_gone("table cell", "Note: Choir")
        window.find("table cell", "Note: Dentist at noon")

    def test_a_deletion_is_asked_about_and_can_be_refused(self):
        window = self.start()
        self.write_note(window, self.day, "Short-lived")
        kept = [{"NoteDateKey": in_file(self.day), "NoteDataKey": "Short-lived"}]
        self.wait_for_notes(window, kept)

        window.find("push button", "Delete Note…").press()
        window.find("push button", "Cancel Delete").press()
        window.wait_until_gone("dialog")
        self.assertEqual(self.home.table(NOTES), kept)

        window.find("push button", "Delete Note…").press()
        window.find("push button", "Confirm Delete").press()
        self.wait_for_notes(window, None)
        window.find("push button", spoken.day(self.day))

    def test_the_week_starts_on_the_day_that_the_preferences_say(self):
        def first_weekday(window):
            names = ("Sunday", "Monday")
            return min((label for label in window.find_all("label") if label.name in names),
                       key=lambda label: label.rectangle[0]).name

        window = self.start()
        window.wait_until(lambda: first_weekday(window) == "Sunday", "Sunday first")
        window.key("ctrl+comma")
        window.find("radio button", "Monday").click()
        window.wait_until(lambda: first_weekday(window) == "Monday", "Monday first")
        window.key("Escape")
        window.wait_until_gone("dialog")
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)
        again = self.start()
        again.wait_until(lambda: first_weekday(again) == "Monday", "Monday first after a new start")

    def test_days_are_spoken_in_the_language_of_the_desktop(self):
        german = self.new_home(locale="de_DE.UTF-8", languages="de")
        months = ("Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August", "September", "Oktober",
                  "November", "Dezember")
        weekdays = ("Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag", "Sonntag")
        day = self.day
        window = self.start(home=german)
        today = ", heute" if spoken.is_today(day) else ""
        window.find("push button", f"{weekdays[day.weekday()]}, {day.day}. {months[day.month - 1]} {day.year}{today}")
        window.find("label", months[day.month - 1])

    def test_being_asked_to_end_by_the_system_ends_it_cleanly(self):
        window = self.start()
        self.write_note(window, self.day, "Kept")
        window.process.send_signal(signal.SIGTERM)
        self.assertEqual(window.wait_for_end(), 0)
        self.assertEqual([note["NoteDataKey"] for note in self.home.table(NOTES)], ["Kept"])

    def test_before_the_machine_is_switched_off_what_is_being_typed_is_saved(self):
        system_bus = LocationService(self.session.processes)  # without a service
        login_manager = Connection(system_bus.address)
        self.addCleanup(login_manager.close)

        def refuse(method, _):
            asked.append(method)
            raise GLib.Error("no more locks")
        asked = []
        login_manager.export("/org/freedesktop/login1", LOGIN_MANAGER, refuse)
        login_manager.own("org.freedesktop.login1")
        window = self.start(environment=system_bus.environment)
        window.find("push button", spoken.day(self.day)).press()
        window.find("text", spoken.NOTE_EDITOR).wait_for_state("focused")
        window.type("Half a thought")
        window.find("text", spoken.NOTE_EDITOR).wait_for_text("Half a thought")
        window.wait_until(lambda: asked, "the program to ask for a lock")
        login_manager.emit("/org/freedesktop/login1", "org.freedesktop.login1.Manager", "PrepareForShutdown",
                           GLib.Variant("(b)", (True,)))
        self.wait_for_notes(window, [{"NoteDateKey": in_file(self.day), "NoteDataKey": "Half a thought"}])
        self.assertIsNone(window.process.poll(), "the machine may go on after all")


if __name__ == "__main__":
    unittest.main(verbosity=2)
