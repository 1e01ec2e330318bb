// SPDX-License-Identifier: MIT
// The times of sunrise and sunset, against a table made by another program (tests/data/sun_times/sun_times.py).
#include "dates/DateFormatter.h"
#include "place/SunTimes.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <ostream>
#include <string>
#include <utility>

using namespace SunTimes;

namespace SunTimes {

static void PrintTo(const RiseAndSet& times, std::ostream* stream)
{
    *stream << times.sunrise << " / " << times.sunset;
}

} // namespace SunTimes

namespace {

constexpr double Pi = 3.141592653589793;

struct Day {
    double westLongitude;
    double latitude;
    double westZoneHours;
    double year;
    double month;
    double day;
    double sunrise;
    double sunset;
};

constexpr Day Days[] = {
#include "data/sun_times/sun_times.inc"
};

TEST(SunTime, IsThatOfTheTable)
{
    ASSERT_GE(std::size(Days), 2000U);
    for (const Day& row : Days) {
        EXPECT_EQ(sunTime(row.westLongitude, row.latitude, row.westZoneHours, row.year, row.month, row.day),
                  (RiseAndSet{row.sunrise, row.sunset}))
            << row.westLongitude << " west, " << row.latitude << " north, zone " << row.westZoneHours << ", "
            << row.year << '-' << row.month << '-' << row.day;
    }
}

TEST(SunTime, IsKnownForThreeTowns)
{
    EXPECT_EQ(sunTime(75.0, 40.0, 4, 2024, 6, 21), (RiseAndSet{5.31, 20.32}));
    EXPECT_EQ(sunTime(0.0, 51.5, 0, 2024, 3, 20), (RiseAndSet{6.04, 18.13}));
    EXPECT_EQ(sunTime(-151.2, -33.9, -11, 2024, 1, 1), (RiseAndSet{5.47, 20.1}));
}

TEST(SunTime, IsMidnightWhereTheSunStaysUpOrDown)
{
    for (const double latitude : {78.0, -78.0, 90.0, -90.0}) {
        for (const double month : {6.0, 12.0}) {
            EXPECT_EQ(sunTime(0.0, latitude, 0, 2024, month, 21), (RiseAndSet{0.0, 0.0})) << latitude << ' ' << month;
        }
    }
}

// The cosine of the hour angle passes 1 between the two latitudes of a pair; the sun of the evening stands lower than
// that of the morning.
TEST(SunTime, OfOneEventMayBeMissingWithoutTheOther)
{
    EXPECT_EQ(sunTime(0.0, 68.998425, 0, 2024, 12, 1), (RiseAndSet{11.28, 11.49}));
    EXPECT_EQ(sunTime(0.0, 68.998427, 0, 2024, 12, 1), (RiseAndSet{11.28, 0.0}));
    EXPECT_EQ(sunTime(0.0, 69.076374, 0, 2024, 12, 1), (RiseAndSet{11.49, 0.0}));
    EXPECT_EQ(sunTime(0.0, 69.076376, 0, 2024, 12, 1), (RiseAndSet{0.0, 0.0}));
}

// Common years count a day too many from March on, years divisible by four, 1900 among them, one too few.
TEST(SunTime, CountsDaysByTheReversedLeapYearRule)
{
    const auto at = [](double year, double month, double day) { return sunTime(5.0, 60.0, 0, year, month, day); };
    EXPECT_EQ(at(2023, 2, 28), at(2024, 2, 28));
    EXPECT_EQ(at(2024, 2, 29), at(2024, 3, 1));
    EXPECT_EQ(at(2023, 3, 1), at(2024, 3, 2));
    EXPECT_EQ(at(1900, 3, 1), at(2024, 3, 1));
    EXPECT_EQ(at(1901, 3, 1), at(2023, 3, 1));
    EXPECT_NE(at(2023, 3, 1), at(2024, 3, 1));
}

TEST(SunTime, IsShiftedByTheZoneAlone)
{
    EXPECT_EQ(sunTime(-77.2, 28.6, -5.0, 2024, 3, 20), (RiseAndSet{5 + 56 / 100.0, 18.02}));
    EXPECT_EQ(sunTime(-77.2, 28.6, -5.5, 2024, 3, 20), (RiseAndSet{6.26, 18.32}));
    EXPECT_EQ(sunTime(-77.2, 28.6, -5.75, 2024, 3, 20), (RiseAndSet{6.41, 18.47}));
}

TEST(SunHourAngle, IsTheArcCosineOfItsCosine)
{
    for (const double cosine : {-0.9, -0.5, 0.0, 0.3, 0.999}) {
        EXPECT_NEAR(*hourAngle(Event::Sunset, cosine), std::acos(cosine), 1e-15);
        EXPECT_NEAR(*hourAngle(Event::Sunrise, cosine), 2 * Pi - std::acos(cosine), 1e-15);
    }
}

TEST(SunHourAngle, ExistsUpToACosineOfExactlyOne)
{
    EXPECT_EQ(hourAngle(Event::Sunset, 1.0), 0.0);
    EXPECT_EQ(hourAngle(Event::Sunrise, 1.0), 2 * Pi);
    EXPECT_EQ(hourAngle(Event::Sunset, -1.0), Pi);
    EXPECT_EQ(hourAngle(Event::Sunrise, -1.0), Pi);
    EXPECT_EQ(hourAngle(Event::Sunset, std::nextafter(1.0, 2.0)), std::nullopt);
    EXPECT_EQ(hourAngle(Event::Sunrise, std::nextafter(-1.0, -2.0)), std::nullopt);
}

/// The angle of a clock that shows `hours` and `minutes`.
double clockAngle(double hours, double minutes)
{
    return (hours + minutes / 60) / 3.81972;
}

TEST(SunAngleToClock, RoundsToTheMinute)
{
    EXPECT_EQ(angleToClock(0.0), 0.0);
    EXPECT_EQ(angleToClock(clockAngle(5, 31.4)), 5.31);
    EXPECT_EQ(angleToClock(clockAngle(5, 31.6)), 5.32);
    EXPECT_EQ(angleToClock(clockAngle(20, 10.0001)), 20.1);
    EXPECT_EQ(angleToClock(clockAngle(6, 4.99)), 6.05);
    EXPECT_EQ(angleToClock(clockAngle(7, 59.4)), 7.59);
}

TEST(SunAngleToClock, GivesTheNextWholeHourInTheHoursLastHalfMinute)
{
    EXPECT_EQ(angleToClock(clockAngle(7, 59.6)), 8.0);
    EXPECT_EQ(angleToClock(clockAngle(23, 59.6)), 24.0);
    EXPECT_EQ(angleToClock(clockAngle(23, 59.4)), 23.59);
}

TEST(SunAngleToClock, TakesOffWholeTurnsEitherWay)
{
    for (int turns = -3; turns <= 3; ++turns) {
        EXPECT_EQ(angleToClock(clockAngle(5, 31.2) + turns * 2 * Pi), 5.31) << turns;
    }
}

// At a tie between two counts of whole turns, either leaves half a turn: noon.
TEST(SunAngleToClock, IsNoonAtEveryOddHalfTurnAndMidnightAtEveryWholeOne)
{
    for (int half = -7; half <= 7; ++half) {
        EXPECT_EQ(angleToClock(half * Pi), half % 2 == 0 ? 0.0 : 12.0) << half;
    }
}

class SunText : public testing::Test {
protected:
    static DateFormatter timeFormatter(const char* locale = "en_US")
    {
        DateFormatter formatter(locale);
        formatter.setTimeStyle(DateFormatter::Style::Short);
        return formatter;
    }

private:
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST_F(SunText, OfAClockTimeIsTheTimeFormatters)
{
    const TimeZoneGuard zone("America/New_York");
    const DateFormatter formatter = timeFormatter();
    EXPECT_EQ(clockText(5.31, formatter), QStringLiteral("5:31\u202fAM"));
    EXPECT_EQ(clockText(20.1, formatter), QStringLiteral("8:10\u202fPM"));
    EXPECT_EQ(clockText(6.05, formatter), QStringLiteral("6:05\u202fAM"));
    EXPECT_EQ(clockText(12.0, formatter), QStringLiteral("12:00\u202fPM"));
    EXPECT_EQ(clockText(0.0, formatter), QStringLiteral("12:00\u202fAM"));
    EXPECT_EQ(clockText(24.0, formatter), QStringLiteral("12:00\u202fAM"));
    EXPECT_EQ(clockText(20.1, timeFormatter("de_DE")), QStringLiteral("20:10"));
    EXPECT_EQ(clockText(20.1, timeFormatter("fa_IR")), QStringLiteral("۲۰:۱۰"));
}

TEST_F(SunText, HasEachMinuteOfTheDayInEachZone)
{
    // Clocks that jump at midnight, zones off the hour, and one that had no 30 December 2011.
    for (const char* name : {"UTC", "America/New_York", "Africa/Monrovia", "Asia/Kathmandu", "Africa/Cairo",
                             "Pacific/Apia", "America/Havana", "Australia/Lord_Howe"}) {
        const TimeZoneGuard zone(name);
        const DateFormatter formatter = timeFormatter("de_DE");
        for (int minute = 0; minute < 24 * 60; ++minute) {
            const QString expected = QString::asprintf("%02d:%02d", minute / 60, minute % 60);
            EXPECT_EQ(clockText(minute / 60 + (minute % 60) / 100.0, formatter), expected) << name;
        }
    }
}

TEST_F(SunText, CountsTheZonesHoursWestAtThePresentInstant)
{
    struct Row {
        const char* zone;
        double winter;
        double summer;
    };
    constexpr Row Rows[] = {{"UTC", 0, 0},
                            {"America/New_York", 5, 4},
                            {"Europe/Berlin", -1, -2},
                            {"Asia/Kolkata", -5.5, -5.5},
                            {"Asia/Kathmandu", -5.75, -5.75},
                            {"America/St_Johns", 3.5, 2.5},
                            {"Australia/Lord_Howe", -11, -10.5},
                            {"Pacific/Kiritimati", -14, -14}};
    FixedClock clock(utcDate(2024, 1, 15));
    const ClockGuard guard(clock);
    for (const Row& row : Rows) {
        const TimeZoneGuard zone(row.zone);
        clock.set(utcDate(2024, 1, 15));
        EXPECT_EQ(timeZoneHours(), row.winter) << row.zone;
        clock.set(utcDate(2024, 7, 15));
        EXPECT_EQ(timeZoneHours(), row.summer) << row.zone;
    }
}

TEST_F(SunText, OfTheLineJoinsTodaysTimes)
{
    const TimeZoneGuard zone("America/New_York");
    const FixedClock clock(utcDate(2024, 6, 21, 16));
    const ClockGuard guard(clock);
    EXPECT_EQ(sunLine({40.0, -75.0}, QStringLiteral("Rise/Set:"), timeFormatter()),
              QStringLiteral("Rise/Set: 5:31\u202fAM/8:32\u202fPM"));
}

TEST_F(SunText, OfTheLineIsThatOfTheZonesDay)
{
    const TimeZoneGuard zone("Australia/Sydney");
    const FixedClock clock(utcDate(2023, 12, 31, 14)); // 1 January 2024, 01:00 in Sydney
    const ClockGuard guard(clock);
    EXPECT_EQ(sunLine({-33.9, 151.2}, QStringLiteral("Rise/Set:"), timeFormatter("de_DE")),
              QStringLiteral("Rise/Set: 05:47/20:10"));
}

/// The minutes of the day that "05:31/20:32" stands for.
std::pair<int, int> minutesOf(const QString& times)
{
    const auto minutes = [&](qsizetype at) { return times.mid(at, 2).toInt() * 60 + times.mid(at + 3, 2).toInt(); };
    return {minutes(0), minutes(6)};
}

// PyEphem 4.1.4: the upper limb at the horizon with the usual refraction (horizon -0:50, pressure 0).
TEST_F(SunText, OfTheLineIsTheSunsWhateverCalendarTheLocaleKeeps)
{
    struct {
        const char* locale;
        const char* zone;
        Coordinate place;
        int month;
        std::pair<int, int> times;
    } const rows[] = {
        {"fa_IR", "Asia/Tehran", {35.6892, 51.3890}, 6, {4 * 60 + 49, 19 * 60 + 24}},
        {"fa_IR", "Asia/Tehran", {35.6892, 51.3890}, 12, {7 * 60 + 10, 16 * 60 + 55}},
        {"th_TH", "Asia/Bangkok", {13.7563, 100.5018}, 6, {5 * 60 + 52, 18 * 60 + 48}},
        {"th_TH", "Asia/Bangkok", {13.7563, 100.5018}, 12, {6 * 60 + 37, 17 * 60 + 56}},
        {"ar_SA", "Asia/Riyadh", {24.7136, 46.6753}, 6, {5 * 60 + 5, 18 * 60 + 45}},
        {"ar_SA", "Asia/Riyadh", {24.7136, 46.6753}, 12, {6 * 60 + 33, 17 * 60 + 10}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.locale) + ", month " + std::to_string(row.month));
        const TimeZoneGuard zone(row.zone);
        const FixedClock clock(utcDate(2024, static_cast<unsigned>(row.month), 21, 9));
        const ClockGuard guard(clock);
        const auto line = [&](const char* locale) {
            const LocaleGuard current(locale, {"en-US"});
            return sunLine(row.place, QStringLiteral("Rise/Set:"), timeFormatter("de_DE")).value();
        };
        EXPECT_EQ(line(row.locale), line("en_US"));
        const auto [rise, set] = minutesOf(line(row.locale).section(u' ', 1));
        EXPECT_NEAR(rise, row.times.first, 2);
        EXPECT_NEAR(set, row.times.second, 2);
    }
}

TEST_F(SunText, OfTheLineIsMidnightTwiceInThePolarNight)
{
    const TimeZoneGuard zone("UTC");
    const FixedClock clock(utcDate(2024, 12, 21, 12));
    const ClockGuard guard(clock);
    EXPECT_EQ(sunLine({78.0, 15.0}, QStringLiteral("Auf/Unter:"), timeFormatter("de_DE")),
              QStringLiteral("Auf/Unter: 00:00/00:00"));
}

TEST_F(SunText, IsMissingForAPlaceThatIsNoNumber)
{
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    for (const Coordinate& place : {Coordinate{NotANumber, 0.0}, Coordinate{0.0, NotANumber}, Coordinate{Infinity, 0.0},
                                    Coordinate{0.0, -Infinity}}) {
        EXPECT_EQ(sunLine(place, QStringLiteral("Rise/Set:"), timeFormatter()), std::nullopt);
    }
}

} // namespace
