// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"
#include "store/DraftFile.h"
#include "store/Files.h"
#include "store/store_fixture.h"
#include "support/FileSizeLimit.h"
#include "support/OrdinaryUser.h"

#include <future>
#include <memory>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

Draft draftOf(const std::string& typed)
{
    return {{DraftChange::Kind::Note, std::nullopt, DatedText{dateFromUnixSeconds(0), typed}}};
}

class DraftFileTest : public testing::Test {
protected:
    fs::path folder() const { return m_home.path() / "state" / "velumora"; }
    fs::path file() const { return folder() / "Draft"; }

    void writeInAnotherRun(const Draft& draft) const
    {
        DraftFile run(folder());
        run.write([draft] { return draft; });
    }
    Draft readInAnotherRun() const { return DraftFile(folder()).read(); }

    /// It read something that is no draft while the folder could not be changed.
    std::unique_ptr<DraftFile> runWithSomethingInTheWay() const
    {
        fs::create_directories(folder());
        put(file(), "garbage");
        for (const fs::path& path : {m_home.path(), folder().parent_path(), folder(), file()}) {
            OrdinaryUser::own(path);
        }
        auto run = std::make_unique<DraftFile>(folder());
        fs::permissions(folder(), fs::perms(0500));
        {
            const OrdinaryUser user;
            EXPECT_EQ(run->read(), Draft());
        }
        fs::permissions(folder(), fs::perms(0700));
        EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"Draft"});
        return run;
    }

    TestFolder m_home;
};

TEST_F(DraftFileTest, WhatOneRunWroteTheNextOneReads)
{
    writeInAnotherRun(draftOf("typed"));
    EXPECT_EQ(readInAnotherRun(), draftOf("typed"));
}

TEST_F(DraftFileTest, IsTheUsersAloneWhateverTheMask)
{
    const mode_t mask = ::umask(0);
    writeInAnotherRun(draftOf("private"));
    ::umask(mask);
    EXPECT_EQ(modeOf(file()), 0600U);
    EXPECT_EQ(modeOf(folder()), 0700U);
    EXPECT_EQ(modeOf(folder().parent_path()), 0700U);
}

TEST_F(DraftFileTest, AnEmptyDraftRemovesTheFileAndMakesNoFolder)
{
    writeInAnotherRun({});
    EXPECT_FALSE(fs::exists(folder()));
    writeInAnotherRun(draftOf("typed"));
    writeInAnotherRun({});
    EXPECT_TRUE(namesIn(folder()).empty());
}

TEST_F(DraftFileTest, WithoutAFolderNothingIsReadOrWritten)
{
    DraftFile none(std::nullopt);
    EXPECT_EQ(none.read(), Draft());
    none.write([] { return draftOf("typed"); });
    none.waitUntilDone();
}

TEST_F(DraftFileTest, IsMadeOffTheCallersThreadAndOfSeveralThatWaitTheNewestAlone)
{
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    std::promise<std::thread::id> maker;
    bool older = false;
    DraftFile run(folder());
    run.write([&maker, released] {
        maker.set_value(std::this_thread::get_id());
        released.wait();
        return draftOf("first");
    });
    EXPECT_NE(maker.get_future().get(), std::this_thread::get_id());
    run.write([&older] {
        older = true;
        return draftOf("older");
    });
    run.write([] { return draftOf("newest"); });
    release.set_value();
    run.waitUntilDone();
    EXPECT_FALSE(older);
    EXPECT_EQ(readInAnotherRun(), draftOf("newest"));
}

TEST_F(DraftFileTest, WhatIsNoDraftIsSetAsideAndNeverWrittenOver)
{
    const std::string whole = PropertyList::writeXml(Drafts::tableFromDraft(draftOf("typed")));
    const std::string newer =
        PropertyList::writeXml(Table{Value(Dictionary{{"DraftVersion", Value(Integer{.magnitude = 2})}})});
    fs::create_directories(folder());
    int number = 0;
    for (const std::string& bytes : {std::string(), std::string("garbage"), whole.substr(0, whole.size() / 2), newer}) {
        put(file(), bytes);
        EXPECT_EQ(readInAnotherRun(), Draft());
        EXPECT_FALSE(fs::exists(file()));
        EXPECT_EQ(bytesOf(folder() / ("Draft unread " + std::to_string(++number))), bytes);
    }
    EXPECT_EQ(namesIn(folder()).size(), 4U);
}

TEST_F(DraftFileTest, ALinkToWhatIsNotThereNowIsSetAsideToo)
{
    fs::create_directories(folder());
    fs::create_symlink("/nowhere/Draft", file());
    DraftFile run(folder());
    EXPECT_EQ(run.read(), Draft());
    run.write([] { return draftOf("typed"); });
    run.waitUntilDone();
    EXPECT_EQ(fs::read_symlink(folder() / "Draft unread 1"), "/nowhere/Draft");
    EXPECT_EQ(readInAnotherRun(), draftOf("typed"));
}

