// SPDX-License-Identifier: MIT
#include "dates/DateFormatter.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

namespace {

class DateFormatterTest : public testing::Test {
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

const Date FifthOfMarchAtTwo = utcDate(2024, 3, 5, 14, 7, 9);

DateFormatter withFormat(QStringView pattern, const char* locale = "en_US")
{
    DateFormatter formatter(locale);
    formatter.setDateFormat(pattern.toString());
    return formatter;
}

TEST_F(DateFormatterTest, APlainOneHasNoTextUntilAStyleIsSet)
{
    DateFormatter formatter;
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QString());
    formatter.setDateStyle(DateFormatter::Style::Medium);
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("Mar 5, 2024"));
    formatter.setTimeStyle(DateFormatter::Style::Short);
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("Mar 5, 2024, 2:07\u202fPM"));
    formatter.setDateStyle(DateFormatter::Style::None);
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("2:07\u202fPM"));
}

TEST_F(DateFormatterTest, StylesFollowTheLocale)
{
    struct Row {
        const char* locale;
        DateFormatter::Style style;
        QStringView text;
    };
    // Forms of the Unicode locale data, release 42.
    constexpr Row Rows[] = {
        {"en_US", DateFormatter::Style::Short, u"3/5/24"},
        {"en_US", DateFormatter::Style::Full, u"Tuesday, March 5, 2024"},
        {"de_DE", DateFormatter::Style::Short, u"05.03.24"},
        {"de_DE", DateFormatter::Style::Long, u"5. März 2024"},
        {"fr_FR", DateFormatter::Style::Long, u"5 mars 2024"},
        {"ja_JP", DateFormatter::Style::Long, u"2024年3月5日"},
        {"ar_EG", DateFormatter::Style::Long, u"٥ مارس ٢٠٢٤"},
        {"fa_IR", DateFormatter::Style::Long, u"۱۵ اسفند ۱۴۰۲"},
        {"th_TH", DateFormatter::Style::Long, u"5 มีนาคม 2567"},
    };
    for (const Row& row : Rows) {
        DateFormatter formatter(row.locale);
        formatter.setDateStyle(row.style);
        EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), row.text.toString()) << row.locale;
    }
}

TEST_F(DateFormatterTest, LongStyleDatesParseBackToTheirDayInEveryLocale)
{
    int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    ASSERT_GT(count, 500);
    for (int32_t i = 0; i < count; ++i) {
        DateFormatter formatter(locales[i].getName());
        formatter.setDateStyle(DateFormatter::Style::Long);
        for (unsigned month = 1; month <= 12; ++month) {
            for (const unsigned day : {1U, 28U}) {
                const Date date = utcDate(2026, month, day);
                const QString text = formatter.stringFromDate(date);
                EXPECT_EQ(formatter.dateFromString(text), date) << locales[i].getName() << ": " << text.toStdString();
            }
        }
    }
}

TEST_F(DateFormatterTest, AStyleAndAFormatReplaceEachOther)
{
    DateFormatter formatter;
    formatter.setDateStyle(DateFormatter::Style::Long);
    formatter.setDateFormat(QStringLiteral("MM"));
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("03"));
    formatter.setDateStyle(DateFormatter::Style::Short);
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("3/5/24"));
}

TEST_F(DateFormatterTest, IdentifiersOfEitherFormNameTheLocale)
{
    for (const char* identifier : {"de", "de-DE", "de_DE", "de_DE.UTF-8", "de-Latn-DE"}) {
        EXPECT_EQ(withFormat(u"MMMM", identifier).stringFromDate(FifthOfMarchAtTwo), QStringLiteral("März"))
            << identifier;
    }
    EXPECT_EQ(withFormat(u"y", "en-US-u-ca-buddhist").stringFromDate(FifthOfMarchAtTwo), QStringLiteral("2567"));
    EXPECT_EQ(withFormat(u"y", "en_US@calendar=buddhist").stringFromDate(FifthOfMarchAtTwo), QStringLiteral("2567"));
}

TEST_F(DateFormatterTest, SettingTheLocaleKeepsTheFormatAndTakesItsCalendar)
{
    DateFormatter formatter = withFormat(u"d MMMM y");
    formatter.setLocale("th-TH");
    EXPECT_EQ(formatter.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("5 มีนาคม 2567"));
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("5 มีนาคม 2567")), utcDate(2024, 3, 5));
    DateFormatter styled;
    styled.setDateStyle(DateFormatter::Style::Long);
    styled.setLocale("de");
    EXPECT_EQ(styled.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("5. März 2024"));
}

