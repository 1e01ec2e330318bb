// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusMessage>
#include <QString>

/// What the running program can be told over the session bus: the desktop's standard interface for that,
/// org.freedesktop.Application (Desktop Entry Specification 1.5).
namespace ApplicationMessages {

QString service();
QString path();
QString interface();

/// The name of the action that takes a clicked reminder; its one parameter is the request as a property list.
QString showReminderAction();

/// Has the program bring its window forward. The token that a desktop gave for that may be empty.
QDBusMessage activate(const QString& activationToken);

/// Hands a clicked reminder to the program, which answers once it has dealt with it.
QDBusMessage showReminder(const QByteArray& request, const QString& activationToken);

} // namespace ApplicationMessages
