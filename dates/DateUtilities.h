// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "dates/DateFormatter.h"

#include <QFlags>
#include <QString>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

/// A calendar day in the current calendar; `month` and `day` count from 1.
struct YearMonthDay {
    int year = 0;
    int month = 0;
    int day = 0;

    bool operator==(const YearMonthDay&) const = default;
};

enum class CalendarUnit : unsigned {
    Year = 1U << 0,
    Month = 1U << 1,
    Day = 1U << 2,
    Hour = 1U << 3,
    Minute = 1U << 4,
    Second = 1U << 5,
};
Q_DECLARE_FLAGS(CalendarUnits, CalendarUnit)
Q_DECLARE_OPERATORS_FOR_FLAGS(CalendarUnits)

/// The difference between two dates, unit by unit.
struct DateComponents {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const DateComponents&) const = default;
};

/// The program's date library. Every function takes the present instant, the languages and the zone from
/// `DateEnvironment`, keeps no state between calls, and may run on any thread.
///
/// The *current calendar* is the current locale's own (Gregorian, Buddhist, Persian ...) in the process's time zone.
/// Years, months and days, as arguments and as results, belong to it unless a function says Gregorian.
///
/// Languages differ by purpose: numbers, weekday names and styles follow the current locale; a date's month name and
/// its inverse follow the first preferred language; `monthNameFromNumber` follows the current locale again. The
/// calendar is always the current one, so that a month's name agrees with the year beside it.
///
/// A zone that moved across the date line may have left out a whole day. The calendar still counts that day, and the
/// first instant after it stands for it.
namespace DateUtilities {

/// The index given for a name that is not in the list.
inline constexpr std::int64_t NotFound = std::numeric_limits<std::int64_t>::max();

/// Calendar days from the day of `dateA` to the day of `dateB`, negative when `dateB` lies on an earlier day; times of
/// day do not matter.
int daysBetweenDate(Date dateA, Date dateB);

/// Inverse of `YYYYMMDDStrFromDate` for years of four digits: the year from characters 0-3, the month from 4-5, the day
/// from 6 to the end; a piece that is not a number counts as 0. The caller must pass at least 6 characters.
Date dateFromYYMMDDStr(const QString& compactDay);

YearMonthDay yearMonthDayFromDate(Date date);

/// The compact day string, "20240305": the year unpadded, month and day with two digits.
QString YYYYMMDDStrFromDate(Date date);

/// Midnight of day 1 of month 1 of `currentYear`.
Date janFirstThisYear();

/// The day that begins `days` after 1 January 4713 BC (Julian), as `julianDayFromDate` counts them.
YearMonthDay yearMonthDayFromJulianDay(std::int64_t days);

/// Whether the zone left out the whole of `day`, which must exist in the calendar.
bool isLeftOut(const YearMonthDay& day);

/// Midnight of that day. Nothing is checked: out-of-range numbers carry over, so day 0 is the last day of the month
/// before. Where the zone skips midnight, the day's first instant; where it repeats midnight, the first of the two.
Date dateFromYear(int year, int month, int day);

/// Midnight at the start of the date's day; nullopt when the zone skips that midnight.
std::optional<Date> cleanseDate(Date date);

/// `date` moved by the years, then the months, then the days, each forward or back, keeping its time of day. After the
/// years and after the months, a day beyond the end of the month becomes its last. Days are calendar days; a result
/// that the zone left out becomes the next day in the direction of `days`.
Date dateByAddingDays(Date date, int days, int months, int years);

/// The difference from `dateA` to `dateB`: as many of the largest unit in `units` as fit, then of the next on the
/// remainder. All fields have the same sign; units not in `units` are 0.
DateComponents diffDate(Date dateA, Date dateB, CalendarUnits units);

QString componentOfDate(Date date, const DateFormatter& formatter);

QString mediumStyleFromDate(Date date);
QString longStyleFromDate(Date date);
QString shortStyleFromDate(Date date);

/// "2024", "03" and "5", in the current locale's digits.
QString yearFromDate(Date date);
QString monthFromDate(Date date);
QString dayFromDate(Date date);

/// The same for the present instant.
QString currentYear();
QString currentMonth();
QString currentDay();

/// A locale identifier made of the first preferred language and the calendar of the current locale.
std::string localeDevice();

/// A plain formatter for `localeDevice`.
DateFormatter copyFormatterForLocaleDevice();

/// "Tuesday" and "Tue".
QString dayNameFromDate(Date date);
QString shortDayNameFromDate(Date date);

/// "M", "Mar" and "March": names that stand alone.
QString veryShortMonthNameFromDate(Date date);
QString shortMonthNameFromDate(Date date);
QString monthNameFromDate(Date date);

/// Gregorian: 1 is Sunday, 7 Saturday.
int weekDayNumberFromDate(Date date);

/// Gregorian: 1-12.
int monthNumberFromDate(Date date);

/// Inverse of `monthNameFromDate`: 1-12. A name that is not in the list gives `NotFound` + 1, which wraps around to the
/// smallest value.
std::int64_t monthNumberFromName(const QString& monthName);

/// The name of month 1-12 as it is written within a date; nullopt for any other number.
std::optional<QString> monthNameFromNumber(std::int64_t month);

/// Inverse of `dayNameFromDate`: 0 is Sunday, 6 Saturday; `NotFound` for a name that is not in the list.
std::int64_t dayNumberFromName(const QString& dayName);

/// The number of days in the date's month.
int daysInMonth(Date date);

/// The Julian day number of the date's calendar day, counted from midnight to midnight whatever the calendar: 2440588
/// is 1 January 1970.
std::int64_t julianDayFromDate(Date date);

/// Whether both lie on the same calendar day.
bool isThisDate(Date dateA, Date equalToSecondDate);

/// A formatter for `localeDevice` with the format "EEE, MMM d, yyyy", in which lists show and read a day.
DateFormatter listDateFormatter();

/// Today's midnight, formatted and parsed back by `listDateFormatter`. Where the zone skips that midnight,
/// `dateFromYear` of today, which is the date that today's notes carry.
Date today();

} // namespace DateUtilities
