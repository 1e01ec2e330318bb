// SPDX-License-Identifier: MIT
// The holidays of the present year, against tables made by another program (holidays_data.py).
#include "dates/DateUtilities.h"
#include "dates/Holidays.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace Holidays;
using namespace std::chrono_literals;

namespace {

constexpr int PresidentsDay = 1; ///< in the sheet's order
constexpr int EasterDay = 3;

constexpr std::array<Date (*)(), count> NamedHolidays = {
    DateUtilities::janFirstThisYear,
    presidentsDay,
    dstStart,
    easterDay,
    memorialDay,
    mothersDay,
    fathersDay,
    indepenDay,
    laborDay,
    dstEnd,
    veteransDay,
    thanksGiving,
    xmasEve,
    xmas,
};

/// The holidays as the law words them, each as month * 100 + day.
struct YearOfHolidays {
    int year;
    std::array<int, count> days;
};

constexpr YearOfHolidays Years[] = {
#include "dates/holidays_days.inc"
};

/// Among these each day of the year falls on every weekday.
constexpr int WeekdayYears[] = {2018, 2019, 2020, 2021, 2022, 2023, 2024, 2025, 2026};

struct ZoneYear {
    const char* zone;
    int year;
    std::array<double, count> firstInstants;
};

constexpr ZoneYear ZoneYears[] = {
#include "dates/holidays_zones.inc"
};

std::chrono::weekday weekdayOfUtc(Date date)
{
    return std::chrono::weekday(
        std::chrono::floor<std::chrono::days>(std::chrono::time_point_cast<std::chrono::system_clock::duration>(date)));
}

/// Presidents' Day comes a week after the third Monday when 1 February is a Sunday.
Date::duration delayOfPresidentsDay(int year)
{
    return weekdayOfUtc(utcDate(year, 2, 1)) == std::chrono::Sunday ? Date::duration(168h) : Date::duration(0h);
}

/// Midnight, UTC, of what the program shows for holiday `index` of the row's year.
Date expectedDate(const YearOfHolidays& row, std::size_t index)
{
    const auto day = static_cast<unsigned>(row.days[index]);
    const Date date = utcDate(row.year, day / 100, day % 100);
    return index == PresidentsDay ? date + delayOfPresidentsDay(row.year) : date;
}

const YearOfHolidays& rowOf(int year)
{
    return *std::find_if(std::begin(Years), std::end(Years),
                         [year](const YearOfHolidays& row) { return row.year == year; });
}

/// In UTC, so that expected instants come from <chrono>.
class HolidaysTest : public testing::Test {
protected:
    /// The present becomes noon of 1 July of `year`.
    void setYear(int year) { m_clock.set(utcDate(year, 7, 1, 12)); }

