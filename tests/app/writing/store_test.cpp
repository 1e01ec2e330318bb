// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "support/AppFixture.h"
#include "table/CellEditor.h"

#include <QPointer>
#include <QTest>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

void put(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string bytesOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The bytes of every file in `folder`.
std::vector<std::string> contentsOf(const std::filesystem::path& folder)
{
    std::vector<std::string> contents;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
        contents.push_back(bytesOf(entry.path()));
    }
    return contents;
}

class StoreTest : public AppFixture {
protected:
    /// Types behind the text of a cell and stays in it.
    static void typeInto(TableView& table, int row, const QString& text)
    {
        table.editColumn(textColumn, row);
        auto* editor = qobject_cast<CellEditor*>(table.viewAt(textColumn, row));
        ASSERT_TRUE(editor);
        QTest::keyClick(editor, Qt::Key_End);
        QTest::keyClicks(editor, text);
    }

    const Table march{note(2024, 3, 2, "dentist"), note(2024, 3, 20, "spring")};
    const Table dates{event(1990, 5, 4, "Ada"), event(2001, 7, 8, "wedding")};
};

TEST_F(StoreTest, WithoutFilesTheTablesAreEmptyAndNothingIsWritten)
{
    start();
    EXPECT_EQ(app->allNotesTVData, Table());
    EXPECT_EQ(app->notesTVData, Table());
    EXPECT_EQ(app->eventsTVData, Table());
    quit();
    EXPECT_TRUE(std::filesystem::is_empty(dataFolder()));
}

TEST_F(StoreTest, WithoutAnApplicationSupportFolderItRunsOnEmptyTables)
{
    window = std::make_unique<QMainWindow>();
    ui = std::make_unique<Ui::MainWindow>();
    ui->setupUi(window.get());
    app = std::make_unique<AppDelegate>(*window, *ui, host.services(std::nullopt));
    app->applicationWillFinishLaunching();
    app->applicationDidFinishLaunching();
    EXPECT_EQ(app->allNotesTVData, Table());
    EXPECT_EQ(app->eventsTVData, Table());
    app->showDataFilesInFinder();
    EXPECT_TRUE(host.workspace.shownFolders.isEmpty());
    quit();
}

TEST_F(StoreTest, BothFilesAreLoadedInTheirOrder)
{
    const Table backwards{march.at(1), march.at(0)};
    putNotes(backwards);
    putEvents(dates);
    start();
    EXPECT_EQ(app->allNotesTVData, backwards);
    EXPECT_EQ(app->notesTVData, backwards);
    EXPECT_EQ(app->eventsTVData, dates);
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 2);
}

TEST_F(StoreTest, OlderNotesAreCleanedOnceAndWhatIsLeftOutIsKeptAside)
{
    const Value withMore(Dictionary{
        {"NoteDateKey", Value(day(2024, 3, 2))}, {"colour", Value("red")}, {"NoteDataKey", Value("dentist")}});
    const Value withoutText(Dictionary{{"NoteDateKey", Value(day(2024, 3, 3))}});
    const Value withoutDate(Dictionary{{"NoteDataKey", Value("lost")}});
    putNotes({withMore, withoutText, withoutDate, march.at(1)});
    const std::string before = bytesOf(notesFile());
    start();
    EXPECT_EQ(app->allNotesTVData, march);
    EXPECT_EQ(app->notesTVData, march);
    EXPECT_EQ(notesOnDisk(), march);
    EXPECT_EQ(host.userDefaults.stored.value(PreferenceKeys::notesCleaned), 1);
    EXPECT_EQ(contentsOf(dataFolder() / "Recovered"), std::vector<std::string>{before});

    // Foreign records of a later time stay.
    putNotes({withMore, march.at(1)});
    start();
    EXPECT_EQ(app->allNotesTVData, (Table{withMore, march.at(1)}));
    EXPECT_EQ(notesOnDisk(), (Table{withMore, march.at(1)}));
}

TEST_F(StoreTest, CleaningWaitsForTheFirstStartThatFindsNotes)
{
    start();
    EXPECT_FALSE(host.userDefaults.stored.contains(PreferenceKeys::notesCleaned));
    putNotes(march);
    start();
    EXPECT_EQ(host.userDefaults.stored.value(PreferenceKeys::notesCleaned), 1);
}

TEST_F(StoreTest, NotesThatAreAllForeignAreCleanedToNoneAndTheirFileGoes)
{
    putNotes({Value("not a record")});
    start();
    EXPECT_EQ(app->allNotesTVData, Table());
    EXPECT_EQ(notesOnDisk(), std::nullopt);
    EXPECT_EQ(contentsOf(dataFolder() / "Recovered").size(), 1U);
}

