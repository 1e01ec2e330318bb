# SPDX-License-Identifier: MIT
"""A stand-in for the desktop's location service on a system bus of its own.

Run as a program with a bus address and a behaviour, it is that service: it writes the name of each method that is called
to its output, a line each, the first line being "ready"."""

import os
import pathlib
import subprocess
import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  (the version is chosen first)

NAME = "org.freedesktop.GeoClue2"
_CLIENT = "/org/freedesktop/GeoClue2/Client/1"
SYDNEY = (-33.87, 151.21)
_PLACES = {f"{_CLIENT}/Location/0": SYDNEY, f"{_CLIENT}/Location/1": (64.15, -21.95)}


class LocationService:
    """The service and its bus. `behaviour` is a key of _BEHAVIOURS; None leaves the bus without the service."""

    def __init__(self, processes, behaviour=None):
        read, write = os.pipe()
        processes.start(["dbus-daemon", "--session", "--nofork", "--nopidfile", f"--print-address={write}"],
                        pass_fds=[write])
        os.close(write)
        with open(read, encoding="ascii") as address:
            self.address = address.readline().strip()
        self._service = None
        if behaviour:
            self._service = processes.start([sys.executable, str(pathlib.Path(__file__)), self.address, behaviour],
                                            stdout=subprocess.PIPE, text=True)
            self.wait_for("ready")

    @property
    def environment(self):
        """What a program needs to find the service."""
        return {"DBUS_SYSTEM_BUS_ADDRESS": self.address}

    def wait_for(self, call):
        """Returns when that method was called; fails when the service ends before."""
        for line in self._service.stdout:
            if line.strip() == call:
                return
        raise AssertionError(f"the location service ended before {call}")

    def go_on(self):
        """Lets a service that answers late answer."""
        self._service.send_signal(subprocess.signal.SIGUSR1)


def _answer(service):
    service.tell(0)
    service.allow_start()


def _answer_twice(service):
    service.tell(0)
    service.allow_start()
    service.tell(1)


def _refuse(service):
    service.refuse_start()


def _answer_late(service):
    GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, subprocess.signal.SIGUSR1, lambda: _answer(service))


_BEHAVIOURS = {"answers": _answer, "answers-twice": _answer_twice, "refuses": _refuse, "answers-late": _answer_late,
               "never": lambda service: None}


class _Service:
    def __init__(self, address, behaviour):
        self._behave = _BEHAVIOURS[behaviour]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self._bus.add_filter(self._filter)
        self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                            GLib.Variant("(su)", (NAME, 0)), None, Gio.DBusCallFlags.NONE, -1, None)
        self._start = None
        print("ready", flush=True)

    def _filter(self, _bus, message, incoming):
        if not incoming or message.get_message_type() != Gio.DBusMessageType.METHOD_CALL:
            return message
        GLib.idle_add(self._handle, message)
        return None

    def _handle(self, message):
        print(message.get_member(), flush=True)
        handler = getattr(self, f"_{message.get_member()}", None)
        if handler:
            handler(message)
        else:
            self._reply(message)

    def _GetClient(self, message):
        self._reply(message, GLib.Variant("(o)", (_CLIENT,)))

    def _Start(self, message):
        self._start = message
        self._behave(self)

    def _GetAll(self, message):
        latitude, longitude = _PLACES[message.get_path()]
        values = {"Latitude": GLib.Variant("d", latitude), "Longitude": GLib.Variant("d", longitude)}
        self._reply(message, GLib.Variant("(a{sv})", (values,)))

    def _reply(self, message, body=None):
        reply = Gio.DBusMessage.new_method_reply(message)
        if body:
            reply.set_body(body)
        self._bus.send_message(reply, Gio.DBusSendMessageFlags.NONE)

    def tell(self, number):
        paths = ("/", list(_PLACES)[number])
        self._bus.emit_signal(self._start.get_sender(), _CLIENT, f"{NAME}.Client", "LocationUpdated",
                              GLib.Variant("(oo)", paths))

    def allow_start(self):
        self._reply(self._start)

    def refuse_start(self):
        error = Gio.DBusMessage.new_method_error_literal(
            self._start, "org.freedesktop.DBus.Error.AccessDenied", "not for you")
        self._bus.send_message(error, Gio.DBusSendMessageFlags.NONE)


if __name__ == "__main__":
    service = _Service(*sys.argv[1:])
    GLib.MainLoop().run()
