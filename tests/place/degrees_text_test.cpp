// SPDX-License-Identifier: MIT
#include "place/DegreesText.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace DegreesText;

namespace {

TEST(DegreesFromText, AreANumberInEveryWayOfWritingIt)
{
    struct {
        const char16_t* text;
        double degrees;
    } const rows[] = {
        {u"52.52", 52.52},
        {u"52,52", 52.52},
        {u"+52.52", 52.52},
        {u"-52.52", -52.52},
        {u"\u221252.52", -52.52},
        {u" 52.52 ", 52.52},
        {u"52.52°", 52.52},
        {u"52.52 °", 52.52},
        {u"52", 52},
        {u"52.", 52},
        {u".5", 0.5},
        {u"0", 0},
        {u"007", 7},
        {u"180", 180},
        {u"-180", -180},
        {u"180.000", 180},
        {u"٥٢٫٥٢", 52.52},
        {u"५२.५", 52.5},
        {u"\u061c-٥٢٫٥", -52.5},
        {u"\u200e\u2212۵۲٫۵", -52.5},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(degreesFromText(row.text, 180), row.degrees) << QString::fromUtf16(row.text).toStdString();
    }
}

TEST(DegreesFromText, AreNothingForAnyOtherText)
{
    for (const char16_t* text :
         {u"",   u" ",   u"-",   u"+",   u".",   u",",   u"°",     u"1.2.3", u"1,2.3", u"--1",  u"+-1", u"-+1",
          u"1-", u"1 2", u"1e1", u"0x1", u"inf", u"nan", u"north", u"52N",   u"52°30", u"52°°", u"²"}) {
        EXPECT_EQ(degreesFromText(text, 180), std::nullopt) << QString::fromUtf16(text).toStdString();
    }
    EXPECT_EQ(degreesFromText(QString(QChar(u'1')) + QChar(0), 180), std::nullopt);
    EXPECT_EQ(degreesFromText(QString(400, u'9'), 180), std::nullopt);
}

TEST(DegreesFromText, AreNothingBeyondTheLimit)
{
    EXPECT_EQ(degreesFromText(u"90", 90), 90);
    EXPECT_EQ(degreesFromText(u"-90", 90), -90);
    EXPECT_EQ(degreesFromText(u"90.000001", 90), std::nullopt);
    EXPECT_EQ(degreesFromText(u"-90.000001", 90), std::nullopt);
}

TEST(DegreesFromText, OfMinusZeroAreZero)
{
    EXPECT_FALSE(std::signbit(degreesFromText(u"-0", 90).value()));
}

TEST(WholeText, IsReadBackUnchangedInEveryLocale)
{
    for (const char* locale : {"en_US", "de_DE", "ar_EG", "fa_IR", "sv_SE", "hi_IN", "de_CH", "my_MM"}) {
        const LocaleGuard guard(locale, {"en-US"});
        for (const double degrees : {52.520008, -33.8688, 0.0, 0.000001, -179.999999, 90.0, 1.0 / 3}) {
            const QString text = wholeText(degrees);
            EXPECT_EQ(degreesFromText(text, 180), degrees) << locale << ' ' << text.toStdString();
        }
    }
}

TEST(WholeText, IsWrittenAsInTheLocale)
{
    const LocaleGuard german("de_DE", {"en-US"});
    EXPECT_EQ(wholeText(52.52), QStringLiteral("52,52"));
    EXPECT_EQ(wholeText(-180), QStringLiteral("-180"));
}

TEST(ShortText, HasOneDecimalPlace)
{
    struct {
        const char* locale;
        double degrees;
        const char* text;
    } const rows[] = {
        {"en_US", 52.52, "52.5"}, {"en_US", 9.99, "10.0"},  {"en_US", -74.01, "-74.0"}, {"en_US", -0.04, "0.0"},
        {"en_US", 0, "0.0"},      {"en_US", -0.06, "-0.1"}, {"de_DE", 52.52, "52,5"},   {"en_US", 180, "180.0"},
    };
    for (const auto& row : rows) {
        const LocaleGuard locale(row.locale, {"en-US"});
        EXPECT_EQ(shortText(row.degrees), QString::fromLatin1(row.text)) << row.degrees;
    }
}

} // namespace
