# SPDX-License-Identifier: MIT
"""A reminder from the note's menu to the click on its notification; and that there is one program in a session."""

import datetime
import os
import pathlib
import plistlib
import re
import shutil
import subprocess
import unittest
import zoneinfo

from desktop.application import ALWAYS_ACCESSIBLE, Application
from desktop.bus import Connection, NotificationDaemon, pump_until
from desktop.case import DesktopTest
from desktop.reminders import IDENTIFIER, SERVICE, Agent, in_time, request
from gi.repository import GLib

BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")
PROGRAM_SERVICE = "app.velumora.Velumora"
TEXT = "Dentist <b>& more</b>"
TOMORROW = datetime.datetime.combine(datetime.datetime.now(BERLIN).date() + datetime.timedelta(days=1),
                                     datetime.time(), BERLIN)
SCHEDULED = re.compile(f"^Reminder '{re.escape(TEXT)}'\\s+scheduled for date: "
                       f"{TOMORROW:%b} {TOMORROW.day}, {TOMORROW:%Y}$")


def in_file(day):
    """The instant as a property list carries it."""
    return day.astimezone(datetime.timezone.utc).replace(tzinfo=None)


NOTES = [{"NoteDateKey": in_file(TOMORROW - datetime.timedelta(days=2)), "NoteDataKey": "Yesterday"},
         {"NoteDateKey": in_file(TOMORROW), "NoteDataKey": TEXT},
         {"NoteDateKey": in_file(TOMORROW + datetime.timedelta(days=1)), "NoteDataKey": "Choir"}]


class RemindersTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.connection = Connection(self.session.bus_address)
        self.addCleanup(self.connection.close)
        program = pathlib.Path(os.environ["TEST_PROGRAM"])
        self.agent = Agent(self.session, self.connection, self.home, program.parent / "velumora-reminder-agent")
        self.addCleanup(self.agent.end)
        self.home.folder.mkdir(mode=0o700)
        (self.home.folder / "TALV VeluMora").write_bytes(plistlib.dumps(NOTES))

    def tearDown(self):
        # Before the agent's own end: a program may start another one for what the agent had not answered.
        self.end_programs()

    def daemon(self):
        daemon = NotificationDaemon(self.session.bus_address)
        self.addCleanup(daemon.die)
        return daemon

    def ask_for_reminder(self, window, note):
        """Right-clicks the note and takes what the menu offers."""
        window.find("table cell", f"Note: {note}").click(button=3)
        window.key("Down", "Return")

    def deliver(self, daemon, day=TOMORROW, text=TEXT):
        """Has the agent deliver now what it would at the start of that day."""
        made = request(in_time(-60), text)
        made["UserInfo"] = {"NoteDateKey": in_file(day), "NoteDataKey": text}
        count = len(daemon.notified)
        self.agent.add(made)
        return daemon.wait_for_notification(count + 1)

    def notes_shown(self, window):
        return [cell.name for cell in window.find_all("table cell") if cell.name.startswith("Note: ")]

    def wait_for_reminder(self, window):
        """Waits until the note is shown in a sheet and alone in the list."""
        window.find("dialog", "Velumora Reminder")
        window.find("label", re.compile(re.escape(TEXT) + "$"))
        window.wait_until(lambda: self.notes_shown(window) == [f"Note: {TEXT}"], "the note alone in the list")

    def adopted_program(self):
        """The program that a click started."""
        self.connection.wait_for_owner(PROGRAM_SERVICE)
        process = self.session.processes.adopt(self.connection.process_id(PROGRAM_SERVICE))
        program = Application(self.session, self.home, self.program, process=process)
        self._running.append(program)
        return program

    def active_process(self):
        """The id of the process whose window has the keyboard; None for none."""
        found = subprocess.run(["xdotool", "getactivewindow", "getwindowpid"], check=False, stdin=subprocess.DEVNULL,
                               capture_output=True, text=True, env=os.environ | self.session.environment)
        return int(found.stdout) if found.returncode == 0 else None

    def test_a_reminder_is_set_delivered_clicked_and_shown(self):
        daemon = self.daemon()
        window = self.start()
        self.ask_for_reminder(window, TEXT)
        window.find("dialog", SCHEDULED)
        self.picture("reminder-scheduled")
        pump_until(lambda: self.connection.has_owner(SERVICE), "the agent")
        pump_until(self.agent.pending, "the agent to have the request")
        pending, = self.agent.pending()
        self.assertEqual(pending["Identifier"], IDENTIFIER)
        self.assertEqual(pending["UserInfo"], NOTES[1])
        self.assertEqual(pending["Trigger"], {
            "Year": TOMORROW.year, "Month": TOMORROW.month, "Day": TOMORROW.day, "Hour": 0, "Minute": 0, "Second": 0,
            "TimeZone": "Europe/Berlin", "Repeats": False})
        window.key("Return")
        window.wait_until_gone("dialog")

        number, shown = self.deliver(daemon)
        self.assertEqual(shown["summary"], "Velumora Reminder")
        daemon.click(number)
        self.wait_for_reminder(window)
        self.picture("reminder-clicked")
        pump_until(lambda: not self.agent.file.exists(), "the agent to be done with it")

    def test_a_click_during_a_deletion_leaves_the_rows_to_it(self):
        daemon = self.daemon()
        window = self.start()
        window.find("table cell", "Note: Yesterday").click()
        window.key("Escape")  # the row is selected, its note not edited any more
        window.find("push button", "Delete Note…").press()
        window.find("dialog", "Please confirm deletion")
        self.agent.start()
        number, _ = self.deliver(daemon)
        daemon.click(number)
        pump_until(lambda: not self.agent.file.exists(), "the program to have taken the click")
        self.assertEqual(len(self.notes_shown(window)), 3)
        window.find("push button", "Confirm Delete").press()
        window.wait_until_gone("dialog", "Please confirm deletion")
        self.wait_for_reminder(window)
        self.picture("reminder-after-a-deletion")
        window.wait_until(lambda: self.home.table("TALV VeluMora") == NOTES[1:], "the named note alone to be deleted")

    def test_a_click_starts_the_program_that_was_closed(self):
        daemon = self.daemon()
        window = self.start()
        self.ask_for_reminder(window, TEXT)
        window.find("dialog")
        window.key("Return")
        window.wait_until_gone("dialog")
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)
        pump_until(self.agent.pending, "the reminder outlives the program")

        number, _ = self.deliver(daemon)
        daemon.click(number)
        self.wait_for_reminder(self.adopted_program())

    def test_the_program_starts_an_agent_that_was_killed_while_reminders_wait(self):
        wanted = request(in_time(24 * 3600))
        self.agent.start()
        self.agent.add(wanted)
        self.agent.kill()
        self.start()
        self.connection.wait_for_owner(SERVICE)
        self.assertEqual(self.agent.pending(), [wanted])

    def test_a_daemon_that_people_use_shows_the_note_as_plain_text_and_tells_of_the_click(self):
        environment = self.home.environment | self.session.environment
        configuration = self.home.path / "dunstrc"
        configuration.write_text("[global]\nfont = Sans 12\nformat = \"<b>%s</b>\\n%b\"\nmarkup = full\n")
        self.addCleanup(self.session.processes.end,
                        self.session.processes.start(["dunst", "-config", str(configuration)], env=environment))
        self.connection.wait_for_owner("org.freedesktop.Notifications")
        window = self.start()
        self.agent.start()
        self.agent.add(request(in_time(-60), TEXT, UserInfo=NOTES[1]))

        def displayed():
            result = self.connection.call("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                          "org.freedesktop.DBus.Properties", "Get",
                                          GLib.Variant("(ss)", ("org.dunstproject.cmd0", "displayedLength")))
            return result.unpack()[0]

        pump_until(lambda: displayed() == 1, "the notification on the screen")
        self.picture("reminder-shown-by-dunst")
        subprocess.run(["dunstctl", "action"], check=True, stdin=subprocess.DEVNULL, env=environment)
        self.wait_for_reminder(window)
        pump_until(lambda: displayed() == 0 and not self.agent.file.exists(), "nothing to be left of it")

    def test_a_dismissal_leaves_the_program_as_it_is(self):
        daemon = self.daemon()
        window = self.start()
        self.agent.start()
        number, _ = self.deliver(daemon)
        daemon.dismiss(number)
        pump_until(lambda: not self.agent.file.exists(), "the agent to know")
        self.assertEqual(len(self.notes_shown(window)), 3)
        self.assertEqual(window.find_all("dialog"), [])

    def test_without_a_notification_service_the_user_is_told(self):
        window = self.start()
        self.ask_for_reminder(window, TEXT)
        window.find("dialog", "Failed to post notification")
        pump_until(lambda: not self.connection.has_owner(SERVICE), "the agent to end, which has nothing to do")

    def test_installed_services_start_the_agent_and_the_program(self):
        daemon = self.daemon()
        agent = os.environ["TEST_PROGRAM"] + "-reminder-agent"
        program = ["/usr/bin/env", *(f"{key}={value}" for key, value in self.home.environment.items()),
                   *(f"{key}={value}" for key, value in (self.session.environment | ALWAYS_ACCESSIBLE).items()),
                   self.program]
        with (self.session.activatable(SERVICE, "/usr/bin/env", f"XDG_STATE_HOME={self.home.path}/by-bus", agent),
              self.session.activatable(PROGRAM_SERVICE, *program)):
            window = self.start()
            self.ask_for_reminder(window, TEXT)
            window.find("dialog", SCHEDULED)
            pump_until((self.home.path / "by-bus/velumora/Reminders").exists, "the agent that the bus started")
            window.key("Return")
            window.wait_until_gone("dialog")
            window.key("ctrl+q")
            self.assertEqual(window.wait_for_end(), 0)
            number, _ = self.deliver(daemon)
            daemon.click(number)
            self.wait_for_reminder(self.adopted_program())

    def test_without_a_session_bus_the_program_runs_and_a_reminder_is_refused(self):
        window = self.start()
        x, y, width, height = window.find("table cell", f"Note: {TEXT}").rectangle
        window.quit()
        # Nor is there an accessibility bus then: the same place is clicked in the same window, and titles tell the rest.
        environment = self.home.environment | self.session.environment
        process = self.session.processes.start(
            [str(self.program)], env=environment | {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent"})

        def xdotool(*command):
            return subprocess.run(["xdotool", *command], check=False, stdin=subprocess.DEVNULL, capture_output=True,
                                  text=True, env=environment).stdout

        pump_until(self.session.screen.painted_window, "the window")
        pump_until(lambda: self.active_process() == process.pid, "the window to have the keyboard")
        xdotool("mousemove", str(x + width // 2), str(y + height // 2), "click", "3", "key", "--delay", "8", "Down",
                "Return")
        pump_until(lambda: xdotool("search", "--onlyvisible", "--name", "^Failed to post notification"), "the sheet")
        self.assertEqual(self.session.processes.end(process), 0)

    def test_a_program_that_ends_at_once_has_handed_its_reminder_over(self):
        self.daemon()
        folder = self.home.path / "bin"
        folder.mkdir()
        shutil.copy(self.program, folder / "velumora")
        slow_agent = folder / "velumora-reminder-agent"
        slow_agent.write_text(f"#!/bin/sh\nsleep 6\nexec {self.program}-reminder-agent\n")
        slow_agent.chmod(0o755)
        window = Application(self.session, self.home, folder / "velumora")
        self._running.append(window)
        self.ask_for_reminder(window, TEXT)
        window.find("dialog", SCHEDULED)
        window.process.terminate()
        self.assertEqual(window.wait_for_end(), 0)
        self.assertEqual(len(self.agent.in_file()), 1)

    def test_a_second_start_brings_the_first_window_forward(self):
        first = self.start()
        cover = Application(self.session, self.home, os.environ["TEST_COVER"])
        self._running.append(cover)
        cover.find("text", "Page").wait_for_state("focused")
        second = self.session.processes.start(
            [str(self.program)], env=self.home.environment | self.session.environment | ALWAYS_ACCESSIBLE)
        self.assertEqual(second.wait(20), 0)
        first.wait_until(lambda: self.active_process() == first.process.pid, "the first window to have the keyboard")
        self.assertEqual(len(self.session.screen.windows()), 2)

    def test_of_programs_started_at_once_one_shows_a_window(self):
        environment = self.home.environment | self.session.environment | ALWAYS_ACCESSIBLE
        started = [self.session.processes.start([str(self.program)], env=environment) for _ in range(4)]
        pump_until(lambda: sum(process.poll() is None for process in started) == 1, "the others to end")
        pump_until(self.session.screen.painted_window, "a window")
        self.assertEqual(len(self.session.screen.windows()), 1)
        for process in started:
            self.assertEqual(self.session.processes.end(process), 0)

    def test_a_program_started_while_the_first_one_ends_takes_its_place(self):
        environment = self.home.environment | self.session.environment | ALWAYS_ACCESSIBLE
        for _ in range(3):
            first = self.start()
            first.process.terminate()
            second = self.session.processes.start([str(self.program)], env=environment)
            self.assertEqual(first.wait_for_end(), 0)
            self.connection.wait_for_owner(PROGRAM_SERVICE)
            self.assertEqual(self.connection.process_id(PROGRAM_SERVICE), second.pid)
            self.session.processes.end(second)


if __name__ == "__main__":
    unittest.main(verbosity=2)
