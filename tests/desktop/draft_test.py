# SPDX-License-Identifier: MIT
"""The program is killed in the middle of typing; what it left is offered at the next start.

DRAFT_KILLS sets how often it is killed; a random moment each time, from DRAFT_SEED on."""

import datetime
import os
import random
import re
import subprocess
import threading
import time
import unittest
import zoneinfo

from desktop import spoken
from desktop.case import DesktopTest

NOTES = "TALV VeluMora"
BERLIN = zoneinfo.ZoneInfo("Europe/Berlin")
OFFER = "Velumora ended before this was saved"
KILLS = int(os.environ.get("DRAFT_KILLS", "5"))
SEED = int(os.environ.get("DRAFT_SEED", "20261121"))
MISSING_AT_MOST = 3  # seconds of typing


def second_day_of_this_month():
    return datetime.datetime.now(BERLIN).replace(day=2, hour=0, minute=0, second=0, microsecond=0)


def begin_note(window, day):
    window.find("push button", re.compile("^" + re.escape(spoken.day(day)))).press()
    window.find("text", spoken.NOTE_EDITOR).wait_for_state("focused")


class Typist:
    """Types numbers, one every tenth of a second, and remembers when each of them had been sent."""

    def __init__(self, environment):
        self.sent = []  # (moment, text so far)
        self._environment = os.environ | environment
        self._stop = threading.Event()
        self._thread = threading.Thread(target=self._type)
        self._thread.start()

    def stop(self):
        self._stop.set()
        self._thread.join()

    def text_at(self, moment):
        """What had been typed by then."""
        return max((text for sent, text in self.sent if sent <= moment), key=len, default="")

    def _type(self):
        text = ""
        while not self._stop.wait(0.1):
            word = f"{len(self.sent)} "
            if subprocess.run(["xdotool", "type", "--delay", "4", "--", word], env=self._environment,
                              stdin=subprocess.DEVNULL, check=False).returncode:
                return
            text += word
            self.sent.append((time.monotonic(), text))


class DraftTest(DesktopTest):
    day = second_day_of_this_month()

    def draft(self):
        return self.home.path / ".local/state/velumora/Draft"

    def test_a_killed_program_offers_all_but_the_last_seconds_of_typing(self):
        chance = random.Random(SEED)
        for kill in range(KILLS):
            with self.subTest(kill=kill):
                self.home = self.new_home()
                window = self.start()
                begin_note(window, self.day)
                typist = Typist(self.session.environment)
                time.sleep(chance.uniform(0.5, 8))  # the moment is what is tried, not waited for
                killed = time.monotonic()
                window.process.kill()
                typist.stop()
                window.process.wait()
                self.assertIsNone(self.home.table(NOTES), "nothing is saved while a note is being typed")

                expected = typist.text_at(killed - MISSING_AT_MOST)
                again = self.start()
                if not self.draft().exists():
                    self.assertEqual(expected, "", f"no draft {killed - typist.sent[0][0]:.1f} s after the first word")
                    again.process.kill()
                    again.process.wait()
                    continue
                sheet = again.find("dialog", OFFER)
                self.assertEqual(self.draft().stat().st_mode & 0o777, 0o600)
                self.assertTrue(sheet.description.split(": ", 1)[1].startswith(expected.rstrip()),
                                f"{sheet.description!r} lacks some of {expected!r}")
                again.find("push button", "Keep").press()
                again.wait_until(lambda: not self.draft().exists(), "the draft to be saved")
                kept = self.home.table(NOTES)[0]["NoteDataKey"]
                self.assertTrue(typist.sent[-1][1].startswith(kept), f"{kept!r} was not typed")
                self.assertTrue(kept.startswith(expected.rstrip()), f"{kept!r} lacks some of {expected!r}")
                if kill + 1 < KILLS:
                    again.process.kill()
                    again.process.wait()

    def test_an_unanswered_offer_comes_again_and_a_discarded_one_does_not(self):
        window = self.start()
        begin_note(window, self.day)
        window.type("kept in mind")
        window.wait_until(lambda: self.draft().exists() and "kept in mind" in self.draft().read_text(), "the draft")
        window.process.kill()
        window.process.wait()

        window = self.start()
        window.find("dialog", OFFER)
        self.picture("draft-offered")
        window.find("push button", "Keep").wait_for_state("focused")
        window.key("Escape")
        window.wait_until_gone("dialog")
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)

        window = self.start()
        window.find("dialog", OFFER)
        window.find("push button", "Discard").press()
        window.wait_until_gone("dialog")
        window.wait_until(lambda: not self.draft().exists(), "the draft to go")
        self.assertIsNone(self.home.table(NOTES))

    def test_a_broken_draft_is_set_aside_and_the_program_starts(self):
        self.draft().parent.mkdir(parents=True)
        self.draft().write_bytes(b"<plist><array><dict>")
        window = self.start()
        window.find("push button", "Today").focus()
        aside = self.draft().with_name("Draft unread 1")
        window.wait_until(aside.exists, "the draft under another name")
        self.assertEqual(aside.read_bytes(), b"<plist><array><dict>")
        self.assertFalse(window.find_all("dialog"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
