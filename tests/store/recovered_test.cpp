// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"
#include "store/Recovered.h"
#include "store/store_fixture.h"

#include <chrono>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class RecoveredTest : public testing::Test {
protected:
    RecoveredTest() { fs::create_directory(m_home.path() / "TALV"); }

    fs::path notesFile() const { return m_home.path() / "TALV" / notesName; }
    fs::path recovered() const { return m_home.path() / "TALV" / "Recovered"; }
    void save(const std::optional<Table>& table, Replacing replacing = Replacing::OwnFile)
    {
        EXPECT_FALSE(m_folder.saveTable(table, notesName, replacing));
    }
    std::vector<std::string> keptBytes() const
    {
        std::vector<std::string> kept;
        for (const std::string& name : namesIn(recovered())) {
            kept.push_back(bytesOf(recovered() / name));
        }
        return kept;
    }

    TestFolder m_home;
    FixedClock m_clock{storeTime};
    DataFolder m_folder{m_home.path(), m_clock};
};

using Bytes = std::vector<std::string>;

TEST_F(RecoveredTest, NothingIsKeptWhileOnlyThisProgramWrites)
{
    save(notes(1, "first"));
    save(notes(2, "second"));
    m_folder.loadTable(notesName);
    save(notes(3, "third"));
    EXPECT_FALSE(fs::exists(recovered()));
}

