// SPDX-License-Identifier: MIT
#include "app/pages/mini_calendar_fixture.h"
#include "table/CellEditor.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;

struct GridRow {
    const char* name;
    int year;
    int month;
    int weekStart; ///< 1: Sunday first
    int firstCell;
    int days;
};

void PrintTo(const GridRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class MiniCalendarGridTest : public MiniCalendarTest, public ::testing::WithParamInterface<GridRow> {};

TEST_P(MiniCalendarGridTest, ShowsTheDaysFromTheCellOfTheFirst)
{
    const GridRow& row = GetParam();
    setWeekStart(row.weekStart);
    start();
    showMonth(row.year, row.month);
    for (int number = 1; number <= 37; ++number) {
        const int dayOfMonth = number - row.firstCell + 1;
        const bool blank = dayOfMonth < 1 || dayOfMonth > row.days;
        EXPECT_EQ(cell(number).title(), blank ? QString() : QString::number(dayOfMonth)) << number;
        EXPECT_EQ(cell(number).isTransparent(), blank) << number;
        EXPECT_EQ(cell(number).property("tag").toInt(), number);
        EXPECT_EQ(cell(number).accessibleName().isEmpty(), blank) << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Months, MiniCalendarGridTest,
                         ::testing::Values(GridRow{"SundayFirstOfAMonthBeginningOnSunday", 2024, 9, 1, 1, 30},
                                           GridRow{"MondayFirstOfAMonthBeginningOnSunday", 2024, 9, 0, 7, 30},
                                           GridRow{"SundayFirstOfAMonthBeginningOnSaturday", 2024, 6, 1, 7, 30},
                                           GridRow{"ThirtyOneDaysUpToTheLastCell", 2025, 3, 1, 7, 31},
                                           GridRow{"TwentyEightDaysFromTheFirstCell", 2015, 2, 1, 1, 28},
                                           GridRow{"LeapFebruary", 2024, 2, 0, 4, 29},
                                           GridRow{"DecemberOfTheYearBefore", 2023, 12, 1, 6, 31}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(MiniCalendarTest, WithSundayFirstEveryHeaderIsOneCharacter)
{
    setWeekStart(1);
    start();
    EXPECT_EQ(headers(), QStringLiteral("S M T W T F S").split(u' '));
}

TEST_F(MiniCalendarTest, WithMondayFirstTheSundayAtTheEndKeepsItsShortName)
{
    setWeekStart(0);
    start();
    EXPECT_EQ(headers(), QStringLiteral("M T W T F S Sun").split(u' '));
}

TEST_F(MiniCalendarTest, TheTimeIsTheShortOneOfTheLocale)
{
    start();
    EXPECT_EQ(ui->miniCalTime->text().simplified(), QStringLiteral("9:30 AM")); // the blank is a narrow one
    clock.advance(std::chrono::minutes(61));
    app->updateTimeOnUI();
    EXPECT_EQ(ui->miniCalTime->text().simplified(), QStringLiteral("10:31 AM"));
}

TEST_F(MiniCalendarTest, TodayIsRedInItsMonthOnly)
{
    start();
    EXPECT_THAT(redDays(), ElementsAre(15));
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(redDays(), ElementsAre());
    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_THAT(redDays(), ElementsAre(15));
    ui->forwardOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("March 2025"));
    EXPECT_THAT(redDays(), ElementsAre());
    EXPECT_EQ(app->findTagForTodaysDay(*window), 0);
    ui->todayBtn->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("March 2024"));
    EXPECT_THAT(redDays(), ElementsAre(15));
}

TEST_F(MiniCalendarTest, ADayThatNoButtonShowsIsColouredNowhere)
{
    start();
    for (DayButton* button : ui->miniCalendarGrid->dayButtons()) {
        button->setTitle(QString());
    }
    EXPECT_EQ(app->findTagForTodaysDay(*window), 38);
    app->colorTodayOnMiniCal();
    AppDelegate::buttonSetTitleColor(Qt::red, nullptr);
    EXPECT_THAT(redDays(), ElementsAre());
}

TEST_F(MiniCalendarTest, TheTickAfterMidnightMovesTheRedMark)
{
    start();
    clock.set(utcDate(2024, 3, 15, 22, 59, 59));
    app->minuteHasChanged();
    EXPECT_THAT(redDays(), ElementsAre(15));
    clock.set(utcDate(2024, 3, 15, 23, 0, 0)); // midnight in Berlin
    app->minuteHasChanged();
    EXPECT_THAT(redDays(), ElementsAre(16));
}

TEST_F(MiniCalendarTest, EveryTickRedrawsTheDays)
{
    start();
    cell(6).setTitle(QStringLiteral("x"));
    app->updateTimeOnUI();
    EXPECT_FALSE(titles().contains(QStringLiteral("x")));
}

TEST_F(MiniCalendarTest, MonthsStepAcrossTheYearsEnd)
{
    start();
    showMonth(2024, 1);
    ui->backOneMonthOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("December 2023"));
    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("January 2024"));
}

