// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "dates/LocaleEnvironment.h"
#include "host/linux/InstalledBundle.h"
#include "host/linux/KernelClockMonitor.h"
#include "host/linux/LinuxProcessInfo.h"
#include "host/linux/SettingsUserDefaults.h"
#include "host/linux/TerminationSignals.h"
#include "support/DateGuards.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <limits>
#include <map>

namespace {

// --- Locale ----------------------------------------------------------------------------------------------------------

TEST(LocaleIdentifier, IsThatOfTheLibrarysNameWithoutItsEncoding)
{
    struct {
        const char* name;
        const char* identifier;
    } const rows[] = {
        {"de_DE.UTF-8", "de_DE"},
        {"de_DE.UTF-8@euro", "de_DE"},
        {"de_DE@euro", "de_DE"},
        {"sr_RS.UTF-8@latin", "sr_Latn_RS"},
        {"sr@latin", "sr_Latn"},
        {"uz_UZ@cyrillic", "uz_Cyrl_UZ"},
        {"ks_IN@devanagari", "ks_Deva_IN"},
        {"eo", "eo"},
        {"C", "en_US"},
        {"C.UTF-8", "en_US"},
        {"POSIX", "en_US"},
        {"", "en_US"},
        {".UTF-8", "en_US"},
        {"@euro", "en_US"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(localeIdentifier(row.name), row.identifier) << row.name;
    }
}

TEST(LocalePairFromEnvironment, TakesTheFirstVariableThatIsSet)
{
    using Variables = std::map<std::string, std::string>;
    struct {
        Variables variables;
        LocalePair pair;
    } const rows[] = {
        {{}, {"en_US", {"en-US"}}},
        {{{"LANG", "de_AT.UTF-8"}}, {"de_AT", {"de-AT"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_TIME", "fr_FR.UTF-8"}}, {"fr_FR", {"de-AT"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_MESSAGES", "it_IT"}}, {"de_AT", {"it-IT"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_TIME", "fr_FR"}, {"LC_MESSAGES", "it_IT"}, {"LC_ALL", "es_MX"}},
         {"es_MX", {"es-MX"}}},
        {{{"LANG", "de_AT.UTF-8"}, {"LC_ALL", ""}, {"LC_TIME", ""}}, {"de_AT", {"de-AT"}}},
        {{{"LANG", "de_AT"}, {"LANGUAGE", "sv:pt_BR:C"}}, {"de_AT", {"sv", "pt-BR", "en-US"}}},
        {{{"LANG", "de_AT"}, {"LANGUAGE", "::nb_NO:"}}, {"de_AT", {"nb-NO"}}},
        {{{"LANG", "de_AT"}, {"LANGUAGE", ":"}}, {"de_AT", {"de-AT"}}},
        {{{"LC_ALL", "C.UTF-8"}, {"LANG", "de_AT"}}, {"en_US", {"en-US"}}},
    };
    for (const auto& row : rows) {
        const LocalePair pair = localePairFrom([&row](const char* name) {
            const auto found = row.variables.find(name);
            return found == row.variables.end() ? std::string() : found->second;
        });
        EXPECT_EQ(pair, row.pair) << ::testing::PrintToString(row.variables);
    }
}

// --- User defaults ---------------------------------------------------------------------------------------------------

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
    EXPECT_EQ(defaults.integerForKey(PreferenceKeys::weekStart), 0);
    defaults.registerDefaults({{PreferenceKeys::weekStart, 1}});
    EXPECT_EQ(defaults.integerForKey(PreferenceKeys::weekStart), 1);
    EXPECT_TRUE(defaults.boolForKey(PreferenceKeys::weekStart));
    EXPECT_EQ(defaults.integerForKey(PreferenceKeys::startList), 0);
    EXPECT_FALSE(defaults.boolForKey(PreferenceKeys::startList));
}

TEST_F(SettingsTest, RegisteringWritesNothing)
{
    SettingsUserDefaults defaults;
    defaults.registerDefaults({{PreferenceKeys::weekStart, 1}});
    defaults.synchronize();
    EXPECT_FALSE(QFile::exists(configuration()));
}

TEST_F(SettingsTest, WhatWasSetIsThereAfterARestartUnderItsLiteralKey)
{
    {
        SettingsUserDefaults defaults;
        defaults.registerDefaults({{PreferenceKeys::weekStart, 1}});
        defaults.setInteger(0, PreferenceKeys::weekStart);
        defaults.setInteger(5, PreferenceKeys::notesCleaned);
        defaults.synchronize();
        EXPECT_EQ(defaults.integerForKey(PreferenceKeys::weekStart), 0);
    }
    SettingsUserDefaults defaults;
    defaults.registerDefaults({{PreferenceKeys::weekStart, 1}});
    EXPECT_EQ(defaults.integerForKey(PreferenceKeys::weekStart), 0);
    EXPECT_EQ(defaults.integerForKey(PreferenceKeys::notesCleaned), 5);
    const QSettings settings;
    EXPECT_EQ(settings.allKeys(), (QStringList{QStringLiteral("Sunday or Monday for start of week"),
                                               QStringLiteral("Velumora Dictionary cleaned of old TALV unused data")}));
}

TEST_F(SettingsTest, SynchronizingPutsItOnTheDiskAtOnce)
{
    SettingsUserDefaults defaults;
    defaults.setInteger(7, PreferenceKeys::startList);
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
        QSettings().setValue(PreferenceKeys::weekStart, QString::fromLatin1(written));
        SettingsUserDefaults defaults;
        EXPECT_EQ(defaults.integerForKey(PreferenceKeys::weekStart), 0) << written;
        defaults.registerDefaults({{PreferenceKeys::weekStart, 1}});
        EXPECT_EQ(defaults.integerForKey(PreferenceKeys::weekStart), 1) << written;
    }
}

// --- Bundle, system --------------------------------------------------------------------------------------------------

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

// --- Signals ---------------------------------------------------------------------------------------------------------

void (*handlerOf(int signal))(int)
{
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler;
}

TEST(TerminationSignals, EachAsksOnceForTheEnd)
{
    TerminationSignals signals;
    signals.listen();
    QSignalSpy asked(&signals, &TerminationSignals::terminationRequested);
    int count = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::raise(signal);
        EXPECT_TRUE(asked.wait(1000)) << signal;
        EXPECT_EQ(asked.count(), ++count) << signal;
    }
}

TEST(TerminationSignals, OneThatComesBeforeTheEventLoopIsHeardThen)
{
    TerminationSignals signals;
    std::raise(SIGTERM);
    signals.listen();
    QSignalSpy asked(&signals, &TerminationSignals::terminationRequested);
    EXPECT_TRUE(asked.wait(1000));
}

TEST(TerminationSignals, AreNotBlockedForProgramsThatThisOneStarts)
{
    TerminationSignals signals;
    signals.listen();
    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        EXPECT_EQ(sigismember(&blocked, signal), 0) << signal;
    }
}

TEST(TerminationSignals, AnIgnoredSignalStaysIgnoredAndTheOthersAreAsBeforeAtTheEnd)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const TerminationSignals signals;
        EXPECT_EQ(handlerOf(SIGHUP), SIG_IGN);
        EXPECT_NE(handlerOf(SIGTERM), SIG_DFL);
    }
    EXPECT_EQ(handlerOf(SIGHUP), SIG_IGN);
    EXPECT_EQ(handlerOf(SIGTERM), SIG_DFL);
    std::signal(SIGHUP, SIG_DFL);
}

// --- Clock -----------------------------------------------------------------------------------------------------------

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
