# SPDX-License-Identifier: MIT
"""The linter reads every room, and tells what it finds in each."""

import pathlib
import re
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]


def rooms():
    """The folders that the tree's build makes rooms of."""
    folders = [path.parent for depth in ("*", "*/*") for path in TREE.glob(f"{depth}/CMakeLists.txt")]
    return [folder.relative_to(TREE) for folder in folders
            if "velumora_room(" in (folder / "CMakeLists.txt").read_text(encoding="utf-8")]


class LintTest(unittest.TestCase):
    def test_each_room_is_read(self):
        sources, = re.findall(r'^sources="(.*)"$', (TREE / "scripts/lint").read_text(encoding="utf-8"), re.MULTILINE)
        pattern = re.compile(sources.replace("$PWD", re.escape(str(TREE))))
        self.assertGreater(len(rooms()), 20)
        for room in rooms():
            self.assertTrue(pattern.search(str(TREE / room / "Any.cpp")), room)

    def test_findings_in_each_room_are_told(self):
        told, = re.findall(r"^HeaderFilterRegex: '(.*)'$", (TREE / ".clang-tidy").read_text(encoding="utf-8"),
                           re.MULTILINE)
        for room in rooms():
            for name in ("Any.cpp", "Any.h"):
                self.assertTrue(re.search(told, str(TREE / room / name)), room)


if __name__ == "__main__":
    unittest.main()
