# SPDX-License-Identifier: MIT
"""The reminder agent in a test: started, asked and killed; its requests made and read by Python."""

import datetime
import os
import pathlib
import plistlib
import signal
import zoneinfo

from gi.repository import GLib

from .bus import bytes_variant, pump_until

SERVICE = "app.velumora.ReminderAgent1"
_PATH = "/app/velumora/ReminderAgent1"
IDENTIFIER = "VelumoraZNYgg56Lp"


def request(moment, text="Dentist", zone="Europe/Berlin", identifier=IDENTIFIER, **changes):
    """A request for the instant `moment` (aware), with its fields in `zone`."""
    local = moment.astimezone(zoneinfo.ZoneInfo(zone))
    day = datetime.datetime.combine(local.date(), datetime.time())
    made = {"Identifier": identifier, "Title": "Velumora Reminder", "Subtitle": "", "DefaultSound": True,
            "Body": f"{local:%b} {local.day}, {local.year}:{text}\n",
            "UserInfo": {"NoteDateKey": day, "NoteDataKey": text},
            "Trigger": {"Year": local.year, "Month": local.month, "Day": local.day, "Hour": local.hour,
                        "Minute": local.minute, "Second": local.second, "TimeZone": zone, "Repeats": False}}
    return made | changes


def in_time(seconds):
    return datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(seconds=seconds)


def next_week():
    return in_time(7 * 24 * 3600)


class Agent:
    """The agent of one home. It may run or not: what is asked of it needs it to run."""

    def __init__(self, session, connection, home, program):
        self._session = session
        self._connection = connection
        self._program = program
        self._home = home
        self.process = None
        self.file = home.path / ".local/state/velumora/Reminders"
        self.autostart = home.path / f".config/autostart/{SERVICE}.desktop"

    def start(self, *wrapper, **options):
        """`wrapper` is a command that becomes the program it is given."""
        self.process = self._session.processes.start([*wrapper, str(self._program)],
                                                     env=self._home.environment | self._session.environment, **options)
        self._connection.wait_for_owner(SERVICE)
        return self

    def kill(self):
        """As a crash or a power cut would end it."""
        self.process.send_signal(signal.SIGKILL)
        self.wait_for_end()

    def end(self):
        """Ends the agents of this bus, whoever started them, one that has no name on it yet too."""
        for process in self._processes():
            os.kill(process, signal.SIGKILL)
        pump_until(lambda: not self._connection.has_owner(SERVICE), "the bus to know")

    def _processes(self):
        bus = f"DBUS_SESSION_BUS_ADDRESS={self._session.bus_address}".encode()
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if (process / "exe").readlink().name.startswith("velumora-reminder-agent") \
                        and bus in (process / "environ").read_bytes().split(b"\0"):
                    yield int(process.name)
            except OSError:
                pass  # it has ended, or is not ours

    def wait_for_end(self):
        pump_until(lambda: self.process.poll() is not None, "the agent to end")
        pump_until(lambda: not self._connection.has_owner(SERVICE), "the bus to know")
        return self._session.processes.end(self.process)

    def add(self, *requests):
        self.add_bytes(plistlib.dumps(list(requests)))

    def send(self, added):
        """Adds without waiting for the answer."""
        self._connection.send(SERVICE, _PATH, SERVICE, "AddRequest",
                              GLib.Variant.new_tuple(bytes_variant(plistlib.dumps([added]))))

    def add_bytes(self, data):
        self._call("AddRequest", GLib.Variant.new_tuple(bytes_variant(data)))

    def pending(self):
        return self._requests("PendingRequests")

    def delivered(self):
        return self._requests("DeliveredRequests")

    def remove_delivered(self, *identifiers):
        self._call("RemoveDelivered", GLib.Variant("(as)", (identifiers,)))

    def in_file(self):
        """What the file holds; None when there is none."""
        return plistlib.loads(self.file.read_bytes()) if self.file.exists() else None

    def _requests(self, method):
        found = self._call(method).get_child_value(0)
        return [plistlib.loads(found.get_child_value(index).get_data_as_bytes().get_data())[0]
                for index in range(found.n_children())]

    def _call(self, method, parameters=None):
        return self._connection.call(SERVICE, _PATH, SERVICE, method, parameters)