TEST_F(DraftFileTest, WhatCannotBeSetAsideAtTheReadingIsAtTheFirstWritingAndOnce)
{
    const std::unique_ptr<DraftFile> run = runWithSomethingInTheWay();
    for (const char* typed : {"first", "second", "third"}) {
        run->write([typed] { return draftOf(typed); });
        run->waitUntilDone();
    }
    EXPECT_EQ(namesIn(folder()), (std::vector<std::string>{"Draft", "Draft unread 1"}));
    EXPECT_EQ(bytesOf(folder() / "Draft unread 1"), "garbage");
    EXPECT_EQ(readInAnotherRun(), draftOf("third"));
}

TEST_F(DraftFileTest, WhatWasTakenAwayIsNotInTheWayAnyMore)
{
    const std::unique_ptr<DraftFile> run = runWithSomethingInTheWay();
    fs::remove(file());
    run->write([] { return draftOf("typed"); });
    run->waitUntilDone();
    EXPECT_EQ(readInAnotherRun(), draftOf("typed"));
}

/// It was given that name because it could not be read then.
TEST_F(DraftFileTest, OneThatLiesAsideAndCanBeReadIsReadOnceAndGoesWithTheNextThatIsWritten)
{
    Draft both = draftOf("aside");
    both.push_back(draftOf("in its place").front());
    fs::create_directories(folder());
    put(folder() / "Draft unread 1", "no draft at all");
    for (const char* other : {"Draft unread ", "Draft unread 4 or 5", "Draft unread -1"}) {
        put(folder() / other, PropertyList::writeXml(Drafts::tableFromDraft(draftOf("not named by this program"))));
    }
    put(folder() / "Draft unread 12", PropertyList::writeXml(Drafts::tableFromDraft(both)));
    put(file(), PropertyList::writeXml(Drafts::tableFromDraft(draftOf("in its place"))));
    DraftFile run(folder());
    const Draft read = run.read();
    EXPECT_EQ(read, (Draft{both.at(1), both.at(0)}));
    EXPECT_EQ(namesIn(folder()).size(), 6U) << "nothing goes before it is elsewhere";
    run.write([&read] { return read; });
    run.waitUntilDone();
    EXPECT_EQ(namesIn(folder()), (std::vector<std::string>{"Draft", "Draft unread ", "Draft unread -1",
                                                           "Draft unread 1", "Draft unread 4 or 5"}));
    EXPECT_EQ(readInAnotherRun(), read);
}

/// The disk of the home is full, or cannot be written to.
TEST_F(DraftFileTest, WhereItsFolderTakesNoneTheSpareOneDoes)
{
    const fs::path spare = m_home.path() / "run" / "velumora";
    const fs::path inTheWay = folder().parent_path();
    fs::create_directories(inTheWay.parent_path());
    put(inTheWay, "no folder");
    {
        DraftFile run(folder(), spare);
        EXPECT_EQ(run.read(), Draft());
        run.write([] { return draftOf("typed"); });
    }
    EXPECT_EQ(namesIn(spare), std::vector<std::string>{"Draft"});
    EXPECT_EQ(fs::status(spare).permissions(), fs::perms::owner_all);
    fs::remove(inTheWay);
    DraftFile run(folder(), spare);
    const Draft read = run.read();
    EXPECT_EQ(read, draftOf("typed"));
    run.write([&read] { return read; });
    run.waitUntilDone();
    EXPECT_EQ(namesIn(spare), std::vector<std::string>()) << "it is where it belongs";
    EXPECT_EQ(readInAnotherRun(), draftOf("typed"));
    put(spare / "Draft", bytesOf(file()));
    EXPECT_EQ(DraftFile(folder(), spare).read(), draftOf("typed")) << "once";
    run.write([] { return Draft(); });
    run.waitUntilDone();
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>());
    EXPECT_EQ(namesIn(spare), std::vector<std::string>());
}

TEST_F(DraftFileTest, AFailedWriteLeavesTheOlderDraftAndIsMadeUpForByTheNext)
{
    DraftFile run(folder());
    run.write([] { return draftOf("older"); });
    run.waitUntilDone();
    const std::string large(100'000, 'x');
    {
        const FileSizeLimit limit(8192);
        run.write([&large] { return draftOf(large); });
        run.waitUntilDone();
    }
    EXPECT_EQ(readInAnotherRun(), draftOf("older"));
    EXPECT_EQ(namesIn(folder()), std::vector<std::string>{"Draft"});
    run.write([&large] { return draftOf(large); });
    run.waitUntilDone();
    EXPECT_EQ(readInAnotherRun(), draftOf(large));
}

TEST_F(DraftFileTest, AnUnchangedDraftIsNotWrittenAgain)
{
    DraftFile run(folder());
    run.write([] { return draftOf("typed"); });
    run.waitUntilDone();
    fs::remove(file());
    run.write([] { return draftOf("typed"); });
    run.waitUntilDone();
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(DraftFileTest, ReadingRemovesWhatAKilledRunLeftOfItsWriting)
{
    fs::create_directories(folder());
    put(folder() / ".Draft.tmp-abcdef", "half");
    EXPECT_EQ(readInAnotherRun(), Draft());
    EXPECT_TRUE(namesIn(folder()).empty());
}

} // namespace
