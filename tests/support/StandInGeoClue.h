// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// The desktop's location service as a test wants it, on a connection of its own. It lives in the test's thread, so it
/// can only answer while the program does not wait for it.
class StandInGeoClue : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit StandInGeoClue(const QDBusConnection& connection);

    QStringList calls;      ///< what was called, with the arguments, for example "Start" or "Set DesktopId velumora"
    QStringList unanswered; ///< methods that are not answered by themselves

    /// Answers the last call of a method that was not answered.
    void answer(const QString& method);
    void refuse(const QString& method, const QString& error);

    /// Tells the client of a new location object with these properties.
    void tell(const QVariantMap& properties);

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QDBusMessage replyTo(const QDBusMessage& message) const;

    QDBusConnection m_connection;
    QHash<QString, QDBusMessage> m_held;
    QHash<QString, QVariantMap> m_locations;
};
