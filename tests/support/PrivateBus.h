// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QProcess>

/// A message bus for one test, with connections to it by name. It ends with the test.
class PrivateBus {
public:
    /// The longest that a test waits for what comes over a bus, in milliseconds.
    static constexpr int patience = 20'000;

    PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus();

    /// The same connection for the same name.
    QDBusConnection connection(const QString& name);

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};
