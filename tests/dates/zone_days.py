#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes dates_zone_days.inc: when days begin in several zones, from Python's zoneinfo and the machine's tzdata.

    python3 tests/dates/zone_days.py > tests/dates/zone_days.inc

The days are those around every change of the clock from 2004 to 2030, and some far from today.
"""
from datetime import date, datetime, timedelta, timezone
from zoneinfo import ZoneInfo

ZONES = ["UTC", "America/New_York", "Asia/Kolkata", "Australia/Lord_Howe", "America/Sao_Paulo", "Africa/Cairo",
         "Pacific/Apia", "America/Havana", "America/Mexico_City"]
FAR_DAYS = [date(1850, 6, 1), date(1899, 12, 31), date(1900, 1, 1), date(1920, 2, 29), date(1945, 8, 15),
            date(1969, 12, 31), date(1970, 1, 1), date(2038, 1, 19), date(2070, 7, 1), date(2100, 2, 28),
            date(2100, 3, 1), date(2199, 12, 31), date(2712, 7, 4)]


def days_at_changes(zone):
    day, last = date(2004, 1, 1), date(2030, 12, 31)
    while day <= last:
        noon = datetime(day.year, day.month, day.day, 12, tzinfo=zone)
        before = datetime.combine(day - timedelta(1), noon.timetz())
        if noon.utcoffset() != before.utcoffset():
            yield day - timedelta(1)
            yield day
        day += timedelta(1)


EPOCH = datetime(1970, 1, 1, tzinfo=timezone.utc)

print("// SPDX-License-Identifier: MIT")
print("// Written by dates_zone_days.py. {zone, Unix seconds of the first instant, year, month, day, has a midnight}")
for name in ZONES:
    zone = ZoneInfo(name)
    for day in sorted(set(FAR_DAYS + list(days_at_changes(zone)))):
        midnight = datetime(day.year, day.month, day.day, tzinfo=zone)
        utc = midnight.astimezone(timezone.utc)
        exists = utc.astimezone(zone).replace(tzinfo=None) == midnight.replace(tzinfo=None)
        seconds = int((utc - EPOCH).total_seconds())
        print(f'{{"{name}", {seconds}.0, {day.year}, {day.month}, {day.day}, {"true" if exists else "false"}}},')
