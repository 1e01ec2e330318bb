// SPDX-License-Identifier: MIT
#pragma once

#include "host/ShutdownMonitor.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <optional>

/// Hears of it from the login manager, and holds it up with a delay lock until all have heard. Without a login manager
/// nothing is ever heard.
class LogindShutdownMonitor : public ShutdownMonitor, protected QDBusContext {
    Q_OBJECT

public:
    using ShutdownMonitor::ShutdownMonitor;

    /// Begins to listen on the system's `bus`. `reason` is shown to whoever asks the system what holds it up.
    void listen(const QDBusConnection& bus, const QString& reason);

private:
    Q_SLOT void prepareForShutdown(bool active);

    void askForManager();
    void takeLock();

    std::optional<QDBusConnection> m_bus;
    QString m_reason;
    QString m_manager;              ///< the login manager's own name on the bus; empty while none is known
    QDBusUnixFileDescriptor m_lock; ///< open while the machine is to wait for this program
};
