# SPDX-License-Identifier: MIT
"""The reminder agent where nothing can be relied on: its file, the notification daemon, and whoever calls it."""

import os
import plistlib
import unittest

from desktop.bus import Connection, NotificationDaemon, Program, pump_until
from desktop.home import Home
from desktop.reminders import Agent, in_time, next_week, request
from desktop.session import Session
from gi.repository import Gio, GLib

MEBIBYTE = 1024 * 1024
MEMORY = os.environ.get("TEST_MEMORY")  # bytes that the agent may use at the most; a sanitizer takes more for itself


class RawDaemon:
    """Holds the notification daemon's name and does with each call what `answer` says: `answer(invocation, method)`."""

    _PATH = "/org/freedesktop/Notifications"
    _NAME = "org.freedesktop.Notifications"
    _DESCRIPTION = """<node><interface name="org.freedesktop.Notifications">
        <method name="GetCapabilities"><arg type="{capabilities}" direction="out"/></method>
        <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
          <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
          <arg type="as" direction="in"/><arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/>
          <arg type="{number}" direction="out"/></method>
        <method name="CloseNotification"><arg type="u" direction="in"/></method>
      </interface></node>"""

    def __init__(self, address, answer, capabilities="as", number="u"):
        self.calls = []
        self._answer = answer
        self.connection = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.connection.set_exit_on_close(False)
        description = self._DESCRIPTION.format(capabilities=capabilities, number=number)
        self.connection.register_object(self._PATH, Gio.DBusNodeInfo.new_for_xml(description).interfaces[0],
                                        self._handle)
        self.connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                  "RequestName", GLib.Variant("(su)", (self._NAME, 4)), None, 0, -1, None)

    def die(self):
        if not self.connection.is_closed():
            self.connection.close_sync()

    def emit(self, signal, types, *arguments):
        self.connection.emit_signal(None, self._PATH, self._NAME, signal, GLib.Variant(types, arguments))

    def _handle(self, _, __, ___, ____, method, ______, invocation):
        self.calls.append(method)
        self._answer(invocation, method)


class AgentPeersTest(unittest.TestCase):
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

    def start(self, **options):
        limit = ("prlimit", f"--as={MEMORY}") if MEMORY else ()
        return self.agent.start(*limit, **options)

    def daemon(self):
        daemon = NotificationDaemon(self.session.bus_address)
        self.addCleanup(daemon.die)
        return daemon

    def raw_daemon(self, answer, **types):
        daemon = RawDaemon(self.session.bus_address, answer, **types)
        self.addCleanup(daemon.die)
        return daemon

    def refused(self, error):
        return self.assertRaisesRegex(GLib.Error, error)


class FileTest(AgentPeersTest):
    """The agent's folder cannot be looked into for a while."""

    def setUp(self):
        super().setUp()
        self.folder = self.agent.file.parent
        self.aside = self.folder.with_name("aside")

    def hide(self):
        self.folder.rename(self.aside)
        self.folder.symlink_to(self.folder.name)  # a link to itself

    def unhide(self):
        self.folder.unlink()
        self.aside.rename(self.folder)

    def test_a_file_that_cannot_be_read_is_kept_and_read_when_it_can_be(self):
        self.agent.start()
        kept = request(next_week())
        self.agent.add(kept)
        self.agent.kill()
        self.hide()
        log = self.home.path / "log"
        with log.open("wb") as stderr:
            self.start(stderr=stderr)
        for _ in range(3):
            with self.refused("cannot be read: Too many levels of symbolic links"):
                self.agent.add(request(next_week(), identifier="other"))
            for question in (self.agent.pending, self.agent.delivered, lambda: self.agent.remove_delivered("x")):
                with self.refused("cannot be read"):
                    question()
        self.assertTrue(self.agent.autostart.exists())
        self.unhide()
        self.assertEqual(self.agent.pending(), [kept], "the first call after it reads the file")
        self.assertEqual(log.read_text().count("cannot be read"), 1)
        self.agent.add(request(next_week(), identifier="other"))
        self.assertEqual(len(self.agent.in_file()), 2)

    def test_a_file_that_cannot_be_read_is_tried_again_without_a_call(self):
        self.agent.start()
        self.agent.add(request(in_time(-60)))
        pump_until(self.agent.delivered, "the moment to have come")
        self.agent.kill()
        self.hide()
        self.start()
        daemon = self.daemon()
        self.unhide()
        daemon.wait_for_notification()

    def test_a_delivery_that_could_not_be_written_is_written_later_and_made_once(self):
        daemon = self.daemon()
        self.start()
        self.agent.add(request(in_time(1)))
        self.hide()
        number, _ = daemon.wait_for_notification()
        with self.refused("Too many levels of symbolic links"):
            self.agent.add(request(next_week(), identifier="other"))
        self.unhide()
        pump_until(lambda: self.agent.in_file()[0].get("Notification") == number, "the delivery to be written")
        self.assertTrue(self.agent.in_file()[0]["Delivered"])
        self.assertEqual(len(self.agent.in_file()), 1)
        self.assertEqual(len(daemon.notified), 1)

    def test_an_end_that_could_not_be_written_is_written_later(self):
        daemon = self.daemon()
        self.start()
        self.agent.add(request(in_time(-60)))
        number, _ = daemon.wait_for_notification()
        pump_until(lambda: self.agent.in_file()[0].get("Notification") == number, "the agent to know")
        self.hide()
        daemon.dismiss(number)
        pump_until(lambda: self.agent.delivered() == [], "the agent to hear of it")
        self.assertTrue(self.agent.autostart.exists())
        self.unhide()
        self.assertEqual(self.agent.wait_for_end(), 0)
        self.assertFalse(self.agent.file.exists())
        self.assertFalse(self.agent.autostart.exists())


