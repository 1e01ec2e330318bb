# SPDX-License-Identifier: MIT
"""The menus while a note is written: what they offer is what can be done, and they leave the note as it is."""

import datetime
import unittest
import zoneinfo

from desktop import spoken
from desktop.case import DesktopTest


class MenuTest(DesktopTest):
    def write(self, window, text):
        day = datetime.datetime.now(zoneinfo.ZoneInfo(self.home.zone)).replace(day=2)
        window.find("push button", spoken.day(day)).press()
        window.find("text", spoken.NOTE_EDITOR).wait_for_state("focused")
        window.type(text)
        window.find("text", spoken.NOTE_EDITOR).wait_for_text(text)

    def offered(self, window):
        """The entries of the open menu that can be chosen."""
        window.find("menu item", "Undo")
        return {item.name for item in window.find_all("menu item") if "enabled" in item.states} - {
            "File", "Edit", "View", "Help"}

    def test_the_edit_menu_offers_what_can_be_done_with_the_note_being_written(self):
        window = self.start()
        self.write(window, "Milk")
        always = {"Find Notes…", "Add Important Date", "US Holidays…", "Preferences…", "Delete Note…"}
        for text, opening in (("Milk, bread", lambda: window.find("menu item", "Edit").click()),
                              ("Milk, bread, tea", lambda: window.key("alt+e"))):
            opening()
            self.assertEqual(self.offered(window), always | {"Undo", "Select All"})
            window.key("Escape", "Escape")  # the second takes the keyboard back from the menu bar
            window.wait_until_gone("menu item", "Undo")
            window.find("text", spoken.NOTE_EDITOR).wait_for_state("focused")
            window.type(text[text.rindex(","):])
            window.find("text", spoken.NOTE_EDITOR).wait_for_text(text)

    def test_the_edit_menu_offers_no_editing_without_a_text(self):
        window = self.start()
        window.find("push button", "Today").focus()
        window.find("menu item", "Edit").click()
        self.assertEqual(self.offered(window), {"Find Notes…", "Add Important Date", "US Holidays…", "Preferences…"})
        self.picture("edit-menu-without-a-text")

    def test_about_is_closed_by_escape(self):
        window = self.start()
        window.find("menu item", "Help").click()
        window.find("menu item", "About Velumora").click()
        sheet = window.find("dialog", "About Velumora")
        self.picture("about")
        self.assertIn("Free software under the MIT License, without any warranty",
                      [label.name for label in window.find_all("label")])
        window.key("Escape")
        window.wait_until_gone("dialog", sheet.name)


if __name__ == "__main__":
    unittest.main(verbosity=2)