TEST_F(DateFormatterTest, ParsingIsStrict)
{
    struct Row {
        QStringView pattern;
        QStringView text;
        std::optional<Date> date;
    };
    const Row rows[] = {
        {u"yyyy-MM-dd", u"2024-03-05", utcDate(2024, 3, 5)},
        {u"yyyy-MM-dd", u"1899-12-31", utcDate(1899, 12, 31)},
        {u"yyyy-MM-dd HH:mm", u"2024-03-05 14:07", utcDate(2024, 3, 5, 14, 7)},
        {u"EEE, MMM d, yyyy", u"Tue, Mar 5, 2024", utcDate(2024, 3, 5)},
        {u"yyyy-MM-dd", u"2024-02-30", std::nullopt},
        {u"yyyy-MM-dd", u"2023-02-29", std::nullopt},
        {u"yyyy-MM-dd", u"2024-13-01", std::nullopt},
        {u"yyyy-MM-dd", u"2024-03-00", std::nullopt},
        {u"yyyy-MM-dd", u"2024-03-05 ", std::nullopt},
        {u"yyyy-MM-dd", u"2024-03-05x", std::nullopt},
        {u"yyyy-MM-dd", u"2024-03", std::nullopt},
        {u"yyyy-MM-dd", u"", std::nullopt},
        {u"yyyy-MM-dd", u"March 5, 2024", std::nullopt},
        {u"EEE, MMM d, yyyy", u"Tue, Foo 5, 2024", std::nullopt},
        {u"M/d/yy", u"March 5, 2024", std::nullopt},
        {u"HH:mm", u"25:00", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(withFormat(row.pattern).dateFromString(row.text.toString()), row.date)
            << row.text.toString().toStdString() << " as " << row.pattern.toString().toStdString();
    }
}

TEST_F(DateFormatterTest, NothingParsesWithoutAFormat)
{
    EXPECT_FALSE(DateFormatter().dateFromString(QString()).has_value());
    EXPECT_FALSE(DateFormatter().dateFromString(QStringLiteral("2024")).has_value());
}

TEST_F(DateFormatterTest, ASkippedTimeDoesNotParseAndARepeatedOneIsTheFirst)
{
    const TimeZoneGuard zone("America/New_York");
    const DateFormatter formatter = withFormat(u"yyyy-MM-dd HH:mm");
    EXPECT_FALSE(formatter.dateFromString(QStringLiteral("2024-03-10 02:30")).has_value());
    // 3 November 2024, 01:30 came at 05:30 UTC and again at 06:30.
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("2024-11-03 01:30")), utcDate(2024, 11, 3, 5, 30));
}

TEST_F(DateFormatterTest, ListsBeginWithSundayAndJanuary)
{
    const DateFormatter german("de");
    EXPECT_EQ(german.weekdaySymbols().join(u' '),
              QStringLiteral("Sonntag Montag Dienstag Mittwoch Donnerstag Freitag Samstag"));
    EXPECT_EQ(german.standaloneWeekdaySymbols(), german.weekdaySymbols());
    EXPECT_EQ(german.shortWeekdaySymbols().join(u' '), QStringLiteral("So. Mo. Di. Mi. Do. Fr. Sa."));
    EXPECT_EQ(german.shortStandaloneWeekdaySymbols().join(u' '), QStringLiteral("So Mo Di Mi Do Fr Sa"));
    EXPECT_EQ(german.veryShortStandaloneWeekdaySymbols().join(u' '), QStringLiteral("S M D M D F S"));
    EXPECT_EQ(german.monthSymbols().size(), 12);
    EXPECT_EQ(german.monthSymbols().front(), QStringLiteral("Januar"));
    EXPECT_EQ(german.shortMonthSymbols().value(2), QStringLiteral("März"));
    EXPECT_EQ(german.shortStandaloneMonthSymbols().value(2), QStringLiteral("Mär"));
    EXPECT_EQ(german.veryShortStandaloneMonthSymbols().join(u' '), QStringLiteral("J F M A M J J A S O N D"));
}

TEST_F(DateFormatterTest, NamesWithinADateAndAloneAreToldApart)
{
    const DateFormatter russian("ru"); // genitive within a date, nominative alone
    EXPECT_EQ(russian.monthSymbols().front(), QStringLiteral("января"));
    EXPECT_EQ(russian.standaloneMonthSymbols().front(), QStringLiteral("январь"));
}

TEST_F(DateFormatterTest, ACopyIsIndependent)
{
    DateFormatter original = withFormat(u"MM");
    DateFormatter copy = original;
    original.setDateFormat(QStringLiteral("yyyy"));
    EXPECT_EQ(copy.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("03"));
    copy = original;
    EXPECT_EQ(copy.stringFromDate(FifthOfMarchAtTwo), QStringLiteral("2024"));
    EXPECT_FALSE(copy.dateFromString(QStringLiteral("x")).has_value());
}

} // namespace
