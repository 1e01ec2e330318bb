// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <vector>

/// A service on the session bus that may have to be started: by the bus if an installed service file names it, else by
/// running the program beside this one. Nothing blocks.
class StartedService : public QObject {
    Q_OBJECT

public:
    /// How long a service may take to appear, allowing for a cold start from a slow disk. Code that must not end before
    /// a call has arrived waits as long.
    static constexpr std::chrono::seconds patience{10};

    /// How often a service that comes and goes without an answer is started for one call.
    static constexpr int mostStarts = 3;

    /// Receives the reply, or the error, on the caller's thread. Not called once the object is destroyed.
    using Completion = std::function<void(const QDBusMessage& reply)>;

    /// `program` is the file name of the executable, beside this one, that provides the bus name `service`.
    StartedService(const QDBusConnection& bus, const QString& service, const QString& program,
                   QObject* parent = nullptr);

    /// Calls a method of the service, starting it when it is absent. The call waits as long as the service runs.
    /// `activationToken` is passed to a program that is started for it.
    void call(const QDBusMessage& message, Completion completion, const QString& activationToken = {});

private:
    struct Call {
        QDBusMessage message;
        Completion completion;
        QString activationToken;
        int starts = 0; ///< of the service, for this call
    };

    void send(Call call);
    void startFor(Call call);
    void resend();
    void giveUp();

    QDBusConnection m_bus;
    const QString m_program; ///< absolute path
    QDBusServiceWatcher m_watcher;
    QTimer m_patience; ///< runs only while a call waits for a start
    std::vector<Call> m_waiting;
};
