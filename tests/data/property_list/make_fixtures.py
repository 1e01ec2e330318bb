# SPDX-License-Identifier: MIT
"""Writes types.xml and types.binary beside itself: one list of every type, by Python's plistlib."""
import datetime
import pathlib
import plistlib

here = pathlib.Path(__file__).parent
moment = datetime.datetime
everything = [
    {"NoteDateKey": moment(2024, 2, 29), "NoteDataKey": " Tea & <cake>\nfor \U0001F600 \u05D0 "},
    {"zebra": 1, "apple": {"inner": [[], {}]}},
    0, -1, 255, 256, 65536, 2**32, 2**63 - 1, 2**63, 2**64 - 1, -(2**63),
    True, False, 1.5, 0.1, float("inf"), b"\x00\xff\x10",
    moment(1, 1, 1), moment(1899, 12, 31, 23, 59, 59), moment(1931, 5, 6), moment(2069, 7, 8), moment(9999, 12, 31, 23, 59, 59),
    "x" * 300, "\u00fc" * 20,
]
(here / "types.xml").write_bytes(plistlib.dumps(everything, sort_keys=False))
(here / "types.binary").write_bytes(plistlib.dumps(everything, sort_keys=False, fmt=plistlib.FMT_BINARY))
