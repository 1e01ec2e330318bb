// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Appearance.h"
#include "app/EnteredPlace.h"
#include "app/Translations.h"
#include "host/linux/DesktopLocationServices.h"
#include "host/linux/DesktopWorkspace.h"
#include "host/linux/FolderOpenPanel.h"
#include "host/linux/InstalledBundle.h"
#include "host/linux/KernelClockMonitor.h"
#include "host/linux/LinuxProcessInfo.h"
#include "host/linux/LocaleEnvironment.h"
#include "host/linux/NoNotificationCenter.h"
#include "host/linux/SettingsUserDefaults.h"
#include "host/linux/TerminationSignals.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <cstdlib>

namespace {

std::string environmentVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::optional<std::filesystem::path> applicationSupportFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (folder.isEmpty()) {
        return std::nullopt;
    }
    QDir().mkpath(folder); // a new account has none yet
    return folder.toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    TerminationSignals signals;
    QApplication application(argc, argv);
    signals.listen();
    QApplication::setApplicationName(QStringLiteral("velumora"));
    QApplication::setApplicationDisplayName(QStringLiteral("Velumora"));
    QApplication::setOrganizationName(QStringLiteral("velumora"));
    QApplication::setDesktopFileName(QStringLiteral("velumora"));

    const LocalePair languages = localePairFrom(environmentVariable);
    DateEnvironment::setLocalePair(languages);
    DateEnvironment::setTimeZone({});
    installTranslation(languages.preferredLanguages);
    applyAppearance();

    InstalledBundle bundle;
    KernelClockMonitor clockMonitor;
    FolderOpenPanel openPanel;
    LinuxProcessInfo processInfo;
    SettingsUserDefaults userDefaults;
    DesktopLocationServices locationServices(
        {.systemBus = QDBusConnection::systemBus,
         .desktopId = QApplication::desktopFileName(),
         .enteredCoordinate = [&userDefaults] { return enteredPlace(userDefaults); },
         .zoneDatabase = "/usr/share/zoneinfo"});
    NoNotificationCenter notificationCenter;
    DesktopWorkspace workspace;

    QMainWindow window;
    Ui::MainWindow layout;
    layout.setupUi(&window);
    applyStyleRules(window);
    AppDelegate delegate(window, layout,
                         {.bundle = bundle,
                          .clockMonitor = clockMonitor,
                          .locationServices = locationServices,
                          .openPanel = openPanel,
                          .processInfo = processInfo,
                          .userDefaults = userDefaults,
                          .notificationCenter = notificationCenter,
                          .workspace = workspace,
                          .applicationSupport = applicationSupportFolder()});

    // Not QApplication::quit, which a sheet that waits for its answer would refuse.
    const auto quit = [] { QApplication::exit(); };
    // Queued, so that a quit asked for before the event loop runs is heard as well.
    QObject::connect(&delegate, &AppDelegate::terminated, &application, quit, Qt::QueuedConnection);
    QObject::connect(&signals, &TerminationSignals::terminationRequested, &application, quit);
    QObject::connect(&application, &QApplication::aboutToQuit, &delegate, &AppDelegate::applicationWillTerminate);
    QApplication::setQuitOnLastWindowClosed(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());

    delegate.applicationWillFinishLaunching();
    delegate.applicationDidFinishLaunching();
    return QApplication::exec();
}
