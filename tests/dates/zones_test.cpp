// SPDX-License-Identifier: MIT
// Days where the zone's clock changes, against a table made by another program (dates_zone_days.py).
#include "dates/DateUtilities.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace DateUtilities;
using namespace std::chrono_literals;

namespace {

struct ZoneDay {
    const char* zone;
    double firstInstant;
    int year;
    int month;
    int day;
    bool hasMidnight;
};

constexpr ZoneDay ZoneDays[] = {
#include "dates/zone_days.inc"
};

/// The one day of the table that a zone left out altogether, by crossing the date line.
bool isSkippedDay(const ZoneDay& row)
{
    return std::string(row.zone) == "Pacific/Apia" && row.year == 2011 && row.month == 12 && row.day == 30;
}

class DatesInZones : public testing::Test {
protected:
    template <typename Check> void forEachRow(Check check)
    {
        for (const ZoneDay& row : ZoneDays) {
            SCOPED_TRACE(std::string(row.zone) + " " + std::to_string(row.year) + "-" + std::to_string(row.month) +
                         "-" + std::to_string(row.day));
            const TimeZoneGuard zone(row.zone);
            check(row);
        }
    }

private:
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST_F(DatesInZones, ADayMadeFromNumbersBeginsAtItsFirstInstant)
{
    forEachRow([](const ZoneDay& row) {
        EXPECT_EQ(unixSeconds(dateFromYear(row.year, row.month, row.day)), row.firstInstant);
    });
}

TEST_F(DatesInZones, TheFirstInstantReadsBackAsItsDayAndTheOneBeforeAsAnother)
{
    forEachRow([](const ZoneDay& row) {
        const Date first = dateFromUnixSeconds(row.firstInstant);
        const YearMonthDay expected{row.year, row.month, isSkippedDay(row) ? 31 : row.day};
        EXPECT_EQ(yearMonthDayFromDate(first), expected);
        const bool afterSkippedDay = expected == YearMonthDay{2011, 12, 31} && std::string(row.zone) == "Pacific/Apia";
        EXPECT_EQ(daysBetweenDate(first - 1s, first), afterSkippedDay ? 2 : 1);
        EXPECT_FALSE(isThisDate(first - 1s, first));
    });
}

TEST_F(DatesInZones, CleansingGivesMidnightWhereThereIsOne)
{
    forEachRow([](const ZoneDay& row) {
        if (isSkippedDay(row)) {
            return;
        }
        const std::optional<Date> midnight = cleanseDate(dateFromUnixSeconds(row.firstInstant) + 15h);
        ASSERT_EQ(midnight.has_value(), row.hasMidnight);
        if (midnight) {
            EXPECT_EQ(unixSeconds(*midnight), row.firstInstant);
        }
    });
}

TEST_F(DatesInZones, TodayIsTheFirstInstantWithAndWithoutAMidnight)
{
    forEachRow([](const ZoneDay& row) {
        if (isSkippedDay(row)) {
            return;
        }
        const FixedClock clock(dateFromUnixSeconds(row.firstInstant) + 15h);
        const ClockGuard guard(clock);
        EXPECT_EQ(unixSeconds(today()), row.firstInstant);
    });
}

TEST_F(DatesInZones, TheCLibraryReadsTheSameZone)
{
    const TimeZoneGuard zone("Asia/Kolkata");
    const std::time_t moment = 0;
    std::tm fields{};
    localtime_r(&moment, &fields);
    EXPECT_EQ(fields.tm_hour, 5);
    EXPECT_EQ(fields.tm_min, 30);
}

TEST_F(DatesInZones, TheEmptyZoneIsTheOneTheProcessWasStartedIn)
{
    const TimeZoneGuard other("Asia/Kolkata");
    const TimeZoneGuard host("");
    for (const int month : {1, 7}) {
        std::tm fields{};
        fields.tm_year = 2024 - 1900;
        fields.tm_mon = month - 1;
        fields.tm_mday = 15;
        fields.tm_isdst = -1;
        EXPECT_EQ(unixSeconds(dateFromYear(2024, month, 15)), static_cast<double>(std::mktime(&fields)));
    }
}

TEST_F(DatesInZones, AnUnknownZoneCountsAsUtc)
{
    const TimeZoneGuard zone("Nowhere/Land");
    EXPECT_EQ(unixSeconds(dateFromYear(1970, 1, 2)), 86400.0);
    const std::time_t moment = 0;
    std::tm fields{};
    localtime_r(&moment, &fields);
    EXPECT_EQ(fields.tm_hour, 0);
}

TEST_F(DatesInZones, AGuardPutsTheFormerZoneBack)
{
    const TimeZoneGuard outer("Asia/Kolkata");
    {
        const TimeZoneGuard inner("America/New_York");
        EXPECT_EQ(DateEnvironment::timeZone(), "America/New_York");
    }
    EXPECT_EQ(DateEnvironment::timeZone(), "Asia/Kolkata");
    EXPECT_EQ(unixSeconds(dateFromYear(1970, 1, 1)), -19800.0);
}

// The days that tzdata leaves out, as zdump prints them.
struct LeftOutDay {
    const char* zone;
    YearMonthDay day;
    Date nextBegins;
};
const LeftOutDay LeftOutDays[] = {{"Pacific/Apia", {2011, 12, 30}, utcDate(2011, 12, 30, 10)},
                                  {"Pacific/Kiritimati", {1994, 12, 31}, utcDate(1994, 12, 31, 10)},
                                  {"Pacific/Kwajalein", {1993, 8, 21}, utcDate(1993, 8, 21, 12)}};

TEST_F(DatesInZones, OneDayIsLeftOutAndNoneAroundIt)
{
    for (const auto& [name, day, nextBegins] : LeftOutDays) {
        const TimeZoneGuard zone(name);
        const std::int64_t next = julianDayFromDate(nextBegins);
        for (int away = -400; away <= 400; ++away) {
            EXPECT_EQ(isLeftOut(yearMonthDayFromJulianDay(next + away)), away == -1) << name << ' ' << away;
        }
        EXPECT_EQ(yearMonthDayFromJulianDay(next - 1), day);
        EXPECT_EQ(dateFromYear(day.year, day.month, day.day), nextBegins);
    }
}

TEST_F(DatesInZones, AddingCountsADayThatWasLeftOut)
{
    using std::chrono::days;
    for (const auto& [name, day, nextBegins] : LeftOutDays) {
        SCOPED_TRACE(name);
        const TimeZoneGuard zone(name);
        const Date noonAfter = nextBegins + 12h;
        const Date noonBefore = noonAfter - days(1); // the last noon before
        EXPECT_EQ(dateByAddingDays(noonBefore, 2, 0, 0), noonAfter);
        EXPECT_EQ(dateByAddingDays(noonAfter, -2, 0, 0), noonBefore);
        EXPECT_EQ(dateByAddingDays(noonBefore, 7, 0, 0), noonAfter + days(5));
        EXPECT_EQ(dateByAddingDays(noonAfter + days(3), -7, 0, 0), noonBefore - days(2));
        EXPECT_EQ(dateByAddingDays(noonBefore, 1, 0, 0), noonAfter) << "on, for the day itself was not there";
        EXPECT_EQ(dateByAddingDays(noonAfter, -1, 0, 0), noonBefore) << "back";
        EXPECT_EQ(dateByAddingDays(nextBegins, -1, 0, 0), nextBegins - days(1));
        EXPECT_EQ(daysBetweenDate(noonBefore, noonAfter), 2);
    }
}

TEST_F(DatesInZones, AddingNoDaysKeepsTheSecondOfARepeatedHour)
{
    const TimeZoneGuard zone("America/New_York"); // 3 November 2024: 01:30 EST after 01:30 EDT
    const Date second = utcDate(2024, 11, 3, 6, 30);
    EXPECT_EQ(dateByAddingDays(second, 0, 0, 0), second);
    EXPECT_EQ(dateByAddingDays(second, 1, 0, 0), second + 24h);
    EXPECT_EQ(dateByAddingDays(second + 24h, -1, 0, 0), second - 1h) << "the first of the two";
}

TEST_F(DatesInZones, AddingKeepsTheTimeOfDayOverAClockChange)
{
    const TimeZoneGuard zone("America/New_York");
    // 9 March 2024, 12:00 EST is 17:00 UTC; clocks went forward on the 10th, so noon was 16:00 UTC from then on.
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 3, 9, 17), 1, 0, 0), utcDate(2024, 3, 10, 16));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 3, 10, 16), -1, 0, 0), utcDate(2024, 3, 9, 17));
}

} // namespace
