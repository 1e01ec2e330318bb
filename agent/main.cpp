// SPDX-License-Identifier: MIT
#include "agent/ReminderAgent.h"
#include "host/bus/AgentMessages.h"
#include "reminders/StateFolder.h"
#include "text/CommandLine.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDir>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

namespace {

std::filesystem::path autostartFolder()
{
    const QString settings = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(settings.toStdString()) / "autostart";
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(AgentMessages::program());
    QCoreApplication::setApplicationVersion(QStringLiteral(VELUMORA_VERSION));
    if (const std::optional<int> status =
            answerToCommandLine(QStringLiteral("Delivers the reminders that were set in Velumora"))) {
        return *status;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        std::fputs("velumora-reminder-agent: there is no session bus\n", stderr);
        return EXIT_FAILURE;
    }
    const std::filesystem::path state =
        stateFolder(qEnvironmentVariable("XDG_STATE_HOME").toStdString(), QDir::homePath().toStdString());
    ReminderAgent agent(bus, reminderFile(state),
                        AutostartEntry(autostartFolder(), QCoreApplication::applicationFilePath().toStdString()));
    bus.registerObject(AgentMessages::path(), &agent, QDBusConnection::ExportAllSlots);
    const QString service = AgentMessages::service();
    if (!bus.registerService(service)) {
        return EXIT_SUCCESS; // another agent is running
    }
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                QStringLiteral("Disconnected"), &application, SLOT(quit()));
    QObject::connect(&agent, &ReminderAgent::finished, &application, [&] {
        bus.unregisterService(service);
        QCoreApplication::processEvents(); // calls sent to the name until now
        if (agent.hasNothingToDo() || !bus.registerService(service)) {
            QCoreApplication::quit();
        }
    });
    agent.begin(); // only now that it owns the name, and with it the file; calls wait for the event loop
    return QCoreApplication::exec();
}
