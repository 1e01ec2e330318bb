// SPDX-License-Identifier: MIT
#include "host/linux/InstalledBundle.h"
#include "host/linux/LinuxProcessInfo.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(InstalledBundle, FindsTheFolderOfALanguageInTheInstallPrefix)
{
    const std::filesystem::path prefix =
        std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()).parent_path();
    const std::filesystem::path folder = prefix / "share" / "velumora" / "qaa.lproj"; // a code for private use
    const InstalledBundle bundle;
    EXPECT_EQ(bundle.localizationFolder(QStringLiteral("qaa")), std::nullopt);
    std::filesystem::create_directories(folder);
    EXPECT_EQ(bundle.localizationFolder(QStringLiteral("qaa")), folder);
    for (std::filesystem::path made = folder; made != prefix; made = made.parent_path()) {
        std::error_code notEmpty;
        std::filesystem::remove(made, notEmpty);
    }
}

TEST(LinuxProcessInfo, StandsForARelease)
{
    const ProcessInfo::SystemVersion version = LinuxProcessInfo().operatingSystemVersion();
    EXPECT_EQ(version.major, 10);
    EXPECT_EQ(version.minor, 15);
}

} // namespace
