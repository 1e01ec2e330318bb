// SPDX-License-Identifier: MIT
#include "calendar/Week.h"

#include "dates/DateUtilities.h"

std::array<Date, MonthGrid::DaysPerWeek> Week::daysFrom(Date date)
{
    std::array<Date, MonthGrid::DaysPerWeek> days;
    int daysAhead = 0;
    for (Date& day : days) {
        // Not each from the one before: the hour of a day without a midnight would stay with those after it.
        const auto [year, month, dayOfMonth] =
            DateUtilities::yearMonthDayFromDate(DateUtilities::dateByAddingDays(date, daysAhead, 0, 0));
        day = DateUtilities::dateFromYear(year, month, dayOfMonth);
        ++daysAhead;
    }
    return days;
}

// The label is written in the long style, and in some language the short style may take a long text for another day. So
// what the short style reads counts only if it would write it the same way; then no reading can be a wrong one.
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