class LimitsTest(AgentPeersTest):
    def test_nine_requests_of_fifteen_megabytes_lose_none_that_was_taken(self):
        self.start()
        taken = []
        for number in range(9):
            large = request(next_week(), "x", identifier=str(number), UserInfo={"Text": "x" * 15_000_000})
            try:
                self.agent.add(large)
                taken.append(large)
            except GLib.Error as error:
                self.assertIn("LimitsExceeded", error.message)
        self.assertEqual(len(taken), 2)
        self.assertEqual(self.agent.pending(), taken)
        self.agent.kill()
        self.start()
        self.assertEqual(self.agent.pending(), taken)

    def test_all_that_is_taken_fits_into_a_reply_when_it_was_delivered_too(self):
        self.start()
        large = [request(in_time(-60), "x", identifier=str(number), UserInfo={"Text": "x" * 15_000_000})
                 for number in range(2)]
        for each in large:
            self.agent.add(each)
        self.assertEqual(self.agent.delivered(), large)
        with self.refused("LimitsExceeded"):
            self.agent.add(request(next_week(), "x" * 2 * MEBIBYTE, identifier="more"))
        self.assertEqual(self.agent.delivered(), large)

    def test_a_list_from_before_the_limit_is_kept_and_the_bus_spared(self):
        self.agent.file.parent.mkdir(parents=True)
        large = [request(next_week(), identifier=str(number), UserInfo={"Text": "x" * 11 * MEBIBYTE})
                 for number in range(3)]
        whole = plistlib.dumps([{"Request": each, "Delivered": False, "Announced": False} for each in large])
        self.agent.file.write_bytes(whole)
        self.start()
        with self.refused("LimitsExceeded"):
            self.agent.pending()
        with self.refused("LimitsExceeded"):
            self.agent.add(request(next_week()))
        self.assertEqual(self.agent.file.read_bytes(), whole)
        self.assertEqual(self.agent.delivered(), [])

    def test_a_thousand_identifiers_are_kept_and_no_more(self):
        self.agent.file.parent.mkdir(parents=True)
        many = [request(next_week(), identifier=str(number)) for number in range(1000)]
        self.agent.file.write_bytes(plistlib.dumps(
            [{"Request": each, "Delivered": False, "Announced": False} for each in many]))
        self.start()
        for number in range(1000, 1100):
            with self.refused("LimitsExceeded"):
                self.agent.add(request(next_week(), identifier=str(number)))
        self.assertEqual(self.agent.pending(), many)
        self.agent.remove_delivered(*(str(number) for number in range(20_000)))
        self.assertEqual(self.agent.pending(), many)

    def test_oversized_and_malformed_requests_cost_no_more_than_their_size(self):
        self.start()
        kept = request(next_week())
        self.agent.add(kept)
        for data in (b"<plist><array>" + b"<array>" * 500_000,
                     b"<plist><array>" + b"<array/>" * 250_000 + b"</array></plist>",
                     b"<plist><array><dict><key>" + b"k" * 8 * MEBIBYTE,
                     b"<!DOCTYPE plist [<!ENTITY a '&b;&b;'><!ENTITY b '&a;&a;'>]><plist><array>&a;</array></plist>",
                     b"bplist00" + b"\xaf\x13\xff\xff\xff\xff\xff\xff\xff\xff" * 1000,
                     os.urandom(MEBIBYTE)):
            with self.refused("InvalidArgs"):
                self.agent.add_bytes(data)
        for _ in range(8):
            with self.refused("LimitsExceeded"):
                self.agent.add_bytes(b" " * 30 * MEBIBYTE)
        # Short as it comes, too long as it would be written.
        with self.refused("LimitsExceeded"):
            self.agent.add_bytes(plistlib.dumps([request(next_week(), "x")]).replace(
                b":x\n", b":<![CDATA[" + b"&" * 4 * MEBIBYTE + b"]]>\n"))
        self.assertEqual(self.agent.pending(), [kept])


