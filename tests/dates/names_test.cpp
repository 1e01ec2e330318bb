// SPDX-License-Identifier: MIT
// Names of days and months within a date and standing alone, in languages that tell them apart. The names are those
// that Python's Babel 2.10.3 (CLDR) prints: Locale("fi").days["format"]["wide"] and so on.
#include "dates/DateFormatter.h"
#include "dates/DateUtilities.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace DateUtilities;

namespace {

/// A language, and what it calls Monday and March.
struct Names {
    const char* language;
    QString day;
    QString dayAlone;
    QString shortDay;
    QString shortDayAlone;
    QString month;
    QString monthAlone;
    QString shortMonth;
    QString shortMonthAlone;
    QString narrowMonthAlone;
};

void PrintTo(const Names& names, std::ostream* stream)
{
    *stream << names.language;
}

const Names Languages[] = {
    {"fi", QStringLiteral("maanantaina"), QStringLiteral("maanantai"), QStringLiteral("ma"), QStringLiteral("ma"),
     QStringLiteral("maaliskuuta"), QStringLiteral("maaliskuu"), QStringLiteral("maalisk."), QStringLiteral("maalis"),
     QStringLiteral("M")},
    {"ru", QStringLiteral("понедельник"), QStringLiteral("понедельник"), QStringLiteral("пн"), QStringLiteral("пн"),
     QStringLiteral("марта"), QStringLiteral("март"), QStringLiteral("мар."), QStringLiteral("март"),
     QStringLiteral("М")},
    {"de", QStringLiteral("Montag"), QStringLiteral("Montag"), QStringLiteral("Mo."), QStringLiteral("Mo"),
     QStringLiteral("März"), QStringLiteral("März"), QStringLiteral("März"), QStringLiteral("Mär"),
     QStringLiteral("M")},
    {"pl", QStringLiteral("poniedziałek"), QStringLiteral("poniedziałek"), QStringLiteral("pon."),
     QStringLiteral("pon."), QStringLiteral("marca"), QStringLiteral("marzec"), QStringLiteral("mar"),
     QStringLiteral("mar"), QStringLiteral("M")},
    {"uk", QStringLiteral("понеділок"), QStringLiteral("понеділок"), QStringLiteral("пн"), QStringLiteral("пн"),
     QStringLiteral("березня"), QStringLiteral("березень"), QStringLiteral("бер."), QStringLiteral("бер"),
     QStringLiteral("Б")},
};

class NamesOfDaysAndMonths : public testing::TestWithParam<Names> {
protected:
    const Names& names = GetParam();
    const Date monday = utcDate(2024, 3, 4); // Python: calendar.weekday(2024, 3, 4)
    TimeZoneGuard zone{"UTC"};
};

TEST_P(NamesOfDaysAndMonths, StandInTheFormattersLists)
{
    const DateFormatter formatter(names.language);
    EXPECT_EQ(formatter.weekdaySymbols().at(1), names.day);
    EXPECT_EQ(formatter.standaloneWeekdaySymbols().at(1), names.dayAlone);
    EXPECT_EQ(formatter.shortWeekdaySymbols().at(1), names.shortDay);
    EXPECT_EQ(formatter.shortStandaloneWeekdaySymbols().at(1), names.shortDayAlone);
    EXPECT_EQ(formatter.monthSymbols().at(2), names.month);
    EXPECT_EQ(formatter.standaloneMonthSymbols().at(2), names.monthAlone);
    EXPECT_EQ(formatter.shortMonthSymbols().at(2), names.shortMonth);
    EXPECT_EQ(formatter.shortStandaloneMonthSymbols().at(2), names.shortMonthAlone);
    EXPECT_EQ(formatter.veryShortStandaloneMonthSymbols().at(2), names.narrowMonthAlone);
}

TEST_P(NamesOfDaysAndMonths, OfADayAreThoseWithinADateInTheCurrentLocale)
{
    const LocaleGuard locale(names.language, {"en-US"});
    EXPECT_EQ(dayNameFromDate(monday), names.day);
    EXPECT_EQ(shortDayNameFromDate(monday), names.shortDay);
    EXPECT_EQ(dayNumberFromName(names.day), 1);
    EXPECT_EQ(monthNameFromNumber(3), names.month);
    if (names.day != names.dayAlone) {
        EXPECT_EQ(dayNumberFromName(names.dayAlone), NotFound);
    }
}

TEST_P(NamesOfDaysAndMonths, OfAMonthAreThoseThatStandAloneInTheFirstLanguage)
{
    const LocaleGuard locale("en_US", {names.language});
    EXPECT_EQ(monthNameFromDate(monday), names.monthAlone);
    EXPECT_EQ(shortMonthNameFromDate(monday), names.shortMonthAlone);
    EXPECT_EQ(veryShortMonthNameFromDate(monday), names.narrowMonthAlone);
    EXPECT_EQ(monthNumberFromName(names.monthAlone), 3);
    if (names.month != names.monthAlone) {
        EXPECT_LT(monthNumberFromName(names.month), 1);
    }
}

TEST(VeryShortNames, OfDaysStandAlone)
{
    EXPECT_EQ(DateFormatter("pl").veryShortStandaloneWeekdaySymbols().at(1), QStringLiteral("P")); // "p" within a date
    EXPECT_EQ(DateFormatter("hr").veryShortStandaloneWeekdaySymbols().at(1), QStringLiteral("p")); // "P" within a date
}

INSTANTIATE_TEST_SUITE_P(Languages, NamesOfDaysAndMonths, testing::ValuesIn(Languages),
                         [](const testing::TestParamInfo<Names>& row) { return std::string(row.param.language); });

} // namespace
