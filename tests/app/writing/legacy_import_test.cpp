// SPDX-License-Identifier: MIT
#include "calendar/NoteField.h"
#include "plist/PropertyList.h"
#include "support/AppFixture.h"
#include "support/StandInInputMethod.h"

#include <QAction>
#include <QTest>

#include <fstream>
#include <iterator>
#include <set>

namespace {

const std::string notesName = "TALV VeluMora";
const std::string eventsName = "TALV Events";

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator(stream), {}};
}

class LegacyImportTest : public AppFixture {
protected:
    LegacyImportTest() { std::filesystem::create_directories(legacy()); }

    std::filesystem::path legacy() const { return std::filesystem::path(home.path().toStdString()) / "old" / "TALV"; }

    void putLegacy(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(legacy() / name, std::ios::binary) << bytes;
    }

    /// Chooses the older product's folder, or another; the alert that follows is up.
    void choose(const std::filesystem::path& folder)
    {
        host.openPanel.answer = folder;
        ui->importAction->trigger();
        ASSERT_TRUE(alert()) << "no alert is up";
    }

    void import(const std::filesystem::path& folder)
    {
        choose(folder);
        answer(Alert::firstButtonReturn);
    }

    std::multiset<std::string> recovered()
    {
        app->waitForSaves();
        std::multiset<std::string> contents;
        std::error_code none;
        for (const auto& copy : std::filesystem::directory_iterator(dataFolder() / "Recovered", none)) {
            contents.insert(contentOf(copy.path()));
        }
        return contents;
    }
};

TEST_F(LegacyImportTest, ThePanelAsksForTheFolderAndSaysWhy)
{
    start();
    ui->importAction->trigger();
    ASSERT_EQ(host.openPanel.requests.size(), 1);
    const OpenPanel::Request& request = host.openPanel.requests.first();
    EXPECT_EQ(request.message,
              QStringLiteral("Velumora needs permission to access your TALV data files.\r"
                             "1. First select the 'TALV' folder. If the TALV folder exists, it should already be "
                             "selected in this open dialog.\r\r"
                             "2. Use the 'Choose' button to grant permission to the TALV files.\r"));
    EXPECT_EQ(request.acceptButton, QStringLiteral("Choose"));
    EXPECT_EQ(request.folder, "~/Library/Application Support/TALV");
    EXPECT_FALSE(alert()) << "a cancelled panel changes nothing";
}

TEST_F(LegacyImportTest, ItSaysWhatWillHappenFirst)
{
    putLegacy(eventsName, "anything");
    start();
    choose(legacy());
    const Alert& shown = *alert();
    EXPECT_EQ(shown.alertStyle(), Alert::Style::Critical);
    EXPECT_EQ(shown.messageText(), QStringLiteral("Import TALV's notes & events data?"));
    EXPECT_EQ(shown.informativeText(),
              QStringLiteral("If TALV's data is imported, please be aware of these *impacts*:\n"
                             "Any existing Velumora data will be overwritten, so be prepared.\n"
                             "There is no undo from the import. Backups make good sense. Hint\n\n"
                             "Existing TALV data remains intact for those running TALV.\n"));
    EXPECT_EQ(shown.buttons().at(0)->text(), QStringLiteral("Confirm TALV Data Import"));
    EXPECT_EQ(shown.buttons().at(1)->text(), QStringLiteral("Cancel TALV Data Import"));
}

TEST_F(LegacyImportTest, AFolderWithoutEitherFileIsExplained)
{
    putNotes({note(2024, 3, 5, "mine")});
    start();
    choose(legacy());
    const Alert& shown = *alert();
    EXPECT_EQ(shown.alertStyle(), Alert::Style::Critical);
    EXPECT_EQ(shown.messageText(),
              QStringLiteral("Could not find TALV's data files( notes or events ).\r No import possible."));
    EXPECT_EQ(shown.informativeText(),
              QStringLiteral("This usually means one of the following:\r\r"
                             "\t• TALV was never installed and used on this Mac, so data files weren't created.\r\r"
                             "\t• TALV's data folder exists but its data files are missing.\r\r"
                             "If the folder and files exist, they should be located at the following path:\r"
                             "/Users/YourUserName/Library/Application Support/TALV\r\r"));
    EXPECT_EQ(shown.buttons().at(0)->text(),
              QStringLiteral("Thanks for letting me know. I'll look for my TALV data or enter myself"));
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "mine")});
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 5, "mine")});
}

