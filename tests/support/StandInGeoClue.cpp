// SPDX-License-Identifier: MIT
#include "support/StandInGeoClue.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

namespace {

const QString client = QStringLiteral("/org/freedesktop/GeoClue2/Client/7");

QString argumentText(const QVariant& argument)
{
    if (argument.canConvert<QDBusVariant>()) {
        return argument.value<QDBusVariant>().variant().toString();
    }
    if (argument.canConvert<QDBusObjectPath>()) {
        return argument.value<QDBusObjectPath>().path();
    }
    return argument.toString();
}

/// The interface names among the arguments are left out.
QString callText(const QDBusMessage& message)
{
    QStringList words{message.member()};
    for (const QVariant& argument : message.arguments()) {
        const QString text = argumentText(argument);
        if (!text.startsWith(QLatin1String("org.freedesktop."))) {
            words.append(text);
        }
    }
    return words.join(u' ');
}

} // namespace

StandInGeoClue::StandInGeoClue(const QDBusConnection& connection) : m_connection(connection)
{
    m_connection.registerVirtualObject(QStringLiteral("/org/freedesktop/GeoClue2"), this, QDBusConnection::SubPath);
    m_connection.registerService(QStringLiteral("org.freedesktop.GeoClue2"));
}

bool StandInGeoClue::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    calls.append(callText(message));
    if (unanswered.contains(message.member())) {
        m_held.insert(message.member(), message);
    } else {
        m_connection.send(replyTo(message));
    }
    return true;
}

QDBusMessage StandInGeoClue::replyTo(const QDBusMessage& message) const
{
    if (message.member() == QLatin1String("GetClient")) {
        return message.createReply(QVariant::fromValue(QDBusObjectPath(client)));
    }
    if (message.member() == QLatin1String("GetAll")) {
        return message.createReply(m_locations.value(message.path()));
    }
    return message.createReply();
}

void StandInGeoClue::answer(const QString& method)
{
    m_connection.send(replyTo(m_held.take(method)));
}

void StandInGeoClue::refuse(const QString& method, const QString& error)
{
    m_connection.send(m_held.take(method).createErrorReply(error, QStringLiteral("not now")));
}

void StandInGeoClue::tell(const QVariantMap& properties)
{
    const QString path = QStringLiteral("%1/Location/%2").arg(client, QString::number(m_locations.size()));
    m_locations.insert(path, properties);
    QDBusMessage signal = QDBusMessage::createSignal(client, QStringLiteral("org.freedesktop.GeoClue2.Client"),
                                                     QStringLiteral("LocationUpdated"));
    signal << QVariant::fromValue(QDBusObjectPath(QStringLiteral("/"))) << QVariant::fromValue(QDBusObjectPath(path));
    m_connection.send(signal);
}
