// SPDX-License-Identifier: MIT
#include "notes/NoteBook.h"
#include "saving/NoteStore.h"
#include "store/store_fixture.h"
#include "support/DateGuards.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <memory>
#include <utility>

namespace {

Date march(int day)
{
    return utcDate(2024, 3, day);
}

Value noteOf(int day, const std::string& text)
{
    return makeNoteRecord(march(day), text);
}

Value eventOf(int day, const std::string& text)
{
    return makeEventRecord(march(day), text);
}

/// What a store said of a save.
using Report = std::pair<ListKind, bool>; ///< whether it failed

class NoteStoreTest : public testing::Test {
protected:
    NoteStoreTest()
    {
        std::filesystem::create_directories(dataFolder());
        start();
    }

    /// The program starts, with what the one before left.
    void start()
    {
        store.reset();
        book = NoteBook();
        store = std::make_unique<NoteStore>(book,
                                            NoteStore::Folders{.applicationSupport = home(),
                                                               .state = home() / "state",
                                                               .temporary = home() / "temporary"},
                                            [this] { return edited; });
        QObject::connect(store.get(), &NoteStore::saveEnded, store.get(), [this](ListKind list, std::error_code error) {
            reports.emplace_back(list, static_cast<bool>(error));
        });
        store->load(ListKind::Notes);
        store->load(ListKind::ImportantDates);
    }

    /// The program is killed: what waits in it is gone.
    Draft draftAfterCrash()
    {
        store->waitUntilDone();
        return DraftFile(home() / "state").read();
    }

    void waitForReports()
    {
        store->waitUntilDone();
        QCoreApplication::sendPostedEvents(store.get());
        store->waitUntilDone();
    }

    void putOnDisk(ListKind list, const Table& table)
    {
        ASSERT_FALSE(DataFolder(home(), clock).saveTable(table, fileNameOf(list), Replacing::OwnFile));
    }
    std::optional<Table> onDisk(ListKind list) { return DataFolder(home(), clock).loadTable(fileNameOf(list)); }

    /// No save succeeds until the folder is put back.
    void takeFolderAway()
    {
        std::filesystem::rename(dataFolder(), home() / "away");
        put(dataFolder(), "a file where the folder should be");
    }
    void putFolderBack()
    {
        std::filesystem::remove(dataFolder());
        std::filesystem::rename(home() / "away", dataFolder());
    }

    std::size_t keptCopies() const { return namesIn(dataFolder() / "Recovered").size(); }

    /// Whether `text` was kept aside.
    bool isKept(const std::string& text) const
    {
        const std::filesystem::path kept = dataFolder() / "Recovered";
        return std::ranges::any_of(namesIn(kept), [&](const std::string& name) {
            return bytesOf(kept / name).find(text) != std::string::npos;
        });
    }

    /// The program is killed while a new note is being typed, or after a new important date.
    void leaveNote(int day, const std::string& text)
    {
        edited = EditedNote{.row = {march(day), ""}, .text = text};
        store->writeDraft();
        store->waitUntilDone();
        edited.reset();
    }
    void leaveEvent(int day, const std::string& text)
    {
        book.importantDates = Table{eventOf(day, text)};
        store->writeDraft();
        store->waitUntilDone();
    }
    void makeUnreadable(ListKind list) { put(dataFolder() / fileNameOf(list), "no list"); }

    QTimer& draftTimer() const { return *store->findChild<QTimer*>(); }

    const std::filesystem::path& home() const { return m_home.path(); }
    std::filesystem::path dataFolder() const { return home() / "TALV"; }

