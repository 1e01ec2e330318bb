// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"
#include "store/Files.h"
#include "store/store_fixture.h"
#include "support/OrdinaryUser.h"

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

TEST(FileStatus, OnlyWhatTheSystemCallsAbsentIsAbsent)
{
    const TestFolder home;
    put(home.path() / "file", "12345");
    fs::create_symlink("file", home.path() / "link");
    fs::create_symlink("nowhere", home.path() / "dangling");
    fs::create_symlink("circle", home.path() / "circle");

    EXPECT_TRUE(FileStatus::of(home.path() / "missing").isAbsent());
    EXPECT_TRUE(FileStatus::of(home.path() / "file" / "below").isAbsent());
    EXPECT_TRUE(FileStatus::ofTarget(home.path() / "dangling").isAbsent());
    EXPECT_TRUE(FileStatus::of(home.path() / "dangling").isLink());
    EXPECT_TRUE(FileStatus::of(home.path() / "link").isLink());
    EXPECT_TRUE(FileStatus::ofTarget(home.path() / "link").isRegular());
    EXPECT_EQ(FileStatus::ofTarget(home.path() / "link").size(), 5);
    EXPECT_TRUE(FileStatus::of(home.path()).isSomethingElse());

    const FileStatus circle = FileStatus::ofTarget(home.path() / "circle");
    EXPECT_EQ(circle.error(), std::errc::too_many_symbolic_link_levels);
    EXPECT_FALSE(circle.isAbsent() || circle.isRegular() || circle.isLink() || circle.isSomethingElse());
    EXPECT_EQ(FileStatus::of(home.path() / std::string(300, 'x')).error(), std::errc::filename_too_long);
}

TEST(ReadFile, TellsWhyItCannot)
{
    const TestFolder home;
    put(home.path() / "file", "12345");
    const auto reason = [&](const fs::path& file, std::size_t limit) {
        std::error_code error;
        EXPECT_FALSE(readFile(home.path() / file, limit, error));
        return error;
    };
    EXPECT_EQ(reason("missing", 5), std::errc::no_such_file_or_directory);
    EXPECT_EQ(reason("file/below", 5), std::errc::no_such_file_or_directory);
    EXPECT_EQ(reason("file", 4), std::errc::file_too_large);
    EXPECT_EQ(reason("", 5), std::errc::invalid_argument) << "a folder";
    std::error_code error;
    EXPECT_EQ(readFile(home.path() / "file", 5, error)->text(), "12345");
}

TEST(ReadFile, ReadsAFileThatIsLargerThanTheSystemSaidToItsEnd)
{
    const fs::path file = "/proc/version"; // said to be empty
    const std::string bytes = bytesOf(file);
    ASSERT_GT(bytes.size(), 1U);
    std::error_code error;
    const std::optional<FileContent> whole = readFile(file, bytes.size(), error);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->text(), bytes);
    for (std::size_t limit = 0; limit < bytes.size(); ++limit) {
        EXPECT_FALSE(readFile(file, limit, error)) << limit;
        EXPECT_EQ(error, std::errc::file_too_large) << limit;
    }
}

TEST(MakePrivateFolder, MakesTheMissingOnesForTheUserAloneAndLeavesTheOthers)
{
    const TestFolder home;
    fs::permissions(home.path(), fs::perms(0755));
    EXPECT_FALSE(makePrivateFolder(home.path() / "a" / "b"));
    EXPECT_EQ(fs::status(home.path() / "a").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(home.path() / "a" / "b").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(home.path()).permissions(), fs::perms(0755));
    EXPECT_FALSE(makePrivateFolder(home.path() / "a" / "b"));

    put(home.path() / "file", "");
    EXPECT_EQ(makePrivateFolder(home.path() / "file" / "c"), std::errc::not_a_directory);
    EXPECT_EQ(makePrivateFolder({}), std::errc::no_such_file_or_directory) << "nothing is above it";
}

TEST(SyncFolder, WhereTheFoldersModeDoesNotLetOneWaitThereIsNoError)
{
    const TestFolder home;
    OrdinaryUser::own(home.path());
    fs::permissions(home.path(), fs::perms(0300));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(syncFolder(home.path()));
        EXPECT_FALSE(makeFolder(home.path() / "new"));
    }
    fs::permissions(home.path(), fs::perms(0700));
    EXPECT_TRUE(fs::is_directory(home.path() / "new"));
    EXPECT_TRUE(syncFolder(home.path() / "missing"));
}

/// A folder that the user may list but not search: whether a file is in it cannot be told.
TEST(DataFolderOfAFolderThatCannotBeSearched, IsNotTakenForAnEmptyOne)
{
    const TestFolder home;
    const FixedClock clock(storeTime);
    DataFolder folder(home.path(), clock);
    ASSERT_FALSE(folder.saveTable(notes(3, "kept"), notesName, Replacing::OwnFile));
    const std::string bytes = bytesOf(*folder.fileUrl(notesName));
    OrdinaryUser::own(home.path());
    OrdinaryUser::own(*folder.url());
    OrdinaryUser::own(*folder.fileUrl(notesName));
    fs::permissions(*folder.url(), fs::perms(0600));
    {
        const OrdinaryUser user;
        DataFolder next(home.path(), clock);
        EXPECT_EQ(next.loadTable(notesName), std::nullopt);
        EXPECT_TRUE(next.saveTable(notes(1, "new"), notesName, Replacing::OwnFile));
        EXPECT_TRUE(next.saveTable({}, notesName, Replacing::OwnFile));
    }
    fs::permissions(*folder.url(), fs::perms(0700));
    EXPECT_EQ(bytesOf(*folder.fileUrl(notesName)), bytes);
    EXPECT_EQ(namesIn(*folder.url()), std::vector<std::string>{notesName});
}

} // namespace