TEST_F(LegacyImportTest, BothFilesReplaceTheProgramsOwn)
{
    const Table notes{note(1999, 12, 31, "Fireworks"), note(2000, 1, 1, "Late")};
    const Table events{event(1970, 6, 1, "Born")};
    putLegacy(notesName, PropertyList::writeXml(notes));
    putLegacy(eventsName, PropertyList::writeXml(events));
    putNotes({note(2024, 3, 5, "mine")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    const std::string oldNotes = contentOf(notesFile());
    const std::string oldEvents = contentOf(eventsFile());
    import(legacy());
    EXPECT_EQ(notesOnDisk(), notes);
    EXPECT_EQ(eventsOnDisk(), events);
    EXPECT_EQ(app->notesTVData, notes);
    EXPECT_EQ(app->eventsTVData, events);
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 1);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
    const auto kept = recovered();
    EXPECT_TRUE(kept.contains(oldNotes)) << "what was on the disk before is kept";
    EXPECT_TRUE(kept.contains(oldEvents));
}

TEST_F(LegacyImportTest, ASaveBeforeTheNextStartWritesTheEarlierNotesBack)
{
    putLegacy(notesName, PropertyList::writeXml({note(1999, 12, 31, "Fireworks")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    import(legacy());
    EXPECT_EQ(app->allNotesTVData, Table{note(2024, 3, 5, "mine")});
    EXPECT_EQ(notesOnDisk(), Table{note(1999, 12, 31, "Fireworks")});
    app->saveTVDataToFile(*ui->noteEntryListSaveBtn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "mine")});
}

TEST_F(LegacyImportTest, TheNextStartHasTheImportedNotes)
{
    putLegacy(notesName, PropertyList::writeXml({note(2024, 3, 1, "Imported")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    import(legacy());
    quit();
    start();
    EXPECT_EQ(app->allNotesTVData, Table{note(2024, 3, 1, "Imported")});
}

TEST_F(LegacyImportTest, EventsAloneLeaveTheNotes)
{
    putLegacy(eventsName, PropertyList::writeXml({event(1970, 6, 1, "Born")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    import(legacy());
    EXPECT_EQ(eventsOnDisk(), Table{event(1970, 6, 1, "Born")});
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "mine")});
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 5, "mine")});
}

TEST_F(LegacyImportTest, CancellingChangesNothing)
{
    putLegacy(notesName, PropertyList::writeXml({note(1999, 12, 31, "Fireworks")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    choose(legacy());
    answer(Alert::secondButtonReturn);
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "mine")});
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 5, "mine")});
}

TEST_F(LegacyImportTest, AnUnreadableFileTakesTheProgramsOwnAwayAndKeepsItsBytes)
{
    putLegacy(notesName, "no property list");
    putNotes({note(2024, 3, 5, "mine")});
    start();
    const std::string before = contentOf(notesFile());
    import(legacy());
    EXPECT_EQ(notesOnDisk(), std::nullopt);
    EXPECT_EQ(app->notesTVData, Table());
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 0 notes"));
    EXPECT_TRUE(recovered().contains(before));
}

TEST_F(LegacyImportTest, TheOlderFilesAreOnlyRead)
{
    putLegacy(notesName, PropertyList::writeXml({note(1999, 12, 31, "Fireworks")}));
    putLegacy(eventsName, "broken");
    start();
    const auto stateOf = [this](const std::string& name) {
        const std::filesystem::path file = legacy() / name;
        return std::pair(contentOf(file), std::filesystem::last_write_time(file));
    };
    const auto notes = stateOf(notesName);
    const auto events = stateOf(eventsName);
    std::filesystem::permissions(legacy(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    import(legacy());
    app->waitForSaves();
    EXPECT_EQ(stateOf(notesName), notes);
    EXPECT_EQ(stateOf(eventsName), events);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(legacy()), {}), 2);
    std::filesystem::permissions(legacy(), std::filesystem::perms::owner_all);
    EXPECT_EQ(notesOnDisk(), Table{note(1999, 12, 31, "Fireworks")});
}

