// SPDX-License-Identifier: MIT
#include "host/bus/AgentMessages.h"

#include "reminders/AgentName.h"

namespace {

QDBusMessage agentMethod(const QString& name)
{
    return QDBusMessage::createMethodCall(AgentMessages::service(), AgentMessages::path(), AgentMessages::service(),
                                          name);
}

} // namespace

QString AgentMessages::service()
{
    return QString::fromLatin1(agentName);
}

QString AgentMessages::path()
{
    return u'/' + service().replace(u'.', u'/');
}

QString AgentMessages::program()
{
    return QStringLiteral("velumora-reminder-agent");
}

QDBusMessage AgentMessages::addRequest(const QByteArray& request)
{
    QDBusMessage message = agentMethod(QStringLiteral("AddRequest"));
    message << request;
    return message;
}

QDBusMessage AgentMessages::removeDelivered(const QStringList& identifiers)
{
    QDBusMessage message = agentMethod(QStringLiteral("RemoveDelivered"));
    message.setAutoStartService(false);
    message << identifiers;
    return message;
}

QDBusMessage AgentMessages::pendingRequests()
{
    return agentMethod(QStringLiteral("PendingRequests"));
}
