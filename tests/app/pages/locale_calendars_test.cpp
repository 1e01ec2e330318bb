// SPDX-License-Identifier: MIT
// The pages in locales with calendars of their own, each with several first preferred languages.
#include "calendar/MiniCalendarGrid.h"
#include "dates/DateUtilities.h"
#include "store/Record.h"
#include "support/AppFixture.h"
#include "text/IntegerValue.h"

#include <ostream>

namespace {

/// The month of 15 March 2024 as a page's title names it: 25 Esfand 1402, five days before the published new year of
/// 1403, and 5 Ramadan 1445, a month that began on 11 March. Gregorian names are those that Python's Babel prints.
struct Languages {
    const char* currentLocale;
    const char* language;
    const char* title;
    const char* fourteenMonthsOn;
};

void PrintTo(const Languages& row, std::ostream* stream)
{
    *stream << row.currentLocale << ", " << row.language;
}

class LocaleCalendarTest : public AppFixture, public ::testing::WithParamInterface<Languages> {
protected:
    QString miniTitle() { return ui->miniCalMonthName->text() + u' ' + ui->miniCalYear->text(); }
    QStringList titlesOfDays()
    {
        QStringList all;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            all.append(button->title() + button->accessibleName());
        }
        return all;
    }

    const Languages& row = GetParam();
    LocaleGuard locale{row.currentLocale, {row.language}};
};

TEST_P(LocaleCalendarTest, MonthAndYearOfATitleAreOfOneCalendar)
{
    start();
    EXPECT_EQ(miniTitle(), QString::fromUtf8(row.title));
    ui->monthlyViewPageAction->trigger();
    EXPECT_EQ(ui->monthlyViewMonthYear->text(), QString::fromUtf8(row.title));
}

TEST_P(LocaleCalendarTest, FourteenMonthsForthAndBackComeToTheSameDays)
{
    start();
    const QStringList days = titlesOfDays();
    QStringList passed;
    for (int step = 0; step < 14; ++step) {
        passed.append(miniTitle());
        ui->forwardOneMonthOnMiniCal->click();
        ui->monthlyViewPageAction->trigger();
        EXPECT_EQ(ui->monthlyViewMonthYear->text(), miniTitle()) << step;
        ui->miniCalendarPageAction->trigger();
    }
    EXPECT_EQ(miniTitle(), QString::fromUtf8(row.fourteenMonthsOn));
    EXPECT_EQ(passed.removeDuplicates(), 0);
    while (!passed.isEmpty()) {
        ui->backOneMonthOnMiniCal->click();
        EXPECT_EQ(miniTitle(), passed.takeLast());
    }
    EXPECT_EQ(titlesOfDays(), days);
}

TEST_P(LocaleCalendarTest, TheMonthPageGoesTheSameWay)
{
    start();
    ui->monthlyViewPageAction->trigger();
    for (int step = 0; step < 14; ++step) {
        ui->monthlyViewForwardBtn->click();
    }
    EXPECT_EQ(ui->monthlyViewMonthYear->text(), QString::fromUtf8(row.fourteenMonthsOn));
    for (int step = 0; step < 14; ++step) {
        ui->monthlyViewBackBtn->click();
    }
    EXPECT_EQ(ui->monthlyViewMonthYear->text(), QString::fromUtf8(row.title));
}

TEST_P(LocaleCalendarTest, ARowsDateAndTheDayPressedForItAgree)
{
    start();
    dayButton(4).click();
    ASSERT_EQ(app->notesTVData->size(), 1);
    const YearMonthDay now = DateUtilities::yearMonthDayFromDate(clock.now());
    const Date date = day(now.year, now.month, 4);
    EXPECT_EQ(app->notesTVData, Table{makeNoteRecord(date, {})});
    const QString shown = shownRows().first();
    DateFormatter year = DateUtilities::copyFormatterForLocaleDevice();
    year.setDateFormat(QStringLiteral("yyyy"));
    EXPECT_TRUE(shown.contains(year.stringFromDate(date)));
    EXPECT_EQ(integerValue(year.stringFromDate(date)), integerValue(ui->miniCalYear->text()));
}

INSTANTIATE_TEST_SUITE_P(Locales, LocaleCalendarTest,
                         ::testing::Values(Languages{"en_US", "en-US", "March 2024", "May 2025"},
                                           Languages{"en_US", "fa-IR", "مارس 2024", "مه 2025"},
                                           Languages{"en_US", "ar-SA", "مارس 2024", "مايو 2025"},
                                           Languages{"en_US", "th-TH", "มีนาคม 2024", "พฤษภาคม 2025"},
                                           Languages{"ar_SA", "en-US", "Ramadan ١٤٤٥", "Dhuʻl-Qiʻdah ١٤٤٦"},
                                           Languages{"ar_SA", "ar-SA", "رمضان ١٤٤٥", "ذو القعدة ١٤٤٦"},
                                           Languages{"fa_IR", "en-US", "Esfand ۱۴۰۲", "Ordibehesht ۱۴۰۴"},
                                           Languages{"fa_IR", "fa-IR", "اسفند ۱۴۰۲", "اردیبهشت ۱۴۰۴"},
                                           Languages{"th_TH", "en-US", "March 2567", "May 2568"},
                                           Languages{"th_TH", "th-TH", "มีนาคม 2567", "พฤษภาคม 2568"},
                                           Languages{"de_DE", "ja-JP", "3月 2024", "5月 2025"}));

} // namespace
