// SPDX-License-Identifier: MIT
#include "store/Record.h"
#include "support/AppFixture.h"
#include "table/CellEditor.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

namespace {

const QString addNote = QStringLiteral("Add a note or update an existing note's description for this date: ");

class DateNotesTest : public AppFixture {
protected:
    QMenu& menu() { return *window->findChild<QMenu*>(QStringLiteral("importantDatesContextMenu")); }
    QAction& item(int index) { return *menu().actions().at(index); }

    /// Right-clicks in the middle of a row of the important dates, or below them all.
    void openMenu(int row)
    {
        TableView& table = *ui->importantDatesTableView;
        const QPoint place = row < 0 ? table.viewport()->rect().bottomLeft() : table.rectOfRow(row).center();
        QContextMenuEvent click(QContextMenuEvent::Mouse, place, table.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(table.viewport(), &click);
        runQueued();
    }

    void choose(int index)
    {
        item(index).trigger();
        menu().close();
        runQueued();
    }
};

TEST_F(DateNotesTest, TheMenuTellsTheDateThatWasClicked)
{
    putEvents({event(1990, 5, 20, "Ann"), event(2020, 2, 29, "Leap")});
    start();
    openMenu(0);
    ASSERT_EQ(menu().actions().size(), 3);
    EXPECT_EQ(item(0).text(), QStringLiteral("May 20, 1990 has been selected. Choose an option below to continue."));
    EXPECT_FALSE(item(0).isEnabled());
    EXPECT_EQ(item(1).text(), addNote + QStringLiteral("May 20, 1990"));
    EXPECT_EQ(item(2).text(), addNote + QStringLiteral("May 20, 2024"));
    EXPECT_TRUE(item(1).isEnabled());
    EXPECT_TRUE(item(2).isEnabled());
    menu().close();
    openMenu(1);
    EXPECT_EQ(item(2).text(), addNote + QStringLiteral("February 29, 2024"));
}

TEST_F(DateNotesTest, BesideTheRowsItAsksForOne)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    menu().close();
    openMenu(-1);
    EXPECT_EQ(item(0).text(), QStringLiteral("Please select a row with an Important Date on it"));
    EXPECT_TRUE(item(0).isEnabled());
    EXPECT_FALSE(item(1).isEnabled());
    EXPECT_FALSE(item(2).isEnabled());
    choose(0);
    EXPECT_FALSE(alert());
    EXPECT_EQ(app->notesTVData, Table());
}

TEST_F(DateNotesTest, ItsOwnDayGetsANote)
{
    putNotes({note(2024, 3, 5, "a")});
    putEvents({event(2024, 3, 20, "Ann's birthday")});
    start();
    openMenu(0);
    choose(1);
    EXPECT_EQ(shownRows(), (QStringList{QStringLiteral("Tue, Mar 5, 2024 | a"),
                                        QStringLiteral("Wed, Mar 20, 2024 | Ann's birthday")}));
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
    Alert* sheet = alert();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->messageText(), QStringLiteral("Note Added/Appended"));
    EXPECT_EQ(sheet->informativeText(), QStringLiteral("'Ann's birthday' added/appended to note for March 20, 2024"));
    EXPECT_EQ(sheet->buttons().first()->text(), QStringLiteral("OK"));
    answer(Alert::firstButtonReturn);
}

TEST_F(DateNotesTest, TheSameDayThisYearGetsANote)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    choose(2);
    EXPECT_EQ(app->notesTVData, Table{note(2024, 5, 20, "Ann")});
}