TEST_F(MiniCalendarTest, YearsStepWithinTheMonth)
{
    start();
    showMonth(2024, 2);
    ui->forwardOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("February 2025"));
    EXPECT_FALSE(titles().contains(QStringLiteral("29")));
    ui->backOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("February 2024"));
    EXPECT_TRUE(titles().contains(QStringLiteral("29")));
}

TEST_F(MiniCalendarTest, ArrowsDoNothingWhileNoMonthIsShown)
{
    make();
    app->formatCopyMiniCalTime();
    for (QAbstractButton* arrow : {ui->backOneMonthOnMiniCal, ui->forwardOneYearOnMiniCal}) {
        app->backForwardYearOrMonth(*arrow);
    }
    app->redrawMiniCal();
    EXPECT_EQ(ui->miniCalYear->text(), QString());
    EXPECT_EQ(app->fromMiniCalGetYearMonth(), MonthGrid::YearMonth());
}

TEST_F(MiniCalendarTest, ADayIsOnWhenItHasANote)
{
    putNotes(
        {note(2024, 3, 1, "first"), note(2024, 3, 31, "last"), note(2024, 4, 1, "after"), note(2024, 2, 29, "before")});
    start();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1, 31));
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(29));
}

TEST_F(MiniCalendarTest, GoingToTodayMarksTheNotesOfTheListWhileArrowsAndTicksMarkAll)
{
    putNotes({note(2024, 3, 1, "kept"), note(2024, 3, 20, "hidden by the filter")});
    start();
    ui->filterField->setText(QStringLiteral("kept"));
    ui->filterBtn->click();
    ui->todayBtn->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1));
    app->redrawMiniCal();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1, 20));
    ui->todayBtn->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1));
    ui->forwardOneMonthOnMiniCal->click();
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1, 20));
}

TEST_F(MiniCalendarTest, ABlankCellChangesOnlyTheCount)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    ui->countOfNotesInTV->setText(QStringLiteral("stale"));
    ui->notesTableView->selectRow(1);
    const QStringList before = shownRows();
    DayButton& blank = cell(37);
    ASSERT_EQ(blank.title(), QString());
    blank.click();
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
    EXPECT_EQ(shownRows(), before);
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(ui->notesTableView->editedRow(), -1);
    EXPECT_EQ(blank.state(), DayButton::Off);
}

TEST_F(MiniCalendarTest, ADayShownInTheListIsSelectedThere)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 2, 6, "b"), note(2024, 3, 7, "c")});
    start();
    pressDay(7);
    EXPECT_EQ(ui->notesTableView->selectedRow(), 2);
    EXPECT_EQ(shownRows().size(), 3);
    EXPECT_TRUE(ui->deleteRowFromListBtn->isEnabled());
}

TEST_F(MiniCalendarTest, ADayHiddenByTheListBringsItsMonthSortedByDate)
{
    putNotes({note(2024, 3, 20, "late"), note(2024, 4, 2, "other month"), note(2024, 3, 5, "early")});
    start();
    ui->filterField->setText(QStringLiteral("other"));
    ui->filterBtn->click();
    ui->todayBtn->click();
    ASSERT_EQ(dayButton(20).state(), DayButton::Off);
    pressDay(20);
    EXPECT_EQ(shownRows(),
              QStringList({QStringLiteral("Tue, Mar 5, 2024 | early"), QStringLiteral("Wed, Mar 20, 2024 | late")}));
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(dayButton(20).state(), DayButton::On);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
}

TEST_F(MiniCalendarTest, ADayWithoutANoteGetsAnEmptyRowAtTheEndThatIsNotSaved)
{
    const Table notes = {note(2024, 3, 20, "late")};
    putNotes(notes);
    start();
    pressDay(3);
    EXPECT_EQ(shownRows(),
              QStringList({QStringLiteral("Wed, Mar 20, 2024 | late"), QStringLiteral("Sun, Mar 3, 2024 | ")}));
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
    EXPECT_EQ(dayButton(3).state(), DayButton::On);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(notesOnDisk(), notes);

    ui->notesTableView->selectRow(0);
    pressDay(3); // the row is there now
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(shownRows().size(), 2);
}

TEST_F(MiniCalendarTest, APressedDayIsReadyToBeTypedIntoAndLeavesNothingWhenItIsNot)
{
    const Table notes = {note(2024, 3, 20, "late")};
    putNotes(notes);
    start();
    dayButton(3).click();
    EXPECT_EQ(ui->notesTableView->editedRow(), 1);
    ui->notesTableView->endEditing();
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(notesOnDisk(), notes);
}

TEST_F(MiniCalendarTest, ADayPressedDuringAnEditKeepsWhatWasTyped)
{
    putNotes({note(2024, 3, 5, "early"), note(2024, 3, 20, "late")});
    start();
    ui->filterField->setText(QStringLiteral("early"));
    ui->filterBtn->click();
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral(" bird"));
    dayButton(20).click(); // as a screen reader presses it: the focus stays in the editor until then
    EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 5, "early bird"), note(2024, 3, 20, "late")}));
    EXPECT_EQ(shownRows().first(), QStringLiteral("Tue, Mar 5, 2024 | early bird"));
    EXPECT_EQ(ui->notesTableView->editedRow(), 1);
}

} // namespace
