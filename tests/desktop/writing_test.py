# SPDX-License-Identifier: MIT
"""Writing in a row: every line of a note is seen, every key that edits belongs to the text, and a save interrupts
nothing."""

import datetime
import os
import subprocess
import tempfile
import unittest
import zoneinfo

from desktop import spoken
from desktop.case import DesktopTest

NOTES = "TALV VeluMora"
EVENTS = "TALV Events"
TEXT = "one two three"

# What is pressed on TEXT, and the text afterwards.
KEYS = (
    ("Home ctrl+Delete", "two three"),
    ("End ctrl+BackSpace", "one two "),
    ("Home Delete", "ne two three"),
    ("End BackSpace", "one two thre"),
    ("Home ctrl+k", ""),
    ("Home ctrl+shift+Delete", TEXT),
    ("End ctrl+Left X", "one two Xthree"),
    ("Home ctrl+Right X", "one Xtwo three"),
    ("Home Right X", "oXne two three"),
    ("End Left X", "one two threXe"),
    ("Home End X", "one two threeX"),
    ("End Home X", "Xone two three"),
    ("End shift+Left X", "one two threX"),
    ("Home shift+Right X", "Xne two three"),
    ("End ctrl+shift+Left X", "one two X"),
    ("Home ctrl+shift+Right X", "Xtwo three"),
    ("End shift+Home X", "X"),
    ("Home shift+End X", "X"),
    ("Home ctrl+a X", "X"),
    ("Home ctrl+shift+Right ctrl+x", "two three"),
    ("Home ctrl+shift+Right shift+Delete", "two three"),
    ("Home ctrl+shift+Right ctrl+c End ctrl+v", "one two threeone "),
    ("Home ctrl+shift+Right ctrl+Insert End shift+Insert", "one two threeone "),
    ("Home ctrl+Delete ctrl+z", TEXT),
    ("Home ctrl+Delete ctrl+z ctrl+shift+z", "two three"),
)
# The same in a text of several lines.
KEYS_OF_LINES = (
    ("End ctrl+Home X", "Xone two three"),
    ("Home ctrl+End X", "one two threeX"),
    ("End ctrl+shift+Home X", "X"),
    ("Home ctrl+shift+End X", "X"),
)


def day_of_this_month(day):
    today = datetime.datetime.now(zoneinfo.ZoneInfo("Europe/Berlin"))
    return today.replace(day=day)