    NoteBook book;
    std::optional<EditedNote> edited;
    std::unique_ptr<NoteStore> store;
    std::vector<Report> reports;
    FixedClock clock{storeTime};

private:
    int m_argumentCount = 0;
    QCoreApplication m_application{m_argumentCount, nullptr};
    TestFolder m_home;
    TimeZoneGuard m_zone{"UTC"};
    ClockGuard m_clockGuard{clock};
};

TEST_F(NoteStoreTest, KnowsTheFileOfEachList)
{
    EXPECT_EQ(fileNameOf(ListKind::Notes), NotesFileName);
    EXPECT_EQ(fileNameOf(ListKind::ImportantDates), EventsFileName);
}

TEST_F(NoteStoreTest, LoadsEachTableIntoTheBook)
{
    EXPECT_EQ(book.allNotes, Table());
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    makeUnreadable(ListKind::ImportantDates);
    start();
    EXPECT_EQ(book.allNotes, (Table{noteOf(1, "dentist")}));
    EXPECT_EQ(book.importantDates, std::nullopt);
}

TEST_F(NoteStoreTest, SavesAListAsItIsAndReportsIt)
{
    book.allNotes = Table{noteOf(1, "dentist")};
    book.importantDates = Table{eventOf(2, "birthday")};
    EXPECT_TRUE(store->hasChanges(ListKind::Notes));
    store->save(ListKind::Notes);
    book.allNotes = Table{};
    waitForReports();
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "dentist")}));
    EXPECT_EQ(onDisk(ListKind::ImportantDates), Table());
    EXPECT_EQ(reports, (std::vector<Report>{{ListKind::Notes, false}}));
    EXPECT_TRUE(store->isSaved(ListKind::Notes));
    EXPECT_TRUE(store->hasChanges(ListKind::Notes)); // it has changed since
    EXPECT_TRUE(store->hasChanges(ListKind::ImportantDates));

    store->save(ListKind::ImportantDates);
    waitForReports();
    EXPECT_EQ(onDisk(ListKind::ImportantDates), (Table{eventOf(2, "birthday")}));
    EXPECT_EQ(reports.back(), Report(ListKind::ImportantDates, false));
    EXPECT_FALSE(store->hasChanges(ListKind::ImportantDates));
}

TEST_F(NoteStoreTest, HasNoChangesInATableThatCouldNotBeRead)
{
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    start();
    book.allNotes.reset();
    EXPECT_FALSE(store->hasChanges(ListKind::Notes));
}

TEST_F(NoteStoreTest, KeepsASaveThatFailedAndTriesItAgain)
{
    book.allNotes = Table{noteOf(1, "dentist")};
    takeFolderAway();
    store->save(ListKind::Notes);
    waitForReports();
    EXPECT_EQ(reports, (std::vector<Report>{{ListKind::Notes, true}}));
    EXPECT_FALSE(store->isSaved(ListKind::Notes));
    EXPECT_TRUE(store->isSaved(ListKind::ImportantDates));
    EXPECT_TRUE(store->hasChanges(ListKind::Notes));
    EXPECT_EQ(draftAfterCrash().size(), 1U);

    putFolderBack();
    store->retryAndWait();
    EXPECT_TRUE(store->isSaved(ListKind::Notes));
    waitForReports();
    EXPECT_EQ(reports.back(), Report(ListKind::Notes, false));
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "dentist")}));
    EXPECT_TRUE(draftAfterCrash().empty());
}

TEST_F(NoteStoreTest, RemovesTheFileOfAnEmptyTableOnlyWhenItIsToldTo)
{
    putOnDisk(ListKind::ImportantDates, {eventOf(2, "birthday")});
    start();
    book.importantDates = Table();
    store->saveUnlessEmpty(ListKind::ImportantDates);
    waitForReports();
    EXPECT_EQ(onDisk(ListKind::ImportantDates), (Table{eventOf(2, "birthday")}));

    store->save(ListKind::ImportantDates);
    waitForReports();
    EXPECT_FALSE(std::filesystem::exists(dataFolder() / fileNameOf(ListKind::ImportantDates)));

    book.importantDates = Table{eventOf(3, "wedding")};
    store->saveUnlessEmpty(ListKind::ImportantDates);
    waitForReports();
    EXPECT_EQ(onDisk(ListKind::ImportantDates), (Table{eventOf(3, "wedding")}));
}

TEST_F(NoteStoreTest, KeepsATextAsideThatWasNotSeenWhenItWasReplaced)
{
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    start();
    book.allNotes = Table{noteOf(1, "dentist at nine")};
    store->saveNotesInsteadOf("dentist", "dentist\rbirthday"); // as an added line made it
    waitForReports();
    EXPECT_EQ(keptCopies(), 0U);
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "dentist at nine")}));

    book.allNotes = Table{noteOf(1, "imported")};
    store->saveNotesInsteadOf("dentist at nine", "dentist");
    waitForReports();
    EXPECT_EQ(keptCopies(), 1U);
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "imported")}));
}

TEST_F(NoteStoreTest, KeepsATextAsideWhoseSaveHadFailed)
{
    book.allNotes = Table{noteOf(1, "dentist")};
    takeFolderAway();
    store->save(ListKind::Notes);
    waitForReports();
    putFolderBack();
    book.allNotes = Table{noteOf(1, "imported")};
    store->saveNotesInsteadOf("dentist", "another text");
    waitForReports();
    EXPECT_TRUE(isKept("dentist"));
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "imported")}));
}

