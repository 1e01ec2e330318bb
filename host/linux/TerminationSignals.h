// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly quit: the session ends, the notes are saved. A signal that the
/// program was told to ignore at its start stays ignored. Programs that this one starts get their signals as ever. One
/// at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// From here on the signals no longer kill; one that comes before `listen` is told then.
    explicit TerminationSignals(QObject* parent = nullptr);

    /// The signals kill again.
    ~TerminationSignals() override;

    /// From here on the signals are told. Needs the application object.
    void listen();

Q_SIGNALS:
    void terminationRequested();

private:
    int m_event; ///< an eventfd that a signal raises; -1 where the kernel gives none
    std::unique_ptr<QSocketNotifier> m_notifier;
};
