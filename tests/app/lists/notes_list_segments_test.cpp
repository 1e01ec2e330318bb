// SPDX-License-Identifier: MIT
// Which notes the four segments show, and the paging by months and years.
#include "app/lists/notes_list_fixture.h"

#include <QTest>

namespace {

TEST_F(NotesListTest, TheSegmentsAreNamedAfterWhatTheyShow)
{
    startWithFourNotes();
    EXPECT_EQ(ui->hideShowSegBtn->labels(),
              QStringList({text("March Notes"), text("Hide All"), text("Mini Calendar's Month"), text("2024 Notes")}));
}

TEST_F(NotesListTest, TheSegmentsOfTodayFollowTheMonthAndTheYear)
{
    clock.set(utcDate(2024, 12, 31, 22, 59));
    start();
    ASSERT_EQ(segment(0), text("December Notes"));
    const QString all = segment(1);
    clock.set(utcDate(2024, 12, 31, 23)); // midnight in Berlin
    app->minuteHasChanged();
    EXPECT_EQ(segment(0), text("January Notes"));
    EXPECT_EQ(segment(3), text("2025 Notes"));
    EXPECT_EQ(segment(1), all);
    clock.set(utcDate(2024, 11, 3, 9));
    host.clockMonitor.jump();
    EXPECT_EQ(segment(0), text("November Notes"));
    EXPECT_EQ(segment(3), text("2024 Notes"));
}

TEST_F(NotesListTest, TheFirstSegmentShowsThisMonthByDate)
{
    startWithFourNotes();
    ui->noteEntryNextNotesBtn->click();
    press(0);
    EXPECT_EQ(shownTexts(), QStringList({text("march early"), text("march late")}));
    EXPECT_EQ(countLine(), text("Displaying 2 notes"));
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(pagingLabels(), text("Feb 2024 / Apr 2024"));
}

TEST_F(NotesListTest, TheSecondSegmentHidesAndShowsAllInFileOrder)
{
    startWithFourNotes();
    ui->noteEntryPrevNotesBtn->click();
    ASSERT_EQ(segment(1), text("Show All"));
    press(1);
    EXPECT_EQ(shownTexts(),
              QStringList({text("march late"), text("other year"), text("march early"), text("february")}));
    EXPECT_EQ(segment(1), text("Hide All"));
    EXPECT_EQ(countLine(), text("Displaying 4 notes"));
    EXPECT_EQ(pagingLabels(), text("Feb 2024 / Apr 2024"));

    press(1);
    EXPECT_EQ(shownTexts(), QStringList());
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(countLine(), text("Displaying 4 notes")) << "hiding leaves the count line";
    EXPECT_EQ(app->allNotesTVData->size(), 4);
}

TEST_F(NotesListTest, TheThirdSegmentShowsTheMonthOfTheMiniCalendar)
{
    startWithFourNotes();
    ui->backOneMonthOnMiniCal->click();
    press(2);
    EXPECT_EQ(shownTexts(), QStringList{text("february")});
    EXPECT_EQ(countLine(), text("Displaying 1 notes")) << "the plural word stands for one note too";
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(pagingLabels(), text("Jan 2024 / Mar 2024"));
}

TEST_F(NotesListTest, TheFourthSegmentShowsThisYearInFileOrder)
{
    startWithFourNotes();
    press(3);
    EXPECT_EQ(shownTexts(), QStringList({text("march late"), text("march early"), text("february")}));
    EXPECT_EQ(countLine(), text("Displaying 3 notes"));
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(pagingLabels(), text("Dec 2023 / Feb 2024"));
}

TEST_F(NotesListTest, AfterAnySegmentNoRowIsSelected)
{
    startWithFourNotes();
    for (const int index : {0, 2, 3, 1}) {
        press(0);
        ui->notesTableView->chooseRow(0);
        ASSERT_TRUE(ui->deleteRowFromListBtn->isEnabled());
        press(index);
        EXPECT_EQ(ui->notesTableView->selectedRow(), -1) << index;
        EXPECT_FALSE(ui->deleteRowFromListBtn->isEnabled()) << index;
    }
}

TEST_F(NotesListTest, AnEmptyMonthAndAnEmptyYearLeaveTheCountLine)
{
    putNotes({note(2023, 7, 1, "other year")});
    start();
    for (const int index : {0, 2, 3}) {
        press(index);
        EXPECT_EQ(shownTexts(), QStringList());
        EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    }
}

TEST_F(NotesListTest, AMonthHoldsTheNotesOfItsFirstAndItsLastDay)
{
    putNotes(
        {note(2024, 4, 1, "after"), note(2024, 3, 31, "last"), note(2024, 3, 1, "first"), note(2024, 2, 29, "before")});
    start();
    press(0);
    EXPECT_EQ(shownTexts(), QStringList({text("first"), text("last")}));
}

TEST_F(NotesListTest, AYearHoldsTheNotesOfItsFirstAndItsLastDay)
{
    putNotes({note(2025, 1, 1, "after"), note(2024, 12, 31, "last"), note(2024, 1, 1, "first"),
              note(2023, 12, 31, "before")});
    start();
    press(3);
    EXPECT_EQ(shownTexts(), QStringList({text("last"), text("first")}));
}

TEST_F(NotesListTest, TheCommandsOfTheMenuKeepWhatIsBeingTyped)
{
    for (const char* action : {"currentMonthNotesAction", "allNotesAction", "shownMonthNotesAction",
                               "currentYearNotesAction", "previousNotesAction"}) {
        putNotes({note(2024, 3, 5, "early"), note(2024, 3, 20, "late")});
        start();
        ui->notesTableView->editColumn(textColumn, 0);
        QTest::keyClicks(ui->notesTableView->viewAt(textColumn, 0), text(" bird"));
        window->findChild<QAction*>(text(action))->trigger();
        EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 5, "early bird"), note(2024, 3, 20, "late")})) << action;
        EXPECT_EQ(ui->notesTableView->editedRow(), -1) << action;
    }
}

