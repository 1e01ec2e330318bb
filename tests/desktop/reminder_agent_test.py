# SPDX-License-Identifier: MIT
"""The reminder agent on a bus of its own, with a stand-in for the notification daemon."""

import datetime
import os
import plistlib
import random
import shlex
import time
import unittest

from desktop.bus import Connection, NotificationDaemon, Program, pump_until
from desktop.home import Home
from desktop.reminders import IDENTIFIER, Agent, in_time, next_week, request
from desktop.session import Session
from gi.repository import GLib

MARKUP = "<b>Call</b> Grandma & \"Sam\""


class ReminderAgentTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.session = Session(managed=False)
        cls.addClassCleanup(cls.session.close)

    def setUp(self):
        self.connection = Connection(self.session.bus_address)
        self.addCleanup(self.connection.close)
        self.home = Home(self.session.directory / self.id())
        self.agent = Agent(self.session, self.connection, self.home, os.environ["TEST_PROGRAM"])
        self.addCleanup(self.agent.end)

    def daemon(self, *capabilities):
        daemon = NotificationDaemon(self.session.bus_address, *([capabilities] if capabilities else []))
        self.addCleanup(daemon.die)
        return daemon

    def program(self):
        program = Program(self.session.bus_address)
        self.addCleanup(program.close)
        return program

    def wait_for_nothing_left(self):
        """Waits until the agent has ended by itself, and sees that it left nothing behind."""
        self.assertEqual(self.agent.wait_for_end(), 0)
        self.assertFalse(self.agent.file.exists())
        self.assertFalse(self.agent.autostart.exists())

    def assert_refused(self, data):
        with self.assertRaisesRegex(GLib.Error, "InvalidArgs"):
            self.agent.add_bytes(data)

    # What is kept

    def test_a_request_is_on_the_disk_for_the_user_alone_when_the_call_returns(self):
        self.agent.start()
        wanted = request(next_week())
        self.agent.add(wanted)
        self.assertEqual(self.agent.in_file(), [{"Request": wanted, "Delivered": False, "Announced": False}])
        self.assertEqual(self.agent.file.stat().st_mode & 0o777, 0o600)
        self.assertEqual(self.agent.file.parent.stat().st_mode & 0o777, 0o700)
        self.assertEqual(self.agent.pending(), [wanted])

    def test_a_request_replaces_the_pending_one_of_the_same_identifier_alone(self):
        self.agent.start()
        other = request(next_week(), "Other", identifier="other")
        later = request(next_week(), "Later")
        for added in (request(next_week(), "First"), other, later):
            self.agent.add(added)
        self.assertEqual(self.agent.pending(), [other, later])

    def test_what_is_no_request_is_refused_and_changes_nothing(self):
        self.agent.start()
        wanted = request(next_week())
        self.agent.add(wanted)
        for data in (b"", b"\0", b"bplist00", b"<plist><array>"):
            self.assert_refused(data)
        for change in ({"Title": 1}, {"Identifier": None}, {"Trigger": {}}, {"UserInfo": []},
                       {"Trigger": wanted["Trigger"] | {"Month": 13}},
                       {"Trigger": wanted["Trigger"] | {"Repeats": True}}):
            bad = {key: value for key, value in (wanted | change).items() if value is not None}
            with self.assertRaisesRegex(GLib.Error, "InvalidArgs"):
                self.agent.add(bad)
        with self.assertRaisesRegex(GLib.Error, "InvalidArgs"):
            self.agent.add(wanted, wanted)
        self.assertEqual(self.agent.pending(), [wanted])

    def test_a_request_above_the_limit_is_refused_and_changes_nothing(self):
        self.agent.start()
        whole = plistlib.dumps([request(next_week())])
        limit = 16 * 1024 * 1024
        with self.assertRaisesRegex(GLib.Error, "LimitsExceeded"):
            self.agent.add_bytes(whole + b" " * (limit + 1 - len(whole)))
        self.assertEqual(self.agent.pending(), [])
        self.agent.add_bytes(whole + b" " * (limit - len(whole)))
        self.assertEqual(len(self.agent.pending()), 1)

    def test_a_request_that_cannot_be_written_is_refused_with_the_reason(self):
        self.agent.file.parent.mkdir(parents=True)
        self.agent.file.mkdir()
        (self.agent.file / "in the way").touch()
        self.agent.start()
        with self.assertRaisesRegex(GLib.Error, "Is a directory"):
            self.agent.add(request(next_week()))
        self.assertEqual(self.agent.pending(), [])
        self.assertEqual([path.name for path in self.agent.file.parent.iterdir()], ["Reminders"])
        self.assertFalse(self.agent.autostart.exists())
        self.assertEqual(self.agent.wait_for_end(), 0)

    def test_a_broken_file_is_no_request(self):
        self.agent.file.parent.mkdir(parents=True)
        self.agent.file.write_bytes(b"bplist00\xff\xff not a list")
        self.agent.start()
        self.assertEqual(self.agent.pending(), [])
        self.agent.add(request(next_week()))
        self.assertEqual(len(self.agent.in_file()), 1)

    def test_a_kill_at_any_moment_leaves_the_request_or_the_former_one_whole(self):
        chance = random.Random(20261121)
        former = request(next_week(), "0" * 100_000)
        self.agent.start()
        began = time.monotonic()
        self.agent.add(former)
        longest = 2 * (time.monotonic() - began)  # a sanitizer build takes several times as long
        outcomes = set()
        for number in range(1, 31):
            new = request(next_week(), str(number) * 100_000)
            self.agent.send(new)
            time.sleep(chance.uniform(0, longest))
            self.agent.kill()
            kept, = self.agent.in_file()
            self.assertIn(kept["Request"], (former, new))
            outcomes.add(kept["Request"] == new)
            former = kept["Request"]
            self.agent.start()
            self.assertEqual(self.agent.pending(), [former])
            self.assertEqual([path.name for path in self.agent.file.parent.iterdir()], ["Reminders"])
        self.assertEqual(outcomes, {True, False}, "kills hit both before and after the writing")

    # At login

    def test_it_is_started_at_login_only_while_something_is_pending(self):
        daemon = self.daemon()
        self.agent.start()
        self.assertFalse(self.agent.autostart.exists())
        self.agent.add(request(next_week()))
        lines = dict(line.split("=", 1) for line in self.agent.autostart.read_text().splitlines() if "=" in line)
        self.assertEqual(shlex.split(lines["Exec"]), [os.environ["TEST_PROGRAM"]])
        self.agent.add(request(in_time(-60)))
        number, _ = daemon.wait_for_notification()
        daemon.dismiss(number)
        self.wait_for_nothing_left()

    def test_a_moment_that_passed_while_it_did_not_run_is_delivered_at_its_start(self):
        daemon = self.daemon()
        self.agent.start()
        moment = in_time(2).replace(microsecond=0)
        self.agent.add(request(moment))
        self.agent.kill()
        pump_until(lambda: in_time(0) > moment, "the moment to pass")
        self.assertEqual(daemon.notified, [])
        self.agent.start()
        daemon.wait_for_notification()

    def test_a_second_agent_ends_at_once_and_leaves_the_first_its_work(self):
        self.agent.start()
        self.agent.add(request(next_week()))
        second = self.session.processes.start([os.environ["TEST_PROGRAM"]],
                                              env=self.home.environment | self.session.environment)
        self.assertEqual(second.wait(20), 0)
        self.assertEqual(len(self.agent.pending()), 1)

    def test_without_a_request_it_ends_by_itself(self):
        self.agent.start()
        self.wait_for_nothing_left()

    # Delivery

    def test_a_reminder_is_delivered_at_its_moment_as_plain_text_with_a_sound(self):
        daemon = self.daemon()
        self.agent.start()
        moment = in_time(2).replace(microsecond=0)
        self.agent.add(request(moment, MARKUP, zone="Asia/Kathmandu"))
        self.assertEqual(daemon.notified, [])
        _, shown = daemon.wait_for_notification()
        self.assertGreaterEqual(datetime.datetime.now(datetime.timezone.utc), moment)
        self.assertEqual(shown["summary"], "Velumora Reminder")
        self.assertTrue(shown["body"].endswith(":&lt;b&gt;Call&lt;/b&gt; Grandma &amp; &quot;Sam&quot;"), shown["body"])
        self.assertEqual(shown["actions"], ["default", "Show Note"])
        self.assertEqual(shown["hints"], {"desktop-entry": "velumora", "urgency": 1,
                                          "sound-name": "message-new-instant"})
        self.assertEqual(shown["timeout"], 0)
        self.assertEqual(self.agent.pending(), [])
        self.assertEqual(len(self.agent.delivered()), 1)

    def test_a_daemon_without_markup_and_actions_gets_the_text_as_it_is_and_ends_it(self):
        daemon = self.daemon("body")
        self.agent.start()
        self.agent.add(request(in_time(-60), MARKUP))
        _, shown = daemon.wait_for_notification()
        self.assertTrue(shown["body"].endswith(":" + MARKUP), shown["body"])
        self.assertEqual(shown["actions"], [])
        self.wait_for_nothing_left()

    def test_without_a_daemon_it_waits_for_one(self):
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        pump_until(self.agent.delivered, "the moment to have come")
        daemon = self.daemon()
        daemon.wait_for_notification()
        self.agent.add(request(next_week()))
        self.assertEqual(len(daemon.shown), 1, "a new request leaves the delivered one")

    def test_a_daemon_that_the_bus_starts_shows_a_reminder_once(self):
        called = self.session.directory / "daemon-called"
        stays = 'touch "$0"; while [ -e "$0" ]; do sleep 0.1; done'
        with self.session.activatable("org.freedesktop.Notifications", "/bin/sh", "-c", stays, str(called)):
            self.agent.start()
            self.agent.add(request(in_time(-60), "First"))
            pump_until(called.exists, "the bus to start the daemon")
            daemon = self.daemon()
            pump_until(lambda: self.agent.in_file()[0]["Announced"], "the agent to know")
            self.agent.add(request(in_time(-60), "Second", identifier="other"))
            pump_until(lambda: len(daemon.notified) > 1, "the second reminder")
            self.assertEqual([shown["body"].split(":")[1] for shown in daemon.notified], ["First", "Second"])
        called.unlink()

    def test_a_daemon_that_refuses_is_not_asked_again_but_the_next_one_is(self):
        daemon = self.daemon()
        daemon.refusing = True
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        pump_until(lambda: daemon.notified, "the refusal")
        self.agent.add(request(next_week()))
        self.assertEqual(len(daemon.notified), 1)
        daemon.die()
        self.daemon().wait_for_notification()

    def test_what_a_daemon_showed_when_it_died_is_shown_by_the_next_one_without_a_sound(self):
        daemon = self.daemon()
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        daemon.wait_for_notification()
        pump_until(lambda: self.agent.in_file()[0]["Announced"], "the agent to know")
        daemon.die()
        _, shown = self.daemon().wait_for_notification()
        self.assertEqual(shown["hints"], {"desktop-entry": "velumora", "urgency": 1, "suppress-sound": True})

    def test_what_a_daemon_let_go_by_itself_is_shown_by_the_next_one_without_a_sound(self):
        daemon = self.daemon()
        self.agent.start()
        wanted = request(in_time(-60))
        self.agent.add(wanted)
        for reason in (NotificationDaemon.EXPIRED, NotificationDaemon.UNDEFINED):
            number, _ = daemon.wait_for_notification()
            pump_until(lambda: self.agent.in_file()[0]["Announced"], "the agent to know")
            daemon.close(number, reason)
            daemon.die()
            daemon = self.daemon()
            _, shown = daemon.wait_for_notification()
            self.assertEqual(shown["replaces"], 0)
            self.assertIn("suppress-sound", shown["hints"])
            self.assertEqual(self.agent.delivered(), [wanted])

    def wait_for_notification_to_be_known(self, number):
        pump_until(lambda: self.agent.in_file()[-1].get("Notification") == number, "the agent to know")

    def test_after_a_crash_of_the_agent_one_notification_of_the_reminder_stands(self):
        daemon = self.daemon()
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        number, _ = daemon.wait_for_notification()
        self.wait_for_notification_to_be_known(number)
        self.agent.kill()
        self.agent.start()
        again, shown = daemon.wait_for_notification(2)
        self.assertEqual(again, number)
        self.assertIn("suppress-sound", shown["hints"])
        daemon.dismiss(again)
        self.wait_for_nothing_left()

    def test_a_reminder_that_comes_due_after_a_crash_takes_the_place_of_the_one_on_the_screen(self):
        daemon = self.daemon()
        self.agent.start()
        self.agent.add(request(in_time(-60), "First"))
        number, _ = daemon.wait_for_notification()
        self.wait_for_notification_to_be_known(number)
        moment = in_time(2).replace(microsecond=0)
        self.agent.add(request(moment, "Second"))
        self.agent.kill()
        pump_until(lambda: in_time(0) > moment, "the moment to pass")
        self.agent.start()
        again, shown = daemon.wait_for_notification(2)
        self.assertEqual(again, number)
        self.assertTrue(shown["body"].endswith(":Second"), shown["body"])

    def test_after_a_crash_another_daemons_notifications_are_left_alone(self):
        daemon = self.daemon()
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        number, _ = daemon.wait_for_notification()
        self.wait_for_notification_to_be_known(number)
        self.agent.kill()
        daemon.die()
        daemon = self.daemon()
        self.agent.start()
        _, shown = daemon.wait_for_notification()
        self.assertEqual(shown["replaces"], 0)

    def test_a_later_delivery_takes_the_place_of_the_one_on_the_screen(self):
        daemon = self.daemon()
        self.agent.start()
        self.agent.add(request(in_time(-60), "First"))
        first, _ = daemon.wait_for_notification()
        pump_until(lambda: self.agent.in_file()[0]["Announced"], "the agent to know")
        self.agent.add(request(in_time(-60), "Second"))
        second, shown = daemon.wait_for_notification(2)
        self.assertEqual(second, first)
        self.assertTrue(shown["body"].endswith(":Second"), shown["body"])
        self.assertIn("sound-name", shown["hints"])

    # Clicks

    def test_a_click_hands_the_reminder_to_the_program_and_ends_it(self):
        daemon = self.daemon()
        program = self.program()
        self.agent.start()
        wanted = request(in_time(-60), MARKUP)
        self.agent.add(wanted)
        number, _ = daemon.wait_for_notification()
        daemon.click(number, token="token-1")
        pump_until(lambda: program.calls, "the program to be told")
        action, parameters, platform_data = program.calls[0]
        self.assertEqual(action, "show-reminder")
        self.assertEqual(plistlib.loads(bytes(parameters[0])), [wanted])
        self.assertEqual(platform_data["activation-token"], "token-1")
        self.wait_for_nothing_left()
        self.assertEqual(len(program.calls), 1)

    def test_a_click_that_the_program_could_not_take_can_be_made_again(self):
        daemon = self.daemon()
        program = self.program()
        program.failing = True
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        number, _ = daemon.wait_for_notification()
        daemon.click(number)
        number, shown = daemon.wait_for_notification(2)
        self.assertIn("suppress-sound", shown["hints"])
        program.failing = False
        daemon.click(number)
        self.wait_for_nothing_left()

    def test_a_dismissal_tells_the_program_nothing(self):
        daemon = self.daemon()
        program = self.program()
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        number, _ = daemon.wait_for_notification()
        daemon.dismiss(number)
        self.wait_for_nothing_left()
        self.assertEqual(program.calls, [])

    def test_taking_back_delivered_reminders_closes_them_and_keeps_the_pending_one(self):
        daemon = self.daemon()
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        daemon.wait_for_notification()
        pending = request(next_week())
        self.agent.add(pending)
        self.agent.remove_delivered(IDENTIFIER)
        pump_until(lambda: not daemon.shown, "the notification to go")
        self.assertEqual(self.agent.pending(), [pending])
        self.assertEqual(self.agent.delivered(), [])


class EndOfSessionTest(unittest.TestCase):
    def test_the_agent_ends_with_the_session_and_keeps_what_is_pending(self):
        with Session(managed=False) as session:
            connection = Connection(session.bus_address)
            home = Home(session.directory / "home")
            agent = Agent(session, connection, home, os.environ["TEST_PROGRAM"]).start()
            agent.add(request(next_week()))
            connection.close()
            session.end_bus()
            self.assertEqual(agent.process.wait(20), 0)
            self.assertEqual(len(agent.in_file()), 1)
            self.assertTrue(agent.autostart.exists())


if __name__ == "__main__":
    unittest.main(verbosity=2)
