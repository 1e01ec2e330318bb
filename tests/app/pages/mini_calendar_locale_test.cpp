// SPDX-License-Identifier: MIT
// The month shown, and today, in other calendars, languages and zones.
#include "app/pages/mini_calendar_fixture.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;

// Under each locale the month shown is read back from its two labels. Worked by hand: the Persian year 1403 began on
// 20 March 2024, so 15 March was 25 Esfand 1402; the year of the Buddhist era is the Gregorian one and 543.
struct LocaleRow {
    const char* locale;
    const char* language;
    const char* month;
    const char* year;
    const char* dayOfMonth;
    const char* yearOfNextMonth;
};

void PrintTo(const LocaleRow& row, std::ostream* stream)
{
    *stream << row.locale << " in " << row.language;
}

class MiniCalendarLocaleTest : public MiniCalendarTest, public ::testing::WithParamInterface<LocaleRow> {};

TEST_P(MiniCalendarLocaleTest, TheMonthShownSurvivesStepsAndRedraws)
{
    const LocaleRow& row = GetParam();
    const LocaleGuard guard(row.locale, {row.language});
    start();
    const QString shown = shownMonth();
    EXPECT_EQ(shown, QString::fromUtf8(row.month) + u' ' + QString::fromUtf8(row.year));
    EXPECT_THAT(redDays(), ElementsAre(QString::fromUtf8(row.dayOfMonth).toInt()));
    const QStringList days = titles();
    app->minuteHasChanged();
    EXPECT_EQ(shownMonth(), shown);
    EXPECT_EQ(titles(), days);

    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_EQ(ui->miniCalYear->text(), QString::fromUtf8(row.yearOfNextMonth));
    EXPECT_NE(shownMonth(), shown);
    EXPECT_THAT(redDays(), ElementsAre());
    ui->backOneYearOnMiniCal->click();
    ui->backOneMonthOnMiniCal->click();
    ui->forwardOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), shown);
    EXPECT_EQ(titles(), days);

    pressDay(4);
    typeNote(0, QStringLiteral("note"));
    ui->todayBtn->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(4));
}

INSTANTIATE_TEST_SUITE_P(Locales, MiniCalendarLocaleTest,
                         ::testing::Values(LocaleRow{"de_DE", "de-DE", "März", "2024", "15", "2024"},
                                           LocaleRow{"de_DE", "en-US", "March", "2024", "15", "2024"},
                                           LocaleRow{"th_TH", "th-TH", "มีนาคม", "2567", "15", "2567"},
                                           LocaleRow{"th_TH", "en-US", "March", "2567", "15", "2567"},
                                           LocaleRow{"fa_IR", "fa-IR", "اسفند", "۱۴۰۲", "25", "۱۴۰۳"},
                                           LocaleRow{"ar_EG", "ar-EG", "مارس", "٢٠٢٤", "15", "٢٠٢٤"}));

class MiniCalendarZoneTest : public MiniCalendarTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MiniCalendarZoneTest, ANoteMarksItsDayAndNoOther)
{
    const TimeZoneGuard guard(GetParam());
    putNotes({note(2024, 3, 10, "a"), note(2024, 3, 31, "b"), note(2024, 9, 8, "c"), note(2024, 10, 27, "d")});
    start();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(10, 31));
    showMonth(2024, 9);
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(8)); // has no midnight in Santiago
    showMonth(2024, 10);
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(27));
}

INSTANTIATE_TEST_SUITE_P(Zones, MiniCalendarZoneTest,
                         ::testing::Values("America/Santiago", "America/New_York", "Pacific/Kiritimati",
                                           "Pacific/Pago_Pago", "Asia/Kathmandu", "Europe/London"));

TEST_F(MiniCalendarTest, TheDayWithoutAMidnightIsToday)
{
    const TimeZoneGuard guard("America/Santiago");
    clock.set(utcDate(2024, 9, 8, 15)); // noon in Santiago, whose clocks went from 24:00 to 1:00 that night
    putNotes({note(2024, 9, 8, "today")});
    start();
    EXPECT_EQ(shownMonth(), QStringLiteral("September 2024"));
    EXPECT_THAT(redDays(), ElementsAre(8));
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(8));
}

} // namespace
