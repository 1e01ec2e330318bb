# SPDX-License-Identifier: MIT
"""Processes that are ended with the test that started them, whatever happens to it."""

import ctypes
import os
import signal
import subprocess
import time

_libc = ctypes.CDLL(None, use_errno=True)
_SET_PARENT_DEATH_SIGNAL = 1
_SET_CHILD_SUBREAPER = 36


def _end_with_parent():
    _libc.prctl(_SET_PARENT_DEATH_SIGNAL, signal.SIGTERM, 0, 0, 0)


class Processes:
    """Starts processes and ends each of them, and all that they left behind, in end_all()."""

    def __init__(self):
        # What a child starts and leaves (a bus starts services) becomes ours instead of running on.
        _libc.prctl(_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self._started = []

    def start(self, command, **options):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, preexec_fn=_end_with_parent, **options)
        self._started.append(process)
        return process

    def adopt(self, pid):
        """Looks after a process that something else started, and ends it as the others."""
        process = AdoptedProcess(pid)
        self._started.append(process)
        return process

    def end(self, process, patience=10):
        """Asks the process to end; after `patience` seconds makes it."""
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(patience)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._started.remove(process)
        return process.returncode

    def end_all(self):
        for process in reversed(list(self._started)):
            self.end(process)
        deadline = time.monotonic() + 5
        while left := children():
            stop = signal.SIGTERM if time.monotonic() < deadline else signal.SIGKILL
            for pid in left:
                os.kill(pid, stop)
            time.sleep(0.02)
            _reap()


class AdoptedProcess:
    """A process that something else started, as far as tests need of subprocess.Popen."""

    def __init__(self, pid):
        self.pid = pid
        self.returncode = None

    def poll(self):
        """None while it runs; of the status of one that ended only tells that there was none to be had."""
        _reap()
        try:
            os.kill(self.pid, 0)
        except ProcessLookupError:
            self.returncode = 0
        return self.returncode

    def wait(self, patience):
        deadline = time.monotonic() + patience
        while self.poll() is None:
            if time.monotonic() > deadline:
                raise subprocess.TimeoutExpired(str(self.pid), patience)
            time.sleep(0.02)
        return self.returncode

    def terminate(self):
        os.kill(self.pid, signal.SIGTERM)

    def kill(self):
        os.kill(self.pid, signal.SIGKILL)


def children():
    """The ids of this process's living children, adopted ones included."""
    _reap()
    with open(f"/proc/self/task/{os.getpid()}/children", encoding="ascii") as file:
        return [int(pid) for pid in file.read().split()]


def _reap():
    try:
        while os.waitpid(-1, os.WNOHANG)[0]:
            pass
    except ChildProcessError:
        pass
