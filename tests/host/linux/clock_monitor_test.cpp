// SPDX-License-Identifier: MIT
#include "host/linux/KernelClockMonitor.h"
#include "support/DateGuards.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

class ClockMonitorTest : public ::testing::Test {
protected:
    ClockMonitorTest()
    {
        pointAt("/usr/share/zoneinfo/Europe/Berlin");
        qunsetenv("TZ"); // no zone of the user's own; the guard puts it back
    }

    void pointAt(const char* target) const
    {
        // As the system's tools do: a new link takes the old one's name.
        const std::filesystem::path fresh = link.string() + ".new";
        std::filesystem::create_symlink(target, fresh);
        std::filesystem::rename(fresh, link);
    }

    QTemporaryDir folder;
    const std::filesystem::path link = std::filesystem::path(folder.path().toStdString()) / "localtime";
    const TimeZoneGuard zone{""};
};

TEST_F(ClockMonitorTest, TellsANewZoneOnce)
{
    KernelClockMonitor monitor(QString::fromStdString(link.string()));
    QSignalSpy jumps(&monitor, &ClockMonitor::clockJumped);
    pointAt("/usr/share/zoneinfo/Asia/Tokyo");
    EXPECT_TRUE(jumps.wait(5000));
    EXPECT_FALSE(jumps.wait(100));
    EXPECT_EQ(jumps.count(), 1);
}

TEST_F(ClockMonitorTest, OtherFilesBesideTheLinkAndTheSameZoneAgainTellNothing)
{
    KernelClockMonitor monitor(QString::fromStdString(link.string()));
    QSignalSpy jumps(&monitor, &ClockMonitor::clockJumped);
    pointAt("/usr/share/zoneinfo/Europe/Berlin");
    std::filesystem::create_directory(link.parent_path() / "other");
    EXPECT_FALSE(jumps.wait(200));
}

TEST_F(ClockMonitorTest, AZoneOfTheUsersOwnStays)
{
    const TimeZoneGuard own("America/New_York");
    KernelClockMonitor monitor(QString::fromStdString(link.string()));
    QSignalSpy jumps(&monitor, &ClockMonitor::clockJumped);
    pointAt("/usr/share/zoneinfo/Asia/Tokyo");
    EXPECT_FALSE(jumps.wait(200));
    EXPECT_EQ(DateEnvironment::timeZone(), "America/New_York");
}

} // namespace
