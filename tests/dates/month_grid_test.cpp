// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"
#include "support/DateGuards.h"
#include "support/FixedClock.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

using namespace MonthGrid;

namespace {

struct Grid {
    int year;
    int month;
    bool startOnSunday;
    int weekdayOfFirst;
    int days;
    std::array<int, LastCell> dayInCell; // index 0 is cell 1
};

constexpr Grid Grids[] = {
#include "dates/month_grids.inc"
};

class MonthGridDates : public testing::Test {
    TimeZoneGuard m_zone{"America/New_York"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST(MonthGridCells, HoldTheDaysOfEveryShapeOfMonth)
{
    EXPECT_EQ(std::size(Grids), 7U * 4 * 2);
    for (const Grid& grid : Grids) {
        SCOPED_TRACE(std::to_string(grid.year) + "-" + std::to_string(grid.month) + (grid.startOnSunday ? "S" : "M"));
        for (int cell = FirstCell; cell <= LastCell; ++cell) {
            const int expected = grid.dayInCell.at(static_cast<std::size_t>(cell - FirstCell));
            EXPECT_EQ(dayOfCell(cell, grid.weekdayOfFirst, grid.startOnSunday, grid.days), expected);
            if (expected != 0) {
                EXPECT_EQ(cellOfDay(expected, grid.weekdayOfFirst, grid.startOnSunday), cell);
            }
        }
    }
}

TEST(MonthGridCells, StartWhereTheWeekdayOfTheFirstSays)
{
    constexpr int SundayFirst[] = {1, 2, 3, 4, 5, 6, 7};
    constexpr int MondayFirst[] = {7, 1, 2, 3, 4, 5, 6};
    for (int weekday = 0; weekday < DaysPerWeek; ++weekday) {
        EXPECT_EQ(startCell(weekday, true), SundayFirst[weekday]);
        EXPECT_EQ(startCell(weekday, false), MondayFirst[weekday]);
    }
}

TEST(MonthGridCells, OfTheLongestMonthEndInTheLastCell)
{
    EXPECT_EQ(cellOfDay(31, 6, true), 37);
    EXPECT_EQ(cellOfDay(31, 0, false), 37);
}

TEST(MonthGridTags, AreThoseOfTheWindowsLayout)
{
    EXPECT_EQ(miniDayTag(1), 1);
    EXPECT_EQ(miniDayTag(37), 37);
    EXPECT_EQ(NoMiniDayTag, 38);
    EXPECT_EQ(miniHeaderTag(0), 70);
    EXPECT_EQ(miniHeaderTag(6), 76);
    EXPECT_EQ(monthlyDayTag(1), 90);
    EXPECT_EQ(monthlyDayTag(37), 162);
    EXPECT_EQ(monthlyNoteTag(1), 91);
    EXPECT_EQ(monthlyNoteTag(37), 163);
    EXPECT_EQ(monthlyHeaderTag(0), 80);
    EXPECT_EQ(monthlyHeaderTag(6), 86);
    EXPECT_EQ(weeklyHeaderTag(0), 40);
    EXPECT_EQ(weeklyHeaderTag(6), 58);
    EXPECT_EQ(weeklyDayTag(0), 41);
    EXPECT_EQ(weeklyDayTag(6), 59);
    EXPECT_EQ(weeklyNoteTag(0), 42);
    EXPECT_EQ(weeklyNoteTag(6), 60);
}

TEST(MonthGridTags, NameOneElementEach)
{
    std::set<int> tags;
    for (int cell = FirstCell; cell <= LastCell; ++cell) {
        tags.insert({miniDayTag(cell), monthlyDayTag(cell), monthlyNoteTag(cell)});
    }
    for (int column = 0; column < DaysPerWeek; ++column) {
        tags.insert({miniHeaderTag(column), monthlyHeaderTag(column)});
        tags.insert({weeklyHeaderTag(column), weeklyDayTag(column), weeklyNoteTag(column)});
    }
    EXPECT_EQ(tags.size(), 3U * 37 + 5U * 7);
}

TEST(MonthGridTags, OfTheFirstMonthlyDayFollowTheWeekday)
{
    for (int weekday = 0; weekday < DaysPerWeek; ++weekday) {
        EXPECT_EQ(monthlyDayTag(startCell(weekday, true)), 90 + 2 * weekday);
        EXPECT_EQ(monthlyDayTag(startCell(weekday, false)), weekday == 0 ? 102 : 88 + 2 * weekday);
    }
}

TEST_F(MonthGridDates, AWeekdayIsCountedFromSunday)
{
    for (int day = 3; day <= 9; ++day) { // 3 March 2024 was a Sunday
        EXPECT_EQ(dayOfWeekForDate(DateUtilities::dateFromYear(2024, 3, day)), day - 3);
    }
}

TEST_F(MonthGridDates, TheFirstOfAMonthHasItsWeekday)
{
    for (const Grid& grid : Grids) {
        EXPECT_EQ(firstDayofMonth(grid.month, grid.year), grid.weekdayOfFirst) << grid.year << "-" << grid.month;
    }
}

TEST_F(MonthGridDates, AWeekBeginsOnSundayOrOnMondayAndASundaysWeekUnderMondayFirstOnTheDayAfter)
{
    constexpr int SundayFirst[] = {0, -1, -2, -3, -4, -5, -6};
    constexpr int MondayFirst[] = {1, 0, -1, -2, -3, -4, -5};
    for (int weekday = 0; weekday < DaysPerWeek; ++weekday) {
        EXPECT_EQ(weekStartOffset(weekday, true), SundayFirst[weekday]);
        EXPECT_EQ(weekStartOffset(weekday, false), MondayFirst[weekday]);
    }
}

TEST_F(MonthGridDates, SteppingAMonthWrapsTheYearOnlyAtItsEnds)
{
    const auto at = [](int year, int month) { return DateUtilities::dateFromYear(year, month, 1); };
    EXPECT_EQ(calcNewMonthYear(true, 12, 2024), at(2025, 1));
    EXPECT_EQ(calcNewMonthYear(true, 11, 2024), at(2024, 12));
    EXPECT_EQ(calcNewMonthYear(false, 1, 2024), at(2023, 12));
    EXPECT_EQ(calcNewMonthYear(false, 0, 2024), at(2023, 12));
    EXPECT_EQ(calcNewMonthYear(false, 2, 2024), at(2024, 1));
    EXPECT_EQ(calcNewYear(true, 2, 2024), at(2025, 2));
    EXPECT_EQ(calcNewYear(false, 12, 2024), at(2023, 12));
}

TEST_F(MonthGridDates, EmptyTextsShowNoMonth)
{
    EXPECT_EQ(yearMonthFromTexts(QStringLiteral("2024"), QStringLiteral("March")), (YearMonth{2024, 3}));
    EXPECT_EQ(yearMonthFromTexts(QString(), QStringLiteral("March")), YearMonth());
    EXPECT_EQ(yearMonthFromTexts(QStringLiteral("2024"), QString()), YearMonth());
    EXPECT_EQ(yearMonthFromTexts(QStringLiteral("2024"), QStringLiteral("Smarch")), (YearMonth{2024, 0}));
}

TEST_F(MonthGridDates, AMonthThatIsNotWholeIsTheCurrentOne)
{
    const FixedClock clock(utcDate(2026, 11, 22, 12));
    const ClockGuard guard(clock);
    EXPECT_EQ(orCurrent({2024, 3}), (YearMonth{2024, 3}));
    EXPECT_EQ(orCurrent({2024, 0}), (YearMonth{2026, 11}));
    EXPECT_EQ(orCurrent({0, 3}), (YearMonth{2026, 11}));
}

TEST_F(MonthGridDates, HeadersFollowTheColumns)
{
    EXPECT_EQ(weekdayHeaders(true).join(u' '), QStringLiteral("Sun Mon Tue Wed Thu Fri Sat"));
    EXPECT_EQ(weekdayHeaders(false).join(u' '), QStringLiteral("Mon Tue Wed Thu Fri Sat Sun"));
    const LocaleGuard german("en_US", {"de-DE"});
    EXPECT_EQ(weekdayHeaders(false).join(u' '), QStringLiteral("Mo Di Mi Do Fr Sa So"));
}

} // namespace
