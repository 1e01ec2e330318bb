# SPDX-License-Identifier: MIT
"""The product's web page, opened by the portal or by the desktop's opener; and what is said when neither can."""

import unittest

from desktop.case import DesktopTest
from desktop.portal import Portal

_ALERT = "Unexpected Error"


class WebPageTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.bin = self.home.path / "bin"
        self.bin.mkdir()
        self.opened = self.home.path / "opened"

    def start_with_opener(self, commands):
        """The program, on a search path that holds nothing but an opener that does this; None for no opener."""
        if commands:
            opener = self.bin / "xdg-open"
            opener.write_text(f'#!/bin/sh\necho "$1" >>"{self.opened}"\n{commands}\n', encoding="utf-8")
            opener.chmod(0o700)
        return self.start(environment={"PATH": str(self.bin)})

    def open_web_page(self, window):
        window.find("menu item", "Help").click()
        window.find("menu item", "Velumora Web Page").click()

    def wait_until_opened(self, window, count=1):
        window.wait_until(lambda: self.opened.exists() and len(self.opened.read_text().splitlines()) == count,
                          f"{count} pages opened")

    def assert_told_once(self, window):
        alert = window.find("dialog", _ALERT)
        self.picture("web-page-not-opened")
        self.assertIn("is there a live connection to the Web?", alert.description)
        window.find("push button", "OK").press()
        window.wait_until_gone("dialog", _ALERT)

    def test_an_opener_that_fails_is_told(self):
        window = self.start_with_opener("exit 3")
        self.open_web_page(window)
        self.assert_told_once(window)
        self.wait_until_opened(window)

    def test_a_missing_opener_is_told(self):
        window = self.start_with_opener(None)
        self.open_web_page(window)
        self.assert_told_once(window)

    def test_what_the_opener_opens_is_opened_without_a_word(self):
        window = self.start_with_opener("exit 0")
        self.open_web_page(window)
        self.wait_until_opened(window)
        window.key("F1")  # whatever was to be said of the page has been said when the next one is open
        self.wait_until_opened(window, 2)
        self.assertEqual(window.find_all("dialog"), [])

    def test_help_that_does_not_open_is_borne_in_silence(self):
        window = self.start_with_opener("exit 3")
        window.key("F1")
        self.wait_until_opened(window)
        self.open_web_page(window)
        self.assert_told_once(window)
        self.assertEqual(window.find_all("dialog"), [])

    def test_the_portal_opens_it_where_there_is_one(self):
        with Portal(self.session) as portal:
            window = self.start_with_opener("exit 0")
            self.open_web_page(window)
            window.wait_until(lambda: portal.opened, "the portal to open the page")
            self.assertFalse(self.opened.exists())
            self.assertEqual(window.find_all("dialog"), [])

    def test_what_neither_the_portal_nor_the_opener_can_open_is_told(self):
        with Portal(self.session, response=2):
            window = self.start_with_opener("exit 3")
            self.open_web_page(window)
            self.assert_told_once(window)


if __name__ == "__main__":
    unittest.main(verbosity=2)
