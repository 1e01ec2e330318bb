// SPDX-License-Identifier: MIT
#include "support/AppFixture.h"

#include <QTest>

#include <functional>
#include <vector>

namespace {

class NoteDeletionTest : public AppFixture {
protected:
    TableView& table() { return *ui->notesTableView; }

    /// Asks to delete the note in that row; the sheet is up.
    void askForRow(int row)
    {
        table().selectRow(row);
        ui->deleteRowFromListBtn->click();
        ASSERT_TRUE(alert()) << "no sheet is up";
    }

    void deleteRow(int row)
    {
        askForRow(row);
        answer(Alert::firstButtonReturn);
    }

    void expectSheet(const char* headline, const QString& body)
    {
        Alert* sheet = alert();
        ASSERT_TRUE(sheet);
        EXPECT_EQ(sheet->messageText(), text(headline));
        EXPECT_EQ(sheet->informativeText(), body);
        ASSERT_EQ(sheet->buttons().size(), 3); // the last one is out of sight
        EXPECT_EQ(sheet->buttons().at(0)->text(), text("Confirm Delete"));
        EXPECT_EQ(sheet->buttons().at(1)->text(), text("Cancel Delete"));
    }
};

TEST_F(NoteDeletionTest, WithoutASelectedRowItSaysSoAndDeletesNothing)
{
    const Table notes = {note(2024, 3, 5, "a")};
    putNotes(notes);
    start();
    for (const int response : {Alert::firstButtonReturn, Alert::secondButtonReturn}) {
        app->respondToDeleteRowFromList(*ui->deleteRowFromListBtn);
        expectSheet("To Delete a Row, please select one", text("No Row Selected"));
        answer(response);
        EXPECT_EQ(app->notesTVData, notes);
        EXPECT_EQ(notesOnDisk(), notes);
    }
}

TEST_F(NoteDeletionTest, ItAsksForTheDateOfTheNote)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    askForRow(1);
    expectSheet("Please confirm deletion", text("of note for\r Mar 6, 2024"));
}

TEST_F(NoteDeletionTest, CancellingChangesNothing)
{
    const Table notes = {note(2024, 3, 5, "a")};
    putNotes(notes);
    start();
    askForRow(0);
    answer(Alert::secondButtonReturn);
    EXPECT_EQ(app->notesTVData, notes);
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(notesOnDisk(), notes);
    EXPECT_EQ(table().selectedRow(), 0);
    EXPECT_TRUE(ui->deleteRowFromListBtn->isEnabled());
}

TEST_F(NoteDeletionTest, ConfirmingRemovesTheNoteFromListAndFile)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b"), note(2024, 3, 7, "c")});
    start();
    deleteRow(1);
    const Table left = {note(2024, 3, 5, "a"), note(2024, 3, 7, "c")};
    EXPECT_EQ(app->notesTVData, left);
    EXPECT_EQ(app->allNotesTVData, left);
    EXPECT_EQ(notesOnDisk(), left);
    EXPECT_EQ(table().numberOfRows(), 2);
    EXPECT_EQ(countLine(), text("Displaying 2 notes"));
    EXPECT_FALSE(ui->deleteRowFromListBtn->isEnabled());
    EXPECT_EQ(table().selectedRow(), -1) << "or the next deletion could not be asked for";
    deleteRow(1);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "a")});
}

TEST_F(NoteDeletionTest, TheFileIsSavedBeforeTheListAndTheCountFollow)
{
    putNotes({note(2024, 3, 5, "a")});
    start();
    askForRow(0);
    ASSERT_EQ(table().numberOfRows(), 1);
    alert()->buttons().at(0)->click();
    // The completion has run; what it queued has not.
    EXPECT_EQ(app->allNotesTVData, Table());
    EXPECT_EQ(app->notesTVData->size(), 1);
    EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    runQueued();
    EXPECT_EQ(app->notesTVData, Table());
    EXPECT_EQ(countLine(), text("Displaying 0 notes"));
}

TEST_F(NoteDeletionTest, TheRowThatWasSelectedCountsNotTheNoteThatStoodThere)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    askForRow(0);
    app->notesTVData = Table{note(2024, 3, 6, "b"), note(2024, 3, 5, "a")};
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "a")});
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 5, "a")});
}

