// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/EnteredPlace.h"
#include "app/Translations.h"
#include "dates/LocaleEnvironment.h"
#include "host/bus/BusNotificationCenter.h"
#include "host/bus/DesktopLocationServices.h"
#include "host/bus/LogindShutdownMonitor.h"
#include "host/linux/DesktopGlobalDefaults.h"
#include "host/linux/DesktopWorkspace.h"
#include "host/linux/FolderOpenPanel.h"
#include "host/linux/InstalledBundle.h"
#include "host/linux/KernelClockMonitor.h"
#include "host/linux/LinuxProcessInfo.h"
#include "host/linux/SettingsUserDefaults.h"
#include "host/linux/SingleInstance.h"
#include "host/linux/TemporaryFolder.h"
#include "host/linux/TerminationSignals.h"
#include "host/linux/UnexpectedExit.h"
#include "host/linux/WindowActivation.h"
#include "host/web/WebVersionServer.h"
#include "look/Appearance.h"
#include "look/StyleRules.h"
#include "look/TextSize.h"
#include "reminders/StateFolder.h"
#include "sheets/SheetQueue.h"
#include "store/Files.h"
#include "text/CommandLine.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/WindowPlace.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QStandardPaths>

#include <cstdio>
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
    if (makePrivateFolder(folder.toStdString())) { // a new account has none yet
        QDir().mkpath(folder);                     // whether a power cut takes it or not; a save tells what is wrong
    }
    return folder.toStdString();
}

std::optional<std::filesystem::path> temporaryFolder()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    QDir().mkpath(cache); // a new account has none yet
    return privateTemporaryFolder(environmentVariable("XDG_RUNTIME_DIR"), cache.toStdString());
}

/// As answerToCommandLine. Session managers hand a restarted program its former session.
std::optional<int> answerToArguments(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("velumora"));
    QCoreApplication::setApplicationVersion(InstalledBundle().shortVersionString());
    installTranslation(localePairFrom(environmentVariable).preferredLanguages);
    return answerToCommandLine(localized("The day-note calendar"), {QStringLiteral("session"), QStringLiteral("name")});
}

/// What the desktop has answered by now, so that the first picture has the right colours and sizes.
void applyLook(DesktopGlobalDefaults& globalDefaults, const ProcessInfo& processInfo, QWidget& window)
{
    globalDefaults.handleArrivedAnswers();
    applyTextSize(globalDefaults.text());
    applyPalette(systemPalette(processInfo, globalDefaults), window);
}

