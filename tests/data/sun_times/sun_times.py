#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The times of sunrise and sunset, worked out apart from the program; run, it writes the test's table sun_times.inc.

    python3 tests/data/sun_times/sun_times.py > tests/data/sun_times/sun_times.inc

Angles are radians, longitude and zone hours count west as positive. A packed time is hours plus hundredths that are
minutes: 5.31 is 05:31.
"""
import calendar
import math
import random

DEGREE = 0.017453292519943295
HOUR_ANGLE = 0.2617993877991494
FULL_TURN = 6.283185307179586
QUARTER_TURN = 1.5707963267948966
THREE_QUARTERS = 4.71238898038469
HALF_TURN = 3.141592653589793
LEAP_TOLERANCE = 1e-05


def turned(angle):
    """The angle within [0, full turn). Python's round() takes ties to even."""
    rest = angle - FULL_TURN * round(angle / FULL_TURN)
    return rest + FULL_TURN if rest < 0 else rest


def minutes_of(angle):
    """(hours, minutes with their fraction) of an angle on the clock."""
    value = turned(angle) * 3.81972
    hours = math.trunc(value)
    return hours, (value - hours) * 60


def packed(angle):
    hours, exact = minutes_of(angle)
    minutes = math.trunc(exact)
    if exact - minutes >= 0.5:
        minutes += 1
    return float(hours + 1) if minutes >= 60 else hours + minutes / 100


def day_number(year, month, day):
    first = math.trunc(275 * month / 9)
    second = math.trunc((month + 9) / 12)
    quarter = year * 0.25
    if abs(quarter - math.trunc(quarter)) > LEAP_TOLERANCE:
        return first - second + day - 30
    return first - 2 * second + day - 30


def cos_hour_angle(true_longitude, latitude):
    sine = 0.39782 * math.sin(true_longitude)
    declination = math.atan(sine / math.sqrt(1 - sine * sine))
    return ((-0.0145439 - math.sin(declination) * math.sin(latitude))
            / (math.cos(latitude) * math.cos(declination)))


def arcsine(x):
    root = math.sqrt(1 - x * x)
    return math.atan(x / root) if root else math.copysign(QUARTER_TURN, x)


def moment_of(rising, west, number):
    return number + (west + (QUARTER_TURN if rising else THREE_QUARTERS)) / FULL_TURN


def true_longitude(moment):
    anomaly = moment * 0.017202 + -0.0574039
    return turned(anomaly + 4.93289 + 0.0334405 * math.sin(anomaly) + 0.000349066 * math.sin(2 * anomaly))


def is_on_quadrant(longitude):
    quadrants = longitude / QUARTER_TURN
    return abs(quadrants - math.trunc(quadrants)) <= LEAP_TOLERANCE


def event(rising, west, latitude, zone, number):
    """(angle on the clock, cosine of the hour angle) of one event."""
    moment = moment_of(rising, west, number)
    longitude = true_longitude(moment)
    if is_on_quadrant(longitude):
        longitude += 4.84814e-06
    ascension = math.atan(0.91746 * math.tan(longitude))
    if longitude > THREE_QUARTERS:
        ascension += FULL_TURN
    elif longitude > QUARTER_TURN:
        ascension += HALF_TURN
    cosine = cos_hour_angle(longitude, latitude)
    if abs(cosine) > 1:
        return 0.0, cosine
    from_noon = arcsine(cosine)
    hour_angle = from_noon - QUARTER_TURN + FULL_TURN if rising else QUARTER_TURN - from_noon
    return ascension + hour_angle + moment * -0.0172028 + -1.73364 + west - zone, cosine


def events(west_longitude, latitude, west_zone_hours, year, month, day):
    number = day_number(year, month, day)
    return [event(rising, west_longitude * DEGREE, latitude * DEGREE, west_zone_hours * HOUR_ANGLE, number)
            for rising in (True, False)]


def sun_times(west_longitude, latitude, west_zone_hours, year, month, day):
    return tuple(packed(angle) for angle, _ in events(west_longitude, latitude, west_zone_hours, year, month, day))


def is_clear(case):
    """Whether the last bit of a sine, which differs between machines, cannot change the outcome."""
    for angle, cosine in events(*case):
        if abs(abs(cosine) - 1) < 1e-9:
            return False
        _, exact = minutes_of(angle)
        if abs(cosine) <= 1 and min(abs(exact - math.trunc(exact) - 0.5), exact, 60 - exact) < 1e-6:
            return False
    return True


def days_of(year):
    return [(year, month, day) for month in range(1, 13) for day in range(1, calendar.monthrange(year, month)[1] + 1)]


def cases():
    dice = random.Random(2024)
    # A place and its zone in summer and winter, each day of a common and a leap year by turns.
    places = [(75.0, 40.0, 4), (0.0, 51.5, 0), (-151.2, -33.9, -11), (-77.2, 28.6, -5.5), (-85.3, 27.7, -5.75),
              (52.7, 47.6, 3.5), (176.5, -44.0, -12.75), (-178.4, -18.1, -12), (171.7, -13.8, -13), (157.9, 21.3, 10),
              (-24.9, 60.2, -2), (-18.96, 69.65, -1)]
    for west, north, zone in places:
        for date in days_of(2023)[::9] + days_of(2024)[4::9]:
            yield west, north, zone, *date
    # The ends of the months, where the leap-year rule shows.
    for year in (1, 4, 100, 400, 1900, 1999, 2000, 2001, 2004, 2100, 2400, 9999, 32767):
        for month, day in ((1, 1), (2, 28), (2, 29), (3, 1), (12, 31)):
            yield 9.13, 38.72, 0, year, month, day
    # Both sides of the date line, the zero meridian, the equator and the poles.
    for west in (-180.0, -179.99, 179.99, 180.0, 0.0, 0.01, -0.01):
        for north in (-90.0, -89.99, -66.0, 0.0, 0.01, 66.0, 89.99, 90.0):
            for month, day in ((1, 1), (3, 20), (6, 21), (9, 23), (12, 21)):
                yield west, north, dice.choice((-12, 12, 0)), 2024, month, day
    # Where the sun stands at an equinox or a solstice, to the minute.
    for date in days_of(2024):
        for west in range(-1800, 1801, 3):
            if any(is_on_quadrant(true_longitude(moment_of(rising, west / 10 * DEGREE, day_number(*date))))
                   for rising in (True, False)):
                yield west / 10, 48.1, 0, *date
    # Anywhere, any day.
    for _ in range(1500):
        date = dice.choice(days_of(dice.choice((1970, 1996, 2000, 2024, 2025, 2026, 2027, 2100, 2345))))
        yield (round(dice.uniform(-180, 180), 2), round(dice.uniform(-90, 90), 2), dice.randrange(-56, 49) / 4, *date)


def main():
    print("// SPDX-License-Identifier: MIT")
    print("// Written by sun_times.py. {west longitude, latitude, west zone hours, year, month, day, sunrise, sunset}")
    for case in filter(is_clear, cases()):
        values = [f"{value:g}" for value in case] + [repr(time) for time in sun_times(*case)]
        print(f"{{{', '.join(values)}}},")


if __name__ == "__main__":
    main()
