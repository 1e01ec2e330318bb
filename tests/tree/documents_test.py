# SPDX-License-Identifier: MIT
"""Every file and folder of the tree that the documents name is there."""

import os
import pathlib
import re
import unittest

TREE = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = [TREE / "README.md", TREE / "CONTRIBUTING.md", *sorted((TREE / "docs").glob("*.md"))]

# A name between backquotes, without a placeholder such as <Page>; with a folder, or with the ending of a source.
NAME = re.compile(r"`(?:\./)?([A-Za-z.][\w.+*-]*(?:/[\w.+*-]*)*)`")
LINK = re.compile(r"\]\(([^):#]+)")
ENDING = re.compile(r"\.(cmake|cpp|desktop|h|htm|md|py|qrc|sh|ts|txt|ui)$")
ELSEWHERE = {"Recovered/"}  # in the user's folders


def names_in(text):
    named = {name for name in NAME.findall(text)
             if ("/" in name or ENDING.search(name)) and name not in ELSEWHERE and not name.startswith("build/")}
    return named | set(LINK.findall(text))


def files_of_tree():
    names = set()
    for folder, folders, files in os.walk(TREE):
        folders[:] = [name for name in folders if name not in (".git", "build")]
        names.update(files)
    return names


class DocumentsTest(unittest.TestCase):
    def test_names_are_found_in_a_text(self):
        self.assertEqual(names_in("see `app/main.cpp`, `./run`, `a_b.py` and `host/<Service>.h`; [how](docs/x.md), "
                                  "`Recovered/` and `Table`"),
                         {"app/main.cpp", "a_b.py", "docs/x.md"})

    def test_each_named_file_and_folder_is_there(self):
        files = files_of_tree()
        for document in DOCUMENTS:
            for name in sorted(names_in(document.read_text(encoding="utf-8"))):
                with self.subTest(document=document.name, name=name):
                    self.assertTrue(any(TREE.glob(name)) if "/" in name or "*" in name else name in files)


unittest.main()
