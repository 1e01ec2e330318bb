# SPDX-License-Identifier: MIT
"""The colours of the program are written in one file. Everything else takes them from there, or from the palette."""

import pathlib
import re
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
HOME = TREE / "look/Colors.h"
ROOMS = sorted(path.parent for depth in ("*", "*/*") for path in TREE.glob(f"{depth}/CMakeLists.txt")
               if "velumora_room(" in path.read_text("utf-8"))
SOURCES = [*(path for room in ROOMS for path in sorted(room.glob("*.cpp")) + sorted(room.glob("*.h"))),
           *sorted((TREE / "resources").glob("*.qss")), *sorted((TREE / "resources").glob("*.ui"))]

BY_NUMBERS = r"\b0[xX][fF]{2}[0-9a-fA-F]{6}\b|#[0-9a-fA-F]{3}(?:[0-9a-fA-F]{3}){0,2}\b|\bqRgba?\(|\brgba?\("
BY_NAME = r"\bQt::(?:black|white|(?:dark|light)?gr[ae]y|(?:dark)?(?:red|green|blue|cyan|magenta|yellow))\b"
OF_PARTS = r"\bQColor\w*[({](?:\d|0x|\")|\bfromRgb\w*\(\d|\bfromHs[lv]\w*\("
IN_RULES = r"(?:color|background|border[\w-]*):(?!:)[^;]*\b(?:black|white|gr[ae]y|red|green|blue|yellow)\b"
COLOUR = re.compile("|".join((BY_NUMBERS, BY_NAME, OF_PARTS, IN_RULES)), re.IGNORECASE)


class ColoursTest(unittest.TestCase):
    def test_a_colour_is_seen(self):
        for text in ("QRgb x = 0xffba0019;", "setPen(Qt::lightGray)", "QColor(0xaa, 0xaa, 0xaa)", "QColor{170, 0, 0}",
                     'QColor("teal")', "color: #fff;", "color: #2f6db5;", "border: 1px solid black;", "qRgb(1, 2, 3)"):
            self.assertRegex(text, COLOUR)
        for text in ("fill(Qt::transparent)", "palette(mid)", "QColor color", "constexpr auto mask = 0xFF;", "QLabel#clock",
                     "QColor::fromRgb(Colors::white)", "color: palette(bright-text);"):
            self.assertNotRegex(text, COLOUR)

    def test_the_home_has_colours(self):
        self.assertRegex(HOME.read_text("utf-8"), COLOUR)

    def test_nothing_else_has_any(self):
        self.assertGreater(len(SOURCES), 200)
        found = [f"{source.relative_to(TREE)}:{number}: {line.strip()}" for source in SOURCES if source != HOME
                 for number, line in enumerate(source.read_text("utf-8").splitlines(), 1) if COLOUR.search(line)]
        self.assertEqual(found, [])


unittest.main()
