// SPDX-License-Identifier: MIT
#include "host/linux/TemporaryFolder.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <fstream>

namespace {

using std::filesystem::path;
using std::filesystem::perms;

class TemporaryFolderTest : public ::testing::Test {
protected:
    TemporaryFolderTest()
    {
        std::filesystem::create_directory(runtime);
        std::filesystem::create_directory(cache);
    }

    QTemporaryDir home;
    const path runtime = path(home.path().toStdString()) / "runtime";
    const path cache = path(home.path().toStdString()) / "cache";
};

TEST_F(TemporaryFolderTest, LiesInTheRuntimeDirectoryAndIsTheUsersAlone)
{
    EXPECT_EQ(privateTemporaryFolder(runtime, cache), runtime / "velumora");
    EXPECT_EQ(std::filesystem::status(runtime / "velumora").permissions(), perms::owner_all);
    EXPECT_EQ(privateTemporaryFolder(runtime, cache), runtime / "velumora") << "there already";
}

TEST_F(TemporaryFolderTest, IsClosedToOthersWhenItWasOpen)
{
    std::filesystem::create_directory(runtime / "velumora");
    std::filesystem::permissions(runtime / "velumora", perms::all);
    EXPECT_EQ(privateTemporaryFolder(runtime, cache), runtime / "velumora");
    EXPECT_EQ(std::filesystem::status(runtime / "velumora").permissions(), perms::owner_all);
}

TEST_F(TemporaryFolderTest, LiesInTheCacheWhereThereIsNoRuntimeDirectory)
{
    for (const path& none : {path(), path("relative"), runtime / "missing"}) {
        EXPECT_EQ(privateTemporaryFolder(none, cache), cache / "velumora") << none;
    }
}

TEST_F(TemporaryFolderTest, AFileOrALinkInThePlaceIsNotUsed)
{
    std::ofstream(runtime / "velumora") << "a file";
    std::filesystem::create_directory_symlink(runtime, cache / "velumora");
    EXPECT_EQ(privateTemporaryFolder(runtime, cache), std::nullopt);
}

} // namespace
