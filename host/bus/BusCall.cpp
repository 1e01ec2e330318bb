// SPDX-License-Identifier: MIT
#include "host/bus/BusCall.h"

#include <QDBusPendingCallWatcher>

#include <utility>

void BusCall::send(const QDBusConnection& bus, const QDBusMessage& message, QObject& context, Answer answer,
                   int timeoutMs)
{
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, timeoutMs), &context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [watcher, answer = std::move(answer)] {
        watcher->deleteLater();
        answer(watcher->reply());
    });
}

QDBusMessage BusCall::methodOfTheBus(const QString& name)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, name);
}
