// SPDX-License-Identifier: MIT
#include "host/linux/SettingsUserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <limits>

namespace {

const QString weekStart = QStringLiteral("Sunday or Monday for start of week");
const QString startList = QStringLiteral("Show all velumora or just current month velumora");
const QString notesCleaned = QStringLiteral("Velumora Dictionary cleaned of old TALV unused data");

/// The program's settings in a folder of their own, which does not exist yet.
class SettingsTest : public ::testing::Test {
protected:
    SettingsTest()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configuration());
        QCoreApplication::setOrganizationName(QStringLiteral("velumora"));
        QCoreApplication::setApplicationName(QStringLiteral("velumora"));
    }
    ~SettingsTest() override
    {
        QCoreApplication::setOrganizationName({});
        QCoreApplication::setApplicationName({});
    }

    QString configuration() const { return home.path() + QStringLiteral("/config"); }

    QTemporaryDir home;
};

TEST_F(SettingsTest, AnAbsentKeyReadsAsItsRegisteredDefaultElseAsZero)
{
    SettingsUserDefaults defaults;
    EXPECT_EQ(defaults.integerForKey(weekStart), 0);
    defaults.registerDefaults({{weekStart, 1}});
    EXPECT_EQ(defaults.integerForKey(weekStart), 1);
    EXPECT_TRUE(defaults.boolForKey(weekStart));
    EXPECT_EQ(defaults.integerForKey(startList), 0);
    EXPECT_FALSE(defaults.boolForKey(startList));
}

TEST_F(SettingsTest, RegisteringWritesNothing)
{
    SettingsUserDefaults defaults;
    defaults.registerDefaults({{weekStart, 1}});
    defaults.synchronize();
    EXPECT_FALSE(QFile::exists(configuration()));
}

TEST_F(SettingsTest, WhatWasSetIsThereAfterARestartUnderItsLiteralKey)
{
    {
        SettingsUserDefaults defaults;
        defaults.registerDefaults({{weekStart, 1}});
        defaults.setInteger(0, weekStart);
        defaults.setInteger(5, notesCleaned);
        defaults.synchronize();
        EXPECT_EQ(defaults.integerForKey(weekStart), 0);
    }
    SettingsUserDefaults defaults;
    defaults.registerDefaults({{weekStart, 1}});
    EXPECT_EQ(defaults.integerForKey(weekStart), 0);
    EXPECT_EQ(defaults.integerForKey(notesCleaned), 5);
    const QSettings settings;
    EXPECT_EQ(settings.allKeys(), (QStringList{QStringLiteral("Sunday or Monday for start of week"),
                                               QStringLiteral("Velumora Dictionary cleaned of old TALV unused data")}));
}

TEST_F(SettingsTest, SynchronizingPutsItOnTheDiskAtOnce)
{
    SettingsUserDefaults defaults;
    defaults.setInteger(7, startList);
    defaults.synchronize();
    QFile file(QSettings().fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("=7\n"));
}

TEST_F(SettingsTest, AValueWrittenByHandMeansWhatItSays)
{
    struct {
        const char* written;
        int value;
    } const rows[] = {
        {"1", 1},
        {"1.0", 1},
        {"0", 0},
        {"0.0", 0},
        {"-0", 0},
        {"5", 5},
        {"-1", -1},
        {"0.5", 1},
        {"-0.5", -1},
        {"1e3", 1000},
        {" 1 ", 1},
        {"true", 1},
        {"True", 1},
        {"YES", 1},
        {"yes", 1},
        {"on", 1},
        {"false", 0},
        {"FALSE", 0},
        {"no", 0},
        {"Off", 0},
        {"\"true\"", 1},
        {"\"0.0\"", 0},
        {"1e300", std::numeric_limits<int>::max()},
        {"4294967296", std::numeric_limits<int>::max()},
    };
    for (int i = 0; const auto& row : rows) {
        QCoreApplication::setApplicationName(QStringLiteral("Velumora%1").arg(++i)); // a file of its own
        QFile file(QSettings().fileName());
        ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArrayLiteral("[General]\nkey=") + row.written + '\n');
        file.close();
        SettingsUserDefaults defaults;
        defaults.registerDefaults({{QStringLiteral("key"), 42}});
        EXPECT_EQ(defaults.integerForKey(QStringLiteral("key")), row.value) << row.written;
        EXPECT_EQ(defaults.boolForKey(QStringLiteral("key")), row.value != 0) << row.written;
    }
}

TEST_F(SettingsTest, AValueThatSaysNoNumberReadsAsItsRegisteredDefaultElseAsZero)
{
    for (const char* written : {"Monday", "", "nan", "inf", "1,5", "0x1", "true false", "@Invalid()"}) {
        QSettings().setValue(weekStart, QString::fromLatin1(written));
        SettingsUserDefaults defaults;
        EXPECT_EQ(defaults.integerForKey(weekStart), 0) << written;
        defaults.registerDefaults({{weekStart, 1}});
        EXPECT_EQ(defaults.integerForKey(weekStart), 1) << written;
    }
}

} // namespace