TEST_F(LegacyImportTest, TheProgramsOwnFolderDoesNoHarm)
{
    putNotes({note(2024, 3, 5, "mine")});
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    app->dayBtnAction(dayButton(7));
    typeNote(1, QStringLiteral("just typed")); // its save may still be on its way
    import(dataFolder());
    const Table notes{note(2024, 3, 5, "mine"), note(2024, 3, 7, "just typed")};
    EXPECT_EQ(notesOnDisk(), notes);
    EXPECT_EQ(app->notesTVData, notes);
    EXPECT_EQ(eventsOnDisk(), Table{event(1990, 5, 20, "Ann")});
}

TEST_F(LegacyImportTest, ADateThatWasNotSavedYetIsKeptAside)
{
    putLegacy(eventsName, PropertyList::writeXml({event(1970, 6, 1, "Born")}));
    start();
    app->addRowToImportDates();
    const Table unsaved = *app->eventsTVData;
    import(legacy());
    EXPECT_EQ(app->eventsTVData, Table{event(1970, 6, 1, "Born")});
    EXPECT_FALSE(ui->importantDateSaveBtn->isEnabled());
    EXPECT_TRUE(recovered().contains(PropertyList::writeXml(unsaved)));
}

TEST_F(LegacyImportTest, ADateThatWasNotSavedYetSurvivesTheProgramsOwnFolder)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    app->addRowToImportDates();
    const Table unsaved = *app->eventsTVData;
    import(dataFolder());
    EXPECT_EQ(app->eventsTVData, unsaved);
    EXPECT_EQ(eventsOnDisk(), unsaved);
}

TEST_F(LegacyImportTest, ANoteThatIsBeingTypedIsKeptAside)
{
    putLegacy(notesName, PropertyList::writeXml({note(1999, 12, 31, "Fireworks")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral("!"));
    import(legacy());
    EXPECT_EQ(notesOnDisk(), Table{note(1999, 12, 31, "Fireworks")});
    EXPECT_TRUE(recovered().contains(PropertyList::writeXml({note(2024, 3, 5, "mine!")})));
}

TEST_F(LegacyImportTest, ADescriptionThatIsBeingTypedIsKeptAside)
{
    putLegacy(eventsName, PropertyList::writeXml({event(1970, 6, 1, "Born")}));
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    TableView& dates = *ui->importantDatesTableView;
    dates.editColumn(1, 0);
    QTest::keyClicks(dates.viewAt(1, 0), QStringLiteral("a"));
    import(legacy());
    EXPECT_EQ(dates.editedRow(), -1);
    EXPECT_EQ(app->eventsTVData, Table{event(1970, 6, 1, "Born")});
    EXPECT_EQ(eventsOnDisk(), Table{event(1970, 6, 1, "Born")});
    EXPECT_TRUE(recovered().contains(PropertyList::writeXml({event(1990, 5, 20, "Anna")})));
}

TEST_F(LegacyImportTest, ADescriptionThatIsBeingComposedIsKeptAsideAndInNoImportedRow)
{
    StandInInputMethod inputMethod;
    putLegacy(eventsName, PropertyList::writeXml({event(1970, 6, 1, "Born")}));
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    TableView& dates = *ui->importantDatesTableView;
    dates.editColumn(1, 0);
    QTest::keyClicks(dates.viewAt(1, 0), QStringLiteral("a"));
    inputMethod.compose(QStringLiteral("に"));
    import(legacy());
    EXPECT_EQ(app->eventsTVData, Table{event(1970, 6, 1, "Born")});
    EXPECT_TRUE(recovered().contains(PropertyList::writeXml({event(1990, 5, 20, "Annaに")})));
}

TEST_F(LegacyImportTest, ThePageShownShowsTheImportedNotes)
{
    putLegacy(notesName, PropertyList::writeXml({note(2024, 3, 5, "imported")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    ui->myTabView->setCurrentIndex(2);
    import(legacy());
    QStringList shown;
    for (const NoteField* field : ui->monthlyViewPage->findChildren<NoteField*>()) {
        shown << field->note();
    }
    EXPECT_TRUE(shown.contains(QStringLiteral("imported")));
    EXPECT_FALSE(shown.contains(QStringLiteral("mine")));
}

TEST_F(LegacyImportTest, ANoteOfTheSameDayAsAnImportedOneThatIsEditedIsKeptAside)
{
    putLegacy(notesName, PropertyList::writeXml({note(2024, 3, 5, "imported")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    import(legacy());
    typeNote(0, QStringLiteral("edited"));
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "edited")});
    EXPECT_TRUE(recovered().contains(PropertyList::writeXml({note(2024, 3, 5, "mine")})));
    EXPECT_TRUE(recovered().contains(PropertyList::writeXml({note(2024, 3, 5, "imported")})));
}

TEST_F(LegacyImportTest, ALookAtAnImportedNoteWritesNothingBack)
{
    putLegacy(notesName, PropertyList::writeXml({note(2024, 3, 5, "imported")}));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    import(legacy());
    ui->notesTableView->editColumn(1, 0);
    ui->notesTableView->endEditing();
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "imported")});
    EXPECT_EQ(app->allNotesTVData, Table{note(2024, 3, 5, "mine")});
}

TEST_F(LegacyImportTest, ADeletionAskedForBeforeAnImportDeletesNoImportedNote)
{
    putLegacy(notesName, PropertyList::writeXml({note(2024, 3, 5, "imported")}));
    putNotes({note(2024, 3, 5, "mine"), note(2024, 3, 6, "b")});
    start();
    choose(legacy());
    ui->notesTableView->selectRow(1);
    app->respondToDeleteRowFromList(*ui->deleteRowFromListBtn); // as a screen reader can
    answer(Alert::firstButtonReturn);
    EXPECT_FALSE(alert());
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 5, "imported")});
}

