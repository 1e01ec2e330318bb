// SPDX-License-Identifier: MIT
#pragma once

#include "host/ShutdownMonitor.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <optional>

/// Listens to the login manager, and delays the shutdown with a lock until every slot has returned. Without a login
/// manager nothing is ever reported.
class LogindShutdownMonitor : public ShutdownMonitor, protected QDBusContext {
    Q_OBJECT

public:
    using ShutdownMonitor::ShutdownMonitor;

    /// Starts to listen on the system's `bus`. `reason` is shown to users who ask the system what delays it.
    void listen(const QDBusConnection& bus, const QString& reason);

private:
    Q_SLOT void prepareForShutdown(bool active);

    void askForManager();
    void takeLock();

    std::optional<QDBusConnection> m_bus;
    QString m_reason;
    QString m_manager;              ///< the login manager's unique name on the bus; empty while unknown
    QDBusUnixFileDescriptor m_lock; ///< open while the machine has to wait for this program
};
