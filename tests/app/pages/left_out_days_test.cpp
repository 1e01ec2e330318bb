// SPDX-License-Identifier: MIT
// The days that a zone left out when it crossed the date line, on every page. Which those are: tzdata, as zdump prints
// it; weekdays and month lengths: Python's calendar.
#include "app/PreferenceKeys.h"
#include "calendar/DayNumber.h"
#include "calendar/MiniCalendarGrid.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "calendar/WeeklyGrid.h"
#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"
#include "support/AppFixture.h"

#include <QLabel>
#include <QTest>

#include <ostream>

namespace {

/// The last day of a week or the one before it.
struct LeftOutDay {
    const char* zone;
    int year;
    int month;
    int day;
    int lengthOfMonth;
    const char* week; ///< its first day, a Sunday, in the long style
    const char* numbers;
    const char* nextWeek;
    const char* nextNumbers;
};

void PrintTo(const LeftOutDay& row, std::ostream* stream)
{
    *stream << row.zone;
}

class LeftOutDayTest : public AppFixture, public ::testing::WithParamInterface<LeftOutDay> {
protected:
    void startInMonth()
    {
        host.userDefaults.stored.insert(PreferenceKeys::weekStart, 1);
        clock.set(DateUtilities::dateFromYear(row.year, row.month, row.day - 4) + std::chrono::hours(9));
        start();
    }
    void startWithNotesAround()
    {
        putNotes({note(row.year, row.month, row.day - 1, "before"), note(row.year, row.month, row.day + 1, "after")});
        startInMonth();
    }

    QString weekNumbers()
    {
        QStringList texts;
        for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
            texts.append(ui->weeklyGrid->viewWithTag<QLabel>(MonthGrid::weeklyDayTag(column))->text());
        }
        return texts.join(u' ');
    }
    /// The column of each note.
    QString weekNotes()
    {
        QStringList texts;
        for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
            texts.append(ui->weeklyGrid->viewWithTag<NoteField>(MonthGrid::weeklyNoteTag(column))->toPlainText());
        }
        return texts.join(u'|');
    }
    int weekday() const { return row.day == 30 ? 5 : 6; } // Friday in Apia, Saturday elsewhere

    const LeftOutDay& row = GetParam();
    TimeZoneGuard leavingOut{row.zone};
};

TEST_P(LeftOutDayTest, TheWeeksDaysStandUnderTheirNames)
{
    startWithNotesAround();
    ui->weeklyViewPageAction->trigger();
    EXPECT_EQ(ui->weeklyViewStartingDate->text(), QString::fromLatin1(row.week));
    EXPECT_EQ(weekNumbers(), QString::fromLatin1(row.numbers));
    const auto notesFrom = [this](int column, QStringList texts) {
        QStringList all(MonthGrid::DaysPerWeek);
        for (int i = 0; i < texts.size() && column + i < all.size(); ++i) {
            all[column + i] = texts.at(i);
        }
        return all.join(u'|');
    };
    EXPECT_EQ(weekNotes(), notesFrom(weekday() - 1, {QStringLiteral("before"), QString(), QStringLiteral("after")}));
    const auto& leftOut = *ui->weeklyGrid->viewWithTag<NoteField>(MonthGrid::weeklyNoteTag(weekday()));
    EXPECT_EQ(leftOut.accessibleName(), QString()) << "it has no date to speak";
}

TEST_P(LeftOutDayTest, NoWeekIsPassedOver)
{
    startInMonth();
    ui->weeklyViewPageAction->trigger();
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(ui->weeklyViewStartingDate->text(), QString::fromLatin1(row.nextWeek));
    EXPECT_EQ(weekNumbers(), QString::fromLatin1(row.nextNumbers));
    ui->weeklyViewBackWeek->click();
    EXPECT_EQ(ui->weeklyViewStartingDate->text(), QString::fromLatin1(row.week));
    EXPECT_EQ(weekNumbers(), QString::fromLatin1(row.numbers));
    for (int step = 0; step < 10; ++step) {
        ui->weeklyViewBackWeek->click();
    }
    for (int step = 0; step < 11; ++step) {
        ui->weeklyViewForwardWeek->click();
    }
    EXPECT_EQ(ui->weeklyViewStartingDate->text(), QString::fromLatin1(row.nextWeek));
}