TEST_F(StoreTest, TheNotesButtonSavesEveryNoteThoughTheListIsFiltered)
{
    putNotes({march.at(0), march.at(1), note(2024, 4, 1, "in April")});
    start();
    ui->hideShowSegBtn->press(0);
    ASSERT_EQ(shownRows().size(), 2);
    app->waitForSaves();
    std::filesystem::remove(notesFile());
    ui->noteEntryListSaveBtn->setEnabled(true);
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(notesOnDisk().value_or(Table()).size(), 3);
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    EXPECT_EQ(eventsOnDisk(), std::nullopt);
}

TEST_F(StoreTest, TheDatesButtonSavesTheImportantDatesAlone)
{
    putNotes(march);
    putEvents(dates);
    start();
    app->waitForSaves();
    std::filesystem::remove(notesFile());
    std::filesystem::remove(eventsFile());
    ui->importantDateSaveBtn->setEnabled(true);
    ui->importantDateSaveBtn->click();
    EXPECT_EQ(eventsOnDisk(), dates);
    EXPECT_EQ(notesOnDisk(), std::nullopt);
    EXPECT_FALSE(ui->importantDateSaveBtn->isEnabled());
}

TEST_F(StoreTest, TheDatesButtonShowsRowsThatWereAdded)
{
    start();
    app->eventsTVData = dates;
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 0);
    app->saveTVDataToFile(*ui->importantDateSaveBtn);
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 2);
}

TEST_F(StoreTest, AnyOtherSenderSavesNothingButEndsTheEditAndIsDisabled)
{
    putEvents(dates);
    start();
    std::filesystem::remove(eventsFile());
    typeInto(*ui->importantDatesTableView, 0, QStringLiteral("!"));
    app->saveTVDataToFile(*ui->todayBtn);
    EXPECT_EQ(ui->importantDatesTableView->editedRow(), -1);
    EXPECT_FALSE(ui->todayBtn->isEnabled());
    EXPECT_FALSE(window->focusWidget());
    EXPECT_EQ(eventsOnDisk(), std::nullopt);
}

TEST_F(StoreTest, AnEditInProgressIsCommittedBeforeItIsSaved)
{
    putNotes(march);
    putEvents(dates);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at 9"));
    EXPECT_TRUE(ui->noteEntryListSaveBtn->isEnabled());
    ui->noteEntryListSaveBtn->click();
    EXPECT_EQ(ui->notesTableView->editedRow(), -1);
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "dentist at 9"), march.at(1)}));

    typeInto(*ui->importantDatesTableView, 0, QStringLiteral(" Lovelace"));
    EXPECT_TRUE(ui->importantDateSaveBtn->isEnabled());
    ui->importantDateSaveBtn->click();
    EXPECT_EQ(ui->importantDatesTableView->editedRow(), -1);
    EXPECT_EQ(eventsOnDisk(), (Table{event(1990, 5, 4, "Ada Lovelace"), dates.at(1)}));
}

TEST_F(StoreTest, SavingAnEmptyTableRemovesItsFileAndKeepsWhatItHeld)
{
    putNotes(march);
    start();
    app->waitForSaves();
    const std::string before = bytesOf(notesFile());
    app->allNotesTVData->clear();
    app->saveTVDataToFile(*ui->noteEntryListSaveBtn);
    EXPECT_EQ(notesOnDisk(), std::nullopt);
    const std::vector<std::string> kept = contentsOf(dataFolder() / "Recovered");
    EXPECT_NE(std::ranges::find(kept, before), kept.end());
    start();
    EXPECT_EQ(app->allNotesTVData, Table());
}

TEST_F(StoreTest, UnreadableNotesAreAnEmptyListWhoseAdditionsAreLost)
{
    put(notesFile(), "no property list");
    start();
    EXPECT_FALSE(app->allNotesTVData);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 0 notes"));
    EXPECT_FALSE(alert());
    EXPECT_FALSE(host.userDefaults.stored.contains(PreferenceKeys::notesCleaned));
    app->dayBtnAction(dayButton(3));
    EXPECT_EQ(shownRows(), QStringList{QStringLiteral("Sun, Mar 3, 2024 | ")});
    EXPECT_FALSE(app->allNotesTVData);
    ui->notesTableView->editColumn(1, 0);
    EXPECT_FALSE(ui->notesTableView->viewAt(1, 0)) << "what is typed there would have no place to go";
}

