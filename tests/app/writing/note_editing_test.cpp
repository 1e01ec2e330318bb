// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "support/AppFixture.h"
#include "support/LogGuard.h"
#include "table/CellEditor.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <fstream>
#include <iterator>

namespace {

const QString replacedLine = QStringLiteral("CTDEE replaced in 'all' array");

class NoteEditingTest : public AppFixture {
protected:
    TableView& table() { return *ui->notesTableView; }

    CellEditor& edit(TableView& tableView, int row)
    {
        tableView.editColumn(textColumn, row);
        auto* editor = qobject_cast<CellEditor*>(tableView.viewAt(textColumn, row));
        if (!editor) {
            qFatal("no edit began in row %d", row);
        }
        return *editor;
    }

    /// Whether anything was written to the notes file since the start: it is taken away first, and comes back.
    template <typename Action> bool writesNotes(Action action)
    {
        app->waitForSaves();
        std::filesystem::remove(notesFile());
        action();
        app->waitForSaves();
        return std::filesystem::exists(notesFile());
    }
};

TEST_F(NoteEditingTest, TheFilterButtonFollowsTheSearchField)
{
    start();
    EXPECT_FALSE(ui->filterBtn->isEnabled());
    ui->filterField->setText(text("a"));
    EXPECT_TRUE(ui->filterBtn->isEnabled());
    ui->filterField->clear();
    EXPECT_FALSE(ui->filterBtn->isEnabled());
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
}

TEST_F(NoteEditingTest, AKeystrokeChangesTheShownRowOnly)
{
    const Table notes = {note(2024, 3, 5, "a"), note(2024, 3, 6, "b")};
    putNotes(notes);
    start();
    CellEditor& editor = edit(table(), 1);
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    QTest::keyClicks(&editor, text("c"));
    EXPECT_EQ(app->notesTVData, Table({note(2024, 3, 5, "a"), note(2024, 3, 6, "bc")}));
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_TRUE(ui->noteEntryListSaveBtn->isEnabled());
    EXPECT_FALSE(ui->importantDateSaveBtn->isEnabled());
    EXPECT_EQ(notesOnDisk(), notes);
}

TEST_F(NoteEditingTest, ReturnGrowsTheRowAtOnce)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    CellEditor& editor = edit(table(), 0);
    QTest::keyClick(&editor, Qt::Key_Return);
    EXPECT_EQ(table().rectOfRow(0).height(), 34);
    EXPECT_EQ(table().rectOfRow(1).top(), 34);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    EXPECT_EQ(table().rectOfRow(0).height(), 17);
}

TEST_F(NoteEditingTest, TheEndOfAnEditReplacesTheNoteOfThatDateAndSaves)
{
    putNotes({note(2024, 3, 6, "b"), note(2024, 3, 5, "a")});
    start();
    ui->hideShowSegBtn->press(0); // sorted: row 0 is the file's second note
    const LogGuard log;
    typeNote(0, text("new"));
    const Table expected = {note(2024, 3, 6, "b"), note(2024, 3, 5, "new")};
    EXPECT_EQ(app->allNotesTVData, expected);
    EXPECT_EQ(notesOnDisk(), expected);
    EXPECT_EQ(log.lines().count(replacedLine), 1);
    EXPECT_TRUE(ui->noteEntryListSaveBtn->isEnabled()) << "only its own press disables it";
}

TEST_F(NoteEditingTest, TheNoteOfANewDayIsAppendedAndItsDayMarked)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    ui->filterField->setText(text("b"));
    ui->filterBtn->click();
    app->dayBtnAction(dayButton(3));
    const LogGuard log;
    typeNote(1, text("new"));
    EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 6, "b"), note(2024, 3, 3, "new")}));
    EXPECT_EQ(log.lines().count(replacedLine), 0);
    EXPECT_EQ(dayButton(3).state(), DayButton::On);
}

TEST_F(NoteEditingTest, AnEditBackToTheSavedTextWritesNothing)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    EXPECT_FALSE(writesNotes([this] { typeNote(0, text("b")); }));
    EXPECT_FALSE(writesNotes([this] {
        edit(table(), 0);
        table().endEditing();
    }));
    EXPECT_TRUE(writesNotes([this] { typeNote(0, text("c")); }));
}

TEST_F(NoteEditingTest, AnEditWithoutAKeystrokeAddsNoEmptyNote)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    EXPECT_FALSE(writesNotes([this] {
        dayButton(3).click();
        QTest::keyClick(table().viewAt(textColumn, 1), Qt::Key_Escape);
    }));
    EXPECT_EQ(app->allNotesTVData, Table{note(2024, 3, 6, "b")});
    EXPECT_EQ(app->notesTVData->size(), 2) << "the row stays, ready to be edited";
}