class DaemonTest(AgentPeersTest):
    """A notification daemon that does not keep to its interface. The reminder stays for the next one."""

    def assert_next_daemon_shows_it(self, hostile, wanted):
        self.assertEqual(self.agent.delivered(), [wanted])
        hostile.die()
        self.daemon().wait_for_notification()
        self.assertEqual(self.agent.delivered(), [wanted])

    def assert_wrong_type_is_no_answer(self, method_of_another_type, **types):
        def answer(invocation, method):
            if method == method_of_another_type:
                invocation.return_value(GLib.Variant("(s)", ("what?",)))
            else:
                invocation.return_value(GLib.Variant("(as)", (["actions"],)) if method == "GetCapabilities" else None)
        daemon = self.raw_daemon(answer, **types)
        self.start()
        wanted = request(in_time(-60))
        self.agent.add(wanted)
        pump_until(lambda: method_of_another_type in daemon.calls, "the daemon to be asked")
        self.assert_next_daemon_shows_it(daemon, wanted)

    def test_capabilities_of_another_type_are_no_answer(self):
        self.assert_wrong_type_is_no_answer("GetCapabilities", capabilities="s")

    def test_a_number_of_another_type_is_no_answer(self):
        self.assert_wrong_type_is_no_answer("Notify", number="s")

    def test_one_that_never_answers_holds_nothing_up(self):
        daemon = self.raw_daemon(lambda invocation, method: None)
        self.start()
        wanted = request(in_time(-60))
        self.agent.add(wanted)
        pump_until(lambda: daemon.calls, "the daemon to be asked")
        later = request(next_week(), identifier="later")
        self.agent.add(later)
        self.assertEqual(self.agent.pending(), [later])
        self.assertEqual(daemon.calls, ["GetCapabilities"])
        self.assert_next_daemon_shows_it(daemon, wanted)

    def test_one_that_answers_too_late_shows_nothing(self):
        held = []

        def answer(invocation, method):
            if method == "GetCapabilities":
                invocation.return_value(GLib.Variant("(as)", (["actions"],)))
            elif method == "Notify":
                held.append(invocation)
            else:
                invocation.return_value(None)
        daemon = self.raw_daemon(answer)
        self.start()
        self.agent.add(request(in_time(-60), identifier="a"))
        pump_until(lambda: held, "the notification")
        self.agent.remove_delivered("a")
        self.assertEqual(self.agent.delivered(), [])
        held[0].return_value(GLib.Variant("(u)", (7,)))
        pump_until(lambda: "CloseNotification" in daemon.calls, "the late notification to be closed")
        self.assertEqual(self.agent.wait_for_end(), 0)

    def test_one_that_answers_after_the_next_delivery_shows_that_in_the_same_place(self):
        held = []

        def answer(invocation, method):
            if method == "GetCapabilities":
                invocation.return_value(GLib.Variant("(as)", (["actions"],)))
            else:
                held.append(invocation)
        self.raw_daemon(answer)
        self.start()
        self.agent.add(request(in_time(-60), "First"))
        pump_until(lambda: held, "the notification")
        second = request(in_time(-30), "Second")
        self.agent.add(second)
        self.assertEqual(self.agent.delivered(), [second])
        held[0].return_value(GLib.Variant("(u)", (7,)))
        pump_until(lambda: len(held) == 2, "the second notification")
        _, replaced, _, _, body, *_ = held[1].get_parameters().unpack()
        self.assertEqual((replaced, body.endswith(":Second")), (7, True))
        self.assertFalse(self.agent.in_file()[0]["Announced"], "nobody has heard of the second one yet")
        held[1].return_value(GLib.Variant("(u)", (7,)))
        pump_until(lambda: self.agent.in_file()[0]["Announced"], "the agent to know")

    def test_one_that_answers_twice_and_with_the_same_number_loses_nothing(self):
        def answer(invocation, method):
            if method == "CloseNotification":
                return
            result = GLib.Variant("(as)", (["actions"],)) if method == "GetCapabilities" else GLib.Variant("(u)", (1,))
            again = Gio.DBusMessage.new_method_reply(invocation.get_message())
            again.set_body(result)
            connection = invocation.get_connection()
            invocation.return_value(result)
            connection.send_message(again, Gio.DBusSendMessageFlags.NONE)
        daemon = self.raw_daemon(answer)
        program = Program(self.session.bus_address)
        self.addCleanup(program.close)
        self.start()
        for name in ("a", "b", "c"):
            self.agent.add(request(in_time(-60), identifier=name))
        pump_until(lambda: daemon.calls.count("Notify") == 3, "three notifications")
        pump_until(lambda: all(each["Announced"] for each in self.agent.in_file()), "the agent to know")
        self.assertEqual([each.get("Notification") for each in self.agent.in_file()].count(1), 1)
        daemon.emit("ActionInvoked", "(us)", 1, "default")
        pump_until(lambda: len(self.agent.delivered()) == 2, "the last of them to be clicked")
        self.assertEqual(len(program.calls), 1)

    def test_a_click_on_one_that_the_bus_cannot_carry_brings_the_program(self):
        daemon = self.daemon()
        program = Program(self.session.bus_address)
        self.addCleanup(program.close)
        self.agent.file.parent.mkdir(parents=True)
        large = {"Request": request(in_time(-60), "&" * 4 * MEBIBYTE), "Delivered": True, "Announced": True}
        self.agent.file.write_bytes(plistlib.dumps([large], fmt=plistlib.FMT_BINARY))
        self.start()
        number, _ = daemon.wait_for_notification()
        daemon.click(number, token="token-1")
        pump_until(lambda: program.calls, "the program to be told")
        (platform_data,), = program.calls
        self.assertEqual(platform_data["activation-token"], "token-1")
        pump_until(lambda: not self.agent.file.exists(), "the reminder to be done with")

    def test_a_flood_of_signals_about_unknown_notifications_does_nothing(self):
        daemon = self.daemon()
        program = Program(self.session.bus_address)
        self.addCleanup(program.close)
        self.start()
        wanted = request(in_time(-60), identifier="")  # which is what an unknown one must not be taken for
        self.agent.add(wanted)
        number, _ = daemon.wait_for_notification()
        pump_until(lambda: self.agent.in_file()[0].get("Notification") == number, "the agent to know")
        daemon.die()
        hostile = self.raw_daemon(lambda invocation, method: None)
        before = self.agent.file.stat()
        for unknown in range(1000, 3000):
            hostile.emit("ActivationToken", "(us)", unknown, "token")
            hostile.emit("ActionInvoked", "(us)", unknown, "default")
            hostile.emit("NotificationClosed", "(uu)", unknown, 2)
        for signal in ("ActionInvoked", "NotificationClosed", "ActivationToken"):
            hostile.emit(signal, "(ss)", "1", "2")
            hostile.emit(signal, "(u)", 0)
        hostile.emit("ActivationToken", "(us)", 1, "t" * 16 * MEBIBYTE)
        hostile.connection.flush_sync()
        self.assertEqual(self.agent.delivered(), [wanted])
        self.assertEqual(program.calls, [])
        self.assertEqual(self.agent.file.stat().st_ino, before.st_ino, "nothing was written")


if __name__ == "__main__":
    unittest.main(verbosity=2)
