// SPDX-License-Identifier: MIT
// Saving when it fails, and when the machine or the process ends without a goodbye.
#include "app/PreferenceKeys.h"
#include "support/AppFixture.h"
#include "support/HeardEvents.h"
#include "table/CellEditor.h"

#include <QTest>
#include <QTimer>
#include <QTimerEvent>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

class SavingTest : public AppFixture {
protected:
    SavingTest()
    {
        host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
        putNotes(march);
        putEvents(dates);
        start();
        app->waitForSaves();
        runQueued();
    }

    /// Puts a file in the place of the folder, so that no save succeeds until it is put back.
    void takeFolderAway()
    {
        std::filesystem::rename(dataFolder(), away());
        std::ofstream(dataFolder()) << "a file where the folder should be";
    }
    void putFolderBack()
    {
        std::filesystem::remove(dataFolder());
        std::filesystem::rename(away(), dataFolder());
    }
    std::filesystem::path away() const { return dataFolder().native() + " away"; }

    void saveInVain()
    {
        takeFolderAway();
        typeNote(0, QStringLiteral("dentist at nine"));
        waitForReports();
    }

    void waitForReports()
    {
        app->waitForSaves();
        runQueued();
    }

    void typeInto(TableView& table, int row, const QString& text)
    {
        table.editColumn(textColumn, row);
        auto* editor = qobject_cast<CellEditor*>(table.viewAt(textColumn, row));
        ASSERT_TRUE(editor);
        QTest::keyClick(editor, Qt::Key_End);
        QTest::keyClicks(editor, text);
    }

    const Table march{note(2024, 3, 2, "dentist"), note(2024, 3, 20, "spring")};
    const Table dates{event(1990, 5, 4, "Ada")};
    const Table later{note(2024, 3, 2, "dentist at nine"), note(2024, 3, 20, "spring")};
};

TEST_F(SavingTest, AFailedSaveIsToldByItsButtonAloneSinceWhenAndWhy)
{
    saveInVain();
    EXPECT_FALSE(alert());
    const QPushButton& button = *ui->noteEntryListSaveBtn;
    EXPECT_TRUE(button.isEnabled());
    const QString said = QStringLiteral("Not saved since Mar 15, 2024, 9:30 AM: the folder of the notes is not there");
    EXPECT_EQ(button.toolTip().replace(QChar(0x202f), u' '), said);
    EXPECT_EQ(button.accessibleDescription(), button.toolTip());
    EXPECT_TRUE(ui->importantDateSaveBtn->toolTip().isEmpty());

    clock.set(utcDate(2024, 3, 15, 9, 30));
    const HeardEvents heard;
    ui->noteEntryListSaveBtn->click();
    waitForReports();
    EXPECT_TRUE(heard.ofType(QAccessible::DescriptionChanged).isEmpty()) << "it is the same still";
    EXPECT_TRUE(button.isEnabled());
    EXPECT_EQ(button.toolTip().replace(QChar(0x202f), u' '), said) << "since the first time";
}

TEST_F(SavingTest, AnImportReplacesNothingThatTheDiskDoesNotHave)
{
    const std::filesystem::path legacy = dataFolder().parent_path() / "older" / "TALV";
    std::filesystem::create_directories(legacy);
    std::filesystem::copy_file(dataFolder() / NotesFileName, legacy / NotesFileName);
    host.openPanel.answer = legacy;
    const auto import = [this] {
        ui->importAction->trigger();
        ASSERT_TRUE(alert());
        answer(Alert::firstButtonReturn);
        waitForReports();
    };
    saveInVain();
    import();
    EXPECT_EQ(app->notesTVData, later) << "the disk does not have them yet";

    putFolderBack();
    import();
    EXPECT_EQ(app->notesTVData, march);
    EXPECT_EQ(notesOnDisk(), march);
    std::string kept;
    for (const auto& copy : std::filesystem::directory_iterator(dataFolder() / "Recovered")) {
        std::ifstream file(copy.path());
        kept.append(std::istreambuf_iterator<char>(file), {});
    }
    EXPECT_NE(kept.find("dentist at nine"), std::string::npos) << "what had failed is kept aside";
}

TEST_F(SavingTest, AFailedSaveIsTriedAgainAtTheMinuteAndItsButtonIsAsBefore)
{
    saveInVain();
    putFolderBack();
    app->minuteHasChanged();
    waitForReports();
    EXPECT_EQ(notesOnDisk(), later);
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    EXPECT_EQ(ui->noteEntryListSaveBtn->toolTip(), QString());
    EXPECT_EQ(ui->noteEntryListSaveBtn->accessibleDescription(), QString());
}

TEST_F(SavingTest, AFailedSaveIsTriedAgainWithTheButton)
{
    saveInVain();
    putFolderBack();
    ui->noteEntryListSaveBtn->click();
    waitForReports();
    EXPECT_EQ(notesOnDisk(), later);
    EXPECT_FALSE(ui->noteEntryListSaveBtn->isEnabled());
    EXPECT_EQ(ui->noteEntryListSaveBtn->toolTip(), QString());
}

TEST_F(SavingTest, AFailedSaveIsTriedAgainWithASaveOfTheOtherFile)
{
    saveInVain();
    putFolderBack();
    app->saveTVDataToFile(*ui->importantDateSaveBtn);
    waitForReports();
    EXPECT_EQ(notesOnDisk(), later);
}

TEST_F(SavingTest, AFailedSaveIsTriedAgainAtTheEnd)
{
    app->eventsTVData->clear(); // so that nothing else is saved
    saveInVain();
    putFolderBack();
    app->applicationWillTerminate();
    EXPECT_EQ(notesOnDisk(), later);
}

TEST_F(SavingTest, TheButtonOfDatesStaysEnabledForWhatChangedAfterAFailedSave)
{
    takeFolderAway();
    typeInto(*ui->importantDatesTableView, 0, QStringLiteral(" Lovelace"));
    ui->importantDateSaveBtn->click();
    waitForReports();
    EXPECT_TRUE(ui->importantDateSaveBtn->isEnabled());
    EXPECT_FALSE(ui->importantDateSaveBtn->toolTip().isEmpty());
    app->addRowToImportDates();
    putFolderBack();
    app->minuteHasChanged();
    waitForReports();
    EXPECT_EQ(eventsOnDisk(), (Table{event(1990, 5, 4, "Ada Lovelace")}));
    EXPECT_TRUE(ui->importantDateSaveBtn->isEnabled());
    EXPECT_TRUE(ui->importantDateSaveBtn->toolTip().isEmpty());
}

TEST_F(SavingTest, BeforeTheMachineIsSwitchedOffEditsAreCommittedAndBothTablesSaved)
{
    app->addRowToImportDates();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at nine"));
    host.shutdownMonitor.shutDown();
    EXPECT_EQ(ui->notesTableView->editedRow(), -1);
    EXPECT_EQ(notesOnDisk(), later);
    EXPECT_EQ(eventsOnDisk().value_or(Table()).size(), 2);
    EXPECT_FALSE(ui->importantDateSaveBtn->isEnabled());

    typeNote(1, QStringLiteral("the machine went on after all"));
    EXPECT_EQ(notesOnDisk()->at(1), note(2024, 3, 20, "the machine went on after all"));
}

TEST_F(SavingTest, WhenTheProcessEndsFromWithinEditsAreCommittedAndBothTablesSaved)
{
    app->addRowToImportDates();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at nine"));
    app->processWillExit();
    EXPECT_EQ(notesOnDisk(), later);
    EXPECT_EQ(eventsOnDisk().value_or(Table()).size(), 2);
}

} // namespace
