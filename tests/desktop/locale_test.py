# SPDX-License-Identifier: MIT
"""Languages and regions that nobody has, set in the environment: the program and its agent run all the same."""

import os
import signal
import unittest

from desktop.bus import Connection
from desktop.case import DesktopTest
from desktop.reminders import Agent, next_week, request
from gi.repository import GLib

SERVICE = "app.velumora.Velumora"
PATH = "/app/velumora/Velumora"
LONGEST = 128 * 1024 - len("LANGUAGE=") - 1  # bytes that the kernel hands over in one variable

# Taken for American English.
NO_LOCALES = [
    "norwegianbokmal", "abcdefghijkl", "Deutsch (Deutschland)", "Deutsch (Deutschland).UTF-8@euro",
    "NORWEGIANBOKMAL_NO", "", "C.UTF-8", "POSIX", "@calendar=japanese", ".", "a" * LONGEST, "_" * LONGEST,
    "de_DE_" + "x" * 300, "\x01\x02\x1b[2J", "en\nUS", "\udcff\udcfe", "日本語日本語", "/etc/passwd", "../../../tmp/evil",
    "%s%n%s", "en_US:de_DE",
]

# Taken as they stand, though their parts are odd; the program has no texts of its own for them.
ODD_LOCALES = ["abcdefghijk", "en_US@calendar=nonsense;numbers=beng", "en-US-u-ca-nonsense", "xx_YY", "_", "12345"]


class LocaleTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.connection = Connection(self.session.bus_address)
        self.addCleanup(self.connection.close)

    def home_of(self, locale, languages=""):
        return self.new_home(locale=locale, languages=languages)

    def assert_runs_on_the_display(self, home, button="Today"):
        window = self.start(home=home)
        window.find("push button", button)
        self.assertEqual(window.quit(), 0)

    def assert_runs_off_screen(self, home):
        environment = home.environment | self.session.environment | {"QT_QPA_PLATFORM": "offscreen"}
        process = self.session.processes.start([self.program], env=environment)
        self.connection.wait_for_owner(SERVICE)
        self.connection.call(SERVICE, PATH, "org.freedesktop.Application", "Activate",
                             GLib.Variant("(a{sv})", ({},)))  # answered once the window is made
        self.assertIsNone(process.poll())
        self.assertEqual(self.session.processes.end(process), 0)

    def assert_agent_runs(self, home):
        program = os.path.join(os.path.dirname(self.program), "velumora-reminder-agent")
        agent = Agent(self.session, self.connection, home, program).start()
        wanted = request(next_week())
        agent.add(wanted)
        self.assertEqual([entry["Request"] for entry in agent.in_file()], [wanted])
        agent.kill()
        self.assertEqual(agent.process.returncode, -signal.SIGKILL)

    def test_with_any_text_for_a_locale_the_program_runs(self):
        for locale in NO_LOCALES + ODD_LOCALES:
            with self.subTest(locale=locale[:40]):
                self.assert_runs_on_the_display(self.home_of(locale))

    def test_with_any_text_for_a_locale_the_program_runs_off_screen(self):
        for locale in NO_LOCALES + ODD_LOCALES:
            with self.subTest(locale=locale[:40]):
                self.assert_runs_off_screen(self.home_of(locale))

    def test_with_any_text_for_a_locale_the_agent_runs(self):
        for locale in NO_LOCALES + ODD_LOCALES:
            with self.subTest(locale=locale[:40]):
                self.assert_agent_runs(self.home_of(locale))

    def test_with_any_text_for_a_locale_the_command_line_answers(self):
        for locale in NO_LOCALES:
            with self.subTest(locale=locale[:40]):
                status, text = self.output_of("--help", self.home_of(locale))
                self.assertEqual(status, 0)
                self.assertIn(b"The day-note calendar", text)

    def output_of(self, argument, home):
        path = home.path / "output"
        with open(path, "wb") as output:
            process = self.session.processes.start([self.program, argument], env=home.environment, stdout=output)
            process.wait(60)
        return self.session.processes.end(process), path.read_bytes()

    def test_a_language_that_is_none_is_left_out_of_the_list(self):
        self.assert_runs_on_the_display(self.home_of("C.UTF-8", "norwegianbokmal:Deutsch (Deutschland):de:en"), "Heute")
        self.assert_runs_on_the_display(self.home_of("norwegianbokmal", "norwegianbokmal"))
        self.assert_runs_on_the_display(self.home_of("de_DE.UTF-8", "norwegianbokmal"), "Heute")
        self.assert_runs_on_the_display(self.home_of("de_DE.UTF-8", "xx:" * (LONGEST // 3)))


if __name__ == "__main__":
    unittest.main(verbosity=2)
