// SPDX-License-Identifier: MIT
#include "store/SaveQueue.h"
#include "store/store_fixture.h"

#include <QProcess>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

namespace {

constexpr int noteCount = 200;   // as the other program has
constexpr int patience = 60'000; // milliseconds

/// Starts the other program on `home` and waits for the line that it is at work.
void start(QProcess& process, const char* task, const std::filesystem::path& home)
{
    process.start(QStringLiteral(STORE_PROCESS), {QString::fromLatin1(task), QString::fromStdString(home.native())});
    ASSERT_TRUE(process.waitForReadyRead(patience)) << process.errorString().toStdString();
    process.readAllStandardOutput();
}

int temporariesIn(const std::filesystem::path& folder)
{
    return static_cast<int>(std::ranges::count_if(
        namesIn(folder), [](const std::string& name) { return name.find(".tmp-") != std::string::npos; }));
}

/// STORE_KILLS in the environment sets how often it is killed.
TEST(StoreProcess, AProgramKilledWhileSavingLeavesAWholeListAndNothingBehindAfterTheNextLoad)
{
    const char* wanted = std::getenv("STORE_KILLS");
    const int kills = wanted ? std::atoi(wanted) : 200;
    ASSERT_GT(kills, 0);
    const TestFolder home;
    const FixedClock clock(storeTime);
    DataFolder folder(home.path(), clock);
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> microseconds(0, 6000);
    int leftBehind = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess saver;
        start(saver, "save", home.path());
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        saver.kill();
        ASSERT_TRUE(saver.waitForFinished(patience));
        ASSERT_EQ(saver.exitStatus(), QProcess::CrashExit);

        leftBehind += temporariesIn(home.path() / "TALV");
        const std::optional<Table> found = folder.loadTable(notesName);
        ASSERT_TRUE(found);
        ASSERT_EQ(found->size(), noteCount);
        const std::string text(*textOf(found->front(), NoteDataKey));
        EXPECT_TRUE(text == "old" || text == "new") << text;
        for (const Value& note : *found) {
            ASSERT_EQ(*textOf(note, NoteDataKey), text);
        }
        ASSERT_EQ(temporariesIn(home.path() / "TALV"), 0);
    }
    RecordProperty("kills", kills);
    RecordProperty("killsDuringAWrite", leftBehind);
    EXPECT_GT(leftBehind, 0) << "no kill hit a write, so nothing was tried";
}

TEST(StoreProcess, AnotherProgramSeesAWholeFileAtEveryLookDuringABurst)
{
    const TestFolder home;
    const FixedClock clock(storeTime);
    DataFolder folder(home.path(), clock);
    SaveQueue queue(folder);
    queue.save(notes(noteCount, "start"), notesName);
    queue.waitUntilDone();

    QProcess onlooker;
    start(onlooker, "look", home.path());
    Table last;
    for (int i = 0; i < 10000; ++i) {
        last = notes(noteCount, std::to_string(i));
        queue.save(last, notesName);
    }
    queue.waitUntilDone();
    onlooker.closeWriteChannel();
    ASSERT_TRUE(onlooker.waitForFinished(patience));
    EXPECT_EQ(onlooker.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(onlooker.exitCode(), 0);
    EXPECT_GT(onlooker.readAllStandardOutput().trimmed().toInt(), 10);

    EXPECT_EQ(folder.loadTable(notesName), last);
    EXPECT_EQ(namesIn(home.path() / "TALV"), std::vector<std::string>{notesName});
}

} // namespace
