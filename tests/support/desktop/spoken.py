# SPDX-License-Identifier: MIT
"""What the program says of days, in English, and what it announces."""

import datetime
import re

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402  (the version is chosen first)

# What the editors in the two lists are called; the rest of the name says of which day or date they are.
NOTE_EDITOR = re.compile("^Note of ")
DESCRIPTION_EDITOR = re.compile("^Description of ")


def is_today(moment):
    """Whether that moment's day is today, where its zone is."""
    return moment.date() == datetime.datetime.now(moment.tzinfo).date()


def day(moment):
    """That moment's day: "Friday, March 15, 2024", and whether it is today."""
    return f"{moment:%A, %B} {moment.day}, {moment:%Y}" + (", today" if is_today(moment) else "")


class Announcements:
    """What the programs on the accessibility bus announce from now on: notifications that show themselves. Use it in a
    with statement, and wait for them with the application's wait_until."""

    _EVENT = "object:state-changed:showing"

    def __init__(self):
        self.texts = []
        self._listener = Atspi.EventListener.new(self._hear)

    def __enter__(self):
        self._listener.register(self._EVENT)
        return self

    def __exit__(self, *_):
        self._listener.deregister(self._EVENT)

    def wait_for(self, application, text):
        application.wait_until(lambda: text in self.texts, f"{text!r} announced; announced were {self.texts}")

    def _hear(self, event):
        if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
            self.texts.append(event.source.get_name())
