// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusMessage>
#include <QString>
#include <QStringList>

/// The calls that the reminder agent accepts over the session bus: the slots of ReminderAgent. A request has the form
/// of NotificationRequestFormat.h.
namespace AgentMessages {

QString service();
QString path();
QString program(); ///< the file name of the agent's executable

QDBusMessage addRequest(const QByteArray& request);

/// Removes delivered reminders from the screen. Does not start the agent, which shows nothing when it does not run.
QDBusMessage removeDelivered(const QStringList& identifiers);

QDBusMessage pendingRequests();

} // namespace AgentMessages
