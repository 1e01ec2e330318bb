// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/EnteredPlace.h"
#include "app/Translations.h"
#include "dates/LocaleEnvironment.h"
#include "host/linux/InstalledBundle.h"
#include "host/linux/LinuxHost.h"
#include "host/linux/SingleInstance.h"
#include "host/linux/TerminationSignals.h"
#include "host/linux/UnexpectedExit.h"
#include "host/linux/WindowActivation.h"
#include "look/Appearance.h"
#include "look/StyleRules.h"
#include "look/TextSize.h"
#include "reminders/StateFolder.h"
#include "sheets/SheetQueue.h"
#include "text/CommandLine.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"
#include "widgets/WindowPlace.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <cstdlib>

namespace {

std::string environmentVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
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
void applyLook(LinuxHost& host, QWidget& window)
{
    host.globalDefaults.handleArrivedAnswers();
    applyTextSize(host.globalDefaults.text());
    applyPalette(systemPalette(host.processInfo, host.globalDefaults), window);
}

/// For a start that can neither hand over to the program that runs nor run beside it.
int sayThatNoneAnswers(const TerminationSignals& signals, LinuxHost& host)
{
    const QString headline = localized("Velumora is running but does not answer.");
    std::fprintf(stderr, "velumora: %s\n", qUtf8Printable(headline));
    QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(), headline, QMessageBox::Ok);
    applyLook(host, box);
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
    QApplication::setApplicationName(QStringLiteral("velumora"));
    QApplication::setApplicationDisplayName(QStringLiteral("Velumora"));
    QApplication::setOrganizationName(QStringLiteral("velumora"));
    QApplication::setDesktopFileName(QStringLiteral("velumora"));
    // Early: the desktop answers while the window is made.
    LinuxHost host({.presentPanel = [](QDialog& panel, QWidget& parent) { SheetQueue::of(parent).begin(panel); },
                    .enteredPlace = enteredPlace,
                    .versionServer = QUrl(QStringLiteral(VELUMORA_VERSION_SERVER))});

    const LocalePair languages = localePairFrom(environmentVariable);
    DateEnvironment::setLocalePair(languages);
    const char* zone = std::getenv("TZ");
    DateEnvironment::setSystemZoneVariable(zone ? std::optional<std::string>(zone) : std::nullopt);
    DateEnvironment::setTimeZone({});
    installTranslation(languages.preferredLanguages);
    applyStyle();
    if (started == SingleInstance::Start::NoAnswer) {
        return sayThatNoneAnswers(signals, host);
    }

    QMainWindow window;
    Ui::MainWindow layout;
    layout.setupUi(&window);
    applyLook(host, window);
    AppDelegate delegate(window, layout, host.services());
    WindowPlace windowPlace(host.stateFolder / "Window", window);

    QObject::connect(&instance, &SingleInstance::activated, &window,
                     [&window](const QString& token) { bringForward(window, token); });
    instance.setReminderHandler([&host](const QByteArray& request, const auto& done) {
        host.notificationCenter.reminderClicked(request, done);
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
    host.notificationCenter.startAgentForReminders(reminderFile(host.stateFolder));
    host.shutdownMonitor.listen(QDBusConnection::systemBus(), localized("Notes are being saved"));
    const UnexpectedExit atExit([&delegate] { delegate.processWillExit(); }); // when the display is gone
    return QApplication::exec();
}
