// SPDX-License-Identifier: MIT
#include "host/linux/TerminationSignals.h"

#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent)
{
    sigset_t handled;
    sigemptyset(&handled);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&handled, signal);
    }
    m_descriptor = signalfd(-1, &handled, SFD_CLOEXEC | SFD_NONBLOCK);
    if (m_descriptor >= 0) {
        pthread_sigmask(SIG_BLOCK, &handled, nullptr);
    }
}

void TerminationSignals::listen()
{
    if (m_descriptor < 0) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo information{};
        if (read(m_descriptor, &information, sizeof information) == sizeof information) {
            Q_EMIT terminationRequested();
        }
    });
}

TerminationSignals::~TerminationSignals()
{
    m_notifier.reset();
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}