TEST_F(NoteEditingTest, TheEndOfAnEditMarksItsDay)
{
    start();
    app->dayBtnAction(dayButton(3));
    app->redrawMiniCal();
    ASSERT_EQ(dayButton(3).state(), DayButton::Off) << "nothing is saved yet";
    typeNote(0, text("new"));
    EXPECT_EQ(dayButton(3).state(), DayButton::On);
}

TEST_F(NoteEditingTest, ARowThatCannotBeSavedCannotBeEdited)
{
    const Value withoutDay(Dictionary{{"NoteDataKey", Value("no day")}});
    start();
    app->notesTVData = Table{withoutDay, Value("no record"), note(2024, 3, 6, "b")};
    app->eventsTVData = Table{Value("no record"), event(2024, 3, 6, "b")};
    for (TableView* each : {ui->notesTableView, ui->importantDatesTableView}) {
        each->reloadData();
        const int last = each->numberOfRows() - 1;
        for (int row = 0; row <= last; ++row) {
            each->editColumn(textColumn, row);
            EXPECT_EQ(each->editedRow(), row == last ? row : -1) << row;
        }
    }
}

TEST_F(NoteEditingTest, ALookAtARowReplacesNothing)
{
    putNotes({note(2024, 3, 6, "saved")});
    start();
    app->notesTVData = Table{note(2024, 3, 6, "another text")};
    table().reloadData();
    EXPECT_FALSE(writesNotes([this] {
        edit(table(), 0);
        table().endEditing();
    }));
    EXPECT_EQ(app->allNotesTVData, Table{note(2024, 3, 6, "saved")});
}

TEST_F(NoteEditingTest, ATextThatTheRowDidNotShowIsKeptAsideWhenItIsReplaced)
{
    host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    putNotes({note(2024, 3, 5, "seen"), note(2024, 3, 6, "first"), note(2024, 3, 6, "second of that day")});
    start();
    typeNote(0, text("changed"));
    app->waitForSaves();
    EXPECT_FALSE(std::filesystem::exists(dataFolder() / "Recovered")) << "what was seen is replaced at will";
    typeNote(2, text("typed"));
    EXPECT_EQ(app->allNotesTVData->at(1), note(2024, 3, 6, "typed"));
    app->waitForSaves();
    ASSERT_TRUE(std::filesystem::exists(dataFolder() / "Recovered"));
    const std::filesystem::directory_iterator kept(dataFolder() / "Recovered");
    std::ifstream stream(kept->path());
    const std::string content{std::istreambuf_iterator(stream), {}};
    EXPECT_NE(content.find("first"), std::string::npos);
    EXPECT_NE(content.find("changed"), std::string::npos) << "with what was saved last";
}

TEST_F(NoteEditingTest, AnEmptiedNoteIsSavedEmpty)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    typeNote(0, QString());
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 6, "")});
}

TEST_F(NoteEditingTest, AFilteredCopyReplacesTheNoteOfItsDate)
{
    putNotes({note(2024, 3, 6, "other"), note(2024, 3, 5, "match")});
    start();
    ui->filterField->setText(text("match"));
    ui->filterBtn->click();
    typeNote(0, text("edited"));
    EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 6, "other"), note(2024, 3, 5, "edited")}));
}

TEST_F(NoteEditingTest, KeysThatThisProgramDoesNotKnowStayInAnEditedNote)
{
    Dictionary foreign = *note(2024, 3, 5, "a").dictionary();
    foreign.set("Colour", Value("blue"));
    start();
    app->allNotesTVData = Table{Value(foreign)};
    app->notesTVData = app->allNotesTVData;
    table().reloadData();
    typeNote(0, text("b"));
    foreign.set("NoteDataKey", Value("b"));
    EXPECT_EQ(notesOnDisk(), Table{Value(foreign)});
}

TEST_F(NoteEditingTest, AnImportantDateIsSavedByItsButtonOnly)
{
    const Table events = {event(2024, 3, 5, "a")};
    putEvents(events);
    putNotes({note(2024, 3, 6, "b")});
    start();
    EXPECT_FALSE(writesNotes([this] {
        QTest::keyClicks(&edit(*ui->importantDatesTableView, 0), text("c"));
        ui->importantDatesTableView->endEditing();
    }));
    EXPECT_EQ(app->eventsTVData, Table{event(2024, 3, 5, "ac")});
    EXPECT_EQ(eventsOnDisk(), events);
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    ASSERT_TRUE(ui->importantDateSaveBtn->isEnabled());
    ui->importantDateSaveBtn->click();
    EXPECT_EQ(eventsOnDisk(), Table{event(2024, 3, 5, "ac")});
    EXPECT_FALSE(ui->importantDateSaveBtn->isEnabled());
}

