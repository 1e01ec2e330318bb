# SPDX-License-Identifier: MIT
"""The session bus of a test: calls to what is on it, and stand-ins for what a desktop has there."""

from gi.repository import Gio, GLib

from .waiting import PATIENCE, wait_until

_BUS = "org.freedesktop.DBus"


class Connection:
    """A connection of its own to the bus at `address`. Ends with close(), and with it all that it owns."""

    def __init__(self, address):
        self._connection = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self._connection.set_exit_on_close(False)

    def close(self):
        if not self._connection.is_closed():
            self._connection.close_sync()

    def call(self, service, path, interface, method, parameters=None):
        """The results of a call, a GLib.Variant; raises GLib.Error."""
        return self._connection.call_sync(service, path, interface, method, parameters, None,
                                          Gio.DBusCallFlags.NO_AUTO_START, PATIENCE * 1000, None)

    def send(self, service, path, interface, method, parameters=None):
        """Calls and waits for no answer."""
        self._connection.call(service, path, interface, method, parameters, None, Gio.DBusCallFlags.NO_AUTO_START, -1,
                              None, None)
        self._connection.flush_sync()

    def emit(self, path, interface, signal, parameters):
        self._connection.emit_signal(None, path, interface, signal, parameters)
        self._connection.flush_sync()

    def export(self, path, description, handler):
        """Answers calls at `path` with handler(method, parameters), which gives the results or raises GLib.Error;
        None for none."""
        def handle(_, __, ___, ____, method, parameters, invocation):
            try:
                invocation.return_value(handler(method, parameters.unpack()))
            except GLib.Error as error:
                invocation.return_dbus_error("org.freedesktop.DBus.Error.Failed", error.message)
        self._connection.register_object(path, Gio.DBusNodeInfo.new_for_xml(description).interfaces[0], handle)

    def own(self, name):
        result, = self.call(_BUS, "/org/freedesktop/DBus", _BUS, "RequestName", GLib.Variant("(su)", (name, 4))).unpack()
        if result != 1:
            raise AssertionError(f"{name} has an owner already")

    def has_owner(self, name):
        return self.call(_BUS, "/org/freedesktop/DBus", _BUS, "NameHasOwner", GLib.Variant("(s)", (name,))).unpack()[0]

    def process_id(self, name):
        """The id of the process that owns the name."""
        return self.call(_BUS, "/org/freedesktop/DBus", _BUS, "GetConnectionUnixProcessID",
                         GLib.Variant("(s)", (name,))).unpack()[0]

    def wait_for_owner(self, name):
        pump_until(lambda: self.has_owner(name), f"{name} on the bus")


class NotificationDaemon:
    """A stand-in for a desktop's notification daemon. It shows what it is told and does what a person would."""

    # Why a notification is gone.
    EXPIRED, DISMISSED, CLOSED_BY_CALL, UNDEFINED = 1, 2, 3, 4

    _INTERFACE = "org.freedesktop.Notifications"
    _PATH = "/org/freedesktop/Notifications"
    _DESCRIPTION = """<node><interface name="org.freedesktop.Notifications">
        <method name="GetCapabilities"><arg type="as" direction="out"/></method>
        <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
          <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
          <arg type="as" direction="in"/><arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
          <arg type="u" direction="out"/></method>
        <method name="CloseNotification"><arg type="u" direction="in"/></method>
      </interface></node>"""
    _FIELDS = ("application", "replaces", "icon", "summary", "body", "actions", "hints", "timeout")

    def __init__(self, address, capabilities=("actions", "body", "body-markup", "persistence", "sound")):
        self.capabilities = list(capabilities)
        self.shown = {}     # the notifications on the screen, by id
        self.notified = []  # every notification that was asked for
        self.refusing = False
        self._connection = Connection(address)
        self._connection.export(self._PATH, self._DESCRIPTION, self._handle)
        self._connection.own(self._INTERFACE)

    def die(self):
        self._connection.close()

    def wait_for_notification(self, count=1):
        """The one notification on the screen, once `count` of them have been asked for."""
        pump_until(lambda: len(self.notified) >= count, f"{count} notifications")
        (number, notification), = self.shown.items()
        return number, notification

    def click(self, number, token=None):
        if token:
            self._signal("ActivationToken", "(us)", number, token)
        self._signal("ActionInvoked", "(us)", number, "default")
        self.dismiss(number)

    def dismiss(self, number):
        self.close(number, self.DISMISSED)

    def close(self, number, reason):
        if self.shown.pop(number, None) is not None:
            self._signal("NotificationClosed", "(uu)", number, reason)

    def _handle(self, method, parameters):
        if method == "GetCapabilities":
            return GLib.Variant("(as)", (self.capabilities,))
        if method == "CloseNotification":
            self.close(parameters[0], self.CLOSED_BY_CALL)
            return None
        notification = dict(zip(self._FIELDS, parameters))
        self.notified.append(notification)
        if self.refusing:
            raise GLib.Error("no room")
        number = notification["replaces"] or len(self.notified) + 100
        self.shown[number] = notification
        return GLib.Variant("(u)", (number,))

    def _signal(self, name, types, *arguments):
        self._connection.emit(self._PATH, self._INTERFACE, name, GLib.Variant(types, arguments))


class Program:
    """A stand-in for the running program: takes the clicks on reminders."""

    _DESCRIPTION = """<node><interface name="org.freedesktop.Application">
        <method name="ActivateAction"><arg type="s" direction="in"/><arg type="av" direction="in"/>
          <arg type="a{sv}" direction="in"/></method>
        <method name="Activate"><arg type="a{sv}" direction="in"/></method>
      </interface></node>"""

    def __init__(self, address):
        self.calls = []  # action, parameters and platform data of each, the last alone of one that only brings it
        self.failing = False
        self._connection = Connection(address)
        self._connection.export("/app/velumora/Velumora", self._DESCRIPTION, self._handle)
        self._connection.own("app.velumora.Velumora")

    def close(self):
        self._connection.close()

    def _handle(self, _, parameters):
        self.calls.append(parameters)
        if self.failing:
            raise GLib.Error("cannot")


def bytes_variant(data):
    """The bytes as an argument of type "ay"; one made of a list would take a call for each byte."""
    return GLib.Variant.new_from_bytes(GLib.VariantType("ay"), GLib.Bytes(data), True)


def pump_until(condition, what, patience=PATIENCE):
    """As waiting.wait_until, and lets the stand-ins answer meanwhile."""
    def checked():
        context = GLib.MainContext.default()
        while context.pending():
            context.iteration(False)
        return condition()
    return wait_until(checked, what, patience, interval=0.005)
