// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace DateUtilities;
using namespace std::chrono_literals;

namespace {

/// In UTC, so that expected instants come from <chrono>.
class DateUtilitiesTest : public testing::Test {
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

const Date FifthOfMarch = utcDate(2024, 3, 5); // a Tuesday

TEST_F(DateUtilitiesTest, TheCompactDayStringPadsMonthAndDayOnly)
{
    EXPECT_EQ(YYYYMMDDStrFromDate(FifthOfMarch), QStringLiteral("20240305"));
    EXPECT_EQ(YYYYMMDDStrFromDate(utcDate(2024, 12, 10)), QStringLiteral("20241210"));
    EXPECT_EQ(YYYYMMDDStrFromDate(utcDate(2024, 9, 9)), QStringLiteral("20240909"));
    EXPECT_EQ(YYYYMMDDStrFromDate(utcDate(2024, 10, 31)), QStringLiteral("20241031"));
    EXPECT_EQ(YYYYMMDDStrFromDate(dateFromYear(812, 6, 1)), QStringLiteral("8120601"));
}

TEST_F(DateUtilitiesTest, ACompactDayStringReadsBack)
{
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("20240305")), FifthOfMarch);
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("2024035")), FifthOfMarch);
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("19201210")), utcDate(1920, 12, 10));
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("202403")), utcDate(2024, 2, 29)) << "no day is day 0";
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("2024xx05")), utcDate(2023, 12, 5)) << "no number is month 0";
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("202403031")), utcDate(2024, 3, 31)) << "the day runs to the end";
}

TEST_F(DateUtilitiesTest, DaysBetweenIgnoreTimesOfDay)
{
    EXPECT_EQ(daysBetweenDate(utcDate(2024, 1, 1, 23, 59), utcDate(2024, 1, 2, 0, 1)), 1);
    EXPECT_EQ(daysBetweenDate(utcDate(2024, 1, 2, 0, 1), utcDate(2024, 1, 1, 23, 59)), -1);
    EXPECT_EQ(daysBetweenDate(utcDate(2024, 1, 1), utcDate(2024, 1, 1, 23, 59, 59)), 0);
    EXPECT_EQ(daysBetweenDate(utcDate(2024, 2, 28), utcDate(2024, 3, 1)), 2);
    EXPECT_EQ(daysBetweenDate(utcDate(1899, 12, 31), utcDate(2100, 1, 1)), 73050); // Python: (date - date).days
    EXPECT_EQ(daysBetweenDate(utcDate(1969, 12, 31, 23), utcDate(1970, 1, 1)), 1);
}

TEST_F(DateUtilitiesTest, ADayIsReadAsYearMonthAndDay)
{
    EXPECT_EQ(yearMonthDayFromDate(FifthOfMarch + 23h), (YearMonthDay{2024, 3, 5}));
    EXPECT_EQ(yearMonthDayFromDate(dateFromUnixSeconds(-0.5)), (YearMonthDay{1969, 12, 31}));
}

TEST_F(DateUtilitiesTest, ADayMadeFromNumbersIsMidnightAndCarries)
{
    EXPECT_EQ(dateFromYear(2024, 3, 5), FifthOfMarch);
    EXPECT_EQ(dateFromYear(2024, 3, 0), utcDate(2024, 2, 29));
    EXPECT_EQ(dateFromYear(2023, 3, 0), utcDate(2023, 2, 28));
    EXPECT_EQ(dateFromYear(2023, 2, 30), utcDate(2023, 3, 2));
    EXPECT_EQ(dateFromYear(2024, 13, 1), utcDate(2025, 1, 1));
    EXPECT_EQ(dateFromYear(2024, 0, 1), utcDate(2023, 12, 1));
    EXPECT_EQ(dateFromYear(1899, 12, 31), utcDate(1899, 12, 31));
    EXPECT_EQ(dateFromYear(2069, 12, 31), utcDate(2069, 12, 31));
    EXPECT_EQ(dateFromYear(2100, 2, 29), utcDate(2100, 3, 1)) << "2100 is no leap year";
}

TEST_F(DateUtilitiesTest, CleansingTakesTheTimeAway)
{
    EXPECT_EQ(cleanseDate(FifthOfMarch + 13h + 7min), FifthOfMarch);
    EXPECT_EQ(cleanseDate(FifthOfMarch), FifthOfMarch);
    EXPECT_EQ(cleanseDate(utcDate(1899, 5, 6, 7)), utcDate(1899, 5, 6));
    EXPECT_EQ(cleanseDate(utcDate(2085, 5, 6, 7)), utcDate(2085, 5, 6));
}

