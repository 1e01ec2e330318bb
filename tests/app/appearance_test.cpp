// SPDX-License-Identifier: MIT
#include "app/Appearance.h"
#include "support/AppFixture.h"

namespace {

class AppearanceTest : public AppFixture {};

TEST_F(AppearanceTest, IsDarkWhereTheStyleSaysSoAndTheReleaseHasIt)
{
    struct {
        int major;
        int minor;
        std::optional<QString> style;
        bool dark;
    } const rows[] = {
        {10, 15, QStringLiteral("Dark"), true},
        {10, 15, QStringLiteral("DarkAqua"), true},
        {10, 15, QStringLiteral("VeryDark"), true},
        {10, 15, QStringLiteral("dark"), false},
        {10, 15, QStringLiteral("Light"), false},
        {10, 15, QString(), false},
        {10, 15, std::nullopt, false},
        {10, 14, QStringLiteral("Dark"), true},
        {10, 13, QStringLiteral("Dark"), false},
        {10, 0, QStringLiteral("Dark"), false},
        {9, 15, QStringLiteral("Dark"), false},
        {0, 0, QStringLiteral("Dark"), false},
        {11, 0, QStringLiteral("Dark"), true},
        {11, 0, std::nullopt, false},
        // The minor number is read as a fraction.
        {10, 2, QStringLiteral("Dark"), true},
        {10, 9, QStringLiteral("Dark"), true},
        {10, 1, QStringLiteral("Dark"), false},
        {10, 140, QStringLiteral("Dark"), true},
        {10, 139, QStringLiteral("Dark"), false},
    };
    make();
    for (const auto& row : rows) {
        host.processInfo.version = {.major = row.major, .minor = row.minor};
        host.globalDefaults.interfaceStyle = row.style;
        EXPECT_EQ(app->isDarkMode(), row.dark)
            << row.major << '.' << row.minor << ' ' << row.style.value_or(QStringLiteral("absent")).toStdString();
    }
}

} // namespace
