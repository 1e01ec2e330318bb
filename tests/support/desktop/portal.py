# SPDX-License-Identifier: MIT
"""A stand-in for the desktop portal, its settings and its opening of pages, on a session's own bus."""

import threading

from gi.repository import Gio, GLib

NO_PREFERENCE, DARK, LIGHT = range(3)

_NAME = "org.freedesktop.portal.Desktop"
_PATH = "/org/freedesktop/portal/desktop"
_SETTINGS = "org.freedesktop.portal.Settings"
_SCHEME = ("org.freedesktop.appearance", "color-scheme")
_INTERFACE = """
<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface><interface name="org.freedesktop.portal.OpenURI">
  <method name="OpenURI">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="a{sv}" direction="in"/>
    <arg type="o" direction="out"/>
  </method>
</interface></node>"""


class Portal:
    """Answers what the user's colour scheme and other settings are, and tells of changes. Use it in a with statement.

    A silent portal is there but never answers. `response` is what becomes of each page: 0 opened, 2 not."""

    def __init__(self, session, color_scheme=NO_PREFERENCE, silent=False, response=0):
        self.asked = threading.Event()
        self.opened = []  # the addresses that it was to open
        self._response = response
        self._address = session.bus_address
        self._settings = {_SCHEME: GLib.Variant("u", color_scheme)}
        self._silent = silent
        self._loop = GLib.MainLoop(GLib.MainContext())
        self._ready = threading.Event()
        self._thread = threading.Thread(target=self._serve, daemon=True)

    def __enter__(self):
        self._thread.start()
        if not self._ready.wait(20):
            raise OSError("the stand-in portal did not start")
        return self

    def __exit__(self, *_):
        self._loop.quit()
        self._thread.join()
        self._connection.close_sync(None)

    def set_color_scheme(self, color_scheme):
        self.set_setting(*_SCHEME, GLib.Variant("u", color_scheme))

    def set_setting(self, group, key, value):
        """Answers with that value from now on, and tells everyone."""
        self._settings[group, key] = value
        self.tell(group, key, value)

    def tell(self, group, key, value):
        """Tells everyone on the bus that a setting has that value now."""
        self._connection.emit_signal(None, _PATH, _SETTINGS, "SettingChanged",
                                     GLib.Variant("(ssv)", (group, key, value)))

    def _serve(self):
        context = self._loop.get_context()
        context.push_thread_default()
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self._connection = Gio.DBusConnection.new_for_address_sync(self._address, flags, None, None)
        settings, opening = Gio.DBusNodeInfo.new_for_xml(_INTERFACE).interfaces
        self._connection.register_object(_PATH, settings, self._answer, None, None)
        self._connection.register_object(_PATH, opening, self._open, None, None)
        Gio.bus_own_name_on_connection(self._connection, _NAME, Gio.BusNameOwnerFlags.NONE,
                                       lambda *_: self._ready.set(), None)
        self._loop.run()
        context.pop_thread_default()

    def _answer(self, _connection, _sender, _path, _interface, _method, parameters, invocation):
        self.asked.set()
        if self._silent:
            return
        setting = self._settings.get(parameters.unpack())
        if setting:
            # As the portal does: the value is wrapped twice.
            invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", setting),)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "Requested setting not found")

    def _open(self, _connection, sender, _path, _interface, _method, parameters, invocation):
        _, address, options = parameters.unpack()
        self.opened.append(address)
        caller = sender[1:].replace(".", "_")
        request = f"{_PATH}/request/{caller}/{options['handle_token']}"
        invocation.return_value(GLib.Variant("(o)", (request,)))
        self._connection.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                                     GLib.Variant("(ua{sv})", (self._response, {})))