class WritingTest(DesktopTest):
    def texts(self, name, key):
        table = self.home.table(name)
        return None if table is None else [record[key] for record in table]

    def open_note(self, window, day=2):
        window.find("push button", spoken.day(day_of_this_month(day))).press()
        note = window.find("text", spoken.NOTE_EDITOR)
        note.wait_for_state("focused")
        return note

    def widths_of_lines(self, control, count, scale):
        """How far to the right the ink of each line of the control reaches, in pixels."""
        x, y, _, height = (scale * length for length in control.rectangle)
        width = scale * 100
        with tempfile.NamedTemporaryFile(suffix=".png") as file:
            self.session.screen.save_picture(file.name)
            pixels = subprocess.run(["convert", file.name, "-crop", f"{width}x{height}+{x}+{y}", "+repage",
                                     "-colorspace", "gray", "-depth", "8", "gray:-"], check=True,
                                    capture_output=True, stdin=subprocess.DEVNULL).stdout
        rows = [pixels[start:start + width] for start in range(0, width * height, width)]
        line, around = height // count, 3 * scale  # the ring around the cell
        return [max((column for row in rows[top * line + around:(top + 1) * line - around]
                     for column in range(width) if row[column] < 160), default=0) for top in range(count)]

    def test_every_line_is_seen_while_the_next_one_is_typed(self):
        for fonts in ("noto", "dejavu", "cantarell", "cjk"):
            for scale in (1, 2):
                with self.subTest(fonts=fonts, scale=scale):
                    window = self.start(home=self.new_home(),
                                        environment=self.session.fonts(fonts) | {"QT_SCALE_FACTOR": str(scale)})
                    try:
                        self.write_stairs(window, scale)
                    finally:
                        self.picture(f"writing-{fonts}-{scale}")
                        window.quit()

    def write_stairs(self, window, scale):
        note = self.open_note(window)
        for count in range(1, 5):
            window.type(("\n" if count > 1 else "") + "M" * count)
            note.wait_for_text("\n".join("M" * each for each in range(1, count + 1)))
            window.wait_until(lambda: self.are_stairs(self.widths_of_lines(note, count, scale)),
                              f"{count} lines, each longer than the one before", patience=5)

    @staticmethod
    def are_stairs(widths):
        return widths[0] > 0 and all(first < second for first, second in zip(widths, widths[1:]))

    def press_keys(self, window, field, table):
        for keys, expected in table:
            with self.subTest(field=field.name, keys=keys):
                window.key("ctrl+a", "Delete")
                window.type(TEXT)
                field.wait_for_text(TEXT)
                window.key(*keys.split())
                field.wait_for_text(expected)
        self.assertEqual(window.find_all("dialog"), [])

    def test_keys_that_edit_belong_to_the_note(self):
        window = self.start()
        note = self.open_note(window)
        self.press_keys(window, note, KEYS + KEYS_OF_LINES)
        self.assertIn("focused", note.states)
        window.find("label", "Displaying 1 notes")

    def test_keys_that_edit_belong_to_the_search_field(self):
        window = self.start()
        self.open_note(window)
        window.type("kept")
        field = window.find("text", "Search notes")
        field.focus()
        self.press_keys(window, field, KEYS)
        self.assertIn("focused", field.states)
        window.find("table cell", "Note: kept")

    def test_keys_that_edit_belong_to_the_description_and_the_date_of_an_important_date(self):
        window = self.start()
        window.find("push button", "Add Date").press()
        window.find("spin button", "Date").wait_for_state("focused")
        window.key("Home", "ctrl+Delete", "End", "ctrl+BackSpace", "ctrl+a", "ctrl+c", "ctrl+shift+Delete")
        self.assertEqual(window.find_all("dialog"), [])
        window.key("Tab")
        description = window.find("text", spoken.DESCRIPTION_EDITOR)
        description.wait_for_state("focused")
        self.press_keys(window, description, KEYS + KEYS_OF_LINES)
        self.assertIn("focused", description.states)

    def test_keys_that_edit_belong_to_the_fields_of_the_preferences(self):
        window = self.start()
        window.find("push button", "Today").focus()
        window.key("ctrl+comma")
        for name in ("Latitude:", "Longitude:"):
            field = window.find("text", name)
            field.focus()
            window.type("52")
            field.wait_for_text("52")
            window.key("Home", "ctrl+Delete")
            field.wait_for_text("")
            window.key("ctrl+z")
            field.wait_for_text("52")
            window.key("End", "ctrl+BackSpace", "ctrl+shift+Delete")
            field.wait_for_text("")
            self.assertEqual(len(window.find_all("dialog")), 1)

    def test_a_save_leaves_the_caret_where_it_was(self):
        window = self.start()
        note = self.open_note(window)
        window.type("Bread and milk")
        note.wait_for_text("Bread and milk")
        window.key("ctrl+Left", "ctrl+s")
        window.wait_until(lambda: self.texts(NOTES, "NoteDataKey") == ["Bread and milk"], "the note on the disk")
        window.type("much ")
        note.wait_for_text("Bread and much milk")
        window.key("ctrl+s")
        window.wait_until(lambda: self.texts(NOTES, "NoteDataKey") == ["Bread and much milk"], "the new text")
        window.key("ctrl+z", "ctrl+z", "ctrl+z")
        note.wait_for_text("")

        window.find("push button", "Add Date").press()
        window.find("spin button", "Date").wait_for_state("focused")
        window.key("Tab")
        description = window.find("text", spoken.DESCRIPTION_EDITOR)
        description.wait_for_state("focused")
        window.type("Ann")
        description.wait_for_text("Ann")
        window.key("Home", "ctrl+s")
        window.wait_until(lambda: self.texts(EVENTS, "EventNameKey") == ["Ann"], "the date on the disk")
        window.type("Aunt ")
        description.wait_for_text("Aunt Ann")

    def test_a_dead_key_is_not_finished_in_the_next_note(self):
        # A keyboard that has the key: a key that is only lent to the press may be taken back before the program reads it.
        subprocess.run(["setxkbmap", "-layout", "us", "-variant", "intl"], check=True, stdin=subprocess.DEVNULL,
                       env=os.environ | self.session.environment)
        window = self.start()
        note = self.open_note(window, 2)
        window.key("dead_acute", "e")
        note.wait_for_text("é")
        window.key("dead_acute")
        window.find("push button", spoken.day(day_of_this_month(9))).click()
        window.wait_until(lambda: window.find("text", spoken.NOTE_EDITOR).text == "", "the other note")
        window.find("text", spoken.NOTE_EDITOR).wait_for_state("focused")
        window.key("e", "f")
        window.find("text", spoken.NOTE_EDITOR).wait_for_text("ef")


if __name__ == "__main__":
    unittest.main(verbosity=2)
