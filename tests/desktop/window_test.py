# SPDX-License-Identifier: MIT
"""The window fits a small screen, however large the texts are, and comes back where it was."""

import os
import subprocess
import unittest

from desktop.case import DesktopTest
from desktop.session import Session

SCREEN = 1024, 600
KDE_WITH_FONT = """[General]
font={family},{points},-1,5,50,0,0,0,0,0
"""


class WindowTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        cls.program = os.environ["TEST_PROGRAM"]
        cls.session = Session(width=SCREEN[0], height=SCREEN[1])
        cls.addClassCleanup(cls.session.close)

    def place(self, window):
        return window.find("frame").rectangle

    def wait_until_within_screen(self, window):
        def is_within():
            x, y, width, height = self.place(window)
            return width > 500 and x >= 0 and y > 0 and x + width <= SCREEN[0] and y + height <= SCREEN[1]
        window.wait_until(is_within, "a window within the screen")

    def use_window(self, *command):
        """Has xdotool do something with the program's window, which is the active one."""
        subprocess.run(["xdotool", "getactivewindow", *command], check=True, stdin=subprocess.DEVNULL,
                       env=os.environ | self.session.environment)

    def close(self, window):
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)

    def test_opens_within_a_small_screen(self):
        window = self.start()
        self.wait_until_within_screen(window)
        self.picture("window-small-screen")

    def test_opens_within_a_small_screen_with_large_texts(self):
        for family in ("Noto Sans", "Cantarell"):
            home = self.new_home(locale="de_DE.UTF-8", languages="de")
            (home.path / ".config/kdeglobals").write_text(KDE_WITH_FONT.format(family=family, points=15),
                                                          encoding="utf-8")
            window = self.start(home=home, environment={"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
            self.wait_until_within_screen(window)
            self.picture(f"window-small-screen-large-{family.split()[0].lower()}")
            self.close(window)

    def test_comes_back_with_its_size_and_place(self):
        window = self.start()
        self.wait_until_within_screen(window)
        self.use_window("windowsize", "--sync", "760", "480", "windowmove", "--sync", "160", "70")
        window.wait_until(lambda: self.place(window)[2:] == (760, 480), "the new size")
        left = self.place(window)
        self.close(window)
        window = self.start()
        window.wait_until(lambda: self.place(window) == left, f"the window at {left}")

    def test_comes_back_onto_a_screen_that_became_smaller(self):
        folder = self.home.path / ".local/state/velumora"
        folder.mkdir(parents=True)
        (folder / "Window").write_text("2600 1300 1900 1000 normal\n", encoding="utf-8")
        window = self.start()
        self.wait_until_within_screen(window)

    def test_comes_back_maximised(self):
        folder = self.home.path / ".local/state/velumora"
        folder.mkdir(parents=True)
        (folder / "Window").write_text("100 80 760 480 maximised\n", encoding="utf-8")
        window = self.start()
        window.wait_until(lambda: self.place(window)[2] >= SCREEN[0] - 2, "a maximised window")
        self.close(window)
        self.assertEqual((folder / "Window").read_text(encoding="utf-8").split()[4], "maximised")


if __name__ == "__main__":
    unittest.main(verbosity=2)
