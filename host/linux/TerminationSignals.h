// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly quit: the session ends, the notes are saved.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// Takes the signals away from this thread and those that it starts, so make it before any does.
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

    /// From here on the signals are told. Needs the application object.
    void listen();

Q_SIGNALS:
    void terminationRequested();

private:
    int m_descriptor; ///< a signalfd; -1 where the kernel gives none
    std::unique_ptr<QSocketNotifier> m_notifier;
};
