#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes dates_month_grids.inc: the days in the 37 cells of a month, from Python's calendar module.

    python3 tests/dates/month_grids.py > tests/dates/month_grids.inc

One month for each first weekday, length and start of the week.
"""
import calendar

CELLS = 37

print("// SPDX-License-Identifier: MIT")
print("// Written by dates_month_grids.py. {year, month, start on Sunday, weekday of the 1st, days, day in each cell}")
seen = set()
for year in range(1999, 2030):
    for month in range(1, 13):
        monday_based, days = calendar.monthrange(year, month)
        weekday = (monday_based + 1) % 7
        if (weekday, days) in seen:
            continue
        seen.add((weekday, days))
        for start_on_sunday in (True, False):
            first = calendar.SUNDAY if start_on_sunday else calendar.MONDAY
            cells = [day for week in calendar.Calendar(first).monthdayscalendar(year, month) for day in week]
            cells = (cells + [0] * CELLS)[:CELLS]
            flag = "true" if start_on_sunday else "false"
            print(f"{{{year}, {month}, {flag}, {weekday}, {days}, {{{', '.join(map(str, cells))}}}}},")
