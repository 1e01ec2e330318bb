// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"
#include "store/store_fixture.h"
#include "support/FileSizeLimit.h"
#include "support/OrdinaryUser.h"

#include <cstdio>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class SaveFailureTest : public testing::Test {
protected:
    fs::path folderPath() const { return m_home.path() / "TALV"; }
    fs::path notesFile() const { return folderPath() / notesName; }
    std::error_code save(const std::optional<Table>& table)
    {
        return m_folder.saveTable(table, notesName, Replacing::OwnFile);
    }

    TestFolder m_home;
    FixedClock m_clock{storeTime};
    DataFolder m_folder{m_home.path(), m_clock};
};

bool canReach(const fs::path& folder)
{
    std::error_code error;
    return fs::is_directory(folder, error);
}

bool canMakeFileIn(const fs::path& folder)
{
    const fs::path probe = folder / "probe";
    const FileDescriptor file(::open(probe.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    ::unlink(probe.c_str());
    return file.isOpen();
}

TEST_F(SaveFailureTest, AWriteThatStopsInTheMiddleLeavesTheOldFileAndNothingElse)
{
    ASSERT_FALSE(save(notes(10, "old")));
    {
        const FileSizeLimit limit(8192);
        EXPECT_EQ(save(notes(10000, "new")), std::errc::file_too_large);
    }
    EXPECT_EQ(m_folder.loadTable(notesName), notes(10, "old"));
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{notesName});
}

TEST_F(SaveFailureTest, TheNextSaveAfterAFailedOneSucceeds)
{
    {
        const FileSizeLimit limit(8192);
        EXPECT_TRUE(save(notes(10000, "new")));
    }
    EXPECT_FALSE(save(notes(10000, "new")));
    EXPECT_EQ(m_folder.loadTable(notesName), notes(10000, "new"));
}

TEST_F(SaveFailureTest, FailingSavesDoNotPushKeptCopiesOut)
{
    m_folder.ensure();
    put(notesFile(), "somebody's");
    {
        const FileSizeLimit limit(8192);
        EXPECT_TRUE(save(notes(10000, "new")));
    }
    EXPECT_FALSE(fs::exists(folderPath() / "Recovered"));
    EXPECT_EQ(bytesOf(notesFile()), "somebody's");
}

TEST_F(SaveFailureTest, AReadOnlyFolderKeepsTheOldFileAndNothingElse)
{
    ASSERT_FALSE(save(notes(10, "old")));
    OrdinaryUser::own(m_home.path());
    OrdinaryUser::own(folderPath());
    fs::permissions(folderPath(), fs::perms::owner_read | fs::perms::owner_exec);
    {
        const OrdinaryUser user;
        if (!canReach(folderPath())) {
            GTEST_SKIP() << "an ordinary user cannot reach the build folder";
        }
        ASSERT_FALSE(canMakeFileIn(folderPath()));
        EXPECT_EQ(save(notes(10, "new")), std::errc::permission_denied);
        EXPECT_TRUE(save(Table()));
    }
    fs::permissions(folderPath(), fs::perms::owner_all);
    EXPECT_EQ(m_folder.loadTable(notesName), notes(10, "old"));
    EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{notesName});
}

TEST_F(SaveFailureTest, AFileThatMayNotBeReadIsNoTableAndKeptByItsSecondName)
{
    m_folder.ensure();
    put(notesFile(), "locked away");
    for (const fs::path& path : {m_home.path(), folderPath(), notesFile()}) {
        OrdinaryUser::own(path);
    }
    fs::permissions(notesFile(), fs::perms::none);
    {
        const OrdinaryUser user;
        if (!canReach(folderPath())) {
            GTEST_SKIP() << "an ordinary user cannot reach the build folder";
        }
        EXPECT_EQ(m_folder.loadTable(notesName), std::nullopt);
        EXPECT_FALSE(save(std::nullopt));
    }
    EXPECT_FALSE(fs::exists(notesFile()));
    const fs::path kept = folderPath() / "Recovered" / "TALV VeluMora 2026-11-21 05.32.10.123";
    fs::permissions(kept, fs::perms::owner_read);
    EXPECT_EQ(bytesOf(kept), "locked away");
}

/// Runs `body`, expectations and all, in a process of its own; what it returns, or 1 when an expectation failed.
template <typename Body> int inOwnProcess(const Body& body)
{
    (void)std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        const int result = body();
        (void)std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : result);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Mounts a disk of 256 kB at `folder`, for this process alone.
bool mountSmallDisk(const fs::path& folder)
{
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        put("/proc/self/setgroups", "deny");
        put("/proc/self/uid_map", "0 " + user + " 1");
        put("/proc/self/gid_map", "0 " + group + " 1");
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", folder.c_str(), "tmpfs", 0, "size=256k") == 0;
}

void fillDisk(const fs::path& folder)
{
    const FileDescriptor file(::open((folder / "filler").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    const std::string block(4096, 'f');
    while (::write(file.get(), block.data(), block.size()) > 0) {
    }
    EXPECT_EQ(errno, ENOSPC);
}

TEST_F(SaveFailureTest, AFullDiskKeepsTheOldFileWholeAndLosesNothing)
{
    constexpr int cannotMount = 77;
    const int result = inOwnProcess([this] {
        if (!mountSmallDisk(m_home.path())) {
            return cannotMount;
        }
        EXPECT_FALSE(save(notes(10, "old")));
        const std::string old = bytesOf(notesFile());
        EXPECT_EQ(save(notes(10000, "new")), std::errc::no_space_on_device);
        EXPECT_EQ(bytesOf(notesFile()), old);
        EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{notesName});

        fillDisk(m_home.path());
        EXPECT_EQ(save(notes(11, "new")), std::errc::no_space_on_device);
        EXPECT_EQ(bytesOf(notesFile()), old);
        EXPECT_EQ(namesIn(folderPath()), std::vector<std::string>{notesName});

        // Removing needs no room: the file itself moves over.
        EXPECT_FALSE(save(Table()));
        EXPECT_FALSE(fs::exists(notesFile()));
        EXPECT_EQ(bytesOf(folderPath() / "Recovered" / "TALV VeluMora 2026-11-21 05.32.10.123"), old);
        return 0;
    });
    if (result == cannotMount) {
        GTEST_SKIP() << "this machine lets no process mount a small disk";
    }
    EXPECT_EQ(result, 0);
}

} // namespace
