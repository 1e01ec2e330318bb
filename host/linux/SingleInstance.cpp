// SPDX-License-Identifier: MIT
#include "host/linux/SingleInstance.h"

#include "host/bus/ApplicationMessages.h"
#include "host/linux/TerminationSignals.h"

#include <QDBusPendingCallWatcher>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <utility>

namespace {

constexpr qsizetype longestToken = 4096;
constexpr int maximumAttempts = 20; // a holder that only answers with errors is not just about to end

} // namespace

SingleInstance::Start SingleInstance::claim(const QString& activationToken, const TerminationSignals& signals)
{
    if (!m_bus.isConnected()) {
        return Start::First;
    }
    // Before taking the name, so that whoever finds the name finds the object.
    m_bus.registerObject(ApplicationMessages::path(), this, QDBusConnection::ExportAllSlots);
    const QDeadlineTimer deadline(m_patience);
    for (int attempt = 0; !m_bus.registerService(ApplicationMessages::service()); ++attempt) {
        if (deadline.hasExpired() || attempt == maximumAttempts) {
            return Start::NoAnswer;
        }
        QDBusMessage message = ApplicationMessages::activate(activationToken);
        message.setAutoStartService(false);
        const auto reply = callHolder(message, static_cast<int>(deadline.remainingTime()), signals);
        if (!reply) {
            return Start::Ended;
        }
        if (reply->type() == QDBusMessage::ReplyMessage) {
            return Start::HandedOver;
        }
        // The holder has ended and the name is free, or it is worth asking again.
    }
    return Start::First;
}

std::optional<QDBusMessage> SingleInstance::callHolder(const QDBusMessage& message, int patienceMs,
                                                       const TerminationSignals& signals) const
{
    const QDBusPendingCallWatcher call(m_bus.asyncCall(message, patienceMs));
    QEventLoop loop;
    bool isToEnd = false;
    connect(&call, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    connect(&signals, &TerminationSignals::terminationRequested, &loop, [&] {
        isToEnd = true;
        loop.quit();
    });
    loop.exec();
    return isToEnd ? std::nullopt : std::optional(call.reply());
}

void SingleInstance::release()
{
    m_released = true;
    m_bus.unregisterService(ApplicationMessages::service());
}

/// A program that is ending refuses calls, so that callers turn to the next one.
bool SingleInstance::refusesCalls()
{
    if (m_released && calledFromDBus()) {
        sendErrorReply(QDBusError::ServiceUnknown, QStringLiteral("The program is ending"));
    }
    return m_released;
}

void SingleInstance::Activate(const QVariantMap& platformData)
{
    if (refusesCalls()) {
        return;
    }
    QString token = platformData.value(QStringLiteral("activation-token")).toString();
    if (token.isEmpty()) {
        token = platformData.value(QStringLiteral("desktop-startup-id")).toString();
    }
    if (token.size() > longestToken) {
        token.clear();
    }
    if (!m_activationToken) {
        QMetaObject::invokeMethod(this, &SingleInstance::comeForward, Qt::QueuedConnection);
    }
    m_activationToken = token;
}

void SingleInstance::comeForward()
{
    Q_EMIT activated(std::exchange(m_activationToken, std::nullopt).value_or(QString()));
}

void SingleInstance::Open(const QStringList&, const QVariantMap& platformData)
{
    Activate(platformData);
}

void SingleInstance::ActivateAction(const QString& action, const QVariantList& parameters,
                                    const QVariantMap& platformData)
{
    if (refusesCalls()) {
        return;
    }
    if (action != ApplicationMessages::showReminderAction() || parameters.size() != 1 || !m_reminderHandler) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such action"));
        return;
    }
    Activate(platformData);
    message().setDelayedReply(true);
    const auto done = [call = message(), bus = connection()](bool well) {
        bus.send(well
                     ? call.createReply()
                     : call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("The reminder was not accepted")));
    };
    m_reminderHandler(parameters.first().toByteArray(), done);
}
