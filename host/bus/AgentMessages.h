// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusMessage>
#include <QString>
#include <QStringList>

/// What the reminder agent can be told over the session bus: the slots of ReminderAgent. A request goes over the bus as
/// NotificationRequestFormat.h has it.
namespace AgentMessages {

QString service();
QString path();
QString program(); ///< the file name of the agent's executable

QDBusMessage addRequest(const QByteArray& request);

/// Takes delivered reminders from the screen. An agent that does not run, and shows nothing, is not started for it.
QDBusMessage removeDelivered(const QStringList& identifiers);

QDBusMessage pendingRequests();

} // namespace AgentMessages