TEST_F(NoteDeletionTest, RowsThatAreReplacedUnderTheSheetLeaveTheNoteInThatPlaceAlone)
{
    const Table notes = {note(2024, 3, 6, "b"), note(2024, 3, 5, "a"), note(2024, 4, 1, "c")};
    struct Change {
        const char* what;
        std::function<void()> make; ///< as a screen reader can, which reaches the window under a sheet
    };
    const std::vector<Change> changes = {
        {"a segment", [this] { ui->hideShowSegBtn->press(0); }},
        {"the next month", [this] { ui->noteEntryNextNotesBtn->click(); }},
        {"a search",
         [this] {
             ui->filterField->setText(text("a"));
             ui->filterBtn->click();
         }},
        {"a header", [this] { table().sortByColumn(0); }},
    };
    for (const Change& change : changes) {
        putNotes(notes);
        start();
        askForRow(0);
        change.make();
        answer(Alert::firstButtonReturn);
        EXPECT_EQ(notesOnDisk(), notes) << change.what;
        quit();
    }
}

TEST_F(NoteDeletionTest, TheKeyboardGoesOnFromTheRowThatTookThePlace)
{
    struct Row {
        int deleted;
        Qt::Key key;
        int reached;
    };
    for (const Row& row :
         {Row{1, Qt::Key_Down, 1}, Row{1, Qt::Key_Up, 0}, Row{3, Qt::Key_Down, 2}, Row{3, Qt::Key_Up, 2},
          Row{0, Qt::Key_Down, 0}, Row{0, Qt::Key_Up, 0}, Row{2, Qt::Key_PageDown, 2}, Row{2, Qt::Key_PageUp, 1}}) {
        putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b"), note(2024, 3, 7, "c"), note(2024, 3, 8, "d")});
        start();
        deleteRow(row.deleted);
        EXPECT_EQ(table().selectedRow(), -1);
        EXPECT_EQ(window->focusWidget(), &table());
        QTest::keyClick(&table(), row.key);
        EXPECT_EQ(table().selectedRow(), row.reached) << row.deleted << ' ' << row.key;
        quit();
    }
}

TEST_F(NoteDeletionTest, ARebuiltListBeginsAtItsEndsAgain)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b"), note(2024, 3, 7, "c")});
    start();
    deleteRow(1);
    ui->hideShowSegBtn->press(3);
    QTest::keyClick(&table(), Qt::Key_Down);
    EXPECT_EQ(table().selectedRow(), 0);
}

TEST_F(NoteDeletionTest, ARowThatIsGoneWhenItIsConfirmedDeletesNothing)
{
    const Table notes = {note(2024, 3, 5, "a")};
    putNotes(notes);
    start();
    askForRow(0);
    app->notesTVData = Table();
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), notes);
}

TEST_F(NoteDeletionTest, ANoteThatIsNoLongerInTheFileGoesFromTheListAlone)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    app->dayBtnAction(dayButton(3)); // a row that was never edited
    app->waitForSaves();
    std::filesystem::remove(notesFile());
    deleteRow(1);
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 6, "b")});
    EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    EXPECT_FALSE(notesOnDisk()) << "nothing is written";
    EXPECT_EQ(dayButton(3).state(), DayButton::Off) << "the days of the month shown are marked again";
}

TEST_F(NoteDeletionTest, EveryEqualRowGoes)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    app->notesTVData = Table{note(2024, 3, 5, "a"), note(2024, 3, 6, "b"), note(2024, 3, 5, "a")};
    table().reloadData();
    deleteRow(0);
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 6, "b")});
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 6, "b")});
}

TEST_F(NoteDeletionTest, TheLastNoteOfAMonthUnmarksItsDay)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 4, 6, "b")});
    start();
    ASSERT_EQ(dayButton(5).state(), DayButton::On);
    deleteRow(0);
    EXPECT_EQ(dayButton(5).state(), DayButton::Off);
    EXPECT_EQ(dayButton(5).accessibleName(), text("Tuesday, March 5, 2024"));
    EXPECT_TRUE(dayButton(15).titleColor().isValid()) << "today stays red";
}

TEST_F(NoteDeletionTest, ANoteOfAnotherMonthLeavesTheMarksAsTheyAre)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 4, 6, "b")});
    start();
    dayButton(20).setState(DayButton::On);
    deleteRow(1);
    EXPECT_EQ(dayButton(20).state(), DayButton::On) << "nothing was drawn anew";
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "a")});
}

TEST_F(NoteDeletionTest, TheLastNoteOfAllTakesTheFileWithIt)
{
    putNotes({note(2024, 3, 5, "a")});
    start();
    deleteRow(0);
    EXPECT_FALSE(notesOnDisk());
}