TEST_F(NotesListTest, PagingGoesMonthByMonthAcrossTheYear)
{
    clock.set(utcDate(2024, 1, 15, 12));
    putNotes({note(2023, 12, 24, "december"), note(2024, 1, 2, "january")});
    start();
    ui->noteEntryPrevNotesBtn->click();
    EXPECT_EQ(shownTexts(), QStringList{text("december")});
    EXPECT_EQ(pagingLabels(), text("Nov 2023 / Jan 2024"));
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(shownTexts(), QStringList{text("january")});
    EXPECT_EQ(pagingLabels(), text("Dec 2023 / Feb 2024"));
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(shownTexts(), QStringList());
}

TEST_F(NotesListTest, PagingFollowsTheMonthThatTheMiniCalendarGave)
{
    startWithFourNotes();
    ui->backOneYearOnMiniCal->click();
    press(2);
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(pagingLabels(), text("Mar 2023 / May 2023"));
    app->resetPagingBtns();
    EXPECT_EQ(pagingLabels(), text("Feb 2024 / Apr 2024"));
}

TEST_F(NotesListTest, PagingGoesOnByMonthsInAnotherTimeZone)
{
    clock.set(utcDate(2024, 3, 1, 8, 30)); // today's midnight in Berlin is still February in New York
    start();
    press(0);
    const TimeZoneGuard newYork("America/New_York");
    host.clockMonitor.jump();
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(pagingLabels(), text("Mar 2024 / May 2024"));
    clock.set(utcDate(2024, 4, 1, 3, 30)); // the evening of 31 March in New York, 1 April in Tokyo
    app->resetPagingBtns();
    const TimeZoneGuard tokyo("Asia/Tokyo");
    host.clockMonitor.jump();
    ui->noteEntryPrevNotesBtn->click();
    EXPECT_EQ(pagingLabels(), text("Jan 2024 / Mar 2024"));
}

} // namespace
