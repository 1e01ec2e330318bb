// SPDX-License-Identifier: MIT
#include "host/bus/StartedService.h"

#include "host/bus/BusCall.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <utility>

namespace {

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
    const QDBusMessage message = call.message;
    const auto answer = [this, call = std::move(call)](const QDBusMessage& reply) {
        if (isAbsent(reply)) {
            startFor(call);
        } else {
            call.completion(reply);
        }
    };
    BusCall::send(m_bus, message, *this, answer, BusCall::noTimeout);
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
