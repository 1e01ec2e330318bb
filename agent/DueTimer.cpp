// SPDX-License-Identifier: MIT
#include "agent/DueTimer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>

#include <sys/timerfd.h>
#include <unistd.h>

namespace {

constexpr double earliest = 1;             ///< zero would disarm the timer
constexpr double latest = 7'258'118'400.0; ///< 1 January 2200; for a later moment the timer wakes once before

} // namespace

DueTimer::DueTimer(QObject* parent)
    : QObject(parent), m_timer(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (m_timer < 0) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::uint64_t expirations = 0;
        // An error means that the clock was set; either way the owner has to check.
        (void)!read(m_timer, &expirations, sizeof expirations);
        Q_EMIT woken();
    });
}

DueTimer::~DueTimer()
{
    m_notifier.reset();
    if (m_timer >= 0) {
        close(m_timer);
    }
}

void DueTimer::waitFor(std::optional<Date> moment)
{
    itimerspec time{};
    if (moment) {
        const double seconds = std::clamp(unixSeconds(*moment), earliest, latest);
        time.it_value.tv_sec = static_cast<std::time_t>(std::ceil(seconds)); // triggers name whole seconds
    }
    timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &time, nullptr);
}
