# SPDX-License-Identifier: MIT
"""The program as `cmake --install` lays it down: it needs nothing of the folders that it was built in, nor names them."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest
import urllib.parse
import xml.etree.ElementTree

from desktop.case import DesktopTest

PROGRAMS = {"velumora", "velumora-reminder-agent"}
BUILD = pathlib.Path(os.environ["TEST_BUILD"])
SOURCE = pathlib.Path(os.environ["TEST_SOURCE"])


class InstalledTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.prefix = cls.session.directory / "prefix"
        subprocess.run(["cmake", "--install", str(BUILD), "--prefix", str(cls.prefix)], check=True,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def installed_files(self):
        return [path for path in self.prefix.rglob("*") if path.is_file()]

    def opened(self, program, *items):
        """What the program has opened after choosing these items of the help menu; the last of them opens something."""
        commands = self.home.path / "bin"
        opened = self.home.path / "opened"
        commands.mkdir()
        opener = commands / "xdg-open"
        opener.write_text(f'#!/bin/sh\necho "$1" >>"{opened}"\n', encoding="utf-8")
        opener.chmod(0o700)
        self.program = str(program)
        window = self.start(environment={"PATH": str(commands)})
        for item in items:
            window.find("menu item", "Help").click()
            window.find("menu item", item).click()
        window.wait_until(lambda: opened.exists() and opened.read_text().endswith("\n"), f"what {items[-1]} opens")
        self.assertEqual(window.quit(), 0)
        return [urllib.parse.urlparse(line) for line in opened.read_text().splitlines()]

    def opened_help(self, program):
        """The folder of the help page that the program has opened."""
        page, = self.opened(program, "Velumora Help")
        page = pathlib.Path(urllib.parse.unquote(page.path))
        self.assertTrue(page.is_file(), page)
        return page.parents[2]

    def test_the_programs_are_there_and_nothing_beside_them(self):
        self.assertEqual({path.name for path in (self.prefix / "bin").iterdir()}, PROGRAMS)

    def test_no_file_names_a_folder_that_it_was_built_in(self):
        folders = {str(form) for folder in (SOURCE, BUILD) for form in (folder, folder.resolve())}
        self.assertGreater(len(self.installed_files()), len(PROGRAMS))
        for path in self.installed_files():
            content = path.read_bytes()
            for folder in folders:
                self.assertNotIn(folder.encode(), content, f"{folder} in {path.name}")

    def test_what_software_centres_say_is_what_the_menu_says_in_every_language(self):
        entry = (self.prefix / "share/applications/velumora.desktop").read_text(encoding="utf-8")
        said = xml.etree.ElementTree.parse(self.prefix / "share/metainfo/app.velumora.Velumora.metainfo.xml").getroot()
        self.assertEqual(said.findtext("launchable"), "velumora.desktop")
        self.assertRegex(said.findtext("url"), "^https://")
        language = "{http://www.w3.org/XML/1998/namespace}lang"
        self.assertEqual(dict(re.findall(r"^Comment(?:\[(\w+)\])?=(.*)$", entry, re.MULTILINE)),
                         {each.get(language, ""): each.text for each in said.iter("summary")})

    def test_the_programs_look_for_no_library_in_folders_of_their_own(self):
        for name in PROGRAMS:
            section = subprocess.run(["readelf", "-dW", str(self.prefix / "bin" / name)], check=True, text=True,
                                     stdin=subprocess.DEVNULL, capture_output=True).stdout
            self.assertIn("(NEEDED)", section)
            self.assertNotRegex(section, r"\((RPATH|RUNPATH)\)")

    def test_the_help_is_that_of_the_prefix(self):
        self.assertEqual(self.opened_help(self.prefix / "bin/velumora"), self.prefix / "share/velumora")

    def test_the_help_of_a_program_that_is_not_installed_is_that_of_its_source(self):
        self.assertEqual(self.opened_help(self.program), SOURCE / "resources")

    def test_a_program_alone_has_no_help(self):
        alone = self.home.path / "alone/bin"
        alone.mkdir(parents=True)
        shutil.copy(self.prefix / "bin/velumora", alone)
        opened = self.opened(alone / "velumora", "Velumora Help", "Velumora Web Page")
        self.assertEqual([page.scheme for page in opened], ["https"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