TEST_F(NoteStoreTest, KeepsAsideWhatAnImportReplaces)
{
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    start();
    store->replace(Table{noteOf(2, "imported")}, fileNameOf(ListKind::Notes));
    waitForReports();
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(2, "imported")}));
    EXPECT_EQ(keptCopies(), 1U);
    EXPECT_EQ(book.allNotes, (Table{noteOf(1, "dentist")}));
    EXPECT_TRUE(draftAfterCrash().empty()); // which would bring back what was replaced

    store->replace(Table{eventOf(2, "birthday")}, fileNameOf(ListKind::ImportantDates));
    waitForReports();
    EXPECT_EQ(onDisk(ListKind::ImportantDates), (Table{eventOf(2, "birthday")}));
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(2, "imported")}));
}

TEST_F(NoteStoreTest, CleansTheNotesOfWhatAnOlderProductLeft)
{
    EXPECT_FALSE(store->cleanNotes());
    Dictionary record = *noteOf(1, "dentist").dictionary();
    record.set("OldKey", Value("unused"));
    putOnDisk(ListKind::Notes, {Value(record)});
    start();
    EXPECT_TRUE(store->cleanNotes());
    waitForReports();
    EXPECT_EQ(book.allNotes, (Table{noteOf(1, "dentist")}));
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "dentist")}));
    EXPECT_EQ(keptCopies(), 1U);
}

TEST_F(NoteStoreTest, HasTheDraftFollowSoonThoughChangesGoOn)
{
    store->draftHasChanged();
    ASSERT_TRUE(draftTimer().isActive());
    EXPECT_LT(draftTimer().intervalAsDuration(), std::chrono::seconds(2));
    EXPECT_GE(draftTimer().intervalAsDuration(), std::chrono::seconds(1)); // not at each key
    draftTimer().setInterval(std::chrono::hours(1));
    store->draftHasChanged();
    EXPECT_EQ(draftTimer().intervalAsDuration(), std::chrono::hours(1)); // not begun anew

    book.importantDates = Table{eventOf(2, "birthday")};
    QTimerEvent due(draftTimer().timerId());
    QCoreApplication::sendEvent(&draftTimer(), &due);
    EXPECT_FALSE(draftTimer().isActive());
    const Draft draft = draftAfterCrash();
    ASSERT_EQ(draft.size(), 1U);
    EXPECT_EQ(draft.front().unsaved, (DatedText{march(2), "birthday"}));
}

TEST_F(NoteStoreTest, HasTheDraftFollowOnceWhenItFollowsNow)
{
    store->draftHasChanged();
    store->writeDraft();
    EXPECT_FALSE(draftTimer().isActive());
}

TEST_F(NoteStoreTest, HasTheNoteThatIsBeingTypedInTheDraft)
{
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    start();
    edited = EditedNote{.row = {march(1), "dentist at"}, .text = "dentist at nine"};
    store->writeDraft();
    const Draft draft = draftAfterCrash();
    ASSERT_EQ(draft.size(), 1U);
    EXPECT_EQ(draft.front().saved, (DatedText{march(1), "dentist"}));
    EXPECT_EQ(draft.front().unsaved, (DatedText{march(1), "dentist at nine"}));
}

TEST_F(NoteStoreTest, HasAnErasedNewDayInNoDraft)
{
    edited = EditedNote{.row = {march(1), ""}, .text = ""};
    store->writeDraft();
    EXPECT_TRUE(draftAfterCrash().empty());
}

TEST_F(NoteStoreTest, HasANewDayThatIsBeingTypedInTheDraft)
{
    edited = EditedNote{.row = {march(1), ""}, .text = "dentist"};
    store->writeDraft();
    const Draft draft = draftAfterCrash();
    ASSERT_EQ(draft.size(), 1U);
    EXPECT_EQ(draft.front().saved, std::nullopt);
    EXPECT_EQ(draft.front().unsaved, (DatedText{march(1), "dentist"}));
}

TEST_F(NoteStoreTest, HasLinesThatWaitInTheDraft)
{
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    start();
    book.choose(NotesChoice::all());
    book.addLine(march(1), "birthday");
    store->writeDraft();
    Draft draft = draftAfterCrash();
    ASSERT_EQ(draft.size(), 1U);
    EXPECT_EQ(draft.front().unsaved, (DatedText{march(1), "dentist\rbirthday"}));

    edited = EditedNote{.row = {march(1), "dentist\rbirthday"}, .text = "dentist"}; // the line was erased
    store->writeDraft();
    EXPECT_TRUE(draftAfterCrash().empty());

    edited = EditedNote{.row = {march(1), "imported"}, .text = "imported, changed"}; // the line was not in sight
    store->writeDraft();
    draft = draftAfterCrash();
    ASSERT_EQ(draft.size(), 1U);
    EXPECT_EQ(draft.front().unsaved, (DatedText{march(1), "imported, changed\rbirthday"}));
}

