// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly quit: the session ends, the notes are saved.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// Blocks the signals for threads that start later, so make it before any does.
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void terminationRequested();

private:
    int m_descriptor; ///< a signalfd; -1 where the kernel gives none
    std::unique_ptr<QSocketNotifier> m_notifier;
};
