// SPDX-License-Identifier: MIT
#include "dates/Week.h"

#include "dates/DateUtilities.h"

std::array<Week::Day, MonthGrid::DaysPerWeek> Week::daysFrom(Date date, int daysAhead)
{
    std::array<Day, MonthGrid::DaysPerWeek> days;
    std::int64_t julianDay = DateUtilities::julianDayFromDate(date) + daysAhead;
    for (Day& day : days) {
        day.number = DateUtilities::yearMonthDayFromJulianDay(julianDay);
        day.begin = DateUtilities::dateFromYear(day.number.year, day.number.month, day.number.day);
        day.isLeftOut = DateUtilities::isLeftOut(day.number);
        ++julianDay;
    }
    return days;
}

// The label is written in the long style, but in some languages the short style may read a long text as another day. So
// a reading counts only if the same style would write it back unchanged.
std::optional<Date> Week::firstDayFromText(const QString& text, DateFormatter& formatter)
{
    for (const DateFormatter::Style style : {DateFormatter::Style::Short, DateFormatter::Style::Long}) {
        formatter.setDateStyle(style);
        const std::optional<Date> day = formatter.dayFromString(text);
        if (day && formatter.stringFromDate(*day) == text) {
            return day;
        }
    }
    return std::nullopt;
}
