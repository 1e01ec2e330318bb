# SPDX-License-Identifier: MIT
"""property_list_other_programs_test.py PROGRAM: other programs read what PROGRAM writes as they read its input."""
import datetime
import plistlib
import random
import subprocess
import sys

program = sys.argv[1]
moment = datetime.datetime


def rewritten(table, form):
    written = plistlib.dumps(table, fmt=form, sort_keys=False)
    return subprocess.run([program], input=written, stdout=subprocess.PIPE, check=True).stdout


def any_text(generator):
    planes = [(0x20, 0x7E), (0xA0, 0x2FFF), (0x1F600, 0x1F64F), (0x9, 0xA)]
    return "".join(chr(generator.randint(*generator.choice(planes))) for _ in range(generator.randint(0, 60)))


def any_table(generator):
    first, last = moment(1, 1, 1), moment(9999, 12, 31, 23, 59, 59)
    seconds = int((last - first).total_seconds())
    return [
        {
            "NoteDateKey": first + datetime.timedelta(seconds=generator.randint(0, seconds)),
            "NoteDataKey": any_text(generator),
            any_text(generator): [generator.randint(-(2**63), 2**64 - 1), generator.random() * 10**generator.randint(-300, 300)],
            "data": generator.randbytes(generator.randint(0, 100)),
        }
        for _ in range(20)
    ]


def through_plistutil(xml):
    return subprocess.run(["plistutil", "-i", "-", "-o", "-", "-f", "bin"], input=xml, stdout=subprocess.PIPE, check=True).stdout


def without_dates(table):
    """libplist's dates have a smaller range."""
    return [{k: v for k, v in r.items() if k != "NoteDateKey"} if isinstance(r, dict) else r for r in table]


generator = random.Random(1)
tables = [any_table(generator) for _ in range(20)]
tables.append(["a\nb\t", " ", "", True, False, float("inf"), {"a": {}, "b": []}, "\U0001F600 \u05D0"])
for table in tables:
    for form in (plistlib.FMT_XML, plistlib.FMT_BINARY):
        xml = rewritten(table, form)
        # As texts, so that the order of the keys and the types of the numbers are compared too.
        assert repr(plistlib.loads(xml)) == repr(table), (form, table, plistlib.loads(xml))
    dateless = without_dates(table)
    read = plistlib.loads(through_plistutil(rewritten(dateless, plistlib.FMT_BINARY)))
    assert repr(read) == repr(dateless), (dateless, read)

# plistlib writes no carriage return into XML but reads one that is written as a reference.
returns = ["\r", "a\r\nb\r"]
assert plistlib.loads(rewritten(returns, plistlib.FMT_BINARY)) == returns
