# SPDX-License-Identifier: MIT
"""The check for a new version, asked for from the menu and answered by a real web server on the loopback interface."""

import contextlib
import http.server
import os
import signal
import threading
import unittest

from desktop.case import DesktopTest
from desktop.waiting import PATIENCE

PORT = int(os.environ["TEST_VERSION_PORT"])


class VersionFile:
    """A web server that holds the version file, or any other reply, while it is entered. It answers when it may."""

    def __init__(self, body, status=200):
        self.paths = paths = []
        self.asked = asked = threading.Event()
        self.may_answer = may_answer = threading.Event()
        may_answer.set()

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                paths.append(self.path)
                asked.set()
                may_answer.wait()
                with contextlib.suppress(ConnectionError):  # the program may have gone
                    self.send_response(status)
                    self.send_header("Content-Length", str(len(body)))
                    self.end_headers()
                    self.wfile.write(body)

            def log_message(self, *arguments):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", PORT), Handler)

    def __enter__(self):
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *unused):
        self.may_answer.set()
        self._server.shutdown()
        self._server.server_close()


class VersionCheckTest(DesktopTest):
    def start_with_browser(self):
        """Starts the program on a desktop whose browser writes down what it is asked to open."""
        self.opened = self.home.path / "opened"
        browser = self.home.path / "xdg-open"
        browser.write_text(f'#!/bin/sh\nprintf "%s\\n" "$1" >> "{self.opened}"\n')
        browser.chmod(0o755)
        return self.start(environment={"PATH": f"{browser.parent}:{os.environ['PATH']}"})

    def ask(self, window):
        window.find("menu item", "Help").click()
        window.find("menu item", "Check for a New Version…").click()

    def test_a_newer_version_is_told_and_ok_opens_the_web_page(self):
        window = self.start_with_browser()
        with VersionFile(b"9.9\n") as file:
            self.ask(window)
            window.find("dialog", "A new version of Velumora (9.9 ) is available.")
            self.picture("version-check")
        self.assertEqual(file.paths, ["/vm/Velumora_version.txt"])
        window.find("push button", "OK").press()
        window.wait_until_gone("dialog")
        window.wait_until(lambda: self.opened.exists() and self.opened.read_text(), "the web page to open")

    def test_go_to_web_site_closes_the_sheet_alone(self):
        window = self.start_with_browser()
        with VersionFile(b"9.9"):
            self.ask(window)
            window.find("push button", "Go to web site").press()
        window.wait_until_gone("dialog")
        self.assertFalse(self.opened.exists())

    def test_the_current_version_is_told(self):
        window = self.start()
        with VersionFile(b"1.0"):
            self.ask(window)
            dialog = window.find("dialog", "")
            self.assertEqual(dialog.description, "This version of Velumora (1.0) is the current version.")
            window.find("push button", "OK").press()
        window.wait_until_gone("dialog")

    def test_what_is_typed_while_the_reply_is_on_its_way_is_done(self):
        window = self.start()
        with VersionFile(b"9.9") as file:
            file.may_answer.clear()
            self.ask(window)
            self.assertTrue(file.asked.wait(PATIENCE))
            window.key("ctrl+2")
            window.find("label", "For week beginning:")
            file.may_answer.set()
            window.find("dialog", "A new version of Velumora (9.9) is available.")

    def test_the_system_can_end_the_program_while_the_reply_is_on_its_way(self):
        window = self.start()
        with VersionFile(b"9.9") as file:
            file.may_answer.clear()
            self.ask(window)
            self.assertTrue(file.asked.wait(PATIENCE))
            window.process.send_signal(signal.SIGTERM)
            self.assertEqual(window.wait_for_end(), 0)

    def test_a_missing_file_and_a_missing_server_are_failures(self):
        window = self.start()
        with VersionFile(b"9.9", status=404):
            self.ask(window)
            window.find("dialog", "Version check failed.")
        window.find("push button", "OK").press()
        window.wait_until_gone("dialog")
        self.ask(window)
        window.find("dialog", "Version check failed.")


if __name__ == "__main__":
    unittest.main(verbosity=2)
