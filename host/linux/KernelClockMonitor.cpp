// SPDX-License-Identifier: MIT
#include "host/linux/KernelClockMonitor.h"

#include "dates/Clock.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <utility>

#include <sys/timerfd.h>
#include <unistd.h>

namespace {

constexpr std::time_t farFuture = 7'258'118'400; ///< 1 January 2200

/// Identifies the system's zone: the target of the link, or the bytes of a plain file.
QByteArray systemZone(const QString& zoneLink)
{
    const QFileInfo link(zoneLink);
    if (link.isSymLink()) {
        return link.symLinkTarget().toUtf8();
    }
    QFile file(zoneLink);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

KernelClockMonitor::KernelClockMonitor(QString zoneLink, QObject* parent)
    : ClockMonitor(parent), m_zoneLink(std::move(zoneLink)),
      m_timer(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)), m_zone(systemZone(m_zoneLink))
{
    if (m_timer >= 0) {
        armTimer();
        m_notifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &KernelClockMonitor::readTimer);
    }
    // The link is replaced rather than written, so its folder is watched.
    m_zoneFiles.addPath(QFileInfo(m_zoneLink).absolutePath());
    connect(&m_zoneFiles, &QFileSystemWatcher::directoryChanged, this, &KernelClockMonitor::zoneFilesChanged);
}

KernelClockMonitor::~KernelClockMonitor()
{
    m_notifier.reset();
    if (m_timer >= 0) {
        close(m_timer);
    }
}

void KernelClockMonitor::armTimer() const
{
    itimerspec never{};
    never.it_value.tv_sec = farFuture; // only its cancellation matters
    timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &never, nullptr);
}

void KernelClockMonitor::readTimer()
{
    std::uint64_t expirations = 0;
    const bool cancelled = read(m_timer, &expirations, sizeof expirations) < 0 && errno == ECANCELED;
    armTimer();
    if (cancelled) {
        Q_EMIT clockJumped();
    }
}

void KernelClockMonitor::zoneFilesChanged()
{
    const QByteArray zone = systemZone(m_zoneLink);
    if (zone == m_zone) {
        return;
    }
    m_zone = zone;
    if (qEnvironmentVariableIsEmpty("TZ")) { // a zone that the user chose stays
        DateEnvironment::setTimeZone({});
        Q_EMIT clockJumped();
    }
}