TEST_F(LegacyImportTest, NotesAloneLeaveTheEvents)
{
    putLegacy(notesName, PropertyList::writeXml({note(1999, 12, 31, "Fireworks")}));
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    import(legacy());
    EXPECT_EQ(eventsOnDisk(), Table{event(1990, 5, 20, "Ann")});
    EXPECT_EQ(app->eventsTVData, Table{event(1990, 5, 20, "Ann")});
}

TEST_F(LegacyImportTest, AnEmptyListTakesTheProgramsOwnFileAway)
{
    putLegacy(notesName, PropertyList::writeXml(Table()));
    putNotes({note(2024, 3, 5, "mine")});
    start();
    import(legacy());
    EXPECT_EQ(notesOnDisk(), std::nullopt);
    EXPECT_EQ(app->notesTVData, Table());
}

TEST_F(LegacyImportTest, CharactersThatXmlCannotCarryAreLeftOut)
{
    // A binary property list: an array of one note that says "a", a vertical tab, "b", made with Python's plistlib:
    // plistlib.dumps([{"NoteDateKey": datetime(2024, 3, 4, 23), "NoteDataKey": "a\x0bb"}], fmt=FMT_BINARY)
    const unsigned char binary[] = {
        0x62, 0x70, 0x6c, 0x69, 0x73, 0x74, 0x30, 0x30, 0xa1, 0x01, 0xd2, 0x02, 0x03, 0x04, 0x05, 0x5b, 0x4e, 0x6f,
        0x74, 0x65, 0x44, 0x61, 0x74, 0x61, 0x4b, 0x65, 0x79, 0x5b, 0x4e, 0x6f, 0x74, 0x65, 0x44, 0x61, 0x74, 0x65,
        0x4b, 0x65, 0x79, 0x53, 0x61, 0x0b, 0x62, 0x33, 0x41, 0xc5, 0xcb, 0x44, 0xf8, 0x00, 0x00, 0x00, 0x08, 0x0a,
        0x0f, 0x1b, 0x27, 0x2b, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
        0x00, 0x06, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x34,
    };
    putLegacy(notesName, std::string(std::begin(binary), std::end(binary)));
    start();
    import(legacy());
    EXPECT_EQ(notesOnDisk(), Table{note(2024, 3, 5, "ab")});
    EXPECT_EQ(app->notesTVData, Table{note(2024, 3, 5, "ab")});
}

TEST_F(LegacyImportTest, DatesThatCouldNotBeReadAtTheStartStayWithoutATable)
{
    std::ofstream(eventsFile()) << "broken";
    putLegacy(eventsName, PropertyList::writeXml({event(1970, 6, 1, "Born")}));
    start();
    ASSERT_FALSE(app->eventsTVData);
    import(legacy());
    EXPECT_FALSE(app->eventsTVData) << "the next start reads the imported file";
    EXPECT_EQ(eventsOnDisk(), Table{event(1970, 6, 1, "Born")});
}

} // namespace
