// SPDX-License-Identifier: MIT
#include "store/DataFolder.h"
#include "store/FileAttributes.h"
#include "store/store_fixture.h"
#include "support/AccessList.h"
#include "support/OrdinaryUser.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

namespace fs = std::filesystem;

constexpr gid_t sharedGroup = 12345;

struct stat statusOf(const fs::path& file)
{
    struct stat status {};
    EXPECT_EQ(::stat(file.c_str(), &status), 0);
    return status;
}

class FileAttributesTest : public testing::Test {
protected:
    FileAttributesTest() { EXPECT_FALSE(save(1)); }

    std::error_code save(int count) { return m_folder.saveTable(notes(count, "x"), notesName, Replacing::OwnFile); }

    /// A set-up of a later save's file gives another number of notes.
    void expectSavedAnew(int count)
    {
        EXPECT_FALSE(save(count));
        EXPECT_EQ(m_folder.loadTable(notesName), notes(count, "x"));
    }

    TestFolder m_home;
    FixedClock m_clock{storeTime};
    DataFolder m_folder{m_home.path(), m_clock};
    const fs::path m_file = *m_folder.fileUrl(notesName);
};

TEST_F(FileAttributesTest, ANewFileIsForTheUserAloneWhateverTheMask)
{
    for (const mode_t mask : {0U, 022U, 077U}) {
        fs::remove(m_file);
        const mode_t former = ::umask(mask);
        EXPECT_FALSE(save(2));
        ::umask(former);
        EXPECT_EQ(statusOf(m_file).st_mode & 07777U, 0600U) << mask;
    }
}

TEST_F(FileAttributesTest, TheModeOfAFileSurvives)
{
    for (const mode_t mode : {0664U, 0644U, 0640U, 0600U, 0400U}) {
        ASSERT_EQ(::chmod(m_file.c_str(), mode), 0);
        expectSavedAnew(2);
        EXPECT_EQ(statusOf(m_file).st_mode & 07777U, mode);
    }
}

TEST_F(FileAttributesTest, AFileOfASharedGroupStaysItsGroups)
{
    if (::chown(m_file.c_str(), static_cast<uid_t>(-1), sharedGroup) != 0) {
        GTEST_SKIP() << "this user has no other group to give a file to";
    }
    ASSERT_EQ(::chmod(m_file.c_str(), 0664), 0);
    expectSavedAnew(2);
    EXPECT_EQ(statusOf(m_file).st_gid, sharedGroup);
    EXPECT_EQ(statusOf(m_file).st_mode & 07777U, 0664U);
}

TEST_F(FileAttributesTest, WhereTheGroupCannotBeKeptNobodyElseIsLetIn)
{
    if (::chown(m_file.c_str(), static_cast<uid_t>(-1), sharedGroup) != 0) {
        GTEST_SKIP() << "this user has no other group to give a file to";
    }
    OrdinaryUser::own(m_home.path());
    OrdinaryUser::own(*m_folder.url());
    OrdinaryUser::own(m_file);
    ASSERT_EQ(::chown(m_file.c_str(), static_cast<uid_t>(-1), sharedGroup), 0);
    ASSERT_EQ(::chmod(m_file.c_str(), 0664), 0);
    {
        const OrdinaryUser user;
        expectSavedAnew(2);
    }
    EXPECT_NE(statusOf(m_file).st_gid, sharedGroup);
    EXPECT_EQ(statusOf(m_file).st_mode & 07777U, 0600U);
}

TEST_F(FileAttributesTest, TheAccessListSurvivesAndNoneIsMadeUp)
{
    const std::string list = accessListFor(12346);
    if (::setxattr(m_file.c_str(), accessList, list.data(), list.size(), 0) != 0) {
        GTEST_SKIP() << "the file system under " << m_home.path() << " has no access lists";
    }
    const mode_t mode = statusOf(m_file).st_mode;
    expectSavedAnew(2);
    EXPECT_EQ(attribute(m_file, accessList), list);
    EXPECT_EQ(statusOf(m_file).st_mode, mode);

    ASSERT_EQ(::removexattr(m_file.c_str(), accessList), 0);
    ASSERT_EQ(::setxattr(m_folder.url()->c_str(), "system.posix_acl_default", list.data(), list.size(), 0), 0);
    expectSavedAnew(3);
    EXPECT_EQ(attribute(m_file, accessList), "") << "the folder gives its files one, but this file had none";
}

TEST_F(FileAttributesTest, TheAttributesOfUsersSurvive)
{
    if (::setxattr(m_file.c_str(), "user.xdg.tags", "diary,old", 9, 0) != 0) {
        GTEST_SKIP() << "the file system under " << m_home.path() << " has no user attributes";
    }
    ASSERT_EQ(::setxattr(m_file.c_str(), "user.empty", "", 0, 0), 0);
    std::string info = attribute(m_file, "user.com.apple.FinderInfo");
    ASSERT_EQ(info.size(), 32U);
    info.replace(8, 5, "FLAGS");
    ASSERT_EQ(::setxattr(m_file.c_str(), "user.com.apple.FinderInfo", info.data(), info.size(), 0), 0);
    expectSavedAnew(2);
    EXPECT_EQ(attribute(m_file, "user.xdg.tags"), "diary,old");
    EXPECT_EQ(::getxattr(m_file.c_str(), "user.empty", nullptr, 0), 0);
    EXPECT_EQ(attribute(m_file, "user.com.apple.FinderInfo"), info);
}

TEST_F(FileAttributesTest, AFileBehindALinkKeepsIts)
{
    const fs::path elsewhere = m_home.path() / "elsewhere";
    fs::rename(m_file, elsewhere);
    fs::create_symlink(elsewhere, m_file);
    ASSERT_EQ(::chmod(elsewhere.c_str(), 0640), 0);
    expectSavedAnew(2);
    EXPECT_TRUE(fs::is_symlink(m_file));
    EXPECT_EQ(statusOf(elsewhere).st_mode & 07777U, 0640U);
}

} // namespace
