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
#include "core/dates_zone_days.inc"
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

TEST_F(DatesInZones, AddingKeepsTheTimeOfDayOverAClockChange)
{
    const TimeZoneGuard zone("America/New_York");
    // 9 March 2024, 12:00 EST is 17:00 UTC; clocks went forward on the 10th, so noon was 16:00 UTC from then on.
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 3, 9, 17), 1, 0, 0), utcDate(2024, 3, 10, 16));
    EXPECT_EQ(dateByAddingDays(utcDate(2024, 3, 10, 16), -1, 0, 0), utcDate(2024, 3, 9, 17));
}

} // namespace