TEST_F(DateNotesTest, ANoteThatIsThereIsExtendedOnce)
{
    putNotes({note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    for (int time = 0; time < 2; ++time) {
        openMenu(0);
        choose(2);
        EXPECT_EQ(app->notesTVData, Table{note(2024, 5, 20, "Cake\rAnn")});
        answer(Alert::firstButtonReturn);
    }
    EXPECT_EQ(ui->notesTableView->rectOfRow(0).height(), 34);
}

TEST_F(DateNotesTest, ALeapDayIsTheFirstOfMarchInAYearWithoutOne)
{
    clock.set(utcDate(2023, 3, 15, 8, 30));
    putEvents({event(2020, 2, 29, "Leap")});
    start();
    openMenu(0);
    EXPECT_EQ(item(2).text(), addNote + QStringLiteral("March 1, 2023"));
    choose(2);
    EXPECT_EQ(app->notesTVData, Table{note(2023, 3, 1, "Leap")});
}

TEST_F(DateNotesTest, ADateWithATimeOfDayGetsASecondNoteOfItsDay)
{
    putNotes({note(2024, 3, 15, "today")});
    start();
    app->addRowToImportDates();
    openMenu(0);
    choose(1);
    ASSERT_EQ(app->notesTVData->size(), 2);
    EXPECT_EQ(app->notesTVData->at(1),
              makeNoteRecord(utcDate(2024, 3, 15, 8, 30), "** put new date Description here **"));
    answer(Alert::firstButtonReturn);
    openMenu(0);
    choose(2); // the same day this year is a midnight
    EXPECT_EQ(app->notesTVData->at(0), note(2024, 3, 15, "today\r** put new date Description here **"));
}

TEST_F(DateNotesTest, NothingIsOnDiskUntilTheNotesAreSaved)
{
    putNotes({note(2024, 3, 5, "a")});
    putEvents({event(1990, 3, 5, "Ann"), event(1991, 3, 20, "Ben")});
    start();
    for (const int row : {0, 1}) {
        openMenu(row);
        choose(2);
        answer(Alert::firstButtonReturn);
    }
    const Table shown{note(2024, 3, 5, "a\rAnn"), note(2024, 3, 20, "Ben")};
    EXPECT_EQ(app->notesTVData, shown);
    EXPECT_EQ(app->allNotesTVData, Table{note(2024, 3, 5, "a")});
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "a")});
    ASSERT_TRUE(ui->noteEntryListSaveBtn->isEnabled());
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(app->allNotesTVData, shown);
    EXPECT_EQ(notesOnDisk(), shown);
    EXPECT_EQ(dayButton(20).state(), DayButton::On);
}

TEST_F(DateNotesTest, AnAddedNoteReachesTheDiskWhenItIsEdited)
{
    putEvents({event(1991, 3, 20, "Ben")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    typeNote(0, QStringLiteral("Ben: a kite"));
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 20, "Ben: a kite")});
    app->saveTVDataToFile(*ui->noteEntryListSaveBtn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 20, "Ben: a kite")}) << "what was typed is not extended again";
    app->dayBtnAction(dayButton(20));
    typeNote(0, QStringLiteral("kite"));
    app->saveTVDataToFile(*ui->noteEntryListSaveBtn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 20, "kite")});
}

TEST_F(DateNotesTest, AnEditThatOnlyLooksAtAnAddedNoteSavesIt)
{
    putEvents({event(1991, 3, 20, "Ben")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->notesTableView->editColumn(1, 0);
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 20, "Ben")});
}

TEST_F(DateNotesTest, AnAddedNoteThatWasDeletedStaysAway)
{
    putEvents({event(1991, 3, 20, "Ben")});
    putNotes({note(2024, 3, 5, "a")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->notesTableView->selectRow(1);
    ui->deleteRowFromListBtn->click();
    answer(Alert::firstButtonReturn);
    app->saveTVDataToFile(*ui->noteEntryListSaveBtn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "a")});
}

TEST_F(DateNotesTest, AnAddedNoteOutOfSightIsStillSaved)
{
    putEvents({event(1991, 3, 20, "Ben")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->noteEntryNextNotesBtn->click(); // April
    ASSERT_EQ(app->notesTVData, Table());
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 20, "Ben")});
}

TEST_F(DateNotesTest, AnEditThatOnlyLooksLeavesAnAddedLineToBeSaved)
{
    putNotes({note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->hideShowSegBtn->press(3); // the notes of the year, as they are saved
    ui->notesTableView->editColumn(1, 0);
    ui->notesTableView->endEditing();
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Cake\rAnn")});
    ui->notesTableView->editColumn(1, 0);
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Cake\rAnn")}) << "the row shows what was saved";
}

TEST_F(DateNotesTest, ASavedNoteThatTheListDoesNotShowComesIntoItWithTheLine)
{
    putNotes({note(2024, 3, 6, "other"), note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    ui->filterField->setText(QStringLiteral("other"));
    ui->filterBtn->click();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(app->notesTVData, (Table{note(2024, 3, 6, "other"), note(2024, 5, 20, "Cake\rAnn")}));
    ui->notesTableView->editColumn(1, 1);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 1), QStringLiteral("!"));
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 6, "other"), note(2024, 5, 20, "Cake\rAnn!")}));
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 6, "other"), note(2024, 5, 20, "Cake\rAnn!")}));
}

