# SPDX-License-Identifier: MIT
"""No two sources of a library or of a test program have a function of one name of their own. They are compiled as one,
where a call in one of them could mean the function of another without a word from the compiler."""

import pathlib
import re
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = sorted(path.parent for path in (*TREE.glob("*/CMakeLists.txt"), *TREE.glob("*/*/CMakeLists.txt"),
                                          *TREE.glob("tests/*/*/CMakeLists.txt"))
                 if re.search(r"velumora_(room|test)\(", path.read_text("utf-8")))

# A function that begins at the start of a line and is no member.
FUNCTION = re.compile(r"^(?!TEST|INSTANTIATE_|using\b|return\b)[A-Za-z_][\w:<>,&* ]*[ &*](\w+)\([^;{}]*\)[^;{}()]*\{", re.MULTILINE)
DECLARED = re.compile(r"\b(\w+)\(")


def functions(source):
    return set(FUNCTION.findall(re.sub(r"//.*", "", source))) - {"main", "PrintTo"}  # PrintTo is found by its type


def shared_names(folder):
    """(name, the sources that have one) for what the folder's headers do not declare."""
    sources = {path: path.read_text("utf-8") for path in sorted(folder.glob("*.cpp"))}
    declared = {name for header in folder.glob("*.h") for name in DECLARED.findall(header.read_text("utf-8"))}
    owners = {}
    for path, source in sources.items():
        if not re.search(r"^int main\(", source, re.MULTILINE):  # a program of its own
            for name in functions(source) - declared:
                owners.setdefault(name, []).append(str(path.relative_to(TREE)))
    return sorted((name, paths) for name, paths in owners.items() if len(paths) > 1)


class LocalNamesTest(unittest.TestCase):
    def test_a_function_is_seen(self):
        self.assertEqual(functions("std::string textOf(const Value& value)\n{\n    return nameOf(value);\n}\n"), {"textOf"})
        self.assertEqual(functions("template <typename T> T* found(int a,\n    int b) // why\n{\n}\n"), {"found"})
        self.assertEqual(functions("Value Reader::read(int a)\n{\n}\n\nTEST(Read, Reads)\n{\n}\nint f(int);\n"), set())

    def test_all_folders_are_read(self):
        self.assertGreater(len(FOLDERS), 35)

    def test_no_two_sources_share_a_name(self):
        self.assertEqual([found for folder in FOLDERS for found in shared_names(folder)], [])


unittest.main()