TEST_F(NoteStoreTest, WritesTheDraftElsewhereWhereItsFolderTakesNone)
{
    put(home() / "state", "a file where the folder should be");
    leaveEvent(2, "birthday");
    EXPECT_EQ(DraftFile(home() / "state", home() / "temporary").read().size(), 1U);
}

TEST_F(NoteStoreTest, GivesWhatAnEarlierRunLeftUntilItIsTaken)
{
    leaveEvent(2, "birthday");
    start();
    const Draft left = store->leftDraft();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left.front().unsaved, (DatedText{march(2), "birthday"}));
    store->writeDraft();
    EXPECT_EQ(draftAfterCrash(), left); // a crash before the answer takes nothing

    EXPECT_EQ(store->takeLeftDraft(), left);
    EXPECT_TRUE(store->leftDraft().empty());
    store->writeDraft();
    EXPECT_TRUE(draftAfterCrash().empty());
}

TEST_F(NoteStoreTest, WritesOverNothingThatWasNotAskedForYet)
{
    leaveEvent(2, "birthday");
    start();
    store->writeDraft();
    EXPECT_EQ(draftAfterCrash().size(), 1U);
}

TEST_F(NoteStoreTest, DiscardsWhatAnEarlierRunLeft)
{
    leaveEvent(2, "birthday");
    start();
    ASSERT_FALSE(store->leftDraft().empty());
    store->discardLeftDraft();
    EXPECT_TRUE(draftAfterCrash().empty());
}

TEST_F(NoteStoreTest, ForgetsOfAnEarlierRunWhatWasSavedAfterAll)
{
    leaveEvent(2, "birthday");
    putOnDisk(ListKind::ImportantDates, {eventOf(2, "birthday")});
    start();
    EXPECT_TRUE(store->leftDraft().empty());
    EXPECT_TRUE(draftAfterCrash().empty());

    leaveNote(1, "dentist");
    putOnDisk(ListKind::Notes, {noteOf(1, "dentist")});
    start();
    EXPECT_TRUE(store->leftDraft().empty());
    EXPECT_TRUE(draftAfterCrash().empty());
}

TEST_F(NoteStoreTest, HoldsBackADraftWhoseTableCannotBeRead)
{
    leaveEvent(2, "birthday");
    makeUnreadable(ListKind::ImportantDates);
    start();
    EXPECT_TRUE(store->leftDraft().empty());
    EXPECT_EQ(draftAfterCrash().size(), 1U);

    std::filesystem::remove(dataFolder() / fileNameOf(ListKind::ImportantDates));
    start();
    EXPECT_EQ(store->leftDraft().size(), 1U);
}

TEST_F(NoteStoreTest, HoldsBackNotesThatCannotBeReadAlone)
{
    leaveNote(1, "dentist");
    makeUnreadable(ListKind::ImportantDates);
    start();
    EXPECT_EQ(store->leftDraft().size(), 1U); // it is about notes

    makeUnreadable(ListKind::Notes);
    start();
    EXPECT_TRUE(store->leftDraft().empty());
    EXPECT_EQ(draftAfterCrash().size(), 1U);
}

TEST_F(NoteStoreTest, GivesDatesThatWereLeftThoughTheNotesCannotBeRead)
{
    leaveEvent(2, "birthday");
    makeUnreadable(ListKind::Notes);
    start();
    EXPECT_EQ(store->leftDraft().size(), 1U);
}

TEST_F(NoteStoreTest, LeavesADraftOfWhatFailsAtTheEnd)
{
    book.allNotes = Table{noteOf(1, "dentist")};
    takeFolderAway();
    store->save(ListKind::Notes);
    store->waitUntilDone();
    store->finish();
    EXPECT_EQ(reports, (std::vector<Report>(2, {ListKind::Notes, true}))); // tried once more
    EXPECT_EQ(draftAfterCrash().size(), 1U);

    putFolderBack();
    store->finish();
    EXPECT_EQ(onDisk(ListKind::Notes), (Table{noteOf(1, "dentist")}));
    EXPECT_TRUE(draftAfterCrash().empty());
}

TEST_F(NoteStoreTest, LeavesADraftAtTheEndOfWhatWasNeverSaved)
{
    book.importantDates = Table{eventOf(2, "birthday")};
    store->finish();
    EXPECT_EQ(DraftFile(home() / "state").read().size(), 1U); // written before the program goes on to its end
}

} // namespace
