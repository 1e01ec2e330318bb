// SPDX-License-Identifier: MIT
#include "dates/DayText.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

namespace {

class DayTextTest : public testing::Test {
protected:
    static std::string text(const char* language, Date date)
    {
        return DayText(language).textFromDate(date).toStdString();
    }
    static std::optional<Date> typed(const char* language, const char* utf8)
    {
        return DayText(language).dateFromText(QString::fromUtf8(utf8), utcDate(2023, 4, 15, 9, 30));
    }

private:
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST_F(DayTextTest, ADayIsWrittenAsItsLanguageDoesWithTheWholeYear)
{
    const Date day = utcDate(1965, 2, 9, 18);
    // Forms of the Unicode locale data, release 42, skeleton yMd.
    EXPECT_EQ(text("en-US", day), "2/9/1965");
    EXPECT_EQ(text("en-GB", day), "09/02/1965");
    EXPECT_EQ(text("de-DE", day), "9.2.1965");
    EXPECT_EQ(text("sv-SE", day), "1965-02-09");
    EXPECT_EQ(text("ja-JP", day), "1965/2/9");
    EXPECT_EQ(text("ko-KR", day), "1965. 2. 9.");
}

TEST_F(DayTextTest, ADayIsCountedByTheCalendarOfItsLanguage)
{
    EXPECT_EQ(text("th-TH", utcDate(2024, 3, 15)), "15/3/2567");
    EXPECT_EQ(text("fa-IR", utcDate(1990, 5, 20)), "۱۳۶۹/۲/۳۰"); // by the published tables
    EXPECT_EQ(typed("th-TH", "15/3/2567"), utcDate(2024, 3, 15, 9, 30));
    EXPECT_EQ(typed("fa-IR", "۱۳۶۹/۲/۳۰"), utcDate(1990, 5, 20, 9, 30));
    EXPECT_EQ(typed("fa-IR", "1369/2/30"), utcDate(1990, 5, 20, 9, 30));
}

TEST_F(DayTextTest, ATypedDayCountsWithAndWithoutItsSeparators)
{
    const Date christmas = utcDate(1965, 12, 24, 9, 30);
    for (const char* text : {"12/24/1965", "12241965", "12 24 1965", "12.24.1965 ", "12-24-1965"}) {
        EXPECT_EQ(typed("en-US", text), christmas) << text;
    }
    for (const char* text : {"24.12.1965", "24121965", "24/12/1965", "٢٤.١٢.١٩٦٥"}) {
        EXPECT_EQ(typed("de-DE", text), christmas) << text;
    }
    for (const char* text : {"1965-12-24", "19651224"}) {
        EXPECT_EQ(typed("sv-SE", text), christmas) << text;
    }
    EXPECT_EQ(typed("ko-KR", "1965. 12. 24."), christmas);
    EXPECT_EQ(typed("de-DE", "4.7.1965"), utcDate(1965, 7, 4, 9, 30));
}

TEST_F(DayTextTest, ADayThatThePresentMonthOrYearLacksCanBeTyped)
{
    EXPECT_EQ(typed("de-DE", "31121965"), utcDate(1965, 12, 31, 9, 30));
    EXPECT_EQ(typed("de-DE", "29.2.1964"), utcDate(1964, 2, 29, 9, 30));
    EXPECT_EQ(typed("en-US", "02291964"), utcDate(1964, 2, 29, 9, 30));
}

TEST_F(DayTextTest, WhatIsNotCompleteOrNoDayIsNothing)
{
    for (const char* text : {"", "5", "12/24", "12/24/", "12/24/1", "12/24/196", "12/24/19655", "1224196", "122419655",
                             "2/29/1965", "13/1/1965", "0/1/1965", "1/0/1965", "4/31/1965", "123/1/1965", "1/1/0000",
                             "1/2/3/1965", "May 5, 1965", "99999999999999999999/1/1965"}) {
        EXPECT_EQ(typed("en-US", text), std::nullopt) << text;
    }
}

TEST_F(DayTextTest, TheTimeOfDayStays)
{
    const TimeZoneGuard berlin("Europe/Berlin");
    const Date summerEvening = utcDate(2024, 7, 1, 19, 15, 30);
    EXPECT_EQ(DayText("de").dateFromText(u"1.12.2024", summerEvening), utcDate(2024, 12, 1, 20, 15, 30));
}

TEST_F(DayTextTest, WhatIsWrittenIsReadBackInEveryLanguage)
{
    int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    for (int32_t i = 0; i < count; ++i) {
        const DayText dayText(locales[i].getName());
        for (const Date date : {utcDate(1801, 12, 31, 5), utcDate(2024, 2, 29, 5), utcDate(2026, 11, 3, 5)}) {
            const QString text = dayText.textFromDate(date);
            EXPECT_EQ(dayText.dateFromText(text, date), date) << locales[i].getName() << ' ' << text.toStdString();
        }
    }
}

TEST_F(DayTextTest, AYearBeforeTheThousandthIsWrittenAsItIsTyped)
{
    EXPECT_EQ(text("ko-KR", *typed("ko-KR", "0982. 12. 24.")), "0982. 12. 24.");
    EXPECT_EQ(text("en-US", *typed("en-US", "12/24/0001")), "12/24/0001");
}

TEST_F(DayTextTest, ThePartAtTheCaretFollowsTheOrderOfTheLanguage)
{
    using enum DayText::Part;
    const DayText english("en-US");
    // A caret between a separator and the next number is still behind the number before.
    const std::array expected{Month, Month, Month, Month, Day, Day, Day, Year, Year, Year, Year};
    for (std::size_t caret = 0; caret < expected.size(); ++caret) {
        EXPECT_EQ(english.partAt(u"12/24/1965", static_cast<qsizetype>(caret)), expected.at(caret)) << caret;
    }
    EXPECT_EQ(DayText("de").partAt(u"24.12.1965", 0), Day);
    EXPECT_EQ(DayText("sv").partAt(u"1965-12-24", 2), Year);
    EXPECT_EQ(english.partAt(u"", 0), Month);
    EXPECT_EQ(english.partAt(u"1/2/3/4", 7), Year);
}

} // namespace
