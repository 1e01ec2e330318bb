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

/// A service on the session bus that may have to be started: by the bus where an installed service file names it, else
/// from the program beside this one. Nothing blocks.
class StartedService : public QObject {
    Q_OBJECT

public:
    /// How long a service that is being started may take to come: a cold start from a slow disk included. Whoever must
    /// not end before a call has arrived waits as long.
    static constexpr std::chrono::seconds patience{10};

    /// A service that comes and goes without an answer is started so often for a call.
    static constexpr int mostStarts = 3;

    /// The reply, or the error, on the thread of the call. Not called any more once the object is gone.
    using Completion = std::function<void(const QDBusMessage& reply)>;

    /// `program` is the file name of the executable, beside this one, that takes the bus name `service`.
    StartedService(const QDBusConnection& bus, const QString& service, const QString& program,
                   QObject* parent = nullptr);

    /// Calls a method of the service, which is started when it is absent. The call waits as long as the service lives.
    /// `activationToken` goes to a program that is started for it.
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
    const QString m_program; ///< the absolute path
    QDBusServiceWatcher m_watcher;
    QTimer m_patience; ///< runs only while something waits for a start
    std::vector<Call> m_waiting;
};
