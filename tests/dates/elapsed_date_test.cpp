// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "dates/ElapsedDate.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

namespace {

// Expected texts are worked by hand.
struct ElapsedRow {
    const char* name;
    Date event;
    Date now;
    QStringView text;
};

class ElapsedDateText : public testing::TestWithParam<ElapsedRow> {
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en-US"}};
};

TEST_P(ElapsedDateText, CountsYearsMonthsAndDays)
{
    EXPECT_EQ(elapsedDateText(GetParam().event, GetParam().now, ElapsedUnitWords()), GetParam().text.toString());
}

INSTANTIATE_TEST_SUITE_P(
    Dates, ElapsedDateText,
    testing::Values(
        ElapsedRow{"AllThree", utcDate(2020, 1, 1), utcDate(2023, 3, 6, 12), u"3 Years 2 Months 5 Days"},
        ElapsedRow{"OneOfEach", utcDate(2020, 1, 1), utcDate(2021, 2, 2), u"1 Year 1 Month 1 Day"},
        ElapsedRow{"NoMonth", utcDate(2022, 3, 5, 10), utcDate(2023, 3, 6, 10), u"1 Year  1 Day"},
        ElapsedRow{"EarlierToday", utcDate(2024, 3, 5), utcDate(2024, 3, 5, 10), u"0 Years, 0 Months, 0 Days "},
        ElapsedRow{"LaterToday", utcDate(2024, 3, 5, 20), utcDate(2024, 3, 5, 10), u"0 Years, 0 Months, 0 Days "},
        ElapsedRow{"SameInstant", utcDate(2024, 3, 5), utcDate(2024, 3, 5), u"0 Years, 0 Months, 0 Days "},
        ElapsedRow{"MidnightTomorrow", utcDate(2024, 3, 6), utcDate(2024, 3, 5, 10), u"0 Years, 0 Months, 0 Days "},
        ElapsedRow{"TwoMonthsAhead", utcDate(2024, 5, 5, 10), utcDate(2024, 3, 5, 10), u" 2 Months "},
        ElapsedRow{"TwoYearsAhead", utcDate(2026, 3, 5), utcDate(2024, 3, 5), u"2 Years  "},
        ElapsedRow{"TwoYearsPast", utcDate(2022, 3, 5), utcDate(2024, 3, 5), u"2 Years  "},
        ElapsedRow{"OneDayPast", utcDate(2024, 3, 4), utcDate(2024, 3, 5), u"  1 Day"},
        ElapsedRow{"YearAndDayAhead", utcDate(2025, 3, 6), utcDate(2024, 3, 5), u"1 Year  1 Day"},
        ElapsedRow{"LeapDayInAPlainYear", utcDate(2020, 2, 29), utcDate(2021, 2, 28), u"1 Year  "},
        ElapsedRow{"EndOfMonth", utcDate(2024, 1, 31), utcDate(2024, 3, 1), u" 1 Month 1 Day"},
        ElapsedRow{"ACentury", utcDate(1920, 6, 15), utcDate(2024, 3, 5), u"103 Years 8 Months 19 Days"}),
    [](const testing::TestParamInfo<ElapsedRow>& row) { return std::string(row.param.name); });

TEST(ElapsedDate, UsesTheWordsItIsGiven)
{
    const TimeZoneGuard zone("UTC");
    const LocaleGuard locale("de_DE", {"de"});
    const ElapsedUnitWords words{QStringLiteral("Jahr"),   QStringLiteral("Jahre"), QStringLiteral("Monat"),
                                 QStringLiteral("Monate"), QStringLiteral("Tag"),   QStringLiteral("%1 Tage")};
    EXPECT_EQ(elapsedDateText(utcDate(2020, 1, 1), utcDate(2022, 2, 2), words),
              QStringLiteral("2 Jahre 1 Monat 1 Tag"));
    EXPECT_EQ(elapsedDateText(utcDate(2020, 1, 1), utcDate(2020, 1, 1), words),
              QStringLiteral("0 Jahre, 0 Monate, 0 %1 Tage "));
}

} // namespace
