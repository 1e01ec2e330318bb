# SPDX-License-Identifier: MIT
"""A private home for a program under test, and its files read back by other programs."""

import os
import pathlib
import plistlib
import subprocess

# What would let the tester's own desktop reach into a test.
_PRIVATE = ("LANG", "LANGUAGE", "LC_", "XDG_", "TZ", "DISPLAY", "WAYLAND_DISPLAY", "DBUS_", "QT_", "AT_SPI_")


class Home:
    """A home folder with a zone and languages. `path` need not exist."""

    def __init__(self, path, zone="Europe/Berlin", locale="en_US.UTF-8", languages="en_US"):
        self.path = pathlib.Path(path)
        self.zone = zone
        self.locale = locale
        self.languages = languages
        self.data = self.path / ".local/share"
        self.folder = self.data / "TALV"
        self.runtime = self.path / "runtime"
        for folder in (self.data, self.path / ".config", self.path / ".cache", self.runtime):
            folder.mkdir(parents=True, exist_ok=True, mode=0o700)

    @property
    def environment(self):
        """The whole environment of a program that lives in this home, the display and the bus left out."""
        kept = {key: value for key, value in os.environ.items() if not key.startswith(_PRIVATE)}
        return kept | {
            "HOME": str(self.path), "XDG_DATA_HOME": str(self.data), "XDG_CONFIG_HOME": str(self.path / ".config"),
            "XDG_CACHE_HOME": str(self.path / ".cache"), "XDG_RUNTIME_DIR": str(self.runtime),
            "TZ": self.zone, "LC_ALL": self.locale, "LANG": self.locale, "LANGUAGE": self.languages}

    def table(self, name):
        """The records of the file `name` in the data folder, read by Python; None when there is no such file."""
        path = self.folder / name
        if not path.exists():
            return None
        with open(path, "rb") as file:
            return plistlib.load(file)

    def table_by_plistutil(self, name):
        """The same records by way of plistutil, which makes a binary list of the file."""
        binary = subprocess.run(["plistutil", "-i", str(self.folder / name), "-o", "-", "-f", "bin"], check=True,
                                stdin=subprocess.DEVNULL, capture_output=True).stdout
        return plistlib.loads(binary)

    def stamp(self, name):
        """The type and creator codes of a file ("NOTE", "Vel1"); None where nothing is kept for it."""
        got = subprocess.run(["getfattr", "--only-values", "--absolute-names", "-n", "user.com.apple.FinderInfo",
                              str(self.folder / name)], stdin=subprocess.DEVNULL, capture_output=True, check=False)
        return (got.stdout[:4].decode("mac_roman"), got.stdout[4:8].decode("mac_roman")) if got.stdout else None
