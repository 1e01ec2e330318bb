// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly quit, in which the notes are saved. A signal that the program was
/// told to ignore at its start stays ignored. Programs that this one starts are not affected. Only one object may exist
/// at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// From now on the signals no longer kill; one that comes before `listen` is reported by it.
    explicit TerminationSignals(QObject* parent = nullptr);

    /// Makes the signals kill again.
    ~TerminationSignals() override;

    /// Reports the signals from now on. Needs the application object.
    void listen();

Q_SIGNALS:
    void terminationRequested();

private:
    int m_event; ///< an eventfd that a signal raises; -1 when the kernel provides none
    std::unique_ptr<QSocketNotifier> m_notifier;
};