TEST_F(NoteDeletionTest, TheListThatAReminderLeftIsDeletedThroughToItsNote)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    app->notesTVData = Table{Value(Array{note(2024, 3, 5, "a")})};
    table().reloadData();
    askForRow(0);
    expectSheet("Please confirm deletion", text("of note for\r Mar 5, 2024"));
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(app->notesTVData, Table());
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 6, "b")});
}

TEST_F(NoteDeletionTest, TheEmptyListThatAReminderLeftIsDeletedFromTheListAlone)
{
    const Table notes = {note(2024, 3, 5, "a")};
    putNotes(notes);
    start();
    app->notesTVData = Table{Value(Array())};
    table().reloadData();
    deleteRow(0);
    EXPECT_EQ(app->notesTVData, Table());
    EXPECT_EQ(notesOnDisk(), notes);
}

TEST_F(NoteDeletionTest, ANoteThatIsBeingEditedIsSavedBeforeItIsAskedFor)
{
    putNotes({note(2024, 3, 5, "a")});
    start();
    table().editColumn(1, 0);
    QTest::keyClicks(table().viewAt(1, 0), text("b"));
    app->respondToDeleteRowFromList(*ui->deleteRowFromListBtn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "ab")});
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(app->allNotesTVData, Table());
    EXPECT_FALSE(notesOnDisk());
}

// Important dates

class EventDeletionTest : public NoteDeletionTest {
protected:
    void ask(int row)
    {
        ui->importantDatesTableView->selectRow(row);
        ui->deleteRowFromImpDateListBtn->click();
        ASSERT_TRUE(alert()) << "no sheet is up";
    }
};

TEST_F(EventDeletionTest, ItAsksForTheDateOfTheEvent)
{
    putEvents({event(2024, 3, 5, "a")});
    start();
    ask(0);
    expectSheet("Please confirm deletion", text("of important note for Mar 5, 2024 ?"));
    answer(Alert::secondButtonReturn);
    EXPECT_EQ(eventsOnDisk(), Table{event(2024, 3, 5, "a")});
    EXPECT_EQ(app->eventsTVData, Table{event(2024, 3, 5, "a")});
}

TEST_F(EventDeletionTest, ConfirmingRemovesEveryEqualRecord)
{
    putEvents({event(2024, 3, 5, "a"), event(2024, 3, 6, "b"), event(2024, 3, 5, "a")});
    start();
    ask(2);
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(app->eventsTVData, Table{event(2024, 3, 6, "b")});
    EXPECT_EQ(eventsOnDisk(), Table{event(2024, 3, 6, "b")});
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 1);
    EXPECT_FALSE(ui->deleteRowFromImpDateListBtn->isEnabled());
    EXPECT_EQ(ui->importantDatesTableView->selectedRow(), -1);
}

TEST_F(EventDeletionTest, TheKeyboardGoesOnFromTheRowThatTookThePlace)
{
    putEvents({event(2024, 3, 5, "a"), event(2024, 3, 6, "b"), event(2024, 3, 7, "c")});
    start();
    ask(1);
    answer(Alert::firstButtonReturn);
    TableView& dates = *ui->importantDatesTableView;
    EXPECT_EQ(window->focusWidget(), &dates);
    QTest::keyClick(&dates, Qt::Key_Down);
    EXPECT_EQ(dates.selectedRow(), 1);
    EXPECT_EQ(dates.cellView(1, 1).text, text("c"));
}

TEST_F(EventDeletionTest, TheRecordCountsNotTheRowThatWasSelected)
{
    putEvents({event(2024, 3, 5, "a"), event(2024, 3, 6, "b")});
    start();
    ask(0);
    app->eventsTVData = Table{event(2024, 3, 6, "b"), event(2024, 3, 5, "a")};
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(eventsOnDisk(), Table{event(2024, 3, 6, "b")});
}

TEST_F(EventDeletionTest, WithoutASelectedRowNothingIsAsked)
{
    putEvents({event(2024, 3, 5, "a")});
    start();
    app->respondToDeleteRowFromList(*ui->deleteRowFromImpDateListBtn);
    EXPECT_FALSE(alert());
    app->eventsTVData.reset();
    app->respondToDeleteRowFromList(*ui->deleteRowFromImpDateListBtn);
    EXPECT_FALSE(alert());
}

} // namespace
