// SPDX-License-Identifier: MIT
#pragma once

#include "host/ClockMonitor.h"

#include <QFileSystemWatcher>
#include <QSocketNotifier>

#include <memory>

/// Learns of a jump from the kernel (a real-time timer that is cancelled when the clock is set or the machine resumes)
/// and of a new zone from the system's zone link.
class KernelClockMonitor : public ClockMonitor {
    Q_OBJECT

public:
    /// `zoneLink` is the system's link to its zone file, or a copy of that file.
    explicit KernelClockMonitor(QString zoneLink = QStringLiteral("/etc/localtime"), QObject* parent = nullptr);
    ~KernelClockMonitor() override;

private:
    void armTimer() const;
    void readTimer();
    void zoneFilesChanged();

    const QString m_zoneLink;
    int m_timer = -1; ///< a timerfd; -1 when the kernel provides none
    std::unique_ptr<QSocketNotifier> m_notifier;
    QFileSystemWatcher m_zoneFiles;
    QByteArray m_zone; ///< the zone when the link was last read
};
