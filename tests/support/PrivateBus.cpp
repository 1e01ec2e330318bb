// SPDX-License-Identifier: MIT
#include "support/PrivateBus.h"

#include <QtGlobal>

PrivateBus::PrivateBus()
{
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                   QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(-1)) {
    }
    m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
    if (m_address.isEmpty()) {
        qFatal("dbus-daemon did not start");
    }
}

PrivateBus::~PrivateBus()
{
    for (const QString& name : m_names) {
        QDBusConnection::disconnectFromBus(name);
    }
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connection(const QString& name)
{
    if (m_names.contains(name)) {
        return QDBusConnection(name);
    }
    m_names.append(name);
    return QDBusConnection::connectToBus(m_address, name);
}
