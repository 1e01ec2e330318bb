# SPDX-License-Identifier: MIT
"""A program under test, found and used through the accessibility bus, as an assistive technology would."""

import os
import re
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version is chosen first)

from .waiting import PATIENCE, wait_until

# A question to a program that is just starting or ending is asked again rather than waited for (milliseconds; the
# library would wait up to 15 s).
Atspi.set_timeout(1000, 1000)

# What has a program be on the accessibility bus though no assistive technology runs.
ALWAYS_ACCESSIBLE = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}


class Application:
    """A running program. Start it with a Session and a Home; end it with quit() or with the session."""

    def __init__(self, session, home, program, *arguments, environment=None, process=None):
        """With a `process` that something else started, nothing is started."""
        self._session = session
        # The accessibility library finds its bus through this process's own environment.
        os.environ.update(session.environment)
        self.log = home.path / "program.log"
        with open(self.log, "ab") as log:
            self.process = process or session.processes.start(
                [str(program), *arguments], stdout=log, stderr=log, cwd=home.path,
                env=home.environment | session.environment | ALWAYS_ACCESSIBLE | (environment or {}))
        self._root = self.wait_until(self._find_root, f"{program} on the accessibility bus")

    def find(self, role, name=None, patience=PATIENCE):
        """The first visible control of that role and spoken name; waits for it.

        A name is a whole text or a compiled expression that matches some part; None allows any."""
        return self.wait_until(lambda: next(iter(self.find_all(role, name)), None),
                               lambda: f"{role} {_shown(name)}; there are {self._outline()}", patience)

    def find_all(self, role, name=None):
        """The visible controls of that role and name at this moment, in the order of the window."""
        def found():
            return [[control for control in self.controls() if control.role == role and _is_named(control.name, name)]]
        return self.wait_until(found, lambda: f"the controls to stand still; there are {self._outline()}")[0]

    def wait_until_gone(self, role, name=None):
        self.wait_until(lambda: not self.find_all(role, name), f"{role} {_shown(name)} to go")

    def controls(self):
        """Every control that is showing, the window first."""
        pending = [self._root]
        while pending:
            node = pending.pop()
            if node is not self._root:
                yield Control(self, node)
            pending.extend(reversed(_showing_children(node)))

    def wait_until(self, condition, what, patience=PATIENCE):
        """As waiting.wait_until, and fails at once when the program has ended."""
        def checked():
            _take_in_events()
            if self.process.poll() is not None:
                awaited = "an answer of its controls" if callable(what) else what
                raise AssertionError(f"program ended with {self.process.returncode} while waiting for {awaited}:\n"
                                     + self.log.read_text(errors="replace"))
            try:
                return condition()
            except GLib.Error:
                return None  # what was looked at is going away or not there yet
        return wait_until(checked, what, patience)

    def type(self, text):
        """Types into whatever has the keyboard; a line feed is the Return key. ASCII: what a US keyboard has."""
        for number, line in enumerate(text.split("\n")):
            if number:
                self.key("Return")
            if line:
                self._xdotool("type", "--delay", "8", "--", line)

    def key(self, *keys):
        """Presses keys one after another, each with its modifiers: "ctrl+f", "Return"."""
        self._xdotool("key", "--delay", "8", "--", *keys)

    def click_at(self, x, y, button=1):
        self._xdotool("mousemove", str(x), str(y), "click", str(button))

    def quit(self):
        """Asks the program to end as a desktop's logout would. Its exit status; negative for a signal."""
        return self._session.processes.end(self.process)

    def wait_for_end(self):
        """The exit status of a program that was told to quit through its own controls."""
        try:
            status = self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired as error:
            raise AssertionError(f"the program still runs after {PATIENCE} s") from error
        self._session.processes.end(self.process)
        return status

    def _outline(self):
        """The controls as a text; what goes away meanwhile cuts it short."""
        shown = []
        try:
            shown.extend(map(repr, self.controls()))
        except GLib.Error:
            shown.append("...")
        return ", ".join(shown)

    def _find_root(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child and child.get_process_id() == self.process.pid and child.get_child_count():
                child.set_cache_mask(Atspi.Cache.NONE)
                return child
        return None

    def _xdotool(self, *arguments):
        subprocess.run(["xdotool", *arguments], check=True, stdin=subprocess.DEVNULL,
                       env=os.environ | self._session.environment)


class Control:
    """One control of an application, as the accessibility bus tells of it now."""

    def __init__(self, application, node):
        self._application = application
        self._node = node

    def __repr__(self):
        try:
            return f"{self.role} '{self.name}'"
        except GLib.Error:
            return "a control that is gone"

    @property
    def role(self):
        return self._node.get_role_name()

    @property
    def name(self):
        return self._node.get_name() or ""

    @property
    def description(self):
        return self._node.get_description() or ""

    @property
    def text(self):
        """The whole text of a control that holds one, the spoken name of any other."""
        if "Text" not in self._node.get_interfaces():
            return self.name
        return Atspi.Text.get_text(self._node, 0, Atspi.Text.get_character_count(self._node))

    @property
    def states(self):
        """Names of the states that hold: "checked", "enabled", "focused", "selected"."""
        return {state.value_nick for state in self._node.get_state_set().get_states()}

    @property
    def rectangle(self):
        """x, y, width and height on the screen."""
        box = Atspi.Component.get_extents(self._node, Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def press(self, action=("Press", "Toggle")):
        """Does the control's own action, without the mouse."""
        def names():
            return [Atspi.Action.get_action_name(self._node, index)
                    for index in range(Atspi.Action.get_n_actions(self._node))]
        known = self._application.wait_until(names, lambda: f"the actions of {self}")
        index = next((index for index, name in enumerate(known) if name in action), None)
        if index is None:
            raise AssertionError(f"{self} has none of the actions {action}, but {known}")
        try:
            Atspi.Action.do_action(self._node, index)
        except GLib.Error as error:
            if "timeout" not in error.message:  # the program got the call, and is slow to end what it does
                raise

    def click(self, button=1):
        x, y, width, height = self._application.wait_until(lambda: self.rectangle, lambda: f"the place of {self}")
        self._application.click_at(x + width // 2, y + height // 2, button)

    def focus(self):
        """Gives the control the keyboard."""
        def grab():
            Atspi.Component.grab_focus(self._node)
            return True
        self._application.wait_until(grab, lambda: f"{self} to be asked")
        self.wait_for_state("focused")

    def type(self, text):
        self.focus()
        self._application.type(text)

    def children(self):
        return [Control(self._application, child) for child in _showing_children(self._node)]

    def wait_for_text(self, text):
        self._application.wait_until(lambda: self.text == text, lambda: f"text {text!r} in {self}")

    def wait_for_state(self, state):
        self._application.wait_until(lambda: state in self.states, lambda: f"state {state} of {self}")


def _showing_children(node):
    children = []
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child and child.get_state_set().contains(Atspi.StateType.SHOWING):
            children.append(child)
    return children


def _is_named(name, wanted):
    if wanted is None:
        return True
    return bool(wanted.search(name)) if isinstance(wanted, re.Pattern) else name == wanted


def _shown(name):
    return name.pattern if isinstance(name, re.Pattern) else repr(name)


def _take_in_events():
    context = GLib.MainContext.default()
    while context.pending():
        context.iteration(False)