TEST_P(LeftOutDayTest, TheWeekOfTheDayAfterItHoldsThatDay)
{
    startInMonth();
    clock.set(DateUtilities::dateFromYear(row.year, row.month, row.day) + std::chrono::hours(9));
    ui->todayBtn->click();
    ui->weeklyViewPageAction->trigger();
    const bool sundayAfter = weekday() == 6;
    EXPECT_EQ(ui->weeklyViewStartingDate->text(), QString::fromLatin1(sundayAfter ? row.nextWeek : row.week));
}

TEST_P(LeftOutDayTest, TheMonthPageShowsItWithoutANote)
{
    startWithNotesAround();
    ui->monthlyViewPageAction->trigger();
    const int first = MonthGrid::firstDayofMonth(row.month, row.year);
    for (int day = 1; day <= row.lengthOfMonth; ++day) {
        const int cell = MonthGrid::cellOfDay(day, first, true);
        EXPECT_EQ(ui->monthlyGrid->dayNumber(cell).text(), QString::number(day));
        const QString expected = day == row.day - 1   ? QStringLiteral("before")
                                 : day == row.day + 1 ? QStringLiteral("after")
                                                      : QString();
        EXPECT_EQ(ui->monthlyGrid->noteField(cell).toPlainText(), expected) << day;
    }
}

TEST_P(LeftOutDayTest, IsMarkedAsTodayNowhere)
{
    startInMonth();
    clock.set(DateUtilities::dateFromYear(row.year, row.month, row.day) + std::chrono::hours(9)); // the day after it
    ui->weeklyViewPageAction->trigger();
    ui->monthlyViewPageAction->trigger();
    const int first = MonthGrid::firstDayofMonth(row.month, row.year);
    const DayNumber& number = ui->monthlyGrid->dayNumber(MonthGrid::cellOfDay(row.day, first, true));
    const DayNumber& ordinary = ui->monthlyGrid->dayNumber(MonthGrid::cellOfDay(1, first, true));
    EXPECT_EQ(number.textColor(), ordinary.textColor());
}

TEST_P(LeftOutDayTest, ItsButtonStandsForNoDay)
{
    startWithNotesAround();
    ui->hideShowSegBtn->press(1); // no rows
    const QStringList rows = shownRows();
    DayButton& button = dayButton(row.day);
    EXPECT_EQ(button.state(), DayButton::Off);
    EXPECT_EQ(button.accessibleName(), QString::number(row.day));
    button.click();
    EXPECT_EQ(shownRows(), rows);
    EXPECT_EQ(button.state(), DayButton::Off);
    EXPECT_EQ(ui->notesTableView->editedRow(), -1);
}

TEST_P(LeftOutDayTest, NotesOfTheDaysAroundItStayOnTheirDays)
{
    startInMonth();
    for (const int away : {-1, 1}) {
        if (row.day + away > row.lengthOfMonth) {
            continue;
        }
        dayButton(row.day + away).click();
        QTest::keyClicks(QApplication::focusWidget(), away < 0 ? QStringLiteral("before") : QStringLiteral("after"));
        ui->notesTableView->endEditing();
    }
    const std::optional<Table> saved = notesOnDisk();
    ASSERT_TRUE(saved);
    Table expected{note(row.year, row.month, row.day - 1, "before")};
    if (row.day < row.lengthOfMonth) {
        expected.append(note(row.year, row.month, row.day + 1, "after"));
    }
    EXPECT_EQ(*saved, expected);
    app->minuteHasChanged();
    EXPECT_EQ(dayButton(row.day).state(), DayButton::Off);
    EXPECT_EQ(dayButton(row.day - 1).state(), DayButton::On);
}

INSTANTIATE_TEST_SUITE_P(Zones, LeftOutDayTest,
                         ::testing::Values(LeftOutDay{"Pacific/Apia", 2011, 12, 30, 31, "December 25, 2011",
                                                      "25 26 27 28 29 30 31", "January 1, 2012", "1 2 3 4 5 6 7"},
                                           LeftOutDay{"Pacific/Kiritimati", 1994, 12, 31, 31, "December 25, 1994",
                                                      "25 26 27 28 29 30 31", "January 1, 1995", "1 2 3 4 5 6 7"},
                                           LeftOutDay{"Pacific/Kwajalein", 1993, 8, 21, 31, "August 15, 1993",
                                                      "15 16 17 18 19 20 21", "August 22, 1993",
                                                      "22 23 24 25 26 27 28"}),
                         [](const ::testing::TestParamInfo<LeftOutDay>& param) {
                             return std::string(param.param.zone).substr(sizeof "Pacific/" - 1);
                         });

} // namespace