TEST_F(DateUtilitiesTest, AddingStopsAtTheEndOfAMonth)
{
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 1, 31, 9, 30), 0, 1, 0), utcDate(2024, 2, 29, 9, 30));
    EXPECT_EQ(dateByAddingDays(utcDate(2023, 1, 31), 0, 1, 0), utcDate(2023, 2, 28));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 2, 29), 0, 0, 1), utcDate(2025, 2, 28));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 3, 31), 0, -1, 0), utcDate(2024, 2, 29));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 1, 1), -1, 0, 0), utcDate(2023, 12, 31));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 1, 31), 1, 1, 1), utcDate(2025, 3, 1));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 1, 1, 5), 0, 0, 0), utcDate(2024, 1, 1, 5));
}

// Years first, and the day cut at that month's end, then months: not as many months at once. Worked by hand.
TEST_F(DateUtilitiesTest, YearsAndMonthsAreTwoSteps)
{
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 2, 29), 0, 1, 1), utcDate(2025, 3, 28));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 2, 29), 0, -1, -1), utcDate(2023, 1, 28));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 2, 29), 3, 1, 1), utcDate(2025, 3, 31));
    const CalendarUnits day = CalendarUnit::Year | CalendarUnit::Month | CalendarUnit::Day;
    EXPECT_EQ(diffDate(utcDate(2020, 2, 29), utcDate(2021, 3, 29), day), (DateComponents{1, 1, 1}));
    EXPECT_EQ(diffDate(utcDate(2020, 2, 29), utcDate(2021, 3, 28), day), (DateComponents{1, 1, 0}));
    EXPECT_EQ(diffDate(utcDate(2024, 2, 29), utcDate(2023, 1, 29), day), (DateComponents{-1, 0, -30}));
}

TEST_F(DateUtilitiesTest, ADifferenceTakesTheLargestAskedUnitFirst)
{
    const Date from = utcDate(2020, 1, 1);
    const Date to = utcDate(2023, 3, 6, 12, 30, 15);
    const CalendarUnits all = CalendarUnit::Year | CalendarUnit::Month | CalendarUnit::Day | CalendarUnit::Hour |
                              CalendarUnit::Minute | CalendarUnit::Second;
    EXPECT_EQ(diffDate(from, to, all), (DateComponents{3, 2, 5, 12, 30, 15}));
    EXPECT_EQ(diffDate(to, from, all), (DateComponents{-3, -2, -5, -12, -30, -15}));
    EXPECT_EQ(diffDate(from, to, CalendarUnit::Month), (DateComponents{0, 38}));
    EXPECT_EQ(diffDate(from, to, CalendarUnit::Day | CalendarUnit::Hour), (DateComponents{0, 0, 1160, 12}));
    EXPECT_EQ(diffDate(from, to, CalendarUnits()), DateComponents());
    EXPECT_EQ(diffDate(from, from + 23h, CalendarUnit::Day), DateComponents());
}

TEST_F(DateUtilitiesTest, TextsOfADayInEnglish)
{
    EXPECT_EQ(yearFromDate(FifthOfMarch), QStringLiteral("2024"));
    EXPECT_EQ(monthFromDate(FifthOfMarch), QStringLiteral("03"));
    EXPECT_EQ(dayFromDate(FifthOfMarch), QStringLiteral("5"));
    EXPECT_EQ(dayNameFromDate(FifthOfMarch), QStringLiteral("Tuesday"));
    EXPECT_EQ(shortDayNameFromDate(FifthOfMarch), QStringLiteral("Tue"));
    EXPECT_EQ(monthNameFromDate(FifthOfMarch), QStringLiteral("March"));
    EXPECT_EQ(shortMonthNameFromDate(FifthOfMarch), QStringLiteral("Mar"));
    EXPECT_EQ(veryShortMonthNameFromDate(FifthOfMarch), QStringLiteral("M"));
    EXPECT_EQ(shortStyleFromDate(FifthOfMarch), QStringLiteral("3/5/24"));
    EXPECT_EQ(mediumStyleFromDate(FifthOfMarch), QStringLiteral("Mar 5, 2024"));
    EXPECT_EQ(longStyleFromDate(FifthOfMarch), QStringLiteral("March 5, 2024"));
    DateFormatter formatter;
    formatter.setDateFormat(QStringLiteral("d.M.yy"));
    EXPECT_EQ(componentOfDate(FifthOfMarch, formatter), QStringLiteral("5.3.24"));
}

TEST_F(DateUtilitiesTest, ThePresentComesFromTheClock)
{
    FixedClock clock(utcDate(2026, 2, 7, 18));
    const ClockGuard guard(clock);
    EXPECT_EQ(currentYear(), QStringLiteral("2026"));
    EXPECT_EQ(currentMonth(), QStringLiteral("02"));
    EXPECT_EQ(currentDay(), QStringLiteral("7"));
    EXPECT_EQ(janFirstThisYear(), utcDate(2026, 1, 1));
    EXPECT_EQ(today(), utcDate(2026, 2, 7));
    clock.advance(6h);
    EXPECT_EQ(today(), utcDate(2026, 2, 8));
}

