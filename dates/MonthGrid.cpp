// SPDX-License-Identifier: MIT
#include "dates/MonthGrid.h"

#include "dates/DateUtilities.h"
#include "text/IntegerValue.h"

namespace {

Date firstDayOf(MonthGrid::YearMonth month)
{
    return DateUtilities::dateFromYear(month.year, month.month, 1);
}

} // namespace

int MonthGrid::dayOfWeekForDate(Date date)
{
    return static_cast<int>(DateUtilities::dayNumberFromName(DateUtilities::dayNameFromDate(date)));
}

int MonthGrid::firstDayofMonth(int month, int year)
{
    return dayOfWeekForDate(firstDayOf({year, month}));
}

Date MonthGrid::calcNewMonthYear(bool forward, int month, int year)
{
    return firstDayOf(steppedMonth(forward, {year, month}));
}

Date MonthGrid::calcNewYear(bool forward, int month, int year)
{
    return firstDayOf(steppedYear(forward, {year, month}));
}

MonthGrid::YearMonth MonthGrid::currentYearMonth()
{
    return {integerValue(DateUtilities::currentYear()), integerValue(DateUtilities::currentMonth())};
}

std::vector<Date> MonthGrid::daysOfMonth(Date date)
{
    const auto [year, month, dayOfDate] = DateUtilities::yearMonthDayFromDate(date);
    const int count = DateUtilities::daysInMonth(date);
    std::vector<Date> days;
    days.reserve(static_cast<std::size_t>(count));
    for (int day = 1; day <= count; ++day) {
        days.push_back(DateUtilities::dateFromYear(year, month, day));
    }
    return days;
}

MonthGrid::YearMonth MonthGrid::orCurrent(YearMonth shown)
{
    return shown.year == 0 || shown.month == 0 ? currentYearMonth() : shown;
}

MonthGrid::YearMonth MonthGrid::yearMonthFromTexts(const QString& yearText, const QString& monthName)
{
    if (yearText.isEmpty() || monthName.isEmpty()) {
        return {};
    }
    const std::int64_t month = DateUtilities::monthNumberFromName(monthName);
    return {integerValue(yearText), month > 0 ? static_cast<int>(month) : 0};
}

QStringList MonthGrid::weekdayHeaders(bool startOnSunday)
{
    const QStringList symbols = DateUtilities::copyFormatterForLocaleDevice().shortStandaloneWeekdaySymbols();
    QStringList headers;
    for (int column = 0; column < DaysPerWeek; ++column) {
        headers.append(symbols.value(weekdayOfColumn(column, startOnSunday)));
    }
    return headers;
}
