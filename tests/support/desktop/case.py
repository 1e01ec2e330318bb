# SPDX-License-Identifier: MIT
"""What every desktop test builds on: one session for the test program, a fresh home for each test."""

import os
import pathlib
import unittest

from .application import Application
from .home import Home
from .session import Session


class DesktopTest(unittest.TestCase):
    """Tests of the program that TEST_PROGRAM names. A failing test leaves a picture of the screen in TEST_PICTURES."""

    @classmethod
    def setUpClass(cls):
        cls.program = os.environ["TEST_PROGRAM"]
        cls.session = Session()
        cls.addClassCleanup(cls.session.close)

    def setUp(self):
        self.home = self.new_home()
        self._running = []
        self.addCleanup(self._end_running)

    def run(self, result=None):
        self._result = result
        return super().run(result)

    def new_home(self, **settings):
        return Home(self.session.directory / f"home-{len(list(self.session.directory.iterdir()))}", **settings)

    def start(self, *arguments, home=None, environment=None):
        application = Application(self.session, home or self.home, self.program, *arguments, environment=environment)
        self._running.append(application)
        return application

    def picture(self, name):
        """Saves what the screen shows as TEST_PICTURES/name.png."""
        folder = pathlib.Path(os.environ.get("TEST_PICTURES", self.session.directory))
        folder.mkdir(parents=True, exist_ok=True)
        path = folder / f"{name}.png"
        self.session.screen.save_picture(path)
        return path

    def _end_running(self):
        failed = any(test is self for test, _ in self._result.failures + self._result.errors)
        if failed and self.session.screen:
            self.picture(self.id())
        self.end_programs()

    def end_programs(self):
        for application in self._running:
            if application.process.poll() is None:
                application.quit()
