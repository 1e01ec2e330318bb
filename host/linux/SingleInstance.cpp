// SPDX-License-Identifier: MIT
#include "host/linux/SingleInstance.h"

#include "host/linux/ApplicationMessages.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace {

constexpr int maximumAttempts = 20; // each is as long as a program that hangs may take to answer

} // namespace

SingleInstance::Start SingleInstance::claim(const QString& activationToken)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return Start::First;
    }
    // Before the name, so that whoever finds the name finds the object.
    bus.registerObject(ApplicationMessages::path(), this, QDBusConnection::ExportAllSlots);
    for (int attempt = 0; attempt < maximumAttempts && !bus.registerService(ApplicationMessages::service());
         ++attempt) {
        QDBusMessage message = ApplicationMessages::activate(activationToken);
        message.setAutoStartService(false);
        const QDBusMessage reply = bus.call(message);
        if (reply.type() == QDBusMessage::ReplyMessage) {
            return Start::HandedOver;
        }
        // The holder ended or did not answer in time: the name is free, or it is worth asking again.
    }
    return Start::First;
}

void SingleInstance::release()
{
    m_released = true;
    QDBusConnection::sessionBus().unregisterService(ApplicationMessages::service());
}

/// A program that ends answers nothing: the caller is to turn to the next one.
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
    Q_EMIT activated(token);
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
        bus.send(well ? call.createReply()
                      : call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("Not a reminder")));
    };
    m_reminderHandler(parameters.first().toByteArray(), done);
}
