// SPDX-License-Identifier: MIT
// Locales with their own calendars and digits, each with its own and with another preferred language.
#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"
#include "support/DateGuards.h"
#include "text/IntegerValue.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace DateUtilities;
using namespace std::chrono_literals;

namespace {

struct Languages {
    const char* currentLocale;
    const char* preferredLanguage;
};

class DatesInLanguages : public testing::TestWithParam<Languages> {
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{GetParam().currentLocale, {GetParam().preferredLanguage}};
};

TEST_P(DatesInLanguages, AShownMonthSurvivesBeingReadFromItsTexts)
{
    Date day = utcDate(2019, 1, 15, 12);
    for (int step = 0; step < 12 * 8; ++step, day = dateByAddingDays(day, 0, 1, 0)) {
        const QString year = yearFromDate(day);
        const QString name = monthNameFromDate(day);
        const MonthGrid::YearMonth shown = MonthGrid::yearMonthFromTexts(year, name);
        const YearMonthDay fields = yearMonthDayFromDate(day);
        EXPECT_EQ(shown, (MonthGrid::YearMonth{fields.year, fields.month}));
        const Date first = dateFromYear(shown.year, shown.month, 1);
        EXPECT_EQ(yearFromDate(first), year);
        EXPECT_EQ(monthNameFromDate(first), name);
        EXPECT_EQ(integerValue(dayFromDate(first)), 1);
        EXPECT_EQ(monthNumberFromName(name), integerValue(monthFromDate(day)));
    }
}

TEST_P(DatesInLanguages, AWeekdaysNameGivesItsNumber)
{
    for (int day = 0; day < 7; ++day) { // 3 March 2024 was a Sunday
        const Date date = utcDate(2024, 3, 3) + day * 24h;
        EXPECT_EQ(dayNumberFromName(dayNameFromDate(date)), day);
        EXPECT_EQ(weekDayNumberFromDate(date), day + 1);
    }
}

TEST_P(DatesInLanguages, TodayAndCleansingGiveMidnightOfEveryDay)
{
    for (Date date = utcDate(2024, 1, 1, 13); date < utcDate(2025, 2, 1); date += 24h) {
        const FixedClock clock(date);
        const ClockGuard guard(clock);
        EXPECT_EQ(today(), date - 13h);
        EXPECT_EQ(cleanseDate(date), date - 13h);
    }
}

TEST_P(DatesInLanguages, ADaysNumbersMakeItAgain)
{
    for (Date date = utcDate(1919, 12, 1); date < utcDate(2081, 1, 1); date += 24h * 37) {
        const YearMonthDay fields = yearMonthDayFromDate(date);
        EXPECT_EQ(dateFromYear(fields.year, fields.month, fields.day), date);
    }
}

TEST_P(DatesInLanguages, GregorianMonthNumbersDoNotFollowTheLocale)
{
    EXPECT_EQ(monthNumberFromDate(utcDate(2024, 3, 5)), 3);
}

TEST_P(DatesInLanguages, NumbersMakeTheSameYearAgainAsText)
{
    const FixedClock clock(utcDate(2024, 8, 9, 10));
    const ClockGuard guard(clock);
    const YearMonthDay fields = yearMonthDayFromDate(clock.now());
    EXPECT_EQ(integerValue(currentYear()), fields.year);
    EXPECT_EQ(integerValue(currentMonth()), fields.month);
    EXPECT_EQ(integerValue(currentDay()), fields.day);
    EXPECT_EQ(yearMonthDayFromDate(janFirstThisYear()), (YearMonthDay{fields.year, 1, 1}));
}

INSTANTIATE_TEST_SUITE_P(
    Locales, DatesInLanguages,
    testing::Values(Languages{"en_US", "en-US"}, Languages{"en_US", "fr"}, Languages{"de_DE", "de"},
                    Languages{"de_DE", "ja-JP"}, Languages{"fr_FR", "fr-FR"}, Languages{"fr_FR", "ar-EG"},
                    Languages{"ja_JP", "ja"}, Languages{"ja_JP", "th-TH"}, Languages{"ar_EG", "ar-EG"},
                    Languages{"ar_EG", "en"}, Languages{"fa_IR", "fa"}, Languages{"fa_IR", "en-US"},
                    Languages{"th_TH", "th"}, Languages{"th_TH", "fa-IR"}, Languages{"ar_SA", "ar-SA"},
                    Languages{"ar_SA", "en-US"}, Languages{"en_US", "fa-IR"}, Languages{"en_US", "ar-SA"},
                    Languages{"fa_IR", "ar-SA"}),
    [](const testing::TestParamInfo<Languages>& row) {
        std::string name = std::string(row.param.currentLocale) + "_" + row.param.preferredLanguage;
        std::replace(name.begin(), name.end(), '-', '_');
        return name;
    });

TEST(PersianCalendar, YearsBeginAtThePublishedEquinoxDays)
{
    const TimeZoneGuard zone("UTC");
    const LocaleGuard locale("fa_IR", {"fa"});
    // First days of the years as the University of Tehran's calendar centre published them.
    EXPECT_EQ(dateFromYear(1399, 1, 1), utcDate(2020, 3, 20));
    EXPECT_EQ(dateFromYear(1400, 1, 1), utcDate(2021, 3, 21));
    EXPECT_EQ(dateFromYear(1402, 1, 1), utcDate(2023, 3, 21));
    EXPECT_EQ(dateFromYear(1403, 1, 1), utcDate(2024, 3, 20));
    EXPECT_EQ(dateFromYear(1404, 1, 1), utcDate(2025, 3, 21));
    EXPECT_EQ(dateFromYear(1357, 11, 22), utcDate(1979, 2, 11));
}

TEST(PersianCalendar, MonthsHaveTheirLengths)
{
    const TimeZoneGuard zone("UTC");
    const LocaleGuard locale("fa_IR", {"fa"});
    for (int month = 1; month <= 12; ++month) {
        const int inPlainYear = month <= 6 ? 31 : month < 12 ? 30 : 29;
        EXPECT_EQ(daysInMonth(dateFromYear(1402, month, 1)), inPlainYear) << month;
    }
    for (const int leapYear : {1395, 1399, 1403, 1408}) {
        EXPECT_EQ(daysInMonth(dateFromYear(leapYear, 12, 1)), 30) << leapYear;
    }
}

TEST(PersianCalendar, TextsUseItsMonthsAndDigits)
{
    const TimeZoneGuard zone("UTC");
    const LocaleGuard locale("fa_IR", {"fa"});
    const Date newYear = utcDate(2024, 3, 20);
    EXPECT_EQ(yearFromDate(newYear), QStringLiteral("۱۴۰۳"));
    EXPECT_EQ(monthFromDate(newYear), QStringLiteral("۰۱"));
    EXPECT_EQ(monthNameFromDate(newYear), QStringLiteral("فروردین"));
    EXPECT_EQ(monthNameFromNumber(1), QStringLiteral("فروردین"));
    EXPECT_EQ(monthNumberFromName(QStringLiteral("اسفند")), 12);
    EXPECT_EQ(YYYYMMDDStrFromDate(newYear), QStringLiteral("14030101"));
    EXPECT_EQ(dateFromYYMMDDStr(QStringLiteral("۱۴۰۳۰۱۰۱")), newYear);
}

TEST(BuddhistCalendar, CountsFiveHundredAndFortyThreeYearsMore)
{
    const TimeZoneGuard zone("UTC");
    const LocaleGuard locale("th_TH", {"th"});
    EXPECT_EQ(yearFromDate(utcDate(2024, 2, 29)), QStringLiteral("2567"));
    EXPECT_EQ(dateFromYear(2567, 2, 29), utcDate(2024, 2, 29));
    EXPECT_EQ(daysInMonth(dateFromYear(2567, 2, 1)), 29);
    EXPECT_EQ(daysInMonth(dateFromYear(2566, 2, 1)), 28);
}

TEST(LanguageSources, AreKeptApart)
{
    const TimeZoneGuard zone("UTC");
    const LocaleGuard locale("de_DE", {"fr", "en"});
    const Date date = utcDate(2024, 3, 5);
    EXPECT_EQ(dayNameFromDate(date), QStringLiteral("Dienstag"));
    EXPECT_EQ(longStyleFromDate(date), QStringLiteral("5. März 2024"));
    EXPECT_EQ(monthNameFromNumber(3), QStringLiteral("März"));
    EXPECT_EQ(monthNameFromDate(date), QStringLiteral("mars"));
    EXPECT_EQ(monthNumberFromName(QStringLiteral("mars")), 3);
    EXPECT_EQ(dayNumberFromName(QStringLiteral("mardi")), NotFound);
    EXPECT_EQ(listDateFormatter().stringFromDate(date), QStringLiteral("mar., mars 5, 2024"));
}

TEST(LanguageSources, NameTheMonthsOfTheLocalesCalendarInTheLanguage)
{
    // 15 March 2024 is 25 Esfand 1402, five days before the published new year of 1403, and 5 Ramadan 1445, a month
    // that began on 11 March. Gregorian names are those that Python's Babel prints.
    const TimeZoneGuard zone("UTC");
    const Date date = utcDate(2024, 3, 15);
    struct {
        const char* locale;
        const char* language;
        QString name;
        QString shortName;
        QString listed;
    } const rows[] = {
        {"en_US", "en-US", QStringLiteral("March"), QStringLiteral("Mar"), QStringLiteral("Fri, Mar 15, 2024")},
        {"en_US", "fa", QStringLiteral("مارس"), QStringLiteral("مارس"), QStringLiteral("جمعه, مارس ۱۵, ۲۰۲۴")},
        {"en_US", "th-TH", QStringLiteral("มีนาคม"), QStringLiteral("มี.ค."), QStringLiteral("ศ., มี.ค. 15, 2024")},
        {"ar_SA", "en-US", QStringLiteral("Ramadan"), QStringLiteral("Ram."), QStringLiteral("Fri, Ram. 5, 1445")},
        {"fa_IR", "en-US", QStringLiteral("Esfand"), QStringLiteral("Esfand"), QStringLiteral("Fri, Esfand 25, 1402")},
        {"th_TH", "en-US", QStringLiteral("March"), QStringLiteral("Mar"), QStringLiteral("Fri, Mar 15, 2567")},
    };
    for (const auto& row : rows) {
        const LocaleGuard locale(row.locale, {row.language});
        SCOPED_TRACE(std::string(row.locale) + ", " + row.language);
        EXPECT_EQ(monthNameFromDate(date), row.name);
        EXPECT_EQ(shortMonthNameFromDate(date), row.shortName);
        EXPECT_EQ(monthNumberFromName(row.name), integerValue(monthFromDate(date)));
        EXPECT_EQ(listDateFormatter().stringFromDate(date), row.listed);
    }
}

} // namespace
