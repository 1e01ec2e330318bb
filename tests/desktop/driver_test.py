# SPDX-License-Identifier: MIT
"""The desktop driver itself, tried on the bare window."""

import os
import subprocess
import tempfile
import unittest

from desktop.case import DesktopTest
from desktop.home import Home
from desktop.processes import children
from desktop.session import Session
from desktop.waiting import wait_until


class DriverTest(DesktopTest):
    def test_types_into_a_text_and_reads_it_back(self):
        page = self.start().find("text", "Page")
        page.type("One line,\nand (another): 100 %!")
        page.wait_for_text("One line,\nand (another): 100 %!")

    def test_does_an_action_of_a_menu_and_sees_its_state_change(self):
        window = self.start()
        window.find("menu item", "File").click()
        wrap = window.find("menu item", "Wrap lines")
        self.assertIn("checked", wrap.states)
        wrap.click()
        window.wait_until_gone("menu item", "Wrap lines")
        window.find("menu item", "File").click()
        self.assertNotIn("checked", window.find("menu item", "Wrap lines").states)

    def test_a_program_that_is_told_to_quit_ends_with_its_own_status(self):
        window = self.start()
        window.find("text", "Page").focus()
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)

    def test_a_missing_control_fails_and_says_what_there_is(self):
        window = self.start()
        window.find("text", "Page")
        with self.assertRaisesRegex(AssertionError, "push button 'Nowhere'.*text 'Page'"):
            window.find("push button", "Nowhere", patience=0.2)

    def test_a_program_that_ends_by_itself_fails_the_wait_at_once(self):
        window = self.start()
        window.process.kill()
        with self.assertRaisesRegex(AssertionError, "program ended with -9"):
            window.find("push button", "Nowhere")

    def test_a_picture_shows_the_window(self):
        window = self.start()
        window.find("text", "Page")
        colours = subprocess.run(["identify", "-format", "%k", str(self.picture("bare-window"))], check=True,
                                 capture_output=True, text=True).stdout
        self.assertGreater(int(colours), 2)

    def test_the_program_lives_in_the_private_home_alone(self):
        window = self.start()
        with open(f"/proc/{window.process.pid}/environ", encoding="utf-8") as file:
            environment = dict(entry.split("=", 1) for entry in file.read().split("\0") if entry)
        for key in ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
            self.assertTrue(environment[key].startswith(str(self.home.path)), key)
        self.assertEqual(environment["TZ"], "Europe/Berlin")


class SessionTest(unittest.TestCase):
    def test_leaves_no_process_and_no_file_behind(self):
        with Session() as session:
            session.processes.start(["sh", "-c", "trap '' TERM; sleep 1000 & exec sleep 1001"])
            self.assertGreater(len(children()), 2)
        self.assertEqual(children(), [])
        self.assertFalse(session.directory.exists())

    def test_a_painted_window_is_told_from_none(self):
        with Session(managed=False) as session, tempfile.TemporaryDirectory() as folder:
            self.assertIsNone(session.screen.painted_window())
            session.processes.start([os.environ["TEST_PROGRAM"]],
                                    env=Home(folder).environment | session.environment)
            self.assertTrue(wait_until(session.screen.painted_window, "a painted window"))

    def test_ends_what_was_started_when_the_test_fails(self):
        with self.assertRaises(ZeroDivisionError), Session():
            raise ZeroDivisionError
        self.assertEqual(children(), [])

    def test_reads_and_stamps_of_absent_files_say_so(self):
        with tempfile.TemporaryDirectory() as folder:
            home = Home(folder)
            self.assertIsNone(home.table("TALV VeluMora"))
            self.assertIsNone(home.stamp("TALV VeluMora"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