    FixedClock m_clock{utcDate(2024, 7, 1, 12)};

private:
    ClockGuard m_clockGuard{m_clock};
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST_F(HolidaysTest, AreTheOnesOfTheTableFrom1970To2100)
{
    ASSERT_EQ(std::size(Years), 131U);
    for (const YearOfHolidays& row : Years) {
        setYear(row.year);
        for (std::size_t index = 0; index < NamedHolidays.size(); ++index) {
            EXPECT_EQ(NamedHolidays[index](), expectedDate(row, index)) << row.year << ", holiday " << index;
        }
    }
}

TEST_F(HolidaysTest, OfTheSheetComeInItsOrder)
{
    const YearOfHolidays& row = rowOf(2024);
    setYear(row.year);
    for (std::size_t index = 0; index < NamedHolidays.size(); ++index) {
        EXPECT_EQ(dateOfHoliday(static_cast<int>(index)), expectedDate(row, index)) << index;
    }
}

TEST_F(HolidaysTest, Of2024)
{
    setYear(2024);
    EXPECT_EQ(presidentsDay(), utcDate(2024, 2, 19));
    EXPECT_EQ(dstStart(), utcDate(2024, 3, 10));
    EXPECT_EQ(easterDay(), utcDate(2024, 3, 31));
    EXPECT_EQ(memorialDay(), utcDate(2024, 5, 27));
    EXPECT_EQ(mothersDay(), utcDate(2024, 5, 12));
    EXPECT_EQ(fathersDay(), utcDate(2024, 6, 16));
    EXPECT_EQ(indepenDay(), utcDate(2024, 7, 4));
    EXPECT_EQ(laborDay(), utcDate(2024, 9, 2));
    EXPECT_EQ(dstEnd(), utcDate(2024, 11, 3));
    EXPECT_EQ(veteransDay(), utcDate(2024, 11, 11));
    EXPECT_EQ(thanksGiving(), utcDate(2024, 11, 28));
    EXPECT_EQ(xmasEve(), utcDate(2024, 12, 24));
    EXPECT_EQ(xmas(), utcDate(2024, 12, 25));
}

TEST_F(HolidaysTest, PresidentsDayIsTheFourthMondayWhenFebruaryBeginsOnASunday)
{
    for (const int year : {2015, 2026}) {
        setYear(year);
        EXPECT_EQ(presidentsDay(), utcDate(year, 2, 23));
    }
    setYear(2021); // 1 February on a Monday
    EXPECT_EQ(presidentsDay(), utcDate(2021, 2, 15));
    setYear(2025); // on a Saturday
    EXPECT_EQ(presidentsDay(), utcDate(2025, 2, 17));
    setYear(2022); // on a Tuesday
    EXPECT_EQ(presidentsDay(), utcDate(2022, 2, 21));
}

TEST_F(HolidaysTest, MemorialDayIsTheLastMondayWhicheverDayMayEndsOn)
{
    setYear(2021); // 31 May on a Monday
    EXPECT_EQ(memorialDay(), utcDate(2021, 5, 31));
    setYear(2020); // on a Sunday
    EXPECT_EQ(memorialDay(), utcDate(2020, 5, 25));
    setYear(2025); // on a Saturday
    EXPECT_EQ(memorialDay(), utcDate(2025, 5, 26));
}

TEST_F(HolidaysTest, ThanksGivingIsTheFourthThursdayWhicheverDayNovemberBeginsOn)
{
    setYear(2018); // 1 November on a Thursday
    EXPECT_EQ(thanksGiving(), utcDate(2018, 11, 22));
    setYear(2019); // on a Friday
    EXPECT_EQ(thanksGiving(), utcDate(2019, 11, 28));
    setYear(2025); // on a Saturday
    EXPECT_EQ(thanksGiving(), utcDate(2025, 11, 27));
    setYear(2026); // on a Sunday
    EXPECT_EQ(thanksGiving(), utcDate(2026, 11, 26));
}

TEST_F(HolidaysTest, LaborDayAndTheEndOfSummerTimeMayFallOnTheFirst)
{
    setYear(2025); // 1 September on a Monday
    EXPECT_EQ(laborDay(), utcDate(2025, 9, 1));
    setYear(2024); // on a Sunday
    EXPECT_EQ(laborDay(), utcDate(2024, 9, 2));
    setYear(2026); // 1 November on a Sunday
    EXPECT_EQ(dstEnd(), utcDate(2026, 11, 1));
}

TEST_F(HolidaysTest, EasterIsAtItsEarliestIn2285AndAtItsLatestIn2038)
{
    setYear(2285);
    EXPECT_EQ(easterDay(), utcDate(2285, 3, 22));
    setYear(2038);
    EXPECT_EQ(easterDay(), utcDate(2038, 4, 25));
}

TEST_F(HolidaysTest, EasterTakesTheLow16BitsOfTheYear)
{
    m_clock.set(DateUtilities::dateFromYear(40000, 7, 1));
    EXPECT_EQ(easterDay(), DateUtilities::dateFromYear(40000, 3, 31)); // as in the year -25536
}

TEST_F(HolidaysTest, ChangeWithTheYearAtTheZonesMidnight)
{
    const TimeZoneGuard zone("America/New_York");
    m_clock.set(utcDate(2026, 1, 1, 4, 59, 59)); // 31 December 2025, 23:59:59 in New York
    EXPECT_EQ(presidentsDay(), utcDate(2025, 2, 17, 5));
    EXPECT_EQ(easterDay(), utcDate(2025, 4, 20, 4));
    EXPECT_EQ(xmas(), utcDate(2025, 12, 25, 5));
    EXPECT_EQ(dateOfHoliday(0), utcDate(2025, 1, 1, 5));
    m_clock.advance(1s);
    EXPECT_EQ(presidentsDay(), utcDate(2026, 2, 23, 5));
    EXPECT_EQ(easterDay(), utcDate(2026, 4, 5, 4));
    EXPECT_EQ(xmas(), utcDate(2026, 12, 25, 5));
    EXPECT_EQ(dateOfHoliday(0), utcDate(2026, 1, 1, 5));
}

TEST_F(HolidaysTest, BeginWithTheirDayInEveryZoneWithAndWithoutAMidnight)
{
    for (const ZoneYear& row : ZoneYears) {
        const TimeZoneGuard zone(row.zone);
        setYear(row.year);
        for (std::size_t index = 0; index < NamedHolidays.size(); ++index) {
            const Date lawful = dateFromUnixSeconds(row.firstInstants[index]);
            const Date expected = index == PresidentsDay ? lawful + delayOfPresidentsDay(row.year) : lawful;
            EXPECT_EQ(unixSeconds(NamedHolidays[index]()), unixSeconds(expected))
                << row.zone << ", " << row.year << ", holiday " << index;
        }
    }
}

TEST_F(HolidaysTest, KeepMidnightThoughTheDayThatTheyAreCountedFromHasNone)
{
    // Clocks in Tunis went from 0:00 to 1:00 on 1 May 2005; the second Sunday began at 0:00, UTC+2.
    const TimeZoneGuard zone("Africa/Tunis");
    setYear(2005);
    EXPECT_EQ(mothersDay(), utcDate(2005, 5, 7, 22));
}

TEST_F(HolidaysTest, BeginAtOneWhereTheirOwnMidnightIsSkipped)
{
    // Clocks in Havana went from 0:00, UTC-5, to 1:00, UTC-4, on 10 March 2024.
    const TimeZoneGuard zone("America/Havana");
    setYear(2024);
    EXPECT_EQ(dstStart(), utcDate(2024, 3, 10, 5));
}

TEST_F(HolidaysTest, AreTheSameInEveryLanguageWithAGregorianCalendar)
{
    for (const char* locale :
         {"en_US", "en_GB", "de_DE", "fr_FR", "ja_JP", "ar_EG", "he_IL", "hi_IN", "ru_RU", "zh_CN", "tr_TR", "mr_IN"}) {
        const LocaleGuard guard(locale, {"en-US"});
        for (const int year : WeekdayYears) {
            setYear(year);
            for (std::size_t index = 0; index < NamedHolidays.size(); ++index) {
                EXPECT_EQ(NamedHolidays[index](), expectedDate(rowOf(year), index))
                    << locale << ", " << year << ", holiday " << index;
            }
        }
    }
}

TEST_F(HolidaysTest, ABuddhistCalendarHasTheSameDaysButTheEasterOfItsOwnYearNumber)
{
    const LocaleGuard locale("th_TH", {"th"});
    for (const int year : WeekdayYears) {
        setYear(year);
        for (std::size_t index = 0; index < NamedHolidays.size(); ++index) {
            if (index != EasterDay) {
                EXPECT_EQ(NamedHolidays[index](), expectedDate(rowOf(year), index)) << year << ", holiday " << index;
            }
        }
    }
    setYear(2024); // 2567, when Easter falls on 29 March
    EXPECT_EQ(easterDay(), utcDate(2024, 3, 29));
}

/// The Persian year 1403, which began on 20 March 2024.
class HolidaysOfAPersianYear : public HolidaysTest {
protected:
    static Date dayOf(int month, int day)
    {
        const int daysBefore = month <= 7 ? 31 * (month - 1) : 186 + 30 * (month - 7);
        return utcDate(2024, 3, 20) + (daysBefore + day - 1) * 24h;
    }