TEST_F(StoreTest, ALaterSaveOfUnreadableNotesRemovesTheFileAndKeepsItsBytes)
{
    put(notesFile(), "no property list");
    start();
    app->saveTVDataToFile(*ui->noteEntryListSaveBtn);
    EXPECT_EQ(notesOnDisk(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(notesFile()));
    EXPECT_EQ(contentsOf(dataFolder() / "Recovered"), std::vector<std::string>{"no property list"});
}

TEST_F(StoreTest, UnreadableImportantDatesStayAsTheyAreUntilTheyAreSaved)
{
    put(eventsFile(), "<plist><dict/></plist>"); // a property list, but no array
    start();
    EXPECT_FALSE(app->eventsTVData);
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 0);
    quit();
    EXPECT_EQ(bytesOf(eventsFile()), "<plist><dict/></plist>");
    start();
    app->saveTVDataToFile(*ui->importantDateSaveBtn);
    app->waitForSaves();
    EXPECT_FALSE(std::filesystem::exists(eventsFile()));
    EXPECT_EQ(contentsOf(dataFolder() / "Recovered"), std::vector<std::string>{"<plist><dict/></plist>"});
}

TEST_F(StoreTest, QuittingSavesTheImportantDatesAndNotTheNotes)
{
    putNotes(march);
    putEvents(dates);
    host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    start();
    std::filesystem::remove(notesFile());
    std::filesystem::remove(eventsFile());
    quit();
    EXPECT_TRUE(std::filesystem::exists(eventsFile()));
    EXPECT_FALSE(std::filesystem::exists(notesFile()));
}

TEST_F(StoreTest, QuittingWithoutImportantDatesLeavesTheirFileAsItWas)
{
    putEvents(dates);
    start();
    const std::string before = bytesOf(eventsFile());
    app->eventsTVData->clear();
    quit();
    EXPECT_EQ(bytesOf(eventsFile()), before);
}

TEST_F(StoreTest, QuittingCommitsTheEditInProgress)
{
    putNotes(march);
    putEvents(dates);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at 9"));
    app->applicationWillTerminate();
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "dentist at 9"), march.at(1)}));
    start();
    typeInto(*ui->importantDatesTableView, 1, QStringLiteral(" day"));
    app->applicationWillTerminate();
    EXPECT_EQ(ui->importantDatesTableView->editedRow(), -1);
    EXPECT_EQ(eventsOnDisk(), (Table{dates.at(0), event(2001, 7, 8, "wedding day")}));
}

TEST_F(StoreTest, TheSaveCommandSavesWhatTheEnabledButtonsWould)
{
    putNotes(march);
    putEvents(dates);
    host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    start();
    std::filesystem::remove(notesFile());
    std::filesystem::remove(eventsFile());
    ui->importantDateSaveBtn->setEnabled(true);
    ui->saveAction->trigger();
    EXPECT_EQ(eventsOnDisk(), dates);
    EXPECT_EQ(notesOnDisk(), std::nullopt);
}

TEST_F(StoreTest, TheSaveCommandLeavesTheTextThatIsBeingWrittenAsItIs)
{
    putNotes(march);
    putEvents(dates);
    start();
    for (TableView* table : {ui->notesTableView, ui->importantDatesTableView}) {
        typeInto(*table, 0, QStringLiteral(" at 9"));
        QPointer<QWidget> view = table->viewAt(textColumn, 0);
        auto& editor = dynamic_cast<CellEditor&>(*view);
        QTest::keyClick(&editor, Qt::Key_Left);
        const int caret = editor.textCursor().position();

        ui->saveAction->trigger();
        runQueued();
        ASSERT_TRUE(view);
        EXPECT_EQ(table->viewAt(textColumn, 0), view);
        EXPECT_EQ(window->focusWidget(), view);
        EXPECT_EQ(editor.textCursor().position(), caret);

        QTest::keyClicks(&editor, QStringLiteral("1"));
        EXPECT_TRUE(editor.text().endsWith(QStringLiteral(" at 19")));
        ui->saveAction->trigger();
        QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(editor.text(), table == ui->notesTableView ? QStringLiteral("dentist") : QStringLiteral("Ada"));
    }
    EXPECT_EQ(notesOnDisk(), march) << "the edit that was undone has ended";
    EXPECT_EQ(eventsOnDisk(), (Table{event(1990, 5, 4, "Ada at 19"), dates.at(1)}));
}

TEST_F(StoreTest, TheSaveCommandCommitsWhatIsBeingWritten)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at 9"));
    ui->saveAction->trigger();
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "dentist at 9"), march.at(1)}));
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    EXPECT_EQ(ui->notesTableView->editedRow(), 0);
}

TEST_F(StoreTest, TheSaveCommandLeavesTheFocusWhereItIs)
{
    putEvents(dates);
    start();
    app->addRowToImportDates();
    ui->filterField->setFocus();
    ui->saveAction->trigger();
    EXPECT_EQ(window->focusWidget(), ui->filterField);
}

} // namespace