TEST_F(DateUtilitiesTest, MonthNamesByNumberEndAtTwelve)
{
    EXPECT_EQ(monthNameFromNumber(1), QStringLiteral("January"));
    EXPECT_EQ(monthNameFromNumber(12), QStringLiteral("December"));
    for (const std::int64_t outside : {std::int64_t{0}, std::int64_t{13}, std::int64_t{-1}, NotFound, NotFound + -1,
                                       std::numeric_limits<std::int64_t>::min()}) {
        EXPECT_FALSE(monthNameFromNumber(outside).has_value()) << outside;
    }
}

TEST_F(DateUtilitiesTest, AnUnknownNameIsNotFound)
{
    EXPECT_EQ(NotFound, 9223372036854775807);
    EXPECT_EQ(dayNumberFromName(QStringLiteral("Someday")), NotFound);
    EXPECT_EQ(dayNumberFromName(QString()), NotFound);
    EXPECT_EQ(dayNumberFromName(QStringLiteral("sunday")), NotFound);
    EXPECT_EQ(monthNumberFromName(QStringLiteral("Smarch")), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(monthNumberFromName(QStringLiteral("March")), 3);
    EXPECT_EQ(dayNumberFromName(QStringLiteral("Saturday")), 6);
}

TEST_F(DateUtilitiesTest, GregorianNumbersAndLengths)
{
    EXPECT_EQ(weekDayNumberFromDate(utcDate(2024, 3, 3)), 1);
    EXPECT_EQ(weekDayNumberFromDate(utcDate(2024, 3, 9)), 7);
    EXPECT_EQ(dayNumberFromName(dayNameFromDate(utcDate(2024, 3, 3))), 0);
    EXPECT_EQ(monthNumberFromDate(FifthOfMarch), 3);
    EXPECT_EQ(daysInMonth(utcDate(2024, 2, 1)), 29);
    EXPECT_EQ(daysInMonth(utcDate(2023, 2, 28)), 28);
    EXPECT_EQ(daysInMonth(utcDate(2100, 2, 1)), 28);
    EXPECT_EQ(daysInMonth(utcDate(2024, 4, 30, 23, 59)), 30);
    EXPECT_EQ(daysInMonth(utcDate(2024, 12, 31)), 31);
}

TEST_F(DateUtilitiesTest, JulianDaysCountFromMidnightToMidnightInTheZone)
{
    EXPECT_EQ(julianDayFromDate(utcDate(1970, 1, 1)), 2440588);
    EXPECT_EQ(julianDayFromDate(utcDate(1969, 12, 31, 23, 59, 59)), 2440587);
    EXPECT_EQ(julianDayFromDate(utcDate(2000, 1, 1, 12)), 2451545); // the epoch of astronomers
    EXPECT_EQ(julianDayFromDate(utcDate(1800, 1, 1)), 2378497);
    const TimeZoneGuard tokyo("Asia/Tokyo");
    const LocaleGuard thai("th_TH", {"th"});
    EXPECT_EQ(julianDayFromDate(utcDate(1969, 12, 31, 15)), 2440588);
    EXPECT_EQ(julianDayFromDate(utcDate(1969, 12, 31, 14, 59)), 2440587);
}

TEST_F(DateUtilitiesTest, AJulianDayNumberGivesItsDay)
{
    EXPECT_EQ(yearMonthDayFromJulianDay(2440588), (YearMonthDay{1970, 1, 1}));
    EXPECT_EQ(yearMonthDayFromJulianDay(2451545), (YearMonthDay{2000, 1, 1}));
    const TimeZoneGuard apia("Pacific/Apia");
    EXPECT_EQ(yearMonthDayFromJulianDay(2455926), (YearMonthDay{2011, 12, 30})) << "which was not there";
    const LocaleGuard thai("th_TH", {"th"});
    EXPECT_EQ(yearMonthDayFromJulianDay(2440588), (YearMonthDay{2513, 1, 1}));
}

TEST_F(DateUtilitiesTest, TwoDatesAreTheSameDayWhateverTheirTimes)
{
    EXPECT_TRUE(isThisDate(FifthOfMarch, FifthOfMarch + 23h + 59min));
    EXPECT_FALSE(isThisDate(FifthOfMarch, FifthOfMarch + 24h));
    EXPECT_FALSE(isThisDate(FifthOfMarch, utcDate(2024, 4, 5)));
    EXPECT_FALSE(isThisDate(FifthOfMarch, utcDate(2025, 3, 5)));
}

} // namespace
