// SPDX-License-Identifier: MIT
#include "host/bus/StartedService.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QDir>
#include <QProcess>

#include <limits>
#include <utility>

namespace {

constexpr int noTimeout = std::numeric_limits<int>::max();

bool isAbsent(const QDBusMessage& reply)
{
    return reply.type() == QDBusMessage::ErrorMessage &&
           (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
            reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner") ||
            reply.errorName().startsWith(QLatin1String("org.freedesktop.DBus.Error.Spawn.")));
}

bool startDetached(const QString& program, const QString& activationToken)
{
    QProcess process;
    process.setProgram(program);
    process.setWorkingDirectory(QDir::homePath());
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!activationToken.isEmpty()) {
        environment.insert(QStringLiteral("XDG_ACTIVATION_TOKEN"), activationToken);
        environment.insert(QStringLiteral("DESKTOP_STARTUP_ID"), activationToken);
    }
    process.setProcessEnvironment(environment);
    return process.startDetached();
}

} // namespace

StartedService::StartedService(const QDBusConnection& bus, const QString& service, const QString& program,
                               QObject* parent)
    : QObject(parent), m_bus(bus), m_program(QCoreApplication::applicationDirPath() + QLatin1Char('/') + program),
      m_watcher(service, bus, QDBusServiceWatcher::WatchForRegistration)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &StartedService::giveUp);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &StartedService::resend);
}

void StartedService::call(const QDBusMessage& message, Completion completion, const QString& activationToken)
{
    send({.message = message, .completion = std::move(completion), .activationToken = activationToken});
}

void StartedService::send(Call call)
{
    if (!m_bus.isConnected()) { // a call would never be answered
        QMetaObject::invokeMethod(
            this,
            [call = std::move(call)] {
                call.completion(call.message.createErrorReply(QDBusError::Disconnected, QStringLiteral("No bus")));
            },
            Qt::QueuedConnection);
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call.message, noTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, call = std::move(call)]() mutable {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (isAbsent(reply)) {
            startFor(std::move(call));
        } else {
            call.completion(reply);
        }
    });
}

void StartedService::startFor(Call call)
{
    if (++call.starts > mostStarts) {
        call.completion(call.message.createErrorReply(QDBusError::NoReply, m_program));
        return;
    }
    if (m_waiting.empty() && !startDetached(m_program, call.activationToken)) {
        call.completion(
            call.message.createErrorReply(QDBusError::ServiceUnknown, QStringLiteral("Cannot start ") + m_program));
        return;
    }
    m_waiting.push_back(std::move(call));
    m_patience.start();
}

void StartedService::resend()
{
    m_patience.stop();
    for (Call& call : std::exchange(m_waiting, {})) {
        send(std::move(call));
    }
}

void StartedService::giveUp()
{
    for (const Call& call : std::exchange(m_waiting, {})) {
        call.completion(call.message.createErrorReply(QDBusError::TimedOut, m_program));
    }
}