TEST_F(NoteEditingTest, TheSaveButtonEndsTheEdit)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    QTest::keyClicks(&edit(table(), 0), text("c"));
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(table().editedRow(), -1);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 6, "bc")});
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
}

TEST_F(NoteEditingTest, EscapeKeepsTheTextAndLeavesTheKeysWithTheTable)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    CellEditor& editor = edit(table(), 0);
    EXPECT_EQ(window->focusWidget(), &editor);
    QTest::keyClicks(&editor, text("c"));
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_EQ(window->focusWidget(), &table());
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 6, "bc")});
}

TEST_F(NoteEditingTest, AnEditOutlivesTheMinuteTheMiniCalendarAndASave)
{
    putNotes({note(2024, 3, 6, "b")});
    start();
    CellEditor& editor = edit(table(), 0);
    QTest::keyClicks(&editor, text("c"));
    app->minuteHasChanged();
    app->clockHasJumped();
    ui->forwardOneMonthOnMiniCal->click();
    ui->todayAction->trigger();
    app->waitForSaves();
    runQueued();
    ASSERT_EQ(table().viewAt(textColumn, 0), &editor);
    EXPECT_EQ(window->focusWidget(), &editor);
    QTest::keyClicks(&editor, text("d"));
    table().endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 6, "bcd")});
}

TEST_F(NoteEditingTest, AHeaderPressedDuringAnEditSavesTheRowThatWasEdited)
{
    putNotes({note(2024, 3, 6, "b"), note(2024, 3, 5, "z")});
    start();
    QTest::keyClicks(&edit(table(), 0), text("c"));
    table().setSortDescriptors({{"NoteDateKey", SortOrder::Ascending}});
    EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 6, "bc"), note(2024, 3, 5, "z")}));
    EXPECT_EQ(app->notesTVData, Table({note(2024, 3, 5, "z"), note(2024, 3, 6, "bc")}));
}

// The one element that is a list, which a clicked reminder leaves

class ListElementTest : public NoteEditingTest {
protected:
    void showList(const Array& list)
    {
        app->notesTVData = Table{Value(list)};
        table().reloadData();
    }
};

TEST_F(ListElementTest, IsDrawnAndSizedAsTheNoteInIt)
{
    putNotes({note(2024, 3, 15, "one\ntwo")});
    start();
    showList({note(2024, 3, 15, "one\ntwo")});
    EXPECT_EQ(shownRows(), QStringList{text("Fri, Mar 15, 2024 | one\ntwo")});
    EXPECT_TRUE(table().cellView(0, 0).textColor.isValid()) << "today";
    EXPECT_EQ(table().rectOfRow(0).height(), 34);
    EXPECT_EQ(app->visibleRowsForTV(table()), 1);
}

TEST_F(ListElementTest, IsEditedThroughToTheNoteAndStaysAList)
{
    putNotes({note(2024, 3, 15, "a"), note(2024, 3, 16, "b")});
    start();
    showList({note(2024, 3, 15, "a")});
    typeNote(0, text("new"));
    EXPECT_EQ(app->notesTVData, Table{Value(Array{note(2024, 3, 15, "new")})});
    EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 15, "new"), note(2024, 3, 16, "b")}));
}

TEST_F(ListElementTest, IsSelectedByAClickOnItsDay)
{
    putNotes({note(2024, 3, 15, "a")});
    start();
    showList({note(2024, 3, 15, "a")});
    app->dayBtnAction(dayButton(15));
    EXPECT_EQ(table().selectedRow(), 0);
    EXPECT_EQ(app->notesTVData->size(), 1);
}

TEST_F(ListElementTest, WithoutANoteIsAnEmptyRowOfOneLineThatCannotBeEdited)
{
    const Table notes = {note(2024, 3, 15, "a")};
    putNotes(notes);
    start();
    showList({});
    EXPECT_EQ(shownRows(), QStringList{text(" | ")});
    EXPECT_EQ(table().rectOfRow(0).height(), 17);
    table().editColumn(textColumn, 0);
    EXPECT_FALSE(table().viewAt(textColumn, 0));
    EXPECT_FALSE(
        QAccessible::queryAccessibleInterface(&table())->tableInterface()->cellAt(0, textColumn)->state().editable);
    EXPECT_EQ(app->notesTVData, Table{Value(Array())});
    EXPECT_EQ(notesOnDisk(), notes);
    EXPECT_FALSE(alert());
}

} // namespace
