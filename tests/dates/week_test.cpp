// SPDX-License-Identifier: MIT
// The days of a week, and the week that a label names, in every language that ICU knows.
#include "dates/DateFormatter.h"
#include "dates/DateUtilities.h"
#include "dates/Week.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <optional>

namespace {

std::optional<Date> readBack(Date date)
{
    DateFormatter formatter;
    formatter.setDateStyle(DateFormatter::Style::Long);
    return Week::firstDayFromText(formatter.stringFromDate(date), formatter);
}

/// Steps from the week of `date` by the text of each week's first day alone; nothing once a text names no week.
std::optional<Date> walked(Date date, int weeks)
{
    std::optional<Date> first = date;
    for (int step = 0; step < std::abs(weeks) && first; ++step) {
        first = readBack(DateUtilities::dateByAddingDays(*first, weeks < 0 ? -7 : 7, 0, 0));
    }
    return first;
}

TEST(WeekLabel, IsReadBackInEveryLanguage)
{
    const TimeZoneGuard zone("Europe/Berlin");
    int count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    ASSERT_GT(count, 500);
    for (int each = 0; each < count; ++each) {
        const LocaleGuard current(locales[each].getName(), {"en-US"});
        const Date begin =
            DateUtilities::dateFromYear(DateUtilities::yearMonthDayFromDate(utcDate(2023, 3, 5)).year, 1, 1);
        for (int week = 0; week < 15; ++week) {
            const Date first = Week::daysFrom(DateUtilities::dateByAddingDays(begin, 28 * week, 0, 0)).front().begin;
            ASSERT_EQ(readBack(first), first) << locales[each].getName() << ", week " << week;
        }
    }
}

TEST(WeekLabel, LeadsThroughDaysWithoutAMidnight)
{
    const LocaleGuard locale("en_US", {"en-US"});
    for (const char* name :
         {"America/Sao_Paulo", "Asia/Beirut", "America/Havana", "Africa/Cairo", "Asia/Amman", "America/Asuncion"}) {
        const TimeZoneGuard zone(name);
        for (int weekday = 0; weekday < 7; ++weekday) {
            const Date first = DateUtilities::dateFromYear(2009, 6, 7 + weekday);
            const std::optional<Date> far = walked(first, 200);
            ASSERT_TRUE(far) << name << ", weekday " << weekday;
            EXPECT_EQ(*far, DateUtilities::dateFromYear(2013, 4, 7 + weekday)) << name; // 1400 days later
            EXPECT_EQ(walked(*far, -200), first) << name << ", weekday " << weekday;
        }
    }
}

TEST(WeekLabel, IsReadInTheShortStyleToo)
{
    const TimeZoneGuard zone("Europe/Berlin");
    const LocaleGuard locale("en_US", {"en-US"});
    DateFormatter formatter;
    EXPECT_EQ(Week::firstDayFromText(QStringLiteral("3/10/24"), formatter), utcDate(2024, 3, 9, 23));
    EXPECT_EQ(Week::firstDayFromText(QStringLiteral("March 10, 2024"), formatter), utcDate(2024, 3, 9, 23));
}

TEST(WeekLabel, NamesNoWeekInAnyOtherForm)
{
    const LocaleGuard locale("en_US", {"en-US"});
    DateFormatter formatter;
    for (const QString& text :
         {QString(), QStringLiteral("March"), QStringLiteral("March 41, 2024"), QStringLiteral("February 30, 2024"),
          QStringLiteral("03/10/2024 noon"), QStringLiteral("Sunday, March 10, 2024"), QStringLiteral("10.03.24")}) {
        EXPECT_EQ(Week::firstDayFromText(text, formatter), std::nullopt) << text.toStdString();
    }
}

TEST(WeekDays, AreTheFirstInstantsOfSevenDaysInARow)
{
    const LocaleGuard locale("en_US", {"en-US"});
    const TimeZoneGuard zone("America/Sao_Paulo"); // 21 October 2012 began at one o'clock, UTC-3 before, UTC-2 after
    const auto begin = [](Date date, std::size_t day) { return Week::daysFrom(date).at(day).begin; };
    EXPECT_EQ(begin(utcDate(2012, 10, 18, 15), 0), utcDate(2012, 10, 18, 3));
    EXPECT_EQ(begin(utcDate(2012, 10, 18, 15), 2), utcDate(2012, 10, 20, 3));
    EXPECT_EQ(begin(utcDate(2012, 10, 18, 15), 3), utcDate(2012, 10, 21, 3));
    EXPECT_EQ(begin(utcDate(2012, 10, 18, 15), 4), utcDate(2012, 10, 22, 2));
    EXPECT_EQ(begin(utcDate(2012, 10, 18, 15), 6), utcDate(2012, 10, 24, 2));
    EXPECT_EQ(begin(utcDate(2012, 10, 21, 3), 1), utcDate(2012, 10, 22, 2));
    for (const Week::Day& day : Week::daysFrom(utcDate(2012, 10, 18, 15))) {
        EXPECT_FALSE(day.isLeftOut);
    }
}

TEST(WeekDays, CountADayThatTheZoneLeftOut)
{
    const LocaleGuard locale("en_US", {"en-US"});
    const TimeZoneGuard zone("Pacific/Apia"); // from 29 December 2011 (UTC-10) to the 31st (UTC+14)
    const auto days = Week::daysFrom(utcDate(2011, 12, 31, 10), -7); // from New Year's Day
    const YearMonthDay numbers[] = {{2011, 12, 25}, {2011, 12, 26}, {2011, 12, 27}, {2011, 12, 28},
                                    {2011, 12, 29}, {2011, 12, 30}, {2011, 12, 31}};
    const Date begins[] = {utcDate(2011, 12, 25, 10), utcDate(2011, 12, 26, 10), utcDate(2011, 12, 27, 10),
                           utcDate(2011, 12, 28, 10), utcDate(2011, 12, 29, 10), utcDate(2011, 12, 30, 10),
                           utcDate(2011, 12, 30, 10)};
    for (std::size_t i = 0; i < days.size(); ++i) {
        EXPECT_EQ(days.at(i).number, numbers[i]) << i;
        EXPECT_EQ(days.at(i).begin, begins[i]) << i;
        EXPECT_EQ(days.at(i).isLeftOut, i == 5) << i;
    }
}

} // namespace
