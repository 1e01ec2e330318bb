# SPDX-License-Identifier: MIT
"""How the program starts: what its command line answers, and what a start does while another one hangs."""

import os
import signal
import subprocess
import unittest

from desktop.bus import Connection
from desktop.case import DesktopTest

SERVICE = "app.velumora.Velumora"
MESSAGE_BOX = "alert"


class StartTest(DesktopTest):
    def run_without_display(self, *arguments, program=None):
        return subprocess.run([program or self.program, *arguments], env=self.home.environment, check=False, text=True,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=60)

    def test_help_and_version_are_told_without_a_display(self):
        for argument in ("--help", "-h"):
            told = self.run_without_display(argument)
            self.assertEqual((told.returncode, told.stderr), (0, ""))
            self.assertIn("Usage: ", told.stdout)
            self.assertIn("The day-note calendar", told.stdout)
            self.assertIn("--version", told.stdout)
        for argument in ("--version", "-v"):
            told = self.run_without_display(argument)
            self.assertEqual((told.returncode, told.stdout, told.stderr), (0, "velumora 1.0\n", ""))

    def test_help_is_in_the_language_of_the_desktop(self):
        self.home = self.new_home(locale="de_DE.UTF-8", languages="de")
        self.assertIn("Der Kalender für Tagesnotizen", self.run_without_display("--help").stdout)

    def test_what_it_does_not_know_is_refused_in_one_line(self):
        # Options of the toolkit would set something.
        for arguments in (["--unknown"], ["-x"], ["file.txt"], ["--platform", "offscreen"], ["-platform", "offscreen"],
                          ["-style=fusion"], ["-reverse"], ["-stylesheet", "x.qss"], ["-session"]):
            refused = self.run_without_display(*arguments)
            self.assertEqual((refused.returncode, refused.stdout), (1, ""), arguments)
            self.assertRegex(refused.stderr, r"\Avelumora: [^\n]+\n\Z", arguments)

    def test_a_session_manager_starts_it_again_with_its_former_session(self):
        for arguments in (["-session", "1017f000000167_1700000000"], ["--session", "1017f_1", "-name", "velumora"]):
            window = self.start(*arguments)
            window.find("push button", "Today")
            window.key("ctrl+q")
            self.assertEqual(window.wait_for_end(), 0)

    def test_the_agent_answers_alike(self):
        agent = os.path.join(os.path.dirname(self.program), "velumora-reminder-agent")
        told = self.run_without_display("--version", program=agent)
        self.assertEqual((told.returncode, told.stdout), (0, "velumora-reminder-agent 1.0\n"))
        told = self.run_without_display("--help", program=agent)
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        refused = self.run_without_display("--now", program=agent)
        self.assertEqual((refused.returncode, refused.stdout), (1, ""))
        self.assertRegex(refused.stderr, r"\Avelumora-reminder-agent: [^\n]+\n\Z")

    def test_another_start_leaves_the_keyboard_with_the_sheet_that_is_open(self):
        window = self.start()
        window.find("push button", "Today")
        for _ in range(3):
            window.key("ctrl+comma")
            latitude = window.find("text", "Latitude:")
            latitude.focus()
            latitude.wait_for_state("focused")
            window.type("5")
            again = self.session.processes.start([self.program], env=self.home.environment | self.session.environment)
            self.assertEqual(again.wait(20), 0)
            window.type("2")
            latitude.wait_for_text("52")
            window.key("Escape")
            window.wait_until_gone("dialog")

    def start_hung(self):
        """A program that has stopped answering."""
        hung = self.start()
        hung.find("push button", "Today")
        hung.process.send_signal(signal.SIGSTOP)
        self.addCleanup(hung.process.send_signal, signal.SIGCONT)
        return hung

    def test_a_start_behind_a_hung_program_says_so_and_gives_up(self):
        self.start_hung()
        second = self.start()
        second.find(MESSAGE_BOX)
        self.picture("hung-first-program")
        second.find("label", "Velumora is running but does not answer.")
        self.assertIn("velumora: Velumora is running but does not answer.\n", second.log.read_text())
        self.assertEqual(second.find_all("push button", "Today"), [], "there is no second window")
        second.find("push button", "OK").press()
        self.assertEqual(second.wait_for_end(), 1)

    def test_a_start_behind_a_hung_program_can_be_ended_while_it_waits(self):
        hung = self.start_hung()
        connection = Connection(self.session.bus_address)
        self.addCleanup(connection.close)
        environment = self.home.environment | self.session.environment
        second = self.session.processes.start([self.program], env=environment)
        self.session.processes.end(second)
        self.assertIn(second.returncode, (0, -signal.SIGTERM))  # before or after it has begun to listen
        self.assertEqual(connection.process_id(SERVICE), hung.process.pid)

    def test_the_message_of_a_start_behind_a_hung_program_ends_with_a_signal_too(self):
        self.start_hung()
        second = self.start()
        second.find(MESSAGE_BOX)
        second.process.send_signal(signal.SIGTERM)
        self.assertEqual(second.wait_for_end(), 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
