// SPDX-License-Identifier: MIT
#include "host/bus/LogindShutdownMonitor.h"

#include "host/bus/BusCall.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusServiceWatcher>

namespace {

const QString managerService = QStringLiteral("org.freedesktop.login1");
const QString logindPath = QStringLiteral("/org/freedesktop/login1");
const QString manager = QStringLiteral("org.freedesktop.login1.Manager");

} // namespace

void LogindShutdownMonitor::listen(const QDBusConnection& bus, const QString& reason)
{
    if (!bus.isConnected()) { // a call would never be answered
        return;
    }
    m_bus = bus;
    m_reason = reason;
    // From any sender, because looking up the owner of the name would block; senders other than the owner are ignored.
    m_bus->connect(QString(), logindPath, manager, QStringLiteral("PrepareForShutdown"), this,
                   SLOT(prepareForShutdown(bool)));
    auto* watcher = new QDBusServiceWatcher(managerService, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const auto&, const auto&, const auto& now) {
                m_manager = now;
                if (!now.isEmpty()) { // it was restarted
                    takeLock();
                }
            });
    askForManager();
    takeLock();
}

/// Asks the bus itself, which answers at once even when the login manager hangs.
void LogindShutdownMonitor::askForManager()
{
    QDBusMessage call = BusCall::methodOfTheBus(QStringLiteral("GetNameOwner"));
    call << managerService;
    BusCall::send(*m_bus, call, *this, [this](const QDBusMessage& answer) {
        if (const QDBusReply<QString> name(answer); name.isValid()) {
            m_manager = name.value();
        }
    });
}

void LogindShutdownMonitor::takeLock()
{
    QDBusMessage call = QDBusMessage::createMethodCall(managerService, logindPath, manager, QStringLiteral("Inhibit"));
    call << QStringLiteral("shutdown") << QCoreApplication::applicationName() << m_reason << QStringLiteral("delay");
    BusCall::send(*m_bus, call, *this, [this](const QDBusMessage& answer) {
        if (const QDBusReply<QDBusUnixFileDescriptor> lock(answer); lock.isValid()) {
            m_lock = lock.value();
        }
    });
}

void LogindShutdownMonitor::prepareForShutdown(bool active)
{
    if (message().service() != m_manager) {
        return;
    }
    if (active) {
        Q_EMIT machineWillShutDown();
        m_lock = QDBusUnixFileDescriptor(); // closing it lets the machine go on
    } else {
        takeLock(); // the shutdown was cancelled
    }
}
