// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusMessage>
#include <QString>

/// The calls that the running program accepts over the session bus: the desktop's standard interface
/// org.freedesktop.Application (Desktop Entry Specification 1.5).
namespace ApplicationMessages {

QString service();
QString path();
QString interface();

/// The action for a clicked reminder; its one parameter is the request as a property list.
QString showReminderAction();

/// Makes the program bring its window forward. `activationToken` is the desktop's token for that, or empty.
QDBusMessage activate(const QString& activationToken);

/// Passes a clicked reminder to the program, which replies once it has dealt with it.
QDBusMessage showReminder(const QByteArray& request, const QString& activationToken);

} // namespace ApplicationMessages
