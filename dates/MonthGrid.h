// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The arithmetic shared by the mini calendar, the monthly and the weekly view, and the numbers (tags) by which they
/// find their cells.
///
/// A weekday number is 0 (Sunday) to 6 (Saturday). A cell number is 1 to 37, seven to a row; a column is 0 to 6.
/// `startOnSunday` says whether a week's first column is Sunday or Monday.
namespace MonthGrid {

inline constexpr int DaysPerWeek = 7;
inline constexpr int FirstCell = 1;
inline constexpr int LastCell = 37; ///< 6 leading blanks and 31 days
inline constexpr int Sunday = 0;

/// A month of the current calendar, `month` 1-12. Both 0 when no month is shown.
struct YearMonth {
    int year = 0;
    int month = 0;

    bool operator==(const YearMonth&) const = default;
};

// The tags of the mini calendar: the day button of each cell, then the weekday headers.
constexpr int miniDayTag(int cell)
{
    return cell;
}
inline constexpr int NoMiniDayTag = LastCell + 1; ///< the result of a search that finds no day; no button has this tag
inline constexpr int MiniHeaderFirstTag = 70;
constexpr int miniHeaderTag(int column)
{
    return MiniHeaderFirstTag + column;
}

// The tags of the monthly view: day number and note text of each cell in turn, then the weekday headers.
inline constexpr int MonthlyDayFirstTag = 90;
inline constexpr int MonthlyTagsPerCell = 2;
inline constexpr int MonthlyHeaderFirstTag = 80;
constexpr int monthlyDayTag(int cell)
{
    return MonthlyDayFirstTag + MonthlyTagsPerCell * (cell - FirstCell);
}
constexpr int monthlyNoteTag(int cell)
{
    return monthlyDayTag(cell) + 1;
}
constexpr int monthlyHeaderTag(int column)
{
    return MonthlyHeaderFirstTag + column;
}

// The tags of the weekly view: weekday header, day number and note text of each column in turn.
inline constexpr int WeeklyFirstTag = 40;
inline constexpr int WeeklyTagsPerColumn = 3;
constexpr int weeklyHeaderTag(int column)
{
    return WeeklyFirstTag + WeeklyTagsPerColumn * column;
}
constexpr int weeklyDayTag(int column)
{
    return weeklyHeaderTag(column) + 1;
}
constexpr int weeklyNoteTag(int column)
{
    return weeklyHeaderTag(column) + 2;
}

/// The cell of day 1 in a month that begins on `weekdayOfFirst`.
constexpr int startCell(int weekdayOfFirst, bool startOnSunday)
{
    if (startOnSunday) {
        return weekdayOfFirst + 1;
    }
    return weekdayOfFirst == Sunday ? DaysPerWeek : weekdayOfFirst;
}

/// The day of the month that `cell` shows, 0 when it is blank.
constexpr int dayOfCell(int cell, int weekdayOfFirst, bool startOnSunday, int daysInMonth)
{
    const int day = cell - startCell(weekdayOfFirst, startOnSunday) + 1;
    return day >= 1 && day <= daysInMonth ? day : 0;
}

/// The cell that shows `day` of the month.
constexpr int cellOfDay(int day, int weekdayOfFirst, bool startOnSunday)
{
    return startCell(weekdayOfFirst, startOnSunday) + day - 1;
}

/// The row (0 is the first week) and the column of a cell.
constexpr int rowOfCell(int cell)
{
    return (cell - FirstCell) / DaysPerWeek;
}
constexpr int columnOfCell(int cell)
{
    return (cell - FirstCell) % DaysPerWeek;
}

/// The weekday number that heads `column`.
constexpr int weekdayOfColumn(int column, bool startOnSunday)
{
    return (column + (startOnSunday ? 0 : 1)) % DaysPerWeek;
}

/// Days from a date on `weekday` to the first day of the week that the weekly view shows for it. When weeks start on
/// Monday, a Sunday gives +1: the view shows the week that begins the day after.
constexpr int weekStartOffset(int weekday, bool startOnSunday)
{
    return (startOnSunday ? 0 : 1) - weekday;
}

/// The month after `from` (`forward`) or before it. The year changes only after month 12 and before months below 2.
constexpr YearMonth steppedMonth(bool forward, YearMonth from)
{
    if (forward) {
        return from.month < 12 ? YearMonth{from.year, from.month + 1} : YearMonth{from.year + 1, 1};
    }
    return from.month < 2 ? YearMonth{from.year - 1, 12} : YearMonth{from.year, from.month - 1};
}

/// The same month a year later (`forward`) or earlier.
constexpr YearMonth steppedYear(bool forward, YearMonth from)
{
    return {from.year + (forward ? 1 : -1), from.month};
}

/// The weekday number of the date, looked up by its name in the current locale.
int dayOfWeekForDate(Date date);

/// The weekday number of day 1 of that month.
int firstDayofMonth(int month, int year);

/// Midnight of day 1 of the month that `steppedMonth` or `steppedYear` gives.
Date calcNewMonthYear(bool forward, int month, int year);
Date calcNewYear(bool forward, int month, int year);

/// The month that holds now.
YearMonth currentYearMonth();

/// The month, or the one that holds now where its year or its month is missing.
YearMonth orCurrent(YearMonth shown);

/// The first instant of each day of the month that holds `date`, which is the date that the day's notes carry. For a
/// day that the zone left out (`DateUtilities::isLeftOut`), the first instant of the day after it.
std::vector<Date> daysOfMonth(Date date);

/// The month that a year and a month name, as written by `yearFromDate` and `monthNameFromDate`, stand for. {0, 0} when
/// either is empty; month 0 when the first preferred language has no such name.
YearMonth yearMonthFromTexts(const QString& yearText, const QString& monthName);

/// The weekday names above the columns, in column order: short, as written alone, in the first preferred language.
QStringList weekdayHeaders(bool startOnSunday);

} // namespace MonthGrid
