# SPDX-License-Identifier: MIT
"""The Wayland compositor dies under the program; what was in memory alone is on the disk."""

import os
import subprocess
import unittest

from desktop.case import DesktopTest
from desktop.waiting import wait_until

EVENTS = "TALV Events"


class LostCompositorTest(DesktopTest):
    def test_the_important_dates_are_saved(self):
        runtime = self.session.directory / "wayland"
        runtime.mkdir(mode=0o700)
        compositor = subprocess.Popen(
            ["weston", "--backend=headless-backend.so", "--socket=velumora-test", "--idle-time=0"],
            env=os.environ | {"XDG_RUNTIME_DIR": str(runtime)}, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        self.addCleanup(compositor.wait)
        self.addCleanup(compositor.kill)
        socket = runtime / "velumora-test"
        wait_until(socket.exists, "the compositor")
        window = self.start(environment={"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": str(socket)})
        window.find("push button", "Add Date").press()
        window.find("spin button", "Date")  # in memory, and in no file

        compositor.kill()
        self.assertNotEqual(window.wait_for_end(), 0, "the toolkit ends the process")
        self.assertEqual([date["EventNameKey"] for date in self.home.table(EVENTS)],
                         ["** put new date Description here **"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