TEST_F(RecoveredTest, ARemovedFileIsKeptForTheUserAloneUnderItsNameAndTime)
{
    save(notes(1, "last"));
    const std::string written = bytesOf(notesFile());
    save(Table());
    ASSERT_EQ(namesIn(recovered()), Bytes{"TALV VeluMora 2026-11-21 05.32.10.123"});
    EXPECT_EQ(keptBytes(), Bytes{written});
    EXPECT_EQ(fs::status(recovered()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(recovered() / namesIn(recovered()).front()).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(RecoveredTest, AFileReplacedByAnImportIsKept)
{
    save(notes(1, "mine"));
    const std::string written = bytesOf(notesFile());
    save(notes(1, "imported"), Replacing::Nothing);
    EXPECT_EQ(keptBytes(), Bytes{written});
}

TEST_F(RecoveredTest, AFileThatWasNeverReadIsKept)
{
    put(notesFile(), "somebody's");
    save(notes(1, "mine"));
    EXPECT_EQ(keptBytes(), Bytes{"somebody's"});
}

TEST_F(RecoveredTest, AFileThatCameAfterTheLoadIsKept)
{
    EXPECT_EQ(m_folder.loadTable(notesName), Table());
    put(notesFile(), "synchronised");
    save(notes(1, "mine"));
    EXPECT_EQ(keptBytes(), Bytes{"synchronised"});
}

TEST_F(RecoveredTest, AFileChangedByAnotherProgramIsKept)
{
    save(notes(1, "mine"));
    std::ofstream(notesFile(), std::ios::app) << "<!-- theirs -->";
    const std::string theirs = bytesOf(notesFile());
    save(notes(2, "mine again"));
    EXPECT_EQ(keptBytes(), Bytes{theirs});
}

TEST_F(RecoveredTest, AFileReplacedByAnotherProgramIsKeptThoughItsSizeAndTimeAreTheSame)
{
    save(notes(1, "mine"));
    const std::string written = bytesOf(notesFile());
    const fs::path other = m_home.path() / "other";
    put(other, std::string(written.size(), 'o'));
    fs::last_write_time(other, fs::last_write_time(notesFile()));
    fs::rename(other, notesFile());
    save(notes(2, "mine again"));
    EXPECT_EQ(keptBytes(), Bytes{std::string(written.size(), 'o')});
}

TEST_F(RecoveredTest, AFileThatCouldNotBeUnderstoodIsKeptWhateverIsSaved)
{
    put(notesFile(), "gibberish");
    ASSERT_EQ(m_folder.loadTable(notesName), std::nullopt);
    save(notes(1, "mine"));
    EXPECT_EQ(keptBytes(), Bytes{"gibberish"});
}

TEST_F(RecoveredTest, AnEmptyFileHoldsNothingToKeep)
{
    put(notesFile(), "");
    save(notes(1, "mine"));
    put(notesFile(), "");
    save(Table());
    EXPECT_FALSE(fs::exists(recovered()));
}

TEST_F(RecoveredTest, TheNewestFiveOfEachFileAreKept)
{
    put(m_home.path() / "events", "the events");
    for (int i = 1; i <= 3; ++i) {
        put(m_home.path() / "events", "events " + std::to_string(i));
        EXPECT_FALSE(Recovered::keep(recovered(), m_home.path() / "events", "TALV Events", m_clock.now()));
    }
    put(recovered() / "TALV VeluMora my own", "not a copy");
    for (int i = 1; i <= 8; ++i) {
        m_clock.set(m_clock.now() + 1s);
        put(notesFile(), "state " + std::to_string(i));
        save(Table());
    }
    EXPECT_EQ(
        namesIn(recovered()),
        (std::vector<std::string>{"TALV Events 2026-11-21 05.32.10.123", "TALV Events 2026-11-21 05.32.10.124",
                                  "TALV Events 2026-11-21 05.32.10.125", "TALV VeluMora 2026-11-21 05.32.14.123",
                                  "TALV VeluMora 2026-11-21 05.32.15.123", "TALV VeluMora 2026-11-21 05.32.16.123",
                                  "TALV VeluMora 2026-11-21 05.32.17.123", "TALV VeluMora 2026-11-21 05.32.18.123",
                                  "TALV VeluMora my own"}));
    EXPECT_EQ(keptBytes(), (Bytes{"events 1", "events 2", "events 3", "state 4", "state 5", "state 6", "state 7",
                                  "state 8", "not a copy"}));

    put(recovered() / "TALV VeluMora 2026-01-01 00.00.00.000", "one that could not be removed");
    put(notesFile(), "state 8");
    save(Table());
    EXPECT_EQ(keptBytes(), (Bytes{"events 1", "events 2", "events 3", "state 4", "state 5", "state 6", "state 7",
                                  "state 8", "not a copy"}))
        << "what is kept already pushes none out, but the surplus goes";
}

TEST_F(RecoveredTest, WhatAKilledProgramLeftOfACopyGoesWithTheNext)
{
    fs::create_directory(recovered());
    put(recovered() / ".TALV VeluMora 2026-11-21 05.32.10.122.tmp-abcdef", "ha");
    put(notesFile(), "whole");
    save(Table());
    EXPECT_EQ(namesIn(recovered()), Bytes{"TALV VeluMora 2026-11-21 05.32.10.123"});
}

TEST_F(RecoveredTest, NamesGoOnInOrderWhenTheClockIsSetBack)
{
    for (int i = 1; i <= 6; ++i) {
        m_clock.set(m_clock.now() - std::chrono::hours(24));
        put(notesFile(), "state " + std::to_string(i));
        save(Table());
    }
    EXPECT_EQ(keptBytes(), (Bytes{"state 2", "state 3", "state 4", "state 5", "state 6"}));
}

TEST_F(RecoveredTest, TheSameBytesAreKeptOnce)
{
    for (int i = 0; i < 7; ++i) {
        put(notesFile(), "one");
        save(Table());
    }
    EXPECT_EQ(keptBytes(), Bytes{"one"});
    put(notesFile(), "two");
    save(Table());
    put(notesFile(), "one");
    save(Table());
    EXPECT_EQ(keptBytes(), (Bytes{"one", "two", "one"}));
}

TEST_F(RecoveredTest, WhereNothingCanBeKeptNothingIsReplacedOrRemoved)
{
    put(recovered(), "a file where the folder should be");
    put(notesFile(), "the only copy");
    EXPECT_TRUE(m_folder.saveTable(Table(), notesName, Replacing::OwnFile));
    EXPECT_EQ(bytesOf(notesFile()), "the only copy");
    EXPECT_TRUE(m_folder.saveTable(notes(1, "x"), notesName, Replacing::OwnFile));
    EXPECT_EQ(bytesOf(notesFile()), "the only copy");
    EXPECT_EQ(namesIn(m_home.path() / "TALV"), (std::vector<std::string>{"Recovered", notesName}));
}

} // namespace