TEST_F(DateNotesTest, ALineThatTheListNoLongerShowsOutlivesAnEditOfItsDay)
{
    putNotes({note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->hideShowSegBtn->press(3); // the notes of the year, as they are saved
    typeNote(0, QStringLiteral("Tart"));
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Tart")});
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Tart\rAnn")});
    EXPECT_EQ(app->notesTVData, Table{note(2024, 5, 20, "Tart\rAnn")}) << "or the next edit would lose it";
    typeNote(0, QStringLiteral("Tart")); // the line was there to be seen, and is not wanted
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Tart")});
}

TEST_F(DateNotesTest, ALineThatWasNotInTheTextOutlivesAnEditThatIsSavedWhileItGoesOn)
{
    putNotes({note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->hideShowSegBtn->press(3);
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral("!"));
    ui->saveAction->trigger();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Cake!\rAnn")});
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    QWidget* editor = ui->notesTableView->viewAt(1, 0);
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, QStringLiteral("?"));
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Cake!?\rAnn")});
}

TEST_F(DateNotesTest, ALineThatIsSavedWhileItsNoteIsLookedAtLeavesTheCaretWhereItIs)
{
    putNotes({note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClick(ui->notesTableView->viewAt(1, 0), Qt::Key_Home, Qt::ControlModifier);
    ui->saveAction->trigger();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Cake\rAnn")});
    QWidget* editor = ui->notesTableView->viewAt(1, 0);
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, QStringLiteral("My "));
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "My Cake\rAnn")});
}

TEST_F(DateNotesTest, EachOfTwoLinesOfADayIsForgottenByItself)
{
    putNotes({note(2024, 5, 20, "Cake")});
    putEvents({event(1990, 5, 20, "Ann"), event(1991, 5, 20, "Ben")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->hideShowSegBtn->press(3);
    openMenu(1);
    choose(2);
    answer(Alert::firstButtonReturn);
    ASSERT_EQ(app->notesTVData, Table{note(2024, 5, 20, "Cake\rBen")});
    typeNote(0, QStringLiteral("Tart"));
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 5, 20, "Tart\rAnn")});
}

TEST_F(DateNotesTest, ALineThatIsSavedComesIntoTheListThatHoldsItsDay)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 25, "z")});
    putEvents({event(1991, 3, 20, "Ben")});
    start();
    openMenu(0);
    choose(2);
    answer(Alert::firstButtonReturn);
    ui->hideShowSegBtn->press(0); // the notes of March, as they are saved
    ASSERT_EQ(ui->notesTableView->numberOfRows(), 2);
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(shownRows(),
              (QStringList{QStringLiteral("Tue, Mar 5, 2024 | a"), QStringLiteral("Wed, Mar 20, 2024 | Ben"),
                           QStringLiteral("Mon, Mar 25, 2024 | z")}));
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 3 notes"));
}

TEST_F(DateNotesTest, ALineGoesIntoTheNoteThatAReminderLeftAlone)
{
    putNotes({note(2024, 5, 20, "Cake"), note(2024, 5, 21, "x")});
    putEvents({event(1990, 5, 20, "Ann"), event(1990, 5, 21, "Ben")});
    start();
    clickReminder(note(2024, 5, 20, "Cake"));
    answer(Alert::firstButtonReturn);
    for (const int row : {0, 1}) {
        openMenu(row);
        choose(2);
        answer(Alert::firstButtonReturn);
    }
    EXPECT_EQ(app->notesTVData, (Table{note(2024, 5, 20, "Cake\rAnn"), note(2024, 5, 21, "x\rBen")}));
    typeNote(1, QStringLiteral("y"));
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 5, 20, "Cake\rAnn"), note(2024, 5, 21, "y")}));
}

TEST_F(DateNotesTest, AnUnreadableNotesFileTakesNoLineIn)
{
    std::filesystem::create_directory(notesFile());
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    openMenu(0);
    choose(2);
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    EXPECT_FALSE(app->allNotesTVData);
}

TEST_F(DateNotesTest, TheMenuKeyOpensItForTheSelectedRow)
{
    putEvents({event(1990, 5, 20, "Ann"), event(1991, 6, 21, "Ben")});
    start();
    ui->importantDatesTableView->selectRow(1);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(ui->importantDatesTableView, &key);
    EXPECT_EQ(item(1).text(), addNote + QStringLiteral("June 21, 1991"));
    menu().close();
}

TEST_F(DateNotesTest, ADescriptionIsShownAsItStands)
{
    putEvents({event(1990, 5, 20, "<b>100%@</b> & more")});
    start();
    openMenu(0);
    choose(2);
    EXPECT_EQ(alert()->informativeText(),
              QStringLiteral("'<b>100%@</b> & more' added/appended to note for May 20, 2024"));
    EXPECT_EQ(app->notesTVData, Table{note(2024, 5, 20, "<b>100%@</b> & more")});
}

} // namespace
