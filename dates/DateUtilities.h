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

/// A calendar day as the current calendar counts it: `month` from 1, `day` of the month from 1.
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

/// A difference of two dates, unit by unit.
struct DateComponents {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const DateComponents&) const = default;
};

/// The program's date library. Every service takes the present instant, the languages and the zone from
/// `DateEnvironment`, keeps nothing between calls, and may run on any thread.
///
/// The *current calendar* is the current locale's own (Gregorian, Buddhist, Persian ...) in the process's time zone.
/// Years, months and days are that calendar's, going in and coming out, unless a service says Gregorian.
///
/// Three sources of language are kept apart: numbers, weekday names and styles follow the current locale; names of
/// months taken from a date, and their inverse, the first preferred language; `monthNameFromNumber` the current locale
/// again. The calendar is always the current one, so that a month's name and a year beside it belong together.
///
/// A zone that crossed the date line may have left a whole day out. The calendar counts it all the same; the first
/// instant after it stands for it.
namespace DateUtilities {

/// The index of a name that a list does not hold.
inline constexpr std::int64_t NotFound = std::numeric_limits<std::int64_t>::max();

/// Calendar days from the day that holds `dateA` to the one that holds `dateB`, negative when `dateB` lies on an
/// earlier day; times of day never matter.
int daysBetweenDate(Date dateA, Date dateB);

/// Inverse of `YYYYMMDDStrFromDate` for years of four digits: the year from characters 0-3, the month from 4-5, the day
/// from 6 to the end; a piece that is no number counts as 0. At least 6 characters are the caller's duty.
Date dateFromYYMMDDStr(const QString& compactDay);

YearMonthDay yearMonthDayFromDate(Date date);

/// The compact day string, "20240305": the year unpadded, month and day with two digits.
QString YYYYMMDDStrFromDate(Date date);

/// Midnight of day 1 of month 1 of `currentYear`.
Date janFirstThisYear();

/// The day that begins `days` after 1 January 4713 BC (Julian), as `julianDayFromDate` counts them.
YearMonthDay yearMonthDayFromJulianDay(std::int64_t days);

/// Whether the zone left out the whole of that day, which must be one of the calendar.
bool isLeftOut(const YearMonthDay& day);

/// Midnight of that day. Nothing is checked: the calendar carries, so day 0 is the last day of the month before.
/// A midnight that the zone skips becomes the day's first instant; of one that it repeats, the first.
Date dateFromYear(int year, int month, int day);

/// Midnight at the start of the date's day; nothing when that midnight does not exist in the zone.
std::optional<Date> cleanseDate(Date date);

/// `date` moved by the years, then the months, then the days, either way, its time of day kept; after each of the first
/// two a day beyond a month's end becomes its last. The days are those of the calendar; a left-out one that would be
/// the result gives way to the next day in the direction of the days.
Date dateByAddingDays(Date date, int days, int months, int years);

/// The difference from `dateA` to `dateB`, the largest asked unit taken whole first; all fields have the same sign,
/// units not in `units` are 0.
DateComponents diffDate(Date dateA, Date dateB, CalendarUnits units);

QString componentOfDate(Date date, const DateFormatter& formatter);

QString mediumStyleFromDate(Date date);
QString longStyleFromDate(Date date);
QString shortStyleFromDate(Date date);

/// "2024", "03" and "5", in the current locale's digits.
QString yearFromDate(Date date);
QString monthFromDate(Date date);
QString dayFromDate(Date date);

/// The same three of the present instant.
QString currentYear();
QString currentMonth();
QString currentDay();

/// The first preferred language, with the calendar of the current locale, as a locale identifier.
std::string localeDevice();

/// A plain formatter in the first preferred language: the calendar stays that of the current locale.
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

/// Inverse of `monthNameFromDate`: 1-12. A name that is not in the list gives `NotFound` + 1, wrapped around to the
/// smallest value.
std::int64_t monthNumberFromName(const QString& monthName);

/// The name of month 1-12 as it stands within a date; nothing for any other number.
std::optional<QString> monthNameFromNumber(std::int64_t month);

/// Inverse of `dayNameFromDate`: 0 is Sunday, 6 Saturday, `NotFound` a name that is not in the list.
std::int64_t dayNumberFromName(const QString& dayName);

/// The number of days of the month that holds the date.
int daysInMonth(Date date);

/// The Julian day number of the calendar day that holds the date, counted from midnight to midnight: 2440588 is 1
/// January 1970, whatever the calendar.
std::int64_t julianDayFromDate(Date date);

/// Whether both lie on the same calendar day.
bool isThisDate(Date dateA, Date equalToSecondDate);

/// A formatter in the first preferred language with the format "EEE, MMM d, yyyy", in which lists show and read a day.
DateFormatter listDateFormatter();

/// Today's midnight, by way of `listDateFormatter`: now formatted and parsed back. On a day without a midnight, the
/// `dateFromYear` of today, which is the date that its notes carry.
Date today();

} // namespace DateUtilities
