// SPDX-License-Identifier: MIT
#include "host/linux/LogindShutdownMonitor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <utility>

namespace {

const QString service = QStringLiteral("org.freedesktop.login1");
const QString path = QStringLiteral("/org/freedesktop/login1");
const QString manager = QStringLiteral("org.freedesktop.login1.Manager");

} // namespace

void LogindShutdownMonitor::listen(const QDBusConnection& bus, const QString& reason)
{
    if (!bus.isConnected()) { // a call would have no end
        return;
    }
    m_bus = bus;
    m_reason = reason;
    // From whoever has that path, so that the owner of the name need not be looked up, and waited for; the others, who
    // may be anybody on this machine, are told by the name.
    m_bus->connect(QString(), path, manager, QStringLiteral("PrepareForShutdown"), this,
                   SLOT(prepareForShutdown(bool)));
    auto* watcher = new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &LogindShutdownMonitor::takeLock); // began anew
    takeLock();
}

void LogindShutdownMonitor::takeLock()
{
    if (std::exchange(m_isAsking, true)) {
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, manager, QStringLiteral("Inhibit"));
    call << QStringLiteral("shutdown") << QCoreApplication::applicationName() << m_reason << QStringLiteral("delay");
    auto* watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        m_isAsking = false;
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *finished;
        m_manager = reply.reply().service();
        if (reply.isValid()) {
            m_lock = reply.value();
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
        m_lock = QDBusUnixFileDescriptor(); // closed: the machine may go on
    } else {
        takeLock(); // it goes on running
    }
}
