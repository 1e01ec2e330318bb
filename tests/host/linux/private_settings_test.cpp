// SPDX-License-Identifier: MIT
#include "host/linux/SettingsUserDefaults.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

constexpr mode_t permissions = 0777;
const QString key = QStringLiteral("place");

class UmaskGuard {
public:
    explicit UmaskGuard(mode_t mask) : m_former(::umask(mask)) {}
    UmaskGuard(const UmaskGuard&) = delete;
    UmaskGuard& operator=(const UmaskGuard&) = delete;
    ~UmaskGuard() { ::umask(m_former); }

private:
    mode_t m_former;
};

/// The mode of what stands there or of what its link leads to; 0 when there is nothing.
mode_t modeOf(const fs::path& file)
{
    struct stat status {};
    return ::stat(file.c_str(), &status) == 0 ? status.st_mode & permissions : 0;
}

/// The settings of a home that does not exist yet, on a system that lets everybody see the user's files, or most of
/// them.
class PrivateSettingsTest : public ::testing::TestWithParam<mode_t> {
protected:
    PrivateSettingsTest()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QString::fromStdString(configuration()));
        QCoreApplication::setOrganizationName(QStringLiteral("velumora"));
        QCoreApplication::setApplicationName(QStringLiteral("velumora"));
    }
    ~PrivateSettingsTest() override
    {
        QCoreApplication::setOrganizationName({});
        QCoreApplication::setApplicationName({});
    }

    fs::path configuration() const { return home.path().toStdString() + "/config"; }
    fs::path file() const { return configuration() / "velumora" / "velumora.conf"; }

    /// A file that others can read.
    void putWideFile() const
    {
        fs::create_directories(file().parent_path());
        std::ofstream(file()) << "[General]\nplace=1\n";
        ASSERT_EQ(::chmod(file().c_str(), 0666), 0);
    }

    /// Changes the settings and has them written in each of the ways in which they are; after each the file is private.
    void expectPrivateAfterEachWriting() const
    {
        SettingsUserDefaults defaults;
        for (int turn = 0; turn < 3; ++turn) {
            defaults.setNumber(52.5 + turn, key);
            defaults.setInteger(turn, QStringLiteral("other"));
            defaults.synchronize();
            EXPECT_EQ(modeOf(file()), 0600U) << turn;
            defaults.setNumber(13.4 + turn, key);
            QCoreApplication::processEvents(); // they write by themselves
            EXPECT_EQ(modeOf(file()), 0600U) << turn;
            EXPECT_EQ(PrivateSettings().value(key).toDouble(), 13.4 + turn);
        }
        defaults.removeObjectForKey(key);
        defaults.synchronize();
        EXPECT_EQ(modeOf(file()), 0600U);
        {
            SettingsUserDefaults ending;
            ending.setNumber(1.5, key);
        }
        EXPECT_EQ(modeOf(file()), 0600U);
    }

    QTemporaryDir home;
    UmaskGuard mask{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Umask, PrivateSettingsTest, ::testing::Values(000, 022, 077));

TEST_P(PrivateSettingsTest, ANewFileAndItsFolderAreTheUsersAlone)
{
    expectPrivateAfterEachWriting();
    EXPECT_EQ(modeOf(file().parent_path()), 0700U);
    EXPECT_EQ(modeOf(configuration()), 0700U);
    EXPECT_EQ(::umask(GetParam()), GetParam()) << "other files are as the user wants them";
}

TEST_P(PrivateSettingsTest, AnExistingFileIsClosedAtTheStartAndStaysSo)
{
    putWideFile();
    {
        const SettingsUserDefaults defaults;
        EXPECT_EQ(modeOf(file()), 0600U);
        EXPECT_EQ(defaults.integerForKey(key), 1);
    }
    expectPrivateAfterEachWriting();
}

TEST_P(PrivateSettingsTest, AFileThatWasOpenedToOthersOrRemovedMeanwhileIsClosedAgain)
{
    putWideFile();
    SettingsUserDefaults defaults;
    const std::function<void()> writings[] = {[&] { defaults.synchronize(); },
                                              [] { QCoreApplication::processEvents(); }};
    for (const auto& write : writings) {
        ASSERT_EQ(::chmod(file().c_str(), 0644), 0);
        defaults.setNumber(52.5, key);
        write();
        EXPECT_EQ(modeOf(file()), 0600U);
        fs::remove_all(configuration());
        defaults.setNumber(13.4, key);
        write();
        EXPECT_EQ(modeOf(file()), 0600U);
    }
}

TEST_P(PrivateSettingsTest, ALinkStaysOneAndWhatItLeadsToIsPrivate)
{
    putWideFile();
    const fs::path kept = fs::path(home.path().toStdString()) / "kept.conf";
    fs::rename(file(), kept);
    fs::create_symlink(kept, file());
    expectPrivateAfterEachWriting();
    EXPECT_TRUE(fs::is_symlink(file()));
    EXPECT_EQ(modeOf(kept), 0600U);
}

TEST_P(PrivateSettingsTest, NoFileBesideItIsOpenToOthersForAMoment)
{
    std::atomic<bool> isDone = false;
    std::atomic<bool> wasOpen = false;
    std::atomic<int> seen = 0;
    SettingsUserDefaults defaults;
    defaults.setNumber(1, key);
    defaults.synchronize();
    std::thread onlooker([&, folder = file().parent_path()] {
        while (!isDone) {
            std::error_code gone;
            for (fs::directory_iterator entry(folder, gone), end; !gone && entry != end; entry.increment(gone)) {
                wasOpen = wasOpen || (modeOf(entry->path()) & 077) != 0;
                ++seen;
            }
        }
    });
    for (int turn = 0; turn < 60; ++turn) {
        defaults.setNumber(turn, key);
        defaults.synchronize();
        if (turn % 2 == 0) {
            fs::remove(file()); // the next one is a new file
        }
    }
    isDone = true;
    onlooker.join();
    EXPECT_FALSE(wasOpen);
    EXPECT_GT(seen, 0);
}

} // namespace
