// SPDX-License-Identifier: MIT
#include "host/bus/ApplicationMessages.h"

#include <QVariant>

namespace {

QDBusMessage method(const QString& name)
{
    return QDBusMessage::createMethodCall(ApplicationMessages::service(), ApplicationMessages::path(),
                                          ApplicationMessages::interface(), name);
}

QVariantMap platformData(const QString& activationToken)
{
    if (activationToken.isEmpty()) {
        return {};
    }
    return {{QStringLiteral("activation-token"), activationToken},
            {QStringLiteral("desktop-startup-id"), activationToken}};
}

} // namespace

QString ApplicationMessages::service()
{
    return QStringLiteral("app.velumora.Velumora");
}

QString ApplicationMessages::path()
{
    return QStringLiteral("/app/velumora/Velumora");
}

QString ApplicationMessages::interface()
{
    return QStringLiteral("org.freedesktop.Application");
}

QString ApplicationMessages::showReminderAction()
{
    return QStringLiteral("show-reminder");
}

QDBusMessage ApplicationMessages::activate(const QString& activationToken)
{
    QDBusMessage message = method(QStringLiteral("Activate"));
    message << platformData(activationToken);
    return message;
}

QDBusMessage ApplicationMessages::showReminder(const QByteArray& request, const QString& activationToken)
{
    QDBusMessage message = method(QStringLiteral("ActivateAction"));
    message << showReminderAction() << QVariant(QVariantList{request}) << platformData(activationToken);
    return message;
}
