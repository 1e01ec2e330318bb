# SPDX-License-Identifier: MIT
"""Waiting for something to become true, never for time to pass."""

import time

PATIENCE = 20  # seconds; generous, since a sanitizer build on a busy machine is slow


def wait_until(condition, what, patience=PATIENCE, interval=0.02):
    """The first true result of condition(). Fails, saying `what` was waited for, once `patience` seconds are over.

    `what` is a text, or a function that gives one and is called by then only."""
    deadline = time.monotonic() + patience
    while True:
        if result := condition():
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {patience} s in vain for {what() if callable(what) else what}")
        time.sleep(interval)
