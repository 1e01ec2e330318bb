// SPDX-License-Identifier: MIT
#include "host/linux/TerminationSignals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

std::atomic<int> raisedEvent = -1; ///< global, because a signal handler has no other access to it

void raiseEvent(int)
{
    const int error = errno;
    eventfd_write(raisedEvent, 1);
    errno = error;
}

} // namespace

// A handler rather than a blocked signal, because every program that this one starts would inherit the mask.
TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent), m_event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_event < 0) {
        return;
    }
    raisedEvent = m_event;
    for (const int signal : handledSignals) {
        struct sigaction former {};
        sigaction(signal, nullptr, &former);
        if (former.sa_handler != SIG_IGN) {
            struct sigaction action {};
            action.sa_handler = raiseEvent;
            action.sa_flags = SA_RESTART;
            sigaction(signal, &action, nullptr);
        }
    }
}

void TerminationSignals::listen()
{
    if (m_event < 0) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_event, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        eventfd_t count = 0;
        if (eventfd_read(m_event, &count) == 0) {
            Q_EMIT terminationRequested();
        }
    });
}

TerminationSignals::~TerminationSignals()
{
    m_notifier.reset();
    if (m_event < 0) {
        return;
    }
    for (const int signal : handledSignals) {
        struct sigaction current {};
        sigaction(signal, nullptr, &current);
        if (current.sa_handler == raiseEvent) {
            std::signal(signal, SIG_DFL);
        }
    }
    raisedEvent = -1;
    close(m_event);
}
