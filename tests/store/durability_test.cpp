// SPDX-License-Identifier: MIT
// What a save asks of the system, in order: this program's own calls of that name stand before the system's.
#include "reminders/ReminderList.h"
#include "store/DataFolder.h"
#include "store/DraftFile.h"
#include "store/Files.h"
#include "store/Recovered.h"
#include "store/store_fixture.h"

#include <array>
#include <functional>
#include <mutex>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// The calls so far: "stamp <path>", "sync <path> <size>", "sync <folder>", "rename <to>", "unlink <path>".
class Trace {
public:
    void add(std::string call)
    {
        const std::lock_guard lock(m_mutex);
        m_calls.push_back(std::move(call));
    }
    std::vector<std::string> take()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_calls, {});
    }

private:
    std::mutex m_mutex;
    std::vector<std::string> m_calls;
};

Trace& trace()
{
    static Trace calls;
    return calls;
}

/// The name of a file, with "*" for the part of a temporary one that nobody can know.
std::string nameOf(const fs::path& file)
{
    std::string name = file.filename();
    if (const std::size_t mark = name.find(".tmp-"); mark != std::string::npos) {
        name = name.substr(0, mark) + ".tmp-*";
    }
    return name;
}

std::string nameOf(int descriptor)
{
    return nameOf(fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor)));
}

