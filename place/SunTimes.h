// SPDX-License-Identifier: MIT
#pragma once

#include "place/Coordinate.h"

#include <QString>

#include <optional>

class DateFormatter;

/// When the sun rises and sets, by the method of the United States Naval Observatory's "Almanac for Computers" (1990).
///
/// Longitudes and zone hours west of Greenwich are positive here, the opposite of `Coordinate`. A *packed clock time*
/// is hours (0 to 24) plus minutes (0 to 59) as hundredths: 5.31 is 05:31 and 20.1 is 20:10.
///
/// Compared with PyEphem at 13 cities from Ushuaia to Reykjavik, half of the times were within 0.5 minutes in 2025 and
/// 0.7 in 2024, 95 % within 1.4 and 2.5 minutes; the worst, both at Reykjavik, were 2.7 and 3.7 minutes off
/// (bench/sun-accuracy). Two oddities are kept: the right ascension's factor is 0.91746 where the almanac prints
/// 0.91764; and from March on the day of the year is one too high in common years and one too low in leap years, with
/// every century year counted as a leap year.
namespace SunTimes {

enum class Event { Sunrise, Sunset };

struct RiseAndSet {
    double sunrise = 0; ///< packed clock time; 0.0 (midnight) when the sun does not cross the horizon that day
    double sunset = 0;  ///< likewise

    bool operator==(const RiseAndSet&) const = default;
};

/// Both times of a day, as clocks show them in a zone `westZoneHours` behind Greenwich. Angles are in degrees; `month`
/// and `day` count from 1. Every argument must be finite.
RiseAndSet sunTime(double westLongitude, double latitude, double westZoneHours, double year, double month, double day);

/// The sun's angle from noon at `event`, in radians: 0 to pi at sunset, pi to 2 pi at sunrise. nullopt when the sun
/// does not cross the horizon, that is, when `cosine` lies beyond 1 or -1.
std::optional<double> hourAngle(Event event, double cosine);

/// The packed clock time of an angle in radians, a full turn being a day. It is rounded to the minute, so the day's
/// last half minute gives 24.0.
double angleToClock(double angle);

/// How far the process's zone is behind Greenwich at the present instant, in hours.
double timeZoneHours();

/// A packed clock time as `timeFormatter` writes it, for example "5:31 AM". The formatter must have been made in the
/// process's present zone.
QString clockText(double packedTime, const DateFormatter& timeFormatter);

/// Today's line for `place`, by the Gregorian calendar: `heading`, then both times, for example "Rise/Set: 5:31 AM/8:32
/// PM". nullopt when `place` is not a pair of finite numbers.
std::optional<QString> sunLine(const Coordinate& place, const QString& heading, const DateFormatter& timeFormatter);

} // namespace SunTimes
