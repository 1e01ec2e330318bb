// SPDX-License-Identifier: MIT
#include "store/SaveQueue.h"
#include "store/store_fixture.h"

#include <QString>
#include <QtGlobal>

#include <chrono>
#include <latch>
#include <thread>

#ifdef __SANITIZE_THREAD__
// A write reads much; with the usual short memory the sanitizer forgets the reads that a later change races with.
extern "C" const char* __tsan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "history_size=7";
}
#endif

namespace {

namespace fs = std::filesystem;

class SaveQueueTest : public testing::Test {
protected:
    fs::path folderPath() const { return m_home.path() / "TALV"; }

    TestFolder m_home;
    FixedClock m_clock{storeTime};
    DataFolder m_folder{m_home.path(), m_clock};
};

TEST_F(SaveQueueTest, WhatWasHandedOverIsOnTheDiskAfterTheWait)
{
    SaveQueue queue(m_folder);
    queue.save(notes(3, "x"), notesName);
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), notes(3, "x"));
    queue.save(Table(), notesName);
    queue.waitUntilDone();
    EXPECT_FALSE(fs::exists(folderPath() / notesName));
}

TEST_F(SaveQueueTest, WaitingWithNothingHandedOverReturns)
{
    SaveQueue queue(m_folder);
    queue.waitUntilDone();
}

TEST_F(SaveQueueTest, EndingTheQueueWritesWhatWaits)
{
    {
        SaveQueue queue(m_folder);
        queue.save(notes(3, "note"), notesName);
        queue.save(notes(4, "event"), eventsName);
    }
    EXPECT_EQ(m_folder.loadTable(notesName), notes(3, "note"));
    EXPECT_EQ(m_folder.loadTable(eventsName), notes(4, "event"));
}

TEST_F(SaveQueueTest, NoTableRemovesTheFile)
{
    m_folder.ensure();
    put(folderPath() / notesName, "unreadable");
    {
        SaveQueue queue(m_folder);
        queue.save(m_folder.loadTable(notesName), notesName);
    }
    EXPECT_FALSE(fs::exists(folderPath() / notesName));
}

TEST_F(SaveQueueTest, ABurstEndsWithTheLast)
{
    SaveQueue queue(m_folder);
    Table table = notes(20, "x");
    for (int i = 0; i < 10000; ++i) {
        table[i % 20] = makeNoteRecord(dateFromUnixSeconds(i), std::to_string(i)); // the live table goes on changing
        queue.save(table, notesName);
    }
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), table);
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{notesName});
}

TEST_F(SaveQueueTest, TheTableMayChangeWhileAndAfterItsSnapshotIsWritten)
{
    SaveQueue queue(m_folder);
    Table table = notes(20, "x");
    for (int i = 0; i < 300; ++i) {
        queue.save(table, notesName);
        std::this_thread::sleep_for(std::chrono::microseconds(i * 10)); // the worker is done with it or not
        table[i % 20] = makeNoteRecord(dateFromUnixSeconds(i), std::to_string(i));
    }
    queue.save(table, notesName);
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), table);
}

TEST_F(SaveQueueTest, AFailedSaveIsToldToTheLogAndDoesNotStopTheNext)
{
    static QString said;
    said.clear();
    put(folderPath(), "a file where the folder should be");
    SaveQueue queue(m_folder);
    const QtMessageHandler old =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) { said += message; });
    queue.save(notes(1, "x"), notesName);
    queue.waitUntilDone();
    qInstallMessageHandler(old);
    EXPECT_TRUE(said.contains(QString::fromStdString(notesName))) << said.toStdString();

    fs::remove(folderPath());
    queue.save(notes(2, "x"), notesName);
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), notes(2, "x"));
}

/// A queue whose folder cannot be made, because a file is in its place, until that is removed.
class FailedSave : public SaveQueueTest {
protected:
    FailedSave() { put(folderPath(), "a file where the folder should be"); }

    void saveInVain(int count)
    {
        queue.save(notes(count, "x"), notesName);
        queue.waitUntilDone();
        EXPECT_EQ(queue.unsaved(notesName), notes(count, "x"));
    }

    SaveQueue queue{m_folder};
};

TEST_F(FailedSave, IsTriedAgainWhenItIsAskedFor)
{
    saveInVain(2);
    queue.retry();
    queue.waitUntilDone();
    EXPECT_EQ(queue.unsaved(notesName), notes(2, "x")) << "it failed again and is still kept";
    fs::remove(folderPath());
    queue.retry();
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), notes(2, "x"));
    EXPECT_EQ(queue.unsaved(notesName), std::nullopt);
}

TEST_F(FailedSave, IsTriedAgainWithTheNextSaveOfAnotherFile)
{
    saveInVain(2);
    fs::remove(folderPath());
    queue.save(notes(1, "event"), eventsName);
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), notes(2, "x"));
    EXPECT_EQ(m_folder.loadTable(eventsName), notes(1, "event"));
}

TEST_F(FailedSave, IsNotTriedByItself)
{
    saveInVain(2);
    fs::remove(folderPath());
    queue.waitUntilDone();
    EXPECT_FALSE(fs::exists(folderPath()));
}

TEST_F(FailedSave, NeverWritesOverANewerOne)
{
    saveInVain(2);
    fs::remove(folderPath());
    queue.save(notes(3, "newer"), notesName);
    queue.waitUntilDone();
    queue.retry();
    queue.save(notes(1, "event"), eventsName);
    queue.waitUntilDone();
    EXPECT_EQ(m_folder.loadTable(notesName), notes(3, "newer"));
}

