# SPDX-License-Identifier: MIT
"""A desktop for one test process: an X server, a session bus and a place for private homes."""

import contextlib
import os
import pathlib
import shlex
import shutil
import subprocess
import tempfile

from .processes import Processes
from .screen import Screen
from .waiting import wait_until

_FONTS = pathlib.Path(__file__).resolve().parents[1] / "fonts"

# What a test needs the bus to start, and nothing else that the machine happens to have.
_ACCESSIBILITY_SERVICES = ("org.a11y.Bus.service", "org.a11y.atspi.Registry.service")
_BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class Session:
    """An X server and a session bus of its own. Use it in a with statement: it leaves no process behind.

    A managed session has a window manager, which gives the keyboard to new windows; an unmanaged one shows windows
    bare, so that every pixel of one was drawn by its program."""

    def __init__(self, managed=True, width=1600, height=1200):
        self.processes = Processes()
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="velumora-desktop-"))
        self.services = self.directory / "services"  # the service files of what the bus can start
        self._screen = None
        try:
            self.display = self._start_x_server(width, height)
            self.bus_address = self._start_bus()
            self._screen = Screen(self.display)
            if managed:
                self._start_window_manager()
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    @contextlib.contextmanager
    def activatable(self, service, *command):
        """Has the bus start the command when somebody calls the service, as an installed service file does."""
        file = self.services / f"{service}.service"
        file.write_text(f"[D-BUS Service]\nName={service}\nExec={shlex.join(command)}\n", encoding="utf-8")
        self._reload_bus()
        try:
            yield
        finally:
            file.unlink()
            self._reload_bus()

    @property
    def screen(self):
        return self._screen

    @property
    def environment(self):
        """What a program needs to run in this session."""
        return {"DISPLAY": self.display, "DBUS_SESSION_BUS_ADDRESS": self.bus_address, "QT_QPA_PLATFORM": "xcb",
                "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.directory}/no-system-bus"} | self.fonts("dejavu")

    @staticmethod
    def fonts(name):
        """The environment in which the fonts of one configuration in tests/support/fonts are the only ones."""
        return {"FONTCONFIG_FILE": str(_FONTS / f"{name}.conf")}

    def end_bus(self):
        """As at the end of a login session."""
        self.processes.end(self._bus)

    def end_display(self):
        """As when the X server crashes: every connection to it breaks."""
        self._screen.close()
        self._screen = None
        self._x_server.kill()
        self._x_server.wait()

    def close(self):
        if self._screen:
            self._screen.close()
        self.processes.end_all()
        shutil.rmtree(self.directory, ignore_errors=True)

    def _start_x_server(self, width, height):
        read, write = os.pipe()
        try:
            self._x_server = self._start(["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                         "-noreset"], pass_fds=[write])
        finally:
            os.close(write)
        return ":" + _first_line(read, "Xvfb")

    def _start_bus(self):
        # Services that the bus starts (the accessibility registry) take their home from the bus.
        runtime = self.directory / "runtime"
        runtime.mkdir(mode=0o700)
        environment = os.environ | {"DISPLAY": self.display, "HOME": str(self.directory),
                                    "XDG_RUNTIME_DIR": str(runtime)}
        configuration = self.directory / "bus.conf"
        configuration.write_text(_BUS_CONFIGURATION.format(services=self.services), encoding="utf-8")
        self.services.mkdir()
        for service in _ACCESSIBILITY_SERVICES:
            (self.services / service).symlink_to(pathlib.Path("/usr/share/dbus-1/services") / service)
        read, write = os.pipe()
        try:
            self._bus = self._start(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile",
                         f"--print-address={write}"],
                        pass_fds=[write], env=environment)
        finally:
            os.close(write)
        return _first_line(read, "dbus-daemon")

    def _reload_bus(self):
        subprocess.run(["dbus-send", f"--bus={self.bus_address}", "--print-reply=literal",
                        "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.ReloadConfig"],
                       check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def _start_window_manager(self):
        ready = self.directory / "window-manager-ready"
        self._start(["openbox", "--startup", f"touch {ready}"],
                    env=os.environ | self.environment | {"HOME": str(self.directory)})
        wait_until(ready.exists, "the window manager")

    def _start(self, command, **options):
        with open(self.directory / f"{command[0]}.log", "wb") as log:
            return self.processes.start(command, stdout=log, stderr=log, **options)


def _first_line(descriptor, program):
    with open(descriptor, encoding="ascii") as file:
        line = file.readline().strip()
    if not line:
        raise OSError(f"{program} did not start")
    return line
