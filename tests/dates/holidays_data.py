#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes what the holiday rules must give, from Python's calendar and zoneinfo and the machine's tzdata.

    cd tests/dates
    python3 holidays_data.py days > holidays_days.inc
    python3 holidays_data.py easter > holidays_easter.inc
    python3 holidays_data.py zones > holidays_zones.inc

The movable holidays are as 5 U.S.C. 6103 (third Monday of February, last Monday of May ...) and 15 U.S.C. 260a (daylight
saving, as amended in 2005) word them; Mother's and Father's Day as 36 U.S.C. 117 and 109. Easter is the "anonymous
Gregorian" algorithm of Nature, 20 April 1876, as in J. Meeus, Astronomical Algorithms, chapter 8.
"""
import sys
from calendar import MONDAY, SUNDAY, THURSDAY, monthcalendar
from datetime import date, datetime, timezone
from zoneinfo import ZoneInfo

LAST = -1
EASTERS_IN_A_LINE = 20
# Years in which the zone skips the midnight of a holiday, or of a day from which one is counted, and one of each sign.
ZONE_YEARS = [("America/New_York", 2026), ("Asia/Kolkata", 2024), ("America/Havana", 2024),
              ("America/Sao_Paulo", 2018), ("Africa/Tunis", 2005), ("Africa/Casablanca", 2009),
              ("America/Asuncion", 2002), ("Asia/Beirut", 1988), ("Asia/Beirut", 1985), ("Europe/Rome", 1970),
              ("Australia/Lord_Howe", 1981)]


def nth(n, weekday, month, year):
    days = [week[weekday] for week in monthcalendar(year, month) if week[weekday]]
    return date(year, month, days[n if n == LAST else n - 1])


def easter(year):
    a = year % 19
    b, c = divmod(year, 100)
    d, e = divmod(b, 4)
    f = (b + 8) // 25
    g = (b - f + 1) // 3
    h = (19 * a + b - d - g + 15) % 30
    i, k = divmod(c, 4)
    l = (32 + 2 * e + 2 * i - h - k) % 7
    m = (a + 11 * h + 22 * l) // 451
    month, day = divmod(h + l - 7 * m + 114, 31)
    return date(year, month, day + 1)


def holidays(year):
    return [date(year, 1, 1), nth(3, MONDAY, 2, year), nth(2, SUNDAY, 3, year), easter(year),
            nth(LAST, MONDAY, 5, year), nth(2, SUNDAY, 5, year), nth(3, SUNDAY, 6, year), date(year, 7, 4),
            nth(1, MONDAY, 9, year), nth(1, SUNDAY, 11, year), date(year, 11, 11), nth(4, THURSDAY, 11, year),
            date(year, 12, 24), date(year, 12, 25)]


def number(day):
    return day.month * 100 + day.day


def first_second(day, zone):
    midnight = datetime(day.year, day.month, day.day, tzinfo=zone)
    return int((midnight - datetime(1970, 1, 1, tzinfo=timezone.utc)).total_seconds())


def write_days():
    print("// Written by holidays_data.py. {year, {month * 100 + day of each holiday in the sheet's order}}")
    for year in range(1970, 2101):
        print(f"{{{year}, {{{', '.join(str(number(day)) for day in holidays(year))}}}}},")


def write_easter():
    print("// Written by holidays_data.py. Month * 100 + day of Easter Sunday, each year from 1583 to 4099")
    for start in range(1583, 4100, EASTERS_IN_A_LINE):
        years = range(start, min(start + EASTERS_IN_A_LINE, 4100))
        print(", ".join(str(number(easter(year))) for year in years) + f", // from {start}")


def write_zones():
    print("// Written by holidays_data.py. {zone, year, {Unix seconds of each holiday's first instant}}")
    for name, year in ZONE_YEARS:
        seconds = [first_second(day, ZoneInfo(name)) for day in holidays(year)]
        print(f'{{"{name}", {year}, {{{", ".join(f"{second}.0" for second in seconds)}}}}},')


print("// SPDX-License-Identifier: MIT")
{"days": write_days, "easter": write_easter, "zones": write_zones}[sys.argv[1]]()