/// For a start that can neither hand over to the program that runs nor run beside it.
int sayThatNoneAnswers(const TerminationSignals& signals, DesktopGlobalDefaults& globalDefaults)
{
    const QString headline = localized("Velumora is running but does not answer.");
    std::fprintf(stderr, "velumora: %s\n", qUtf8Printable(headline));
    QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(), headline, QMessageBox::Ok);
    applyLook(globalDefaults, LinuxProcessInfo(), box);
    box.setInformativeText(localized("Wait until it does, or end it, then start Velumora again."));
    QObject::connect(&signals, &TerminationSignals::terminationRequested, &box, &QMessageBox::reject);
    box.exec();
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1) { // without a display: whoever asks may have none
        if (const std::optional<int> status = answerToArguments(argc, argv)) {
            return *status;
        }
    }
    const QString startToken = startActivationToken();
    TerminationSignals signals;
    QApplication application(argc, argv);
    signals.listen();
    SingleInstance instance;
    const SingleInstance::Start started = instance.claim(startToken, signals);
    if (started == SingleInstance::Start::HandedOver || started == SingleInstance::Start::Ended) {
        return EXIT_SUCCESS;
    }
    DesktopGlobalDefaults globalDefaults; // early: the desktop answers while the window is made
    QApplication::setApplicationName(QStringLiteral("velumora"));
    QApplication::setApplicationDisplayName(QStringLiteral("Velumora"));
    QApplication::setOrganizationName(QStringLiteral("velumora"));
    QApplication::setDesktopFileName(QStringLiteral("velumora"));

    const LocalePair languages = localePairFrom(environmentVariable);
    DateEnvironment::setLocalePair(languages);
    const char* zone = std::getenv("TZ");
    DateEnvironment::setSystemZoneVariable(zone ? std::optional<std::string>(zone) : std::nullopt);
    DateEnvironment::setTimeZone({});
    installTranslation(languages.preferredLanguages);
    applyStyle();
    if (started == SingleInstance::Start::NoAnswer) {
        return sayThatNoneAnswers(signals, globalDefaults);
    }

    InstalledBundle bundle;
    KernelClockMonitor clockMonitor;
    FolderOpenPanel openPanel([](QDialog& panel, QWidget& parent) { SheetQueue::of(parent).begin(panel); });
    LinuxProcessInfo processInfo;
    LogindShutdownMonitor shutdownMonitor;
    SettingsUserDefaults userDefaults;
    BusNotificationCenter notificationCenter;
    DesktopLocationServices locationServices(
        {.systemBus = QDBusConnection::systemBus,
         .desktopId = QApplication::desktopFileName(),
         .enteredCoordinate = [&userDefaults] { return enteredPlace(userDefaults); },
         .zoneDatabase = "/usr/share/zoneinfo"});
    WebVersionServer versionServer(QUrl(QStringLiteral(VELUMORA_VERSION_SERVER)));
    DesktopWorkspace workspace;

    const std::filesystem::path state =
        stateFolder(environmentVariable("XDG_STATE_HOME"), QDir::homePath().toStdString());

    QMainWindow window;
    Ui::MainWindow layout;
    layout.setupUi(&window);
    applyLook(globalDefaults, processInfo, window);
    AppDelegate delegate(window, layout,
                         {.bundle = bundle,
                          .clockMonitor = clockMonitor,
                          .globalDefaults = globalDefaults,
                          .locationServices = locationServices,
                          .openPanel = openPanel,
                          .processInfo = processInfo,
                          .shutdownMonitor = shutdownMonitor,
                          .userDefaults = userDefaults,
                          .notificationCenter = notificationCenter,
                          .versionServer = versionServer,
                          .workspace = workspace,
                          .applicationSupport = applicationSupportFolder(),
                          .temporaryFolder = temporaryFolder(),
                          .stateFolder = state});

    WindowPlace windowPlace(state / "Window", window);

    QObject::connect(&instance, &SingleInstance::activated, &window,
                     [&window](const QString& token) { bringForward(window, token); });
    instance.setReminderHandler([&notificationCenter](const QByteArray& request, const auto& done) {
        notificationCenter.reminderClicked(request, done);
    });

    // Not QApplication::quit, which a sheet that waits for its answer would refuse.
    const auto quit = [] { QApplication::exit(); };
    // Queued, so that a quit asked for before the event loop runs is heard as well.
    QObject::connect(&delegate, &AppDelegate::terminated, &application, quit, Qt::QueuedConnection);
    QObject::connect(&signals, &TerminationSignals::terminationRequested, &application, quit);
    QObject::connect(&application, &QApplication::aboutToQuit, &delegate, &AppDelegate::applicationWillTerminate);
    QObject::connect(&application, &QApplication::aboutToQuit, &windowPlace, &WindowPlace::save);
    // Last: the next program reads what this one has saved.
    QObject::connect(&application, &QApplication::aboutToQuit, &instance, &SingleInstance::release);
    QApplication::setQuitOnLastWindowClosed(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());

    delegate.applicationWillFinishLaunching();
    delegate.applicationDidFinishLaunching();
    notificationCenter.startAgentForReminders(reminderFile(state));
    shutdownMonitor.listen(QDBusConnection::systemBus(), localized("Notes are being saved"));
    const UnexpectedExit atExit([&delegate] { delegate.processWillExit(); }); // when the display is gone
    return QApplication::exec();
}