TEST_F(FailedSave, OfARemovalIsTriedAgainToo)
{
    queue.save(Table(), notesName); // there is no such file: done
    queue.waitUntilDone();
    EXPECT_EQ(queue.unsaved(notesName), std::nullopt);
    fs::remove(folderPath());
    queue.save(notes(1, "x"), notesName);
    queue.waitUntilDone();
    put(folderPath() / "Recovered", "a file where the copies should go");
    queue.save(std::nullopt, notesName);
    queue.waitUntilDone();
    EXPECT_EQ(queue.unsaved(notesName), Table());
    fs::remove(folderPath() / "Recovered");
    queue.retry();
    queue.waitUntilDone();
    EXPECT_FALSE(fs::exists(folderPath() / notesName));
}

TEST_F(SaveQueueTest, EveryAttemptIsReportedWithItsTableAndError)
{
    std::vector<SaveResult> results;
    put(folderPath(), "a file where the folder should be");
    {
        SaveQueue queue(m_folder, [&results](const SaveResult& result) { results.push_back(result); });
        queue.save(notes(2, "x"), notesName);
        queue.waitUntilDone();
        fs::remove(folderPath());
        queue.save(notes(1, "event"), eventsName);
    }
    ASSERT_EQ(results.size(), 3U);
    EXPECT_EQ(results[0].name, notesName);
    EXPECT_EQ(results[0].error, std::errc::not_a_directory);
    EXPECT_EQ(results[0].table, notes(2, "x"));
    EXPECT_EQ(results[1].name, notesName);
    EXPECT_FALSE(results[1].error);
    EXPECT_EQ(results[2].name, eventsName);
    EXPECT_FALSE(results[2].error);
}

/// Holds up whoever asks for the time first, until it is let go.
class HoldingClock : public Clock {
public:
    Date now() const override
    {
        m_asked.count_down();
        m_released.wait();
        return dateFromUnixSeconds(0);
    }
    void waitUntilAsked() { m_asked.wait(); }
    void release() { m_released.count_down(); }

private:
    mutable std::latch m_asked{1};
    std::latch m_released{1};
};

TEST(SaveQueue, WhatIsBeingWrittenAndWhatWaitsIsNotSavedYet)
{
    const TestFolder home;
    HoldingClock clock;
    DataFolder folder(home.path(), clock);
    SaveQueue queue(folder);
    queue.save(notes(1, "first"), notesName);
    queue.waitUntilDone();
    EXPECT_EQ(queue.unsaved(notesName), std::nullopt);
    queue.save(notes(1, "second"), notesName, Replacing::Nothing);
    clock.waitUntilAsked();
    EXPECT_EQ(queue.unsaved(notesName), notes(1, "second"));
    EXPECT_EQ(queue.unsaved(eventsName), std::nullopt);
    queue.save(notes(1, "third"), notesName);
    EXPECT_EQ(queue.unsaved(notesName), notes(1, "third"));
    clock.release();
    queue.waitUntilDone();
    EXPECT_EQ(queue.unsaved(notesName), std::nullopt);
}

TEST(SaveQueue, AnOlderOneThatFailsWhileANewerWaitsIsNotTriedAgainButWhatItWasToKeepIsKept)
{
    const TestFolder home;
    HoldingClock clock;
    DataFolder folder(home.path(), clock);
    SaveQueue queue(folder);
    queue.save(notes(1, "first"), notesName);
    queue.waitUntilDone();
    const fs::path recovered = home.path() / "TALV" / "Recovered";
    put(recovered, "a file where the copies should go");
    queue.save(notes(1, "imported"), notesName, Replacing::Nothing);
    clock.waitUntilAsked();
    queue.save(notes(1, "newest"), notesName);
    clock.release();
    queue.waitUntilDone();
    EXPECT_EQ(queue.unsaved(notesName), notes(1, "newest")) << "nothing may be replaced that cannot be kept";
    fs::remove(recovered);
    queue.retry();
    queue.waitUntilDone();
    EXPECT_EQ(folder.loadTable(notesName), notes(1, "newest"));
    EXPECT_EQ(namesIn(recovered).size(), 1U);
}

TEST(SaveQueue, WhileOneIsWrittenTheNewestWaitingWinsAndKeepsWhatTheOlderOneWouldHaveKept)
{
    const TestFolder home;
    HoldingClock clock;
    DataFolder folder(home.path(), clock);
    const fs::path recovered = home.path() / "TALV" / "Recovered";
    SaveQueue queue(folder);
    queue.save(notes(1, "first"), notesName);
    queue.waitUntilDone();

    queue.save(notes(1, "second"), notesName, Replacing::Nothing);
    clock.waitUntilAsked(); // "second" is being written: it asks when the copy of "first" is made
    for (int i = 0; i < 20; ++i) {
        queue.save(notes(1, "imported"), notesName, Replacing::Nothing);
    }
    queue.save(notes(1, "newest"), notesName);
    clock.release();
    queue.waitUntilDone();

    EXPECT_EQ(folder.loadTable(notesName), notes(1, "newest"));
    std::vector<std::string> kept;
    for (const std::string& name : namesIn(recovered)) {
        fs::rename(recovered / name, home.path() / "TALV" / "copy");
        kept.emplace_back(*textOf(folder.loadTable("copy")->front(), NoteDataKey));
    }
    EXPECT_EQ(kept, (std::vector<std::string>{"first", "second"}));
}

} // namespace
