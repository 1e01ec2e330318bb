// SPDX-License-Identifier: MIT
// Names of days and months on the pages, in languages that tell a name that stands alone from one within a date. The
// names are those that Python's Babel 2.10.3 (CLDR) prints: Locale("fi").days["stand-alone"]["wide"] and so on.
#include "app/PreferenceKeys.h"
#include "calendar/MiniCalendarGrid.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/WeeklyGrid.h"
#include "dates/MonthGrid.h"
#include "support/AppFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <ostream>

namespace {

/// What the language calls Monday, Sunday and the month before, this month (March) and the next, each standing alone.
struct Names {
    const char* language;
    QString monday;
    QString sunday;
    QString shortMonday;
    QString shortSunday;
    QString month;
    QString monthsAround;
};

void PrintTo(const Names& row, std::ostream* stream)
{
    *stream << row.language;
}

class PageNamesTest : public AppFixture, public ::testing::WithParamInterface<Names> {
protected:
    void SetUp() override
    {
        host.userDefaults.stored.insert(PreferenceKeys::weekStart, 0);
        start();
    }

    const Names& names = GetParam();
    LocaleGuard locale{"en_US", {names.language}};
};

TEST_P(PageNamesTest, OfTheMiniCalendarStandAlone)
{
    EXPECT_EQ(ui->miniCalMonthName->text(), names.month);
    const auto& monday = *ui->miniCalendarGrid->viewWithTag<QLabel>(MonthGrid::miniHeaderTag(0));
    EXPECT_EQ(monday.text(), names.shortMonday.left(1));
    EXPECT_EQ(monday.accessibleName(), names.monday);
    const auto& sunday = *ui->miniCalendarGrid->viewWithTag<QLabel>(MonthGrid::miniHeaderTag(6));
    EXPECT_EQ(sunday.text(), names.shortSunday);
    EXPECT_EQ(sunday.accessibleName(), names.sunday);
}

TEST_P(PageNamesTest, OfTheWeekStandAlone)
{
    ui->weeklyViewPageAction->trigger();
    const auto& monday = *ui->weeklyGrid->viewWithTag<QLineEdit>(MonthGrid::weeklyHeaderTag(0));
    EXPECT_EQ(monday.placeholderText(), names.shortMonday);
    EXPECT_EQ(monday.accessibleName(), names.monday);
}

TEST_P(PageNamesTest, OfTheMonthStandAlone)
{
    ui->monthlyViewPageAction->trigger();
    EXPECT_EQ(ui->monthlyViewMonthYear->text(), names.month + QStringLiteral(" 2024"));
    EXPECT_EQ(ui->monthlyGrid->header(0).text(), names.shortMonday);
    EXPECT_EQ(ui->monthlyGrid->header(0).accessibleName(), names.monday);
}

TEST_P(PageNamesTest, OfTheNotesListStandAlone)
{
    EXPECT_EQ(ui->hideShowSegBtn->labelForSegment(0), names.month + QStringLiteral(" Notes"));
    EXPECT_EQ(ui->prevMonthYearDesc->text() + QStringLiteral(" / ") + ui->nextMonthYearDesc->text(),
              names.monthsAround);
}

TEST_P(PageNamesTest, OfThePreferencesStandAlone)
{
    ui->preferencesAction->trigger();
    EXPECT_EQ(window->findChild<QRadioButton*>(QStringLiteral("sundayPref"))->text(), names.sunday);
    EXPECT_EQ(window->findChild<QRadioButton*>(QStringLiteral("mondayPref"))->text(), names.monday);
}

INSTANTIATE_TEST_SUITE_P(
    Languages, PageNamesTest,
    ::testing::Values(Names{"fi", QStringLiteral("maanantai"), QStringLiteral("sunnuntai"), QStringLiteral("ma"),
                            QStringLiteral("su"), QStringLiteral("maaliskuu"),
                            QStringLiteral("helmi 2024 / huhti 2024")},
                      Names{"de", QStringLiteral("Montag"), QStringLiteral("Sonntag"), QStringLiteral("Mo"),
                            QStringLiteral("So"), QStringLiteral("März"), QStringLiteral("Feb 2024 / Apr 2024")},
                      Names{"ru", QStringLiteral("понедельник"), QStringLiteral("воскресенье"), QStringLiteral("пн"),
                            QStringLiteral("вс"), QStringLiteral("март"), QStringLiteral("февр. 2024 / апр. 2024")},
                      Names{"pl", QStringLiteral("poniedziałek"), QStringLiteral("niedziela"), QStringLiteral("pon."),
                            QStringLiteral("niedz."), QStringLiteral("marzec"), QStringLiteral("lut 2024 / kwi 2024")}),
    [](const ::testing::TestParamInfo<Names>& row) { return std::string(row.param.language); });

} // namespace