/// What somebody else does before this program's next lock; done once.
std::function<void()>& beforeNextLock()
{
    static std::function<void()> deed;
    return deed;
}

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's headers have reserved names
extern "C" int fsync(int descriptor)
{
    struct stat status {};
    fstat(descriptor, &status);
    trace().add("sync " + nameOf(descriptor) +
                (S_ISREG(status.st_mode) ? " " + std::to_string(status.st_size) : std::string()));
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

extern "C" int setxattr(const char* path, const char* name, const void* value, std::size_t size, int flags) noexcept
{
    trace().add("stamp " + nameOf(fs::path(path)));
    return static_cast<int>(::syscall(SYS_setxattr, path, name, value, size, flags));
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    trace().add("rename to " + fs::path(to).filename().native());
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

extern "C" int unlink(const char* path) noexcept
{
    trace().add("unlink " + fs::path(path).filename().native());
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

extern "C" int flock(int descriptor, int operation) noexcept
{
    if (const std::function<void()> deed = std::exchange(beforeNextLock(), {})) {
        deed();
    }
    return static_cast<int>(::syscall(SYS_flock, descriptor, operation));
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace {

using Calls = std::vector<std::string>;

class DurabilityTest : public testing::Test {
protected:
    fs::path notesFile() const { return m_home.path() / "TALV" / notesName; }
    std::error_code save(const Table& table)
    {
        trace().take();
        return m_folder.saveTable(table, notesName, Replacing::OwnFile);
    }

    TestFolder m_home;
    FixedClock m_clock{storeTime};
    DataFolder m_folder{m_home.path(), m_clock};
};

std::string sizeOf(const fs::path& file)
{
    return std::to_string(fs::file_size(file));
}

TEST_F(DurabilityTest, ASaveSyncsTheWholeFileThenTakesItsPlaceThenSyncsTheFolder)
{
    ASSERT_FALSE(save(notes(5000, "a text that fills more than one piece")));
    EXPECT_EQ(trace().take(),
              (Calls{"sync " + m_home.path().filename().native(), // where the folder "TALV" is new
                     "stamp .TALV VeluMora.tmp-*", "sync .TALV VeluMora.tmp-* " + sizeOf(notesFile()),
                     "rename to TALV VeluMora", "sync TALV"}));
}

TEST_F(DurabilityTest, ALinkedFileIsSyncedWhereItIs)
{
    const fs::path elsewhere = m_home.path() / "elsewhere";
    fs::create_directories(elsewhere);
    m_folder.ensure();
    fs::create_symlink(elsewhere / "mine", notesFile());
    ASSERT_FALSE(save(notes(1, "x")));
    EXPECT_EQ(trace().take(), (Calls{"stamp .mine.tmp-*", "sync .mine.tmp-* " + sizeOf(elsewhere / "mine"),
                                     "rename to mine", "sync elsewhere"}));
}

TEST_F(DurabilityTest, ARemovalHasTheCopyOnTheDiskBeforeTheFileGoesAndThenTheFolder)
{
    ASSERT_FALSE(save(notes(1, "x")));
    const std::string size = sizeOf(notesFile());
    ASSERT_FALSE(save({}));
    const std::string copy = "TALV VeluMora 2026-11-21 05.32.10.123";
    EXPECT_EQ(trace().take(), (Calls{"sync TALV", // where the folder of the copies is new
                                     "sync ." + copy + ".tmp-* " + size, "rename to " + copy, "sync Recovered",
                                     "sync Recovered", "unlink TALV VeluMora", "sync TALV"}));
}

TEST_F(DurabilityTest, ADraftIsSyncedTooAndItsRemoval)
{
    const fs::path folder = m_home.path() / "velumora";
    DraftFile file(folder);
    trace().take();
    file.write([] { return Draft{{DraftChange::Kind::Note, std::nullopt, DatedText{Date(), "typed"}}}; });
    file.waitUntilDone();
    EXPECT_EQ(trace().take(),
              (Calls{"sync " + m_home.path().filename().native(), // where its folder is new
                     "sync .Draft.tmp-* " + sizeOf(folder / "Draft"), "rename to Draft", "sync velumora"}));
    file.write([] { return Draft(); });
    file.waitUntilDone();
    EXPECT_EQ(trace().take(), (Calls{"unlink Draft", "sync velumora"}));
}

TEST(ReminderListDurability, WhatIsNoListIsAsideForGoodBeforeAnotherTakesItsPlace)
{
    const TestFolder home;
    put(home.path() / "Reminders", "no list");
    ReminderList list(home.path() / "Reminders");
    trace().take();
    EXPECT_FALSE(list.load());
    EXPECT_EQ(trace().take(), (Calls{"rename to Reminders.unreadable", "sync " + home.path().filename().native()}));
}

TEST(ReplacedFile, IsOnTheDiskBeforeItTakesItsPlace)
{
    const TestFolder home;
    trace().take();
    EXPECT_FALSE(replaceFile(home.path() / "Window", "0 0 800 600 normal\n"));
    EXPECT_EQ(trace().take(),
              (Calls{"sync .Window.tmp-* 19", "rename to Window", "sync " + home.path().filename().native()}));
    EXPECT_EQ(bytesOf(home.path() / "Window"), "0 0 800 600 normal\n");
}

TEST(TemporaryFileTest, WhatIsWrittenAfterASyncIsSyncedToo)
{
    const TestFolder home;
    TemporaryFile file(home.path() / "target");
    EXPECT_FALSE(file.write("one "));
    EXPECT_FALSE(file.sync());
    EXPECT_FALSE(file.write("two"));
    trace().take();
    EXPECT_FALSE(file.replaceTarget());
    EXPECT_EQ(trace().take(),
              (Calls{"sync .target.tmp-* 7", "rename to target", "sync " + home.path().filename().native()}));
}

/// Between the calls that make it and lock it, it looks like one that a killed program left.
TEST(TemporaryFileTest, OneThatAnotherProgramTookForAStaleOneIsMadeAnew)
{
    const TestFolder home;
    beforeNextLock() = [&home] { removeStaleTemporaries(home.path(), "target"); };
    TemporaryFile file(home.path() / "target");
    EXPECT_FALSE(beforeNextLock());
    EXPECT_FALSE(file.write("whole"));
    EXPECT_FALSE(file.replaceTarget());
    EXPECT_EQ(bytesOf(home.path() / "target"), "whole");
}

} // namespace