    static Date nthOf(int n, std::chrono::weekday weekday, int month)
    {
        const Date first = dayOf(month, 1);
        return first + (weekday - weekdayOfUtc(first)) + (n - 1) * 168h;
    }

private:
    LocaleGuard m_locale{"fa_IR", {"fa"}};
};

TEST_F(HolidaysOfAPersianYear, AreCountedOnItsMonths)
{
    using std::chrono::Monday;
    using std::chrono::Sunday;
    using std::chrono::Thursday;
    setYear(2024);
    EXPECT_EQ(dateOfHoliday(0), dayOf(1, 1));
    EXPECT_EQ(presidentsDay(), nthOf(3, Monday, 2)); // the month began on a Saturday
    EXPECT_EQ(dstStart(), nthOf(2, Sunday, 3));
    EXPECT_EQ(memorialDay(), nthOf(5, Monday, 5)); // the last one
    EXPECT_EQ(mothersDay(), nthOf(2, Sunday, 5));
    EXPECT_EQ(fathersDay(), nthOf(3, Sunday, 6));
    EXPECT_EQ(indepenDay(), dayOf(7, 4));
    EXPECT_EQ(laborDay(), nthOf(1, Monday, 9));
    EXPECT_EQ(dstEnd(), nthOf(1, Sunday, 11));
    EXPECT_EQ(veteransDay(), dayOf(11, 11));
    EXPECT_EQ(thanksGiving(), nthOf(4, Thursday, 11));
    EXPECT_EQ(xmasEve(), dayOf(12, 24));
    EXPECT_EQ(xmas(), dayOf(12, 25));
    EXPECT_EQ(easterDay(), dayOf(4, 17)); // what the Easter steps give for 1403
}

} // namespace
